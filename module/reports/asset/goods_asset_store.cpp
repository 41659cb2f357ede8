#include "module/reports/asset/goods_asset_store.h"

#include <array>
#include <utility>

#include "host/core/text.h"
#include "host/services/public_methods.h"
#include "module/data/good_transactions_dm.h"
#include "module/data/stock_card_opening.h"
#include "module/framework/report_window.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr std::size_t kMostPrintedColumns = 20;
constexpr std::string_view kTooManyColumns = "بیشتر بودن تعداد ستون های گزارش از 20 عدد ،";
constexpr std::array<std::string_view, 2> kSearchParameters{"@GoodCode", "@GoodName"};

constexpr PriceBasisStyle kPriceBasisStyle{
    .softwarePart = kPartStoreAsset,
    .levels = CostLevelList::Plain,
    .buyTab = " سطوح قیمتی &خرید ",
    .sellTab = " سطوح قیمتی &فروش ",
    .historyTab = " سابقه &ریالی ",
    .unchosenText = kCostPrice,
    .restoredPrefix = "قيمت ",
    .note = "( در صورت عدم فعال بودن ، موجودی ریالی بر اساس میانگین موزون متحرک محاسبه می شود )",
};

}  // namespace

TGoodsAsset_Store_FRM::TGoodsAsset_Store_FRM(THost& host, int formMode, Variant customParameter,
                                             std::string settingsName)
    : TBaseDock_FRM(host, "GoodsAsset_Store_FRM", formMode, std::move(customParameter),
                    std::move(settingsName)),
      dataModule_(host, this),
      pnlReport_PNL(this, "pnlReport_PNL", host, dataModule_, kPriceBasisStyle) {
  DeclareForm();
  Initialise();
}

TGoodsAsset_Store_FRM::~TGoodsAsset_Store_FRM() = default;

void TGoodsAsset_Store_FRM::FormCreate() {
  TBaseDock_FRM::FormCreate();
  DescribeWindow(*this);
  SetCommonControls(GoodsAsset_Store_GRD, PrintList_BTN, Exit_BTN, GridLayout::Own);
  SetSection("GoodsAsset_Store");
  GoodsAsset_Store_GRD.SetDataSource(&dataModule_.GoodAsset_Store.Source);
  GoodsAsset_Store_GRD.OnSortChanged = [this] {
    TADOQuery& rows = dataModule_.GoodAsset_Store.Query;
    if (rows.Active()) rows.SetSort(GetGridSort(GoodsAsset_Store_GRD));
  };
  GoodsAsset_Store_GRD.OnDblClick = [this] { btnShow_BTN.Click(); };
  Period_PNL.OnBeforeClick = [this] { AvalDore_CHKClick(); };
  Period_PNL.OnFromExit = [this] { Date1_EDTExit(); };
  Search_BTN.OnClick = [this] { Search_BTNClick(); };
  btnShow_BTN.OnClick = [this] { btnShow_BTNClick(); };
  AdvShapeButton1.OnClick = [this] { AdvShapeButton1Click(); };
  btnShow_BTN.SetEnabled(false);
  ApplyUnitSettings();
}

void TGoodsAsset_Store_FRM::FormShow() {
  TBaseDock_FRM::FormShow();
  SetShortCut(GoodsAsset_Store_GRD);
  SetPopMenu(GoodsAsset_Store_GRD);
  PrintList_BTN.SetEnabled(reportPrepared_);
  GeneralSearch_FRAME.GeneralSearch_EDT.SetFocus();
  FitGoodName();
  pnlReport_PNL.Restore();
  BuildStoreColumns();
}

void TGoodsAsset_Store_FRM::FormClose() {
  dataModule_.GoodAsset_Store.Query.Close();
  TBaseDock_FRM::FormClose();
}

void TGoodsAsset_Store_FRM::FormResize() {
  TBaseDock_FRM::FormResize();
  FitGoodName();
}

void TGoodsAsset_Store_FRM::FormKeyDown(TKey& key) {
  TBaseDock_FRM::FormKeyDown(key);
  if (key.IsCtrl(Key::F2)) {
    Press(key, Search_BTN);
  } else if (key.Is(Key::F2)) {
    Press(key, btnShow_BTN);
  }
}

