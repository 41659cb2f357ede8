#include "tests/module/new_report/goods_without_price_criteria.h"

#include "host/core/text.h"

namespace goods {

CriteriaText TextOf(const GoodsWithoutPriceCriteria& criteria) {
  CriteriaText text;
  if (!criteria.title.empty()) {
    const bool name = criteria.titleItem == 1;
    text.Add(name ? "@GoodName" : "@GoodCode", name ? QuotedStr(criteria.title) : criteria.title);
    text.Say((name ? "نام کالا: " : "کد کالا: ") + criteria.title);
  }
  if (criteria.withStock) {
    text.Add("@WithStock", "1");
    text.Say("کالاهای دارای موجودی");
  }
  if (!criteria.codes.AsksNothing()) {
    text.AddNumbers("@FromGoodCode", "@ToGoodCode", criteria.codes);
    text.Say("کالاها از: " + criteria.codes.from + " تا: " + criteria.codes.to);
  }
  return text;
}

}  // namespace goods
