#include <gtest/gtest.h>

#include "host/frames/range_date_search_frame.h"
#include "host/frames/select_entity_search_frame.h"
#include "host/services/public_methods.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

class Frames : public ::testing::Test {
 protected:
  Frames() {
    host.Lookups().Give(EntityType::Store, 3, {{"Name", "انبار مرکزی"}});
    store.SetEntityType(EntityType::Store);
    store.SetItems({{"انبار", "Anbar", DataKind::Number}});
    dates.SetItems({{"تاریخ", "Date", DataKind::Text}});
    form.Place(store);
    form.Place(dates);
    store.Search.OnChange = [this] { ++changes; };
    dates.Search.OnChange = [this] { ++changes; };
  }

  ScriptedHost host;
  TForm form{host, "Test_FRM"};
  TSelectEntity_Search_Frame store{&form, "Store_SESF", "انبار :"};
  TRange_Date_Search_Frame dates{&form, "Date_RDSF", "تاریخ :"};
  int changes = 0;
};

TEST_F(Frames, ACodeShowsItsNameAndTicksTheBox) {
  store.TSelect_Entity_Frame1.Code_EDT.SetText("3");
  EXPECT_EQ(store.TSelect_Entity_Frame1.Name_LBL.Caption(), "انبار مرکزی");
  EXPECT_TRUE(store.SelectEntity_CHK.Checked());
  EXPECT_EQ(store.Search.DataSetCondition(), "(Anbar = 3)");
  EXPECT_EQ(changes, 1);
}

TEST_F(Frames, NothingHappensWhileACodeIsBeingTyped) {
  store.TSelect_Entity_Frame1.Code_EDT.TypeText("3");
  EXPECT_EQ(changes, 0);
  store.TSelect_Entity_Frame1.Code_EDT.Accept();
  EXPECT_EQ(changes, 1);
}

TEST_F(Frames, ACodeThatNothingHasIsMarkedAndStays) {
  store.TSelect_Entity_Frame1.Code_EDT.SetText("77");
  EXPECT_EQ(store.TSelect_Entity_Frame1.Name_LBL.Caption(), "---");
  EXPECT_EQ(store.TSelect_Entity_Frame1.Code_EDT.Text(), "77");
  EXPECT_NE(store.TSelect_Entity_Frame1.Code_EDT.Problem(), "");
  store.TSelect_Entity_Frame1.Code_EDT.SetText("3");
  EXPECT_EQ(store.TSelect_Entity_Frame1.Code_EDT.Problem(), "");
}

TEST_F(Frames, AnEmptiedCodeUnticksTheBox) {
  store.SetCode(3);
  store.TSelect_Entity_Frame1.Code_EDT.SetText("");
  EXPECT_FALSE(store.SelectEntity_CHK.Checked());
  EXPECT_EQ(store.Search.DataSetCondition(), "");
}

TEST_F(Frames, TickingWithoutACodeIsNoCriterion) {
  store.SelectEntity_CHK.SetChecked(true);
  EXPECT_EQ(changes, 0);
  EXPECT_FALSE(store.InUse());
}

TEST_F(Frames, ExcludingTurnsTheCriterionRound) {
  store.SetCode(3);
  EXPECT_TRUE(store.IsOnlyThisOne());
  store.SelectEntity_Reverst_CHK.SetChecked(true);
  EXPECT_EQ(store.Search.DataSetCondition(), "NOT (Anbar = 3)");
  EXPECT_FALSE(store.IsOnlyThisOne());
}

TEST_F(Frames, TheListGivesTheCodeThatWasChosen) {
  host.Lookups().AnswerPicker(3);
  store.TSelect_Entity_Frame1.Select_BTN.Click();
  EXPECT_EQ(store.CodeAsInt(), 3);
  host.Lookups().AnswerPicker(std::nullopt);
  TKey f4{Key::F4};
  store.TSelect_Entity_Frame1.Code_EDT.OnKeyDown(f4);
  EXPECT_TRUE(f4.IsConsumed());
  EXPECT_EQ(store.CodeAsInt(), 3) << "giving up changes nothing";
}

TEST_F(Frames, ACodeTooLongForTheEditEmptiesIt) {
  store.SetCode(3);
  store.TSelect_Entity_Frame1.SetCode(std::int64_t{9'223'372'036'854'775'807});
  EXPECT_EQ(store.CodeAsInt(), 0);
}

TEST_F(Frames, ADateRangeHoldsBothEnds) {
  dates.SetRange("1401/01/01", "1401/12/29");
  EXPECT_TRUE(dates.RangeDate_CHK.Checked());
  EXPECT_EQ(dates.Search.DataSetCondition(), "(Date >= '1401/01/01' AND Date <= '1401/12/29')");
}

