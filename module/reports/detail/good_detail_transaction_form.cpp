// The component tree of the stock by detail values.
#include "module/framework/report_columns.h"
#include "module/reports/detail/good_detail_transaction.h"

namespace goods {

void TGoodDetailTransaction_FRM::DeclareForm() {
  SetCaption("گزارش جزئیات کالا");
  PreferredWidth = 1360;
  PreferredHeight = 760;

  Search_PNL.SetItems({{"  کد کالا", InputKind::Integer},
                       {"  نام کالا", InputKind::Text},
                       {"  انبار", InputKind::Text},
                       {"  جـزئیات", InputKind::Text},
                       {"  موجودی", InputKind::Amount}},
                      1);
  Stores_PNL.Place(StoresTotals_RDB);
  Stores_PNL.Place(StoresSeparations_RDB);
  Criteria_PNL.Place(Search_PNL, 1);
  Criteria_PNL.Place(Stores_PNL);
  Criteria_PNL.Place(ADVSearch_Fram1);

  TTab_Search_Frame1.Search_TBC.SetAccessibleName("نوع گردش");
  TTab_Search_Frame1.Search_TBC.SetTabs({"همه", "خرید", "فروش", "اول دوره", "برگشت از فروش", "تولید",
                                         "برگشت از خرید", "حواله از انبار", "اضافه انبار", "اصلاح افزایشی",
                                         "حواله به انبار و تولید متغیر", "کسری انبار", "اصلاح کاهشی"});
  DeclareColumns();
  List_PNL.Place(TTab_Search_Frame1);
  List_PNL.Place(List_GRD, 1);
  Body_PNL.Splitter = true;
  Body_PNL.Place(Groups_PNL);
  Body_PNL.Place(List_PNL, 1);
  SearchInDetail_BTN.SetVisible(false);
  for (TButton* button : {&OpenInfo_BTN, &SearchInDetail_BTN, &PrintList_BTN, &Exit_BTN}) {
    Buttons_PNL.Place(*button);
  }
  Buttons_PNL.Place(CriteriaChanged_LBL);

  Place(Criteria_PNL);
  Place(DetailRow1);
  Place(Body_PNL, 1);
  Place(Buttons_PNL);
}

void TGoodDetailTransaction_FRM::DeclareColumns() {
  TSmartDBGrid_QRT& grid = List_GRD;
  grid.SetAccessibleName("موجودی جزئیات کالا");
  grid.SetEmptyText("<داده ای برای نمایش وجود ندارد>");
  grid.KeyColumns = 4;  // store and good
  const ReportColumns columns(grid);
  columns.Text("Anbar", "کد انبار", 70).SetVisible(false).SetCustomizable(false);
  columns.Text("AnbarName", "انبار", 140).SetVisible(false).SetCustomizable(false);
  columns.Text("Code", "کد کالا", 80);
  columns.Text("Name", "نام کالا", 210);
  columns.Text("DetailValues", "جــــزئیات", 300).SetAutoFit(true);
  columns.Text("D1Value", "جزییات 1", 100).SetVisible(false);
  columns.Text("D2Value", "جزییات 2", 100).SetVisible(false);
  columns.Text("D3Value", "جزییات 3", 100).SetVisible(false);
  columns.Text("D4Value", "جزییات 4", 100).SetVisible(false);
  columns.Text("D5Value", "جزییات 5", 100).SetVisible(false);
  columns.Summed("SumDetailKardex", "موجودی", kQuantityFormat, 120);
  columns.Text("UnitName", "واحد", 80);
}

}  // namespace goods
