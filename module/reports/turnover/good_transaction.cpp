#include "module/reports/turnover/good_transaction.h"

#include <utility>

#include "host/core/text.h"
#include "host/services/public_methods.h"
#include "module/data/good_transactions_dm.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr std::string_view kRefreshing = "در حال به روز رسانی گزارش";
constexpr int kAllGoodsTab = 5;

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
    : TBaseDock_FRM(host, "GoodTransaction_FRM", formMode, std::move(customParameter),
                    std::move(settingsName)),
      dataModule_(host, this),
      pnlReport_PNL(this, "pnlReport_PNL", host, dataModule_, kPriceBasisStyle),
      TTags1(this, "TTags1", host.Connection()),
      delayedSearch_(*this, [this] { RunList(); }) {
  DeclareForm();
  Initialise();
}

TGoodTransaction_FRM::~TGoodTransaction_FRM() = default;

void TGoodTransaction_FRM::FormCreate() {
  TBaseDock_FRM::FormCreate();
  SetCommonControls(GoodTransactin_List_GRD, PrintList_BTN, EXit_BTN, GridLayout::Own);
  for (TSmartDBGrid_QRT* grid : BothGrids()) {
    grid->RightAligned = true;
    grid->SetDataSource(&dataModule_.GoodTransaction.Source);
    grid->OnSortChanged = [this, grid] {
      if (ListDataSet().Active()) ListDataSet().SetSort(GetGridSort(*grid));
    };
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
  Gar_BTN.OnClick = [this] {
    AcceptTyping(*this);
    Gar_BTNClick();
  };
  DetailList_BTN.OnClick = [this] {
    AcceptTyping(*this);
    DetailList_BTNClick();
  };
  Select_BTN.OnClick = [this] {
    AcceptTyping(*this);
    Select_BTNClick();
  };
  Select_BTN.SetVisible(FormMode() == kFormModeChoose);
  ADVSearch_Fram1.ADVSearch_BTN.OnClick = [this] { ADVSearch_Fram1ADVSearch_BTNClick(); };
  ADVSearch_Fram1.ADVSearch_CHK.OnClick = [this] { ADVSearch_Fram1ADVSearch_CHKClick(); };

  QeratSearchManager1.SetDataSource(&dataModule_.GoodTransaction.Source);
  QeratSearchManager1.AddItem(GeneralSearch_FRAME.Search);
  QeratSearchManager1.OnSearchItems_Changed = [this] {
    if (!formShowing_) delayedSearch_.Typed(kSearchEditTyped);
  };
  QeratSearchManager1.OnCustomFilter_Proc = [this](std::string& text) {
    QeratSearchManager1CustomFilter_Proc(text);
  };
  QeratSearchManager1.OnAfterExecute_PROC = [this] { QeratSearchManager1AfterExecute_PROC(); };
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
  struct Scope {
    TGoodTransaction_FRM& window;
    explicit Scope(TGoodTransaction_FRM& owner) : window(owner) {
      window.ListDataSet().DisableControls();
      window.formShowing_ = true;
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    // The entry point has disabled them once more.
    ~Scope() {
      window.formShowing_ = false;
      while (window.ListDataSet().ControlsDisabled()) window.ListDataSet().EnableControls();
    }
  } const scope(*this);

  TBaseDock_FRM::FormShow();
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
    QeratSearchManager1.ExecuteFilter_PROC();
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
  delayedSearch_.Cancel();
  ListDataSet().Close();
  GeneralSearch_FRAME.GeneralSearch_EDT.Clear();
  GeneralSearch_FRAME.GeneralSearch_Reverst_CHK.SetChecked(false);
  Groups_PNL.SearchGroup_EDT.Clear();
  Tags_pnl.SetVisible(false);
  TTags1.Tags_QRY.Close();
  search_.reset();
  kept_ = {};
  for (TSmartDBGrid_QRT* grid : BothGrids()) grid->RefreshFooters();
  formShowing_ = false;
  TBaseDock_FRM::FormClose();
}

void TGoodTransaction_FRM::FormKeyDown(TKey& key) {
  TBaseDock_FRM::FormKeyDown(key);
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
    if (tab == Kala_TBC.TabIndex()) return RunList();
    Kala_TBC.SetTabIndex(tab);
  }
}

void TGoodTransaction_FRM::WindowMessage(int code) {
  delayedSearch_.Handle(code, &GeneralSearch_FRAME.GeneralSearch_EDT);
}

void TGoodTransaction_FRM::RunList() {
  delayedSearch_.Cancel();  // a run reads every criterion as it stands
  const DelayedSearch::RunScope running(delayedSearch_);
  if (formShowing_ || !Showing()) return;
  if (IsMoney()) pnlReport_PNL.EnsureRestored();
  const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
  ReadList();
}

// The reading makes the first row current and then the last: whoever watches the rows is told once, of the
// last. No scope guard, because the watchers may throw.
void TGoodTransaction_FRM::ReadList() {
  ListDataSet().DisableControls();
  try {
    QeratSearchManager1.ExecuteFilter_PROC();
  } catch (...) {
    ListDataSet().EnableControls();
    throw;
  }
  ListDataSet().EnableControls();
}

void TGoodTransaction_FRM::RefreshList() {
  const auto refresh = [this] {
    if (!formShowing_ && Showing()) ResetDataset(ListDataSet());
    for (TSmartDBGrid_QRT* grid : BothGrids()) grid->RefreshFooters();
  };
  if (!showWaitting_) return refresh();
  const WaitingScope waiting(Host().Waiting(), this, kRefreshing);
  refresh();
}

void TGoodTransaction_FRM::QeratSearchManager1CustomFilter_Proc(std::string& parameters) {
  std::string text;
  if (Groups_PNL.Code() != 0) text = "@GrpCode = " + std::to_string(Groups_PNL.Code());
  if (Kala_TBC.TabIndex() < kAllGoodsTab) {
    text = ADDParam("@GoodExistType = " + std::to_string(Kala_TBC.TabIndex() + 1), text);
  }
  text = ADDParam(parameters, text);
  if (AdvSearchOn() && search_ != nullptr) {
    const bool storeGiven = search_->Store_Frame.SelectEntity_CHK.Checked() &&
                            !search_->Store_Frame.TSelect_Entity_Frame1.Code_EDT.Text().empty();
    if (search_->Period_PNL.InUse() || storeGiven) search_->Go_BTNClick();
    text = ADDParam(DeleteParam(kept_.parameters, "@GrpCode"), text);
  }
  parameters = std::move(text);
}

void TGoodTransaction_FRM::QeratSearchManager1AfterExecute_PROC() {
  ListDataSet().SetSort(GetGridSort(ShownGrid()));
  for (TSmartDBGrid_QRT* grid : BothGrids()) grid->RefreshFooters();
  if (!ListDataSet().IsEmpty()) ListDataSet().Last();
}

void TGoodTransaction_FRM::Kala_TBCChange() { RunList(); }

// The group query tells of its new rows too; those come while the window is being shown.
void TGoodTransaction_FRM::GoodGroup_DBGRowChange() { RunList(); }

void TGoodTransaction_FRM::Select_BTNClick() {
  if (FormMode() == kFormModeChoose && ListDataSet().RecNo()) SetModalResult(kModalOk);
}

// The printed page tells what it shows.
void TGoodTransaction_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& lines) {
  TBaseDock_FRM::PrintDBGridEhBeforePrint(lines);
  std::vector<std::string> criteria;
  if (Groups_PNL.Code() != 0) criteria.push_back("گروه کالا : " + Groups_PNL.GroupName());
  if (Kala_TBC.TabIndex() < kAllGoodsTab) {
    criteria.emplace_back(Trim(Kala_TBC.Tabs()[static_cast<std::size_t>(Kala_TBC.TabIndex())]));
  }
  const auto add = [&criteria](std::vector<std::string> texts) {
    criteria.insert(criteria.end(), texts.begin(), texts.end());
  };
  add(QeratSearchManager1.FarsiTexts());
  if (AdvSearchOn() && search_ != nullptr) add(search_->FarsiTexts());
  const std::string filter = TGoodTransactions_DM::FarsiFilterOf(criteria);
  AddFilterLine(lines, filter);
}

}  // namespace goods
