// TOneGoodDetailTransactionSearch_FRM: the criteria dialog of one good's detail movements.
#pragma once

#include "host/base/base_search.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/select_entity_search_frame.h"
#include "module/reports/detail/one_good_criteria.h"

namespace goods {

// Reset to what its opener gives on every opening of the window.
class TOneGoodDetailTransactionSearch_FRM : public TBaseSearch_FRM {
 public:
  explicit TOneGoodDetailTransactionSearch_FRM(THost& host);
  ~TOneGoodDetailTransactionSearch_FRM() override;

  OneGoodDetailDialog Criteria() const;

  void FormShow() override;
  void Del_BTNClick() override;

  TRange_Date_Search_Frame Date_Frame{this, "Date_Frame", "&تاریخ :"};
  TSelectEntity_Search_Frame Store_Frame{this, "Store_Frame", "ا&نبار :"};
  TSelectEntity_Search_Frame Person_Frame{this, "Person_Frame", "&شخص :"};
};

}  // namespace goods