// The list reads newest first.
std::string TGoodsAsset_Store_FRM::Parameters() const {
  std::string list = GeneralSearchParam(GeneralSearch_FRAME, kSearchParameters);
  if (Period_PNL.InUse()) {
    if (const auto from = Period_PNL.FromDate()) list = ADDParam(list, "@FromDate=" + QuotedStr(*from));
    if (const auto to = Period_PNL.ToDate()) list = ADDParam(list, "@ToDate=" + QuotedStr(*to));
  } else {
    list = ADDParam(list, "@FromDate=''");
    list = ADDParam(list, "@ToDate='9'");
  }
  list = ADDParam(list, "@StoreCodes =" + QuotedStr(StoreCodes()));
  const bool reverse = GeneralSearch_FRAME.GeneralSearch_Reverst_CHK.Checked();
  list = ADDParam(list, reverse ? "@Reverse =1" : "@Reverse =0");
  return ADDParam(list, Period_PNL.AvalDore_CHK.Checked() ? "@CalcBefore =1" : "@CalcBefore =0");
}

void TGoodsAsset_Store_FRM::Search_BTNClick() {
  AcceptTyping(*this);
  BuildStoreColumns();  // where the stores could not be read while the window was being shown
  RunReport();
}

void TGoodsAsset_Store_FRM::RunReport() {
  btnShow_BTN.SetEnabled(false);
  PrintList_BTN.SetEnabled(false);
  {
    const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
    dataModule_.FillStock(pnlReport_PNL.Basis(), pnlReport_PNL.BuyOrSell(), pnlReport_PNL.LevelCode());
    dataModule_.GoodAsset_Store_Fill(Parameters());
  }
  TADOQuery& rows = dataModule_.GoodAsset_Store.Query;
  if (!reportPrepared_ && !rows.IsEmpty()) rows.Last();
  reportPrepared_ = true;
  btnShow_BTN.SetEnabled(!rows.IsEmpty());
  PrintList_BTN.SetEnabled(!rows.IsEmpty());
  GoodsAsset_Store_GRD.SetEnabled(true);
  FitGoodName();
}

void TGoodsAsset_Store_FRM::Date1_EDTExit() {
  if (Period_PNL.AvalDore_CHK.Checked()) NameBeforePeriod();
}

// The stock card of the row's good, over all stores, within the period that is in use.
void TGoodsAsset_Store_FRM::btnShow_BTNClick() {
  const TADOQuery& rows = dataModule_.GoodAsset_Store.Query;
  if (!rows.RecNo()) return;
  const bool dates = Period_PNL.InUse();
  OpenStockCard(Host(), {kPartStockCard}, &dataModule_, rows.FieldByName("GoodCode").AsInteger(),
                dates ? Period_PNL.Date1_EDT.Text() : "", dates ? Period_PNL.Date2_EDT.Text() : "");
}

void TGoodsAsset_Store_FRM::AdvShapeButton1Click() { ShowPrintWarning(Host(), AdvShapeButton1, 0); }

bool TGoodsAsset_Store_FRM::PreparePrint() {
  if (GoodsAsset_Store_GRD.VisibleColumns().size() > kMostPrintedColumns) {
    Host().Messages().ShowSmartMessage(kMessageNotPossibleBecause, kTooManyColumns);
    return false;
  }
  PrintDBGridEh.Parameters = PrintDescription();
  return true;
}

// The data of a column is its field's name in brackets, for which a template puts each row's
// value; its footer is the text that the grid shows.
std::vector<std::string> TGoodsAsset_Store_FRM::PrintDescription() const {
  std::vector<std::string> description;
  for (const TGridColumn* column : GoodsAsset_Store_GRD.VisibleColumns()) {
    if (column->FieldName() == "GoodCode" || column->FieldName() == "GoodName") continue;
    description.push_back("<Cap>" + ReplaceAll(column->Caption(), "|", " - ") + "</Cap><Dat>[" +
                          column->FieldName() + "]</Dat><Fot>" + GoodsAsset_Store_GRD.FooterText(*column) +
                          "</Fot>");
  }
  return description;
}

// The printed page tells what it shows.
void TGoodsAsset_Store_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& lines) {
  TBaseDock_FRM::PrintDBGridEhBeforePrint(lines);
  const std::string basis =
      pnlReport_PNL.InUse() ? "مبنای قیمت: " + pnlReport_PNL.Report_CMB.Text() : std::string();
  const std::string filter = TGoodTransactions_DM::FarsiFilterOf(
      {GeneralSearch_FRAME.Search.FarsiText(), Period_PNL.FarsiText(), basis});
  AddFilterLine(lines, filter);
}

}  // namespace goods
