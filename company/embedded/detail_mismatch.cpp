#include "company/embedded/detail_mismatch.h"

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "company/embedded/computed_table.h"
#include "company/embedded/decimal_cell.h"
#include "company/embedded/good_movements.h"
#include "company/embedded/keyed_entries.h"
#include "company/embedded/sql_function.h"
#include "company/embedded/sqlite.h"

namespace goods {

namespace {

// The goods that keep details, by code.
class Goods {
 public:
  explicit Goods(sqlite3* db)
      : goods_(db, "SELECT DISTINCT Kala FROM GoodDetails WHERE Kala BETWEEN ?1 AND ?2 ORDER BY Kala") {}
  void Start(std::optional<std::int64_t> good) {
    goods_.Reset();
    goods_.Bind(1, good.value_or(std::numeric_limits<std::int64_t>::min()));
    goods_.Bind(2, good.value_or(std::numeric_limits<std::int64_t>::max()));
  }
  bool Next() { return goods_.Step(); }
  std::int64_t Code() const { return goods_.Integer(0); }

 private:
  Statement goods_;
};

Decimal Quantity(const Statement& row, int column) {
  return Decimal::FromUnits(ColumnUnits(row.Handle(), column));
}

class AssetRows : public ComputedRows {
 public:
  explicit AssetRows(sqlite3* db)
      : goods_(db),
        card_(db, "Anbar, Tedad", Period()),
        details_(db, "Anbar, Amount1", Period(), {.table = "DetailKardex"}) {}

  void Start(std::span<sqlite3_value* const> given) override {
    goods_.Start(GoodIn(given));
    stores_.Clear();
    at_ = 0;
  }

  bool Next() override {
    for (++at_; at_ >= stores_.Size(); at_ = 0) {
      if (!goods_.Next()) return false;
      stores_.Clear();
      card_.ForGood(goods_.Code(),
                    [&](const Statement& row) { stores_.Of(row.Integer(0)).card += Quantity(row, 1); });
      details_.ForGood(goods_.Code(),
                       [&](const Statement& row) { stores_.Of(row.Integer(0)).details += Quantity(row, 1); });
      stores_.Sort();
    }
    return true;
  }

  void Cell(sqlite3_context* context, int column) const override {
    const Sums& store = stores_.At(at_);
    if (column == 0) sqlite3_result_int64(context, goods_.Code());
    if (column == 1) sqlite3_result_int64(context, stores_.Key(at_));
    if (column == 2) ReturnUnits(context, store.card.Units());
    if (column == 3) ReturnUnits(context, store.details.Units());
  }

 private:
  struct Sums {
    Decimal card;
    Decimal details;
  };

  Goods goods_;
  GoodMovements card_;
  GoodMovements details_;
  KeyedEntries<Sums> stores_;
  std::size_t at_ = 0;
};

// The stock card or the details of one good, row by row in the order of date and row number.
class Movements {
 public:
  enum Column : int { kRadif, kStore, kQuantity, kDate, kType, kOperationCode, kOperationRow };

  Movements(sqlite3* db, std::string_view sql) : rows_(db, sql) {}
  void Start(std::int64_t good) {
    rows_.Reset();
    rows_.Bind(1, good);
    Next();
  }
  void Stop() { there_ = false; }
  void Next() {
    there_ = rows_.Step();
    if (there_) radif_ = rows_.Integer(kRadif);
  }
  bool There() const { return there_; }
  // The number alone names a row of the stock card.
  bool At(std::int64_t radif) const { return there_ && radif_ == radif; }
  std::int64_t Radif() const { return radif_; }
  const Statement& Row() const { return rows_; }

 private:
  Statement rows_;
  std::int64_t radif_ = 0;
  bool there_ = false;
};

bool ComesBefore(const Movements& a, const Movements& b) {
  const int byDate = a.Row().Text(Movements::kDate).compare(b.Row().Text(Movements::kDate));
  return byDate != 0 ? byDate < 0 : a.Radif() < b.Radif();
}

class OperationRows : public ComputedRows {
 public:
  explicit OperationRows(sqlite3* db)
      : goods_(db),
        card_(db,
              "SELECT Radif, Anbar, Tedad, Date, Type, OperationCode, OperationRow FROM Kardex"
              " WHERE Kala = ?1 ORDER BY Date, Radif"),
        details_(db,
                 "SELECT Radif, Anbar, Amount1, Date, Type, OperationCode, OperationRow FROM DetailKardex"
                 " WHERE Kala = ?1 ORDER BY Date, Radif") {}

