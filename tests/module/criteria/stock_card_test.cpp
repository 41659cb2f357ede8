// The criteria of the stock card and of the row search.
#include "module/reports/stockcard/row_search_criteria.h"
#include "module/reports/stockcard/stock_card_criteria.h"
#include "tests/module/criteria/search_criteria_check.h"

namespace goods {
namespace {

RowSearchCriteria RandomSearch(Dice& dice) {
  RowSearchCriteria criteria{.comment =
                                 RandomCriterion(dice, SearchOperator::Contains, DataKind::Text, "Comment")};
  if (!dice.Chance(70)) return criteria;
  RowSearchDialogCriteria dialog{.told = dice.Chance(60)};
  for (const char* field : {"KalaName", "PerName"})
    dialog.items.push_back(RandomCriterion(dice, SearchOperator::Contains, DataKind::Text, field));
  dialog.items.push_back(RandomCriterion(dice, SearchOperator::Range, DataKind::Amount, "Varede"));
  dialog.items.push_back(RandomCriterion(dice, SearchOperator::Range, DataKind::Number, "Code"));
  dialog.items.push_back(RandomCriterion(dice, SearchOperator::Range, DataKind::Text, "Date"));
  criteria.dialog = dialog;
  return criteria;
}

ExpectedText ExpectSearch(const RowSearchCriteria& criteria) {
  ExpectedText text;
  ExpectCriterion(text, criteria.comment);
  if (!criteria.dialog) return text;
  for (const SearchCriterion& item : criteria.dialog->items)
    ExpectCriterion(text, item, criteria.dialog->told);
  return text;
}

TEST(RowSearchCriteria, GoOutAndAreToldAsASecondWayPutsThemTogether) {
  HoldOverRandomCriteria(21, RandomSearch, ExpectSearch,
                         {"@Comment", "@NotComment", "@KalaName", "@NotKalaName", "@PerName", "@NotPerName",
                          "@FromVarede", "@ToVarede", "@NotRangeVarede", "@FromCode", "@ToCode",
                          "@NotRangeCode", "@FromDate", "@ToDate", "@NotRangeDate"});
}

StockCardCriteria RandomCard(Dice& dice) {
  const auto entity = [&dice](const char* field) {
    SearchCriterion one = RandomCriterion(dice, SearchOperator::Equals, DataKind::Number, field);
    one.Value = dice.Chance(30) ? "" : std::to_string(1 + dice.Roll(500));
    return StockCardEntity{one, "نام " + one.Value};
  };
  StockCardCriteria criteria{
      .good = {dice.Code(), dice.Text()}, .store = entity("Anbar"), .person = entity("PerCode")};
  criteria.dates = RandomCriterion(dice, SearchOperator::Range, DataKind::Text, "Date");
  criteria.dates.From = dice.MaybeDate();
  criteria.dates.To = dice.MaybeDate();
  return criteria;
}

// A condition in its brackets, behind NOT when it is turned round.
std::string Bracketed(const std::string& condition, bool turned) {
  return (turned ? "NOT (" : "(") + condition + ")";
}

TEST(StockCardCriteria, TenThousandRandomOnesNarrowAndAreToldAsASecondWayPutsThemTogether) {
  Dice dice(11);
  int narrowed = 0;
  for (int i = 0; i < kRandomCriteria; ++i) {
    const StockCardCriteria criteria = RandomCard(dice);
    std::vector<std::string> conditions;
    ExpectedText told;
    for (const auto& [title, entity] :
         {std::pair("انبار", criteria.store), std::pair("شخص", criteria.person)}) {
      if (!entity.one.Active || entity.one.Value == "") continue;
      conditions.push_back(Bracketed(entity.one.FieldName + " = " + entity.one.Value, entity.one.Exclude));
      told.Phrase(title + std::string(entity.one.Exclude ? " به جز" : "") + ": " + entity.one.Value + " - " +
                  entity.name);
    }
    if (const SearchCriterion& dates = criteria.dates; dates.Active && dates.From + dates.To != "") {
      const std::string from = dates.From == "" ? "" : "Date >= '" + dates.From + "'";
      const std::string to = dates.To == "" ? "" : "Date <= '" + dates.To + "'";
      conditions.push_back(Bracketed(from + (from != "" && to != "" ? " AND " : "") + to, dates.Exclude));
      told.Phrase((dates.Exclude ? "تاریخ به جز از: " : "تاریخ از: ") + dates.From + " تا: " + dates.To);
    }
    std::string all;
    for (const std::string& condition : conditions) all += (all.empty() ? "" : " And ") + condition;
    ASSERT_EQ(RowConditionOf(criteria), all) << "struct " << i;
    const CriteriaText text = TextOf(criteria);
    ASSERT_EQ(text.caption, told.Caption()) << "struct " << i;
    ASSERT_EQ(text.parameters, criteria.good.code == 0 ? "" : std::to_string(criteria.good.code));
    narrowed += conditions.size() == 3 ? 1 : 0;
  }
  EXPECT_GE(narrowed, 1000);
}

}  // namespace
}  // namespace goods
