#include "module/reports/detail/one_good_detail_transaction.h"

#include <algorithm>
#include <utility>

#include "host/core/text.h"
#include "module/framework/document_opening.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"
#include "module/framework/row_facts.h"
#include "module/framework/texts.h"
#include "module/reports/detail/unit_kinds.h"

namespace goods {
namespace {

constexpr std::string_view kReportName = "OneGoodDetailTransaction";
// Quantities are shown without their sign; amounts keep it.
constexpr std::string_view kUnsignedQuantityFormat = "#0.####;#0.####;0";
constexpr std::array<const char*, 5> kMeasures{"Length", "Width", "Amount3", "Amount1", "Amount2"};
constexpr int kFirstTitleItem = 1;

}  // namespace

TOneGoodDetailTransaction_FRM::TOneGoodDetailTransaction_FRM(THost& host, int formMode,
                                                             Variant customParameter,
                                                             std::string settingsName)
    : TReportOf(host, "OneGoodDetailTransaction_FRM", formMode, std::move(customParameter),
                std::move(settingsName)),
      dataModule_(host, this),
      Search_FRM(host) {
  DeclareForm();
  Initialise();
}

TOneGoodDetailTransaction_FRM::~TOneGoodDetailTransaction_FRM() = default;

void TOneGoodDetailTransaction_FRM::FormCreate() {
  TReportOf::FormCreate();
  DescribeWindow(*this);
  SetCommonControls(GoodDetailTransaction_GRD, PrintList_BTN, Exit_BTN, GridLayout::Own);
  ShowRows(GoodDetailTransaction_GRD, dataModule_.OneGoodDetailTransaction.Source);
  DescribeMovements(Host(), GoodDetailTransaction_GRD, {.type = "OperationType", .code = "OperationCode"});
  GoodDetailTransaction_GRD.OnDblClick = [this] { OpenInfo_BTN.Click(); };
  OnAction(OpenInfo_BTN, [this] { OpenInfo_BTNClick(); });
  Search_PNL.OnItemChange = [this] { Run(Waiting::Silent); };
  WatchCriteria(Search_PNL);
  UseDialog(ADVSearch_Fram1, Search_FRM);
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
  TReportOf::FormShow();
  SetShown();  // also where a store cannot be looked up: then the user's next criterion runs
  ShowHeader();
  PresetCriteria();
  for (const char* field : kMeasures) {
    GoodDetailTransaction_GRD.FindColumn(field)->SetDisplayFormat(kUnsignedQuantityFormat);
  }
  SetShortCut(GoodDetailTransaction_GRD);
  SetPopMenu(GoodDetailTransaction_GRD);
  ShowAndRun(Search_PNL.GoodDetailSearch_EDT);
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

void TOneGoodDetailTransaction_FRM::PresetCriteria() {
  Search_PNL.Preset(kFirstTitleItem, "");
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
  SaveGridSettings(GoodDetailTransaction_GRD, kReportName, opened_.good, unitKind_);
  TReportOf::FormClose();
}

void TOneGoodDetailTransaction_FRM::FormKeyDown(TKey& key) {
  if (key.Is(Key::F2)) {
    Press(key, OpenInfo_BTN);
  } else {
    Search_PNL.TakeSearchKeys(key, ADVSearch_Fram1);
  }
  TReportOf::FormKeyDown(key);
}

OneGoodDetailCriteria TOneGoodDetailTransaction_FRM::ReadCriteria() const {
  return {
      .goodCode = opened_.good,
      .detailValue = opened_.detailValue,
      .titleId = Search_PNL.Item().object,
      .titleCaption = Search_PNL.Item().text,
      .title = Search_PNL.Text(),
      .dialog = ADVSearch_Fram1.ADVSearch_CHK.Checked() ? std::optional(Search_FRM.Criteria()) : std::nullopt,
  };
}

void TOneGoodDetailTransaction_FRM::Fetch(const std::string& parameters, Waiting waiting) {
  dataModule_.OneGoodDetailTransaction_GetAll(parameters, this, static_cast<int>(waiting), Shown());
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
  Run(Waiting::Shown);
  const std::array<Value, 2> key{type, code};
  query.Locate("OperationType;OperationCode", key);
}

void TOneGoodDetailTransaction_FRM::AddPrintLines(std::vector<std::string>& lines) {
  lines.push_back("کالا: " + std::to_string(opened_.good) + " - " + opened_.name);
}

}  // namespace goods
