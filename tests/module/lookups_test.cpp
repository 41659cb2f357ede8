// The data module's look-ups, lists and small helpers.
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

using Lookups = DataModuleTest;

std::vector<std::string> TextsOf(const TComboBox& combo) {
  std::vector<std::string> texts;
  for (const TComboItem& item : combo.Items()) texts.push_back(item.Text);
  return texts;
}

TEST_F(Lookups, GetDetailItemsBeginsWithTheRequestToChoose) {
  Give("SELECT * FROM DetailTypesItems%", "Row Value", {{"1", "سرخ"}, {"2", "سبز"}});
  EXPECT_EQ(dm.GetDetailItems(4), (Texts{"انتخاب کنید...", "سرخ", "سبز"}));
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM DetailTypesItems dti WHERE dti.DetailID = 4 ORDER BY dti.Row"});
}

TEST_F(Lookups, GetDetailTypeWithDetailIdReturnsBothTypes) {
  Give("SELECT * FROM DetailTypes dt%", "ID DetailType DateType", {{"4", "5", "1"}});
  const TDetailType type = dm.GetDetailTypeWithDetailID(4);
  EXPECT_EQ(type.DetailType, 5);
  EXPECT_EQ(type.DateType, 1);
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM DetailTypes dt WHERE dt.ID = 4"});
}

TEST_F(Lookups, ADetailThatDoesNotExistHasNoType) {
  Give("SELECT * FROM DetailTypes dt%", "ID DetailType DateType", {});
  EXPECT_EQ(dm.GetDetailTypeWithDetailID(9).DetailType, 0);
}

TEST_F(Lookups, ComboBoxFillWithItemsOffersTheDetailsByTitle) {
  Give("SELECT * FROM DetailTypes ORDER BY ID", "ID Title", {{"1", "سریال"}, {"4", "رنگ"}});
  TComboBox combo(nullptr, "Detail_CMB");
  dm.ComboBoxFill_WithItems(combo);
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM DetailTypes ORDER BY ID"});
  EXPECT_EQ(TextsOf(combo), (Texts{"  انتخاب کنید...", "سریال", "رنگ"}));
  EXPECT_EQ(combo.Items()[2].HiddenValue, "4;رنگ;");
  EXPECT_EQ(combo.Items()[2].Object, 4);
  EXPECT_EQ(combo.ItemIndex(), 0);
  EXPECT_EQ(combo.ItemObject(), 0);
}

TEST_F(Lookups, ComboBoxFillWithObjectIdTakesTheCodeBeforeTheFirstSemicolonAndTheTextUpToTheLast) {
  TComboBox combo(nullptr, "Any_CMB");
  TGoodTransactions_DM::ComboBoxFill_WithObjectID(combo,
                                                  {"7;هفت;", "8;هشت;", "9;نه; و ده;", "10;;;", "11;باز"});
  EXPECT_EQ(TextsOf(combo), (Texts{"  انتخاب کنید...", "هفت", "هشت", "نه; و ده", ";", "باز"}));
  EXPECT_EQ(combo.Items()[3].Object, 9);
  EXPECT_EQ(combo.Items()[1].Object, 7);
  EXPECT_EQ(combo.Items()[2].Object, 8);
  EXPECT_TRUE(Sent().empty());
}

TEST_F(Lookups, ComboBoxOperationFillWithItemsOffersTheFifteenOperations) {
  TComboBox combo(nullptr, "OperationsType_CMB");
  TGoodTransactions_DM::ComboBoxOperationFill_WithItems(combo);
  const std::vector<std::pair<int, std::string>> expected{
      {0, "  انتخاب کنید..."},
      {1, "  فروش"},
      {2, "  خرید"},
      {3, "  موجودی اول دوره"},
      {4, "  برگشت از فروش"},
      {5, "  برگشت از خرید"},
      {6, "  حواله از انبار"},
      {7, "  حواله به انبار"},
      {8, "  کالای تولیدی در تولید آنالیز متغیر"},
      {9, "  کالای مصرفی در تولید آنالیز متغیر"},
      {11, "  کالای هزینه شده"},
      {21, "  حواله خروج کالا"},
      {22, "  رسید ورود کالا"},
      {23, "  کالای درآمد شده"},
      {24, "  تقسیم خروج جزییات"},
      {25, "  تقسیم ورود جزییات"},
  };
  ASSERT_EQ(combo.Items().size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(combo.Items()[i].Object, expected[i].first);
    EXPECT_EQ(combo.Items()[i].Text, expected[i].second);
    if (i > 0) {
      EXPECT_EQ(combo.Items()[i].HiddenValue,
                std::to_string(expected[i].first) + ";" + expected[i].second + ";");
    }
  }
}

