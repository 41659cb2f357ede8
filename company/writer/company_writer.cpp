#include "company/writer/company_writer.h"

#include <utility>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/embedded/procedures.h"
#include "company/writer/detail_writer.h"
#include "company/writer/document_writer.h"
#include "company/writer/resting_company.h"
#include "company/writer/stock_card.h"

namespace goods {

namespace {

constexpr std::string_view kOrderingStage = "مرتب کردن سندها";
constexpr std::string_view kCards = "نوشتن کاردکس ها";
constexpr std::string_view kIndexes = "ساختن نمایه ها";
constexpr std::string_view kSaving = "ذخیره شرکت";

// A table of the same name hides the company's while cards are written, so that the packed movements come to
// lie together in the file and are read in one go.
constexpr char kPackedApart[] =
    "CREATE TEMP TABLE PackedMovements(Place INTEGER PRIMARY KEY, Data BLOB NOT NULL)";
constexpr char kPackedTogether[] =
    "INSERT INTO main.PackedMovements SELECT Place, Data FROM temp.PackedMovements ORDER BY Place;"
    "DROP TABLE temp.PackedMovements";

// Writes rows of stock cards, in the order of good, date and Radif.
class CardWriter {
 public:
  explicit CardWriter(Database& db)
      : insert_(db.Prepare("INSERT INTO Kardex(Kala, Date, Radif, Anbar, Percode, Tedad, Meghdar2, Gheymat,"
                           " Fi, Miangin, Type, OperationCode, OperationRow, Comment)"
                           " VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14)")),
        ratio_(db.Prepare("SELECT ifnull(Meghdar_Formool, 0) FROM GoodInf WHERE Code = ?1")),
        figures_(db) {}

  bool IsOf(std::int64_t good) const { return card_.Good() == good; }

  void Begin(std::int64_t good) {
    End();
    ratio_.Bind(1, good);
    card_.Begin(good, ratio_.Step() ? ratio_.Number(0) : Decimal());
    ratio_.Reset();
  }

  void Write(const WaitingMovement& waiting, bool priceIsCost) {
    const Movement& movement = waiting.movement;
    const StockCosts costs = card_.Advance(movement.quantity, movement.price, priceIsCost);
    const std::optional<Decimal> second = SecondQuantity(movement.quantity, card_.Ratio());
    if (!second) throw CompanyError("مقدار کالا در واحد دوم از اندازه بزرگتر است.");
    card_.Count(movement.date, movement.store, movement.type, movement.quantity, *second, costs.cost);
    insert_.Bind(1, movement.good);
    insert_.Bind(2, movement.date);
    insert_.Bind(3, waiting.radif);
    insert_.Bind(4, movement.store);
    insert_.Bind(5, movement.person);
    insert_.Bind(6, movement.quantity);
    insert_.Bind(7, *second);
    insert_.Bind(8, costs.cost);
    insert_.Bind(9, costs.price);
    insert_.Bind(10, costs.average);
    insert_.Bind(11, std::int64_t{movement.type});
    insert_.Bind(12, movement.document);
    insert_.Bind(13, movement.row);
    insert_.Bind(14, movement.comment);
    insert_.Run();
  }

  void End() {
    if (card_.Good() != 0) figures_.Write(card_);
    card_.Begin(0, Decimal());
  }

