#include "module/reports/asset/store_stock_criteria.h"

#include <array>
#include <string_view>

#include "host/core/text.h"
#include "host/services/public_methods.h"

namespace goods {
namespace {

constexpr std::array<std::string_view, 2> kSearchParameters{"@GoodCode", "@GoodName"};

}  // namespace

std::string StockParametersOf(const StoreStockCriteria& criteria) {
  std::string list = GeneralSearchParam(criteria.search, kSearchParameters);
  const PeriodCriteria& period = criteria.period;
  if (!period.inUse) {
    list = ADDParam(list, "@FromDate=''");
    list = ADDParam(list, "@ToDate='9'");
  } else {
    if (period.from) list = ADDParam(list, "@FromDate=" + QuotedStr(*period.from));
    if (period.to) list = ADDParam(list, "@ToDate=" + QuotedStr(*period.to));
  }
  // A store stands in the list once for each of its visible columns.
  std::string stores = "-1,0,";
  for (const std::int64_t store : criteria.stores) stores += std::to_string(store) + ",";
  list = ADDParam(list, "@StoreCodes =" + QuotedStr(stores));
  list = ADDParam(list, criteria.search.reverse ? "@Reverse =1" : "@Reverse =0");
  return ADDParam(list, period.countsBefore ? "@CalcBefore =1" : "@CalcBefore =0");
}

CriteriaText TextOf(const StoreStockCriteria& criteria) {
  CriteriaText text;
  text.parameters = StockParametersOf(criteria) + "\n" + std::to_string(criteria.priceBasis) + " " +
                    std::to_string(criteria.buyOrSell) + " " + std::to_string(criteria.priceLevel);
  text.Say(criteria.search.caption);
  text.Say(FarsiTextOf(criteria.period));
  if (!criteria.basisName.empty()) text.Say("مبنای قیمت: " + criteria.basisName);
  return text;
}

}  // namespace goods
