// The component tree of the stock per store.
#include "module/reports/asset/goods_asset_store.h"

namespace goods {

void TGoodsAsset_Store_FRM::DeclareForm() {
  SetCaption("گزارش موجودی کالا به تفکیک انبار");
  PreferredWidth = 1360;
  PreferredHeight = 760;
  Maximised = true;

  GeneralSearch_FRAME.SetItems(
      {{"کد کالا", "GoodCode", DataKind::Number}, {"عنوان کالا", "GoodName", DataKind::Text}});
  Period_PNL.CaptionOnLabel("م&حاسبه موجودی پيش از بازه");
  Criteria_PNL.Place(GeneralSearch_FRAME, 1);
  Criteria_PNL.Place(Period_PNL);

  Help_LBL.SetCaption(
      "پس از تعیین شرایط جستجو و انتخاب ستون ها، دکمه تهیه گزارش را بزنید. پس از تغییر ستون ها نیز دوباره "
      "این دکمه را "
      "بزنید؛ در غیر این صورت ممکن است اطلاعات گزارش معتبر نباشد.");
  Report_PNL.Place(pnlReport_PNL, 1);
  Report_PNL.Place(CriteriaChanged_LBL);
  Report_PNL.Place(Search_BTN);

  DeclareColumns();
  AdvShapeButton1.SetHint("ستون های بسیار در چاپ");
  for (TButton* button : {&btnShow_BTN, &PrintList_BTN, &AdvShapeButton1, &Exit_BTN}) {
    Buttons_PNL.Place(*button);
  }

  Place(Criteria_PNL);
  Place(Help_LBL);
  Place(Report_PNL);
  Place(GoodsAsset_Store_GRD, 1);
  Place(Buttons_PNL);
}

}  // namespace goods
