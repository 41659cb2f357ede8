#include "module/reports/detail/one_good_criteria.h"

#include "host/core/text.h"
#include "module/reports/detail/unit_kinds.h"

namespace goods {
CriteriaText TextOf(const OneGoodDetailCriteria& criteria) {
  CriteriaText text;
  text.Add("@GoodCode", std::to_string(criteria.goodCode));
  text.Add("@DetailValueID", std::to_string(criteria.detailValue));
  if (!criteria.title.empty()) {
    const bool price = criteria.titleId == kUnitPrice || criteria.titleId == kTotalPrice;
    text.Add("@TitleID", std::to_string(criteria.titleId));
    text.Add("@Title", QuotedStr(price ? ReplaceAll(criteria.title, ",", "") : criteria.title));
    text.Say(criteria.titleCaption + " : " + criteria.title);
  }
  if (!criteria.dialog) return text;
  text.AddOne("@PerCode", "شخص: ", criteria.dialog->person);
  text.AddOne("@Anbar", "انبار: ", criteria.dialog->store);
  if (criteria.dialog->dates.AsksNothing()) return text;
  text.AddDates(criteria.dialog->dates);
  text.Say("تاریخ از: " + criteria.dialog->dates.from + " تا : " + criteria.dialog->dates.to);
  return text;
}

}  // namespace goods
