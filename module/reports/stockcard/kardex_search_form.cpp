// The row search's component tree.
#include "module/reports/stockcard/kardex_search.h"

namespace goods {

void TKardexSearch_FRM::DeclareForm() {
  SetCaption("جستجو در کاردکس");
  PreferredWidth = 1360;
  PreferredHeight = 720;

  SearchComment_Frame.SetItems({{"شرح", "Comment", DataKind::Text}});

  Criteria_PNL.Place(SearchComment_Frame, 1);
  Criteria_PNL.Place(ADVSearch_Fram1);
  Report_PNL.Place(Help_LBL, 1);
  Report_PNL.Place(CriteriaChanged_LBL);
  Report_PNL.Place(Report_BTN);
  for (TButton* button : {&OpenKardex_BTN, &PrintReportList_BTN, &Exit_BTN}) Buttons_PNL.Place(*button);

  DeclareColumns();
  Place(Criteria_PNL);
  Place(Report_PNL);
  Place(KardexSearch_GRD, 1);
  Place(Buttons_PNL);
}

void TKardexSearch_FRM::DeclareColumns() {
  TSmartDBGrid_QRT& grid = KardexSearch_GRD;
  grid.SetAccessibleName("ردیف های یافته شده");

  const auto text = [&](const char* field, const char* caption, int width) -> TGridColumn& {
    return grid.AddColumn(field, caption).SetWidth(width);
  };
  const auto number = [&](const char* field, const char* caption, std::string_view format,
                          int width) -> TGridColumn& {
    return grid.AddColumn(field, caption)
        .SetDisplayFormat(format)
        .SetMoney(format == kAmountFormat)
        .SetWidth(width);
  };

  text("Radif", "ردیف", 60).SetFooter(FooterKind::Count);
  text("Date", "تاریخ", 86).SetKind(CellKind::Date);
  text("Code", "کد کالا", 60);
  text("AbbName", "بارکد کالا", 100).SetVisible(false);
  text("PerName", "نام شخص", 112);
  text("KalaName", "نام کالا", 150).SetAutoFit(true);
  text("AnbarName", "انبار", 108);
  text("Comment", "شرح", 120).SetAutoFit(true);
  number("Varede", " وارده", kQuantityFormat, 84).SetFooter(FooterKind::Sum);
  number("Sadere", "صادره", kQuantityFormat, 84).SetFooter(FooterKind::Sum);
  number("Mab_Varede", "فی وارده", kAmountFormat, 96);
  number("Mab_Sadere", "فی صادره", kAmountFormat, 96);
  number("Gheymat_Varede", "مبلغ وارده", kAmountFormat, 134).SetFooter(FooterKind::Sum);
  number("Gheymat_Sadere", "مبلغ صادره", kAmountFormat, 134).SetFooter(FooterKind::Sum);
}

}  // namespace goods
