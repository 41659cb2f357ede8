// What the stock per store is asked for, and how that is sent and told.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "module/framework/criteria_text.h"
#include "module/framework/general_search.h"

namespace goods {

struct StoreStockCriteria {
  GeneralSearchCriteria search{};
  PeriodCriteria period{};
  std::vector<std::int64_t> stores{};  // of each visible store column, in the order of the columns
  // As RialiStock_SP is given them; -1 where not set.
  int priceBasis = -1;
  int buyOrSell = -1;
  int priceLevel = -1;
  std::string basisName{};  // empty while stock is valued at its average
};

// What the procedure is sent; the list reads newest first.
std::string StockParametersOf(const StoreStockCriteria& criteria);
// The parameters are those and the price basis, a line each: another basis is another criterion.
CriteriaText TextOf(const StoreStockCriteria& criteria);

}  // namespace goods
