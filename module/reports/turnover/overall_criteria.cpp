#include "module/reports/turnover/overall_criteria.h"

#include "host/core/text.h"
#include "host/services/public_methods.h"

namespace goods {
namespace {

constexpr std::array<std::string_view, 3> kSearchParameters{"@KalaCode", "@KalaName", "@AbbName"};

std::string CommonParametersOf(const OverallCriteria& criteria) {
  std::string text = GeneralSearchParam(criteria.search, kSearchParameters);
  if (!criteria.store.empty()) text = ADDParam("@anbarcode=" + criteria.store, text);
  const PeriodCriteria& period = criteria.period;
  const auto addDate = [&](std::string_view name, const std::string& date) {
    text = ADDParam(std::string(name) + "=" + QuotedStr(date), text);
  };
  if (!period.inUse) {
    addDate("@FromDate", "0000/00/00");
    addDate("@ToDate", "9999/99/99");
  } else {
    if (period.from) addDate("@FromDate", *period.from);
    if (period.to) addDate("@ToDate", *period.to);
  }
  const bool reverse = criteria.search.reverse && criteria.search.reverseEnabled;
  text = ADDParam(reverse ? "@Reverst=1" : "@Reverst=0", text);
  return ADDParam(period.countsBefore ? "@CalcBeforeDatePeriod=1" : "@CalcBeforeDatePeriod=0", text);
}

std::string WithMasks(const std::string& common, const HiddenColumns& hidden) {
  const std::string outgoing = ADDParam("@script_Sadere_sayer=" + std::to_string(hidden.outgoing), common);
  return ADDParam("@script_Varede_sayer=" + std::to_string(hidden.incoming), outgoing);
}

}  // namespace

std::string AmountParametersOf(const OverallCriteria& criteria) {
  return WithMasks(CommonParametersOf(criteria), criteria.amounts);
}

std::string QuantityParametersOf(const OverallCriteria& criteria) {
  return WithMasks(CommonParametersOf(criteria), criteria.quantities);
}

CriteriaText TextOf(const OverallCriteria& criteria) {
  CriteriaText text;
  text.parameters = AmountParametersOf(criteria) + "\n" + QuantityParametersOf(criteria);
  text.Say(criteria.search.caption);
  if (!criteria.storeName.empty()) text.Say("انبار: " + criteria.storeName);
  text.Say(FarsiTextOf(criteria.period));
  return text;
}

}  // namespace goods
