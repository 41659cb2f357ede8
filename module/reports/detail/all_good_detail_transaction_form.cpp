// The component tree of the search in all goods' detail movements.
#include "module/framework/report_columns.h"
#include "module/reports/detail/all_good_detail_transaction.h"

namespace goods {

void TAllGoodDetailTransaction_FRM::DeclareForm() {
  SetCaption("جستجو در گردش جزئیات کالا");
  PreferredWidth = 1360;
  PreferredHeight = 760;

  Search_PNL.SetItems({{"  کد کالا", InputKind::Integer},
                       {"  نام کالا", InputKind::Text},
                       {"  انبار", InputKind::Text},
                       {"  جزئیات", InputKind::Text},
                       {"  نام شخص", InputKind::Text},
                       {"  شرح", InputKind::Text},
                       {"  وارده", InputKind::Integer},
                       {"  صادره", InputKind::Integer},
                       {"  مبلغ واحد", InputKind::Amount, 0, true},
                       {"  مبلغ کل", InputKind::Amount, 0, true}},
                      1);
  OperationsType_LBL.FocusControl = &OperationsType_CMB;
  OperationsType_CMB.SetAccessibleName("نوع عملیات");
  OperationsType_CMB.SetWidth(220);

  Criteria_PNL.Place(Search_PNL, 1);
  Criteria_PNL.Place(ADVSearch_Fram1);
  Details_PNL.Place(OperationsType_LBL);
  Details_PNL.Place(OperationsType_CMB);
  Details_PNL.Place(DetailRow1, 1);

  DeclareColumns();
  TListDetail_FRAME1.SetHeight(130);
  TListDetail_FRAME1.DetailFields_QRT1.SetFields(
      {{"OperationDate", "تاریخ", ""},
       {"AnbarName", "انبار", ""},
       {"Name", "نام کالا", ""},
       {"Comment", "شرح", ""},
       {"Varede", "مقدار وارده", std::string(kQuantityFormat)},
       {"Sadere", "مقدار صادره", std::string(kQuantityFormat)},
       {"fullname", "نام شخص", ""},
       {"Amount", "مبلغ واحد", std::string(kAmountFormat), true},
       {"TotalAmount", "مبلغ کل", std::string(kAmountFormat), true},
       {"D1Value", "جزئیات 1", ""},
       {"D2Value", "جزئیات 2", ""},
       {"D3Value", "جزئیات 3", ""},
       {"D4Value", "جزئیات 4", ""},
       {"D5Value", "جزئیات 5", ""},
       {"DetailValues", "جـــــزئیات", ""}});
  Body_PNL.Splitter = true;
  Body_PNL.Place(List_GRD, 1);
  Body_PNL.Place(TListDetail_FRAME1);
  Buttons_PNL.Place(PrintList_BTN);
  Buttons_PNL.Place(Exit_BTN);
  Buttons_PNL.Place(CriteriaChanged_LBL);
  Buttons_PNL.Place(TListDetail_FRAME1.View_PNL, 1);

  Place(Criteria_PNL);
  Place(Details_PNL);
  Place(Body_PNL, 1);
  Place(Buttons_PNL);
}

void TAllGoodDetailTransaction_FRM::DeclareColumns() {
  TSmartDBGrid_QRT& grid = List_GRD;
  grid.SetCaption(" گزارش جزئیات کالا ");
  grid.SetEmptyText("<داده ای برای نمایش وجود ندارد>");
  grid.KeyColumns = 5;  // date, store and good
  const ReportColumns columns(grid);

  columns.Date("OperationDate", "تاریخ", 94);
  columns.Text("Anbar", "کد انبار", 70).SetVisible(false);
  columns.Text("AnbarName", "انبار", 150);
  columns.Text("Code", "کد کالا", 70).SetVisible(false);
  columns.Text("Name", "نام کالا", 116).SetAutoFit(true);
  columns.Text("D1Value", "جزئیات 1", 100).SetVisible(false);
  columns.Text("D2Value", "جزئیات 2", 100).SetVisible(false);
  columns.Text("D3Value", "جزئیات 3", 100).SetVisible(false);
  columns.Text("D4Value", "جزئیات 4", 100).SetVisible(false);
  columns.Text("D5Value", "جزئیات 5", 100).SetVisible(false);
  columns.Text("DetailValues", "جـــــزئیات", 250).SetAutoFit(true);
  columns.Text("fullname", "نام شخص", 116);
  columns.Text("Comment", "شرح", 200).SetAutoFit(true);
  columns.Number("Varede", "مقدار وارده", kQuantityFormat, 55).SetAutoFit(true);
  columns.Number("Sadere", "مقدار صادره", kQuantityFormat, 53).SetAutoFit(true);
  columns.Number("Amount", "مبلغ واحد", kAmountFormat, 100);
  columns.Number("TotalAmount", "مبلغ کل", kAmountFormat, 100);
}

}  // namespace goods
