// The frames that search by text, by numbers and by dates with times, and the advanced-search frame.
#include <gtest/gtest.h>

#include "host/frames/adv_search_frame.h"
#include "host/frames/general_search_frame.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/range_digit_search_frame.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

class SearchFrames : public ::testing::Test {
 protected:
  SearchFrames() {
    general.SetItems({{"نام کالا", "KalaName", DataKind::Text}, {"کد", "Code", DataKind::Number}});
    code.SetItems({{"کد کالا", "Code", DataKind::Number}});
    amount.SetItems({{"وارده", "Varede", DataKind::Amount}, {"صادره", "Sadere", DataKind::Amount}});
    dates.SetItems({{"تاریخ", "Date", DataKind::Text}});
    for (TSearchFrame* frame : {static_cast<TSearchFrame*>(&general), static_cast<TSearchFrame*>(&code),
                                static_cast<TSearchFrame*>(&amount), static_cast<TSearchFrame*>(&dates)}) {
      form.Place(*frame);
      frame->Search.OnChange = [this] { ++changes; };
    }
  }

  ScriptedHost host;
  TForm form{host, "Test_FRM"};
  TGeneral_Search_Frame general{&form, "Search_FRAME", "&جستجو :"};
  TRange_Digit_Search_Frame code{&form, "Code_FRAME", "&کد :"};
  TRange_Cost_Search_Frame amount{&form, "Amount_FRAME", "م&قدار :"};
  TRange_Date_Search_Frame dates{&form, "Date_FRAME", "تاریخ :"};
  int changes = 0;
};

TEST_F(SearchFrames, EveryKeyOfATextChangesTheCriterionOnce) {
  general.GeneralSearch_EDT.TypeText("پ");
  EXPECT_TRUE(general.GeneralSearch_CHK.Checked());
  EXPECT_EQ(changes, 1);
  general.GeneralSearch_EDT.TypeText("پی");
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(general.Search.ProcParams(), "@KalaName='پی'");
  general.GeneralSearch_EDT.TypeText("");
  EXPECT_FALSE(general.GeneralSearch_CHK.Checked());
  EXPECT_EQ(general.Search.ProcParams(), "");
}

TEST_F(SearchFrames, BlanksAreATextLikeAnyOther) {
  general.SetText("  ");
  EXPECT_TRUE(general.GeneralSearch_CHK.Checked());
  EXPECT_EQ(general.Search.ProcParams(), "@KalaName='  '");
}

TEST_F(SearchFrames, AnExcludeBoxWithoutATextChangesNothing) {
  general.GeneralSearch_Reverst_CHK.SetChecked(true);
  EXPECT_EQ(changes, 0);
  general.SetText("پیچ");
  EXPECT_EQ(general.Search.ProcParams(), "@KalaName='پیچ',@NotKalaName=1");
  EXPECT_EQ(general.Search.DataSetCondition(), "NOT (KalaName LIKE '%پیچ%')");
}

TEST_F(SearchFrames, AFieldOfNumbersTakesNumbersOnly) {
  general.SetText("پیچ");
  general.GeneralSearch_CMB.SetItemIndex(1);
  EXPECT_EQ(general.GeneralSearch_EDT.Text(), "");
  EXPECT_EQ(general.Search.ProcParams(), "");
  EXPECT_FALSE(general.GeneralSearch_EDT.SetText("1 OR 1=1"));
  EXPECT_TRUE(general.GeneralSearch_EDT.SetText("12"));
  EXPECT_EQ(general.Search.ProcParams(), "@Code=12");
}

TEST_F(SearchFrames, AListIsShownOnlyWhereThereIsAChoice) {
  EXPECT_TRUE(general.GeneralSearch_CMB.Visible());
  EXPECT_TRUE(amount.RangeDigit_CMB.Visible());
  EXPECT_FALSE(code.RangeDigit_CMB.Visible());
  EXPECT_FALSE(dates.RangeDate_CMB.Visible());
}

