#include "module/reports/detail/detail_criteria.h"

#include <span>
#include <string_view>

#include "host/core/text.h"

namespace goods {
namespace {

// The list's parameters are the only ones without blanks around the sign.
constexpr std::string_view kSelectedList = "@GoodSelectedListCode=";
constexpr std::string_view kSelectedListNot = "@GoodSelectedListNot=";
constexpr std::string_view kNull = "Null";
constexpr std::string_view kNoTags = ",,";

// A range with this in an edit is not asked for.
constexpr std::string_view kNoCode = "0";

// A column that can be searched: how it is told, and whether its text goes out without thousands separators.
struct TitleItem {
  std::string_view caption;
  bool amount = false;
};

constexpr std::array kMovementTitles = std::to_array<TitleItem>({{"کد کالا : "},
                                                                 {"نام کالا : "},
                                                                 {"انبار : "},
                                                                 {"جزئیات : "},
                                                                 {"نام شخص : "},
                                                                 {"شرح : "},
                                                                 {"وارده : "},
                                                                 {"صادره : "},
                                                                 {"مبلغ واحد : ", true},
                                                                 {"مبلغ کل : ", true}});
constexpr std::array kStockTitles = std::to_array<TitleItem>(
    {{"کد کالا : "}, {"نام کالا : "}, {"انبار : "}, {"جزئیات : "}, {"موجودی : ", true}});

// A kind of codes that the dialog's range can hold.
struct CodeKind {
  std::string_view from;
  std::string_view to;
  std::string_view caption;
};

constexpr std::array kCodeKinds =
    std::to_array<CodeKind>({{"@FromGoodCode", "@ToGoodCode", "کالاها از: "},
                             {"@FromAnbar", "@ToAnbar", "انبارها از: "},
                             {"@FromGoodGroupCode", "@ToGoodGroupCode", "گروه کالاها از: "}});

void AddTitle(CriteriaText& text, const DetailListCriteria& criteria) {
  if (criteria.title.empty()) return;
  const bool stock = criteria.report == DetailList::Stock;
  const std::span<const TitleItem> titles =
      stock ? std::span<const TitleItem>(kStockTitles) : std::span<const TitleItem>(kMovementTitles);
  const auto at = static_cast<std::size_t>(criteria.titleItem);
  if (at >= titles.size()) return;
  text.Add("@TitleID", std::to_string(at + 1));
  text.Add("@Title", QuotedStr(titles[at].amount ? ReplaceAll(criteria.title, ",", "") : criteria.title));
  text.Say(std::string(titles[at].caption) + criteria.title);
}

void AddDetail(CriteriaText& text, int number, const DetailValue& value) {
  const auto condition = ConditionOf(value);
  if (!condition) return;
  const std::string row = std::to_string(number);
  text.Add("@DetailID" + row, std::to_string(value.detail));
  text.Add("@Detail" + row + "Value1", QuotedStr(condition->from));
  text.Add("@Detail" + row + "Value2", QuotedStr(condition->to));
  text.Say(condition->caption);
}

void AddTags(CriteriaText& text, const DetailDialogCriteria& dialog) {
  const std::string tags(Trim(dialog.tags));
  const bool none = tags.empty() || tags == kNoTags;
  text.Add("@GoodTags", none ? std::string(kNull) : QuotedStr(tags));
  if (!none) text.Say("برچسب : " + dialog.tagNames);
}

void AddSelectedList(CriteriaText& text, const DetailDialogCriteria& dialog) {
  const bool chosen = dialog.list != 0;
  text.AddPiece(std::string(kSelectedList) + (chosen ? std::to_string(dialog.list) : std::string(kNull)));
  if (chosen) {
    text.Say("لیست انتخابی: " + dialog.listName +
             (dialog.listInverted ? " - کالاهای لیست نمایش داده نشوند" : ""));
  }
  text.AddPiece(std::string(kSelectedListNot) + (dialog.listInverted ? "-1" : "0"));
}

void AddCodes(CriteriaText& text, const DetailDialogCriteria& dialog) {
  const CriteriaRange& codes = dialog.codes;
  if (codes.AsksNothing() || codes.from == kNoCode || codes.to == kNoCode) return;
  const auto item = static_cast<std::size_t>(dialog.codesItem);
  if (item >= kCodeKinds.size()) return;
  text.AddNumbers(kCodeKinds[item].from, kCodeKinds[item].to, codes);
  text.Say(std::string(kCodeKinds[item].caption) + codes.from + " تا: " + codes.to);
}

void AddDialog(CriteriaText& text, const DetailDialogCriteria& dialog, DetailList report) {
  AddTags(text, dialog);
  if (!dialog.category.empty()) {
    text.Add("@GoodCategoryCode", dialog.category);
    text.Say("دسته : " + dialog.categoryName);
  }
  for (std::size_t i = 0; i < dialog.details.size(); ++i) {
    AddDetail(text, static_cast<int>(i) + 2, dialog.details[i]);
  }
  AddSelectedList(text, dialog);
  text.AddOne(dialog.goodIsGroup ? "@GoodGroupCode" : "@GoodCode",
              dialog.goodIsGroup ? "گروه کالا: " : "کالا: ", dialog.good);
  const auto addStore = [&] { text.AddOne("@Anbar", "انبار: ", dialog.store); };
  if (report == DetailList::Stock) addStore();
  AddCodes(text, dialog);
  if (report == DetailList::Movements) addStore();
  if (dialog.dates.AsksNothing()) return;
  text.AddDates(dialog.dates);
  text.Say("تاریخ عملیات از: " + dialog.dates.from + " تا: " + dialog.dates.to);
}

}  // namespace

CriteriaText TextOf(const DetailListCriteria& criteria) {
  CriteriaText text;
  if (criteria.report == DetailList::Stock) {
    text.AddOne("@GoodGroupCode", "گروه کالا : ", criteria.group);
    text.Add("@StoreSeparation", criteria.storesSeparated ? "1" : "0");
    text.Add("@HaveAmount", criteria.everyKind ? "1" : "0");
  }
  AddTitle(text, criteria);
  if (criteria.report == DetailList::Movements && criteria.operation != 0) {
    text.Add("@OperationType", std::to_string(criteria.operation));
    text.Say("نوع عملیات :" + criteria.operationText);
  }
  AddDetail(text, 1, criteria.detail);
  if (criteria.dialog) AddDialog(text, *criteria.dialog, criteria.report);
  return text;
}

}  // namespace goods
