#include "module/reports/detail/detail_row.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "module/framework/program_change.h"

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
  const ProgramChange change(list);
  list.SetItems(std::move(items));
  list.SetItemIndex(chosen);
}

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
  const ProgramChange list(GoodDetail_CMB);
  const ProgramChange lower(FromGoodDetail_EDT);
  const ProgramChange upper(ToGoodDetail_EDT);
  type_ = 0;  // a detail that cannot be read has no condition, least of all that of the one before
  type_ = data.GoodDetailChange_ComboBox(
      GoodDetailSelectSearch_CMB,
      {GoodDetail_CMB, FromGoodDetailDate_EDT, ToGoodDetailDate_EDT, FromGoodDetail_EDT, ToGoodDetail_EDT,
       FromGoodDetail_LBL, ToGoodDetail_LBL});
  SpellPrompt(GoodDetail_CMB);
}

void TDetailRow::Clear(TGoodTransactions_DM& data) {
  {
    const ProgramChange change(GoodDetailSelectSearch_CMB);
    GoodDetailSelectSearch_CMB.SetItemIndex(0);
  }
  ApplySelection(data);
}

DetailValue TDetailRow::Criterion() const {
  if (GoodDetailSelectSearch_CMB.ItemIndex() <= 0) return {};
  return {
      .detail = GoodDetailSelectSearch_CMB.ItemObject(),
      .title = GoodDetailSelectSearch_CMB.Text(),
      .type = type_,
      .listItem = GoodDetail_CMB.ItemIndex(),
      .value = GoodDetail_CMB.Text(),
      .from = FromGoodDetail_EDT.TextOfValue(),
      .to = ToGoodDetail_EDT.TextOfValue(),
      .fromDate = FromGoodDetailDate_EDT.TextOfValue(),
      .toDate = ToGoodDetailDate_EDT.TextOfValue(),
  };
}

}  // namespace goods
