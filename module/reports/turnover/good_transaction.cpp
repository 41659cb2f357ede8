#include "module/reports/turnover/good_transaction.h"

#include <optional>
#include <utility>

#include "host/core/text.h"
#include "host/services/public_methods.h"
#include "module/framework/endings.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr std::string_view kRefreshing = "در حال به روز رسانی گزارش";

constexpr PriceBasisStyle kPriceBasisStyle{
    .softwarePart = kPartCashAsset,
    .levels = CostLevelList::WithConsumerPrice,
    .buyTab = " سطوح قیمتی خرید ",
    .sellTab = " سطوح قیمتی فروش ",
    .historyTab = " سابقه ریالی ",
    .unchosenText = "--انتخاب کنيد--",
    .restoredPrefix = "",
    .note = "(در صورت عدم فعال بودن ، موجودی ریالی بر اساس میانگین موزون متحرک محاسبه می شود)",
};

}  // namespace

TGoodTransaction_FRM::TGoodTransaction_FRM(THost& host, int formMode, Variant customParameter,
                                           std::string settingsName)
    : TReportOf(host, "GoodTransaction_FRM", formMode, std::move(customParameter), std::move(settingsName)),
      dataModule_(host, this),
      pnlReport_PNL(this, "pnlReport_PNL", host, dataModule_, kPriceBasisStyle),
      TTags1(this, "TTags1", host.Connection()) {
  DeclareForm();
  Initialise();
}

TGoodTransaction_FRM::~TGoodTransaction_FRM() = default;

void TGoodTransaction_FRM::FormCreate() {
  TReportOf::FormCreate();
  SetCommonControls(GoodTransactin_List_GRD, PrintList_BTN, EXit_BTN, GridLayout::Own);
  for (TSmartDBGrid_QRT* grid : BothGrids()) {
    grid->RightAligned = true;
    ShowRows(*grid, dataModule_.GoodTransaction.Source);
    grid->OnDblClick = [this] { Gar_BTN.Click(); };
    grid->OnDrawColumnCell = [this](std::size_t position, const TGridColumn& column, TCellStyle& style) {
      GoodTransactin_List_GRDDrawColumnCell(position, column, style);
    };
    grid->FindColumn("Jam_Kol")->SetCaption("مبلغ کل");
  }
  dataModule_.GoodTransaction.Source.OnDataChange = [this] { GoodTransactionRowChange(); };
  Groups_PNL.OnGroupChange = [this] { GoodGroup_DBGRowChange(); };
  Kala_TBC.OnChange = [this] { Kala_TBCChange(); };
  pnlReport_PNL.OnBoxClick = [this] { Stock_CHKClick(); };
  pnlReport_PNL.OnChosen = [this] { PriceBasisChosen(); };
  TTags1.Grid = &GoodTransactin_List_GRD;
  DontSavedVouchers_FRAME.OnChecked = [this] {
    if (automaticRefresh_) RefreshList();
  };

  Tags_btn.OnClick = [this] { Tags_btnClick(); };
  OnAction(Gar_BTN, [this] { Gar_BTNClick(); });
  OnAction(DetailList_BTN, [this] { DetailList_BTNClick(); });
  OnAction(Select_BTN, [this] { Select_BTNClick(); });
  Select_BTN.SetVisible(FormMode() == kFormModeChoose);
  OnAction(ADVSearch_Fram1.ADVSearch_BTN, [this] { ADVSearch_Fram1ADVSearch_BTNClick(); });
  ADVSearch_Fram1.ADVSearch_CHK.OnClick = [this] { ADVSearch_Fram1ADVSearch_CHKClick(); };

  QeratSearchManager1.SetDataSource(&dataModule_.GoodTransaction.Source);
  QeratSearchManager1.AddItem(GeneralSearch_FRAME.Search);
  QeratSearchManager1.OnSearchItems_Changed = [this] {
    if (!formShowing_) Typed(kSearchEditTyped);
  };
  QeratSearchManager1.OnCustomFilter_Proc = [this](std::string& text) {
    QeratSearchManager1CustomFilter_Proc(text);
  };
  WatchCriteria(Criteria_PNL);
}

void TGoodTransaction_FRM::OnCustomParameter(const CustomParameter& parameter) {
  reportKind_ = static_cast<int>(parameter.Integer(0));
  DescribeWindow(*this, Describe(IsMoney() ? ReportId::GoodsInMoney : ReportId::GoodsInQuantity));
  PrintOption.SoftwarePart = reportKind_;
}

TSmartDBGrid_QRT& TGoodTransaction_FRM::ShownGrid() {
  return GoodTransactin_List_GRD.Visible() ? GoodTransactin_List_GRD : GoodTransactinDetail_List_GRD;
}

std::vector<TSmartDBGrid_QRT*> TGoodTransaction_FRM::BothGrids() {
  return {&GoodTransactin_List_GRD, &GoodTransactinDetail_List_GRD};
}

std::int64_t TGoodTransaction_FRM::CurrentGood() const {
  return dataModule_.GoodTransaction.Query.FieldByName("Code").AsInteger();
}

// Everything that the list depends on is set first; then its statement runs once.
void TGoodTransaction_FRM::FormShow() {
  ListDataSet().DisableControls();
  formShowing_ = true;
  WithEnd([this] { FillWindow(); },
          [this] {
            formShowing_ = false;
            SetShown();
            // The entry point has disabled them once more.
            while (ListDataSet().ControlsDisabled()) ListDataSet().EnableControls();
          });
}

