// The criteria of the operation mismatch.
#include "module/reports/mismatch/operation_mismatch_criteria.h"
#include "tests/module/criteria/criteria_check.h"

namespace goods {
namespace {

const std::map<std::int64_t, std::string> kOperationPhrases{
    {1, "نوع عملیات : فاکتور فروش"},
    {2, "نوع عملیات : فاکتور خرید"},
    {3, "نوع عملیات : اول دوره"},
    {4, "نوع عملیات : برگشت از فروش"},
    {5, "نوع عملیات : برگشت از خريد"},
    {6, "نوع عملیات : خروج کالا در حواله بين انبار"},
    {7, "نوع عملیات : ورود کالا در حواله بين انبار"},
    {8, "نوع عملیات : کالاي توليدي در توليد آناليز متغير"},
    {9, "نوع عملیات : مواد خام در توليد آناليز متغير"},
    {11, "نوع عملیات : کالاي هزينه شده"},
    {21, "نوع عملیات : حواله خروج کالا"},
    {22, "نوع عملیات : رسید ورود کالا"},
    {23, "نوع عملیات : کالاي درآمد شده"},
    {24, "نوع عملیات : خروج کالا در تقسيم جزئيات"},
    {25, "نوع عملیات : ورود کالا در تقسيم جزئيات"},
};

OperationDismatchCriteria RandomOperationMismatch(Dice& dice) {
  const int item = dice.Roll(6);
  OperationDismatchCriteria criteria{
      .goodCode = 1 + dice.Roll(100000),
      .goodName = dice.Text(),
      .titleItem = item,
      .titleCaption = dice.One<const char*>({"  کد انبار", "  انبار", "  مقدار عملیات"}),
      .title = item == 1  ? dice.MaybeText()
               : item < 4 ? dice.MaybeDigits()
                          : dice.MaybeAmount(),
      .operation = dice.Roll(26),
      .dialog = std::nullopt,
  };
  if (dice.Chance(70)) {
    criteria.dialog = OperationDismatchDialog{.dates = dice.Dates(),
                                              .codes = dice.Digits(),
                                              .rows = dice.Digits(),
                                              .amounts = dice.Amounts(),
                                              .amountsOfDetails = dice.Chance(50)};
  }
  return criteria;
}

void ExpectRange(ExpectedText& text, const CriteriaRange& range, const std::string& field,
                 const std::string& title) {
  text.Ends("@From" + field, "@To" + field, range);
  text.Phrase(title + " از: " + range.from + " تا : " + range.to);
}

ExpectedText ExpectOperationMismatch(const OperationDismatchCriteria& criteria) {
  ExpectedText text;
  text.Piece("@GoodCode", std::to_string(criteria.goodCode));
  text.Phrase("کالا : " + criteria.goodName);
  if (const std::string& typed = criteria.title; typed != "") {
    const std::vector<std::string> names{"@Store",        "@StoreName",       "@OperationCode",
                                         "@OperationRow", "@OperationAmount", "@DetailAmount"};
    std::string value = typed;
    if (criteria.titleItem == 1) value = ExpectedText::Quoted(typed);
    if (criteria.titleItem >= 4) value = ExpectedText::WithoutCommas(typed);
    text.Piece(names.at(static_cast<std::size_t>(criteria.titleItem)), value);
    text.Phrase(criteria.titleCaption + " : " + typed);
  }
  if (const auto found = kOperationPhrases.find(criteria.operation); found != kOperationPhrases.end()) {
    text.Piece("@OperationType", std::to_string(criteria.operation));
    text.Phrase(found->second);
  }
  if (!criteria.dialog) return text;
  const OperationDismatchDialog& dialog = *criteria.dialog;
  if (dialog.dates.inUse && dialog.dates.from + dialog.dates.to != "") {
    text.Piece("@FromDate", "'" + dialog.dates.from + "'");
    text.Piece("@ToDate", "'" + dialog.dates.to + "'");
    text.Phrase("تاریخ از: " + dialog.dates.from + " تا : " + dialog.dates.to);
  }
  const auto neitherIsNought = [](const CriteriaRange& range) {
    return range.from != "0" && range.to != "0";
  };
  if (ExpectedText::Asks(dialog.codes) && neitherIsNought(dialog.codes)) {
    ExpectRange(text, dialog.codes, "OperationCode", "کد عملیات");
  }
  if (ExpectedText::Asks(dialog.rows) && neitherIsNought(dialog.rows)) {
    ExpectRange(text, dialog.rows, "OperationRow", "ردیف عملیات");
  }
  // Only the upper end of a quantity is looked at.
  if (ExpectedText::Asks(dialog.amounts) && dialog.amounts.to != "0") {
    if (dialog.amountsOfDetails) {
      ExpectRange(text, dialog.amounts, "DetailAmount", "مقدار جزئیات");
    } else {
      ExpectRange(text, dialog.amounts, "OperationAmount", "مقدار عملیات");
    }
  }
  return text;
}

TEST(OperationMismatchCriteria, AreSentAndToldAlikeByTwoWays) {
  HoldOverRandomCriteria(
      62, RandomOperationMismatch, ExpectOperationMismatch,
      {"@GoodCode", "@Store", "@StoreName", "@OperationCode", "@OperationRow", "@OperationAmount",
       "@DetailAmount", "@OperationType", "@FromDate", "@ToDate", "@FromOperationCode", "@ToOperationCode",
       "@FromOperationRow", "@ToOperationRow", "@FromOperationAmount", "@ToOperationAmount",
       "@FromDetailAmount", "@ToDetailAmount"});
}

// The lower end of a quantity may be "0".
TEST(OperationMismatchCriteria, AQuantityFromNoughtIsARange) {
  OperationDismatchCriteria criteria{
      .goodCode = 12, .goodName = {}, .titleCaption = {}, .title = {}, .dialog = OperationDismatchDialog{}};
  criteria.dialog->amounts = {true, "0", "5"};
  EXPECT_EQ(TextOf(criteria).parameters, "@GoodCode = 12,@FromOperationAmount = 0,@ToOperationAmount = 5");
}

}  // namespace
}  // namespace goods
