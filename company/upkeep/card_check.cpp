#include "company/upkeep/card_check.h"

#include <optional>

#include "company/writer/movement.h"
#include "company/writer/movement_intake.h"
#include "company/writer/stock_card.h"

namespace goods {

namespace {

enum Row : int { kGood, kDate, kRadif, kStore, kQuantity, kSecond, kCost, kPrice, kAverage, kType };

// Tables of the same names as those that a FigureWriter fills; they hide the company's own.
constexpr char kWorkedOut[] =
    "CREATE TEMP TABLE GoodStock(Kala INTEGER PRIMARY KEY, varede DEFAULT 0, sadere DEFAULT 0, Mogodi "
    "DEFAULT 0,"
    " Mogodi2 DEFAULT 0, gheymat_miangin DEFAULT 0, Jam_Kol DEFAULT 0, OperationDate DEFAULT '');"
    "INSERT INTO temp.GoodStock(Kala) SELECT Code FROM main.GoodInf;"
    "CREATE TEMP TABLE GoodInf(Code INTEGER PRIMARY KEY, AvaBgPrd DEFAULT 0, CostBgPrd DEFAULT 0, AvaBgPrd2 "
    "DEFAULT"
    " 0, CurAva DEFAULT 0);"
    "INSERT INTO temp.GoodInf(Code) SELECT Code FROM main.GoodInf;"
    "CREATE TEMP TABLE GoodStoreStock(Kala, Anbar, Mogodi, varede, sadere, OperationDate, PRIMARY KEY(Kala, "
    "Anbar));"
    "CREATE TEMP TABLE PackedMovements(Place INTEGER PRIMARY KEY, Data)";

struct Figure {
  const char* table;
  const char* key;  // columns that name the row, joined with ","
  const char* column;
  const char* text;
  bool decimal;
};

constexpr Figure kFigures[] = {
    {"GoodStock", "Kala", "varede", "وارده", true},
    {"GoodStock", "Kala", "sadere", "صادره", true},
    {"GoodStock", "Kala", "Mogodi", "موجودی", true},
    {"GoodStock", "Kala", "Mogodi2", "موجودی واحد دوم", true},
    {"GoodStock", "Kala", "gheymat_miangin", "قیمت میانگین", true},
    {"GoodStock", "Kala", "Jam_Kol", "ارزش موجودی", true},
    {"GoodStock", "Kala", "OperationDate", "تاریخ آخرین گردش", false},
    {"GoodInf", "Code", "AvaBgPrd", "موجودی اول دوره", true},
    {"GoodInf", "Code", "CostBgPrd", "ارزش اول دوره", true},
    {"GoodInf", "Code", "AvaBgPrd2", "موجودی اول دوره به واحد دوم", true},
    {"GoodInf", "Code", "CurAva", "موجودی جاری", false},
    {"GoodStoreStock", "Kala,Anbar", "Mogodi", "موجودی", true},
    {"GoodStoreStock", "Kala,Anbar", "varede", "وارده", true},
    {"GoodStoreStock", "Kala,Anbar", "sadere", "صادره", true},
    {"GoodStoreStock", "Kala,Anbar", "OperationDate", "تاریخ آخرین گردش", false},
};

class CardCheck {
 public:
  CardCheck(Database& db, const std::function<void(const std::string&)>& tell)
      : db_(db), tell_(tell), kinds_(db), figures_((db.Run(kWorkedOut), db)) {}

  void Rows(const WorkWatcher& watcher) {
    WorkMeter meter(watcher, "محاسبه دوباره کاردکس ها", db_.AskInteger("SELECT count(*) FROM Kardex"));
    Statement rows = db_.Prepare(
        "SELECT Kala, Date, Radif, Anbar, Tedad, Meghdar2, Gheymat, Fi, Miangin, Type FROM Kardex"
        " ORDER BY Kala, Date, Radif");
    Statement ratio = db_.Prepare("SELECT ifnull(Meghdar_Formool, 0) FROM main.GoodInf WHERE Code = ?1");
    for (; rows.Step(); meter.Step()) {
      const std::int64_t good = rows.Integer(kGood);
      if (good != card_.Good()) {
        if (card_.Good() != 0) figures_.Write(card_);
        ratio.Bind(1, good);
        card_.Begin(good, ratio.Step() ? ratio.Number(0) : Decimal());
        ratio.Reset();
      }
      CheckRow(rows);
    }
    if (card_.Good() != 0) figures_.Write(card_);
    meter.End();
  }

