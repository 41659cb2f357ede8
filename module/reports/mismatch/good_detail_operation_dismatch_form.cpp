// The operation mismatch's component tree.
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
  grid.ShowFooter = false;
  grid.AddColumn("OperationDate", "تاریخ").SetWidth(100).SetKind(CellKind::Date);
  grid.AddColumn("StoreCode", "کد انبار").SetWidth(57).SetVisible(false);
  grid.AddColumn("StoreName", "انبار").SetWidth(120);
  grid.AddColumn("OperationTitle", "نوع عملیات").SetWidth(215).SetAutoFit(true);
  grid.AddColumn("OperationCode", "کد عملیات").SetWidth(90);
  grid.AddColumn("OperationRow", "ردیف عملیات").SetWidth(90);
  grid.AddColumn("OperationAmount", "مقدار عملیات").SetDisplayFormat(kQuantityFormat).SetWidth(100);
  grid.AddColumn("DetailAmount", "مقدار جزئیات").SetDisplayFormat(kQuantityFormat).SetWidth(100);
}

}  // namespace goods
