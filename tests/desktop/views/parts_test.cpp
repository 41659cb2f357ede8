// Tabs, pages, drop-down panels, radio buttons and splitters, driven by keys and mouse.
#include <QSplitter>

#include "tests/desktop/views/parts_kit.h"

namespace goods::testing {
namespace {

TEST_F(Parts, TabsRunFromTheRightAndAClickOrAnArrowChooses) {
  auto& bar = Widget<TabBar>(form.Kala_TBC);
  ASSERT_EQ(bar.count(), 4);
  EXPECT_GT(bar.tabRect(0).left(), bar.tabRect(1).right());
  std::vector<int> chosen;
  form.Kala_TBC.OnChange = [&] { chosen.push_back(form.Kala_TBC.TabIndex()); };
  Click(bar, bar.tabRect(2).center());
  EXPECT_TRUE(form.Kala_TBC.Focused());
  Press(Qt::Key_Left);
  Press(Qt::Key_Right);
  EXPECT_EQ(chosen, (std::vector<int>{2, 3, 2}));
  EXPECT_EQ(bar.currentIndex(), 2);
  form.Kala_TBC.SetTabIndex(0);
  Settle();
  EXPECT_EQ(bar.currentIndex(), 0);
}

TEST_F(Parts, ADropDownOpensBelowItsFieldInsideTheWindow) {
  QWidget& field = Widget(form.Level_CMB);
  EXPECT_FALSE(DropDown().isVisible());
  Click(field, field.rect().center());
  ASSERT_TRUE(DropDown().isVisible());
  EXPECT_EQ(DropDown().window(), &view);
  EXPECT_TRUE(view.rect().contains(DropDown().geometry()));
  const int fieldEnd = field.mapTo(&view, QPoint(0, field.height())).y();
  const QRect panel(Widget(form.Level_PNL).mapTo(&view, QPoint(0, 0)), Widget(form.Level_PNL).size());
  EXPECT_GE(panel.top(), fieldEnd);
  // As its contents ask for, whichever page is in front.
  const QSize before = DropDown().size();
  form.Level_PGC.SetActivePageIndex(2);
  Settle();
  EXPECT_EQ(DropDown().size(), before);
  Click(field, field.rect().center());
  EXPECT_FALSE(DropDown().isVisible());
}

TEST_F(Parts, NearTheLowerEdgeADropDownOpensWhereItIsNotCut) {
  view.resize(600, 300);
  Settle();
  form.Level_CMB.SetDroppedDown(true);
  Settle();
  EXPECT_TRUE(view.rect().contains(DropDown().geometry().adjusted(8, 8, -8, -8)));
  view.resize(600, 160);
  Settle();
  EXPECT_TRUE(view.rect().contains(DropDown().geometry().adjusted(8, 8, -8, -8)));
}

TEST_F(Parts, KeysInADropDownFlowThroughTheWindowAndEscapeGivesTheFocusBack) {
  Focus(form.Level_CMB);
  Press(Qt::Key_Down);
  ASSERT_TRUE(form.Level_CMB.DroppedDown());
  EXPECT_TRUE(form.Average_RDB.Focused());
  EXPECT_EQ(view.focusWidget(), &Widget(form.Average_RDB));
  form.keys.clear();
  Press(Qt::Key_F7);
  EXPECT_EQ(form.keys, std::vector<Key>{Key::F7});
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form.Level_CMB.DroppedDown());
  EXPECT_FALSE(DropDown().isVisible());
  EXPECT_TRUE(form.Level_CMB.Focused());
  EXPECT_EQ(view.focusWidget(), &Widget(form.Level_CMB));
}

TEST_F(Parts, ADropDownClosesWhenTheFocusLeavesOrTheMousePressesElsewhere) {
  Focus(form.Level_CMB);
  Press(Qt::Key_F4);
  ASSERT_TRUE(form.Level_CMB.DroppedDown());
  for (int i = 0; i < 12 && form.Level_CMB.DroppedDown(); ++i) Press(Qt::Key_Tab);
  EXPECT_FALSE(form.Level_CMB.DroppedDown());
  EXPECT_TRUE(form.After_EDT.Focused());
  EXPECT_EQ(view.focusWidget(), &Widget(form.After_EDT));
  form.Level_CMB.SetDroppedDown(true);
  Settle();
  Click(Widget(form.Level_PNL), QPoint(3, 3));
  EXPECT_TRUE(form.Level_CMB.DroppedDown());
  Click(*Table().viewport(), QPoint(200, 120));
  EXPECT_FALSE(form.Level_CMB.DroppedDown());
  EXPECT_TRUE(form.Goods_GRD.Focused());
}

TEST_F(Parts, CtrlTabTurnsThePageAndTheFocusStaysInThePanel) {
  form.Level_CMB.SetDroppedDown(true);
  Settle();
  ASSERT_TRUE(form.Average_RDB.Focused());
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(form.Level_PGC.ActivePageIndex(), 1);
  EXPECT_TRUE(Widget(form.Level_EDT).isVisible());
  EXPECT_FALSE(Widget(form.Average_RDB).isVisible());
  EXPECT_TRUE(form.Level_PGC.Focused());
  EXPECT_EQ(view.focusWidget(), Widget(form.Level_PGC).findChild<TabBar*>());
  Press(Qt::Key_Tab);
  EXPECT_TRUE(form.Level_EDT.Focused());
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(form.Level_PGC.ActivePageIndex(), 2);
  EXPECT_TRUE(form.Level_PGC.Focused());
  EXPECT_TRUE(form.Level_CMB.DroppedDown());
}

TEST_F(Parts, APageThatIsNotVisibleHasNoTab) {
  form.Level_CMB.SetDroppedDown(true);
  form.Levels_TBS.SetVisible(false);
  form.Level_PGC.Changed();
  Settle();
  auto* bar = Widget(form.Level_PGC).findChild<TabBar*>();
  ASSERT_NE(bar, nullptr);
  EXPECT_FALSE(bar->isTabVisible(1));
  Click(*bar, bar->tabRect(2).center());
  EXPECT_EQ(form.Level_PGC.ActivePage(), &form.History_TBS);
}

TEST_F(Parts, OneRadioButtonOfAPageIsChosenByMouseAndArrows) {
  form.Level_CMB.SetDroppedDown(true);
  Settle();
  const auto shown = [&] {
    std::vector<bool> on;
    for (const TRadioButton* each : {&form.Average_RDB, &form.LastBuy_RDB, &form.HighestBuy_RDB})
      on.push_back(Widget<QRadioButton>(*each).isChecked());
    return on;
  };
  Widget<QRadioButton>(form.HighestBuy_RDB).click();
  Settle();
  EXPECT_EQ(shown(), (std::vector<bool>{false, false, true}));
  Widget<QRadioButton>(form.HighestBuy_RDB).click();
  Settle();
  EXPECT_TRUE(form.HighestBuy_RDB.Checked());
  EXPECT_EQ(shown(), (std::vector<bool>{false, false, true}));
  Focus(form.HighestBuy_RDB);
  Press(Qt::Key_Up);
  EXPECT_TRUE(form.LastBuy_RDB.Checked());
  EXPECT_TRUE(form.LastBuy_RDB.Focused());
  EXPECT_EQ(shown(), (std::vector<bool>{false, true, false}));
}

TEST_F(Parts, ASplittersBorderIsDraggedFromRightToLeft) {
  auto* splitter = view.findChild<QSplitter*>("Body_PNL_Splitter");
  ASSERT_NE(splitter, nullptr);
  QWidget& list = Widget(form.GoodGroup_DBG);
  EXPECT_GT(list.mapTo(&view, QPoint()).x(), Table().mapTo(&view, QPoint()).x());
  const int before = list.width();
  EXPECT_LT(before, Table().width());
  QWidget& handle = *splitter->handle(1);
  const QPoint from = handle.rect().center();
  QTest::mousePress(&handle, Qt::LeftButton, {}, from);
  QTest::mouseMove(&handle, from - QPoint(60, 0));
  QTest::mouseRelease(&handle, Qt::LeftButton, {}, from - QPoint(60, 0));
  EXPECT_GE(list.width(), before + 58);
  EXPECT_LE(list.width(), before + 75);
}

TEST_F(Parts, ScreenReadersAreToldNamesAndWhatIsChosen) {
  EXPECT_EQ(Widget(form.Level_CMB).accessibleName(), "مبنای قیمت");
  EXPECT_EQ(Widget(form.Level_CMB).accessibleDescription(), "میانگین موزون");
  TagEdit().SetCodes({"1", "4"});
  Settle();
  EXPECT_TRUE(Tokens().Field().Line().accessibleName().startsWith("برچسب"));
  EXPECT_EQ(Tokens().Field().Line().accessibleDescription(), "پرفروش، شکستنی");
}

}  // namespace
}  // namespace goods::testing
