#include "company/embedded/detail_mismatch.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "company/embedded/computed_table.h"
#include "company/embedded/decimal_cell.h"
#include "company/embedded/sqlite.h"

namespace goods {

namespace {

// The goods that keep details, by code.
class Goods {
 public:
  Goods(sqlite3* db, std::optional<std::int64_t> good)
      : goods_(db, "SELECT DISTINCT Kala FROM GoodDetails WHERE Kala BETWEEN ?1 AND ?2 ORDER BY Kala") {
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

// The entry of the store, which is added when it is not there yet. Stores are few and come in runs, so the
// one that was found last is tried first.
template <typename Entry>
Entry& EntryOf(std::vector<Entry>& entries, std::int64_t store, std::size_t& last) {
  if (last >= entries.size() || entries[last].store != store) {
    for (last = 0; last < entries.size() && entries[last].store != store; ++last) {
    }
    if (last == entries.size()) entries.emplace_back().store = store;
  }
  return entries[last];
}

class AssetRows : public ComputedRows {
 public:
  AssetRows(sqlite3* db, std::optional<std::int64_t> good)
      : goods_(db, good),
        card_(db, "SELECT Anbar, Tedad FROM Kardex WHERE Kala = ?1"),
        details_(db, "SELECT Anbar, Amount1 FROM DetailKardex WHERE Kala = ?1") {}

  bool Next() override {
    for (++at_; at_ >= stores_.size(); at_ = 0) {
      if (!goods_.Next()) return false;
      stores_.clear();
      AddUp(card_, &Store::card);
      AddUp(details_, &Store::details);
      std::sort(stores_.begin(), stores_.end(),
                [](const Store& a, const Store& b) { return a.store < b.store; });
    }
    return true;
  }

  void Cell(sqlite3_context* context, int column) const override {
    const Store& store = stores_[at_];
    if (column == 0) sqlite3_result_int64(context, goods_.Code());
    if (column == 1) sqlite3_result_int64(context, store.store);
    if (column == 2) ReturnUnits(context, store.card.Units());
    if (column == 3) ReturnUnits(context, store.details.Units());
  }

 private:
  struct Store {
    std::int64_t store = 0;
    Decimal card;
    Decimal details;
  };

  void AddUp(Statement& rows, Decimal Store::*sum) {
    rows.Reset();
    rows.Bind(1, goods_.Code());
    std::size_t last = 0;
    while (rows.Step()) EntryOf(stores_, rows.Integer(0), last).*sum += Quantity(rows, 1);
  }

  Goods goods_;
  Statement card_;
  Statement details_;
  std::vector<Store> stores_;
  std::size_t at_ = 0;
};

// The stock card or the details of one good, row by row in the order of date and row number.
class Movements {
 public:
  enum Column : int { kDate, kRadif, kStore, kType, kOperationCode, kOperationRow, kQuantity };

  Movements(sqlite3* db, std::string_view sql) : rows_(db, sql) {}
  void Start(std::int64_t good) {
    rows_.Reset();
    rows_.Bind(1, good);
    Next();
  }
  void Next() { there_ = rows_.Step(); }
  bool There() const { return there_; }
  const Statement& Row() const { return rows_; }
  // Negative: before the key; 0: at it.
  int Compare(std::string_view date, std::int64_t radif) const {
    const int byDate = rows_.Text(kDate).compare(date);
    if (byDate != 0) return byDate;
    const std::int64_t own = rows_.Integer(kRadif);
    return own < radif ? -1 : own > radif ? 1 : 0;
  }

 private:
  Statement rows_;
  bool there_ = false;
};

class OperationRows : public ComputedRows {
 public:
  OperationRows(sqlite3* db, std::optional<std::int64_t> good)
      : goods_(db, good),
        card_(db,
              "SELECT Date, Radif, Anbar, Type, OperationCode, OperationRow, Tedad FROM Kardex"
              " WHERE Kala = ?1 ORDER BY Date, Radif"),
        details_(db,
                 "SELECT Date, Radif, Anbar, Type, OperationCode, OperationRow, Amount1 FROM DetailKardex"
                 " WHERE Kala = ?1 ORDER BY Date, Radif") {}

  bool Next() override {
    for (;;) {
      for (++at_; at_ < entries_.size(); ++at_) {
        if (entries_[at_].operation != entries_[at_].details) return true;
      }
      while (!card_.There() && !details_.There()) {
        if (!goods_.Next()) return false;
        card_.Start(goods_.Code());
        details_.Start(goods_.Code());
      }
      entries_.clear();
      at_ = kBeforeFirst;
      ReadOne();
    }
  }

  void Cell(sqlite3_context* context, int column) const override {
    const Entry& entry = entries_[at_];
    const bool outgoing =
        entry.operation.IsZero() ? entry.details.IsNegative() : entry.operation.IsNegative();
    const auto amount = [&](Decimal quantity) {
      ReturnUnits(context, (outgoing ? -quantity : quantity).Units());
    };
    switch (column) {
      case 0:
        return sqlite3_result_int64(context, goods_.Code());
      case 1:
        return sqlite3_result_text(context, date_.data(), static_cast<int>(date_.size()), SQLITE_TRANSIENT);
      case 2:
        return sqlite3_result_int64(context, radif_);
      case 3:
        return sqlite3_result_int64(context, entry.store);
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
    std::int64_t store = 0;
    std::int64_t type = 0;
    std::int64_t operationCode = 0;
    std::int64_t operationRow = 0;
    Decimal operation;
    Decimal details;
  };
  static constexpr std::size_t kBeforeFirst = std::numeric_limits<std::size_t>::max();

  // The next row number of either side, with all that is told of it, by store.
  void ReadOne() {
    const bool cardIsNext =
        card_.There() && (!details_.There() || details_.Compare(card_.Row().Text(Movements::kDate),
                                                                card_.Row().Integer(Movements::kRadif)) >= 0);
    const Statement& next = (cardIsNext ? card_ : details_).Row();
    date_ = next.Text(Movements::kDate);
    radif_ = next.Integer(Movements::kRadif);
    Add(card_, &Entry::operation);
    Add(details_, &Entry::details);
  }

  void Add(Movements& movements, Decimal Entry::*sum) {
    for (; movements.There() && movements.Compare(date_, radif_) == 0; movements.Next()) {
      const Statement& row = movements.Row();
      const std::size_t before = entries_.size();
      Entry& entry = EntryOf(entries_, row.Integer(Movements::kStore), last_);
      if (entries_.size() > before) {
        entry.type = row.Integer(Movements::kType);
        entry.operationCode = row.Integer(Movements::kOperationCode);
        entry.operationRow = row.Integer(Movements::kOperationRow);
      }
      entry.*sum += Quantity(row, Movements::kQuantity);
    }
  }

  Goods goods_;
  Movements card_;
  Movements details_;
  std::string date_;
  std::int64_t radif_ = 0;
  std::vector<Entry> entries_;
  std::size_t at_ = kBeforeFirst;
  std::size_t last_ = 0;
};

template <typename Rows>
std::unique_ptr<ComputedRows> OpenAs(sqlite3* db, std::optional<std::int64_t> good) {
  return std::make_unique<Rows>(db, good);
}

}  // namespace

void RegisterDetailMismatch(sqlite3* db) {
  static constexpr ComputedTable kAsset = {
      "detail_asset", "CREATE TABLE x(Kala, Anbar, KardexAsset, DetailAsset)", 2, OpenAs<AssetRows>};
  static constexpr ComputedTable kOperation = {
      "detail_operation_mismatch",
      "CREATE TABLE x(Kala, Date, Radif, Anbar, Type, OperationCode, OperationRow, OperationAmount,"
      " DetailAmount)",
      3, OpenAs<OperationRows>};
  RegisterComputedTable(db, kAsset);
  RegisterComputedTable(db, kOperation);
}

}  // namespace goods
