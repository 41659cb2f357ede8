// The component tree of the goods without a price.
#include "module/framework/report_columns.h"
#include "tests/module/new_report/goods_without_price.h"

namespace goods {

void TGoodsWithoutPrice_FRM::DeclareForm() {
  SetCaption("کالاهای بدون قیمت");
  Search_PNL.SetItems({{"  کد کالا", InputKind::Integer}, {"  نام کالا", InputKind::Text}}, 1);
  Codes_FRAME.SetItems({{"کد کالا", "GoodCode", DataKind::Number}});
  Codes_FRAME.RangeDigit_Reverst_CHK.SetVisible(false);

  GoodsWithoutPrice_GRD.SetAccessibleName("کالاهای بدون قیمت");
  const ReportColumns columns(GoodsWithoutPrice_GRD);
  columns.Text("GoodCode", "کد کالا", 90);
  columns.Text("GoodName", "نام کالا", 300).SetAutoFit(true);
  columns.Summed("Stock", "موجودی", kQuantityFormat, 120);

  Criteria_PNL.Place(Search_PNL, 1);
  Criteria_PNL.Place(WithStock_CHK);
  for (TButton* button : {&OpenKardex_BTN, &PrintList_BTN, &Exit_BTN}) Buttons_PNL.Place(*button);
  Buttons_PNL.Place(CriteriaChanged_LBL);
  Place(Criteria_PNL);
  Place(Codes_FRAME);
  Place(GoodsWithoutPrice_GRD, 1);
  Place(Buttons_PNL);
}

}  // namespace goods