TEST_F(Lookups, GetGoodUnitInfoReturnsCodesAndNamesOfBothUnits) {
  Give(" SELECT g.Unit%", "Unit1Code Unit1Name Unit2Code Unit2Name", {{"1", "عدد", "2", "کارتن"}});
  const TGoodUnitInfo units = dm.GetGoodUnitInfo(12);
  EXPECT_EQ(units.Unit1Code, 1);
  EXPECT_EQ(units.Unit1Name, "عدد");
  EXPECT_EQ(units.Unit2Code, 2);
  EXPECT_EQ(units.Unit2Name, "کارتن");
  EXPECT_EQ(
      Sent(),
      Texts{
          " SELECT g.Unit AS Unit1Code, u.Name AS Unit1Name, g.Unit2 AS Unit2Code, u2.Name AS Unit2Name   "
          "FROM GoodInf g JOIN Units u ON g.Unit = u.Code JOIN Units u2 ON g.Unit2 = u2.Code WHERE g.Code = "
          "12"});
}

TEST_F(Lookups, AGoodWithoutBothUnitsHasNone) {
  Give(" SELECT g.Unit%", "Unit1Code Unit1Name Unit2Code Unit2Name", {});
  EXPECT_EQ(dm.GetGoodUnitInfo(12).Unit1Code, 0);
  EXPECT_EQ(dm.GetGoodUnitInfo(12).Unit2Name, "");
}

TEST_F(Lookups, GetStoresTitlesSortedByCodeListsCodesAndNames) {
  Give("SELECT * FROM Stores ORDER BY Code", "Code Name", {{"1", "مرکزی"}, {"3", "شمال"}});
  const std::vector<TComboItem> stores = dm.Get_StoresTitles_SortedByCode();
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM Stores ORDER BY Code"});
  ASSERT_EQ(stores.size(), 2u);
  EXPECT_EQ(stores[1].Text, "شمال");
  EXPECT_EQ(stores[1].Object, 3);
}

TEST_F(Lookups, ReturnTagNameJoinsTheNames) {
  Give(" SELECT TOP 1 TagName%", "TagName", {{"الف,ب"}});
  EXPECT_EQ(dm.ReturnTagName("3,5"), "الف,ب");
  EXPECT_EQ(
      Sent(),
      Texts{" SELECT TOP 1 TagName = STUFF(( SELECT ',' + NAME  FROM TagS ts WHERE ts.Code IN (3,5) FOR "
            "XML PATH('')),1,1,'') FROM TagS ts "});
}

TEST_F(Lookups, ReturnTagNameStripsTheOuterCommas) {
  Give(" SELECT TOP 1 TagName%", "TagName", {{"الف"}});
  dm.ReturnTagName(",3,");
  EXPECT_EQ(
      Sent(),
      Texts{" SELECT TOP 1 TagName = STUFF(( SELECT ',' + NAME  FROM TagS ts WHERE ts.Code IN (3) FOR XML "
            "PATH('')),1,1,'') FROM TagS ts "});
}

TEST_F(Lookups, WithoutTagsNothingIsAskedAndNoNameComesBack) {
  for (const char* none : {"", ",,", " ", "1); drop table TagS; --", "3,--5", "--", "1-2", "3,,5"}) {
    EXPECT_EQ(dm.ReturnTagName(none), "") << none;
  }
  EXPECT_TRUE(Sent().empty());
}

TEST_F(Lookups, GoodSelectedIndexIsCheckedReturnsTheDisplayType) {
  Give("Select Code,DisplayType%", "Code DisplayType", {{"6", "1"}});
  EXPECT_EQ(dm.GoodSelectedIndex_IsChecked(6), 1);
  EXPECT_EQ(Sent(), Texts{"Select Code,DisplayType from SelectedLists where Type=0 and Code=6"});
}

TEST_F(Lookups, FillSelectedListBeginsWithNoneAndSelectsTheEnabledRow) {
  Give("Select Code, Title%", "Code Title Enable DisplayType",
       {{"4", "پرفروش", "0", "1"}, {"9", "ویژه", "1", "0"}, {"11", "دیگر", "1", "0"}});
  TComboBox combo(nullptr, "SelectedList_CMB");
  const TSelectedListFill fill = dm.FillSelectedList(combo);
  EXPECT_EQ(Sent(), Texts{"Select Code, Title, Enable, DisplayType FROM SelectedLists where Type = 0"});
  EXPECT_EQ(TextsOf(combo), (Texts{"هيچکدام", "پرفروش", "ویژه", "دیگر"}));
  EXPECT_EQ(combo.Items()[2].Object, 9);
  EXPECT_EQ(fill.RowCount, 4);
  EXPECT_EQ(fill.SelectedIndex, 2);
}

TEST_F(Lookups, FillSelectedListWithoutAnEnabledRowSelectsNone) {
  Give("Select Code, Title%", "Code Title Enable DisplayType", {{"4", "پرفروش", "0", "1"}});
  TComboBox combo(nullptr, "SelectedList_CMB");
  const TSelectedListFill fill = dm.FillSelectedList(combo);
  EXPECT_EQ(fill.RowCount, 2);
  EXPECT_EQ(fill.SelectedIndex, -1);
}

