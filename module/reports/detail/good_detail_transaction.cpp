#include "module/reports/detail/good_detail_transaction.h"

#include <array>
#include <initializer_list>
#include <utility>

#include "host/core/text.h"
#include "module/framework/parameter_text.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"
#include "module/reports/detail/one_good_detail_transaction.h"

namespace goods {
namespace {

constexpr int kFromAnotherReport = 2;

// By the tab of the movement kinds; the first lets every row through.
constexpr std::array<std::string_view, 13> kTabConditions{"",
                                                          "Type=2",
                                                          "Type=1",
                                                          "Type=3",
                                                          "Type=4",
                                                          "Type=0",
                                                          "Type=5",
                                                          "Type=6",
                                                          "Type=16",
                                                          "Type=16",
                                                          "Type>=7 and Type<=8",
                                                          "Type=17",
                                                          "Type=17"};

}  // namespace

TGoodDetailTransaction_FRM::TGoodDetailTransaction_FRM(THost& host, int formMode, Variant customParameter,
                                                       std::string settingsName)
    : TDetailReport_FRM(host, "GoodDetailTransaction_FRM", "GoodDetailTrans_List_GRD", formMode,
                        std::move(customParameter), std::move(settingsName)) {
  DeclareForm();
  Initialise();
}

TGoodDetailTransaction_FRM::~TGoodDetailTransaction_FRM() = default;

void TGoodDetailTransaction_FRM::FormCreate() {
  TDetailReport_FRM::FormCreate();
  SetCommonControls(List_GRD, PrintList_BTN, Exit_BTN);
  List_GRD.OnDblClick = [this] { OpenInfo_BTN.Click(); };
  OnAction(OpenInfo_BTN, [this] { OpenInfo_BTNClick(); });
  StoresTotals_RDB.SetChecked(true);
  StoresTotals_RDB.OnClick = [this] { StoresTotals_RDBClick(); };
  StoresSeparations_RDB.OnClick = [this] { StoresTotals_RDBClick(); };
  TTab_Search_Frame1.Search_TBC.OnChange = [this] { GoodDetailTabChange(); };
  Groups_PNL.OnGroupChange = [this] { Run(Waiting::Silent); };
  WatchCriteria(Criteria_PNL);
  WatchCriteria(TTab_Search_Frame1);
  dataModule_.GoodAsset_GetGroup();
  Search_FRM.Good_SESF.SetEntityType(EntityType::Good);
  ApplyStoreSeparation();
}

void TGoodDetailTransaction_FRM::OnCustomParameter(const CustomParameter& parameter) {
  TAllGoodDetailTransactionSearch_FRM& dialog = Search_FRM;
  const bool otherReport = parameter.Integer(0) == kFromAnotherReport;
  const std::int64_t good = parameter.Integer(1);
  const bool storeGiven = parameter.Integer(2) != 0;
  const bool datesGiven = parameter.Integer(4) != 0;
  const bool tagsGiven = parameter.Integer(7) != 0;
  const bool categoryGiven = parameter.Integer(9) != 0;

  LimitRows(otherReport ? good : 0);
  StoresTotals_RDB.SetChecked(true);
  for (TSearchFrame* frame : std::initializer_list<TSearchFrame*>{&dialog.Good_SESF, &dialog.Store_SESF,
                                                                  &dialog.DateRangeSearch_Frame}) {
    frame->Clear();
  }
  dialog.TTags_search_FRM1.Clear();
  dialog.TCategorySearchFrame1.Clear();
  if (good != 0) dialog.Good_SESF.SetCode(good);
  if (storeGiven) {
    StoresSeparations_RDB.SetChecked(true);
    dialog.Store_SESF.SetCode(parameter.Integer(3));
  }
  if (datesGiven) {
    dialog.DateRangeSearch_Frame.SetRange(parameter.Text(5), parameter.Text(6));
    dialog.DateRangeSearch_Frame.RangeDate_CHK.SetChecked(true);
  }
  presetTags_ = tagsGiven ? TagCodesOf(parameter.Text(8)) : std::vector<std::string>();
  if (tagsGiven) dialog.TTags_search_FRM1.Tags_EDT.SetCodes(presetTags_);
  // Only a number: the code goes out bare.
  if (const auto category = ParseInteger(Trim(parameter.Text(10))); categoryGiven && category) {
    dialog.TCategorySearchFrame1.Category_EDT.SetCodes({std::to_string(*category)});
  }
  const ProgramChange change(ADVSearch_Fram1.ADVSearch_CHK);
  ADVSearch_Fram1.ADVSearch_CHK.SetChecked(good != 0 || storeGiven || datesGiven || tagsGiven ||
                                           categoryGiven);
}

void TGoodDetailTransaction_FRM::FormShow() {
  TDetailReport_FRM::FormShow();
  PresetTags();
}

// Tags that another report hands over are named in the dialog as the company names them now.
void TGoodDetailTransaction_FRM::PresetTags() {
  for (const std::string& code : presetTags_) {
    const auto number = ParseInteger(code);
    if (!number) continue;
    TTag tag = dataModule_.GetTag(*number);
    Search_FRM.TTags_search_FRM1.Tags_EDT.AddChoice({tag.Code, tag.Name, tag.Background});
  }
  presetTags_.clear();
}

void TGoodDetailTransaction_FRM::FormKeyDown(TKey& key) {
  if (key.Is(Key::F2)) {
    Press(key, OpenInfo_BTN);
  } else if (key.IsCtrl(Key::F11)) {
    key.Consume();
    Groups_PNL.SearchGroup_EDT.SetFocus();
  }
  TDetailReport_FRM::FormKeyDown(key);
}

void TGoodDetailTransaction_FRM::ReadOwnCriteria(DetailListCriteria& criteria) const {
  criteria.report = DetailList::Stock;
  criteria.group = {Groups_PNL.Code(), Groups_PNL.GroupName()};
  criteria.storesSeparated = !StoresTotals_RDB.Checked();
  criteria.everyKind = TTab_Search_Frame1.TabIndex() == 0;
}

void TGoodDetailTransaction_FRM::ResetCriteria() {
  TDetailReport_FRM::ResetCriteria();
  TTab_Search_Frame1.Search_TBC.SetTabIndex(0);
}

void TGoodDetailTransaction_FRM::Fetch(const std::string& parameters, Waiting waiting) {
  dataModule_.GoodDetailTransaction_GetAll(parameters, this, static_cast<int>(waiting), Shown());
}

std::string TGoodDetailTransaction_FRM::RowCondition() const {
  return std::string(kTabConditions.at(static_cast<std::size_t>(TTab_Search_Frame1.TabIndex())));
}

// From one kind to another the rows are there already, as long as they are what the criteria ask for.
void TGoodDetailTransaction_FRM::GoodDetailTabChange() {
  if (!Shown()) return;
  if (CriteriaChanged()) return Run(Waiting::Silent);
  ArrangeRows();
}

void TGoodDetailTransaction_FRM::StoresTotals_RDBClick() {
  ApplyStoreSeparation();
  Run(Waiting::Silent);
}

void TGoodDetailTransaction_FRM::ApplyStoreSeparation() {
  const bool separated = StoresSeparations_RDB.Checked();
  Search_FRM.Good_SESF.SetItems({{"  کالا", "GoodCode", DataKind::Number}});
  TRange_Digit_Search_Frame& range = Search_FRM.SearchGoodCode_FRAME;
  // Codes of stores are not codes of goods.
  if (!separated && range.RangeDigit_CMB.ItemIndex() > 0) range.Clear();
  range.SetItems({{"  کد کالا", "GoodCode", DataKind::Number}});
  if (separated) range.InsertItem(1, {"  کد انبار", "StoreCode", DataKind::Number});
  Search_FRM.Store_SESF.SetVisible(separated);
  List_GRD.FindColumn("Anbar")->SetCustomizable(separated);
  if (!separated) List_GRD.FindColumn("Anbar")->SetVisible(false);
  List_GRD.FindColumn("AnbarName")->SetVisible(separated).SetCustomizable(separated);
}

void TGoodDetailTransaction_FRM::OpenInfo_BTNClick() {
  const TADOQuery& rows = Rows().Query;
  if (!rows.RecNo()) return;
  const std::int64_t good = rows.FieldByName("Code").AsInteger();
  const TGoodUnitInfo units = dataModule_.GetGoodUnitInfo(good);
  const TRange_Date_Search_Frame& dates = Search_FRM.DateRangeSearch_Frame;
  std::string parameter;
  const auto add = [&parameter](const std::string& value) { parameter += AsPosition(value) + ";"; };
  const auto addField = [&](const char* field) { add(rows.FieldByName(field).AsText()); };
  add(std::to_string(good));
  addField("Name");
  add(std::to_string(units.Unit1Code));
  add(units.Unit2Name);
  add(std::to_string(units.Unit2Code));
  add(units.Unit1Name);
  add(std::to_string(rows.FieldByName("Anbar").AsInteger()));
  for (const char* field : {"D1Value", "D2Value", "D3Value", "D4Value", "D5Value"}) addField(field);
  add(std::to_string(rows.FieldByName("DetailValueID").AsInteger()));
  add(dates.RangeDate_CHK.Checked() ? "1" : "0");
  add(dates.FromDate());
  add(dates.ToDate());
  add(StoresSeparations_RDB.Checked() ? "1" : "0");
  TOneGoodDetailTransaction_FRM(Host(), 1, Variant(parameter), "").ShowModal();
}

}  // namespace goods