TEST_F(SearchFrames, ANumberTicksTheBoxAndTwoEmptiedEditsUntickIt) {
  code.RangeDigit_From_EDT.TypeText("1");
  EXPECT_TRUE(code.RangeDigit_CHK.Checked());
  code.RangeDigit_To_EDT.TypeText("9");
  EXPECT_EQ(code.Search.ProcParams(), "@FromCode=1,@ToCode=9");
  EXPECT_EQ(changes, 2);
  code.RangeDigit_From_EDT.TypeText("");
  EXPECT_EQ(code.Search.ProcParams(), "@ToCode=9");
  code.RangeDigit_To_EDT.TypeText("");
  EXPECT_FALSE(code.RangeDigit_CHK.Checked());
  EXPECT_FALSE(code.RangeDigit_From_EDT.SetText("1.5"));
}

TEST_F(SearchFrames, AnAmountGoesToTheChosenField) {
  amount.SetRange("1,000", "2,500.75");
  EXPECT_EQ(amount.Search.ProcParams(), "@FromVarede=1000,@ToVarede=2500.75");
  amount.RangeDigit_CMB.SetItemIndex(1);
  EXPECT_EQ(amount.Search.ProcParams(), "@FromSadere=1000,@ToSadere=2500.75");
  EXPECT_EQ(amount.Search.DataSetCondition(), "(Sadere >= 1000 AND Sadere <= 2500.75)");
  amount.RangeDigit_Reverst_CHK.SetChecked(true);
  EXPECT_EQ(amount.Search.ProcParams(), "@FromSadere=1000,@ToSadere=2500.75,@NotRangeSadere=1");
}

TEST_F(SearchFrames, TimesAreHiddenUntilAskedForAndNeverPartOfTheCriterion) {
  EXPECT_FALSE(dates.RangeTime_From_EDT.Visible());
  EXPECT_FALSE(dates.RangeTime_To_EDT.Visible());
  dates.ShowTimes();
  EXPECT_TRUE(dates.RangeTime_From_EDT.Visible());
  EXPECT_TRUE(dates.RangeTime_To_EDT.Visible());
  dates.SetRange("1401/01/01", "1401/12/29");
  changes = 0;
  dates.RangeTime_From_EDT.SetText("930");
  EXPECT_EQ(dates.RangeTime_From_EDT.Text(), "09:30");
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(dates.Search.ProcParams(), "@FromDate='1401/01/01',@ToDate='1401/12/29'");
}

TEST_F(SearchFrames, AnImpossibleTimeIsToldAndStays) {
  dates.ShowTimes();
  dates.RangeTime_To_EDT.SetText("25:00");
  EXPECT_NE(dates.RangeTime_To_EDT.Problem(), "");
  EXPECT_EQ(dates.RangeTime_To_EDT.Text(), "25:00");
  EXPECT_EQ(host.Log.Take(CallKind::Message).size(), 1U);
  dates.RangeTime_To_EDT.SetText("23:00");
  EXPECT_EQ(dates.RangeTime_To_EDT.Problem(), "");
}

TEST_F(SearchFrames, ADateTicksTheBoxAndTwoEmptiedEditsUntickIt) {
  dates.RangeDate_To_EDT.SetText("1401/12/29");
  EXPECT_TRUE(dates.RangeDate_CHK.Checked());
  EXPECT_EQ(dates.Search.ProcParams(), "@ToDate='1401/12/29'");
  dates.RangeDate_To_EDT.SetText("");
  EXPECT_FALSE(dates.RangeDate_CHK.Checked());
}