void TGoodTransaction_FRM::FillWindow() {
  TReportOf::FormShow();
  SetCaption(IsMoney() ? " موجودي ريالي " : " موجودي کالاها ");
  for (TSmartDBGrid_QRT* grid : BothGrids()) {
    SetShortCut(*grid);
    SetPopMenu(*grid);
  }
  // Told first: whatever fails below, the list can still be read by the next tab or group.
  dataModule_.GoodAsset_GetAll(false, false, 0);
  QeratSearchManager1.Script = ListDataSet().SQL();
  ApplyColumnSet();
  Open();
  ShownGrid().SetFocus();
  if (IsMoney()) DontSavedVouchers_FRAME.CheckRefresh(Host().Documents());
}

// The first reading of the list, with whatever the criteria are by now.
void TGoodTransaction_FRM::Open() {
  const auto read = [this] {
    dataModule_.GoodAsset_GetGroup();
    ADVSearch_Fram1ADVSearch_BTNClick();
    {
      const ProgramChange change(ADVSearch_Fram1.ADVSearch_CHK);
      const TSelectedListFill& lists = search_->SelectedLists();
      ADVSearch_Fram1.ADVSearch_CHK.SetChecked(!search_->HaveSelectedListPermission() ||
                                               (lists.RowCount >= 2 && lists.SelectedIndex >= 1));
    }
    SetShown();
    Run(Waiting::Silent);
  };
  if (FormMode() == kFormModeChoose) {
    read();
  } else {
    const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
    read();
  }
}

void TGoodTransaction_FRM::FormClose() {
  formShowing_ = true;
  TReportOf::FormClose();
  GeneralSearch_FRAME.GeneralSearch_EDT.Clear();
  GeneralSearch_FRAME.GeneralSearch_Reverst_CHK.SetChecked(false);
  Groups_PNL.SearchGroup_EDT.Clear();
  Tags_pnl.SetVisible(false);
  TTags1.Tags_QRY.Close();
  search_.reset();
  kept_.reset();
  for (TSmartDBGrid_QRT* grid : BothGrids()) grid->RefreshFooters();
  formShowing_ = false;
}

void TGoodTransaction_FRM::FormKeyDown(TKey& key) {
  TReportOf::FormKeyDown(key);
  if (key.Is(Key::F2)) {
    Press(key, Gar_BTN);
  } else if (key.IsCtrl(Key::F2)) {
    Press(key, DetailList_BTN);
  } else if (key.IsCtrl(Key::F10)) {
    Press(key, ADVSearch_Fram1.ADVSearch_BTN);
  } else if (key.Is(Key::F5)) {
    key.Consume();
    RefreshList();
  } else if (key.IsCtrl(Key::F11)) {
    key.Consume();
    Groups_PNL.SearchGroup_EDT.SetFocus();
  } else if (key.Is(Key::Enter) && Select_BTN.Visible() && ShownGrid().Focused()) {
    Press(key, Select_BTN);
  } else if (key.key >= Key::Digit1 && key.key <= Key::Digit9 && key.IsCtrl(key.key)) {
    const int tab = static_cast<int>(key.key) - static_cast<int>(Key::Digit1);
    key.Consume();
    if (tab >= static_cast<int>(Kala_TBC.Tabs().size())) return;
    if (tab == Kala_TBC.TabIndex()) return Run(Waiting::Shown);
    Kala_TBC.SetTabIndex(tab);
  }
}

// The values come first, and a user who is bound to saved lists sees nothing without them.
bool TGoodTransaction_FRM::MayRun() {
  if (IsMoney()) pnlReport_PNL.EnsureRestored();
  if (boundToLists_ && search_ == nullptr) {
    PrepareDialog();
    KeepCriteria();
  }
  return true;
}

GoodsListCriteria TGoodTransaction_FRM::ReadCriteria() const {
  return {
      .group = Groups_PNL.Code(),
      .groupName = Groups_PNL.GroupName(),
      .tab = Kala_TBC.TabIndex(),
      .tabName = Kala_TBC.Tabs().at(static_cast<std::size_t>(Kala_TBC.TabIndex())),
      .search = GeneralSearch_FRAME.Search,
      .dialog = AdvSearchOn() ? kept_ : std::nullopt,
  };
}

// The first reading stands under the indicator of the showing.
void TGoodTransaction_FRM::Fetch(const std::string& /*parameters*/, Waiting /*waiting*/) {
  std::optional<WaitingScope> waiting;
  if (!formShowing_) waiting.emplace(Host().Waiting(), this, kPreparingReport);
  QeratSearchManager1.ExecuteFilter_PROC();
}

void TGoodTransaction_FRM::RefreshList() {
  const auto refresh = [this] {
    if (Shown() && LastRun() != nullptr) {
      ResetDataset(ListDataSet());
    } else if (Shown()) {
      Run(Waiting::Shown);
    }
    for (TSmartDBGrid_QRT* grid : BothGrids()) grid->RefreshFooters();
  };
  if (!showWaitting_) return refresh();
  const WaitingScope waiting(Host().Waiting(), this, kRefreshing);
  refresh();
}

// The window's criteria are all that is sent; the manager's own item is one of them.
void TGoodTransaction_FRM::QeratSearchManager1CustomFilter_Proc(std::string& parameters) {
  parameters = ParametersNow();
}

void TGoodTransaction_FRM::QeratSearchManager1AfterExecute_PROC() {
  ArrangeRows();
  PlaceRow();
}

void TGoodTransaction_FRM::PlaceRow() { ListDataSet().Last(); }

void TGoodTransaction_FRM::Kala_TBCChange() { Run(Waiting::Shown); }

// The group query tells of its new rows too; those come while the window is being shown.
void TGoodTransaction_FRM::GoodGroup_DBGRowChange() { Run(Waiting::Shown); }

void TGoodTransaction_FRM::Select_BTNClick() {
  if (FormMode() == kFormModeChoose && ListDataSet().RecNo()) SetModalResult(kModalOk);
}

}  // namespace goods
