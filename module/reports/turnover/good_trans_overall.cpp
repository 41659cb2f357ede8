#include "module/reports/turnover/good_trans_overall.h"

#include <array>
#include <span>
#include <utility>

#include "host/core/text.h"
#include "host/services/public_methods.h"
#include "module/data/good_transactions_dm.h"
#include "module/data/stock_card_opening.h"
#include "module/framework/report_window.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr std::array<std::string_view, 3> kSearchParameters{"@KalaCode", "@KalaName", "@AbbName"};

// The operation columns, as the mask of each direction numbers them from its lowest bit.
constexpr std::array<std::string_view, 5> kOutgoingMask{"Sell", "ReturnBuy", "MakeOutPut", "Havale",
                                                        "kala_Hazine"};
constexpr std::array<std::string_view, 6> kIncomingMask{"Buy",   "ReturnSell",   "MakeInput",
                                                        "Resid", "kala_Daramad", "YearStart"};

// The columns whose visibility the printed list is told, in its order. YearStart, an incoming column, stands
// among the outgoing ones.
constexpr std::array<std::string_view, 14> kPrintedVisibility{
    "Sell", "ReturnBuy",  "MakeOutPut", "Havale", "kala_Hazine",  "sayer_sadere", "YearStart",
    "Buy",  "ReturnSell", "MakeInput",  "Resid",  "kala_Daramad", "sayer_varade", "sarjame_GhableDore"};

constexpr int kPrintWarningWidth = 250;

unsigned HiddenMask(const TSmartDBGrid_QRT& grid, std::span<const std::string_view> fields) {
  unsigned mask = 0;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!grid.FindColumn(fields[i])->Visible()) mask |= 1U << i;
  }
  return mask;
}

std::string WithMasks(const std::string& common, const TSmartDBGrid_QRT& grid) {
  const std::string outgoing =
      ADDParam("@script_Sadere_sayer=" + std::to_string(HiddenMask(grid, kOutgoingMask)), common);
  return ADDParam("@script_Varede_sayer=" + std::to_string(HiddenMask(grid, kIncomingMask)), outgoing);
}

std::string OneOrNought(bool value) { return value ? "1" : "0"; }

// A value as a filter text writes it.
std::string FilterLiteral(const Value& value) {
  if (value.IsNull()) return "NULL";
  return value.IsText() ? QuotedStr(value.AsText()) : value.AsText();
}

}  // namespace

TGoodTrans_Overall_FRM::TGoodTrans_Overall_FRM(THost& host, int formMode, Variant customParameter,
                                               std::string settingsName)
    : TBaseDock_FRM(host, "GoodTrans_Overall_FRM", formMode, std::move(customParameter),
                    std::move(settingsName)),
      dataModule_(host, this) {
  DeclareForm();
  Initialise();
}

TGoodTrans_Overall_FRM::~TGoodTrans_Overall_FRM() = default;

void TGoodTrans_Overall_FRM::FormCreate() {
  TBaseDock_FRM::FormCreate();
  DescribeWindow(*this);
  money_Overall_List_GRD.SetDataSource(&dataModule_.Kardex_Overall_Money.Source);
  tedad_Overall_List_GRD.SetDataSource(&dataModule_.Kardex_Overall_Tedad.Source);
  for (TSmartDBGrid_QRT* grid : {&money_Overall_List_GRD, &tedad_Overall_List_GRD}) {
    grid->OnSortChanged = [grid] {
      if (grid->DataSet()->Active()) grid->DataSet()->SetSort(GetGridSort(*grid));
    };
    grid->OnDblClick = [this] { btnShow_BTN.Click(); };
  }
  QeratSearchManager1.OnCustomFilter_DataSet = [this](std::string& filter) {
    QeratSearchManager1CustomFilter_DataSet(filter);
  };
  Mojodi_PGC.OnChange = [this] { Mojodi_PGCChange(); };
  Mojodi_PGCChange();

  Period_PNL.OnDateClick = [this] { Date_CHKClick(); };
  Period_PNL.OnBeforeClick = [this] { AvalDore_CHKClick(); };
  Search_BTN.OnClick = [this] { Search_BTNClick(); };
  btnShow_BTN.OnClick = [this] { btnShow_BTNClick(); };
  AdvShapeButton1.OnClick = [this] { AdvShapeButton1Click(); };
  btnShow_BTN.SetEnabled(false);
  PrintList_BTN.SetEnabled(false);
}

