// The component tree of the stock by detail values.
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
  grid.AddColumn("Anbar", "کد انبار").SetWidth(70).SetVisible(false).SetCustomizable(false);
  grid.AddColumn("AnbarName", "انبار").SetWidth(140).SetVisible(false).SetCustomizable(false);
  grid.AddColumn("Code", "کد کالا").SetWidth(80);
  grid.AddColumn("Name", "نام کالا").SetWidth(210);
  grid.AddColumn("DetailValues", "جــــزئیات").SetWidth(300).SetAutoFit(true);
  grid.AddColumn("D1Value", "جزییات 1").SetWidth(100).SetVisible(false);
  grid.AddColumn("D2Value", "جزییات 2").SetWidth(100).SetVisible(false);
  grid.AddColumn("D3Value", "جزییات 3").SetWidth(100).SetVisible(false);
  grid.AddColumn("D4Value", "جزییات 4").SetWidth(100).SetVisible(false);
  grid.AddColumn("D5Value", "جزییات 5").SetWidth(100).SetVisible(false);
  grid.AddColumn("SumDetailKardex", "موجودی")
      .SetWidth(120)
      .SetDisplayFormat(kQuantityFormat)
      .SetFooter(FooterKind::Sum);
  grid.AddColumn("UnitName", "واحد").SetWidth(80);
}

}  // namespace goods