  void Figures() {
    for (const Figure& figure : kFigures) {
      const bool ofStore = std::string_view(figure.key) == "Kala,Anbar";
      const std::string good = ofStore ? "Kala" : figure.key;
      const auto shown = [&](const char* side) {
        const std::string cell = std::string(side) + "." + figure.column;
        return figure.decimal ? "dec_text(" + cell + ")" : cell;
      };
      Statement rows =
          db_.Prepare("SELECT s." + good + ", " + (ofStore ? "s.Anbar" : "0") + ", " + shown("s") + ", " +
                      shown("w") + " FROM main." + figure.table + " s JOIN temp." + figure.table +
                      " w ON w." + good + " = s." + good + (ofStore ? " AND w.Anbar = s.Anbar" : "") +
                      " WHERE s." + figure.column + " IS NOT w." + figure.column + " ORDER BY 1, 2");
      while (rows.Step()) {
        std::string place = "کالای " + std::string(rows.Text(0));
        if (ofStore) place += " در انبار " + std::string(rows.Text(1));
        Tell(place, figure.text, rows.Text(2), rows.Text(3));
      }
    }
    MissingStores(
        "SELECT w.Kala, w.Anbar FROM temp.GoodStoreStock w LEFT JOIN main.GoodStoreStock s ON s.Kala ="
        " w.Kala AND s.Anbar = w.Anbar WHERE s.Kala IS NULL",
        "ثبت نشده است");
    MissingStores(
        "SELECT s.Kala, s.Anbar FROM main.GoodStoreStock s LEFT JOIN temp.GoodStoreStock w ON s.Kala ="
        " w.Kala AND s.Anbar = w.Anbar WHERE w.Kala IS NULL",
        "ثبت شده است، با آنکه گردشی ندارد");
    static_assert(MovementPacker::kMostCells == 1 << 6);
    Statement packed = db_.Prepare(
        "SELECT DISTINCT ifnull(s.Place, w.Place) >> 6 FROM main.PackedMovements s FULL JOIN "
        "temp.PackedMovements w"
        " ON w.Place = s.Place WHERE s.Data IS NOT w.Data ORDER BY 1");
    while (packed.Step()) {
      tell_("گردش های فشرده کالای " + std::string(packed.Text(0)) + " با کاردکس آن یکی نیست");
    }
    Statement goods = db_.Prepare(
        "SELECT Code FROM main.GoodInf WHERE Code NOT IN (SELECT Kala FROM main.GoodStock) ORDER BY 1");
    while (goods.Step()) tell_("موجودی کالای " + std::string(goods.Text(0)) + " ثبت نشده است");
  }

 private:
  void Tell(const std::string& place, const char* what, std::string_view stored, std::string_view right) {
    tell_(place + ": " + what + " " + std::string(stored) + " است و باید " + std::string(right) + " باشد");
  }

  void Compare(const Statement& rows, const char* what, Decimal stored, Decimal right) {
    if (stored == right) return;
    Tell("کالای " + std::string(rows.Text(kGood)) + " در " + std::string(rows.Text(kDate)) + "، ردیف " +
             std::string(rows.Text(kRadif)),
         what, stored.ToString(), right.ToString());
  }

  // Each row is held against the one before it as it is stored, so that one wrong row is told once.
  void CheckRow(const Statement& rows) {
    const Decimal quantity = rows.Number(kQuantity);
    const int type = static_cast<int>(rows.Integer(kType));
    const StockCosts right =
        card_.Advance(quantity, rows.Number(kPrice), kinds_.priceIsCost[MovementKinds::Place(type)]);
    Compare(rows, "قیمت تمام شده", rows.Number(kCost), right.cost);
    Compare(rows, "میانگین", rows.Number(kAverage), right.average);
    const std::optional<Decimal> second = SecondQuantity(quantity, card_.Ratio());
    if (second) Compare(rows, "مقدار واحد دوم", rows.Number(kSecond), *second);
    card_.SetAverage(rows.Number(kAverage));
    card_.Count(rows.Text(kDate), rows.Integer(kStore), type, quantity, rows.Number(kSecond),
                rows.Number(kCost));
  }

  void MissingStores(const char* sql, const char* text) {
    Statement rows = db_.Prepare(std::string(sql) + " ORDER BY 1, 2");
    while (rows.Step()) {
      tell_("موجودی کالای " + std::string(rows.Text(0)) + " در انبار " + std::string(rows.Text(1)) + " " +
            text);
    }
  }

  Database& db_;
  const std::function<void(const std::string&)>& tell_;
  MovementKinds kinds_;
  FigureWriter figures_;
  StockCard card_;
};

}  // namespace

void CheckCards(Database& db, const WorkWatcher& watcher,
                const std::function<void(const std::string&)>& tell) {
  CardCheck check(db, tell);
  check.Rows(watcher);
  const WatchedStatements watched(db, watcher, "رقم های ثبت شده");
  check.Figures();
}

}  // namespace goods
