#include "host/components/standard.h"

#include <gtest/gtest.h>

#include "host/components/keys.h"

namespace goods {
namespace {

TEST(CheckBox, FiresItsClickWhoeverChangesIt) {
  TCheckBox box(nullptr, "Box_CHK");
  int clicks = 0;
  box.OnClick = [&] { ++clicks; };
  box.SetChecked(true);
  box.SetChecked(true);
  box.Click();
  EXPECT_EQ(clicks, 2);
  EXPECT_FALSE(box.Checked());
}

TEST(CheckBox, CannotBeClickedWhileDisabled) {
  TCheckBox box(nullptr, "Box_CHK");
  box.SetEnabled(false);
  box.Click();
  EXPECT_FALSE(box.Checked());
}

TEST(Button, IsClickedByEnterAndSpaceOnlyWhileItCanBe) {
  TButton button(nullptr, "Go_BTN");
  int clicks = 0;
  button.OnClick = [&] { ++clicks; };
  for (const Key key : {Key::Enter, Key::Space, Key::F2}) {
    TKey pressed{key};
    button.DoKey(pressed);
  }
  EXPECT_EQ(clicks, 2);
  button.SetVisible(false);
  button.Click();
  EXPECT_EQ(clicks, 2);
}

TEST(ComboBox, ChoosingFiresOnceAndAnItemCarriesItsCode) {
  TComboBox combo(nullptr, "Kind_CMB");
  int changes = 0;
  combo.OnChange = [&] { ++changes; };
  combo.SetItems({{"  کد کالا", 4, ""}, {"  نام کالا", 9, ""}});
  EXPECT_EQ(combo.ItemIndex(), 0);
  EXPECT_EQ(changes, 0);
  combo.SetItemIndex(1);
  combo.SetItemIndex(1);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(combo.ItemObject(), 9);
  EXPECT_EQ(combo.Text(), "  نام کالا");
  combo.SetItemIndex(7);
  EXPECT_EQ(combo.ItemIndex(), -1);
  EXPECT_EQ(combo.ItemObject(), 0);
}

TEST(ComboBox, OnlyTheTypingStyleTakesATextThatIsNotInTheList) {
  TComboBox combo(nullptr, "Value_CMB");
  combo.SetItems({{"قرمز", 1, ""}, {"آبی", 2, ""}});
  combo.SetText("سبز");
  EXPECT_EQ(combo.Text(), "قرمز");
  combo.SetText("آبی");
  EXPECT_EQ(combo.ItemIndex(), 1);
  combo.SetStyle(ComboStyle::Typing);
  combo.SetText("سبز");
  EXPECT_EQ(combo.Text(), "سبز");
  EXPECT_EQ(combo.ItemIndex(), -1);
}

TEST(Control, AFoldedPanelTakesTheFocusFromWhatItHolds) {
  TPanel window(nullptr, "Window_PNL");
  TPanel panel(nullptr, "Criteria_PNL");
  TButton button(nullptr, "Go_BTN");
  window.Place(panel);
  panel.Place(button);
  EXPECT_TRUE(button.CanFocus());
  panel.SetFolded(true);
  EXPECT_FALSE(button.CanFocus());
  panel.SetFolded(false);
  panel.SetEnabled(false);
  EXPECT_FALSE(button.CanFocus());
}

TEST(Control, TheCaptionIsReadAloudWithoutItsAccelerator) {
  TLabel label(nullptr, "Store_LBL", "ا&نبار && کالا");
  EXPECT_EQ(label.AccessibleName(), "انبار & کالا");
}

TEST(Keys, AreReadFromTheirNames) {
  EXPECT_TRUE(ParseKey("Ctrl+F2").IsCtrl(Key::F2));
  EXPECT_TRUE(ParseKey("alt+2").IsAlt(Key::Digit2));
  EXPECT_TRUE(ParseKey("Esc").Is(Key::Escape));
  EXPECT_FALSE(ParseKey("Ctrl+F2").Is(Key::F2));
  EXPECT_TRUE(ParseKey("nothing").IsConsumed());
}

}  // namespace
}  // namespace goods
