// The operation mismatch's component tree.
#include "module/framework/report_columns.h"
#include "module/reports/mismatch/good_detail_operation_dismatch.h"
#include "module/reports/mismatch/operation_kinds.h"

namespace goods {
namespace {

constexpr int kStoreNameItem = 1;
constexpr int kOperationsWidth = 250;

}  // namespace

void TGoodDetailOperationDismatch_FRM::DeclareForm() {
  SetCaption("گزارش ریز مغایرت جزئیات کالا");
  PreferredWidth = 1120;
  PreferredHeight = 640;

  Search_PNL.SetItems({{"  کد انبار", InputKind::Integer},
                       {"  انبار", InputKind::Text},
                       {"  کد عملیات", InputKind::Integer},
                       {"  ردیف عملیات", InputKind::Integer},
                       {"  مقدار عملیات", InputKind::Amount},
                       {"  مقدار جزئیات", InputKind::Amount}},
                      kStoreNameItem);

  OperationsType_LBL.FocusControl = &OperationsType_CMB;
  OperationsType_CMB.SetAccessibleName("نوع عملیات");
  OperationsType_CMB.SetWidth(kOperationsWidth);
  std::vector<TComboItem> kinds{{"  انتخاب کنید ...", 0, ""}};
  for (const OperationKind& kind : kOperationKinds) kinds.push_back({std::string(kind.item), kind.code, ""});
  OperationsType_CMB.SetItems(std::move(kinds));

  Criteria_PNL.Place(Search_PNL, 1);
  Criteria_PNL.Place(OperationsType_LBL);
  Criteria_PNL.Place(OperationsType_CMB);
  Criteria_PNL.Place(ADVSearch_Fram1);
  for (TButton* button : {&OpenInfo_BTN, &PrintList_BTN, &Exit_BTN}) Buttons_PNL.Place(*button);
  Buttons_PNL.Place(CriteriaChanged_LBL);

  DeclareColumns();
  Place(Good_PNL);
  Place(Criteria_PNL);
  Place(GoodDetailOperationDismatch_GRD, 1);
  Place(Buttons_PNL);
}

void TGoodDetailOperationDismatch_FRM::DeclareColumns() {
  TSmartDBGrid_QRT& grid = GoodDetailOperationDismatch_GRD;
  grid.SetAccessibleName("ردیف های مغایر");
  grid.KeyColumns = 5;  // date, store and operation
  grid.ShowFooter = false;
  const ReportColumns columns(grid);
  columns.Date("OperationDate", "تاریخ", 100);
  columns.Text("StoreCode", "کد انبار", 57).SetVisible(false);
  columns.Text("StoreName", "انبار", 120);
  columns.Text("OperationTitle", "نوع عملیات", 215).SetAutoFit(true);
  columns.Text("OperationCode", "کد عملیات", 90);
  columns.Text("OperationRow", "ردیف عملیات", 90);
  columns.Number("OperationAmount", "مقدار عملیات", kQuantityFormat, 100);
  columns.Number("DetailAmount", "مقدار جزئیات", kQuantityFormat, 100);
}

}  // namespace goods