TEST_F(Frames, ADateInTheMakingLeavesTheCriterionAsItWas) {
  dates.SetRange("1401/01/01", "");
  changes = 0;
  dates.RangeDate_From_EDT.TypeText("1401/02/0");
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(dates.Search.DataSetCondition(), "(Date >= '1401/01/01')");
  dates.RangeDate_From_EDT.TypeText("1401/02/05");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(dates.Search.DataSetCondition(), "(Date >= '1401/02/05')");
}

TEST_F(Frames, AnImpossibleDateIsToldAndLeftOut) {
  dates.SetRange("1401/12/30", "1401/12/29");
  EXPECT_NE(dates.RangeDate_From_EDT.Problem(), "");
  EXPECT_EQ(dates.RangeDate_From_EDT.Text(), "1401/12/30");
  EXPECT_EQ(dates.Search.DataSetCondition(), "(Date <= '1401/12/29')");
  dates.RangeDate_From_EDT.SetText("1401/01/05");
  EXPECT_EQ(dates.RangeDate_From_EDT.Problem(), "");
}

TEST_F(Frames, ClearingEmptiesEverything) {
  store.SetCode(3);
  store.SelectEntity_Reverst_CHK.SetChecked(true);
  store.Clear();
  EXPECT_EQ(store.CodeAsInt(), 0);
  EXPECT_FALSE(store.SelectEntity_Reverst_CHK.Checked());
  dates.SetRange("1401/01/01", "1401/12/29");
  dates.Clear();
  EXPECT_EQ(dates.Search.DataSetCondition(), "");
  EXPECT_EQ(dates.RangeDate_To_EDT.Text(), "");
}

TEST_F(Frames, ACodeThatCannotBeLookedUpCountsAsNoneUntilEnterAsksAgain) {
  TSelect_Entity_Frame& frame = store.TSelect_Entity_Frame1;
  store.SetCode(3);
  frame.Code_EDT.SetFocus();
  host.Lookups().FailNext("offline");
  EXPECT_THROW(frame.Code_EDT.SetText("4"), DatabaseError);
  EXPECT_EQ(frame.Code_EDT.Text(), "4");
  EXPECT_NE(frame.Code_EDT.Problem(), "");
  EXPECT_EQ(frame.Name_LBL.Caption(), "---");
  EXPECT_EQ(store.CodeAsInt(), 0);
  EXPECT_FALSE(store.SelectEntity_CHK.Checked());
  EXPECT_EQ(store.Search.DataSetCondition(), "");

  host.Lookups().Give(EntityType::Store, 4, {{"Name", "انبار شمال"}});
  form.KeyDown({Key::Enter, false, false, false});
  EXPECT_EQ(frame.Name_LBL.Caption(), "انبار شمال");
  EXPECT_EQ(frame.Code_EDT.Problem(), "");
  EXPECT_EQ(store.Search.DataSetCondition(), "(Anbar = 4)");
}

TEST_F(Frames, TheProgramAsksAgainForACodeThatCouldNotBeLookedUp) {
  host.Lookups().FailNext("offline");
  EXPECT_THROW(store.SetCode(3), DatabaseError);
  store.SetCode(3);
  EXPECT_EQ(store.TSelect_Entity_Frame1.Name_LBL.Caption(), "انبار مرکزی");
  EXPECT_TRUE(store.InUse());
}

TEST_F(Frames, EnterAsksAgainForACodeWhoseFillingFailed) {
  TSelect_Entity_Frame good{&form, "Good_SEF"};
  good.SetEntityType(EntityType::Store);
  form.Place(good);
  int fills = 0;
  good.OnCodeChange = [&] {
    if (++fills == 1) throw std::runtime_error("deadlock");
  };
  good.Code_EDT.SetFocus();
  EXPECT_THROW(good.Code_EDT.SetText("3"), std::runtime_error);
  EXPECT_EQ(good.CodeAsInt(), 3);
  form.KeyDown({Key::Enter, false, false, false});
  EXPECT_EQ(fills, 2);
  form.KeyDown({Key::Enter, false, false, false});
  EXPECT_EQ(fills, 2);
}

TEST_F(Frames, ACodeThatIsBeingTypedIsNotTheCodeYet) {
  store.SetCode(3);
  store.TSelect_Entity_Frame1.Code_EDT.TypeText("37");
  EXPECT_EQ(store.CodeAsInt(), 3);
}

}  // namespace
}  // namespace goods
