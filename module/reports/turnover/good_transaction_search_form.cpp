// The component tree of the turnover list's criteria dialog.
#include "module/reports/turnover/good_transaction_search.h"

namespace goods {

void TGoodTransactionSearch_FRM::DeclareForm() {
  SetCaption("جستجوی پیشرفته کالاها");
  PreferredWidth = 720;
  PreferredHeight = 350;

  Store_Frame.SetEntityType(EntityType::Store);
  SelectedList_LBL.FocusControl = &SelectedList_CMB;
  SelectedList_CMB.SetAccessibleName("لیست انتخابی");
  SelectedList_CMB.SetWidth(200);
  DisplayType_CHK.CaptionShown = false;
  DisplayType_LBL.OnClick = [this] { DisplayType_CHK.Click(); };
  SelectedList_PNL.Place(SelectedList_LBL);
  SelectedList_PNL.Place(SelectedList_CMB);
  SelectedList_PNL.Place(DisplayType_CHK);
  SelectedList_PNL.Place(DisplayType_LBL, 1);

  CostRangeSearch_FRAME.SetMoney();
  Go_BTN.SetVisible(false);
  Go_BTN.SetEnabled(false);
  Buttons_PNL.Place(Go_BTN);

  Place(Code_Frame);
  Place(CostRangeSearch_FRAME);
  Place(Date_Frame);
  Place(Store_Frame);
  Place(TCategorySearchFrame1);
  Place(TTags_search_FRM1);
  Place(SelectedList_PNL);
  Place(Period_PNL);
  Place(Buttons_PNL);
}

}  // namespace goods
