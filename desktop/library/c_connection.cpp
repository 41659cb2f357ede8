#include "desktop/library/c_connection.h"

#include <utility>

#include "company/kit/statement_company.h"
#include "host/core/text.h"
#include "host/data/first_rows.h"

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kRowsBetweenProgress = 4096;
constexpr std::size_t kRowsBetweenClocks = 64;
constexpr auto kTimeBetweenProgress = 40ms;

}  // namespace

goods_desktop_rows::goods_desktop_rows(goods::RowStore* into, goods::IStatementProgress* progress,
                                       goods::TextEncoding encoding)
    : into_(into), progress_(progress), encoding_(encoding) {}

void goods_desktop_rows::Refuse(const std::string& text) {
  mistake_ = text;
  goods::FailWrongCall(text);
}

void goods_desktop_rows::AddColumn(std::string name, std::int32_t type) {
  if (into_ == nullptr) Refuse("این دستور ردیفی ندارد.");
  if (defined_) Refuse("ستون پس از نخستین ردیف داده شد: " + name);
  if (type < GOODS_DESKTOP_INTEGER || type > GOODS_DESKTOP_TEXT) Refuse("نوع این ستون شناخته نیست: " + name);
  const auto kind = type == GOODS_DESKTOP_INTEGER   ? goods::ColumnType::Integer
                    : type == GOODS_DESKTOP_DECIMAL ? goods::ColumnType::Decimal
                                                    : goods::ColumnType::Text;
  columns_.push_back({std::move(name), kind});
}

void goods_desktop_rows::Define() {
  if (std::exchange(defined_, true)) return;
  into_->Define(columns_);
}

goods::Column& goods_desktop_rows::NextCell() {
  if (next_ >= columns_.size()) Refuse("این ردیف بیش از ستون‌ها خانه دارد.");
  Define();
  return into_->ColumnAt(next_);
}

void goods_desktop_rows::AddInteger(std::int64_t value) {
  goods::Column& cell = NextCell();
  switch (NextColumn().type) {
    case goods::ColumnType::Integer:
      cell.AppendInteger(value);
      break;
    case goods::ColumnType::Decimal:
      cell.AppendDecimal(goods::Decimal(value));
      break;
    default:
      Refuse("عدد در ستونی متنی: " + NextColumn().name);
  }
  ++next_;
}

void goods_desktop_rows::AddDecimal(goods::Decimal value) {
  goods::Column& cell = NextCell();
  if (NextColumn().type != goods::ColumnType::Decimal) {
    Refuse("عدد اعشاری در ستونی از نوع دیگر: " + NextColumn().name);
  }
  cell.AppendDecimal(value);
  ++next_;
}

void goods_desktop_rows::AddText(const std::string& text) {
  goods::Column& cell = NextCell();
  if (NextColumn().type == goods::ColumnType::Text) {
    cell.AppendText(text);
  } else if (NextColumn().type == goods::ColumnType::Decimal) {
    const auto number = goods::Decimal::Parse(text);
    if (!number) Refuse("این متن عدد نیست: " + text);
    cell.AppendDecimal(*number);
  } else {
    Refuse("متن در ستونی از عدد: " + NextColumn().name);
  }
  ++next_;
}

void goods_desktop_rows::AddNull() {
  NextCell().AppendNull();
  ++next_;
}

bool goods_desktop_rows::EndRow() {
  if (into_ == nullptr) Refuse("این دستور ردیفی ندارد.");
  if (next_ != columns_.size() || columns_.empty())
    Refuse("این ردیف کمتر از ستون‌ها خانه دارد.");
  into_->EndRow();
  next_ = 0;
  ++rows_;
  if (rows_ % kRowsBetweenProgress == 0) return GoOn();
  if (rows_ % kRowsBetweenClocks == 0 && Clock::now() - asked_ >= kTimeBetweenProgress) return GoOn();
  return !stopped_;
}

bool goods_desktop_rows::GoOn() {
  if (progress_ != nullptr && !stopped_) {
    if (defined_) goods::TellFirstRows(*progress_, *into_);
    stopped_ = !progress_->Progress(rows_);
  }
  asked_ = Clock::now();
  return !stopped_;
}

void goods_desktop_rows::Finish() {
  if (mistake_.empty() && next_ != 0) mistake_ = "ردیف آخر ناتمام است.";
  if (!mistake_.empty()) goods::FailWrongCall(mistake_);
  if (into_ == nullptr) return;
  Define();
  into_->Finish();
}

namespace goods {
namespace {

class OwnConnection : public IConnection {
 public:
  OwnConnection(const goods_desktop_connection& table, TextEncoding encoding)
      : table_(table), encoding_(encoding) {}

  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override {
    Run(table_.open, statement, &into, progress);
  }

  void Execute(std::string_view statement, IStatementProgress* progress) override {
    Run(table_.execute, statement, nullptr, progress);
  }

 private:
  void Run(decltype(goods_desktop_connection::open) function, std::string_view statement, RowStore* into,
           IStatementProgress* progress) {
    goods_desktop_rows rows(into, progress, encoding_);
    const TextOut text(statement, encoding_);
    const std::int32_t code = function(table_.context, text.Get(), &rows);
    const std::string sent(statement);
    if (code == GOODS_DESKTOP_STOPPED || rows.Stopped()) {
      throw StatementCancelled(rows.Why("این دستور متوقف شد."), sent);
    }
    if (code == GOODS_DESKTOP_CONNECTION_LOST) {
      throw ConnectionLost(rows.Why("ارتباط برنامه با پایگاه داده قطع شده است."), sent);
    }
    if (code != GOODS_DESKTOP_DONE) {
      throw DatabaseError(rows.Why("برنامه این دستور را انجام نداد."), sent);
    }
    try {
      rows.Finish();
    } catch (const CallFailure& mistake) {
      throw DatabaseError(mistake.what(), sent);
    }
  }

  goods_desktop_connection table_;
  TextEncoding encoding_;
};

// Its users and their rights are the program's.
class OwnCompany : public StatementCompany {
 public:
  OwnCompany(const goods_desktop_connection& table, TextEncoding encoding, std::string title)
      : table_(table), encoding_(encoding), title_(std::move(title)) {}

  std::string Title() const override { return title_; }
  std::unique_ptr<IConnection> OpenConnection() override {
    return std::make_unique<OwnConnection>(table_, encoding_);
  }
  std::optional<UserRecord> SignIn(std::string_view /*login*/, std::string_view /*password*/) override {
    return std::nullopt;
  }
  bool HasRight(const UserRecord& /*user*/, int /*softwarePart*/, int /*permission*/) override {
    return false;
  }
  IUsers& Users() override {
    throw CompanyError("کاربران این شرکت را برنامه نگه می‌دارد.");
  }

 private:
  goods_desktop_connection table_;
  TextEncoding encoding_;
  std::string title_;
};

}  // namespace

std::unique_ptr<ICompany> MakeOwnCompany(const goods_desktop_connection& table, TextEncoding encoding,
                                         std::string title) {
  constexpr std::size_t kLongestTitle = 200;  // characters
  if (CharCount(title) > kLongestTitle) title = std::string(FirstChars(title, kLongestTitle - 1)) + "…";
  return std::make_unique<OwnCompany>(table, encoding, std::move(title));
}

}  // namespace goods
