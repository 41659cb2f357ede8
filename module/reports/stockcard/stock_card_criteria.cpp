#include "module/reports/stockcard/stock_card_criteria.h"

#include <string_view>

#include "host/services/public_methods.h"

namespace goods {
namespace {

void SayOne(CriteriaText& text, std::string_view title, const StockCardEntity& entity) {
  if (entity.one.DataSetCondition().empty()) return;
  text.Say(std::string(title) + (entity.one.Exclude ? " به جز: " : ": ") + entity.one.Value + " - " +
           entity.name);
}

}  // namespace

CriteriaText TextOf(const StockCardCriteria& criteria) {
  CriteriaText text;
  if (criteria.good.code != 0) text.parameters = std::to_string(criteria.good.code);
  SayOne(text, "انبار", criteria.store);
  SayOne(text, "شخص", criteria.person);
  if (!criteria.dates.DataSetCondition().empty()) {
    text.Say(std::string(criteria.dates.Exclude ? "تاریخ به جز از: " : "تاریخ از: ") + criteria.dates.From +
             " تا: " + criteria.dates.To);
  }
  return text;
}

std::string RowConditionOf(const StockCardCriteria& criteria) {
  std::string condition;
  for (const SearchCriterion* each : {&criteria.store.one, &criteria.person.one, &criteria.dates}) {
    condition = AddFilter(condition, each->DataSetCondition());
  }
  return condition;
}

}  // namespace goods
