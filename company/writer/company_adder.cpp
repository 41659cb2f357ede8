#include "company/writer/company_adder.h"

#include <cstdlib>
#include <utility>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/writer/card_reworker.h"
#include "company/writer/company_writer.h"
#include "company/writer/detail_writer.h"
#include "company/writer/document_writer.h"

namespace goods {

namespace {

constexpr std::string_view kOrdering = "مرتب کردن سندها";
constexpr std::string_view kReworking = "محاسبه دوباره کاردکس ها";

Database OpenToWrite(const std::string& path) {
  if (!PrepareCompanyFile(path))
    throw CompanyError("فایل شرکت فقط خواندنی است و چیزی به آن افزوده نمی شود: " + path);
  Database db(path, SQLITE_OPEN_READWRITE);
  db.Run("PRAGMA cache_size = -65536; PRAGMA temp_store = FILE");
  return db;
}

std::int64_t LastRadif(Database& db) {
  const std::string noted = db.AskText("SELECT Value FROM Meta WHERE Key = 'LastRadif'");
  if (!noted.empty()) return std::strtoll(noted.c_str(), nullptr, 10);
  return db.AskInteger("SELECT max(Radif) FROM Kardex");
}

// Gives the rows of one good after the other, in rising order of goods.
class GoodsInTurn {
 public:
  explicit GoodsInTurn(RecordSorter& cards) : cards_(cards) {
    cards_.Sort();
    Advance();
  }
  // 0 at the end.
  std::int64_t Good() const { return more_ ? waiting_.movement.good : 0; }
  std::vector<NewCardRow> Rows(WorkMeter& meter) {
    std::vector<NewCardRow> rows;
    for (const std::int64_t good = Good(); more_ && waiting_.movement.good == good; Advance()) {
      rows.emplace_back(waiting_);
      meter.Step();
    }
    return rows;
  }

 private:
  void Advance() {
    more_ = cards_.Next();
    if (more_) UnpackMovement(cards_.Bytes(), waiting_);
  }
  RecordSorter& cards_;
  WaitingMovement waiting_;
  bool more_ = false;
};

}  // namespace

CompanyAdder::CompanyAdder(const std::string& path, WorkWatcher watcher)
    : path_(path), watcher_(std::move(watcher)) {
  try {
    db_ = OpenToWrite(path);
    transaction_.emplace(db_);
    kinds_.emplace(db_);
    intake_.emplace(path, *kinds_, LastRadif(db_));
    document_ = db_.Prepare("SELECT 1 FROM Documents WHERE Kind = ?1 AND Code = ?2");
  } catch (const SqliteError& failure) {
    throw CompanyError(PersianMessage(failure) + " (" + path_ + ")");
  }
}

CompanyAdder::~CompanyAdder() = default;

bool CompanyAdder::HasDocument(std::int64_t kind, std::int64_t number) {
  document_.Bind(1, kind);
  document_.Bind(2, number);
  const bool found = document_.Step();
  document_.Reset();
  return found;
}

void CompanyAdder::WriteMovements(const std::function<void(const Unattached&)>& unattached) {
  // Triggers of a file are not run; a new good gets its row of stored figures here.
  db_.Run(
      "INSERT INTO GoodStock(Kala) SELECT Code FROM GoodInf WHERE Code NOT IN (SELECT Kala FROM GoodStock)");
  RecordSorter cards(path_);
  std::string packed;
  {
    WorkMeter meter(watcher_, kOrdering, intake_->Movements());
    WriteDocuments(
        db_, *intake_, meter,
        [&](const WaitingMovement& waiting) {
          PackMovement(waiting.movement, waiting.radif, packed);
          cards.Add(CardKey(waiting), packed);
        },
        unattached);
  }
  WorkMeter meter(watcher_, kReworking, cards.Count());
  CardReworker reworker(db_, *kinds_);
  DetailWriter details(db_, intake_->Details(), unattached);
  GoodsInTurn goods(cards);
  auto touched = touched_.begin();
  while (goods.Good() != 0 || touched != touched_.end()) {
    const bool alone = goods.Good() == 0 || (touched != touched_.end() && *touched < goods.Good());
    const std::int64_t good = alone ? *touched : goods.Good();
    const bool whole = touched != touched_.end() && *touched == good;
    if (whole) ++touched;
    const std::vector<NewCardRow> rows = alone ? std::vector<NewCardRow>() : goods.Rows(meter);
    reworker.Rework(good, rows, whole);
    details.BeginGood(good);
    for (const NewCardRow& row : rows) details.Write(row.View());
  }
  details.End();
  meter.End();
}

void CompanyAdder::Finish() {
  RefreshValuation(db_);
  NoteLastRadif(db_, intake_->LastRadif());
  document_ = Statement();
  transaction_->Commit();
}

}  // namespace goods
