#include "module/reports/detail/one_good_detail_transaction_search.h"

#include "module/framework/report_window.h"

namespace goods {

TOneGoodDetailTransactionSearch_FRM::TOneGoodDetailTransactionSearch_FRM(THost& host)
    : TBaseSearch_FRM(host, "OneGoodDetailTransactionSearch_FRM") {
  SetCaption("جستجوی پیشرفته در گردش جزئیات");
  PreferredWidth = 600;
  PreferredHeight = 176;
  Store_Frame.SetEntityType(EntityType::Store);
  Store_Frame.SetItems({{"انبار", "Anbar", DataKind::Number}});
  Person_Frame.SetEntityType(EntityType::Person);
  Person_Frame.SetItems({{"شخص", "PerCode", DataKind::Number}});
  Date_Frame.SetItems({{"تاریخ", "Date", DataKind::Text}});
  // The report has no parameters that turn a criterion round.
  for (TCheckBox* reverse : {&Store_Frame.SelectEntity_Reverst_CHK, &Person_Frame.SelectEntity_Reverst_CHK,
                             &Date_Frame.RangeDate_Reverst_CHK}) {
    reverse->SetVisible(false);
  }
  Place(Date_Frame);
  Place(Store_Frame);
  Place(Person_Frame);
  Place(Buttons_PNL);
}

TOneGoodDetailTransactionSearch_FRM::~TOneGoodDetailTransactionSearch_FRM() = default;

OneGoodDetailDialog TOneGoodDetailTransactionSearch_FRM::Criteria() const {
  return {.person = CodeOf(Person_Frame), .store = CodeOf(Store_Frame), .dates = RangeOf(Date_Frame)};
}

void TOneGoodDetailTransactionSearch_FRM::FormShow() {
  TBaseSearch_FRM::FormShow();
  Date_Frame.RangeDate_From_EDT.SetFocus();
}

void TOneGoodDetailTransactionSearch_FRM::Del_BTNClick() {
  TBaseSearch_FRM::Del_BTNClick();
  Date_Frame.Clear();
  Store_Frame.Clear();
  Person_Frame.Clear();
}

}  // namespace goods
