// TGoodDetailOperationDismatchSearch_FRM: the criteria dialog of the operation mismatch.
#pragma once

#include "host/base/base_search.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/range_digit_search_frame.h"
#include "module/reports/mismatch/operation_mismatch_criteria.h"

namespace goods {

// Belongs to its window, which reads the criteria after each showing and runs them itself.
class TGoodDetailOperationDismatchSearch_FRM : public TBaseSearch_FRM {
 public:
  explicit TGoodDetailOperationDismatchSearch_FRM(THost& host);
  ~TGoodDetailOperationDismatchSearch_FRM() override;

  OperationDismatchDialog Criteria() const;

  void FormShow() override;
  void Del_BTNClick() override;

  TRange_Date_Search_Frame Date_Frame{this, "Date_Frame", "&تاریخ :"};
  TRange_Digit_Search_Frame OperationCode_FRAME{this, "OperationCode_FRAME", "&کد عملیات :"};
  TRange_Digit_Search_Frame OperationRow_FRAME{this, "OperationRow_FRAME", "&ردیف عملیات :"};
  TRange_Digit_Search_Frame OperationAmount_FRAME{this, "OperationAmount_FRAME",
                                                  "&مقدار :", InputKind::Amount};

 private:
  void DeclareForm();
};

}  // namespace goods
