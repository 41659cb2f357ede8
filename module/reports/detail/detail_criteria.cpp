#include "module/reports/detail/detail_criteria.h"

#include <algorithm>

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

std::string CodeAndName(const TSelectEntity_Search_Frame& frame) {
  return std::to_string(frame.CodeAsInt()) + " - " + frame.TSelect_Entity_Frame1.EntityName();
}

bool AsksForOne(const TSelectEntity_Search_Frame& frame) {
  return frame.SelectEntity_CHK.Checked() && frame.CodeAsInt() > 0;
}

}  // namespace

void DetailCriteria::AddTitle(const TTitleSearchPanel& search) {
  const std::string text = search.Text();
  if (text.empty()) return;
  const int item = search.ItemIndex();
  const bool amount =
      std::find(style_.amountItems.begin(), style_.amountItems.end(), item) != style_.amountItems.end();
  Add("@TitleID", std::to_string(item + 1));
  Add("@Title", QuotedStr(amount ? ReplaceAll(text, ",", "") : text));
  Say(std::string(style_.titleCaptions.at(static_cast<std::size_t>(item))) + text);
}

void DetailCriteria::AddDetailRow(const TDetailRow& row) {
  const auto condition = row.Condition();
  if (!condition) return;
  const std::string number = std::to_string(row.Number());
  Add("@DetailID" + number, std::to_string(row.DetailID()));
  Add("@Detail" + number + "Value1", QuotedStr(condition->from));
  Add("@Detail" + number + "Value2", QuotedStr(condition->to));
  Say(condition->caption);
}

void DetailCriteria::AddDialog(const TAllGoodDetailTransactionSearch_FRM& dialog) {
  AddTags(dialog.TTags_search_FRM1);
  AddCategory(dialog.TCategorySearchFrame1);
  for (const TDetailRow* row : dialog.DetailRows()) AddDetailRow(*row);
  AddSelectedList(dialog);
  AddGood(dialog.Good_SESF);
  if (style_.storeBeforeRange) AddStore(dialog.Store_SESF);
  AddCodeRange(dialog.SearchGoodCode_FRAME);
  if (!style_.storeBeforeRange) AddStore(dialog.Store_SESF);
  AddDates(dialog.DateRangeSearch_Frame);
}

void DetailCriteria::AddTags(const TTags_search_FRM& tags) {
  const std::string codes(Trim(tags.Tags()));
  const bool none = codes.empty() || codes == kNoTags;
  Add("@GoodTags", none ? std::string(kNull) : QuotedStr(codes));
  if (!none) Say("برچسب : " + data_.ReturnTagName(codes));
}

void DetailCriteria::AddCategory(const TCategorysearchframe& category) {
  if (category.IsEmpty()) return;
  const std::string code = category.Values().back();
  Add("@GoodCategoryCode", code);
  Say("دسته : " + host_.Lookups().ReturnCategoryName(code));
}

void DetailCriteria::AddSelectedList(const TAllGoodDetailTransactionSearch_FRM& dialog) {
  const std::int64_t list = dialog.SelectedListCode();
  const bool inverted = dialog.DisplayType_CHK.Checked();
  text_.AddPiece(std::string(kSelectedList) + (list == 0 ? std::string(kNull) : std::to_string(list)));
  if (list != 0) {
    Say("لیست انتخابی: " + dialog.SelectedList_CMB.Text() +
        (inverted ? " - کالاهای لیست نمایش داده نشوند" : ""));
  }
  text_.AddPiece(std::string(kSelectedListNot) + (inverted ? "-1" : "0"));
}

void DetailCriteria::AddGood(const TSelectEntity_Search_Frame& good) {
  if (!AsksForOne(good)) return;
  const std::string code = std::to_string(good.CodeAsInt());
  if (style_.goodGroups && good.SelectEntity_CMB.ItemIndex() == 1) {
    Add("@GoodGroupCode", code);
    Say("گروه کالا: " + CodeAndName(good));
  } else {
    Add("@GoodCode", code);
    Say("کالا: " + CodeAndName(good));
  }
}

void DetailCriteria::AddCodeRange(const TRange_Digit_Search_Frame& range) {
  const TEdit& from = range.RangeDigit_From_EDT;
  const TEdit& to = range.RangeDigit_To_EDT;
  if (!range.InUse() || from.Text() == kNoCode || to.Text() == kNoCode) return;
  const auto item = static_cast<std::size_t>(std::max(range.RangeDigit_CMB.ItemIndex(), 0));
  if (item >= style_.ranges.size()) return;
  const CodeRangeKind& kind = style_.ranges[item];
  if (from.HoldsValue()) Add(kind.from, from.Value());
  if (to.HoldsValue()) Add(kind.to, to.Value());
  Say(std::string(kind.caption) + from.TextOfValue() + " تا: " + to.TextOfValue());
}

// A store that cannot be seen, because stores are totalled, is not asked for.
void DetailCriteria::AddStore(const TSelectEntity_Search_Frame& store) {
  if (!store.Visible() || !AsksForOne(store)) return;
  Add("@Anbar", std::to_string(store.CodeAsInt()));
  Say("انبار: " + CodeAndName(store));
}

void DetailCriteria::AddDates(const TRange_Date_Search_Frame& dates) {
  if (!dates.RangeDate_CHK.Checked() || dates.RangeDate_CMB.ItemIndex() != 0) return;
  const std::string& from = dates.FromDate();
  const std::string& to = dates.ToDate();
  Add("@FromDate", QuotedStr(from));
  Add("@ToDate", QuotedStr(to));
  if (dates.InUse()) Say("تاریخ عملیات از: " + from + " تا: " + to);
}

}  // namespace goods
