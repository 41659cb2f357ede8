#include "company/embedded/stock_figures.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "company/embedded/computed_table.h"
#include "company/embedded/decimal_cell.h"
#include "company/embedded/good_movements.h"
#include "company/embedded/sql_function.h"
#include "company/embedded/sqlite.h"

namespace goods {

namespace {

constexpr char kColumns[] =
    "CREATE TABLE x(good HIDDEN, fromDate HIDDEN, toDate HIDDEN, store HIDDEN, others HIDDEN,"
    " varede, sadere, Mogodi, gheymat_miangin, OperationDate)";
enum ColumnIndex : int {
  kGood,
  kFromDate,
  kToDate,
  kStore,
  kOthers,
  kVarede,
  kSadere,
  kMogodi,
  kAverage,
  kOperationDate
};
constexpr int kArguments = kVarede;

constexpr char kStored[] =
    "SELECT varede, sadere, Mogodi, OperationDate, gheymat_miangin FROM GoodStock WHERE Kala = ?1";
constexpr char kStoredInStore[] =
    "SELECT varede, sadere, Mogodi, OperationDate FROM GoodStoreStock WHERE Kala = ?1 AND Anbar = ?2";
constexpr char kStoredInOthers[] =
    "SELECT varede, sadere, Mogodi, OperationDate FROM GoodStoreStock WHERE Kala = ?1 AND Anbar <> ?2";
constexpr char kLastUpTo[] =
    "SELECT Miangin FROM Kardex WHERE Kala = ?1 AND Date <= ?2 ORDER BY Date DESC, Radif DESC LIMIT 1";
constexpr std::string_view kAfterEveryDate = "~";

struct Figures {
  Decimal varede;
  Decimal sadere;
  Decimal stock;
  Decimal average;
  std::string operationDate;
};

// Which stores are counted.
struct StoreChoice {
  std::int64_t store = 0;
  bool others = false;
  bool All() const { return store == 0; }
  bool Holds(std::int64_t code) const { return All() || (code == store) != others; }
};

// A statement that is made on its first use.
class KeptStatement {
 public:
  KeptStatement(sqlite3* db, const char* sql) : db_(db), sql_(sql) {}
  // Ready for the good's rows.
  Statement& ForGood(std::int64_t good) {
    if (rows_.Handle() == nullptr) rows_ = Statement(db_, sql_);
    rows_.Reset();
    rows_.Bind(1, good);
    return rows_;
  }

 private:
  sqlite3* db_;
  const char* sql_;
  Statement rows_;
};

// One row: the figures of the good that was asked for.
class FiguresRow : public ComputedRows {
 public:
  explicit FiguresRow(sqlite3* db)
      : db_(db),
        stored_(db, kStored),
        storedInStore_(db, kStoredInStore),
        storedInOthers_(db, kStoredInOthers),
        lastUpTo_(db, kLastUpTo),
        packed_(db) {}

  void Start(std::span<sqlite3_value* const> given) override {
    good_ = sqlite3_value_int64(given[kGood]);
    figures_ = {};
    read_ = false;
    const StoreChoice stores{sqlite3_value_int64(given[kStore]), sqlite3_value_int64(given[kOthers]) == 1};
    if (!IsNull(given[kFromDate]) || !IsNull(given[kToDate])) {
      AddUpMovements(Period(std::string(TextOf(given[kFromDate])), std::string(TextOf(given[kToDate]))),
                     stores);
    } else if (stores.All()) {
      ReadStored();
    } else {
      ReadStoredInStores(stores);
    }
  }

  bool Next() override { return !std::exchange(read_, true); }

  void Cell(sqlite3_context* context, int column) const override {
    switch (column) {
      case kVarede:
        return ReturnUnits(context, figures_.varede.Units());
      case kSadere:
        return ReturnUnits(context, figures_.sadere.Units());
      case kMogodi:
        return ReturnUnits(context, figures_.stock.Units());
      case kAverage:
        return ReturnUnits(context, figures_.average.Units());
      default:
        return ReturnText(context, figures_.operationDate);
    }
  }

