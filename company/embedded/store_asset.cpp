// GoodsAsset_Store_SP; its file tells what it answers.
#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/good_movements.h"
#include "company/embedded/native_procedures.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::size_t kMostStores = 50;
constexpr std::size_t kFigures = 4;
constexpr std::string_view kPosition = "<n>";

struct StoreList {
  std::size_t columns = 0;                             // stores that have columns
  std::vector<bool> listed;                            // which of them the call lists
  std::unordered_map<std::int64_t, std::size_t> slot;  // of the listed ones
};

StoreList ReadStores(Database& db, std::string_view codes) {
  StoreList stores;
  Statement all = db.Prepare("SELECT Code FROM Stores ORDER BY Code LIMIT ?1");
  all.Bind(1, static_cast<std::int64_t>(kMostStores));
  std::unordered_map<std::int64_t, std::size_t> position;
  while (all.Step()) position.emplace(all.Integer(0), stores.columns++);
  stores.listed.resize(stores.columns);
  std::size_t entry = 0;
  for (const std::string& code : Split(codes, ',')) {
    const std::optional<std::int64_t> number = ParseInteger(Trim(code));
    const std::int64_t head = entry == 0 ? -1 : 0;
    if (entry++ < 2 && number == head) continue;
    const auto found = number ? position.find(*number) : position.end();
    if (found == position.end()) continue;
    stores.listed[found->second] = true;
    stores.slot.insert(*found);
  }
  return stores;
}

// The declared columns, those with a position once for each store.
std::vector<ColumnInfo> ColumnsFor(const std::vector<ColumnInfo>& declared, std::size_t stores) {
  const auto repeats = [](const ColumnInfo& column) {
    return column.name.find(kPosition) != std::string::npos;
  };
  const auto first = std::find_if(declared.begin(), declared.end(), repeats);
  const auto last = std::find_if_not(first, declared.end(), repeats);
  std::vector<ColumnInfo> columns(declared.begin(), first);
  for (std::size_t n = 1; n <= stores; ++n) {
    for (auto column = first; column != last; ++column) {
      columns.push_back({ReplaceAll(column->name, kPosition, std::to_string(n)), column->type});
    }
  }
  columns.insert(columns.end(), last, declared.end());
  return columns;
}

struct GoodFigures {
  Int128 ratio = 0;
  Int128 price = 0;
};

// One group of four columns.
class Group {
 public:
  Group(RowStore& into, std::size_t first) {
    for (std::size_t i = 0; i < kFigures; ++i) columns_[i] = &into.ColumnAt(first + i);
  }

  void AppendNulls() {
    for (Column* column : columns_) column->AppendNull();
  }

  // Returns the amount.
  Decimal Append(Int128 quantity, const GoodFigures& good) {
    if (quantity == 0) {
      for (Column* column : columns_) column->AppendDecimal(Decimal());
      return Decimal();
    }
    const Decimal cost = Decimal::FromUnits(MultiplyUnits(quantity, good.price));
    Append(quantity, good.ratio, cost);
    return cost;
  }

  void Append(Int128 quantity, Int128 ratio, Decimal cost) {
    Int128 whole = 0;
    Int128 part = quantity;
    if (FitsCell64(quantity) && ratio > 0 && FitsCell64(ratio)) {
      whole = static_cast<std::int64_t>(quantity) / static_cast<std::int64_t>(ratio);
      part = static_cast<std::int64_t>(quantity) % static_cast<std::int64_t>(ratio);
    } else if (ratio != 0) {
      whole = quantity / ratio;
      part = quantity % ratio;
    }
    columns_[0]->AppendDecimal(Decimal::FromUnits(quantity));
    columns_[1]->AppendDecimal(Decimal::FromUnits(whole * Decimal::kOne));
    columns_[2]->AppendDecimal(Decimal::FromUnits(part));
    columns_[3]->AppendDecimal(cost);
  }

 private:
  Column* columns_[kFigures];
};

// The quantities of one good: a slot for each store with columns, and one for the others.
class StoreQuantities {
 public:
  explicit StoreQuantities(const StoreList& stores) : stores_(stores), sums_(stores.columns + 1) {}

