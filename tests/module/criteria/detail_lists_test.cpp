// The criteria of the two good-detail lists.
#include <array>

#include "module/reports/detail/detail_criteria.h"
#include "tests/module/criteria/criteria_check.h"

namespace goods {
namespace {

DetailValue RandomValue(Dice& dice) {
  return {
      .detail = dice.Code(),
      .title = dice.Text(),
      .type = dice.Roll(8),
      .listItem = dice.Roll(4) - 1,
      .value = dice.One<std::string>({"", "  ", dice.Text()}),
      .from = dice.One<std::string>({"", " ", "1,250", dice.Text()}),
      .to = dice.One<std::string>({"", " ", "9", dice.Text()}),
      .fromDate = dice.MaybeDate(),
      .toDate = dice.MaybeDate(),
  };
}

DetailDialogCriteria RandomDetailListDialog(Dice& dice) {
  DetailDialogCriteria dialog{
      .tags = dice.One<const char*>({"", ",,", " ", ",3,", ",3,7,"}),
      .tagNames = dice.Text(),
      .category = dice.One<const char*>({"", "7", "12"}),
      .categoryName = dice.Text(),
      .details = {},
      .list = dice.Code(),
      .listName = dice.Text(),
      .listInverted = dice.Chance(50),
      .good = {dice.Code(), dice.Text()},
      .goodIsGroup = dice.Chance(50),
      .codes = dice.Digits(),
      .codesItem = dice.Roll(3),
      .store = {dice.Code(), dice.Text()},
      .dates = dice.Dates(),
  };
  for (DetailValue& value : dialog.details) value = RandomValue(dice);
  return dialog;
}

DetailListCriteria RandomDetailList(Dice& dice, DetailList report) {
  const bool stock = report == DetailList::Stock;
  DetailListCriteria criteria{
      .report = report,
      .group = {dice.Code(), dice.Text()},
      .storesSeparated = dice.Chance(50),
      .everyKind = dice.Chance(50),
      .titleItem = dice.Roll(stock ? 5 : 10),
      .title = dice.MaybeText(),
      .operation = dice.Code(),
      .operationText = dice.Text(),
      .detail = RandomValue(dice),
      .dialog = std::nullopt,
  };
  if (dice.Chance(70)) criteria.dialog = RandomDetailListDialog(dice);
  if (stock && criteria.dialog) {
    criteria.dialog->goodIsGroup = false;       // its dialog offers goods alone,
    criteria.dialog->codesItem = dice.Roll(2);  // and codes of goods and stores
  }
  return criteria;
}

bool Blank(const std::string& text) { return text.find_first_not_of(" \t\r\n") == std::string::npos; }

// A row of the details: three pieces and a phrase, if its type has a value.
void ExpectDetail(ExpectedText& text, char row, const DetailValue& value) {
  if (value.detail == 0) return;
  std::string first = value.value;
  std::string second = value.value;
  bool asRange = false;
  bool given = false;
  if (value.type == 1) given = value.listItem > 0;
  if (value.type == 2) given = value.listItem != 0 && !Blank(value.value);
  if (value.type == 3 || value.type == 4) {
    given = !Blank(value.from);
    first = value.from;
    second = Blank(value.to) ? value.from : value.to;
    asRange = true;
  }
  if (value.type == 5) {
    given = true;
    first = value.fromDate;
    second = value.toDate;
    asRange = true;
  }
  if (value.type == 6) {
    given = !Blank(value.from);
    first = second = value.from;
  }
  if (!given) return;
  const std::string number(1, row);
  text.Piece("@DetailID" + number, std::to_string(value.detail));
  text.Piece("@Detail" + number + "Value1", ExpectedText::Quoted(first));
  text.Piece("@Detail" + number + "Value2", ExpectedText::Quoted(second));
  text.Phrase("جزئیات " + value.title + (asRange ? " از: " + first + " تا: " + second : " : " + first));
}

void ExpectStore(ExpectedText& text, const CriteriaCode& store) {
  if (store.code == 0) return;
  text.Piece("@Anbar", std::to_string(store.code));
  text.Phrase("انبار: " + std::to_string(store.code) + " - " + store.name);
}

void ExpectDialog(ExpectedText& text, const DetailDialogCriteria& dialog, bool storeFirst) {
  const bool noTags = Blank(dialog.tags) || dialog.tags == ",,";
  text.Piece("@GoodTags", noTags ? "Null" : "'" + dialog.tags + "'");
  if (!noTags) text.Phrase("برچسب : " + dialog.tagNames);
  if (dialog.category != "") {
    text.Piece("@GoodCategoryCode", dialog.category);
    text.Phrase("دسته : " + dialog.categoryName);
  }
  for (const int row : {2, 3, 4, 5}) {
    ExpectDetail(text, static_cast<char>('0' + row), dialog.details[static_cast<std::size_t>(row - 2)]);
  }
  text.Verbatim("@GoodSelectedListCode=" + (dialog.list == 0 ? "Null" : std::to_string(dialog.list)));
  text.Verbatim(std::string("@GoodSelectedListNot=") + (dialog.listInverted ? "-1" : "0"));
  if (dialog.list != 0 && dialog.listInverted) {
    text.Phrase("لیست انتخابی: " + dialog.listName + " - کالاهای لیست نمایش داده نشوند");
  } else if (dialog.list != 0) {
    text.Phrase("لیست انتخابی: " + dialog.listName);
  }
  if (dialog.good.code != 0) {
    text.Piece(dialog.goodIsGroup ? "@GoodGroupCode" : "@GoodCode", std::to_string(dialog.good.code));
    text.Phrase((dialog.goodIsGroup ? "گروه کالا: " : "کالا: ") + std::to_string(dialog.good.code) + " - " +
                dialog.good.name);
  }
  if (storeFirst) ExpectStore(text, dialog.store);
  if (ExpectedText::Asks(dialog.codes) && dialog.codes.from != "0" && dialog.codes.to != "0") {
    const std::array<std::string, 3> field{"GoodCode", "Anbar", "GoodGroupCode"};
    const std::array<std::string, 3> title{"کالاها", "انبارها", "گروه کالاها"};
    const auto kind = static_cast<std::size_t>(dialog.codesItem);
    text.Ends("@From" + field.at(kind), "@To" + field.at(kind), dialog.codes);
    text.Phrase(title.at(kind) + " از: " + dialog.codes.from + " تا: " + dialog.codes.to);
  }
  if (!storeFirst) ExpectStore(text, dialog.store);
  if (dialog.dates.inUse && dialog.dates.from + dialog.dates.to != "") {
    text.Piece("@FromDate", "'" + dialog.dates.from + "'");
    text.Piece("@ToDate", "'" + dialog.dates.to + "'");
    text.Phrase("تاریخ عملیات از: " + dialog.dates.from + " تا: " + dialog.dates.to);
  }
}

void ExpectTitle(ExpectedText& text, const DetailListCriteria& criteria,
                 const std::vector<std::string>& captions, int firstAmount) {
  if (criteria.title == "") return;
  text.Piece("@TitleID", std::to_string(criteria.titleItem + 1));
  text.Piece("@Title", ExpectedText::Quoted(criteria.titleItem >= firstAmount
                                                ? ExpectedText::WithoutCommas(criteria.title)
                                                : criteria.title));
  text.Phrase(captions.at(static_cast<std::size_t>(criteria.titleItem)) + " : " + criteria.title);
}

ExpectedText ExpectMovements(const DetailListCriteria& criteria) {
  ExpectedText text;
  ExpectTitle(
      text, criteria,
      {"کد کالا", "نام کالا", "انبار", "جزئیات", "نام شخص", "شرح", "وارده", "صادره", "مبلغ واحد", "مبلغ کل"},
      8);
  if (criteria.operation > 0) {
    text.Piece("@OperationType", std::to_string(criteria.operation));
    text.Phrase("نوع عملیات :" + criteria.operationText);
  }
  ExpectDetail(text, '1', criteria.detail);
  if (criteria.dialog) ExpectDialog(text, *criteria.dialog, false);
  return text;
}

ExpectedText ExpectStock(const DetailListCriteria& criteria) {
  ExpectedText text;
  if (criteria.group.code != 0) {
    text.Piece("@GoodGroupCode", std::to_string(criteria.group.code));
    text.Phrase("گروه کالا : " + std::to_string(criteria.group.code) + " - " + criteria.group.name);
  }
  text.Piece("@StoreSeparation", criteria.storesSeparated ? "1" : "0");
  text.Piece("@HaveAmount", criteria.everyKind ? "1" : "0");
  ExpectTitle(text, criteria, {"کد کالا", "نام کالا", "انبار", "جزئیات", "موجودی"}, 4);
  ExpectDetail(text, '1', criteria.detail);
  if (criteria.dialog) ExpectDialog(text, *criteria.dialog, true);
  return text;
}

std::vector<std::string> CommonNames() {
  std::vector<std::string> names{"@TitleID",
                                 "@Title",
                                 "@GoodTags",
                                 "@GoodCategoryCode",
                                 "@GoodSelectedListCode",
                                 "@GoodSelectedListNot",
                                 "@GoodCode",
                                 "@GoodGroupCode",
                                 "@FromGoodCode",
                                 "@ToGoodCode",
                                 "@FromAnbar",
                                 "@ToAnbar",
                                 "@Anbar",
                                 "@FromDate",
                                 "@ToDate"};
  for (const char* row : {"1", "2", "3", "4", "5"}) {
    names.push_back(std::string("@DetailID") + row);
    names.push_back(std::string("@Detail") + row + "Value1");
    names.push_back(std::string("@Detail") + row + "Value2");
  }
  return names;
}

TEST(DetailListCriteria, OfTheMovementsAreSentAndToldAlikeByTwoWays) {
  std::vector<std::string> names = CommonNames();
  for (const char* name : {"@OperationType", "@FromGoodGroupCode", "@ToGoodGroupCode"}) names.push_back(name);
  HoldOverRandomCriteria(
      54, [](Dice& dice) { return RandomDetailList(dice, DetailList::Movements); }, ExpectMovements, names);
}

TEST(DetailListCriteria, OfTheStockAreSentAndToldAlikeByTwoWays) {
  std::vector<std::string> names = CommonNames();
  for (const char* name : {"@StoreSeparation", "@HaveAmount"}) names.push_back(name);
  HoldOverRandomCriteria(
      51, [](Dice& dice) { return RandomDetailList(dice, DetailList::Stock); }, ExpectStock, names);
}

TEST(DetailListCriteria, OfAnUntouchedDialogAreThreePieces) {
  DetailListCriteria criteria;
  criteria.dialog.emplace();
  EXPECT_EQ(TextOf(criteria).parameters,
            "@GoodTags = Null,@GoodSelectedListCode=Null,@GoodSelectedListNot=0");
  EXPECT_EQ(TextOf(criteria).caption, "");
}

}  // namespace
}  // namespace goods
