#include "module/reports/detail/detail_row.h"

#include <utility>

#include "host/core/text.h"

namespace goods {
namespace {

constexpr int kLongestValue = 50;  // characters

std::string Numbered(std::string_view before, int number, std::string_view behind) {
  return std::string(before) + std::to_string(number) + std::string(behind);
}

// The first item of the lists, which stands for no choice.
constexpr const char* kPrompt = "  انتخاب کنید ...";

void SpellPrompt(TComboBox& list) {
  std::vector<TComboItem> items = list.Items();
  if (items.empty()) return;
  const int chosen = list.ItemIndex();
  items.front().Text = kPrompt;
  const auto onChange = std::exchange(list.OnChange, nullptr);
  list.SetItems(std::move(items));
  list.SetItemIndex(chosen);
  list.OnChange = onChange;
}

bool Given(std::string_view text) { return !Trim(text).empty(); }
bool Given(const TEdit& edit) { return edit.HoldsValue() && Given(edit.Text()); }

}  // namespace

TDetailRow::TDetailRow(TComponent* window, int number, std::string caption)
    : TPanel(window, Numbered("DetailRow", number, "_PNL"), Flow::Row),
      Detail_LBL(window, Numbered("GoodDetail", number, "_LBL"), std::move(caption)),
      GoodDetailSelectSearch_CMB(window, Numbered("GoodDetailSelectSearch", number, "_CMB")),
      GoodDetail_CMB(window, Numbered("GoodDetail", number, "_CMB")),
      FromGoodDetail_LBL(window, Numbered("FromGoodDetail", number, "_LBL"), "از :"),
      FromGoodDetail_EDT(window, Numbered("FromGoodDetail", number, "_EDT")),
      FromGoodDetailDate_EDT(window, Numbered("FromGoodDetailDate", number, "_EDT")),
      ToGoodDetail_LBL(window, Numbered("ToGoodDetail", number, "_LBL"), "تا :"),
      ToGoodDetail_EDT(window, Numbered("ToGoodDetail", number, "_EDT")),
      ToGoodDetailDate_EDT(window, Numbered("ToGoodDetailDate", number, "_EDT")),
      number_(number) {
  const std::string name = PlainCaption(Detail_LBL.Caption());
  Detail_LBL.FocusControl = &GoodDetailSelectSearch_CMB;
  GoodDetailSelectSearch_CMB.SetAccessibleName(name);
  GoodDetailSelectSearch_CMB.SetWidth(150);
  GoodDetail_CMB.SetAccessibleName("مقدار جزئیات");
  GoodDetail_CMB.SetWidth(150);
  FromGoodDetail_EDT.SetAccessibleName("مقدار جزئیات از");
  ToGoodDetail_EDT.SetAccessibleName("مقدار جزئیات تا");
  FromGoodDetailDate_EDT.SetAccessibleName("تاریخ از");
  ToGoodDetailDate_EDT.SetAccessibleName("تاریخ تا");
  for (TEdit* edit : {&FromGoodDetail_EDT, &ToGoodDetail_EDT}) edit->MaxLength = kLongestValue;
  for (TControl* control : std::initializer_list<TControl*>{
           &GoodDetail_CMB, &FromGoodDetail_LBL, &FromGoodDetail_EDT, &FromGoodDetailDate_EDT,
           &ToGoodDetail_LBL, &ToGoodDetail_EDT, &ToGoodDetailDate_EDT}) {
    control->SetVisible(false);
  }
  Place(Detail_LBL);
  Place(GoodDetailSelectSearch_CMB);
  Place(GoodDetail_CMB);
  Place(FromGoodDetail_LBL);
  Place(FromGoodDetail_EDT, 1);
  Place(FromGoodDetailDate_EDT);
  Place(ToGoodDetail_LBL);
  Place(ToGoodDetail_EDT, 1);
  Place(ToGoodDetailDate_EDT);
}

void TDetailRow::Fill(TGoodTransactions_DM& data) {
  data.ComboBoxFill_WithItems(GoodDetailSelectSearch_CMB);
  SpellPrompt(GoodDetailSelectSearch_CMB);
}

void TDetailRow::ApplySelection(TGoodTransactions_DM& data) {
  type_ = 0;  // a detail that cannot be read has no condition, least of all that of the one before
  type_ = data.GoodDetailChange_ComboBox(
      GoodDetailSelectSearch_CMB,
      {GoodDetail_CMB, FromGoodDetailDate_EDT, ToGoodDetailDate_EDT, FromGoodDetail_EDT, ToGoodDetail_EDT,
       FromGoodDetail_LBL, ToGoodDetail_LBL});
  SpellPrompt(GoodDetail_CMB);
}

void TDetailRow::Clear(TGoodTransactions_DM& data) {
  const auto onChange = std::exchange(GoodDetailSelectSearch_CMB.OnChange, nullptr);
  GoodDetailSelectSearch_CMB.SetItemIndex(0);
  GoodDetailSelectSearch_CMB.OnChange = onChange;
  ApplySelection(data);
}

std::int64_t TDetailRow::DetailID() const {
  return GoodDetailSelectSearch_CMB.ItemIndex() > 0 ? GoodDetailSelectSearch_CMB.ItemObject() : 0;
}

std::optional<DetailCondition> TDetailRow::Condition() const {
  if (DetailID() == 0) return std::nullopt;
  const std::string title = "جزئیات " + GoodDetailSelectSearch_CMB.Text();
  const auto one = [&](const std::string& value) {
    return DetailCondition{value, value, title + " : " + value};
  };
  const auto range = [&](const std::string& from, const std::string& to) {
    return DetailCondition{from, to, title + " از: " + from + " تا: " + to};
  };
  const TEdit& lower = FromGoodDetail_EDT;
  const TEdit& upper = ToGoodDetail_EDT;
  switch (type_) {
    case kPickedValue:
      if (GoodDetail_CMB.ItemIndex() > 0) return one(GoodDetail_CMB.Text());
      return std::nullopt;
    case kTypedValue:
      // The list's first item stands for no value here too.
      if (GoodDetail_CMB.ItemIndex() != 0 && Given(GoodDetail_CMB.Text())) return one(GoodDetail_CMB.Text());
      return std::nullopt;
    case kNumber:
    case kOtherNumber:
      if (Given(lower)) return range(lower.Text(), Given(upper) ? upper.Text() : lower.Text());
      return std::nullopt;
    case kDate:
      return range(FromGoodDetailDate_EDT.TextOfValue(), ToGoodDetailDate_EDT.TextOfValue());
    case kOneValue:
      if (Given(lower)) return one(lower.Text());
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

}  // namespace goods