  void Clear() { std::fill(sums_.begin(), sums_.end(), 0); }
  void Add(std::int64_t store, Int128 quantity) {
    if (store != lastStore_ || lastSlot_ == kNone) {
      const auto found = stores_.slot.find(store);
      lastSlot_ = found == stores_.slot.end() ? stores_.columns : found->second;
      lastStore_ = store;
    }
    sums_[lastSlot_] += quantity;
  }
  Int128 Of(std::size_t slot) const { return sums_[slot]; }
  Int128 Others() const { return sums_.back(); }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  const StoreList& stores_;
  std::vector<Int128> sums_;
  std::int64_t lastStore_ = 0;
  std::size_t lastSlot_ = kNone;
};

// What the report writes into, group by group.
class AssetRows {
 public:
  AssetRows(RowStore& into, const StoreList& stores)
      : into_(into),
        stores_(stores),
        before_(into, kFirstGroup),
        others_(into, kFirstGroup + (stores.columns + 1) * kFigures),
        total_(into, kFirstGroup + (stores.columns + 2) * kFigures) {
    for (std::size_t i = 0; i < stores.columns; ++i) {
      perStore_.emplace_back(into, kFirstGroup + (i + 1) * kFigures);
    }
  }

  // before is null where the stock before the period is not asked for. The total's amount is the sum of the
  // amounts shown, so that they agree to the last digit.
  void Append(const Statement& good, const Int128* before, const StoreQuantities& within) {
    const GoodFigures figures{ColumnUnits(good.Handle(), kGoodRatio), ColumnUnits(good.Handle(), kGoodPrice)};
    into_.ColumnAt(0).AppendInteger(good.Integer(kGoodCode));
    into_.ColumnAt(1).AppendText(good.Text(kGoodName));
    if (before != nullptr) {
      before_.Append(*before, figures);
    } else {
      before_.AppendNulls();
    }
    Int128 quantity = within.Others();
    Decimal cost = others_.Append(within.Others(), figures);
    for (std::size_t i = 0; i < perStore_.size(); ++i) {
      if (!stores_.listed[i]) {
        perStore_[i].AppendNulls();
        continue;
      }
      quantity += within.Of(i);
      cost += perStore_[i].Append(within.Of(i), figures);
    }
    total_.Append(quantity, figures.ratio, cost);
    into_.EndRow();
  }

 private:
  static constexpr std::size_t kFirstGroup = 2;
  RowStore& into_;
  const StoreList& stores_;
  Group before_;
  Group others_;
  Group total_;
  std::vector<Group> perStore_;
};

}  // namespace

void RunStoreAsset(Database& db, const ProcedureCall& call, const GoodRange& goods, RowStore& into,
                   ProgressWatch& watch) {
  const Period period(TextArgument(call, "@FromDate"), TextArgument(call, "@ToDate"));
  const bool calcBefore = IntegerArgument(call, "@CalcBefore") != 0;
  Statement good = FindGoods(db,
                             {TextArgument(call, "@GoodCode"), TextArgument(call, "@GoodName"), "",
                              IntegerArgument(call, "@Reverse") != 0},
                             goods);
  const StoreList stores = ReadStores(db, TextArgument(call, "@StoreCodes"));
  if (into.Columns().empty()) into.Define(ColumnsFor(call.procedure->columns, stores.columns));

  const bool everything = period.OpenFrom() && period.OpenTo();
  Statement stored = db.Prepare("SELECT Anbar, Mogodi FROM GoodStoreStock WHERE Kala = ?1");
  MovementScan movements(db.Handle(), period);
  StoreQuantities quantities(stores);
  AssetRows rows(into, stores);
  while (good.Step()) {
    const std::int64_t code = good.Integer(kGoodCode);
    quantities.Clear();
    if (everything) {
      stored.Reset();
      stored.Bind(1, code);
      while (stored.Step()) quantities.Add(stored.Integer(0), ColumnUnits(stored.Handle(), 1));
    } else {
      movements.Within<false>(
          code, [&](const CountedMovement& movement) { quantities.Add(movement.store, movement.quantity); });
    }
    Int128 stockBefore = 0;
    if (calcBefore) {
      movements.Before<false>(code,
                              [&](const CountedMovement& movement) { stockBefore += movement.quantity; });
    }
    rows.Append(good, calcBefore ? &stockBefore : nullptr, quantities);
    watch.Row();
  }
}

}  // namespace goods
