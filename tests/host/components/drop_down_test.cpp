#include "host/components/drop_down.h"

#include <gtest/gtest.h>

#include "host/components/edit.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

class DropDown : public ::testing::Test {
 protected:
  DropDown() {
    panel.Place(inside);
    form.Place(combo);
    form.Place(outside);
    combo.SetPanel(panel);
    combo.OnDropDown = [this] { events += "open "; };
    combo.OnCloseUp = [this] { events += "close "; };
  }

  ScriptedHost host;
  TForm form{host, "Test_FRM"};
  TDropDownCombo combo{&form, "Period_DDC"};
  TPanel panel{&form, "Period_PNL"};
  TEdit inside{&form, "Inside_EDT"};
  TEdit outside{&form, "Outside_EDT"};
  std::string events;
};

TEST_F(DropDown, ThePanelIsReachedOnlyWhileItHangsOpen) {
  EXPECT_EQ(combo.Panel(), &panel);
  EXPECT_FALSE(inside.CanFocus());
  combo.SetDroppedDown(true);
  EXPECT_TRUE(inside.CanFocus());
  combo.SetDroppedDown(true);
  combo.SetDroppedDown(false);
  combo.SetDroppedDown(false);
  EXPECT_FALSE(inside.CanFocus());
  EXPECT_EQ(events, "open close ");
}

TEST_F(DropDown, AClickOpensAndClosesIt) {
  combo.Click();
  EXPECT_TRUE(combo.DroppedDown());
  combo.Click();
  EXPECT_FALSE(combo.DroppedDown());
  EXPECT_EQ(events, "open close ");
}

TEST_F(DropDown, OpensNotWhereItCannot) {
  TDropDownCombo bare(&form, "Bare_DDC");
  form.Place(bare);
  bare.SetDroppedDown(true);
  EXPECT_FALSE(bare.DroppedDown());
  combo.SetEnabled(false);
  combo.Click();
  combo.SetDroppedDown(true);
  EXPECT_FALSE(combo.DroppedDown());
  combo.SetEnabled(true);
  TPanel hidden(&form, "Hidden_PNL");
  form.Place(hidden);
  hidden.Place(combo);
  hidden.SetVisible(false);
  EXPECT_FALSE(combo.CanDropDown());
  combo.SetDroppedDown(true);
  EXPECT_FALSE(combo.DroppedDown());
  EXPECT_EQ(events, "");
}

TEST_F(DropDown, OpensByEnterSpaceF4AndDown) {
  combo.SetFocus();
  for (const Key key : {Key::Enter, Key::Space, Key::F4, Key::Down}) {
    combo.SetDroppedDown(false);
    EXPECT_TRUE(form.KeyDown({key, false, false, false}));
    EXPECT_TRUE(combo.DroppedDown());
  }
  combo.SetDroppedDown(false);
  EXPECT_FALSE(form.KeyDown({Key::Up, false, false, false}));
  EXPECT_FALSE(form.KeyDown({Key::Down, false, true, false}));
  EXPECT_FALSE(combo.DroppedDown());
}

TEST_F(DropDown, EscapeInsideClosesThePanelAndNotTheWindow) {
  combo.OnDropDown = [this] { inside.SetFocus(); };
  combo.SetFocus();
  combo.SetDroppedDown(true);
  EXPECT_TRUE(inside.Focused());
  EXPECT_TRUE(form.KeyDown({Key::Escape, false, false, false}));
  EXPECT_FALSE(combo.DroppedDown());
  EXPECT_TRUE(combo.Focused());
  EXPECT_FALSE(form.KeyDown({Key::Escape, false, false, false})) << "closed, it leaves the key to the window";
}

TEST_F(DropDown, ClosingTakesOnlyAFocusThatIsInsideBackToTheCombo) {
  combo.SetDroppedDown(true);
  inside.SetFocus();
  bool focusedAtClose = false;
  combo.OnCloseUp = [&] { focusedAtClose = combo.Focused(); };
  combo.SetDroppedDown(false);
  EXPECT_TRUE(focusedAtClose);
  combo.SetDroppedDown(true);
  outside.SetFocus();
  combo.SetDroppedDown(false);
  EXPECT_TRUE(outside.Focused());
}

TEST_F(DropDown, TheTextIsTheProgramsAndTellsTheViewOnce) {
  int told = 0;
  const auto connection = combo.Changed.Connect([&told] { ++told; });
  combo.SetText("ماه جاری");
  combo.SetText("ماه جاری");
  EXPECT_EQ(combo.Text(), "ماه جاری");
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace goods
