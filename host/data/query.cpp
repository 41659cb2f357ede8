#include "host/data/query.h"

#include <algorithm>
#include <utility>

#include "host/core/text.h"
#include "host/data/filter.h"
#include "host/data/persian.h"
#include "host/data/sort.h"

namespace goods {
namespace {

FilterTest EqualTest(std::string_view field, const Value& value) {
  FilterTest test;
  test.field = Trim(field);
  test.op = value.IsNull() ? FilterOperator::IsNull : FilterOperator::Equal;
  test.number = value.IsNumber();
  test.value = value.AsText();
  return test;
}

// A NUL would end the text on its way to some databases, and with it the literal that it stands in.
void RefuseNul(const std::string& statement) {
  if (statement.find('\0') != std::string::npos) {
    throw DatabaseError("متن درخواست نویسه NUL دارد",
                        ReplaceAll(statement, std::string_view("\0", 1), "\\0"));
  }
}

// Of the exception that is being handled.
bool CaughtStop() {
  try {
    throw;
  } catch (const StatementCancelled&) {
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace

FilterError::~FilterError() = default;

// Hears of the query's own statement.
class TADOQuery::FirstRowsKeeper : public IStatementProgress {
 public:
  explicit FirstRowsKeeper(TADOQuery& query) : query_(query) {}
  bool Progress(std::size_t /*rows*/) override { return true; }
  std::size_t FirstRowsWanted(std::size_t rows) override { return query_.FirstRowsWanted(rows); }
  void FirstRows(RowStore rows) override { query_.KeepFirstRows(std::move(rows)); }

 private:
  TADOQuery& query_;
};

TADOQuery::TADOQuery(TComponent* owner, std::string name, IConnection& connection)
    : TComponent(owner, std::move(name)),
      connection_(connection),
      filterTree_(std::make_unique<FilterNode>()) {}

TADOQuery::~TADOQuery() = default;

void TADOQuery::Open() {
  const bool wasActive = Active();
  const bool hadRow = cursor_.has_value();
  Clear();
  stopped_ = false;
  opening_ = true;
  try {
    const std::string statement = sql_;
    RefuseNul(statement);
    auto rows = std::make_unique<RowStore>();
    FirstRowsKeeper keeper(*this);
    connection_.Open(statement, *rows, FirstRowsCame.HasListeners() ? &keeper : nullptr);
    rows->Finish();
    Clear();  // a host that handled messages meanwhile may have opened it from there
    rows_ = std::move(rows);
    ArrangeOpened();
    opening_ = false;
  } catch (...) {
    stopped_ = CaughtStop();
    opening_ = false;
    Clear();
    try {
      Notify(wasActive, hadRow);
    } catch (...) {  // the statement's own failure is the one to report
    }
    throw;
  }
  Notify(true, hadRow || cursor_.has_value());
}

void TADOQuery::ExecSQL() {
  const std::string statement = sql_;
  RefuseNul(statement);
  connection_.Execute(statement, nullptr);
}

void TADOQuery::Close() {
  stopped_ = false;
  if (!Active()) return;
  const bool hadRow = cursor_.has_value();
  Clear();
  Notify(true, hadRow);
}

void TADOQuery::Clear() {
  first_.reset();
  rows_.reset();
  ordered_ = {};
  filterMask_ = {};
  mask_ = {};
  visible_ = {};
  cursor_.reset();
}

std::size_t TADOQuery::RecordCount() const { return visible_.size(); }

std::vector<ColumnInfo> TADOQuery::Fields() const {
  std::vector<ColumnInfo> fields;
  if (Active()) fields = rows_->Columns();
  for (const ComputedColumn& column : computed_) fields.push_back(column.info);
  return fields;
}

std::optional<std::size_t> TADOQuery::FindComputed(std::string_view name) const {
  const auto found = std::find_if(computed_.begin(), computed_.end(),
                                  [&](const ComputedColumn& each) { return SameText(each.info.name, name); });
  if (found == computed_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - computed_.begin());
}

std::optional<std::size_t> TADOQuery::FindField(std::string_view name) const {
  if (const auto computed = FindComputed(name)) return (Active() ? rows_->Columns().size() : 0) + *computed;
  return Active() ? rows_->FindColumn(name) : std::nullopt;
}

Value TADOQuery::Cell(std::size_t position, std::size_t field) const {
  return position < visible_.size() ? StoredCell(visible_[position], field) : Value();
}

Value TADOQuery::StoredCell(std::size_t row, std::size_t field) const {
  if (row >= TotalCount()) return {};
  const std::size_t stored = rows_->Columns().size();
  if (field < stored) return rows_->Cell(row, field);
  if (field - stored >= computed_.size()) return {};
  return computed_[field - stored].compute(row, *rows_);
}

Value TADOQuery::FieldByName(std::string_view name) const {
  const auto field = FindField(name);
  return field && cursor_ ? Cell(*cursor_, *field) : Value();
}

void TADOQuery::AddComputed(ColumnInfo column, Compute compute) {
  const auto same = FindComputed(column.name);
  ComputedColumn added{std::move(column), std::move(compute)};
  if (same) {
    computed_[*same] = std::move(added);
  } else {
    computed_.push_back(std::move(added));
  }
  if (Active()) Notify(true, false);
}

void TADOQuery::MoveTo(std::size_t position) {
  if (visible_.empty()) return;
  position = std::min(position, visible_.size() - 1);
  if (cursor_ == position) return;
  cursor_ = position;
  Notify(false, true);
}

void TADOQuery::Last() { MoveTo(visible_.size()); }

bool TADOQuery::Locate(std::string_view fields, std::span<const Value> values) {
  const std::vector<std::string> names = Split(fields, ';');
  if (names.size() != values.size()) throw std::invalid_argument("Locate needs a value for each field");
  if (visible_.empty()) return false;
  FilterNode all;
  all.kind = FilterNode::Kind::And;
  for (std::size_t i = 0; i < names.size(); ++i) {
    FilterNode& node = all.children.emplace_back();
    node.kind = FilterNode::Kind::Test;
    node.test = EqualTest(names[i], values[i]);
  }
  std::vector<std::uint64_t> mask;
  try {
    mask = MaskOf(all);
  } catch (const FilterError&) {
    return false;
  }
  const auto found = std::find_if(visible_.begin(), visible_.end(), [&mask](std::uint32_t row) {
    return ((mask[row / 64] >> (row % 64)) & 1U) != 0;
  });
  if (found == visible_.end()) return false;
  MoveTo(static_cast<std::size_t>(found - visible_.begin()));
  return true;
}

bool TADOQuery::LocatePrefix(std::string_view field, std::string_view text) {
  const auto index = FindField(field);
  if (!index) return false;
  const std::string prefix = FoldPersian(text);
  std::string folded;
  for (std::size_t position = 0; position < visible_.size(); ++position) {
    FoldPersianInto(Cell(position, *index).AsText(), folded);
    if (!folded.starts_with(prefix)) continue;
    MoveTo(position);
    return true;
  }
  return false;
}

void TADOQuery::DisableControls() { ++disabled_; }

void TADOQuery::EnableControls() {
  if (disabled_ == 0 || --disabled_ > 0) return;
  const bool changed = std::exchange(changedWhileDisabled_, false);
  Notify(changed, std::exchange(scrolledWhileDisabled_, false));
}

void TADOQuery::Notify(bool changed, bool scrolled) {
  if (disabled_ > 0) {
    changedWhileDisabled_ = changedWhileDisabled_ || changed;
    scrolledWhileDisabled_ = scrolledWhileDisabled_ || scrolled;
    return;
  }
  const std::weak_ptr<int> alive = alive_;
  if (changed) {
    scrollFollows_ = scrolled;
    Changed();
    if (alive.expired()) return;
    scrollFollows_ = false;
  }
  if (scrolled) Scrolled();
}

std::size_t TADOQuery::MemoryBytes() const {
  const std::size_t rows = Active() ? rows_->MemoryBytes() : 0;
  return rows + (visible_.capacity() + ordered_.capacity()) * sizeof(std::uint32_t) +
         (mask_.capacity() + filterMask_.capacity()) * sizeof(std::uint64_t);
}

}  // namespace goods
