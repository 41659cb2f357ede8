#include "tests/desktop/views/parts_form.h"

namespace goods::testing {

std::vector<TTag> TagLookups::Tags() {
  return {{"1", "پرفروش", 0x2E7D32},          {"2", "رو به پایان", 0xFFC107}, {"3", "فصلی", 0x0288D1},
          {"4", "شکستنی", 0xC62828},          {"5", "سفارش ویژه", 0x6A1B9A},  {"6", "بدون رنگ", kWhite},
          {"7", "تاریخ انقضا دارد", 0x808080}};
}

std::vector<TCategory> TagLookups::Categories() {
  return {{"1", "خوراکی", ""}, {"2", "لبنیات", "1"}, {"3", "نوشیدنی", "1"}, {"4", "بهداشتی", ""}};
}

std::optional<std::vector<std::string>> TagLookups::SelectCategories(TForm*,
                                                                     const std::vector<std::string>& chosen) {
  std::vector<std::string> now = chosen;
  now.push_back("4");
  return now;
}

TParts_FRM::TParts_FRM(THost& host)
    : TBaseDock_FRM(host, "Parts_FRM", 1, ""),
      Tags_FRM(this, "Tags_FRM", host.Connection()),
      Goods_QRY(this, "Goods_QRY", host.Connection()),
      Groups_QRY(this, "Groups_QRY", host.Connection()) {
  SetCaption("موجودی کالا");
  PreferredWidth = 1060;
  PreferredHeight = 640;
  LayOutTop();
  LayOutBody();
  SetPopMenu(Goods_GRD);
  Initialise();
}

void TParts_FRM::LayOutTop() {
  Level_LBL.FocusControl = &Level_CMB;
  Level_CMB.SetText("میانگین موزون");
  Level_CMB.SetAccessibleName("مبنای قیمت");
  Level_CMB.SetWidth(180);
  for (TRadioButton* each : {&Average_RDB, &LastBuy_RDB, &HighestBuy_RDB}) Cost_TBS.Place(*each);
  Average_RDB.SetChecked(true);
  Level_List_CMB.SetItems({{"عمده", 1, ""}, {"خرده", 2, ""}});
  Levels_TBS.Place(Level_EDT);
  Levels_TBS.Place(Level_List_CMB);
  History_TBS.Place(History_LBL);
  for (TTabSheet* each : {&Cost_TBS, &Levels_TBS, &History_TBS}) Level_PGC.Place(*each);
  Level_PNL.Place(Level_PGC, 1);
  Level_PNL.Place(Accept_BTN);
  Level_CMB.SetPanel(Level_PNL);
  Accept_BTN.OnClick = [this] { Level_CMB.SetDroppedDown(false); };
  Level_CMB.OnDropDown = [this] { Average_RDB.SetFocus(); };
  Kala_TBC.SetTabs({"&همه کالاها", "&موجود", "&ناموجود", "من&فی"});
  Top_PNL.Place(Level_LBL);
  Top_PNL.Place(Level_CMB);
  Top_PNL.Place(After_EDT);
  TagSearch_FRM.OpenTags(lookups);
  Category_FRM.Open(lookups);
  Tags_FRM.OpenTags(lookups);
  Vouchers_FRM.SetVisible(true);
  for (TPanel* each : {static_cast<TPanel*>(&Vouchers_FRM), &Top_PNL, static_cast<TPanel*>(&TagSearch_FRM),
                       static_cast<TPanel*>(&Category_FRM)})
    Place(*each);
  Place(Kala_TBC);
}

void TParts_FRM::LayOutBody() {
  Body_PNL.Splitter = true;
  GoodGroup_DBG.ShowFooter = false;
  GoodGroup_DBG.SetWidth(200);
  GoodGroup_DBG.SetDataSource(&Groups_DS);
  GoodGroup_DBG.AddColumn("PerName", "").SetAutoFit(true);
  Goods_GRD.SetDataSource(&Goods_DS);
  Goods_GRD.AddColumn("Radif", "کد").SetWidth(60).SetCustomizable(false);
  Goods_GRD.AddColumn("PerName", "نام کالا").SetWidth(160).SetCustomizable(false);
  Goods_GRD.FixedColumns = 2;
  Body_PNL.Place(GoodGroup_DBG);
  Body_PNL.Place(Goods_GRD, 1);
  Place(Body_PNL, 1);
  Place(Tags_FRM);
  Groups_QRY.SetSQL("rows 6");
  Groups_QRY.Open();
  Goods_QRY.SetSQL("rows 60");
  Goods_QRY.Open();
}

void TParts_FRM::AddAmountColumns(int count) {
  static const char* const kFields[] = {"Tedad_Varde", "Tedad_Sadere", "Bagh", "Mab_Bagh"};
  static const char* const kTitles[] = {"وارده", "صادره", "باقیمانده", "مبلغ باقیمانده"};
  for (int i = 0; i < count; ++i) {
    const auto kind = static_cast<std::size_t>(i % 4);
    Goods_GRD.AddColumn(kFields[kind], "انبار شماره " + std::to_string(i / 4 + 1) + "|" + kTitles[kind])
        .SetDisplayFormat(kQuantityFormat)
        .SetWidth(90)
        .SetFooter(FooterKind::Sum);
  }
}

void TParts_FRM::FormKeyDown(TKey& key) {
  keys.push_back(key.key);
  TBaseDock_FRM::FormKeyDown(key);
}

}  // namespace goods::testing
