// The overall turnover's filter over what is shown: nothing in the window runs it, a host may.
#include "module/reports/turnover/good_trans_overall.h"
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

class OverallFilter : public DataModuleTest {
 protected:
  void SetUp() override {
    Give("Exec GoodKardex_Overall_Money %", "KalaCode kalaname Anbar Buy",
         {{"12", "پیچ 'شش'", "3", "10"}, {"13", "مهره", "3", "20"}});
    Give("Exec GoodKardex_Overall_Tedad %", "KalaCode kalaname Anbar Buy",
         {{"12", "پیچ 'شش'", "3", "1"}, {"13", "مهره", "3", "2"}, {"14", "واشر", "4", "3"}});
  }
  // The search button works in a window that is shown.
  void Search() {
    window.FormShow();
    window.Search_BTNClick();
  }
  TSmartDBGrid_QRT& Amounts() { return window.money_Overall_List_GRD; }
  TSmartDBGrid_QRT& Quantities() { return window.tedad_Overall_List_GRD; }

  TGoodTrans_Overall_FRM window{host, 1, Variant(std::string("0")), ""};
};

TEST_F(OverallFilter, TheChosenSearchItemSaysWhichFieldOfTheCurrentAmountRowIsCompared) {
  Search();
  const std::pair<int, const char*> expected[] = {
      {0, "(Kalaname = 'پیچ ''شش''')"}, {1, "(KalaCode = '12')"}, {2, "(Anbar= '3')"}};
  for (const auto& [item, filter] : expected) {
    window.GeneralSearch_FRAME.GeneralSearch_CMB.SetItemIndex(item);
    std::string text;
    window.QeratSearchManager1CustomFilter_DataSet(text);
    EXPECT_EQ(text, filter);
    text = "(Buy > 5)";
    window.QeratSearchManager1CustomFilter_DataSet(text);
    EXPECT_EQ(text, std::string("(Buy > 5) And ") + filter);
  }
}

TEST_F(OverallFilter, ItNarrowsTheShownTabOnly) {
  Search();
  window.QeratSearchManager1.ExecuteFilter_DataSet();
  EXPECT_EQ(Amounts().DataSet()->RecordCount(), 1U);
  EXPECT_EQ(Quantities().DataSet()->RecordCount(), 3U);

  window.Mojodi_PGC.SetActivePageIndex(1);
  window.GeneralSearch_FRAME.GeneralSearch_CMB.SetItemIndex(2);
  window.QeratSearchManager1.ExecuteFilter_DataSet();
  EXPECT_EQ(Quantities().DataSet()->RecordCount(), 2U);
}

TEST_F(OverallFilter, TheNextSearchShowsEveryRowAgain) {
  Search();
  window.QeratSearchManager1.ExecuteFilter_DataSet();
  Search();
  EXPECT_EQ(Amounts().DataSet()->Filter(), "");
  EXPECT_EQ(Amounts().DataSet()->RecordCount(), 2U);
}

TEST_F(OverallFilter, WithoutACurrentRowNothingIsAdded) {
  std::string text = "(Buy > 5)";
  window.QeratSearchManager1CustomFilter_DataSet(text);
  EXPECT_EQ(text, "(Buy > 5)");
}

}  // namespace
}  // namespace goods
