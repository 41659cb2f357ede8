// A strip with more tabs than the window has room for.
#include <QToolButton>
#include <algorithm>

#include "tests/desktop/views/parts_kit.h"

namespace goods::testing {
namespace {

constexpr int kTabs = 13;

class TabStrip : public Parts {
 protected:
  void SetUp() override {
    Parts::SetUp();
    std::vector<std::string> captions;
    for (int i = 0; i < kTabs; ++i) captions.push_back("گردش شماره " + std::to_string(i + 1));
    form.Kala_TBC.SetTabs(captions);
    view.resize(640, 640);
    Settle();
  }
  TabBar& Bar() { return Widget<TabBar>(form.Kala_TBC); }
  // Whole, and under none of the buttons that scroll.
  bool InSight(int index) {
    const QRect tab = Bar().tabRect(index);
    if (!Bar().rect().contains(tab)) return false;
    for (const QToolButton* button : Bar().findChildren<QToolButton*>()) {
      if (button->isVisible() && button->geometry().intersects(tab)) return false;
    }
    return true;
  }
};

TEST_F(TabStrip, TabsThatDoNotFitAreScrolledToAndDoNotWidenTheWindow) {
  EXPECT_EQ(view.width(), 640);
  EXPECT_TRUE(InSight(0));
  EXPECT_FALSE(InSight(kTabs - 1));
  const auto buttons = Bar().findChildren<QToolButton*>();
  ASSERT_EQ(std::count_if(buttons.begin(), buttons.end(), [](auto* each) { return each->isVisible(); }), 2);
}

TEST_F(TabStrip, TheChosenTabIsInSightWhoeverChoosesIt) {
  for (const int index : {kTabs - 1, 5, 0, 9}) {
    form.Kala_TBC.SetTabIndex(index);
    Settle();
    EXPECT_TRUE(InSight(index)) << index;
  }
  form.Kala_TBC.SetTabIndex(0);
  Focus(form.Kala_TBC);
  for (int index = 1; index < kTabs; ++index) {
    Press(Qt::Key_Left);
    ASSERT_EQ(form.Kala_TBC.TabIndex(), index);
    EXPECT_TRUE(InSight(index)) << index;
  }
  view.resize(420, 640);
  Settle();
  EXPECT_TRUE(InSight(kTabs - 1));
}

TEST_F(TabStrip, ScrollingChoosesNothing) {
  form.Kala_TBC.OnChange = [] { FAIL() << "a tab was chosen"; };
  for (QToolButton* button : Bar().findChildren<QToolButton*>()) {
    if (button->isVisible() && button->isEnabled()) Click(*button, button->rect().center());
  }
  EXPECT_FALSE(InSight(0));
  EXPECT_EQ(form.Kala_TBC.TabIndex(), 0);
  form.Kala_TBC.OnChange = nullptr;
}

TEST_F(TabStrip, CtrlAndADigitBelongToTheWindow) {
  Focus(form.Kala_TBC);
  form.keys.clear();
  Press(Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(form.Kala_TBC.TabIndex(), 0);
  EXPECT_EQ(form.keys, std::vector<Key>{Key::Digit3});
}

}  // namespace
}  // namespace goods::testing
