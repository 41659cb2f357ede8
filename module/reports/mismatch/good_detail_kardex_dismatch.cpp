#include "module/reports/mismatch/good_detail_kardex_dismatch.h"

#include <array>
#include <initializer_list>
#include <utility>

#include "host/core/text.h"
#include "module/framework/parameter_text.h"
#include "module/framework/report_window.h"
#include "module/reports/mismatch/good_detail_operation_dismatch.h"

namespace goods {
namespace {

constexpr int kWithoutWaiting = 0;
constexpr int kWithWaiting = 1;
constexpr int kDifferenceItem = 1;
constexpr std::string_view kNotGiven = "0";

struct TitleParameter {
  std::string_view name;
  bool quoted;
  std::string_view caption;
};

// By the item of the column search.
constexpr std::array kTitleParameters = std::to_array<TitleParameter>({
    {"@GoodCode", false, "کد کالا : "},
    {"@GoodName", true, "نام کالا : "},
    {"@Store", false, "کد انبار : "},
    {"@StoreName", true, "انبار : "},
});

}  // namespace

TGoodDetailKardexDismatch_FRM::TGoodDetailKardexDismatch_FRM(THost& host, int formMode,
                                                             Variant customParameter,
                                                             std::string settingsName)
    : TBaseDock_FRM(host, "GoodDetailKardexDismatch_FRM", formMode, std::move(customParameter),
                    std::move(settingsName)),
      dataModule_(host, this),
      delayedSearch_(*this, [this] { RunReport(kWithoutWaiting); }) {
  DeclareForm();
  Initialise();
}

TGoodDetailKardexDismatch_FRM::TGoodDetailKardexDismatch_FRM(THost& host, int formMode,
                                                             std::string settingsName)
    : TGoodDetailKardexDismatch_FRM(host, formMode, Variant(), std::move(settingsName)) {}

TGoodDetailKardexDismatch_FRM::~TGoodDetailKardexDismatch_FRM() = default;

void TGoodDetailKardexDismatch_FRM::FormCreate() {
  TBaseDock_FRM::FormCreate();
  FormOptions_SFO.ComponentSoftwarePart = cspGoodDetail;
  PrintOption.SoftwarePart = kPartGoodDetail;
  SetCommonControls(GoodDetailKardexDismatch_GRD, PrintList_BTN, Exit_BTN);

  TSmartDBGrid_QRT& grid = GoodDetailKardexDismatch_GRD;
  grid.SetDataSource(&dataModule_.GoodDetailKardexDismatch.Source);
  grid.OnSortChanged = [this] { GoodDetailKardexDismatch_GRDSortChanged(); };
  grid.OnDblClick = [this] { OpenInfo_BTN.Click(); };
  TListDetail_FRAME1.DetailFields_QRT1.SetDataSource(&dataModule_.GoodDetailKardexDismatch.Source);
  OpenInfo_BTN.OnClick = [this] { OpenInfo_BTNClick(); };

  Groups_PNL.OnGroupChange = [this] { GoodGrp_DSDataChange(); };
  for (TRadioButton* radio : {&StoresTotals_RDB, &StoresSeparations_RDB}) {
    radio->OnClick = [this] { StoresTotals_RDBClick(); };
  }
  StoresTotals_LBL.OnClick = [this] { StoresTotals_LBLClick(); };
  StoresSeparations_LBL.OnClick = [this] { StoresSeparations_LBLClick(); };
  Search_PNL.OnItemChange = [this] { GoodDetailSearch_CMBChange(); };
  GoodDetailSearchAmount_CMB.OnChange = [this] { GoodDetailSearchAmount_CMBChange(); };
  for (TEdit* edit : {&FromAmount_EDT, &ToAmount_EDT}) {
    edit->OnChange = [this] { delayedSearch_.Typed(kLowerEditTyped); };
    edit->OnKeyDown = [this](TKey& key) { delayedSearch_.TakeEnter(key); };
  }
  delayedSearch_.OnHurried = [this] {
    if (!dataModule_.GoodDetailKardexDismatch.Query.IsEmpty()) GoodDetailKardexDismatch_GRD.SetFocus();
  };
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
  TBaseDock_FRM::FormShow();
  SetShortCut(GoodDetailKardexDismatch_GRD);
  SetPopMenu(GoodDetailKardexDismatch_GRD);
  kept_.Load(Host().Settings());
  // Without its groups the report is one of all goods.
  RunUserAction(Host(), [this] { dataModule_.GoodAsset_GetGroup(); });
  Search_PNL.ApplyItem();
  GoodDetailSearch_CMBChange();
  GoodDetailSearchAmount_CMBChange();
  StoresTotals_RDBClick();
  shown_ = true;
  Search_PNL.GoodDetailSearch_EDT.SetFocus();
  RunReport(kWithoutWaiting);
}

void TGoodDetailKardexDismatch_FRM::FormClose() {
  shown_ = false;
  delayedSearch_.Cancel();
  dataModule_.GoodDetailKardexDismatch.Query.Close();
  kept_.Save(Host().Settings());
  TBaseDock_FRM::FormClose();
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
  TBaseDock_FRM::FormKeyDown(key);
}

// The three edits post the same message; the one that is typed in has the focus.
void TGoodDetailKardexDismatch_FRM::WindowMessage(int code) {
  delayedSearch_.Handle(code, dynamic_cast<TEdit*>(ActiveControl()));
}

void TGoodDetailKardexDismatch_FRM::SetProcParams(std::string& parameters) {
  parameters.clear();
  filterDescription_.clear();
  if (!shown_) return;
  CriteriaText criteria;
  if (Groups_PNL.Code() != 0) {
    criteria.Add("@GoodGroupCode", std::to_string(Groups_PNL.Code()));
    criteria.Say("گروه کالا : " + Groups_PNL.CodeAndName());
  }
  if (StoresTotals_RDB.Checked()) {
    criteria.Add("@StoreSeparation", "0");
  } else if (StoresSeparations_RDB.Checked()) {
    criteria.Add("@StoreSeparation", "1");
  }
  AddTitle(criteria);
  AddAmounts(criteria);
  parameters = std::move(criteria.parameters);
  filterDescription_ = std::move(criteria.caption);
}

void TGoodDetailKardexDismatch_FRM::AddTitle(CriteriaText& criteria) const {
  const std::string& text = Search_PNL.Text();
  if (text.empty()) return;
  const TitleParameter& parameter = kTitleParameters.at(static_cast<std::size_t>(Search_PNL.ItemIndex()));
  criteria.Add(parameter.name, parameter.quoted ? QuotedStr(text) : text);
  criteria.Say(std::string(parameter.caption) + text);
}

// An upper end of "0" switches the range off, whatever the lower one is.
void TGoodDetailKardexDismatch_FRM::AddAmounts(CriteriaText& criteria) const {
  const std::string& from = FromAmount_EDT.Text();
  const std::string& to = ToAmount_EDT.Text();
  if (GoodDetailSearchAmount_CMB.ItemIndex() != kDifferenceItem || to == kNotGiven) return;
  criteria.Add("@FromDiffAsset", ReplaceAll(from, ",", ""));
  criteria.Add("@ToDiffAsset", ReplaceAll(to, ",", ""));
  criteria.Say("برآیند اختلاف موجودی از : " + from + " تا: " + to);
}

// A run reads every criterion as it stands, so what waits for the typing to end has nothing left to do.
void TGoodDetailKardexDismatch_FRM::RunReport(int mode) {
  if (resetting_) return;
  delayedSearch_.Cancel();
  std::string parameters;
  SetProcParams(parameters);
  dataModule_.GoodDetailKardexDismatch_GetAll(parameters, this, mode, shown_);
  GoodDetailKardexDismatch_GRDSortChanged();
  GoodDetailKardexDismatch_GRD.RefreshFooters();
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
    if (shown_) dataModule_.GoodAsset_GetGroup();
  }
  RunReport(kWithWaiting);
  filterDescription_.clear();
}

