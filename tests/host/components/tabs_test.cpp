#include "host/components/tabs.h"

#include <gtest/gtest.h>

#include "host/components/edit.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

TEST(TabControl, HasNothingChosenWithoutTabs) {
  TTabControl tabs(nullptr, "Kind_TAB");
  int changes = 0;
  tabs.OnChange = [&] { ++changes; };
  EXPECT_EQ(tabs.TabIndex(), -1);
  tabs.SetTabIndex(0);
  TKey key{Key::Left};
  tabs.DoKey(key);
  EXPECT_TRUE(key.IsConsumed());
  EXPECT_EQ(tabs.TabIndex(), -1);
  tabs.SetTabs({"همه", "کالا"});
  tabs.SetTabIndex(1);
  tabs.SetTabs({});
  EXPECT_EQ(tabs.TabIndex(), -1);
  EXPECT_EQ(changes, 1);
}

TEST(TabControl, NewTabsChooseTheFirstWithoutAnEvent) {
  TTabControl tabs(nullptr, "Kind_TAB");
  tabs.SetTabs({"الف", "ب", "ج"});
  tabs.SetTabIndex(2);
  int changes = 0;
  tabs.OnChange = [&] { ++changes; };
  tabs.SetTabs({"د", "ه"});
  EXPECT_EQ(tabs.TabIndex(), 0);
  EXPECT_EQ(changes, 0);
}

TEST(TabControl, FiresOnceForEachChangeAndNothingForNoSuchTab) {
  TTabControl tabs(nullptr, "Kind_TAB");
  tabs.SetTabs({"الف", "ب"});
  int changes = 0;
  tabs.OnChange = [&] { ++changes; };
  for (const int index : {0, 2, -1, 1, 1}) tabs.SetTabIndex(index);
  EXPECT_EQ(tabs.TabIndex(), 1);
  EXPECT_EQ(changes, 1);
}

TEST(TabControl, TheLeftArrowGoesToTheNextTabAndStopsAtTheLast) {
  TTabControl tabs(nullptr, "Kind_TAB");
  tabs.SetTabs({"الف", "ب"});
  const auto press = [&tabs](Key which) {
    TKey key{which};
    tabs.DoKey(key);
    return key.IsConsumed();
  };
  EXPECT_TRUE(press(Key::Left));
  EXPECT_EQ(tabs.TabIndex(), 1);
  EXPECT_TRUE(press(Key::Left));
  EXPECT_EQ(tabs.TabIndex(), 1);
  EXPECT_TRUE(press(Key::Right));
  EXPECT_TRUE(press(Key::Right));
  EXPECT_EQ(tabs.TabIndex(), 0);
  EXPECT_FALSE(press(Key::Down));
}

class Pages : public ::testing::Test {
 protected:
  Pages() {
    form.Place(pages);
    form.Place(outside);
    for (TTabSheet* page : {&first, &second, &third}) pages.Place(*page);
    first.Place(one);
    second.Place(two);
    third.Place(three);
    pages.OnChange = [this] { ++changes; };
  }

  ScriptedHost host;
  TForm form{host, "Test_FRM"};
  TPageControl pages{&form, "Pages_PGC"};
  TTabSheet first{&form, "First_TSH", Flow::Column, "الف"};
  TTabSheet second{&form, "Second_TSH", Flow::Column, "ب"};
  TTabSheet third{&form, "Third_TSH", Flow::Column, "ج"};
  TEdit one{&form, "One_EDT"};
  TEdit two{&form, "Two_EDT"};
  TEdit three{&form, "Three_EDT"};
  TEdit outside{&form, "Outside_EDT"};
  int changes = 0;
};

TEST_F(Pages, TheFirstPageIsShownUntilAnotherIsChosen) {
  EXPECT_EQ(pages.Pages(), (std::vector<TTabSheet*>{&first, &second, &third}));
  EXPECT_EQ(pages.ActivePage(), &first);
  for (const int index : {0, 3, -1, 2, 2}) pages.SetActivePageIndex(index);
  EXPECT_EQ(pages.ActivePage(), &third);
  EXPECT_EQ(pages.ActivePageIndex(), 2);
  EXPECT_EQ(changes, 1);
}

TEST(PageControl, HasNoActivePageWithoutPages) {
  TPageControl pages(nullptr, "Pages_PGC");
  EXPECT_EQ(pages.ActivePage(), nullptr);
  pages.SetActivePageIndex(1);
  TKey key{Key::Tab, true, false, false};
  pages.DoContainedKey(key);
  EXPECT_EQ(pages.ActivePage(), nullptr);
}

TEST_F(Pages, TheFocusCannotBeHadInsideAPageThatIsNotShown) {
  EXPECT_TRUE(one.CanFocus());
  EXPECT_FALSE(two.CanFocus());
  two.SetFocus();
  EXPECT_EQ(form.ActiveControl(), nullptr);
  pages.SetActivePageIndex(1);
  EXPECT_FALSE(one.CanFocus());
  two.SetFocus();
  EXPECT_TRUE(two.Focused());
}

TEST_F(Pages, TheTabKeySkipsPagesThatAreNotShown) {
  pages.SetFocus();
  form.FocusNext();
  EXPECT_TRUE(one.Focused());
  form.FocusNext();
  EXPECT_TRUE(outside.Focused());
}

TEST_F(Pages, CtrlTabTurnsThePageFromAnywhereOnItAndSkipsHiddenPages) {
  second.SetVisible(false);
  one.SetFocus();
  EXPECT_TRUE(form.KeyDown({Key::Tab, true, false, false}));
  EXPECT_EQ(pages.ActivePage(), &third);
  EXPECT_TRUE(form.KeyDown({Key::Tab, true, false, false}));
  EXPECT_EQ(pages.ActivePage(), &first) << "after the last page comes the first";
  EXPECT_TRUE(form.KeyDown({Key::Tab, true, false, true}));
  EXPECT_EQ(pages.ActivePage(), &third);
  outside.SetFocus();
  EXPECT_FALSE(form.KeyDown({Key::Tab, true, false, false}));
  EXPECT_EQ(pages.ActivePage(), &third);
}

TEST_F(Pages, CtrlTabStaysWhereNoOtherPageHasATab) {
  second.SetVisible(false);
  third.SetVisible(false);
  pages.SetFocus();
  EXPECT_TRUE(form.KeyDown({Key::Tab, true, false, false}));
  EXPECT_EQ(pages.ActivePage(), &first);
  EXPECT_EQ(changes, 0);
}

TEST_F(Pages, AFocusInsideAPageThatIsTurnedAwayGoesToTheTabs) {
  one.SetFocus();
  pages.SetActivePageIndex(1);
  EXPECT_TRUE(pages.Focused());
  outside.SetFocus();
  pages.SetActivePageIndex(0);
  EXPECT_TRUE(outside.Focused());
}

TEST_F(Pages, ArrowKeysTurnThePageOnTheTabsOnly) {
  pages.SetFocus();
  EXPECT_TRUE(form.KeyDown({Key::Left, false, false, false}));
  EXPECT_EQ(pages.ActivePage(), &second);
  EXPECT_TRUE(form.KeyDown({Key::Right, false, false, false}));
  EXPECT_EQ(pages.ActivePage(), &first);
  one.SetFocus();
  form.KeyDown({Key::Left, false, false, false});
  EXPECT_EQ(pages.ActivePage(), &first);
}

}  // namespace
}  // namespace goods