TSmartDBGrid_QRT& TGoodTrans_Overall_FRM::ShownGrid() {
  return ShowsQuantities() ? tedad_Overall_List_GRD : money_Overall_List_GRD;
}

// The shown tab is the one that is printed and filtered.
void TGoodTrans_Overall_FRM::Mojodi_PGCChange() {
  SetCommonControls(ShownGrid(), PrintList_BTN, Exit_BTN);
  QeratSearchManager1.SetDataSource(ShownGrid().DataSource());
}

void TGoodTrans_Overall_FRM::FormShow() {
  TBaseDock_FRM::FormShow();
  for (TSmartDBGrid_QRT* grid : {&money_Overall_List_GRD, &tedad_Overall_List_GRD}) {
    SetShortCut(*grid);
    SetPopMenu(*grid);
    grid->FindColumn("sarjame_GhableDore")->SetVisible(false);
    grid->SetEnabled(false);
  }
  GeneralSearch_FRAME.GeneralSearch_EDT.SetFocus();
}

void TGoodTrans_Overall_FRM::FormClose() {
  dataModule_.Kardex_Overall_Money.Query.Close();
  dataModule_.Kardex_Overall_Tedad.Query.Close();
  TBaseDock_FRM::FormClose();
}

void TGoodTrans_Overall_FRM::FormKeyDown(TKey& key) {
  TBaseDock_FRM::FormKeyDown(key);
  if (key.IsCtrl(Key::F2)) {
    Press(key, Search_BTN);
  } else if (key.Is(Key::F2)) {
    Press(key, btnShow_BTN);
  }
}

std::optional<std::string> TGoodTrans_Overall_FRM::CommonParameters() {
  std::string text = GeneralSearchParam(GeneralSearch_FRAME, kSearchParameters);
  if (Store_SESF.SelectEntity_CHK.Checked()) {
    TEdit& code = Store_SESF.TSelect_Entity_Frame1.Code_EDT;
    const std::string store = code.Value();
    if (store.empty()) {
      Host().Messages().MsgRequiredField("انبار");
      code.SetFocus();
      return std::nullopt;
    }
    text = ADDParam("@anbarcode=" + store, text);
  }
  if (Period_PNL.InUse()) {
    if (const auto from = Period_PNL.FromDate()) text = ADDParam("@FromDate=" + QuotedStr(*from), text);
    if (const auto to = Period_PNL.ToDate()) text = ADDParam("@ToDate=" + QuotedStr(*to), text);
  } else {
    text = ADDParam("@FromDate=" + QuotedStr("0000/00/00"), text);
    text = ADDParam("@ToDate=" + QuotedStr("9999/99/99"), text);
  }
  const TCheckBox& reverse = GeneralSearch_FRAME.GeneralSearch_Reverst_CHK;
  text = ADDParam("@Reverst=" + OneOrNought(reverse.Enabled() && reverse.Checked()), text);
  return ADDParam("@CalcBeforeDatePeriod=" + OneOrNought(Period_PNL.CountsBefore()), text);
}

void TGoodTrans_Overall_FRM::Search_BTNClick() {
  AcceptTyping(*this);
  if (const auto common = CommonParameters()) RunReport(*common);
}

void TGoodTrans_Overall_FRM::RunReport(const std::string& common) {
  TADOQuery& money = dataModule_.Kardex_Overall_Money.Query;
  TADOQuery& tedad = dataModule_.Kardex_Overall_Tedad.Query;
  btnShow_BTN.SetEnabled(false);
  PrintList_BTN.SetEnabled(false);
  money.SetFilter("");
  tedad.SetFilter("");
  {
    const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
    dataModule_.GoodStockAllProc(WithMasks(common, money_Overall_List_GRD),
                                 WithMasks(common, tedad_Overall_List_GRD));
  }
  for (TSmartDBGrid_QRT* grid : {&money_Overall_List_GRD, &tedad_Overall_List_GRD}) {
    grid->RefreshFooters();
    grid->SetEnabled(true);
  }
  const bool found = !money.IsEmpty() || !tedad.IsEmpty();
  btnShow_BTN.SetEnabled(found);
  PrintList_BTN.SetEnabled(found);
}

