// The component tree of one good's detail movements.
#include "module/framework/report_columns.h"
#include "module/reports/detail/one_good_detail_transaction.h"

namespace goods {

void TOneGoodDetailTransaction_FRM::DeclareForm() {
  SetCaption("گردش جزئیات کالا");
  PreferredWidth = 1280;
  PreferredHeight = 700;

  Details_PNL.Framed = true;
  for (TLabel* value : {&Detail1_LBL, &Detail2_LBL, &Detail3_LBL, &Detail4_LBL, &Detail5_LBL}) {
    value->Emphasis = true;
  }
  for (TLabel* label : {&Detail1_Cap_LBL, &Detail1_LBL, &Detail2_Cap_LBL, &Detail2_LBL, &Detail3_Cap_LBL,
                        &Detail3_LBL, &Detail4_Cap_LBL, &Detail4_LBL, &Detail5_Cap_LBL, &Detail5_LBL}) {
    Details_PNL.Place(*label);
  }
  Criteria_PNL.Place(Search_PNL, 1);
  Criteria_PNL.Place(ADVSearch_Fram1);
  Buttons_PNL.Place(OpenInfo_BTN);
  Buttons_PNL.Place(PrintList_BTN);
  Buttons_PNL.Place(Exit_BTN);
  Buttons_PNL.Place(CriteriaChanged_LBL);

  DeclareColumns();
  Place(Header_PNL);
  Place(Details_PNL);
  Place(Criteria_PNL);
  Place(GoodDetailTransaction_GRD, 1);
  Place(Buttons_PNL);
}

void TOneGoodDetailTransaction_FRM::DeclareColumns() {
  TSmartDBGrid_QRT& grid = GoodDetailTransaction_GRD;
  grid.SetAccessibleName("گردش جزئیات");
  grid.KeyColumns = 3;  // date and store
  const ReportColumns columns(grid);
  columns.Date("Date", "تاریخ", 83);
  columns.Text("Anbar", "کد انبار", 57).SetVisible(false);
  columns.Text("AnbarName", "انبار", 120);
  columns.Text("fullname", "نام شخص", 122);
  columns.Text("Comment", "شرح", 189).SetAutoFit(true);
  columns.Text("Length", "طول", 60);
  columns.Text("Width", "عرض", 60);
  columns.Text("Amount3", "تعداد", 70);
  // Cells are without their sign; what is left of the movements is not.
  columns.Text("Amount1", "مقدار", 60).SetFooter(FooterKind::Sum).SetFooterFormat(kQuantityFormat);
  columns.Text("Amount2", "مقدار 2", 60).SetFooter(FooterKind::Sum).SetFooterFormat(kQuantityFormat);
  columns.Number("KardexAmount", "مبلغ واحد", kAmountFormat, 100);
  columns.Number("TotalAmount", "مبلغ کل", kAmountFormat, 100);
}

}  // namespace goods
