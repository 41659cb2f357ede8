// The columns of the stock per store: a group for each store, between the stock before the period and that of
// the other stores.
#include <algorithm>

#include "module/framework/report_columns.h"
#include "module/reports/asset/goods_asset_store.h"

namespace goods {
namespace {

constexpr std::size_t kMostStores = 50;
constexpr int kFixedColumns = 2;  // code and name stay in sight
constexpr int kQuantityWidth = 100;
constexpr int kAmountWidth = 120;
constexpr int kLeastNameWidth = 200;

constexpr const char* kQuantity = "|مقدار";
constexpr const char* kSecondQuantity = "|مقدار 2";
constexpr const char* kWhole = "|مقدار کل";
constexpr const char* kPart = "|مقدار جزء";
constexpr const char* kAmount = "|مبلغ";

constexpr const char* kOtherStores = "سایر انبارها";
constexpr const char* kTotal = "موجودی کل";

void Offer(TGridColumn& column, bool offered) { column.SetVisible(offered).SetCustomizable(offered); }

}  // namespace

void TGoodsAsset_Store_FRM::DeclareColumns() {
  TSmartDBGrid_QRT& grid = GoodsAsset_Store_GRD;
  grid.SetAccessibleName("موجودی کالا به تفکیک انبار");
  grid.FixedColumns = kFixedColumns;
  grid.AddColumn("GoodCode", "کد").SetWidth(70).SetCustomizable(false);
  grid.AddColumn("GoodName", "عنوان کالا").SetWidth(kLeastNameWidth).SetCustomizable(false);
  DeclareGroup("B0", "موجودی پیش از --/--/----");
  DeclareGroup("E0", kOtherStores);
  DeclareGroup("A0", kTotal);
}

void TGoodsAsset_Store_FRM::DeclareGroup(const std::string& prefix, const std::string& title) {
  const auto number = [&](const char* suffix, const char* caption, std::string_view format, int width) {
    ReportColumns(GoodsAsset_Store_GRD)
        .Summed(prefix + suffix, title + caption, format, width)
        .SetFooterFormat(format);
  };
  number("-1", kQuantity, kQuantityFormat, kQuantityWidth);
  number("-2", kSecondQuantity, kQuantityFormat, kQuantityWidth);
  number("-3", kPart, kQuantityFormat, kQuantityWidth);
  number("-Cost", kAmount, kAmountFormat, kAmountWidth);
}

std::size_t TGoodsAsset_Store_FRM::PositionOf(std::string_view field) const {
  const auto& columns = GoodsAsset_Store_GRD.Columns();
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [field](const auto& column) { return column->FieldName() == field; });
  return static_cast<std::size_t>(found - columns.begin());
}

// The whole, then the part, then all of it in the first unit.
void TGoodsAsset_Store_FRM::WholeAndPartFirst(const std::string& prefix) {
  for (const char* suffix : {"-2", "-3"}) {
    GoodsAsset_Store_GRD.MoveColumn(PositionOf(prefix + suffix), PositionOf(prefix + "-1"));
  }
}

// The caption of B0-2 follows the settings too, once the stock before the period is asked for.
void TGoodsAsset_Store_FRM::ApplyUnitSettings() {
  const TSettings& settings = Host().Settings().Settings();
  TSmartDBGrid_QRT& grid = GoodsAsset_Store_GRD;
  for (const char* field : {"E0-2", "A0-2"}) Offer(*grid.FindColumn(field), settings.SecondUnit);
  for (const char* field : {"E0-3", "A0-3"}) Offer(*grid.FindColumn(field), settings.WholeAndPart);
  if (settings.WholeAndPart) {
    grid.FindColumn("E0-2")->SetCaption(std::string(kOtherStores) + kWhole);
    grid.FindColumn("A0-2")->SetCaption(std::string(kTotal) + kWhole);
    for (const char* prefix : {"B0", "E0", "A0"}) WholeAndPartFirst(prefix);
  }
  for (const char* field : {"B0-1", "B0-2", "B0-3", "B0-Cost"}) grid.FindColumn(field)->SetVisible(false);
}

