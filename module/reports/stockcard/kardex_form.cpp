// The stock card's component tree.
#include "module/framework/report_columns.h"
#include "module/reports/stockcard/kardex.h"

namespace goods {
namespace {

constexpr int kCriteriaHeight = 86;

}  // namespace

void TKardex_FRM::DeclareForm() {
  SetCaption("کاردکس کالا");
  PreferredWidth = 1360;
  PreferredHeight = 720;

  Good_LBL.FocusControl = &Good_SEF.Code_EDT;
  Good_SEF.SetEntityType(EntityType::Good);
  Good_SEF.SetLookupFields("Name;Unit;Unit2");
  Good_SEF.Code_EDT.SetAccessibleName("کد کالا");
  Store_SESF.SetEntityType(EntityType::Store);
  Person_SESF.SetEntityType(EntityType::Person);
  for (TLabel* value : {&Unit_LBL, &Unit2_LBL, &PreVarede_LBL, &PreSadere_LBL, &PreBagh_LBL, &PreMiangin_LBL,
                        &PreMablagh_LBL}) {
    value->Emphasis = true;
  }

  for (TLabel* money : {&PreMiangin_Cap_LBL, &PreMiangin_LBL, &PreMablagh_Cap_LBL, &PreMablagh_LBL}) {
    money->SetMoney();
  }

  Good_PNL.Place(Good_LBL);
  Good_PNL.Place(Good_SEF, 1);
  for (TLabel* label : {&Unit_Cap_LBL, &Unit_LBL, &Unit2_Cap_LBL, &Unit2_LBL}) Good_PNL.Place(*label);

  Filters_PNL.Place(Store_SESF, 1);
  Filters_PNL.Place(Person_SESF, 1);
  Filters_PNL.Place(Date_RDSF);

  PreTime_PNL.SetVisible(false);
  PreTime_PNL.Framed = true;
  for (TLabel* label : {&PreTime_LBL, &PreVarede_Cap_LBL, &PreVarede_LBL, &PreSadere_Cap_LBL, &PreSadere_LBL,
                        &PreBagh_Cap_LBL, &PreBagh_LBL, &PreMiangin_Cap_LBL, &PreMiangin_LBL,
                        &PreMablagh_Cap_LBL, &PreMablagh_LBL}) {
    PreTime_PNL.Place(*label);
  }

  Criteria_PNL.Foldable = true;
  Criteria_PNL.SetHeight(kCriteriaHeight);
  Criteria_PNL.Place(Filters_PNL);
  Criteria_PNL.Place(PreTime_PNL);

  Buttons_PNL.Place(OpenInfo_BTN);
  Buttons_PNL.Place(PrintList_BTN);
  Buttons_PNL.Place(Exit_BTN);
  Buttons_PNL.Place(CriteriaChanged_LBL);

  DeclareColumns();
  Place(Good_PNL);
  Place(Criteria_PNL);
  Place(Kardex_GRD, 1);
  Place(Buttons_PNL);
}

void TKardex_FRM::DeclareColumns() {
  TSmartDBGrid_QRT& grid = Kardex_GRD;
  grid.ShowRowNumbers = true;
  grid.ShowFooter = true;
  grid.SetAccessibleName("ردیف های کاردکس");

  const ReportColumns columns(grid);

  columns.Date("Date", "تاریخ", 86);
  columns.Text("PerName", "نام شخص", 124);
  columns.Text("Comment", "شرح", 130).SetAutoFit(true);
  columns.Text("Anbar", "انبار", 50);
  columns.Summed("Tedad_Varde", "مقدار وارده", kQuantityFormat, 86);
  columns.Summed("Tedad_Sadere", "مقدار صادره", kQuantityFormat, 86);
  columns.Summed("Meghdar2", "مقدار 2", kQuantityFormat, 92);
  remainder_ = &columns.Number("Bagh", "مقدار باقیمانده", kQuantityFormat, 98);
  columns.Number("Gheymat_Varede", "قیمت وارده", kAmountFormat, 96);
  columns.Number("Gheymat_Sadere", "قیمت صادره", kAmountFormat, 96);
  columns.Number("Foroosh", "مبلغ سند", kAmountFormat, 112);
  columns.Number("Miangin", "قیمت میانگین", kAmountFormat, 96);
  remainderAmount_ = &columns.Number("Mab_Bagh", "مبلغ باقیمانده", kAmountFormat, 140);
}

}  // namespace goods
