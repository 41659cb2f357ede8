// The component tree of one good's detail movements.
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
  grid.AddColumn("Date", "تاریخ").SetWidth(83).SetKind(CellKind::Date);
  grid.AddColumn("Anbar", "کد انبار").SetWidth(57).SetVisible(false);
  grid.AddColumn("AnbarName", "انبار").SetWidth(120);
  grid.AddColumn("fullname", "نام شخص").SetWidth(122);
  grid.AddColumn("Comment", "شرح").SetWidth(189).SetAutoFit(true);
  grid.AddColumn("Length", "طول").SetWidth(60);
  grid.AddColumn("Width", "عرض").SetWidth(60);
  grid.AddColumn("Amount3", "تعداد").SetWidth(70);
  // Cells are without their sign; what is left of the movements is not.
  grid.AddColumn("Amount1", "مقدار").SetWidth(60).SetFooter(FooterKind::Sum).SetFooterFormat(kQuantityFormat);
  grid.AddColumn("Amount2", "مقدار 2")
      .SetWidth(60)
      .SetFooter(FooterKind::Sum)
      .SetFooterFormat(kQuantityFormat);
  grid.AddColumn("KardexAmount", "مبلغ واحد").SetWidth(100).SetDisplayFormat(kAmountFormat).SetMoney();
  grid.AddColumn("TotalAmount", "مبلغ کل").SetWidth(100).SetDisplayFormat(kAmountFormat).SetMoney();
}

}  // namespace goods
