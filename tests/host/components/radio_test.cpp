// Radio buttons.
#include <gtest/gtest.h>

#include "host/components/standard.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

class Radio : public ::testing::Test {
 protected:
  Radio() {
    form.Place(group);
    form.Place(otherGroup);
    for (TRadioButton* radio : {&month, &season, &year}) {
      group.Place(*radio);
      radio->OnClick = [this, radio] { clicked += radio->Name() + " "; };
    }
    otherGroup.Place(apart);
  }
  bool Press(Key key) { return form.KeyDown({key, false, false, false}); }

  ScriptedHost host;
  TForm form{host, "Test_FRM"};
  TPanel group{&form, "Group_PNL"};
  TPanel otherGroup{&form, "Other_PNL"};
  TRadioButton month{&form, "Month"};
  TRadioButton season{&form, "Season"};
  TRadioButton year{&form, "Year"};
  TRadioButton apart{&form, "Apart"};
  std::string clicked;
};

TEST_F(Radio, ChoosingOneUnchoosesTheOthersOfItsContainerSilently) {
  apart.SetChecked(true);
  month.SetChecked(true);
  year.Click();
  year.Click();
  EXPECT_FALSE(month.Checked());
  EXPECT_TRUE(year.Checked());
  EXPECT_TRUE(apart.Checked());
  EXPECT_EQ(clicked, "Month Year ");
}

TEST_F(Radio, UnchoosingLeavesNoneChosenAndIsSilent) {
  month.SetChecked(true);
  month.SetChecked(false);
  EXPECT_FALSE(month.Checked() || season.Checked() || year.Checked());
  EXPECT_EQ(clicked, "Month ");
}

TEST_F(Radio, CannotBeClickedWhileDisabledOrHidden) {
  month.SetEnabled(false);
  month.Click();
  year.SetVisible(false);
  year.Click();
  EXPECT_EQ(clicked, "");
}

TEST_F(Radio, SpaceChoosesAndArrowKeysChooseTheNeighbourThatCanBeHad) {
  month.SetFocus();
  EXPECT_TRUE(Press(Key::Space));
  season.SetEnabled(false);
  EXPECT_TRUE(Press(Key::Down));
  EXPECT_TRUE(year.Checked() && year.Focused());
  EXPECT_TRUE(Press(Key::Left));
  EXPECT_TRUE(month.Checked() && month.Focused()) << "after the last comes the first";
  EXPECT_TRUE(Press(Key::Up));
  EXPECT_TRUE(year.Checked());
  EXPECT_TRUE(Press(Key::Right));
  EXPECT_TRUE(month.Checked());
  EXPECT_FALSE(Press(Key::Enter));
  EXPECT_EQ(clicked, "Month Year Month Year Month ");
}

}  // namespace
}  // namespace goods
