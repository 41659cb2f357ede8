#include "module/reports/mismatch/good_detail_operation_dismatch.h"

#include <array>
#include <utility>

#include "host/core/text.h"
#include "module/framework/document_opening.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"
#include "module/reports/mismatch/operation_kinds.h"

namespace goods {
namespace {

constexpr int kWithoutWaiting = 0;
constexpr int kWithWaiting = 1;
constexpr int kStoreCodeItem = 0;

enum class ValueForm { Bare, Quoted, WithoutSeparators };

struct TitleParameter {
  std::string_view name;
  ValueForm form;
};

// By the item of the column search.
constexpr std::array kTitleParameters = std::to_array<TitleParameter>({
    {"@Store", ValueForm::Bare},
    {"@StoreName", ValueForm::Quoted},
    {"@OperationCode", ValueForm::Bare},
    {"@OperationRow", ValueForm::Bare},
    {"@OperationAmount", ValueForm::WithoutSeparators},
    {"@DetailAmount", ValueForm::WithoutSeparators},
});

std::string InForm(const std::string& text, ValueForm form) {
  if (form == ValueForm::Quoted) return QuotedStr(text);
  return form == ValueForm::WithoutSeparators ? ReplaceAll(text, ",", "") : text;
}

}  // namespace

TGoodDetailOperationDismatch_FRM::TGoodDetailOperationDismatch_FRM(THost& host, int formMode,
                                                                   Variant customParameter,
                                                                   std::string settingsName)
    : TBaseDock_FRM(host, "GoodDetailOperationDismatch_FRM", formMode, std::move(customParameter),
                    std::move(settingsName)),
      dataModule_(host, this),
      delayedSearch_(*this, [this] { RunReport(kWithoutWaiting); }),
      Search_FRM(host) {
  DeclareForm();
  Initialise();
}

TGoodDetailOperationDismatch_FRM::~TGoodDetailOperationDismatch_FRM() = default;

void TGoodDetailOperationDismatch_FRM::FormCreate() {
  TBaseDock_FRM::FormCreate();
  FormOptions_SFO.ComponentSoftwarePart = cspGoodDetail;
  PrintOption.SoftwarePart = kPartGoodDetail;
  SetCommonControls(GoodDetailOperationDismatch_GRD, PrintList_BTN, Exit_BTN);

  TSmartDBGrid_QRT& grid = GoodDetailOperationDismatch_GRD;
  grid.SetDataSource(&dataModule_.GoodDetailOperationDismatch.Source);
  grid.OnSortChanged = [this] { GoodDetailOperationDismatch_GRDSortChanged(); };
  grid.OnDblClick = [this] { OpenInfo_BTN.Click(); };
  OpenInfo_BTN.OnClick = [this] { OpenInfo_BTNClick(); };
  delayedSearch_.OnHurried = [this] {
    if (!dataModule_.GoodDetailOperationDismatch.Query.IsEmpty()) GoodDetailOperationDismatch_GRD.SetFocus();
  };
  Search_PNL.OnItemChange = [this] { GoodDetailSearch_CMBChange(); };
  OperationsType_CMB.OnChange = [this] { OperationsType_CMBChange(); };
  ADVSearch_Fram1.ADVSearch_BTN.OnClick = [this] { ADVSearch_Fram1ADVSearch_BTNClick(); };
  ADVSearch_Fram1.ADVSearch_CHK.OnClick = [this] { ADVSearch_Fram1ADVSearch_CHKClick(); };
}

void TGoodDetailOperationDismatch_FRM::OnCustomParameter(const CustomParameter& parameter) {
  goodCode_ = parameter.Integer(0);
  goodName_ = parameter.Text(1);
  unit2Name_ = parameter.Text(3);
  unit1Name_ = parameter.Text(5);
  storeCode_ = parameter.Integer(6);
}

void TGoodDetailOperationDismatch_FRM::FormShow() {
  TBaseDock_FRM::FormShow();
  SetShortCut(GoodDetailOperationDismatch_GRD);
  SetPopMenu(GoodDetailOperationDismatch_GRD);
  Good_PNL.Show(Host().Settings().Settings(), goodCode_, goodName_, unit1Name_, unit2Name_);
  shown_ = true;
  if (storeCode_ > 0) {
    Search_PNL.Preset(kStoreCodeItem, std::to_string(storeCode_));
  } else {
    Search_PNL.Preset(Search_PNL.ItemIndex(), "");
  }
  Search_PNL.GoodDetailSearch_EDT.SetFocus();
  RunReport(kWithoutWaiting);
}

void TGoodDetailOperationDismatch_FRM::FormClose() {
  shown_ = false;
  delayedSearch_.Cancel();
  dataModule_.GoodDetailOperationDismatch.Query.Close();
  TBaseDock_FRM::FormClose();
}

void TGoodDetailOperationDismatch_FRM::FormKeyDown(TKey& key) {
  if (key.Is(Key::F2)) {
    Press(key, OpenInfo_BTN);
  } else {
    Search_PNL.TakeSearchKeys(key, ADVSearch_Fram1);
  }
  TBaseDock_FRM::FormKeyDown(key);
}

void TGoodDetailOperationDismatch_FRM::WindowMessage(int code) {
  delayedSearch_.Handle(code, &Search_PNL.GoodDetailSearch_EDT);
}

void TGoodDetailOperationDismatch_FRM::SetProcParams(std::string& parameters) {
  parameters.clear();
  filterCaption_.clear();
  if (!shown_) return;
  CriteriaText criteria;
  criteria.Add("@GoodCode", std::to_string(goodCode_));
  criteria.Say("کالا : " + goodName_);
  AddTitle(criteria);
  if (OperationsType_CMB.ItemIndex() > 0) {
    const OperationKind& kind =
        kOperationKinds.at(static_cast<std::size_t>(OperationsType_CMB.ItemIndex()) - 1);
    criteria.Add("@OperationType", std::to_string(kind.code));
    criteria.Say(kind.caption);
  }
  if (ADVSearch_Fram1.ADVSearch_CHK.Checked()) Search_FRM.AddCriteria(criteria);
  parameters = std::move(criteria.parameters);
  filterCaption_ = std::move(criteria.caption);
}

void TGoodDetailOperationDismatch_FRM::AddTitle(CriteriaText& criteria) const {
  const std::string& text = Search_PNL.Text();
  if (text.empty()) return;
  const TitleParameter& parameter = kTitleParameters.at(static_cast<std::size_t>(Search_PNL.ItemIndex()));
  criteria.Add(parameter.name, InForm(text, parameter.form));
  criteria.Say(Search_PNL.Item().text + " : " + text);
}

// A run reads every criterion as it stands, so what waits for the typing to end has nothing left to do.
void TGoodDetailOperationDismatch_FRM::RunReport(int mode) {
  delayedSearch_.Cancel();
  std::string parameters;
  SetProcParams(parameters);
  dataModule_.GoodDetailOperationDismatch_GetAll(parameters, this, mode, shown_);
  GoodDetailOperationDismatch_GRDSortChanged();
  GoodDetailOperationDismatch_GRD.RefreshFooters();
}

void TGoodDetailOperationDismatch_FRM::GoodDetailSearch_CMBChange() { RunReport(kWithoutWaiting); }

void TGoodDetailOperationDismatch_FRM::OperationsType_CMBChange() { RunReport(kWithoutWaiting); }

void TGoodDetailOperationDismatch_FRM::ADVSearch_Fram1ADVSearch_BTNClick() {
  if (Search_FRM.ShowModal() != kModalOk) return;
  {
    const ProgramChange change(ADVSearch_Fram1.ADVSearch_CHK);
    ADVSearch_Fram1.ADVSearch_CHK.SetChecked(true);
  }
  RunReport(kWithWaiting);
}

void TGoodDetailOperationDismatch_FRM::ADVSearch_Fram1ADVSearch_CHKClick() {
  if (ADVSearch_Fram1.ADVSearch_CHK.Tag == 0) RunReport(kWithWaiting);
}

void TGoodDetailOperationDismatch_FRM::GoodDetailOperationDismatch_GRDSortChanged() {
  TADOQuery& query = dataModule_.GoodDetailOperationDismatch.Query;
  if (query.Active()) query.SetSort(GetGridSort(GoodDetailOperationDismatch_GRD));
}

// The document behind the row opens as it does from the stock card.
void TGoodDetailOperationDismatch_FRM::OpenInfo_BTNClick() {
  const TADOQuery& query = dataModule_.GoodDetailOperationDismatch.Query;
  if (!query.RecNo() || !query.FindField("OperationType")) return;
  OpenDocument(Host(), query.FieldByName("OperationType").AsInteger(),
               query.FieldByName("OperationCode").AsInteger());
}

// The printed page tells what it shows.
void TGoodDetailOperationDismatch_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& lines) {
  TBaseDock_FRM::PrintDBGridEhBeforePrint(lines);
  AddFilterLine(lines, filterCaption_);
}

}  // namespace goods
