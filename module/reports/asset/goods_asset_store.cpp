#include "module/reports/asset/goods_asset_store.h"

#include <utility>

#include "host/core/text.h"
#include "host/services/public_methods.h"
#include "module/data/stock_card_opening.h"
#include "module/framework/report_window.h"
#include "module/framework/run_period.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr std::size_t kMostPrintedColumns = 20;
constexpr std::string_view kTooManyColumns = "بیشتر بودن تعداد ستون های گزارش از 20 عدد ،";

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
    : TReportOf(host, "GoodsAsset_Store_FRM", formMode, std::move(customParameter), std::move(settingsName)),
      dataModule_(host, this),
      pnlReport_PNL(this, "pnlReport_PNL", host, dataModule_, kPriceBasisStyle) {
  DeclareForm();
  Initialise();
}

TGoodsAsset_Store_FRM::~TGoodsAsset_Store_FRM() = default;

void TGoodsAsset_Store_FRM::FormCreate() {
  TReportOf::FormCreate();
  DescribeWindow(*this);
  SetCommonControls(GoodsAsset_Store_GRD, PrintList_BTN, Exit_BTN, GridLayout::Own);
  SetSection("GoodsAsset_Store");
  ShowRows(GoodsAsset_Store_GRD, dataModule_.GoodAsset_Store.Source);
  GoodsAsset_Store_GRD.OnDblClick = [this] { btnShow_BTN.Click(); };
  Period_PNL.OnBeforeClick = [this] { AvalDore_CHKClick(); };
  Period_PNL.OnFromExit = [this] { Date1_EDTExit(); };
  OnAction(Search_BTN, [this] { Search_BTNClick(); });
  OnAction(btnShow_BTN, [this] { btnShow_BTNClick(); });
  for (TPanel* panel : {&Criteria_PNL, &Report_PNL}) WatchCriteria(*panel);
  columns_ = GoodsAsset_Store_GRD.Changed.Connect([this] { UpdateHint(); });
  AdvShapeButton1.OnClick = [this] { AdvShapeButton1Click(); };
  btnShow_BTN.SetEnabled(false);
  ApplyUnitSettings();
}

void TGoodsAsset_Store_FRM::FormShow() {
  TReportOf::FormShow();
  SetShortCut(GoodsAsset_Store_GRD);
  SetPopMenu(GoodsAsset_Store_GRD);
  PrintList_BTN.SetEnabled(reportPrepared_);
  GeneralSearch_FRAME.GeneralSearch_EDT.SetFocus();
  FitGoodName();
  SetShown();
  pnlReport_PNL.Restore();
  BuildStoreColumns();
}

void TGoodsAsset_Store_FRM::FormResize() {
  TReportOf::FormResize();
  FitGoodName();
}

void TGoodsAsset_Store_FRM::FormKeyDown(TKey& key) {
  TReportOf::FormKeyDown(key);
  if (key.IsCtrl(Key::F2)) {
    Press(key, Search_BTN);
  } else if (key.Is(Key::F2)) {
    Press(key, btnShow_BTN);
  }
}

StoreStockCriteria TGoodsAsset_Store_FRM::ReadCriteria() const {
  return {
      .search = GeneralSearchOf(GeneralSearch_FRAME),
      .period = Period_PNL.Criteria(),
      .stores = VisibleStores(),
      .priceBasis = pnlReport_PNL.Basis(),
      .buyOrSell = pnlReport_PNL.BuyOrSell(),
      .priceLevel = pnlReport_PNL.LevelCode(),
      .basisName = pnlReport_PNL.InUse() ? pnlReport_PNL.Report_CMB.Text() : std::string(),
  };
}

void TGoodsAsset_Store_FRM::Search_BTNClick() {
  // Where they could not be read while the window was being shown.
  pnlReport_PNL.EnsureRestored();
  BuildStoreColumns();
  Run(Waiting::Shown);
  if (LastRun() == nullptr) return;
  reportPrepared_ = true;
  const bool found = !dataModule_.GoodAsset_Store.Query.IsEmpty();
  btnShow_BTN.SetEnabled(found);
  PrintList_BTN.SetEnabled(found);
  GoodsAsset_Store_GRD.SetEnabled(true);
  if (RunCriteria()->period.countsBefore) NameBeforePeriod();
  FitGoodName();
}

void TGoodsAsset_Store_FRM::Fetch(const std::string& /*parameters*/, Waiting /*waiting*/) {
  const StoreStockCriteria asked = ReadCriteria();
  btnShow_BTN.SetEnabled(false);
  PrintList_BTN.SetEnabled(false);
  const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
  dataModule_.FillStock(asked.priceBasis, asked.buyOrSell, asked.priceLevel);
  dataModule_.GoodAsset_Store_Fill(StockParametersOf(asked));
}

std::optional<ReportPeriod> TGoodsAsset_Store_FRM::PeriodOfRows() const {
  if (RunCriteria() == nullptr) return std::nullopt;
  return PeriodOfRun(RunCriteria()->period);
}

std::string_view TGoodsAsset_Store_FRM::KeyField(const TSmartDBGrid_QRT& /*grid*/) const {
  return "GoodCode";
}

// Another report may have prepared prices of its own in the meantime.
void TGoodsAsset_Store_FRM::ReadPeriod(const TSmartDBGrid_QRT& /*grid*/, const ReportPeriod& period,
                                       TADOQuery& into) {
  StoreStockCriteria asked = *RunCriteria();
  asked.period = ForOtherPeriod(asked.period, period);
  dataModule_.FillStock(asked.priceBasis, asked.buyOrSell, asked.priceLevel);
  into.SetSQL(StoreStockData::StockStatement(StockParametersOf(asked)));
  into.Open();
}

// The first run ends on its last row.
void TGoodsAsset_Store_FRM::PlaceRow() {
  TReportOf::PlaceRow();
  if (!reportPrepared_) dataModule_.GoodAsset_Store.Query.Last();
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
                dates ? Period_PNL.FromDate().value_or("") : "",
                dates ? Period_PNL.ToDate().value_or("") : "");
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

}  // namespace goods
