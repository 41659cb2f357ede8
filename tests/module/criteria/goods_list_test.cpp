// The criteria of the goods turnover list.
#include "module/reports/turnover/goods_list_criteria.h"
#include "tests/module/criteria/search_criteria_check.h"

namespace goods {
namespace {

GoodsListDialogCriteria RandomGoodsListDialog(Dice& dice) {
  GoodsListDialogCriteria dialog;
  dialog.ranges.push_back(RandomCriterion(dice, SearchOperator::Range, DataKind::Number, "Code"));
  if (dice.Chance(50))
    dialog.ranges.push_back(RandomCriterion(dice, SearchOperator::Range, DataKind::Amount, "Jam_Kol"));
  SearchCriterion dates = RandomCriterion(dice, SearchOperator::Range, DataKind::Text, "OperationDate");
  dates.From = dice.MaybeDate();
  dates.To = dice.MaybeDate();
  dialog.ranges.push_back(dates);
  dialog.ranges.push_back(RandomCriterion(dice, SearchOperator::Equals, DataKind::Number, "StoreCode"));
  dialog.categories = RandomCriterion(dice, SearchOperator::Equals, DataKind::Text, "category_code");
  dialog.tags = RandomCriterion(dice, SearchOperator::Equals, DataKind::Text, "tags");
  if (dice.Chance(50)) dialog.categoryNames = "پیچ ها، ابزار";
  if (dice.Chance(50)) dialog.tagNames = "ویژه";
  if (dice.Chance(60)) {
    dialog.list = dice.Code();
    dialog.listName = "لیست " + std::to_string(dialog.list);
  }
  dialog.listInverted = dice.Chance(40);
  dialog.period.inUse = dice.Chance(70);
  if (dice.Chance(80)) dialog.period.from = "1402/01/01";
  if (dice.Chance(80)) dialog.period.to = "1402/12/29";
  dialog.period.countsBefore = dice.Chance(50);
  return dialog;
}

GoodsListCriteria RandomGoodsList(Dice& dice) {
  GoodsListCriteria criteria{.group = dice.Code(), .groupName = "فلزات", .tab = dice.Roll(6)};
  criteria.tabName = " کالاهای " + std::to_string(criteria.tab) + " ";
  const auto kind = dice.One({DataKind::Text, DataKind::Number, DataKind::Amount});
  const auto how = kind == DataKind::Text ? SearchOperator::Contains : SearchOperator::Equals;
  criteria.search = RandomCriterion(dice, how, kind, "Mogodi");
  if (dice.Chance(70)) criteria.dialog = RandomGoodsListDialog(dice);
  return criteria;
}

void ExpectDialog(ExpectedText& text, const GoodsListDialogCriteria& dialog) {
  for (const SearchCriterion& range : dialog.ranges) ExpectCriterion(text, range);
  // Told by their names, not by their codes.
  ExpectCriterion(text, dialog.categories, false);
  ExpectCriterion(text, dialog.tags, false);
  if (dialog.categoryNames != "") text.Phrase("دسته: " + dialog.categoryNames);
  if (dialog.tagNames != "")
    text.Phrase((dialog.tags.Exclude ? "برچسب به جز: " : "برچسب: ") + dialog.tagNames);
  std::string piece = dialog.listInverted ? "@invertList=1" : "@invertList=0";
  piece += ", @Inlist=1, @SelectedCode=" + (dialog.list ? std::to_string(dialog.list) : "NULL");
  if (dialog.list) {
    text.Phrase("لیست انتخابی: " + dialog.listName +
                (dialog.listInverted ? " - کالاهای  لیست نمایش داده نشوند" : ""));
  }
  if (dialog.period.inUse && dialog.period.from && dialog.period.to) {
    if (dialog.period.countsBefore) {
      piece += ", @EffectiveDate1 = '', @EffectiveDate2 = '1402/12/29'";
      text.Phrase("تا تاریخ 1402/12/29");
    } else {
      piece += ", @EffectiveDate1 = '1402/01/01', @EffectiveDate2 = '1402/12/29'";
      text.Phrase("از تاریخ 1402/01/01 تا تاریخ 1402/12/29");
    }
  }
  text.Verbatim(piece);
}

ExpectedText ExpectGoodsList(const GoodsListCriteria& criteria) {
  ExpectedText text;
  if (criteria.group != 0) {
    text.Piece("@GrpCode", std::to_string(criteria.group));
    text.Phrase("گروه کالا : فلزات");
  }
  if (criteria.tab != 5) {
    text.Piece("@GoodExistType", std::to_string(1 + criteria.tab));
    text.Phrase("کالاهای " + std::to_string(criteria.tab));
  }
  ExpectCriterion(text, criteria.search);
  if (criteria.dialog) ExpectDialog(text, *criteria.dialog);
  return text;
}

TEST(GoodsListCriteria, GoOutAndAreToldAsASecondWayPutsThemTogether) {
  HoldOverRandomCriteria(31, RandomGoodsList, ExpectGoodsList,
                         {"@GrpCode",
                          "@GoodExistType",
                          "@Mogodi",
                          "@NotMogodi",
                          "@FromCode",
                          "@ToCode",
                          "@NotRangeCode",
                          "@FromJam_Kol",
                          "@ToJam_Kol",
                          "@NotRangeJam_Kol",
                          "@FromOperationDate",
                          "@ToOperationDate",
                          "@NotRangeOperationDate",
                          "@StoreCode",
                          "@NotStoreCode",
                          "@category_code",
                          "@Notcategory_code",
                          "@tags",
                          "@Nottags",
                          "@invertList"});
}

}  // namespace
}  // namespace goods