TEST_F(Lookups, FillingAComboThatFailsLeavesItsItems) {
  TComboBox combo(nullptr, "SelectedList_CMB");
  combo.SetItems({{"پیشین", 1, ""}});
  host.Connection().FailNext("%", "timeout");
  EXPECT_THROW(dm.FillSelectedList(combo), DatabaseError);
  EXPECT_EQ(TextsOf(combo), Texts{"پیشین"});
}

TEST_F(Lookups, ASerialEditIsTypedInEnglish) {
  TEdit edit(nullptr, "SerialBarcode_EDT");
  dm.SerialBarcode_EDTOnEnter(edit);
  dm.SerialBarcode_EDTOnExit(edit);
  EXPECT_EQ(SentCalls(),
            (Texts{"ActivateKeyboardLayout(\"00000409\")", "ActivateKeyboardLayout(\"00000429\")"}));
}

TEST(ADDFarsiFilter, PutsAConditionInParenthesesBehindTheFilter) {
  EXPECT_EQ(TGoodTransactions_DM::ADDFarsiFilter("انبار: 1", ""), "(انبار: 1)");
  EXPECT_EQ(TGoodTransactions_DM::ADDFarsiFilter("انبار: 1", "   "), "(انبار: 1)");
  EXPECT_EQ(TGoodTransactions_DM::ADDFarsiFilter("و شخص: 2", "(انبار: 1)"), "(انبار: 1) (و شخص: 2)");
}

TEST(ADDFarsiFilter, LeavesTheFilterWhenTheConditionIsBlank) {
  EXPECT_EQ(TGoodTransactions_DM::ADDFarsiFilter("", "(انبار: 1)"), "(انبار: 1)");
  EXPECT_EQ(TGoodTransactions_DM::ADDFarsiFilter("  ", " x "), " x ");
  EXPECT_EQ(TGoodTransactions_DM::ADDFarsiFilter("", ""), "");
}

TEST(ADDFarsiFilter, KeepsTheBlanksOfTheCondition) {
  EXPECT_EQ(TGoodTransactions_DM::ADDFarsiFilter(" a ", "b"), "b ( a )");
}

// Called as a member of the part that it belongs to.
template <auto Operation>
void Fetch(TGoodTransactions_DM& module, std::string_view parameters, TForm* window, int mode, bool shown) {
  (module.*Operation)(parameters, window, mode, shown);
}

struct DetailReport {
  const char* head;
  void (*fetch)(TGoodTransactions_DM&, std::string_view, TForm*, int, bool);
};

constexpr DetailReport kDetailReports[] = {
    {" EXEC AllGoodDetailTransaction ", &Fetch<&TGoodTransactions_DM::AllGoodDetailTransaction_GetAll>},
    {" EXEC OneGoodDetailTransaction ", &Fetch<&TGoodTransactions_DM::OneGoodDetailTransaction_GetAll>},
    {" EXEC GoodDetailTransaction ", &Fetch<&TGoodTransactions_DM::GoodDetailTransaction_GetAll>},
    {" EXEC DetailKardexAsset_Dismatch ", &Fetch<&TGoodTransactions_DM::GoodDetailKardexDismatch_GetAll>},
    {" EXEC DetailOperation_Dismatch ", &Fetch<&TGoodTransactions_DM::GoodDetailOperationDismatch_GetAll>},
};

TEST_F(Lookups, EachDetailReportFetchesUnderTheWaitingIndicatorWhenAskedFor) {
  Give(" EXEC %", "Kala", {{"1"}});
  TForm window(host, "Detail_FRM");
  for (const DetailReport& report : kDetailReports) {
    report.fetch(dm, "@A = 1", &window, 1, true);
    EXPECT_EQ(SentCalls(),
              (Texts{"ShowWaitting(Detail_FRM, \"سیستم در حال فراخوانی اطلاعات می باشد\")",
                     "Open(\"" + std::string(report.head) + "@A = 1\")", "HideWaitting(Detail_FRM, 0)"}));
  }
}

TEST_F(Lookups, EachDetailReportFetchesSilentlyOtherwiseAndKeepsItsTrailingBlank) {
  Give(" EXEC %", "Kala", {{"1"}});
  for (const DetailReport& report : kDetailReports) {
    report.fetch(dm, "", nullptr, 0, true);
    EXPECT_EQ(SentCalls(), Texts{"Open(\"" + std::string(report.head) + "\")"});
  }
}

TEST_F(Lookups, NoDetailReportRunsBeforeItsWindowIsShown) {
  for (const DetailReport& report : kDetailReports) report.fetch(dm, "", nullptr, 1, false);
  EXPECT_TRUE(SentCalls().empty());
}

TEST_F(Lookups, ADetailReportThatFailsHidesTheIndicator) {
  host.Connection().FailNext("%", "timeout");
  EXPECT_THROW(dm.AllGoodDetailTransaction_GetAll("", nullptr, 1, true), DatabaseError);
  EXPECT_FALSE(host.Waiting().Shown());
}

}  // namespace
}  // namespace goods