TEST_F(SearchFrames, ClearingEmptiesEverything) {
  general.SetText("پیچ");
  general.GeneralSearch_Reverst_CHK.SetChecked(true);
  general.Clear();
  EXPECT_EQ(general.GeneralSearch_EDT.Text(), "");
  EXPECT_FALSE(general.GeneralSearch_CHK.Checked());
  EXPECT_FALSE(general.GeneralSearch_Reverst_CHK.Checked());
  amount.SetRange("1", "2");
  amount.RangeDigit_CMB.SetItemIndex(1);
  amount.RangeDigit_Reverst_CHK.SetChecked(true);
  amount.Clear();
  EXPECT_EQ(amount.RangeDigit_From_EDT.Text() + amount.RangeDigit_To_EDT.Text(), "");
  EXPECT_EQ(amount.RangeDigit_CMB.ItemIndex(), 0);
  EXPECT_FALSE(amount.RangeDigit_Reverst_CHK.Checked());
  dates.ShowTimes();
  dates.SetRange("1401/01/01", "");
  dates.RangeTime_From_EDT.SetText("930");
  dates.Clear();
  EXPECT_EQ(dates.RangeDate_From_EDT.Text() + dates.RangeTime_From_EDT.Text(), "");
  EXPECT_FALSE(dates.RangeDate_CHK.Checked());
  EXPECT_TRUE(dates.RangeTime_From_EDT.Visible()) << "what is shown is the window's choice";
}

TEST(AdvancedSearchFrame, ALabelsClickTogglesTheBox) {
  ScriptedHost host;
  TForm form(host, "Test_FRM");
  TADVSearch_Fram frame(&form, "ADVSearch_Fram1");
  int clicks = 0;
  frame.ADVSearch_CHK.OnClick = [&clicks] { ++clicks; };
  frame.ADVSearch_LBL.Click();
  EXPECT_TRUE(frame.ADVSearch_CHK.Checked());
  frame.ADVSearch_LBL.Click();
  EXPECT_FALSE(frame.ADVSearch_CHK.Checked());
  EXPECT_EQ(clicks, 2);
}

TEST_F(SearchFrames, AHalfTypedNumberAsksForNothingAndEveryKeyNotifies) {
  general.GeneralSearch_CMB.SetItemIndex(1);
  changes = 0;
  general.GeneralSearch_EDT.TypeText("-");
  EXPECT_EQ(general.Search.ProcParams(), "");
  general.GeneralSearch_EDT.TypeText("-5");
  EXPECT_EQ(general.Search.ProcParams(), "@Code=-5");
  amount.RangeDigit_From_EDT.TypeText("5");
  changes = 0;
  general.GeneralSearch_EDT.TypeText("-05");
  EXPECT_EQ(changes, 1);
}

TEST_F(SearchFrames, AnEndWithoutAValueIsOpen) {
  code.RangeDigit_From_EDT.TypeText("-");
  code.RangeDigit_To_EDT.TypeText("7");
  EXPECT_TRUE(code.InUse());
  EXPECT_EQ(code.Search.ProcParams(), "@ToCode=7");
  EXPECT_EQ(code.Search.DataSetCondition(), "(Code <= 7)");
  EXPECT_EQ(code.FromValue(), "");
  EXPECT_EQ(code.ToValue(), "7");
}

TEST_F(SearchFrames, TwoEndsThatAreOpenOrNoughtAskForNothing) {
  const std::pair<const char*, const char*> nothing[] = {
      {"", ""}, {"0", "0"}, {"0", ""}, {"-", "0"}, {"-", ""}};
  for (const auto& [from, to] : nothing) {
    code.SetRange(from, to);
    code.RangeDigit_CHK.SetChecked(true);
    EXPECT_FALSE(code.InUse()) << from << " " << to;
    EXPECT_EQ(code.Search.ProcParams(), "") << from << " " << to;
    EXPECT_EQ(code.Search.FarsiText(), "") << from << " " << to;
  }
  code.SetRange("0", "7");
  EXPECT_EQ(code.Search.ProcParams(), "@FromCode=0,@ToCode=7");
}

}  // namespace
}  // namespace goods
