#include "module/reports/mismatch/good_detail_kardex_dismatch.h"

#include <initializer_list>
#include <utility>

#include "host/core/text.h"
#include "module/framework/parameter_text.h"
#include "module/framework/report_window.h"
#include "module/reports/mismatch/good_detail_operation_dismatch.h"

namespace goods {
namespace {

constexpr int kDifferenceItem = 1;
constexpr const char* kNoEnd = "0";

}  // namespace

TGoodDetailKardexDismatch_FRM::TGoodDetailKardexDismatch_FRM(THost& host, int formMode,
                                                             Variant customParameter,
                                                             std::string settingsName)
    : TReportOf(host, "GoodDetailKardexDismatch_FRM", formMode, std::move(customParameter),
                std::move(settingsName)),
      dataModule_(host, this) {
  DeclareForm();
  Initialise();
}

TGoodDetailKardexDismatch_FRM::TGoodDetailKardexDismatch_FRM(THost& host, int formMode,
                                                             std::string settingsName)
    : TGoodDetailKardexDismatch_FRM(host, formMode, Variant(), std::move(settingsName)) {}

TGoodDetailKardexDismatch_FRM::~TGoodDetailKardexDismatch_FRM() = default;

void TGoodDetailKardexDismatch_FRM::FormCreate() {
  TReportOf::FormCreate();
  DescribeWindow(*this);
  SetCommonControls(GoodDetailKardexDismatch_GRD, PrintList_BTN, Exit_BTN);

  ShowRows(GoodDetailKardexDismatch_GRD, dataModule_.GoodDetailKardexDismatch.Source);
  GoodDetailKardexDismatch_GRD.OnDblClick = [this] { OpenInfo_BTN.Click(); };
  TListDetail_FRAME1.DetailFields_QRT1.SetDataSource(&dataModule_.GoodDetailKardexDismatch.Source);
  OnAction(OpenInfo_BTN, [this] { OpenInfo_BTNClick(); });

  Groups_PNL.OnGroupChange = [this] { GoodGrp_DSDataChange(); };
  for (TRadioButton* radio : {&StoresTotals_RDB, &StoresSeparations_RDB}) {
    radio->OnClick = [this] { StoresTotals_RDBClick(); };
  }
  StoresTotals_LBL.OnClick = [this] { StoresTotals_LBLClick(); };
  StoresSeparations_LBL.OnClick = [this] { StoresSeparations_LBLClick(); };
  Search_PNL.OnItemChange = [this] { GoodDetailSearch_CMBChange(); };
  GoodDetailSearchAmount_CMB.OnChange = [this] { GoodDetailSearchAmount_CMBChange(); };
  for (TEdit* edit : {&FromAmount_EDT, &ToAmount_EDT}) {
    edit->OnChange = [this] { Typed(kLowerEditTyped); };
    edit->OnKeyDown = [this](TKey& key) { delayedSearch_.TakeEnter(key); };
  }
  for (TPanel* panel : {&Criteria_PNL, &Amount_PNL}) WatchCriteria(*panel);
  KeepSettings();
}

void TGoodDetailKardexDismatch_FRM::KeepSettings() {
  kept_.Keep(Search_PNL.GoodDetailSearch_CMB);
  kept_.KeepWidth(Groups_PNL);
  kept_.Keep(Groups_PNL.Groups_GRD);
  kept_.Keep(TListDetail_FRAME1.View_CMB);
}

// Everything that the report depends on is set first; then its statement runs once.
void TGoodDetailKardexDismatch_FRM::FormShow() {
  TReportOf::FormShow();
  SetShortCut(GoodDetailKardexDismatch_GRD);
  SetPopMenu(GoodDetailKardexDismatch_GRD);
  kept_.Load(Host().Settings());
  // Without its groups the report is one of all goods.
  RunUserAction(Host(), [this] { dataModule_.GoodAsset_GetGroup(); });
  ResetCriteria();
  ShowAndRun(Search_PNL.GoodDetailSearch_EDT);
}

void TGoodDetailKardexDismatch_FRM::ResetCriteria() {
  Search_PNL.ApplyItem();
  GoodDetailSearchAmount_CMB.SetItemIndex(0);
  for (TEdit* edit : {&FromAmount_EDT, &ToAmount_EDT}) edit->SetText(kNoEnd);
  StoresTotals_RDB.SetChecked(true);
  ShowDifference();
  ShowStoreColumns();
}

void TGoodDetailKardexDismatch_FRM::FormClose() {
  kept_.Save(Host().Settings());
  TReportOf::FormClose();
}

void TGoodDetailKardexDismatch_FRM::FormKeyDown(TKey& key) {
  if (key.Is(Key::F2)) {
    Press(key, OpenInfo_BTN);
  } else if (key.IsCtrl(Key::F11)) {
    key.Consume();
    Groups_PNL.SearchGroup_EDT.SetFocus();
  } else if (key.Is(Key::F10)) {
    key.Consume();
    Search_PNL.GoodDetailSearch_EDT.SetFocus();
  }
  TReportOf::FormKeyDown(key);
}

KardexDismatchCriteria TGoodDetailKardexDismatch_FRM::ReadCriteria() const {
  return {
      .group = {Groups_PNL.Code(), Groups_PNL.GroupName()},
      .storesTotalled = StoresTotals_RDB.Checked(),
      .storesSeparated = StoresSeparations_RDB.Checked(),
      .titleItem = Search_PNL.ItemIndex(),
      .title = Search_PNL.Text(),
      .difference = {GoodDetailSearchAmount_CMB.ItemIndex() == kDifferenceItem, FromAmount_EDT.TextOfValue(),
                     ToAmount_EDT.TextOfValue()},
  };
}

void TGoodDetailKardexDismatch_FRM::Fetch(const std::string& parameters, Waiting waiting) {
  dataModule_.GoodDetailKardexDismatch_GetAll(parameters, this, static_cast<int>(waiting), Shown());
}

void TGoodDetailKardexDismatch_FRM::Reset() {
  {
    resetting_ = true;
    struct Resetting {
      bool& flag;
      ~Resetting() { flag = false; }
    } const scope{resetting_};
    StoresTotals_RDB.SetChecked(true);
    ShowStoreColumns();
    if (Shown()) dataModule_.GoodAsset_GetGroup();
  }
  Run(Waiting::Shown);
}

// The group list tells of its new rows too; those come while the window is being shown or reset.
void TGoodDetailKardexDismatch_FRM::GoodGrp_DSDataChange() {
  if (!resetting_) Run(Waiting::Shown);
}

void TGoodDetailKardexDismatch_FRM::StoresTotals_RDBClick() {
  ShowStoreColumns();
  if (!resetting_) Run(Waiting::Shown);
}

// A click on a label runs the report also where its button is chosen already.
void TGoodDetailKardexDismatch_FRM::ChooseStores(TRadioButton& choice) {
  if (choice.Checked()) {
    StoresTotals_RDBClick();
  } else {
    choice.SetChecked(true);
  }
}

// Totals have no store: neither a column nor an order by one.
void TGoodDetailKardexDismatch_FRM::ShowStoreColumns() {
  const bool separated = StoresSeparations_RDB.Checked();
  TSmartDBGrid_QRT& grid = GoodDetailKardexDismatch_GRD;
  TGridColumn& code = *grid.FindColumn("StoreCode");
  TGridColumn& title = *grid.FindColumn("StoreTitle");
  code.SetCustomizable(separated);
  title.SetVisible(separated).SetCustomizable(separated);
  if (separated) return;
  code.SetVisible(false);
  std::vector<TSortKey> keys = grid.SortKeys();
  const auto removed = std::erase_if(keys, [&](const TSortKey& key) {
    return SameText(key.FieldName, code.FieldName()) || SameText(key.FieldName, title.FieldName());
  });
  if (removed > 0) grid.SetSortKeys(std::move(keys));
}

void TGoodDetailKardexDismatch_FRM::GoodDetailSearch_CMBChange() { Run(Waiting::Silent); }

void TGoodDetailKardexDismatch_FRM::GoodDetailSearchAmount_CMBChange() {
  ShowDifference();
  Run(Waiting::Silent);
}

void TGoodDetailKardexDismatch_FRM::ShowDifference() {
  const bool range = GoodDetailSearchAmount_CMB.ItemIndex() > 0;
  for (TControl* each :
       std::initializer_list<TControl*>{&FromAmount_LBL, &FromAmount_EDT, &ToAmount_LBL, &ToAmount_EDT}) {
    each->SetVisible(range);
  }
}

void TGoodDetailKardexDismatch_FRM::OpenInfo_BTNClick() {
  const TADOQuery& query = dataModule_.GoodDetailKardexDismatch.Query;
  if (!query.RecNo()) return;
  const std::int64_t good = query.FieldByName("GoodCode").AsInteger();
  const std::string title = query.FieldByName("GoodTitle").AsText();
  const std::int64_t store = query.FieldByName("StoreCode").AsInteger();
  const TGoodUnitInfo units = dataModule_.GetGoodUnitInfo(good);
  std::string parameter;
  for (const std::string& value :
       {std::to_string(good), AsPosition(title), std::to_string(units.Unit1Code), AsPosition(units.Unit2Name),
        std::to_string(units.Unit2Code), AsPosition(units.Unit1Name), std::to_string(store)}) {
    parameter += value + ";";
  }
  TGoodDetailOperationDismatch_FRM(Host(), 1, Variant(parameter), "").ShowModal();
}

}  // namespace goods
