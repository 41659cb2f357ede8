#include "module/reports/mismatch/good_detail_operation_dismatch.h"

#include <utility>

#include "module/framework/document_opening.h"
#include "module/framework/report_window.h"

namespace goods {
namespace {

constexpr int kStoreCodeItem = 0;

}  // namespace

TGoodDetailOperationDismatch_FRM::TGoodDetailOperationDismatch_FRM(THost& host, int formMode,
                                                                   Variant customParameter,
                                                                   std::string settingsName)
    : TReportOf(host, "GoodDetailOperationDismatch_FRM", formMode, std::move(customParameter),
                std::move(settingsName)),
      dataModule_(host, this),
      Search_FRM(host) {
  DeclareForm();
  Initialise();
}

TGoodDetailOperationDismatch_FRM::~TGoodDetailOperationDismatch_FRM() = default;

void TGoodDetailOperationDismatch_FRM::FormCreate() {
  TReportOf::FormCreate();
  DescribeWindow(*this);
  SetCommonControls(GoodDetailOperationDismatch_GRD, PrintList_BTN, Exit_BTN);

  ShowRows(GoodDetailOperationDismatch_GRD, dataModule_.GoodDetailOperationDismatch.Source);
  GoodDetailOperationDismatch_GRD.OnDblClick = [this] { OpenInfo_BTN.Click(); };
  OnAction(OpenInfo_BTN, [this] { OpenInfo_BTNClick(); });
  Search_PNL.OnItemChange = [this] { GoodDetailSearch_CMBChange(); };
  OperationsType_CMB.OnChange = [this] { OperationsType_CMBChange(); };
  WatchCriteria(Criteria_PNL);
  UseDialog(ADVSearch_Fram1, Search_FRM);
}

void TGoodDetailOperationDismatch_FRM::OnCustomParameter(const CustomParameter& parameter) {
  goodCode_ = parameter.Integer(0);
  goodName_ = parameter.Text(1);
  unit2Name_ = parameter.Text(3);
  unit1Name_ = parameter.Text(5);
  storeCode_ = parameter.Integer(6);
}

void TGoodDetailOperationDismatch_FRM::FormShow() {
  TReportOf::FormShow();
  SetShortCut(GoodDetailOperationDismatch_GRD);
  SetPopMenu(GoodDetailOperationDismatch_GRD);
  Good_PNL.Show(Host().Settings().Settings(), goodCode_, goodName_, unit1Name_, unit2Name_);
  ResetCriteria();
  ShowAndRun(Search_PNL.GoodDetailSearch_EDT);
}

void TGoodDetailOperationDismatch_FRM::ResetCriteria() {
  if (storeCode_ > 0) {
    Search_PNL.Preset(kStoreCodeItem, std::to_string(storeCode_));
  } else {
    Search_PNL.Preset(Search_PNL.ItemIndex(), "");
  }
  OperationsType_CMB.SetItemIndex(0);
  ADVSearch_Fram1.ADVSearch_CHK.SetChecked(false);
  Search_FRM.Del_BTNClick();
}

void TGoodDetailOperationDismatch_FRM::FormKeyDown(TKey& key) {
  if (key.Is(Key::F2)) {
    Press(key, OpenInfo_BTN);
  } else {
    Search_PNL.TakeSearchKeys(key, ADVSearch_Fram1);
  }
  TReportOf::FormKeyDown(key);
}

OperationDismatchCriteria TGoodDetailOperationDismatch_FRM::ReadCriteria() const {
  return {
      .goodCode = goodCode_,
      .goodName = goodName_,
      .titleItem = Search_PNL.ItemIndex(),
      .titleCaption = Search_PNL.Item().text,
      .title = Search_PNL.Text(),
      .operation = OperationsType_CMB.ItemObject(),
      .dialog = ADVSearch_Fram1.ADVSearch_CHK.Checked() ? std::optional(Search_FRM.Criteria()) : std::nullopt,
  };
}

void TGoodDetailOperationDismatch_FRM::Fetch(const std::string& parameters, Waiting waiting) {
  dataModule_.GoodDetailOperationDismatch_GetAll(parameters, this, static_cast<int>(waiting), Shown());
}

void TGoodDetailOperationDismatch_FRM::GoodDetailSearch_CMBChange() { Run(Waiting::Silent); }

void TGoodDetailOperationDismatch_FRM::OperationsType_CMBChange() { Run(Waiting::Silent); }

// The document behind the row opens as it does from the stock card.
void TGoodDetailOperationDismatch_FRM::OpenInfo_BTNClick() {
  const TADOQuery& query = dataModule_.GoodDetailOperationDismatch.Query;
  if (!query.RecNo() || !query.FindField("OperationType")) return;
  OpenDocument(Host(), query.FieldByName("OperationType"), query.FieldByName("OperationCode").AsInteger());
}

}  // namespace goods