// The group list tells of its new rows too; those come while the window is being shown or reset.
void TGoodDetailKardexDismatch_FRM::GoodGrp_DSDataChange() { RunReport(kWithWaiting); }

void TGoodDetailKardexDismatch_FRM::StoresTotals_RDBClick() {
  ShowStoreColumns();
  RunReport(kWithWaiting);
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

void TGoodDetailKardexDismatch_FRM::GoodDetailSearch_CMBChange() { RunReport(kWithoutWaiting); }

void TGoodDetailKardexDismatch_FRM::GoodDetailSearchAmount_CMBChange() {
  const bool range = GoodDetailSearchAmount_CMB.ItemIndex() > 0;
  for (TControl* each :
       std::initializer_list<TControl*>{&FromAmount_LBL, &FromAmount_EDT, &ToAmount_LBL, &ToAmount_EDT}) {
    each->SetVisible(range);
  }
  RunReport(kWithoutWaiting);
}

void TGoodDetailKardexDismatch_FRM::GoodDetailKardexDismatch_GRDSortChanged() {
  TADOQuery& query = dataModule_.GoodDetailKardexDismatch.Query;
  if (query.Active()) query.SetSort(GetGridSort(GoodDetailKardexDismatch_GRD));
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

// The printed page tells what it shows.
void TGoodDetailKardexDismatch_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& lines) {
  TBaseDock_FRM::PrintDBGridEhBeforePrint(lines);
  AddFilterLine(lines, filterDescription_);
}

}  // namespace goods