TGridColumn& TGoodsAsset_Store_FRM::AddStoreColumn(std::size_t at, const std::string& field,
                                                   const std::string& caption, std::string_view like,
                                                   std::int64_t store) {
  const TGridColumn& model = *GoodsAsset_Store_GRD.FindColumn(like);
  // The fields are numbered by the order of the stores; a layout is kept by their codes.
  const std::string name = "Store" + std::to_string(store) + field.substr(field.find('-'));
  TGridColumn& added = GoodsAsset_Store_GRD.InsertColumn(at, name, caption).SetFieldName(field);
  added.SetDisplayFormat(model.DisplayFormatText())
      .SetMoney(model.Money())
      .SetAutoFit(model.AutoFit())
      .SetFooter(model.Footer())
      .SetWidth(kQuantityWidth);
  added.Tag = static_cast<long>(store);
  return added;
}

// Returns where the next store goes. A part is shown only beside a second quantity.
std::size_t TGoodsAsset_Store_FRM::AddStore(std::size_t at, std::size_t number, const TComboItem& store) {
  const TSettings& settings = Host().Settings().Settings();
  const std::string prefix = "S" + std::to_string(number);
  AddStoreColumn(at++, prefix + "-1", store.Text + kQuantity, "A0-1", store.Object);
  if (settings.SecondUnit) {
    TGridColumn& second =
        AddStoreColumn(at++, prefix + "-2", store.Text + kSecondQuantity, "A0-2", store.Object);
    if (settings.WholeAndPart) {
      AddStoreColumn(at++, prefix + "-3", store.Text + kPart, "A0-3", store.Object);
      second.SetCaption(store.Text + kWhole);
      WholeAndPartFirst(prefix);
    }
  }
  TGridColumn& amount = AddStoreColumn(at++, prefix + "-Cost", store.Text + kAmount, "A0-Cost", store.Object);
  amount.SetWidth(kAmountWidth).SetFooterFormat(amount.DisplayFormatText());
  return at;
}

void TGoodsAsset_Store_FRM::BuildStoreColumns() {
  if (stores_) return;
  stores_ = dataModule_.Get_StoresTitles_SortedByCode();
  std::size_t at = PositionOf("B0-Cost") + 1;
  for (std::size_t i = 0; i < std::min(kMostStores, stores_->size()); ++i) {
    at = AddStore(at, i + 1, (*stores_)[i]);
  }
  KeepLayout(GoodsAsset_Store_GRD);
  AvalDore_CHKClick();  // whatever a layout says of the stock before the period
}

// Over rows that count the stock before their period stands the period that they were read for.
void TGoodsAsset_Store_FRM::NameBeforePeriod() {
  const bool wholeAndPart = Host().Settings().Settings().WholeAndPart;
  const StoreStockCriteria* run = RunCriteria();
  const bool ofRun = run != nullptr && run->period.countsBefore;
  const std::string date = ofRun ? run->period.from.value_or("") : Period_PNL.Date1_EDT.Text();
  const std::string title = "موجودی پیش از " + date + " ";
  const auto name = [&](const char* field, const char* caption) {
    GoodsAsset_Store_GRD.FindColumn(field)->SetCaption(title + caption);
  };
  name("B0-1", kQuantity);
  name("B0-2", wholeAndPart ? kWhole : kSecondQuantity);
  name("B0-3", kPart);
  name("B0-Cost", kAmount);
}

void TGoodsAsset_Store_FRM::AvalDore_CHKClick() {
  if (Period_PNL.AvalDore_CHK.Checked()) NameBeforePeriod();
  const TSettings& settings = Host().Settings().Settings();
  TSmartDBGrid_QRT& grid = GoodsAsset_Store_GRD;
  const bool shown = Period_PNL.CountsBefore();
  grid.FindColumn("B0-1")->SetVisible(shown);
  grid.FindColumn("B0-2")->SetVisible(settings.SecondUnit && shown);
  grid.FindColumn("B0-3")->SetVisible(settings.WholeAndPart && shown);
  grid.FindColumn("B0-Cost")->SetVisible(shown);
  FitGoodName();
}

// A fitting column takes the room that is left over, and never less than its own width. Where that is too
// narrow, such as after the user has dragged it, it gets a width of its own.
void TGoodsAsset_Store_FRM::FitGoodName() {
  TGridColumn& name = *GoodsAsset_Store_GRD.FindColumn("GoodName");
  name.SetAutoFit(true);
  if (name.Width() < kLeastNameWidth) name.SetAutoFit(false).SetWidth(kLeastNameWidth);
}

std::vector<std::int64_t> TGoodsAsset_Store_FRM::VisibleStores() const {
  std::vector<std::int64_t> stores;
  for (const TGridColumn* column : GoodsAsset_Store_GRD.VisibleColumns()) {
    if (column->FieldName().starts_with('S')) stores.push_back(column->Tag);
  }
  return stores;
}

}  // namespace goods
