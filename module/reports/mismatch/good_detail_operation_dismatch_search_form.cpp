// The component tree of the operation mismatch's criteria dialog.
#include <initializer_list>

#include "module/reports/mismatch/good_detail_operation_dismatch_search.h"

namespace goods {

void TGoodDetailOperationDismatchSearch_FRM::DeclareForm() {
  SetCaption("جستجوی پیشرفته در مغایرت جزئیات کالا");
  PreferredWidth = 620;
  PreferredHeight = 216;

  Date_Frame.SetItems({{"تاریخ", "OperationDate", DataKind::Text}});
  OperationCode_FRAME.SetItems({{"کد عملیات", "OperationCode", DataKind::Number}});
  OperationRow_FRAME.SetItems({{"ردیف عملیات", "OperationRow", DataKind::Number}});
  OperationAmount_FRAME.SetItems({{"مقدار عملیات", "OperationAmount", DataKind::Amount},
                                  {"مقدار جزئیات", "DetailAmount", DataKind::Amount}});

  // The report has no parameter that turns a range round.
  for (TCheckBox* reverse :
       {&Date_Frame.RangeDate_Reverst_CHK, &OperationCode_FRAME.RangeDigit_Reverst_CHK,
        &OperationRow_FRAME.RangeDigit_Reverst_CHK, &OperationAmount_FRAME.RangeDigit_Reverst_CHK}) {
    reverse->SetVisible(false);
  }

  for (TControl* each : std::initializer_list<TControl*>{
           &Date_Frame, &OperationCode_FRAME, &OperationRow_FRAME, &OperationAmount_FRAME, &Buttons_PNL}) {
    Place(*each);
  }
}

}  // namespace goods
