// The turnover list's component tree.
#include "module/framework/report_columns.h"
#include "module/reports/turnover/good_transaction.h"

namespace goods {
namespace {

constexpr int kTagWidth = 26;
constexpr int kKeyColumns = 3;  // code, bar code and name

}  // namespace

void TGoodTransaction_FRM::DeclareForm() {
  PreferredWidth = 1360;
  PreferredHeight = 760;
  Maximised = true;

  GeneralSearch_FRAME.SetItems({{"کد کالا", "Code", DataKind::Number},
                                {"نام کالا", "name", DataKind::Text},
                                {"وارده", "Varede", DataKind::Amount},
                                {"صادره", "Sadere", DataKind::Amount},
                                {"موجودی", "Mogodi", DataKind::Amount},
                                {"واحد1", "UnitName1", DataKind::Text},
                                {"بارکد 1", "Abbname", DataKind::Text}});
  GeneralSearch_FRAME.GeneralSearch_CMB.SetItemIndex(1);
  Tags_btn.SetHint("برچسب های کالای جاری");
  Criteria_PNL.Place(GeneralSearch_FRAME, 1);
  Criteria_PNL.Place(ADVSearch_Fram1);
  Criteria_PNL.Place(Tags_btn);

  Kala_TBC.SetAccessibleName("نوع کالاها");
  Kala_TBC.SetTabs({" کالاهای موجود ", " کالاهای کسری ", " کالاهای بدون گردش ", " کالاهای موجودی صفر ",
                    " کالاهای زیر سقف ", " کلیه کالا ها "});
  Kala_TBC.SetTabIndex(5);
  Tags_pnl.Framed = true;
  Tags_pnl.SetVisible(false);
  Tags_pnl.Place(TTags1);
  DeclareColumns(GoodTransactin_List_GRD, false);
  DeclareColumns(GoodTransactinDetail_List_GRD, true);
  GoodTransactinDetail_List_GRD.SetVisible(false);
  List_PNL.Place(Kala_TBC);
  List_PNL.Place(GoodTransactin_List_GRD, 1);
  List_PNL.Place(GoodTransactinDetail_List_GRD, 1);
  List_PNL.Place(Tags_pnl);

  Body_PNL.Splitter = true;
  Body_PNL.Place(Groups_PNL);
  Body_PNL.Place(List_PNL, 1);
  for (TButton* button : {&Select_BTN, &Gar_BTN, &DetailList_BTN, &PrintList_BTN, &EXit_BTN}) {
    Buttons_PNL.Place(*button);
  }
  Buttons_PNL.Place(CriteriaChanged_LBL);

  Place(Criteria_PNL);
  Place(pnlReport_PNL);
  Place(DontSavedVouchers_FRAME);
  Place(Body_PNL, 1);
  Place(Buttons_PNL);
}

// The list with whole and part quantities shows the same columns in another order, and the part between.
void TGoodTransaction_FRM::DeclareColumns(TSmartDBGrid_QRT& grid, bool wholeAndPart) {
  grid.SetAccessibleName("فهرست کالاها");
  grid.KeyColumns = kKeyColumns;
  const ReportColumns columns(grid);

  columns.Text("Code", "کد", 60);
  columns.Text("AbbName", wholeAndPart ? "بارکد " : "بارکد", 110).SetVisible(wholeAndPart);
  columns.Text("Name", "نام کالا", 170).SetAutoFit(true);
  columns.Date("OperationDate", "تاریخ آخرین عملیات", 100);
  columns.Number("gheymat_miangin", "فی (قیمت میانگین)", kAmountFormat, 128);
  columns.Number("Stock", "فی", kAmountFormat, 170);
  columns.Summed("varede", "وارده", kQuantityFormat, 94);
  columns.Summed("sadere", "صادره", kQuantityFormat, 94);
  const auto secondUnit = [&] {
    columns.Summed("Mogodi2", wholeAndPart ? "موجودی کل" : "موجودی 2", kQuantityFormat, 90);
    columns.Text("UnitName2", wholeAndPart ? "واحد کل" : "واحد 2", 70);
  };
  if (wholeAndPart) {
    secondUnit();
    columns.Summed("Joz", "مقدار جزء", kQuantityFormat, 86);
  }
  columns.Summed("Mogodi", "موجودی 1", kQuantityFormat, 94);
  columns.Text("UnitName1", wholeAndPart ? "واحد جزء" : "واحد 1", 70);
  if (!wholeAndPart) secondUnit();
  columns.Number("Jam_Kol", "مبلغ کل", kAmountFormat, 150);
  columns.Number("SumStock", "مبلغ کل", kAmountFormat, 150);
  columns.Text("t1", "", kTagWidth).SetKind(CellKind::Swatch);
  columns.Text("t2", "", kTagWidth).SetKind(CellKind::Swatch);
  columns.Text("t3", "", kTagWidth).SetKind(CellKind::Swatch).SetCustomizable(false);
}

}  // namespace goods
