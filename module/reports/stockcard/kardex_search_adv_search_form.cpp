// The component tree of the row search's criteria dialog.
#include <initializer_list>

#include "module/reports/stockcard/kardex_search_adv_search.h"

namespace goods {

void TKardexSearch_AdvSearch_FRM::DeclareForm() {
  SetCaption("جستجوی پیشرفته در کاردکس");
  PreferredWidth = 640;
  PreferredHeight = 420;

  SearchGood_FRAME.SetItems({{"نام کالا", "KalaName", DataKind::Text}});
  SearchPerson_FRAME.SetItems({{"نام شخص", "PerName", DataKind::Text}});
  SearchRangeAmount_FRAME.SetItems(
      {{"وارده", "Varede", DataKind::Amount}, {"صادره", "Sadere", DataKind::Amount}});
  SearchRangeCode_FRAME.SetItems({{"کد کالا", "Code", DataKind::Number}});
  SearchRangeCost_FRAME.SetItems({{"فی وارده", "Mab_Varede", DataKind::Amount},
                                  {"فی صادره", "Mab_Sadere", DataKind::Amount},
                                  {"مبلغ وارده", "Gheymat_Varede", DataKind::Amount},
                                  {"مبلغ صادره", "Gheymat_Sadere", DataKind::Amount}});
  SearchRangeCost_FRAME.SetMoney();
  SearchRangeDate_FRAME.SetItems({{"تاریخ", "Date", DataKind::Text}});
  SearchRangeDate_FRAME.ShowTimes();
  SearchStore_FRAME.SetItems({{"نام انبار", "AnbarName", DataKind::Text}});

  for (TSearchFrame* frame : std::initializer_list<TSearchFrame*>{
           &SearchGood_FRAME, &SearchPerson_FRAME, &SearchRangeAmount_FRAME, &SearchRangeCode_FRAME,
           &SearchRangeCost_FRAME, &SearchRangeDate_FRAME, &SearchStore_FRAME}) {
    QeratSearchManager1.AddItem(frame->Search);
    Place(*frame);
  }
  FarsiFilter_CHK.SetChecked(true);
  Place(FarsiFilter_CHK);
  Place(Buttons_PNL);
}

}  // namespace goods
