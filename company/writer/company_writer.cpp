#include "company/writer/company_writer.h"

#include <array>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/embedded/procedures.h"
#include "company/writer/moving_average.h"
#include "company/writer/resting_company.h"

namespace goods {

namespace {

constexpr char kStaging[] =
    "CREATE TEMP TABLE Staging(Radif INTEGER PRIMARY KEY, Kala, Date, Anbar, Percode, Tedad, Fi, Type,"
    " OperationCode, OperationRow, Comment);"
    "CREATE TEMP TABLE DetailStaging(Kala, Date, Radif, DetailValueID, Anbar, Percode, Type, OperationCode,"
    " OperationRow, Amount1, Amount2, Amount3, Length, Width, Comment);";

// A transfer's header takes the store that the goods left from its outgoing rows, and where they went from
// its incoming ones. An opening stock belongs to the good's own record and has no header.
constexpr char kDocuments[] =
    "INSERT INTO Documents(Kind, Code, Date, Percode, Anbar, ToAnbar, Comment)"
    " SELECT m.Kind, s.OperationCode, s.Date, s.Percode, CASE s.Type WHEN 7 THEN 0 ELSE s.Anbar END,"
    " CASE s.Type WHEN 7 THEN s.Anbar ELSE 0 END, s.Comment"
    " FROM Staging s CROSS JOIN MovementTypes m WHERE m.Type = s.Type AND m.Kind <> 4 ORDER BY s.Radif"
    " ON CONFLICT(Kind, Code) DO UPDATE SET ToAnbar = max(ToAnbar, excluded.ToAnbar),"
    " Anbar = CASE Anbar WHEN 0 THEN excluded.Anbar ELSE Anbar END WHERE excluded.Kind = 7";

// One good's running figures while its card is written.
struct Card {
  std::int64_t good = 0;
  Decimal ratio;
  Decimal stock;
  Decimal average;
};

struct Costs {
  Decimal cost;
  Decimal price;
};

// Moves the card past one row and tells what the row cost.
Costs Advance(Card& card, Decimal quantity, std::optional<Decimal> price, bool priceIsCost) {
  Costs costs;
  const bool incoming = quantity > Decimal();
  if (incoming && priceIsCost && price) {
    costs.cost = *price;
    card.average = MovingAverage(card.stock, card.average, quantity, *price);
  } else {
    costs.cost = card.average;
  }
  costs.price = price.value_or(costs.cost);
  card.stock += quantity;
  return costs;
}

std::array<bool, 256> TypesPricedAtCost(Database& db) {
  std::array<bool, 256> types{};
  Statement rows =
      db.Prepare("SELECT Type FROM MovementTypes WHERE PriceIsCost <> 0 AND Type BETWEEN 0 AND 255");
  while (rows.Step()) types[static_cast<std::size_t>(rows.Integer(0))] = true;
  return types;
}

void RunProcedure(Database& db, std::string_view name) {
  ExecStatement exec;
  exec.procedure = name;
  const ProcedureCall call = MatchProcedure(exec, name);
  RunProcedureBody(db, call, [] {});
}

}  // namespace

std::optional<Decimal> SecondQuantity(Decimal quantity, Decimal ratio) {
  if (ratio.IsZero()) return Decimal();
  try {
    const Decimal second = quantity / ratio;
    if (second.Abs() > Decimal(kLargestQuantity)) return std::nullopt;
    return second;
  } catch (const std::overflow_error&) {
    return std::nullopt;
  }
}

CompanyWriter::CompanyWriter(std::string path, bool replace) : path_(std::move(path)), replace_(replace) {
  try {
    file_.emplace(path_, WholeFileOptions{.replace = replace_, .overDatabases = true});
    // Now rather than after all the work; Finish looks again.
    { const RestingCompany old(file_->TargetPath(), replace_); }
    db_.emplace(file_->TemporaryPath(), SQLITE_OPEN_READWRITE);
    // The file is not the company until it is moved into place, so nothing needs to survive a crash.
    db_->Run(
        "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
        "PRAGMA temp_store = FILE; PRAGMA cache_size = -65536; PRAGMA temp.cache_size = -16384; BEGIN");
    CreateCompanySchema(*db_);
    db_->RunTriggers();
    db_->Run(kStaging);
  } catch (const SqliteError& failure) {
    throw CompanyError(PersianMessage(failure) + " (" + path_ + ")");
  } catch (const FileError& failure) {
    throw CompanyError(failure.what());
  }
  add_ = db_->Prepare("INSERT INTO Staging VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)");
  addDetail_ = db_->Prepare(
      "INSERT INTO DetailStaging VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15)");
}

CompanyWriter::~CompanyWriter() = default;

void CompanyWriter::SetTitle(std::string_view title) {
  Statement meta = db_->Prepare("INSERT OR REPLACE INTO Meta(Key, Value) VALUES('Title', ?1)");
  meta.Bind(1, title);
  meta.Run();
}

void CompanyWriter::AddUser(std::int64_t code, std::string_view login, std::string_view name,
                            std::string_view passwordHash, bool everyRight) {
  Statement user = db_->Prepare(
      "INSERT INTO Users(Code, Login, Name, PasswordHash, EveryRight) VALUES(?1, ?2, ?3, ?4, ?5)");
  user.Bind(1, code);
  user.Bind(2, login);
  user.Bind(3, name);
  user.Bind(4, passwordHash);
  user.Bind(5, std::int64_t{everyRight});
  user.Run();
}

std::int64_t CompanyWriter::Add(const Movement& movement) {
  add_.Bind(1, ++radif_);
  add_.Bind(2, movement.good);
  add_.Bind(3, movement.date);
  add_.Bind(4, movement.store);
  add_.Bind(5, movement.person);
  add_.Bind(6, movement.quantity);
  if (movement.price) {
    add_.Bind(7, *movement.price);
  } else {
    add_.BindNull(7);
  }
  add_.Bind(8, std::int64_t{movement.type});
  add_.Bind(9, movement.document);
  add_.Bind(10, movement.row);
  rowsToNumber_ = rowsToNumber_ || movement.row == 0;
  add_.Bind(11, movement.comment);
  add_.Run();
  return radif_;
}

void CompanyWriter::AddDetail(const Movement& movement, const DetailMovement& detail) {
  addDetail_.Bind(1, movement.good);
  addDetail_.Bind(2, movement.date);
  addDetail_.Bind(3, detail.radif);
  addDetail_.Bind(4, detail.valueId);
  addDetail_.Bind(5, movement.store);
  addDetail_.Bind(6, movement.person);
  addDetail_.Bind(7, std::int64_t{movement.type});
  addDetail_.Bind(8, movement.document);
  addDetail_.Bind(9, movement.row);
  addDetail_.Bind(10, detail.amount);
  addDetail_.Bind(11, detail.amount2);
  addDetail_.Bind(12, detail.count);
  addDetail_.Bind(13, detail.length);
  addDetail_.Bind(14, detail.width);
  addDetail_.Bind(15, movement.comment);
  addDetail_.Run();
}

void CompanyWriter::Finish() {
  NumberRows();
  WriteDocuments();
  WriteStockCards();
  WriteDetails();
  add_ = Statement();
  addDetail_ = Statement();
  CreateCompanyIndexes(*db_);
  WriteDerivedFigures();
  db_->Run("COMMIT");
  db_.reset();
  try {
    const RestingCompany old(file_->TargetPath(), replace_);
    file_->Commit();
  } catch (const FileError& failure) {
    throw CompanyError(failure.what());
  }
}

void CompanyWriter::NumberRows() {
  if (!rowsToNumber_) return;
  db_->Run(
      "CREATE TEMP TABLE Numbered(Radif INTEGER PRIMARY KEY, Row);"
      "INSERT INTO Numbered SELECT s.Radif, row_number() OVER (PARTITION BY m.Kind, s.OperationCode ORDER BY "
      "s.Radif)"
      " FROM Staging s JOIN MovementTypes m ON m.Type = s.Type;"
      "UPDATE Staging SET OperationRow = (SELECT n.Row FROM Numbered n WHERE n.Radif = Staging.Radif)"
      " WHERE OperationRow = 0;"
      "UPDATE DetailStaging SET OperationRow = ifnull((SELECT n.Row FROM Numbered n WHERE n.Radif ="
      " DetailStaging.Radif), 0) WHERE OperationRow = 0;"
      "DROP TABLE Numbered");
}

void CompanyWriter::WriteDocuments() { db_->Run(kDocuments); }

void CompanyWriter::WriteStockCards() {
  const std::array<bool, 256> pricedAtCost = TypesPricedAtCost(*db_);
  Statement rows = db_->Prepare(
      "SELECT Kala, Date, Radif, Anbar, Percode, Tedad, Fi, Type, OperationCode, OperationRow, Comment"
      " FROM Staging ORDER BY Kala, Date, Radif");
  Statement ratio = db_->Prepare("SELECT ifnull(Meghdar_Formool, 0) FROM GoodInf WHERE Code = ?1");
  Statement insert = db_->Prepare(
      "INSERT INTO Kardex(Kala, Date, Radif, Anbar, Percode, Tedad, Meghdar2, Gheymat, Fi, Miangin, Type,"
      " OperationCode, OperationRow, Comment) VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, "
      "?14)");
  Card card;
  while (rows.Step()) {
    if (rows.Integer(0) != card.good) {
      card = Card();
      card.good = rows.Integer(0);
      ratio.Bind(1, card.good);
      if (ratio.Step()) card.ratio = ratio.Number(0);
      ratio.Reset();
    }
    const Decimal quantity = rows.Number(5);
    const std::optional<Decimal> price = rows.IsNull(6) ? std::nullopt : std::optional(rows.Number(6));
    const Costs costs =
        Advance(card, quantity, price, pricedAtCost[static_cast<std::size_t>(rows.Integer(7) & 255)]);
    const std::optional<Decimal> second = SecondQuantity(quantity, card.ratio);
    if (!second) throw CompanyError("مقدار کالا در واحد دوم از اندازه بزرگتر است.");
    insert.Bind(1, card.good);
    insert.Bind(2, rows.Text(1));
    insert.Bind(3, rows.Integer(2));
    insert.Bind(4, rows.Integer(3));
    insert.Bind(5, rows.Integer(4));
    insert.Bind(6, quantity);
    insert.Bind(7, *second);
    insert.Bind(8, costs.cost);
    insert.Bind(9, costs.price);
    insert.Bind(10, card.average);
    insert.Bind(11, rows.Integer(7));
    insert.Bind(12, rows.Integer(8));
    insert.Bind(13, rows.Integer(9));
    insert.Bind(14, rows.Text(10));
    insert.Run();
  }
}

void CompanyWriter::WriteDetails() {
  db_->Run(
      "INSERT INTO DetailKardex(Kala, Date, Radif, DetailValueID, Anbar, Percode, Type, OperationCode,"
      " OperationRow, Amount1, Amount2, Amount3, Length, Width, Comment)"
      " SELECT * FROM DetailStaging ORDER BY Kala, Date, Radif, DetailValueID");
}

void CompanyWriter::WriteDerivedFigures() {
  db_->Run(
      "UPDATE GoodInf SET AvaBgPrd = o.Quantity, CostBgPrd = o.Cost, AvaBgPrd2 = o.Second FROM"
      " (SELECT Kala, dec_sum(Tedad) AS Quantity, dec_sum(dec_mul(Tedad, Gheymat)) AS Cost,"
      " dec_sum(Meghdar2) AS Second FROM Kardex WHERE Type = 3 GROUP BY Kala) o WHERE o.Kala = GoodInf.Code");
  RunProcedure(*db_, "UpdateMogodiKala");
  RunProcedure(*db_, "DefineRemainInStore");
  RunProcedure(*db_, "RialiStock_SP");
}

}  // namespace goods
