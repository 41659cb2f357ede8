// The component tree of the overall turnover.
#include "module/framework/report_columns.h"
#include "module/reports/turnover/good_trans_overall.h"

namespace goods {
namespace {

constexpr int kFixedColumns = 3;  // code, bar code and name stay in sight
constexpr int kAmountWidth = 146;
constexpr int kQuantityWidth = 104;

}  // namespace

void TGoodTrans_Overall_FRM::DeclareForm() {
  SetCaption("گزارش کلی ورود و خروج کالا ( خلاصه کاردکس )");
  PreferredWidth = 1360;
  PreferredHeight = 760;
  Maximised = true;

  GeneralSearch_FRAME.SetItems({{"کد کالا", "KalaCode", DataKind::Number},
                                {"نام کالا", "Kalaname", DataKind::Text},
                                {"بارکد کالا", "AbbName", DataKind::Text}});
  Store_SESF.SetEntityType(EntityType::Store);
  Store_SESF.SelectEntity_Reverst_CHK.SetVisible(false);  // one store, or every one
  Criteria_PNL.Place(GeneralSearch_FRAME, 1);
  Criteria_PNL.Place(Store_SESF, 1);

  Go_BTN.SetVisible(false);
  Go_BTN.SetEnabled(false);
  Report_PNL.Place(Period_PNL, 1);
  Report_PNL.Place(Go_BTN);
  Report_PNL.Place(CriteriaChanged_LBL);
  Report_PNL.Place(Search_BTN);

  money_Overall_List_GRD.SetAccessibleName("موجودی ریالی");
  tedad_Overall_List_GRD.SetAccessibleName("موجودی مقداری");
  DeclareColumns(money_Overall_List_GRD, kAmountFormat, kAmountWidth, "مانده بر اساس بهای تمام شده");
  DeclareColumns(tedad_Overall_List_GRD, kQuantityFormat, kQuantityWidth, "مانده");
  ReialyTab.SetMoney();
  ReialyTab.Place(money_Overall_List_GRD, 1);
  TedadyTab.Place(tedad_Overall_List_GRD, 1);
  Mojodi_PGC.Place(ReialyTab);
  Mojodi_PGC.Place(TedadyTab);

  AdvShapeButton1.SetHint("ستون های بسیار در چاپ");
  for (TButton* button : {&btnShow_BTN, &PrintList_BTN, &AdvShapeButton1, &Exit_BTN}) {
    Buttons_PNL.Place(*button);
  }

  Place(Criteria_PNL);
  Place(Report_PNL);
  Place(Mojodi_PGC, 1);
  Place(Buttons_PNL);
}

void TGoodTrans_Overall_FRM::DeclareColumns(TSmartDBGrid_QRT& grid, std::string_view format, int width,
                                            const char* remained) {
  const ReportColumns columns(grid);
  const auto number = [&](const char* field, const char* caption) -> TGridColumn& {
    return columns.Summed(field, caption, format, width);
  };
  grid.FixedColumns = kFixedColumns;
  columns.Text("KalaCode", "کد کالا", 70);
  columns.Text("AbbName1", "بارکد کالا", 110).SetVisible(false);
  columns.Text("kalaname", "نام کالا", 190).SetAutoFit(true);
  number("sarjame_GhableDore", "موجودی قبل از بازه").SetVisible(false);

  number("YearStart", "وارده|اول دوره");
  number("Buy", "وارده|خرید");
  number("ReturnSell", "وارده|برگشت از فروش");
  number("MakeInput", "وارده|تولید-ورود");
  number("Resid", "وارده|رسید");
  number("kala_Daramad", "وارده|کالای درآمد شده");
  number("sayer_varade", "وارده|سایر");

  number("Sell", "صادره|فروش");
  number("ReturnBuy", "صادره|برگشت از خرید");
  number("MakeOutPut", "صادره|تولید-خروج");
  number("Havale", "صادره|حواله");
  number("kala_Hazine", "صادره|کالای هزینه شده");
  number("sayer_sadere", "صادره|سایر");

  number("Remained", remained);
}

}  // namespace goods
