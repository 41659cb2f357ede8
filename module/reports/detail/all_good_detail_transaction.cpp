#include "module/reports/detail/all_good_detail_transaction.h"

#include <utility>

#include "module/framework/row_facts.h"

namespace goods {

TAllGoodDetailTransaction_FRM::TAllGoodDetailTransaction_FRM(THost& host, int formMode,
                                                             Variant customParameter,
                                                             std::string settingsName)
    : TDetailReport_FRM(host, "AllGoodDetailTransaction_FRM", "AllGoodDetailTrans_List_GRD", formMode,
                        std::move(customParameter), std::move(settingsName)) {
  DeclareForm();
  Initialise();
}

TAllGoodDetailTransaction_FRM::TAllGoodDetailTransaction_FRM(THost& host, int formMode,
                                                             std::string settingsName)
    : TAllGoodDetailTransaction_FRM(host, formMode, Variant(), std::move(settingsName)) {}

TAllGoodDetailTransaction_FRM::~TAllGoodDetailTransaction_FRM() = default;

void TAllGoodDetailTransaction_FRM::FormCreate() {
  TDetailReport_FRM::FormCreate();
  SetCommonControls(List_GRD, PrintList_BTN, Exit_BTN, GridLayout::Own);
  TListDetail_FRAME1.DetailFields_QRT1.SetDataSource(&Rows().Source);
  DescribeMovements(Host(), List_GRD, {.type = "OperationType", .code = "OperationCode"});
  TGoodTransactions_DM::ComboBoxOperationFill_WithItems(OperationsType_CMB);
  OperationsType_CMB.OnChange = [this] { OperationsType_CMBChange(); };
  WatchCriteria(Details_PNL);
  SetUpDialog();

  stored_.Keep(Search_PNL.GoodDetailSearch_CMB);
  stored_.Keep(List_GRD);
  stored_.Keep(TListDetail_FRAME1.View_CMB);
  stored_.Load(Host().Settings());
}

void TAllGoodDetailTransaction_FRM::SetUpDialog() {
  Search_FRM.Good_SESF.SetEntityTypes({EntityType::Good, EntityType::GoodGroup});
  Search_FRM.Good_SESF.SetItems(
      {{"  کالا", "GoodCode", DataKind::Number}, {"  گروه کالا", "GoodGroupCode", DataKind::Number}});
  Search_FRM.SearchGoodCode_FRAME.SetItems({{"  کد کالا", "GoodCode", DataKind::Number},
                                            {"  کد انبار", "StoreCode", DataKind::Number},
                                            {"  کد گروه کالا", "GoodGroupCode", DataKind::Number}});
  Search_FRM.LoadStoredProperties();
}

void TAllGoodDetailTransaction_FRM::FormClose() {
  stored_.Save(Host().Settings());
  TDetailReport_FRM::FormClose();
}

void TAllGoodDetailTransaction_FRM::ReadOwnCriteria(DetailListCriteria& criteria) const {
  criteria.report = DetailList::Movements;
  criteria.operation = OperationsType_CMB.ItemObject();
  criteria.operationText = OperationsType_CMB.Text();
}

void TAllGoodDetailTransaction_FRM::ResetCriteria() {
  TDetailReport_FRM::ResetCriteria();
  OperationsType_CMB.SetItemIndex(0);
}

void TAllGoodDetailTransaction_FRM::Fetch(const std::string& parameters, Waiting waiting) {
  dataModule_.AllGoodDetailTransaction_GetAll(parameters, this, static_cast<int>(waiting), Shown());
}

// The list of details stays open over the run, if it was.
void TAllGoodDetailTransaction_FRM::OperationsType_CMBChange() {
  TComboBox& details = DetailRow1.GoodDetailSelectSearch_CMB;
  const bool dropped = details.DroppedDown();
  Run(Waiting::Silent);
  details.SetDroppedDown(dropped);
}

}  // namespace goods
