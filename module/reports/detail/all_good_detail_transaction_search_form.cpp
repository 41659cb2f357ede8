// The component tree of the good-detail reports' criteria dialog.
#include "module/reports/detail/all_good_detail_transaction_search.h"

namespace goods {
namespace {

constexpr int kKindWidth = 150;  // as in the rows of the details above

}  // namespace

void TAllGoodDetailTransactionSearch_FRM::DeclareForm() {
  SetCaption("جستجوی پیشرفته در جزئیات کالا");
  PreferredWidth = 760;
  PreferredHeight = 496;

  SelectedList_LBL.FocusControl = &SelectedList_CMB;
  SelectedList_CMB.SetAccessibleName("لیست انتخابی");
  SelectedList_CMB.SetWidth(200);
  for (TComboBox* kind : {&Good_SESF.SelectEntity_CMB, &SearchGoodCode_FRAME.RangeDigit_CMB}) {
    kind->SetWidth(kKindWidth);
  }
  DisplayType_CHK.CaptionShown = false;
  DisplayType_LBL.OnClick = [this] { DisplayType_CHK.Click(); };
  SelectedList_PNL.Place(SelectedList_LBL);
  SelectedList_PNL.Place(SelectedList_CMB);
  SelectedList_PNL.Place(DisplayType_CHK);
  SelectedList_PNL.Place(DisplayType_LBL, 1);
  Store_SESF.SetEntityType(EntityType::Store);
  Store_SESF.SetItems({{"  انبار", "StoreCode", DataKind::Number}});
  DateRangeSearch_Frame.SetItems({{"  تاریخ عملیات", "OperationDate", DataKind::Text}});
  // Codes are single: the reports have no parameter that turns them round.
  for (TCheckBox* reverse :
       {&TTags_search_FRM1.Tags_Reverst_CHK, &Good_SESF.SelectEntity_Reverst_CHK,
        &SearchGoodCode_FRAME.RangeDigit_Reverst_CHK, &Store_SESF.SelectEntity_Reverst_CHK,
        &DateRangeSearch_Frame.RangeDate_Reverst_CHK}) {
    reverse->SetVisible(false);
  }

  Place(TTags_search_FRM1);
  Place(TCategorySearchFrame1);
  for (TDetailRow* row : DetailRows()) Place(*row);
  Place(SelectedList_PNL);
  Place(Good_SESF);
  Place(SearchGoodCode_FRAME);
  Place(Store_SESF);
  Place(DateRangeSearch_Frame);
  Place(Buttons_PNL);
}

}  // namespace goods
