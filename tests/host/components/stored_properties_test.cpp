#include "host/components/stored_properties.h"

#include <gtest/gtest.h>

#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

// A window with a frame in it, whose controls are kept.
class Stored : public ::testing::Test {
 protected:
  Stored() {
    combo.SetItems({{"الف", 1, ""}, {"ب", 2, ""}, {"ج", 3, ""}});
    grid.AddColumn("Code", "کد");
    grid.AddColumn("Name", "نام");
    stored.Keep(box);
    stored.Keep(combo);
    stored.Keep(text);
    stored.Keep(number);
    stored.Keep(grid);
    box.OnClick = [this] { events += "box "; };
    combo.OnChange = [this] { events += "combo "; };
    text.OnChange = [this] { events += "text "; };
  }
  void Load(const std::string& section) {
    settings.GiveSection("Turnover", section);
    stored.Load(settings);
  }

  CallLog log;
  ScriptedSettings settings{log};
  TComponent window{nullptr, "Test_FRM"};
  TPanel frame{&window, "Period_PNL"};
  TCheckBox box{&frame, "All_CHK"};
  TComboBox combo{&window, "Kind_CMB"};
  TEdit text{&window, "Text_EDT"};
  TEdit number{&window, "Number_EDT", InputKind::Integer};
  TSmartDBGrid_QRT grid{&window, "Rows_GRD"};
  TStoredProperties stored{&window, "Stored_PRP", "Turnover"};
  std::string events;
};

TEST_F(Stored, SavesALineForEachPropertyUnderThePathOfItsControl) {
  box.SetChecked(true);
  combo.SetItemIndex(2);
  text.SetText("a=b\\c");
  stored.Save(settings);
  EXPECT_EQ(settings.ReadSection("Turnover"),
            "Period_PNL.All_CHK.Checked=1\nKind_CMB.ItemIndex=2\nText_EDT.Text=a=b\\\\c\nNumber_EDT.Text=\n"
            "Rows_GRD.Layout=Code=80,1\\nName=80,1\\n\n");
}

TEST_F(Stored, WhatWasSavedComesBack) {
  box.SetChecked(true);
  combo.SetItemIndex(1);
  text.SetText("a=b\\n \\\\ c");
  grid.MoveColumn(1, 0);
  grid.FindColumn("Code")->SetWidth(33).SetVisible(false);
  stored.Save(settings);
  box.SetChecked(false);
  combo.SetItemIndex(0);
  text.SetText("");
  grid.MoveColumn(1, 0);
  grid.FindColumn("Code")->SetWidth(80).SetVisible(true);
  stored.Load(settings);
  EXPECT_TRUE(box.Checked());
  EXPECT_EQ(combo.ItemIndex(), 1);
  EXPECT_EQ(text.Text(), "a=b\\n \\\\ c");
  EXPECT_EQ(grid.Columns()[0]->FieldName(), "Name");
  EXPECT_EQ(grid.FindColumn("Code")->Width(), 33);
  EXPECT_FALSE(grid.FindColumn("Code")->Visible());
}

TEST_F(Stored, LoadingFiresTheEventsInTheOrderOfKeeping) {
  Load("Text_EDT.Text=x\nKind_CMB.ItemIndex=1\nPeriod_PNL.All_CHK.Checked=1\n");
  EXPECT_EQ(events, "box combo text ");
}

TEST_F(Stored, ALineThatNamesNothingChangesNothing) {
  Load("Other_CHK.Checked=1\nAll_CHK.Checked=1\n\nno line\n=1\nPeriod_PNL.All_CHK=1\n");
  EXPECT_EQ(events, "");
}

TEST_F(Stored, AValueThatTheControlRefusesChangesNothing) {
  box.SetChecked(true);
  combo.SetItemIndex(1);
  number.SetText("12");
  events.clear();
  Load("Period_PNL.All_CHK.Checked=x\nKind_CMB.ItemIndex=3\nNumber_EDT.Text=abc\nRows_GRD.Layout=Code=x\n");
  Load("Period_PNL.All_CHK.Checked=\nKind_CMB.ItemIndex=-2\nKind_CMB.ItemIndex=\nKind_CMB.ItemIndex=1x\n");
  EXPECT_TRUE(box.Checked());
  EXPECT_EQ(combo.ItemIndex(), 1);
  EXPECT_EQ(number.Text(), "12");
  EXPECT_EQ(grid.FindColumn("Code")->Width(), 80);
  EXPECT_EQ(events, "");
}

TEST_F(Stored, ASectionThatIsNotThereChangesNothing) {
  stored.Load(settings);
  EXPECT_EQ(events, "");
}

TEST_F(Stored, LetterCaseOfNamesDoesNotMatter) {
  Load("PERIOD_pnl.all_chk.CHECKED=1\n");
  EXPECT_TRUE(box.Checked());
}

TEST_F(Stored, LinesOfASharedSectionThatNothingHereKnowsAreCarriedOver) {
  settings.GiveSection("Turnover", "Cost_FRAME.From.Text=5\nText_EDT.Text=old\n\nno line\n");
  text.SetText("new");
  stored.Save(settings);
  const std::string kept = settings.ReadSection("Turnover");
  EXPECT_NE(kept.find("Cost_FRAME.From.Text=5\n"), std::string::npos);
  EXPECT_NE(kept.find("Text_EDT.Text=new\n"), std::string::npos);
  EXPECT_EQ(kept.find("old"), std::string::npos);
  stored.Save(settings);
  EXPECT_EQ(settings.ReadSection("Turnover"), kept);
}

TEST_F(Stored, WhatBelongsTogetherIsRestoredWholeOrNotAtAll) {
  TStoredProperties range{&window, "Range_PRP", "Range"};
  range.KeepTogether([&] {
    range.Keep(combo);
    range.Keep(number);
    range.Keep(box);
  });
  range.Keep(text);
  number.SetText("3");
  const auto load = [&](const std::string& lines) {
    settings.GiveSection("Range", lines);
    range.Load(settings);
  };
  load("Kind_CMB.ItemIndex=9\nNumber_EDT.Text=12\nPeriod_PNL.All_CHK.Checked=1\nText_EDT.Text=x\n");
  EXPECT_EQ(combo.ItemIndex(), 0);
  EXPECT_EQ(number.Text(), "3");
  EXPECT_FALSE(box.Checked());
  EXPECT_EQ(text.Text(), "x");
  load("Kind_CMB.ItemIndex=1\nNumber_EDT.Text=-\nPeriod_PNL.All_CHK.Checked=1\n");
  EXPECT_EQ(combo.ItemIndex(), 0);
  EXPECT_EQ(number.Text(), "3");
  EXPECT_FALSE(box.Checked());
  load("Kind_CMB.ItemIndex=1\nNumber_EDT.Text=12\nPeriod_PNL.All_CHK.Checked=1\n");
  EXPECT_EQ(combo.ItemIndex(), 1);
  EXPECT_EQ(number.Text(), "12");
  EXPECT_TRUE(box.Checked());
}

}  // namespace
}  // namespace goods
