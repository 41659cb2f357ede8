// TKardexSearch_AdvSearch_FRM: the criteria dialog of the row search.
#pragma once

#include <string>

#include "host/base/base_search.h"
#include "host/frames/general_search_frame.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/range_digit_search_frame.h"
#include "module/reports/stockcard/row_search_criteria.h"

namespace goods {

// Accepting runs the procedure over the window's own data source, behind the window's own criteria. What the
// dialog holds stays for its next showing.
class TKardexSearch_AdvSearch_FRM : public TBaseSearch_FRM {
 public:
  explicit TKardexSearch_AdvSearch_FRM(THost& host);
  ~TKardexSearch_AdvSearch_FRM() override;

  // What the window hands over before each showing: its statement head, its rows, and the parameters of its
  // own criteria.
  void SetUp(std::string script, TDataSource* source, std::string generalFilter);
  // The dialog's own criteria.
  RowSearchDialogCriteria Criteria() const;

  void FormShow() override;
  void Select_BTNClick() override;
  void Del_BTNClick() override;

  TGeneral_Search_Frame SearchGood_FRAME{this, "SearchGood_FRAME", "نام کا&لا :"};
  TGeneral_Search_Frame SearchPerson_FRAME{this, "SearchPerson_FRAME", "نام &شخص :"};
  TRange_Cost_Search_Frame SearchRangeAmount_FRAME{this, "SearchRangeAmount_FRAME", "م&قدار :"};
  TRange_Digit_Search_Frame SearchRangeCode_FRAME{this, "SearchRangeCode_FRAME", "&کد :"};
  TRange_Cost_Search_Frame SearchRangeCost_FRAME{this, "SearchRangeCost_FRAME", "مبلغ :"};
  TRange_Date_Search_Frame SearchRangeDate_FRAME{this, "SearchRangeDate_FRAME", "تاریخ :"};
  TGeneral_Search_Frame SearchStore_FRAME{this, "SearchStore_FRAME", "نام ا&نبار :"};
  TCheckBox FarsiFilter_CHK{this, "FarsiFilter_CHK", "چاپ شرایط بالای فهرست"};

 private:
  void DeclareForm();
};

}  // namespace goods
