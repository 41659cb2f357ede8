// The criteria of the stock-card mismatch.
#include "module/reports/mismatch/card_mismatch_criteria.h"
#include "tests/module/criteria/criteria_check.h"

namespace goods {
namespace {

KardexDismatchCriteria RandomCardMismatch(Dice& dice) {
  const int stores = dice.Roll(10);
  return {
      .group = {dice.Code(), dice.Text()},
      .storesTotalled = stores < 5,
      .storesSeparated = stores >= 5 && stores < 9,
      .titleItem = dice.Roll(4),
      .title = dice.MaybeText(),
      .difference = dice.Amounts(),
  };
}

ExpectedText ExpectCardMismatch(const KardexDismatchCriteria& criteria) {
  ExpectedText text;
  // 1. The group of the current row, unless its code is 0.
  const std::string group = std::to_string(criteria.group.code);
  if (group != "0") {
    text.Piece("@GoodGroupCode", group);
    text.Phrase("گروه کالا : " + group + " - " + criteria.group.name);
  }
  // 2. Stores: 0 totalled, 1 separated, nothing said of them in Persian.
  if (criteria.storesTotalled) text.Piece("@StoreSeparation", "0");
  if (!criteria.storesTotalled && criteria.storesSeparated) text.Piece("@StoreSeparation", "1");
  // 3. The search: codes as typed, names quoted.
  const std::string& typed = criteria.title;
  if (typed.size() > 0) {
    switch (criteria.titleItem) {
      case 0:
        text.Piece("@GoodCode", typed);
        text.Phrase("کد کالا : " + typed);
        break;
      case 1:
        text.Piece("@GoodName", ExpectedText::Quoted(typed));
        text.Phrase("نام کالا : " + typed);
        break;
      case 2:
        text.Piece("@Store", typed);
        text.Phrase("کد انبار : " + typed);
        break;
      case 3:
        text.Piece("@StoreName", ExpectedText::Quoted(typed));
        text.Phrase("انبار : " + typed);
        break;
      default:
        ADD_FAILURE();
    }
  }
  // 4. The range, off with an upper "0".
  const CriteriaRange& range = criteria.difference;
  if (ExpectedText::Asks(range) && range.to != "0") {
    text.Ends("@FromDiffAsset", "@ToDiffAsset", range);
    text.Phrase("برآیند اختلاف موجودی از : " + range.from + " تا: " + range.to);
  }
  return text;
}

TEST(CardMismatchCriteria, AreSentAndToldAlikeByTwoWays) {
  HoldOverRandomCriteria(61, RandomCardMismatch, ExpectCardMismatch,
                         {"@GoodGroupCode", "@StoreSeparation", "@GoodCode", "@GoodName", "@Store",
                          "@StoreName", "@FromDiffAsset", "@ToDiffAsset"});
}

TEST(CardMismatchCriteria, OfNothingAskOnlyForTheTotals) {
  EXPECT_EQ(TextOf(KardexDismatchCriteria{}).parameters, "@StoreSeparation = 0");
  EXPECT_EQ(TextOf(KardexDismatchCriteria{}).caption, "");
}

}  // namespace
}  // namespace goods
