// The stock-card mismatch's component tree.
#include <initializer_list>

#include "module/framework/report_columns.h"
#include "module/reports/mismatch/good_detail_kardex_dismatch.h"

namespace goods {
namespace {

constexpr int kGoodNameItem = 1;
constexpr int kAmountWidth = 110;
constexpr int kDetailHeight = 72;

}  // namespace

void TGoodDetailKardexDismatch_FRM::DeclareForm() {
  SetCaption("گزارش مغایرت جزئیات کالا");
  PreferredWidth = 1240;
  PreferredHeight = 720;
  Maximised = true;

  Search_PNL.SetItems({{"  کد کالا", InputKind::Digits},
                       {"  نام کالا", InputKind::Text},
                       {"  کد انبار", InputKind::Digits},
                       {"  انبار", InputKind::Text}},
                      kGoodNameItem);

  StoresTotals_LBL.FocusControl = &StoresTotals_RDB;
  StoresSeparations_LBL.FocusControl = &StoresSeparations_RDB;
  StoresTotals_RDB.SetAccessibleName(PlainCaption(StoresTotals_LBL.Caption()));
  StoresSeparations_RDB.SetAccessibleName(PlainCaption(StoresSeparations_LBL.Caption()));
  for (TControl* each : std::initializer_list<TControl*>{&StoresTotals_RDB, &StoresTotals_LBL,
                                                         &StoresSeparations_RDB, &StoresSeparations_LBL}) {
    Stores_PNL.Place(*each);
  }

  GoodDetailSearchAmount_LBL.FocusControl = &GoodDetailSearchAmount_CMB;
  GoodDetailSearchAmount_CMB.SetAccessibleName("فیلتر از نوع");
  GoodDetailSearchAmount_CMB.SetItems({{"  انتخاب کنید ...", 0, ""}, {"  برآیند اختلاف موجودی", 0, ""}});
  FromAmount_LBL.FocusControl = &FromAmount_EDT;
  ToAmount_LBL.FocusControl = &ToAmount_EDT;
  FromAmount_EDT.SetAccessibleName("از برآیند اختلاف موجودی");
  ToAmount_EDT.SetAccessibleName("تا برآیند اختلاف موجودی");
  for (TEdit* edit : {&FromAmount_EDT, &ToAmount_EDT}) edit->SetWidth(kAmountWidth);
  for (TControl* each :
       std::initializer_list<TControl*>{&GoodDetailSearchAmount_LBL, &GoodDetailSearchAmount_CMB,
                                        &FromAmount_LBL, &FromAmount_EDT, &ToAmount_LBL, &ToAmount_EDT}) {
    Amount_PNL.Place(*each);
  }
  Criteria_PNL.Place(Search_PNL, 1);
  Criteria_PNL.Place(Stores_PNL);

  DeclareColumns();
  TListDetail_FRAME1.SetHeight(kDetailHeight);
  TListDetail_FRAME1.DetailFields_QRT1.SetFields(
      {{"GoodCode", "کد کالا", ""},
       {"GoodTitle", "نام کالا", ""},
       {"StoreTitle", "انبار", ""},
       {"KardexAsset", "موجودی کاردکس", std::string(kQuantityFormat)},
       {"DetailAsset", "موجودی جزئیات", std::string(kQuantityFormat)},
       {"DiffAsset", "اختلاف موجودی", std::string(kQuantityFormat)}});
  List_PNL.Place(Criteria_PNL);
  List_PNL.Place(Amount_PNL);
  List_PNL.Place(GoodDetailKardexDismatch_GRD, 1);
  List_PNL.Place(TListDetail_FRAME1);
  Body_PNL.Splitter = true;
  Body_PNL.Place(Groups_PNL);
  Body_PNL.Place(List_PNL, 1);

  for (TButton* button : {&OpenInfo_BTN, &PrintList_BTN, &Exit_BTN}) Buttons_PNL.Place(*button);
  Buttons_PNL.Place(CriteriaChanged_LBL);
  Buttons_PNL.Place(TListDetail_FRAME1.View_PNL, 1);
  Place(Body_PNL, 1);
  Place(Buttons_PNL);
}

void TGoodDetailKardexDismatch_FRM::DeclareColumns() {
  TSmartDBGrid_QRT& grid = GoodDetailKardexDismatch_GRD;
  grid.SetAccessibleName("کالاهای مغایر");
  grid.KeyColumns = 4;  // store and good
  const ReportColumns columns(grid);
  columns.Text("StoreCode", "کد انبار", 70).SetVisible(false);
  columns.Text("StoreTitle", "انبار", 160);
  columns.Text("GoodCode", "کد کالا", 90);
  columns.Text("GoodTitle", "نام کالا", 260).SetAutoFit(true);
  columns.Summed("DiffAsset", "برآیند اختلاف موجودی", kQuantityFormat, 160);
}

}  // namespace goods
