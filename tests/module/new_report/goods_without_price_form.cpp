// The component tree of the goods without a price.
#include "tests/module/new_report/goods_without_price.h"

namespace goods {

void TGoodsWithoutPrice_FRM::DeclareForm() {
  SetCaption("کالاهای بدون قیمت");
  Search_PNL.SetItems({{"  کد کالا", InputKind::Integer}, {"  نام کالا", InputKind::Text}}, 1);
  Codes_FRAME.SetItems({{"کد کالا", "GoodCode", DataKind::Number}});
  Codes_FRAME.RangeDigit_Reverst_CHK.SetVisible(false);

  GoodsWithoutPrice_GRD.SetAccessibleName("کالاهای بدون قیمت");
  GoodsWithoutPrice_GRD.AddColumn("GoodCode", "کد کالا").SetWidth(90);
  GoodsWithoutPrice_GRD.AddColumn("GoodName", "نام کالا").SetWidth(300).SetAutoFit(true);
  GoodsWithoutPrice_GRD.AddColumn("Stock", "موجودی")
      .SetWidth(120)
      .SetDisplayFormat(kQuantityFormat)
      .SetFooter(FooterKind::Sum);

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
