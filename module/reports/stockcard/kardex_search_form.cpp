// The row search's component tree.
#include "module/framework/report_columns.h"
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
  grid.KeyColumns = 3;  // number, date and good

  const ReportColumns columns(grid);

  columns.Text("Radif", "ردیف", 60).SetFooter(FooterKind::Count);
  columns.Date("Date", "تاریخ", 86);
  columns.Text("Code", "کد کالا", 60);
  columns.Text("AbbName", "بارکد کالا", 100).SetVisible(false);
  columns.Text("PerName", "نام شخص", 112);
  columns.Text("KalaName", "نام کالا", 150).SetAutoFit(true);
  columns.Text("AnbarName", "انبار", 108);
  columns.Text("Comment", "شرح", 120).SetAutoFit(true);
  columns.Summed("Varede", " وارده", kQuantityFormat, 84);
  columns.Summed("Sadere", "صادره", kQuantityFormat, 84);
  columns.Number("Mab_Varede", "فی وارده", kAmountFormat, 96);
  columns.Number("Mab_Sadere", "فی صادره", kAmountFormat, 96);
  columns.Summed("Gheymat_Varede", "مبلغ وارده", kAmountFormat, 134);
  columns.Summed("Gheymat_Sadere", "مبلغ صادره", kAmountFormat, 134);
}

}  // namespace goods