  void Start(std::span<sqlite3_value* const> given) override {
    goods_.Start(GoodIn(given));
    card_.Stop();
    details_.Stop();
    entries_.Clear();
    at_ = kBeforeFirst;
  }

  bool Next() override {
    for (;;) {
      for (++at_; at_ < entries_.Size(); ++at_) {
        if (entries_.At(at_).operation != entries_.At(at_).details) return true;
      }
      while (!card_.There() && !details_.There()) {
        if (!goods_.Next()) return false;
        card_.Start(goods_.Code());
        details_.Start(goods_.Code());
      }
      entries_.Clear();
      at_ = kBeforeFirst;
      ReadOne();
    }
  }

  void Cell(sqlite3_context* context, int column) const override {
    const Entry& entry = entries_.At(at_);
    const bool outgoing =
        entry.operation.IsZero() ? entry.details.IsNegative() : entry.operation.IsNegative();
    const auto amount = [&](Decimal quantity) {
      ReturnUnits(context, (outgoing ? -quantity : quantity).Units());
    };
    switch (column) {
      case 0:
        return sqlite3_result_int64(context, goods_.Code());
      case 1:
        return ReturnText(context, date_);
      case 2:
        return sqlite3_result_int64(context, radif_);
      case 3:
        return sqlite3_result_int64(context, entries_.Key(at_));
      case 4:
        return sqlite3_result_int64(context, entry.type);
      case 5:
        return sqlite3_result_int64(context, entry.operationCode);
      case 6:
        return sqlite3_result_int64(context, entry.operationRow);
      case 7:
        return amount(entry.operation);
      default:
        return amount(entry.details);
    }
  }

 private:
  struct Entry {
    std::int64_t type = 0;
    std::int64_t operationCode = 0;
    std::int64_t operationRow = 0;
    Decimal operation;
    Decimal details;
  };
  static constexpr std::size_t kBeforeFirst = std::numeric_limits<std::size_t>::max();

  // The next row number of either side. Entries are made only where something disagrees: nearly every row
  // agrees, and costs no more than its quantities.
  void ReadOne() {
    const bool cardIsNext =
        card_.There() && (!details_.There() || details_.At(card_.Radif()) || ComesBefore(card_, details_));
    radif_ = (cardIsNext ? card_ : details_).Radif();
    const std::int64_t store = cardIsNext ? card_.Row().Integer(Movements::kStore) : 0;
    Decimal details;
    for (; details_.At(radif_); details_.Next()) {
      const Decimal quantity = Quantity(details_.Row(), Movements::kQuantity);
      const std::int64_t own = details_.Row().Integer(Movements::kStore);
      if (cardIsNext && own == store) {
        details += quantity;
      } else {
        EntryAt(own, details_.Row()).details += quantity;
      }
    }
    if (!cardIsNext) return;
    const Decimal operation = Quantity(card_.Row(), Movements::kQuantity);
    if (operation != details) {
      Entry& entry = EntryAt(store, card_.Row());
      entry.operation = operation;
      entry.details = details;
    }
    card_.Next();
  }

  Entry& EntryAt(std::int64_t store, const Statement& row) {
    const std::size_t before = entries_.Size();
    Entry& entry = entries_.Of(store);
    if (entries_.Size() > before) {
      date_ = row.Text(Movements::kDate);
      entry.type = row.Integer(Movements::kType);
      entry.operationCode = row.Integer(Movements::kOperationCode);
      entry.operationRow = row.Integer(Movements::kOperationRow);
    }
    return entry;
  }

  Goods goods_;
  Movements card_;
  Movements details_;
  std::string date_;
  std::int64_t radif_ = 0;
  KeyedEntries<Entry> entries_;
  std::size_t at_ = kBeforeFirst;
};

}  // namespace

void RegisterDetailMismatch(sqlite3* db) {
  static constexpr ComputedTable kAsset = {
      "detail_asset", "CREATE TABLE x(Kala, Anbar, KardexAsset, DetailAsset)", 0, 2, MakeComputed<AssetRows>};
  static constexpr ComputedTable kOperation = {
      "detail_operation_mismatch",
      "CREATE TABLE x(Kala, Date, Radif, Anbar, Type, OperationCode, OperationRow, OperationAmount,"
      " DetailAmount)",
      0, 3, MakeComputed<OperationRows>};
  RegisterComputedTable(db, kAsset);
  RegisterComputedTable(db, kOperation);
}

}  // namespace goods
