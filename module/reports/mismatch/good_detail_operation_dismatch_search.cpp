#include "module/reports/mismatch/good_detail_operation_dismatch_search.h"

#include "module/framework/report_window.h"

namespace goods {

TGoodDetailOperationDismatchSearch_FRM::TGoodDetailOperationDismatchSearch_FRM(THost& host)
    : TBaseSearch_FRM(host, "GoodDetailOperationDismatchSearch_FRM") {
  DeclareForm();
}

TGoodDetailOperationDismatchSearch_FRM::~TGoodDetailOperationDismatchSearch_FRM() = default;

OperationDismatchDialog TGoodDetailOperationDismatchSearch_FRM::Criteria() const {
  return {
      .dates = RangeOf(Date_Frame),
      .codes = RangeOf(OperationCode_FRAME),
      .rows = RangeOf(OperationRow_FRAME),
      .amounts = RangeOf(OperationAmount_FRAME),
      .amountsOfDetails = OperationAmount_FRAME.RangeDigit_CMB.ItemIndex() == 1,
  };
}

void TGoodDetailOperationDismatchSearch_FRM::FormShow() {
  TBaseSearch_FRM::FormShow();
  Date_Frame.RangeDate_From_EDT.SetFocus();
}

void TGoodDetailOperationDismatchSearch_FRM::Del_BTNClick() {
  TBaseSearch_FRM::Del_BTNClick();
  for (TControl* control : Controls()) {
    if (auto* frame = dynamic_cast<TSearchFrame*>(control)) frame->Clear();
  }
}

}  // namespace goods
