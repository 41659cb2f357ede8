// What the overall turnover is asked for, and how that is sent and told.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "module/framework/criteria_text.h"
#include "module/framework/general_search.h"

namespace goods {

// The operation columns of each direction, as its mask numbers them from the lowest bit.
inline constexpr std::array<std::string_view, 5> kOutgoingMask{"Sell", "ReturnBuy", "MakeOutPut", "Havale",
                                                               "kala_Hazine"};
inline constexpr std::array<std::string_view, 6> kIncomingMask{"Buy",   "ReturnSell",   "MakeInput",
                                                               "Resid", "kala_Daramad", "YearStart"};

// The operation columns that the user has hidden in a grid, a bit each.
struct HiddenColumns {
  unsigned outgoing = 0;
  unsigned incoming = 0;
};

struct OverallCriteria {
  GeneralSearchCriteria search{};
  std::string store{};  // its code; empty: every store
  std::string storeName{};
  PeriodCriteria period{};
  HiddenColumns amounts{};
  HiddenColumns quantities{};
};

// What each of the two procedures is sent.
std::string AmountParametersOf(const OverallCriteria& criteria);
std::string QuantityParametersOf(const OverallCriteria& criteria);
// The parameters are both lists, a line each: another column hidden in either grid is another criterion.
CriteriaText TextOf(const OverallCriteria& criteria);

}  // namespace goods
