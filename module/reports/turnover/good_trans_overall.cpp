#include "module/reports/turnover/good_trans_overall.h"

#include <array>
#include <span>
#include <utility>

#include "host/core/text.h"
#include "host/services/public_methods.h"
#include "module/data/stock_card_opening.h"
#include "module/framework/report_window.h"
#include "module/framework/run_period.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

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

HiddenColumns HiddenIn(const TSmartDBGrid_QRT& grid) {
  return {HiddenMask(grid, kOutgoingMask), HiddenMask(grid, kIncomingMask)};
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
    : TReportOf(host, "GoodTrans_Overall_FRM", formMode, std::move(customParameter), std::move(settingsName)),
      dataModule_(host, this) {
  DeclareForm();
  Initialise();
}

TGoodTrans_Overall_FRM::~TGoodTrans_Overall_FRM() = default;

void TGoodTrans_Overall_FRM::FormCreate() {
  TReportOf::FormCreate();
  DescribeWindow(*this);
  ShowRows(money_Overall_List_GRD, dataModule_.Kardex_Overall_Money.Source);
  ShowRows(tedad_Overall_List_GRD, dataModule_.Kardex_Overall_Tedad.Source);
  for (TSmartDBGrid_QRT* grid : {&money_Overall_List_GRD, &tedad_Overall_List_GRD}) {
    grid->OnDblClick = [this] { btnShow_BTN.Click(); };
    columns_.push_back(grid->Changed.Connect([this] { UpdateHint(); }));
  }
  for (TPanel* panel : {&Criteria_PNL, &Report_PNL}) WatchCriteria(*panel);
  QeratSearchManager1.OnCustomFilter_DataSet = [this](std::string& filter) {
    QeratSearchManager1CustomFilter_DataSet(filter);
  };
  // Both from the start: what is hidden on a tab counts before the tab is opened.
  for (TSmartDBGrid_QRT* grid : {&money_Overall_List_GRD, &tedad_Overall_List_GRD}) KeepLayout(*grid);
  Mojodi_PGC.OnChange = [this] { Mojodi_PGCChange(); };
  Mojodi_PGCChange();

  Period_PNL.OnDateClick = [this] { Date_CHKClick(); };
  Period_PNL.OnBeforeClick = [this] { AvalDore_CHKClick(); };
  OnAction(Search_BTN, [this] { Search_BTNClick(); });
  OnAction(btnShow_BTN, [this] { btnShow_BTNClick(); });
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
  TReportOf::FormShow();
  for (TSmartDBGrid_QRT* grid : {&money_Overall_List_GRD, &tedad_Overall_List_GRD}) {
    SetShortCut(*grid);
    SetPopMenu(*grid);
    grid->FindColumn("sarjame_GhableDore")->SetVisible(false);
    grid->SetEnabled(false);
  }
  SetShown();
  GeneralSearch_FRAME.GeneralSearch_EDT.SetFocus();
}

void TGoodTrans_Overall_FRM::FormKeyDown(TKey& key) {
  TReportOf::FormKeyDown(key);
  if (key.IsCtrl(Key::F2)) {
    Press(key, Search_BTN);
  } else if (key.Is(Key::F2)) {
    Press(key, btnShow_BTN);
  }
}

bool TGoodTrans_Overall_FRM::MayRun() {
  TEdit& code = Store_SESF.TSelect_Entity_Frame1.Code_EDT;
  if (!Store_SESF.SelectEntity_CHK.Checked() || !code.Value().empty()) return true;
  Host().Messages().MsgRequiredField("انبار");
  code.SetFocus();
  return false;
}

OverallCriteria TGoodTrans_Overall_FRM::ReadCriteria() const {
  const TSelect_Entity_Frame& store = Store_SESF.TSelect_Entity_Frame1;
  const bool byStore = Store_SESF.SelectEntity_CHK.Checked();
  return {
      .search = GeneralSearchOf(GeneralSearch_FRAME),
      .store = byStore ? store.Code_EDT.Value() : std::string(),
      .storeName = Store_SESF.InUse() ? store.EntityName() : std::string(),
      .period = Period_PNL.Criteria(),
      .amounts = HiddenIn(money_Overall_List_GRD),
      .quantities = HiddenIn(tedad_Overall_List_GRD),
  };
}

void TGoodTrans_Overall_FRM::Search_BTNClick() {
  Run(Waiting::Shown);
  const bool found =
      !dataModule_.Kardex_Overall_Money.Query.IsEmpty() || !dataModule_.Kardex_Overall_Tedad.Query.IsEmpty();
  for (TSmartDBGrid_QRT* grid : {&money_Overall_List_GRD, &tedad_Overall_List_GRD}) {
    grid->SetEnabled(LastRun() != nullptr);
  }
  btnShow_BTN.SetEnabled(found);
  PrintList_BTN.SetEnabled(found);
}

void TGoodTrans_Overall_FRM::Fetch(const std::string& /*parameters*/, Waiting /*waiting*/) {
  const OverallCriteria asked = ReadCriteria();
  btnShow_BTN.SetEnabled(false);
  PrintList_BTN.SetEnabled(false);
  dataModule_.Kardex_Overall_Money.Query.SetFilter("");
  dataModule_.Kardex_Overall_Tedad.Query.SetFilter("");
  const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
  dataModule_.GoodStockAllProc(AmountParametersOf(asked), QuantityParametersOf(asked));
}

std::optional<ReportPeriod> TGoodTrans_Overall_FRM::PeriodOfRows() const {
  if (RunCriteria() == nullptr) return std::nullopt;
  return PeriodOfRun(RunCriteria()->period);
}

std::string_view TGoodTrans_Overall_FRM::KeyField(const TSmartDBGrid_QRT& /*grid*/) const {
  return "KalaCode";
}

void TGoodTrans_Overall_FRM::ReadPeriod(const TSmartDBGrid_QRT& grid, const ReportPeriod& period,
                                        TADOQuery& into) {
  OverallCriteria asked = *RunCriteria();
  asked.period = ForOtherPeriod(asked.period, period);
  into.SetSQL(&grid == &tedad_Overall_List_GRD
                  ? OverallTurnoverData::QuantityStatement(QuantityParametersOf(asked))
                  : OverallTurnoverData::AmountStatement(AmountParametersOf(asked)));
  into.Open();
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
  const OverallCriteria asked = RunCriteria() != nullptr ? *RunCriteria() : ReadCriteria();
  const bool before = asked.period.countsBefore;
  const bool dates = asked.period.inUse;
  const std::string from = asked.period.from.value_or("");
  const std::string to = asked.period.to.value_or("");
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
  parameters.push_back(asked.storeName.empty() ? "" : "انبار  : " + asked.storeName);
  parameters.push_back(dates && before ? " " + from : "");
  return parameters;
}

}  // namespace goods