 private:
  void ReadStored() {
    Statement& row = stored_.ForGood(good_);
    while (row.Step()) {
      figures_ = {row.Number(0), row.Number(1), row.Number(2), row.Number(4), std::string(row.Text(3))};
    }
  }

  void ReadStoredInStores(const StoreChoice& stores) {
    ReadStored();
    figures_ = {{}, {}, {}, figures_.average, {}};
    Statement& row = (stores.others ? storedInOthers_ : storedInStore_).ForGood(good_);
    row.Bind(2, stores.store);
    while (row.Step()) {
      figures_.varede += row.Number(0);
      figures_.sadere += row.Number(1);
      figures_.stock += row.Number(2);
      if (figures_.operationDate < row.Text(3)) figures_.operationDate = row.Text(3);
    }
  }

  void AddUpMovements(const Period& period, const StoreChoice& stores) {
    if (!movements_ || !(period == period_)) {
      movements_.emplace(db_, "Tedad, Anbar, Date, Miangin", period, MovementWalk{.lastFirst = true});
      period_ = period;
      packedPeriod_ = PackedPeriod(period);
    }
    if (!packedPeriod_.Known() || !AddUpCells(stores)) AddUpRows(period, stores);
  }

  bool AddUpCells(const StoreChoice& stores) {
    Int128 incoming = 0;
    Int128 outgoing = 0;
    const bool packed = packed_.ForCells(good_, [&](const PackedMovements& cell) {
      std::size_t counted = 0;  // rows up to the last that was
      cell.ForEach<false>(packedPeriod_.Within(cell), [&](std::size_t row, const CountedMovement& movement) {
        if (!stores.All() && !stores.Holds(movement.store)) return;
        (movement.quantity > 0 ? incoming : outgoing) += movement.quantity;
        counted = row + 1;
      });
      if (counted > 0) figures_.operationDate = DateOfPacked(cell.DateAt(counted - 1));
      const std::size_t upToEnd = packedPeriod_.UpToEnd(cell);
      if (upToEnd > 0) figures_.average = Decimal::FromUnits(cell.AverageAfter(upToEnd - 1));
    });
    if (packed) Take(incoming, outgoing);
    return packed;
  }

  void Take(Int128 incoming, Int128 outgoing) {
    figures_.varede = Decimal::FromUnits(incoming);
    figures_.sadere = Decimal::FromUnits(-outgoing);
    figures_.stock = Decimal::FromUnits(incoming + outgoing);
  }

  // The last movement comes first: it has the average and the date.
  void AddUpRows(const Period& period, const StoreChoice& stores) {
    Int128 incoming = 0;
    Int128 outgoing = 0;
    bool averageKnown = false;
    movements_->ForGood(good_, [&](const Statement& row) {
      if (!averageKnown) figures_.average = row.Number(3);
      averageKnown = true;
      if (!stores.All() && !stores.Holds(row.Integer(1))) return;
      const std::int64_t quantity = row.Integer(0);
      (quantity > 0 ? incoming : outgoing) += quantity;
      if (figures_.operationDate.empty()) figures_.operationDate = row.Text(2);
    });
    Take(incoming, outgoing);
    if (averageKnown || period.OpenFrom()) return;
    Statement& row = lastUpTo_.ForGood(good_);
    row.Bind(2, period.OpenTo() ? kAfterEveryDate : std::string_view(period.To()));
    while (row.Step()) figures_.average = row.Number(0);
  }

  sqlite3* db_;
  KeptStatement stored_;
  KeptStatement storedInStore_;
  KeptStatement storedInOthers_;
  KeptStatement lastUpTo_;
  std::optional<GoodMovements> movements_;
  Period period_;  // of the movements
  PackedPeriod packedPeriod_;
  PackedGoods packed_;
  std::int64_t good_ = 0;
  Figures figures_;
  bool read_ = false;
};

}  // namespace

void RegisterStockFigures(sqlite3* db) {
  static constexpr ComputedTable kTable = {"stock_figures", kColumns, kArguments, 0,
                                           MakeComputed<FiguresRow>};
  RegisterComputedTable(db, kTable);
}

}  // namespace goods