void TGoodTrans_Overall_FRM::Date_CHKClick() { Go_BTN.SetEnabled(Period_PNL.InUse()); }

void TGoodTrans_Overall_FRM::AvalDore_CHKClick() {
  for (TSmartDBGrid_QRT* grid : {&money_Overall_List_GRD, &tedad_Overall_List_GRD}) {
    grid->FindColumn("sarjame_GhableDore")->SetVisible(Period_PNL.AvalDore_CHK.Checked());
  }
}

void TGoodTrans_Overall_FRM::QeratSearchManager1CustomFilter_DataSet(std::string& filter) const {
  const TADOQuery& rows = dataModule_.Kardex_Overall_Money.Query;
  if (!rows.RecNo()) return;
  constexpr std::array<std::pair<std::string_view, std::string_view>, 3> conditions{
      {{"(Kalaname = ", "Kalaname"}, {"(KalaCode = ", "KalaCode"}, {"(Anbar= ", "Anbar"}}};
  const int item = GeneralSearch_FRAME.GeneralSearch_CMB.ItemIndex();
  if (item < 0 || static_cast<std::size_t>(item) >= conditions.size()) return;
  const auto& [head, field] = conditions[static_cast<std::size_t>(item)];
  filter = AddFilter(filter, std::string(head) + FilterLiteral(rows.FieldByName(field)) + ")");
}

// The stock card of the shown tab's good, over all stores and dates.
void TGoodTrans_Overall_FRM::btnShow_BTNClick() {
  const TADOQuery* rows = ShownGrid().DataSet();
  if (!rows->RecNo()) return;
  OpenStockCard(Host(), {kPartOverallTurnover}, &dataModule_, rows->FieldByName("KalaCode").AsInteger());
}

void TGoodTrans_Overall_FRM::AdvShapeButton1Click() {
  ShowPrintWarning(Host(), AdvShapeButton1, kPrintWarningWidth);
}

bool TGoodTrans_Overall_FRM::PreparePrint() {
  PrintDBGridEh.Parameters = PrintParameters();
  return true;
}

std::vector<std::string> TGoodTrans_Overall_FRM::PrintParameters() {
  const TSettings& settings = Host().Settings().Settings();
  const TSmartDBGrid_QRT& grid = ShownGrid();
  const bool before = Period_PNL.AvalDore_CHK.Checked();
  const bool dates = Period_PNL.InUse();
  const std::string& from = Period_PNL.Date1_EDT.Text();
  const std::string& to = Period_PNL.Date2_EDT.Text();
  const int decimals = ShowsQuantities() ? settings.QuantityDecimals : settings.AmountDecimals;

  std::vector<std::string> parameters;
  parameters.emplace_back(ShowsQuantities() ? "1" : "2");
  parameters.push_back((ShowsQuantities() ? "#0." : "#,##0.") +
                       std::string(static_cast<std::size_t>(decimals), '#'));
  parameters.push_back(OneOrNought(before));
  for (const std::string_view field : kPrintedVisibility) {
    parameters.push_back(OneOrNought(grid.FindColumn(field)->Visible()));
  }
  parameters.push_back(std::to_string(grid.VisibleColumns().size()));
  if (dates && before) {
    parameters.push_back(" تا تاریخ " + from);
  } else {
    parameters.push_back(dates ? " از تاریخ " + from + " تا تاریخ " + to : "");
  }
  parameters.push_back(Store_SESF.InUse() ? "انبار  : " + Store_SESF.TSelect_Entity_Frame1.EntityName() : "");
  parameters.push_back(dates && before ? " " + from : "");
  return parameters;
}

// The printed page tells what it shows.
void TGoodTrans_Overall_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& lines) {
  TBaseDock_FRM::PrintDBGridEhBeforePrint(lines);
  const std::string store =
      Store_SESF.InUse() ? "انبار: " + Store_SESF.TSelect_Entity_Frame1.EntityName() : std::string();
  const std::string filter = TGoodTransactions_DM::FarsiFilterOf(
      {GeneralSearch_FRAME.Search.FarsiText(), store, Period_PNL.FarsiText()});
  AddFilterLine(lines, filter);
}

}  // namespace goods
