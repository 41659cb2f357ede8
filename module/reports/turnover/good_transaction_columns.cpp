// The turnover list's columns: which are seen follows the report kind, the settings, the rights and the price
// basis.
#include "host/core/color.h"
#include "module/reports/turnover/good_transaction.h"

namespace goods {
namespace {

constexpr std::size_t kSecondUnitItem = 6;
constexpr int kTagBandInset = 5;

void Show(TSmartDBGrid_QRT& grid, std::string_view field, bool visible) {
  grid.FindColumn(field)->SetVisible(visible);
}

void Offer(TSmartDBGrid_QRT& grid, std::string_view field, bool offered) {
  grid.FindColumn(field)->SetVisible(offered).SetCustomizable(offered);
}

}  // namespace

void TGoodTransaction_FRM::ApplyColumnSet() {
  const TSettings& settings = Host().Settings().Settings();
  // The amount right is asked for; which columns are seen does not hang on it.
  if (IsMoney()) IsAllowed(Host().Rights(), kPartCashAsset, kPermissionAmounts, RightQuestion::Silent);
  stockValues_ =
      IsMoney() && IsAllowed(Host().Rights(), kPartCashAsset, kPermissionStockValues, RightQuestion::Silent);
  const bool wholeAndPart = settings.SecondUnit && settings.WholeAndPart;
  for (TSmartDBGrid_QRT* each : BothGrids()) KeepLayout(*each);
  GoodTransactin_List_GRD.SetVisible(!wholeAndPart);
  GoodTransactinDetail_List_GRD.SetVisible(wholeAndPart);
  TSmartDBGrid_QRT& grid = ShownGrid();
  SetCommonControls(grid, PrintList_BTN, EXit_BTN, GridLayout::Own);
  TTags1.Grid = &grid;

  ApplySecondUnitItem(settings.SecondUnit);
  Show(grid, "Mogodi2", settings.SecondUnit);
  Show(grid, "UnitName2", settings.SecondUnit);
  Offer(grid, "gheymat_miangin", IsMoney());
  if (wholeAndPart) grid.FindColumn("gheymat_miangin")->SetCustomizable(false);
  Offer(grid, "Jam_Kol", stockValues_);
  Show(grid, "varede", !IsMoney());
  Show(grid, "sadere", !IsMoney());
  ApplyFooterRights();
  for (TSmartDBGrid_QRT* each : BothGrids()) {
    Offer(*each, "Stock", false);
    Offer(*each, "SumStock", false);
  }
  pnlReport_PNL.Report_CMB.SetEnabled(false);
  pnlReport_PNL.SetVisible(IsMoney());
  if (IsMoney()) pnlReport_PNL.Restore();
  DetailList_BTN.SetVisible(settings.GoodsDetail);
}

void TGoodTransaction_FRM::ApplyFooterRights() {
  const bool mayTotal =
      IsAllowed(Host().Rights(), reportKind_, kPermissionStockValues, RightQuestion::Silent);
  for (TSmartDBGrid_QRT* grid : BothGrids()) {
    for (const char* field : {"SumStock", "Jam_Kol"}) {
      grid->FindColumn(field)->SetFooter(mayTotal ? FooterKind::Sum : FooterKind::None);
    }
  }
}

// The second unit's name is offered to the search while goods may have one.
void TGoodTransaction_FRM::ApplySecondUnitItem(bool secondUnit) {
  const auto& items = GeneralSearch_FRAME.Items();
  const bool offered = items[kSecondUnitItem].FieldName == "UnitName2";
  if (secondUnit && !offered) {
    GeneralSearch_FRAME.InsertItem(kSecondUnitItem, {"واحد 2", "UnitName2", DataKind::Text});
  } else if (!secondUnit && offered) {
    GeneralSearch_FRAME.RemoveItem(kSecondUnitItem);
  }
}

void TGoodTransaction_FRM::Stock_CHKClick() {
  if (pnlReport_PNL.InUse()) {
    dataModule_.FillStock(pnlReport_PNL.Basis(), pnlReport_PNL.BuyOrSell(), pnlReport_PNL.LevelCode());
  }
  if (search_ != nullptr && !pnlReport_PNL.InUse()) search_->NamePriceRange("فی");
  ShowPriceColumns();
  NamePriceColumns();
}

// A chosen basis is seen at once; its prices come with the next reading of the list.
void TGoodTransaction_FRM::PriceBasisChosen() {
  Stock_CHKClick();
  Run(Waiting::Shown);
}

// What a right hides stays hidden whatever the basis is.
void TGoodTransaction_FRM::ShowPriceColumns() {
  const bool priced = pnlReport_PNL.InUse();
  for (TSmartDBGrid_QRT* grid : BothGrids()) {
    Offer(*grid, "Stock", priced);
    Offer(*grid, "SumStock", priced);
    Offer(*grid, "gheymat_miangin", !priced);
    Offer(*grid, "Jam_Kol", !priced && stockValues_);
  }
}

void TGoodTransaction_FRM::NamePriceColumns() {
  if (!pnlReport_PNL.InUse()) return;
  for (TSmartDBGrid_QRT* grid : BothGrids()) {
    grid->FindColumn("Stock")->SetCaption("في (" + pnlReport_PNL.Report_CMB.Text() + ")");
  }
}

// A tag is a band in its colour; its text would only say the colour's name.
void TGoodTransaction_FRM::GoodTransactin_List_GRDDrawColumnCell(std::size_t position,
                                                                 const TGridColumn& column,
                                                                 TCellStyle& style) const {
  const std::string& field = column.FieldName();
  if (field != "t1" && field != "t2" && field != "t3") return;
  const TADOQuery& query = dataModule_.GoodTransaction.Query;
  const auto index = query.FindField(field);
  const Color band = index ? ParseColor(query.Cell(position, *index).AsText()).value_or(kWhite) : kWhite;
  style.Brush = band;
  style.Font = band;
  style.InsetTop = kTagBandInset;
  style.InsetBottom = kTagBandInset;
}

}  // namespace goods
