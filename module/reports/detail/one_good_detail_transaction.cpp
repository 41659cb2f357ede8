#include "module/reports/detail/one_good_detail_transaction.h"

#include <algorithm>
#include <utility>

#include "host/core/text.h"
#include "module/framework/criteria_text.h"
#include "module/framework/document_opening.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"
#include "module/framework/texts.h"
#include "module/reports/detail/unit_kinds.h"

namespace goods {
namespace {

constexpr std::string_view kReportName = "OneGoodDetailTransaction";
// Quantities are shown without their sign; amounts keep it.
constexpr std::string_view kUnsignedQuantityFormat = "#0.####;#0.####;0";
constexpr std::array<const char*, 5> kMeasures{"Length", "Width", "Amount3", "Amount1", "Amount2"};
constexpr std::int64_t kUnitPriceItem = 8;
constexpr std::int64_t kTotalPriceItem = 9;

}  // namespace

TOneGoodDetailTransaction_FRM::TOneGoodDetailTransaction_FRM(THost& host, int formMode,
                                                             Variant customParameter,
                                                             std::string settingsName)
    : TBaseDock_FRM(host, "OneGoodDetailTransaction_FRM", formMode, std::move(customParameter),
                    std::move(settingsName)),
      dataModule_(host, this),
      delayedSearch_(*this, [this] { Rerun(0); }),
      Search_FRM(host) {
  DeclareForm();
  Initialise();
}

TOneGoodDetailTransaction_FRM::~TOneGoodDetailTransaction_FRM() = default;

void TOneGoodDetailTransaction_FRM::FormCreate() {
  TBaseDock_FRM::FormCreate();
  DescribeWindow(*this);
  SetCommonControls(GoodDetailTransaction_GRD, PrintList_BTN, Exit_BTN, GridLayout::Own);
  TQueryWithSource& rows = dataModule_.OneGoodDetailTransaction;
  GoodDetailTransaction_GRD.SetDataSource(&rows.Source);
  GoodDetailTransaction_GRD.OnSortChanged = [this] {
    TADOQuery& query = dataModule_.OneGoodDetailTransaction.Query;
    if (query.Active()) query.SetSort(GetGridSort(GoodDetailTransaction_GRD));
  };
  GoodDetailTransaction_GRD.OnDblClick = [this] { OpenInfo_BTN.Click(); };
  OpenInfo_BTN.OnClick = [this] { OpenInfo_BTNClick(); };
  delayedSearch_.OnHurried = [this] {
    if (!dataModule_.OneGoodDetailTransaction.Query.IsEmpty()) GoodDetailTransaction_GRD.SetFocus();
  };
  Search_PNL.OnItemChange = [this] { Rerun(0); };
  ADVSearch_Fram1.ADVSearch_BTN.OnClick = [this] { ADVSearch_Fram1ADVSearch_BTNClick(); };
  ADVSearch_Fram1.ADVSearch_CHK.OnClick = [this] { ADVSearch_Fram1ADVSearch_CHKClick(); };
}

void TOneGoodDetailTransaction_FRM::OnCustomParameter(const CustomParameter& parameter) {
  opened_.good = parameter.Integer(0);
  opened_.name = parameter.Text(1);
  opened_.unit2 = parameter.Text(3);
  opened_.unit = parameter.Text(5);
  opened_.store = parameter.Integer(6);
  for (std::size_t i = 0; i < opened_.values.size(); ++i) opened_.values[i] = parameter.Text(7 + i);
  opened_.detailValue = parameter.Integer(12);
  opened_.datesGiven = parameter.Integer(13) != 0;
  opened_.from = parameter.Text(14);
  opened_.to = parameter.Text(15);
  opened_.storeGiven = parameter.Integer(16) != 0;
  ReadGood();
  ApplyUnitKind();
  LoadGridSettings(GoodDetailTransaction_GRD, kReportName, opened_.good, unitKind_);
}

void TOneGoodDetailTransaction_FRM::ReadGood() {
  const auto fields = Host().Lookups().LookupDBs(EntityType::Good, opened_.good,
                                                 "UnitKind;D1Title;D2Title;D3Title;D4Title;D5Title");
  unitKind_ = 2;
  titles_ = {};
  if (!fields || fields->size() < 1 + titles_.size()) return;
  unitKind_ = ParseInteger(fields->front()).value_or(2);
  std::copy_n(fields->begin() + 1, titles_.size(), titles_.begin());
}

// The measures that the kind uses are seen, under the names that it gives them.
void TOneGoodDetailTransaction_FRM::ApplyUnitKind() {
  for (const char* field : kMeasures) {
    GoodDetailTransaction_GRD.FindColumn(field)->SetVisible(false).SetCustomizable(false);
  }
  for (const UnitMeasure& measure : UnitMeasures(unitKind_, opened_.unit, opened_.unit2)) {
    GoodDetailTransaction_GRD.FindColumn(measure.field)
        ->SetVisible(true)
        .SetCustomizable(true)
        .SetCaption(measure.caption);
  }
  Search_PNL.SetItems(UnitSearchItems(unitKind_, opened_.unit, opened_.unit2), 1);
}

void TOneGoodDetailTransaction_FRM::FormShow() {
  TBaseDock_FRM::FormShow();
  shown_ = true;  // also where a store cannot be looked up: then the user's next criterion runs
  ShowHeader();
  PresetDialog();
  for (const char* field : kMeasures) {
    GoodDetailTransaction_GRD.FindColumn(field)->SetDisplayFormat(kUnsignedQuantityFormat);
  }
  SetShortCut(GoodDetailTransaction_GRD);
  SetPopMenu(GoodDetailTransaction_GRD);
  Search_PNL.GoodDetailSearch_EDT.SetFocus();
  Rerun(0);
}

void TOneGoodDetailTransaction_FRM::ShowHeader() {
  Header_PNL.Show(Host().Settings().Settings(), opened_.good, opened_.name, opened_.unit, opened_.unit2);
  const std::array<TLabel*, 5> captions{&Detail1_Cap_LBL, &Detail2_Cap_LBL, &Detail3_Cap_LBL,
                                        &Detail4_Cap_LBL, &Detail5_Cap_LBL};
  const std::array<TLabel*, 5> values{&Detail1_LBL, &Detail2_LBL, &Detail3_LBL, &Detail4_LBL, &Detail5_LBL};
  bool any = false;
  for (std::size_t i = 0; i < titles_.size(); ++i) {
    const bool used = !titles_[i].empty() || !opened_.values[i].empty();
    any = any || used;
    captions[i]->SetCaption(titles_[i].empty() ? "" : titles_[i] + " :");
    captions[i]->SetVisible(used);
    values[i]->SetCaption(opened_.values[i]);
    values[i]->SetVisible(used);
  }
  Details_PNL.SetVisible(any);
}

void TOneGoodDetailTransaction_FRM::PresetDialog() {
  Search_FRM.Del_BTNClick();
  if (opened_.datesGiven) {
    Search_FRM.Date_Frame.SetRange(opened_.from, opened_.to);
    Search_FRM.Date_Frame.RangeDate_CHK.SetChecked(true);
  }
  if (opened_.storeGiven) Search_FRM.Store_Frame.SetCode(opened_.store);
  const ProgramChange change(ADVSearch_Fram1.ADVSearch_CHK);
  ADVSearch_Fram1.ADVSearch_CHK.SetChecked(opened_.datesGiven || opened_.storeGiven);
}

void TOneGoodDetailTransaction_FRM::FormClose() {
  shown_ = false;
  delayedSearch_.Cancel();
  dataModule_.OneGoodDetailTransaction.Query.Close();
  SaveGridSettings(GoodDetailTransaction_GRD, kReportName, opened_.good, unitKind_);
  TBaseDock_FRM::FormClose();
}

void TOneGoodDetailTransaction_FRM::FormKeyDown(TKey& key) {
  if (key.Is(Key::F2)) {
    Press(key, OpenInfo_BTN);
  } else {
    Search_PNL.TakeSearchKeys(key, ADVSearch_Fram1);
  }
  TBaseDock_FRM::FormKeyDown(key);
}

void TOneGoodDetailTransaction_FRM::WindowMessage(int code) {
  delayedSearch_.Handle(code, &Search_PNL.GoodDetailSearch_EDT);
}

void TOneGoodDetailTransaction_FRM::SetProcParams(std::string& parameters) {
  parameters.clear();
  filterCaption_.clear();
  if (!shown_) return;
  CriteriaText criteria;
  criteria.Add("@GoodCode", std::to_string(opened_.good));
  criteria.Add("@DetailValueID", std::to_string(opened_.detailValue));
  if (const std::string text = Search_PNL.Text(); !text.empty()) {
    const TitleSearchItem& item = Search_PNL.Item();
    const bool price = item.object == kUnitPriceItem || item.object == kTotalPriceItem;
    criteria.Add("@TitleID", std::to_string(item.object));
    criteria.Add("@Title", QuotedStr(price ? ReplaceAll(text, ",", "") : text));
    criteria.Say(item.text + " : " + text);
  }
  if (ADVSearch_Fram1.ADVSearch_CHK.Checked()) Search_FRM.AddCriteria(criteria);
  parameters = std::move(criteria.parameters);
  filterCaption_ = std::move(criteria.caption);
}

void TOneGoodDetailTransaction_FRM::Rerun(int mode) {
  delayedSearch_.Cancel();  // a run reads every criterion as it stands
  const DelayedSearch::RunScope running(delayedSearch_);
  if (!shown_) return;
  std::string parameters;
  SetProcParams(parameters);
  dataModule_.OneGoodDetailTransaction_GetAll(parameters, this, mode, shown_);
  dataModule_.OneGoodDetailTransaction.Query.SetSort(GetGridSort(GoodDetailTransaction_GRD));
  GoodDetailTransaction_GRD.RefreshFooters();
}

void TOneGoodDetailTransaction_FRM::ADVSearch_Fram1ADVSearch_BTNClick() {
  if (Search_FRM.ShowModal() != kModalOk) return;
  {
    const ProgramChange change(ADVSearch_Fram1.ADVSearch_CHK);
    ADVSearch_Fram1.ADVSearch_CHK.SetChecked(true);
  }
  Rerun(1);
}

void TOneGoodDetailTransaction_FRM::ADVSearch_Fram1ADVSearch_CHKClick() {
  if (ADVSearch_Fram1.ADVSearch_CHK.Tag == 0) Rerun(1);
}

void TOneGoodDetailTransaction_FRM::OpenInfo_BTNClick() {
  TADOQuery& query = dataModule_.OneGoodDetailTransaction.Query;
  if (!query.RecNo()) return;
  const Value type = query.FieldByName("OperationType");
  const Value code = query.FieldByName("OperationCode");
  if (OpenDocument(Host(), type, code.AsInteger()) != DocumentOutcome::Opened) return;
  {
    const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
    dataModule_.FillDataKardexTransact(ParseInteger(Header_PNL.GoodCode_LBL.Caption()).value_or(0));
  }
  Rerun(1);
  const std::array<Value, 2> key{type, code};
  query.Locate("OperationType;OperationCode", key);
}

void TOneGoodDetailTransaction_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& lines) {
  TBaseDock_FRM::PrintDBGridEhBeforePrint(lines);
  lines.push_back("کالا: " + std::to_string(opened_.good) + " - " + opened_.name);
  AddFilterLine(lines, filterCaption_);
}

}  // namespace goods
