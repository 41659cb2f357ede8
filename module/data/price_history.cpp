#include "module/data/price_history.h"

namespace goods {
namespace {

constexpr PriceHistoryKind kPriceHistory[] = {
    {1, "بيشترين قيمت خريد "}, {2, "کمترين قيمت خريد"},  {3, "آخرین قيمت خريد"},
    {11, "بيشترين قيمت فروش"}, {12, "کمترين قيمت فروش"}, {13, "آخرین قيمت فروش"},
};

}  // namespace

std::span<const PriceHistoryKind> PriceHistoryKinds() { return kPriceHistory; }

std::optional<std::size_t> PriceHistoryRow(std::int64_t code) {
  for (std::size_t row = 0; row < std::size(kPriceHistory); ++row) {
    if (kPriceHistory[row].code == code) return row;
  }
  return std::nullopt;
}

}  // namespace goods
