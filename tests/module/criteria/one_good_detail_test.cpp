// The criteria of one good's detail movements.
#include "module/reports/detail/one_good_criteria.h"
#include "tests/module/criteria/criteria_check.h"

namespace goods {
namespace {

OneGoodDetailCriteria RandomOneGoodDetail(Dice& dice) {
  OneGoodDetailCriteria criteria{
      .goodCode = 1 + dice.Roll(100000),
      .detailValue = dice.Roll(5000),
      .titleId = 1 + dice.Roll(9),
      .titleCaption = dice.One<const char*>({"  شــخص", "  شــرح", "  قیمت واحد"}),
      .title = dice.MaybeText(),
      .dialog = std::nullopt,
  };
  if (dice.Chance(70)) {
    criteria.dialog = OneGoodDetailDialog{
        .person = {dice.Code(), dice.Text()}, .store = {dice.Code(), dice.Text()}, .dates = dice.Dates()};
  }
  return criteria;
}

ExpectedText ExpectOneGoodDetail(const OneGoodDetailCriteria& criteria) {
  ExpectedText text;
  text.Piece("@GoodCode", std::to_string(criteria.goodCode));
  text.Piece("@DetailValueID", std::to_string(criteria.detailValue));
  if (!criteria.title.empty()) {
    const bool price = criteria.titleId == 8 || criteria.titleId == 9;
    text.Piece("@TitleID", std::to_string(criteria.titleId));
    text.Piece("@Title",
               ExpectedText::Quoted(price ? ExpectedText::WithoutCommas(criteria.title) : criteria.title));
    text.Phrase(criteria.titleCaption + " : " + criteria.title);
  }
  if (!criteria.dialog) return text;
  const auto one = [&text](const CriteriaCode& who, const std::string& name, const std::string& title) {
    const std::string code = std::to_string(who.code);
    if (code == "0") return;
    text.Piece(name, code);
    text.Phrase(title + ": " + code + " - " + who.name);
  };
  one(criteria.dialog->person, "@PerCode", "شخص");
  one(criteria.dialog->store, "@Anbar", "انبار");
  const CriteriaRange& dates = criteria.dialog->dates;
  if (dates.inUse && dates.from + dates.to != "") {
    text.Piece("@FromDate", "'" + dates.from + "'");
    text.Piece("@ToDate", "'" + dates.to + "'");
    text.Phrase("تاریخ از: " + dates.from + " تا : " + dates.to);
  }
  return text;
}

TEST(OneGoodDetailCriteria, AreSentAndToldAlikeByTwoWays) {
  HoldOverRandomCriteria(
      53, RandomOneGoodDetail, ExpectOneGoodDetail,
      {"@GoodCode", "@DetailValueID", "@TitleID", "@Title", "@PerCode", "@Anbar", "@FromDate", "@ToDate"});
}

}  // namespace
}  // namespace goods
