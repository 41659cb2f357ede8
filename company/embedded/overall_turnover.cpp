// GoodKardex_Overall_Money and GoodKardex_Overall_Tedad; their files tell what they answer.
#include <array>
#include <cstddef>
#include <iterator>
#include <vector>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/good_movements.h"
#include "company/embedded/native_procedures.h"

namespace goods {

namespace {

// In the order of the columns.
enum Operation : std::size_t {
  kYearStart,
  kBuy,
  kReturnSell,
  kMakeInput,
  kResid,
  kKalaDaramad,
  kSayerVarade,
  kSell,
  kReturnBuy,
  kMakeOutPut,
  kHavale,
  kKalaHazine,
  kSayerSadere,
  kOperations
};

// The column of each movement type. Gifts and accompanying goods are sales; what a production
// makes, by-products too, came in by it, and what it uses went out by it; a transfer between stores is an
// issue in the one and a receipt in the other; accounting vouchers and detail splits are others.
constexpr std::array<Operation, 26> kOperationOfType = {
    kMakeInput,    // 0
    kSell,         // 1
    kBuy,          // 2
    kYearStart,    // 3
    kReturnSell,   // 4
    kReturnBuy,    // 5
    kHavale,       // 6
    kResid,        // 7
    kMakeInput,    // 8
    kMakeOutPut,   // 9
    kMakeOutPut,   // 10
    kKalaHazine,   // 11
    kSell,         // 12
    kSell,         // 13
    kSayerVarade,  // 14
    kSayerSadere,  // 15
    kSayerVarade,  // 16
    kSayerSadere,  // 17
    kMakeInput,    // 18
    kMakeOutPut,   // 19
    kMakeInput,    // 20
    kHavale,       // 21
    kResid,        // 22
    kKalaDaramad,  // 23
    kSayerSadere,  // 24
    kSayerVarade,  // 25
};

// The direction is that of the quantity; where the type's own is the other one, the movement is
// one of the others of its direction, as is an unknown type.
Operation OperationOf(std::int64_t type, bool incoming) {
  const bool known = type >= 0 && type < static_cast<std::int64_t>(kOperationOfType.size());
  const Operation other = incoming ? kSayerVarade : kSayerSadere;
  if (!known) return other;
  const Operation operation = kOperationOfType[static_cast<std::size_t>(type)];
  return (operation <= kSayerVarade) == incoming ? operation : other;
}

// A column hidden by bit i (value 2 to the power i) of its direction's mask is 0, and what it would show is
// among the others of its direction. Further bits mean nothing.
constexpr Operation kVaredeBits[] = {kBuy, kReturnSell, kMakeInput, kResid, kKalaDaramad, kYearStart};
constexpr Operation kSadereBits[] = {kSell, kReturnBuy, kMakeOutPut, kHavale, kKalaHazine};

using Totals = std::array<Decimal, kOperations>;

class HiddenColumns {
 public:
  HiddenColumns(std::int64_t varede, std::int64_t sadere) {
    for (std::size_t i = 0; i < std::size(kVaredeBits); ++i) {
      if ((varede >> i & 1) != 0) hidden_.push_back({kVaredeBits[i], kSayerVarade});
    }
    for (std::size_t i = 0; i < std::size(kSadereBits); ++i) {
      if ((sadere >> i & 1) != 0) hidden_.push_back({kSadereBits[i], kSayerSadere});
    }
  }

  void Fold(Totals& totals) const {
    for (const auto& [column, other] : hidden_) {
      totals[other] += totals[column];
      totals[column] = Decimal();
    }
  }

 private:
  std::vector<std::pair<Operation, Operation>> hidden_;
};

// What a movement counts, signed.
Int128 QuantityOf(const CountedMovement& movement) { return movement.quantity; }
Int128 AmountOf(const CountedMovement& movement) { return MultiplyUnits(movement.quantity, movement.cost); }

void AppendRow(RowStore& into, const Statement& good, std::int64_t store, Decimal before,
               const Totals& totals) {
  std::size_t column = 0;
  into.ColumnAt(column++).AppendInteger(good.Integer(kGoodCode));
  into.ColumnAt(column++).AppendText(good.Text(kGoodAbbName));
  into.ColumnAt(column++).AppendText(good.Text(kGoodName));
  into.ColumnAt(column++).AppendInteger(store);
  into.ColumnAt(column++).AppendDecimal(before);
  Decimal remained = before;
  for (std::size_t i = 0; i < kOperations; ++i) {
    into.ColumnAt(column++).AppendDecimal(totals[i]);
    if (i <= kSayerVarade) {
      remained += totals[i];
    } else {
      remained -= totals[i];
    }
  }
  into.ColumnAt(column).AppendDecimal(remained);
  into.EndRow();
}

template <Int128 (*figureOf)(const CountedMovement&), bool kWithCosts>
void RunOverall(Database& db, const ProcedureCall& call, const GoodRange& goods, RowStore& into,
                ProgressWatch& watch) {
  const Period period(TextArgument(call, "@FromDate"), TextArgument(call, "@ToDate"));
  const std::int64_t store = IntegerArgument(call, "@anbarcode");
  const bool calcBefore = IntegerArgument(call, "@CalcBeforeDatePeriod") != 0;
  const HiddenColumns hidden(IntegerArgument(call, "@script_Varede_sayer"),
                             IntegerArgument(call, "@script_Sadere_sayer"));
  Statement good = FindGoods(db,
                             {TextArgument(call, "@KalaCode"), TextArgument(call, "@KalaName"),
                              TextArgument(call, "@AbbName"), IntegerArgument(call, "@Reverst") != 0},
                             goods);
  if (into.Columns().empty()) into.Define(call.procedure->columns);

  MovementScan movements(db.Handle(), period, store);
  while (good.Step()) {
    const std::int64_t code = good.Integer(kGoodCode);
    Totals totals{};
    Decimal before;
    bool moved = false;
    movements.Within<kWithCosts>(code, [&](const CountedMovement& movement) {
      const bool incoming = movement.quantity > 0;
      const Decimal figure = Decimal::FromUnits(figureOf(movement));
      Decimal& total = totals[OperationOf(movement.type, incoming)];
      total += incoming ? figure : -figure;
      moved = true;
    });
    if (calcBefore) {
      movements.Before<kWithCosts>(
          code, [&](const CountedMovement& movement) { before += Decimal::FromUnits(figureOf(movement)); });
    }
    if (!moved && before.IsZero()) continue;
    hidden.Fold(totals);
    AppendRow(into, good, store, before, totals);
    watch.Row();
  }
}

}  // namespace

void RunOverallMoney(Database& db, const ProcedureCall& call, const GoodRange& goods, RowStore& into,
                     ProgressWatch& watch) {
  RunOverall<AmountOf, true>(db, call, goods, into, watch);
}

void RunOverallQuantity(Database& db, const ProcedureCall& call, const GoodRange& goods, RowStore& into,
                        ProgressWatch& watch) {
  RunOverall<QuantityOf, false>(db, call, goods, into, watch);
}

}  // namespace goods