 private:
  Statement insert_;
  Statement ratio_;
  FigureWriter figures_;
  StockCard card_;
};

}  // namespace

CompanyWriter::CompanyWriter(const std::string& path, bool replace, WorkWatcher watcher) try
    : path_(path),
      replace_(replace),
      watcher_(std::move(watcher)),
      file_(path, {.replace = replace, .ownerOnly = true, .overDatabases = true}) {
  // Now rather than after all the work; Finish looks again.
  { const RestingCompany old(file_.TargetPath(), replace_); }
  try {
    db_.emplace(file_.TemporaryPath(), SQLITE_OPEN_READWRITE);
    // The file is not the company until it is moved into place, so nothing needs to survive a crash.
    db_->Run(
        "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
        "PRAGMA temp_store = FILE; PRAGMA cache_size = -65536; PRAGMA temp.cache_size = -16384; BEGIN");
    CreateCompanySchema(*db_);
    db_->RunTriggers();
    kinds_.emplace(*db_);
  } catch (const SqliteError& failure) {
    db_.reset();
    throw CompanyError(PersianMessage(failure) + " (" + path_ + ")");
  }
  intake_.emplace(file_.TargetPath(), *kinds_, 0);
} catch (const FileError& failure) {
  throw CompanyError(failure.what());
}

CompanyWriter::~CompanyWriter() = default;

void CompanyWriter::SetTitle(std::string_view title) {
  Statement meta = db_->Prepare("INSERT OR REPLACE INTO Meta(Key, Value) VALUES('Title', ?1)");
  meta.Bind(1, title);
  meta.Run();
}

void CompanyWriter::AddUser(std::int64_t code, std::string_view login, std::string_view name,
                            std::string_view passwordHash, bool everyRight, bool seesPrices) {
  Statement user = db_->Prepare(
      "INSERT INTO Users(Code, Login, Name, PasswordHash, EveryRight, SeesPrices) "
      "VALUES(?1, ?2, ?3, ?4, ?5, ?6)");
  user.Bind(1, code);
  user.Bind(2, login);
  user.Bind(3, name);
  user.Bind(4, passwordHash);
  user.Bind(5, std::int64_t{everyRight});
  user.Bind(6, std::int64_t{seesPrices});
  user.Run();
}

void CompanyWriter::AddDetail(const Movement& movement, const DetailMovement& detail) {
  intake_->AddDetail(movement.good, detail, movement.comment, 0);
}

void CompanyWriter::WriteMovements(const std::function<void(const Unattached&)>& unattached) {
  written_ = true;
  RecordSorter cards(file_.TargetPath());
  std::string packed;
  WorkMeter meter(watcher_, kOrderingStage, intake_->Movements());
  WriteDocuments(
      *db_, *intake_, meter,
      [&](const WaitingMovement& waiting) {
        PackMovement(waiting.movement, waiting.radif, packed);
        cards.Add(CardKey(waiting), packed);
      },
      unattached);
  WriteCards(cards, unattached);
}

void CompanyWriter::WriteCards(RecordSorter& cards,
                               const std::function<void(const Unattached&)>& unattached) {
  WorkMeter meter(watcher_, kCards, cards.Count());
  db_->Run(kPackedApart);
  CardWriter writer(*db_);
  DetailWriter details(*db_, intake_->Details(), unattached);
  WaitingMovement waiting;
  for (cards.Sort(); cards.Next(); meter.Step()) {
    UnpackMovement(cards.Bytes(), waiting);
    if (!writer.IsOf(waiting.movement.good)) {
      writer.Begin(waiting.movement.good);
      details.BeginGood(waiting.movement.good);
    }
    writer.Write(waiting, kinds_->priceIsCost[MovementKinds::Place(waiting.movement.type)]);
    details.Write(waiting);
  }
  writer.End();
  details.End();
  db_->Run(kPackedTogether);
  meter.End();
}

void CompanyWriter::Finish() {
  if (!written_) WriteMovements();
  RunStoppable([&] {
    const WatchedStatements watched(*db_, watcher_, kIndexes);
    CreateCompanyIndexes(*db_);
    RefreshValuation(*db_);
  });
  NoteLastRadif(*db_, intake_->LastRadif());
  db_->Run("COMMIT");
  db_.reset();
  const WorkMeter saving(watcher_, kSaving, 0);
  const RestingCompany old(file_.TargetPath(), replace_);
  try {
    file_.Commit();
  } catch (const FileError& failure) {
    throw CompanyError(failure.what());
  }
}

void RefreshValuation(Database& db) {
  ExecStatement exec;
  exec.procedure = "RialiStock_SP";
  const ProcedureCall call = MatchProcedure(exec, exec.procedure);
  RunProcedureBody(db, call, [] {});
}

void NoteLastRadif(Database& db, std::int64_t radif) {
  Statement meta = db.Prepare("INSERT OR REPLACE INTO Meta(Key, Value) VALUES('LastRadif', ?1)");
  meta.Bind(1, std::string_view(std::to_string(radif)));
  meta.Run();
}

}  // namespace goods
