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
  enum Column : int { kRadif, kStore, kQuantity, kDate, kType, kOperationCode, kOperationRow };

  Movements(sqlite3* db, std::string_view sql) : rows_(db, sql) {}
  void Start(std::int64_t good) {
    rows_.Reset();
    rows_.Bind(1, good);
    Next();
  }
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
  OperationRows(sqlite3* db, std::optional<std::int64_t> good)
      : goods_(db, good),
        card_(db,
              "SELECT Radif, Anbar, Tedad, Date, Type, OperationCode, OperationRow FROM Kardex"
              " WHERE Kala = ?1 ORDER BY Date, Radif"),
        details_(db,
                 "SELECT Radif, Anbar, Amount1, Date, Type, OperationCode, OperationRow FROM DetailKardex"
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
    const std::size_t before = entries_.size();
    Entry& entry = EntryOf(entries_, store, last_);
    if (entries_.size() > before) {
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
  std::vector<Entry> entries_;
  std::size_t at_ = kBeforeFirst;
  std::size_t last_ = 0;
};

}  // namespace

void RegisterDetailMismatch(sqlite3* db) {
  static constexpr ComputedTable kAsset = {
      "detail_asset", "CREATE TABLE x(Kala, Anbar, KardexAsset, DetailAsset)", 2, OpenComputed<AssetRows>};
  static constexpr ComputedTable kOperation = {
      "detail_operation_mismatch",
      "CREATE TABLE x(Kala, Date, Radif, Anbar, Type, OperationCode, OperationRow, OperationAmount,"
      " DetailAmount)",
      3, OpenComputed<OperationRows>};
  RegisterComputedTable(db, kAsset);
  RegisterComputedTable(db, kOperation);
}

}  // namespace goods
