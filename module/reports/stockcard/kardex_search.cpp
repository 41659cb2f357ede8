#include "module/reports/stockcard/kardex_search.h"

#include <utility>

#include "host/components/grid_arrangement.h"
#include "host/services/public_methods.h"
#include "module/data/stock_card_opening.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"
#include "module/framework/row_facts.h"
#include "module/framework/texts.h"
#include "module/framework/told_once.h"

namespace goods {
namespace {

constexpr const char* kNegativeMode = "1";
constexpr const char* kLayoutName = "KardexSearch";
constexpr int kNegativeLayout = 1;  // beside that of the row search, whose number the base gives: 0

}  // namespace

TKardexSearch_FRM::TKardexSearch_FRM(THost& host, int formMode, Variant customParameter,
                                     std::string settingsName)
    : TReportOf(host, "KardexSearch_FRM", formMode, std::move(customParameter), std::move(settingsName)),
      dataModule_(host, this) {
  DeclareForm();
  Initialise();
}

TKardexSearch_FRM::TKardexSearch_FRM(THost& host, int formMode, std::string settingsName)
    : TKardexSearch_FRM(host, formMode, Variant(), std::move(settingsName)) {}

TKardexSearch_FRM::~TKardexSearch_FRM() = default;

void TKardexSearch_FRM::FormCreate() {
  TReportOf::FormCreate();
  DescribeWindow(*this);
  SetCommonControls(KardexSearch_GRD, PrintReportList_BTN, Exit_BTN, GridLayout::Own);

  ShowRows(KardexSearch_GRD, dataModule_.KardexSearch.Source);
  DescribeMovements(Host(), KardexSearch_GRD, {.type = "Type", .code = "OperationCode"});
  WatchCriteria(Criteria_PNL);
  KardexSearch_GRD.OnDblClick = [this] { KardexSearch_GRDDblClick(); };
  OnAction(OpenKardex_BTN, [this] { KardexSearch_GRDDblClick(); });
  OnAction(Report_BTN, [this] { Report_BTNClick(); });
  OnAction(ADVSearch_Fram1.ADVSearch_BTN, [this] { ADVSearch_Fram1ADVSearch_BTNClick(); });
  ADVSearch_Fram1.ADVSearch_CHK.OnClick = [this] { ADVSearch_Fram1ADVSearch_CHKClick(); };

  QeratSearchManager1.SetDataSource(&dataModule_.KardexSearch.Source);
  QeratSearchManager1.AddItem(SearchComment_Frame.Search);
  QeratSearchManager1.OnSearchItems_Changed = [this] { QeratSearchManager1SearchItems_Changed(); };
  QeratSearchManager1.OnCustomFilter_Proc = [this](std::string& text) {
    QeratSearchManager1CustomFilter_Proc(text);
  };
}

void TKardexSearch_FRM::OnCustomParameter(const CustomParameter& parameter) {
  SetShortCut(KardexSearch_GRD);
  const bool negative = parameter.Count() > 0 && parameter.Text(0) == kNegativeMode;
  const ReportDescription& report = Describe(negative ? ReportId::NegativeCard : ReportId::RowSearch);
  DescribeWindow(*this, report);
  FormOptions_SFO.WindowTitle = negative ? report.title : std::string_view();
  if (negative) {
    LoadNegativeLayout();
    const WaitingScope waiting(Host().Waiting(), nullptr, kPreparingReport);
    dataModule_.KardexSearch_Fill_2(parameter.Text(1), parameter.Text(2));
    QeratSearchManager1AfterExecute_PROC();
  } else {
    KeepLayout(KardexSearch_GRD);
    dataModule_.KardexSearch_Fill_1();
  }
  QeratSearchManager1.Script = dataModule_.KardexSearch.Query.SQL();
}

// The two reports of this window have each a layout of its own.
void TKardexSearch_FRM::LoadNegativeLayout() {
  if (negativeLayout_) return;
  LoadGridSettings(KardexSearch_GRD, kLayoutName, PrintOption.SoftwarePart, kNegativeLayout);
  negativeLayout_ = ArrangementOf(KardexSearch_GRD);
}

void TKardexSearch_FRM::FormClose() {
  if (negativeLayout_ && *negativeLayout_ != ArrangementOf(KardexSearch_GRD))
    SaveGridSettings(KardexSearch_GRD, kLayoutName, PrintOption.SoftwarePart, kNegativeLayout);
  TReportOf::FormClose();
}

void TKardexSearch_FRM::FormShow() {
  TReportOf::FormShow();
  SetPopMenu(KardexSearch_GRD);
  SetShown();
  SearchComment_Frame.GeneralSearch_EDT.SetFocus();
}

void TKardexSearch_FRM::FormKeyDown(TKey& key) {
  TReportOf::FormKeyDown(key);
  if (key.IsCtrl(Key::F2)) {
    Press(key, Report_BTN);
  } else if (key.IsCtrl(Key::F10)) {
    Press(key, ADVSearch_Fram1.ADVSearch_BTN);
  } else if (key.Is(Key::F2)) {
    Press(key, OpenKardex_BTN);
  }
}

void TKardexSearch_FRM::Report_BTNClick() { Run(Waiting::Shown); }

RowSearchCriteria TKardexSearch_FRM::ReadCriteria() const {
  return {.comment = SearchComment_Frame.Search, .dialog = AdvSearchInUse() ? advanced_ : std::nullopt};
}

void TKardexSearch_FRM::Fetch(const std::string& /*parameters*/, Waiting /*waiting*/) {
  if (readByDialog_) return;
  const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
  QeratSearchManager1.ExecuteFilter_PROC();
}

void TKardexSearch_FRM::PlaceRow() { dataModule_.KardexSearch.Query.Last(); }

bool TKardexSearch_FRM::AdvSearchInUse() const {
  return ADVSearch_Fram1.ADVSearch_CHK.Checked() && advanced_;
}

void TKardexSearch_FRM::QeratSearchManager1SearchItems_Changed() {
  if (dataModule_.KardexSearch.Query.Active()) Typed(kSearchEditTyped);
}

void TKardexSearch_FRM::QeratSearchManager1CustomFilter_Proc(std::string& parameters) {
  if (AdvSearchInUse()) parameters = ADDParam(ParametersOf(*advanced_), parameters);
}

void TKardexSearch_FRM::QeratSearchManager1AfterExecute_PROC() {
  ArrangeRows();
  PlaceRow();
}

// The accepted dialog has run the procedure itself; the window only brings itself up to date.
void TKardexSearch_FRM::ADVSearch_Fram1ADVSearch_BTNClick() {
  TADOQuery& query = dataModule_.KardexSearch.Query;
  if (advSearch_ == nullptr) advSearch_ = std::make_unique<TKardexSearch_AdvSearch_FRM>(Host());
  // The dialog takes the typed text along; a dialog that is left goes back to waiting for its run.
  const bool typed = delayedSearch_.Pending();
  delayedSearch_.Cancel();
  ToldOnce(query, [&] {
    struct InProgress {
      bool& flag;
      ~InProgress() { flag = false; }
    } const scope{advSearchInProgress_ = true};
    SearchByDialog(typed);
  });
}

void TKardexSearch_FRM::SearchByDialog(bool typed) {
  advSearch_->SetUp(QeratSearchManager1.Script, &dataModule_.KardexSearch.Source,
                    QeratSearchManager1.ProcFilter());
  if (advSearch_->ShowModal() != kModalOk) {
    if (typed) Typed(kSearchEditTyped);
    return;
  }
  advanced_ = advSearch_->Criteria();
  const ProgramChange change(ADVSearch_Fram1.ADVSearch_CHK);
  ADVSearch_Fram1.ADVSearch_CHK.SetChecked(!ParametersOf(*advanced_).empty());
  readByDialog_ = true;
  struct ReadByDialog {
    bool& flag;
    ~ReadByDialog() { flag = false; }
  } const rows{readByDialog_};
  Run(Waiting::Silent);
}

void TKardexSearch_FRM::ADVSearch_Fram1ADVSearch_CHKClick() {
  if (advanced_ && !advSearchInProgress_ && !ParametersOf(*advanced_).empty()) Run(Waiting::Shown);
}

// The found row's good, over all stores and dates, for a user who may open the stock card.
void TKardexSearch_FRM::KardexSearch_GRDDblClick() {
  TADOQuery& query = dataModule_.KardexSearch.Query;
  if (!query.RecNo()) return;
  OpenStockCard(Host(), {kPartStockCard}, nullptr, query.FieldByName("Code").AsInteger());
}

}  // namespace goods
