// What is chosen at once: periods beside the ranges of dates, goods and stores that were used lately.
#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QSettings>
#include <QTableView>

#include "desktop/app/entity_picker.h"
#include "desktop/app/entity_rows.h"
#include "desktop/app/services/recent_entities.h"
#include "desktop/views/period_button.h"
#include "desktop/views/quick_periods.h"
#include "host/components/edit.h"
#include "host/components/standard.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class QuickChoices : public DesktopTest {
 protected:
  void Shown(const char* exportName, std::function<void(QWidget&)> steps) {
    bool shown = false;
    WhileModal([&](QWidget& window) {
      shown = true;
      steps(window);
    });
    Module().Call(exportName);
    EXPECT_TRUE(shown);
  }
};

// In the list that hangs open now.
void PressInMenu(Qt::Key key) {
  QWidget* menu = QApplication::activePopupWidget();
  if (menu == nullptr) throw std::runtime_error("no list hangs open");
  PressKey(*menu, key);
  Wait(50);
}

QuickPeriod PeriodNamed(DesktopHost& host, std::string_view caption) {
  for (const QuickPeriod& period : QuickPeriods(*ParseJalali(host.Windows().NowDate()))) {
    if (caption == period.caption) return period;
  }
  throw std::runtime_error("no such period");
}

TEST_F(QuickChoices, CtrlDownAndADigitSetBothDatesOfARange) {
  DesktopHost& host = HostFor("admin");
  Shown("Open_GoodKardex", [&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    PressKey(window, Qt::Key_2, Qt::AltModifier);
    Wait(50);
    Child(window, "Date_RDSF.RangeDate_From_EDT").setFocus();
    PressKey(window, Qt::Key_Down, Qt::ControlModifier);
    PressInMenu(Qt::Key_0);
    const QuickPeriod year = PeriodNamed(host, "سال مالی پیش");
    EXPECT_EQ(Component<TEdit>(window, "Date_RDSF.RangeDate_From_EDT").Text(), FormatJalali(year.from));
    EXPECT_EQ(Component<TEdit>(window, "Date_RDSF.RangeDate_To_EDT").Text(), FormatJalali(year.to));
    EXPECT_TRUE(Component<TCheckBox>(window, "Date_RDSF.RangeDate_CHK").Checked());
  });
}

TEST_F(QuickChoices, ArrowsEnterAndEscDoAsInEveryList) {
  DesktopHost& host = HostFor("admin");
  Shown("Open_GoodKardex", [&](QWidget& window) {
    PressKey(window, Qt::Key_2, Qt::AltModifier);
    Wait(50);
    Child(window, "Date_RDSF.RangeDate_To_EDT").setFocus();
    PressKey(window, Qt::Key_Down, Qt::ControlModifier);
    PressInMenu(Qt::Key_Escape);
    EXPECT_EQ(Component<TEdit>(window, "Date_RDSF.RangeDate_From_EDT").Text(), "");
    EXPECT_TRUE(window.isVisible());
    PressKey(window, Qt::Key_Down, Qt::ControlModifier);
    PressInMenu(Qt::Key_Down);
    PressInMenu(Qt::Key_Return);
    const QuickPeriod yesterday = PeriodNamed(host, "دیروز");
    EXPECT_EQ(Component<TEdit>(window, "Date_RDSF.RangeDate_From_EDT").Text(), FormatJalali(yesterday.from));
    EXPECT_EQ(Component<TEdit>(window, "Date_RDSF.RangeDate_To_EDT").Text(), FormatJalali(yesterday.to));
  });
}

TEST_F(QuickChoices, ARangeThatWaitsForItsBoxHasItTicked) {
  DesktopHost& host = HostFor("admin");
  Shown("Open_GoodTrans_Overall", [&](QWidget& window) {
    auto& box = Component<TCheckBox>(window, "Period_PNL.Date_CHK");
    ASSERT_FALSE(box.Checked());
    dynamic_cast<QAbstractButton&>(Child(window, "Period_PNL.Date2_EDT_Periods")).click();
    PressInMenu(Qt::Key_5);
    const QuickPeriod month = PeriodNamed(host, "این ماه");
    EXPECT_TRUE(box.Checked());
    EXPECT_EQ(Component<TEdit>(window, "Period_PNL.Date1_EDT").Text(), FormatJalali(month.from));
    EXPECT_EQ(Component<TEdit>(window, "Period_PNL.Date2_EDT").Text(), FormatJalali(month.to));
  });
}

TEST_F(QuickChoices, ARangeThatIsNotSeenHasNoButton) {
  HostFor("admin");
  Shown("Open_SearchInDetailTransactions", [](QWidget& window) {
    WhileModal([](QWidget& dialog) {
      std::vector<std::string> seen;
      std::size_t all = 0;
      for (const QToolButton* each : dialog.findChildren<QToolButton*>()) {
        if (dynamic_cast<const PeriodButton*>(each) == nullptr) continue;
        ++all;
        if (each->isVisible()) seen.push_back(FromQt(each->objectName()));
      }
      // That of the movements alone: no detail of the kind date is chosen.
      EXPECT_EQ(seen, std::vector<std::string>{"DateRangeSearch_Frame.RangeDate_To_EDT_Periods"});
      EXPECT_GT(all, seen.size());
    });
    PressKey(window, Qt::Key_F10, Qt::ControlModifier);
    Wait(100);
  });
}

TEST_F(QuickChoices, WhatWasChosenStandsFirstInTheNextList) {
  HostFor("admin");
  const auto choose = [](QWidget& window, int down, std::vector<std::int64_t>& codes) {
    WhileModal([&, down](QWidget& picker) {
      auto& rows = dynamic_cast<EntityRows&>(*dynamic_cast<QTableView&>(Child(picker, "Entity_GRD")).model());
      codes.clear();
      for (int row = 0; row < rows.RecentCount(); ++row) codes.push_back(rows.Record(row).code);
      for (int i = 0; i < 10; ++i) PressKey(picker, Qt::Key_PageUp);  // from the current good to the top
      for (int i = 0; i < down; ++i) PressKey(picker, Qt::Key_Down);
      PressKey(picker, Qt::Key_Return);
    });
    Child(window, "Good_SEF.Code_EDT").setFocus();
    PressKey(window, Qt::Key_F4);
    Wait(50);
  };
  Shown("Open_GoodKardex", [&](QWidget& window) {
    std::vector<std::int64_t> recent;
    choose(window, 6, recent);
    EXPECT_TRUE(recent.empty());
    choose(window, 9, recent);  // one row lower: the chosen one stands above the others
    EXPECT_EQ(recent, std::vector<std::int64_t>{7});
    choose(window, 1, recent);
    EXPECT_EQ(recent, (std::vector<std::int64_t>{9, 7}));
    EXPECT_EQ(Component<TEdit>(window, "Good_SEF.Code_EDT").Text(), "7");
  });
  RecentEntities kept(Settings(), Company().Title());
  EXPECT_EQ(kept.Codes(EntityType::Good), (std::vector<std::int64_t>{7, 9}));
  EXPECT_TRUE(kept.Codes(EntityType::Store).empty());
  EXPECT_TRUE(RecentEntities(Settings(), "شرکت دیگر").Codes(EntityType::Good).empty());
}

TEST_F(QuickChoices, ACodeThatIsTypedCountsAsChosenLatelyToo) {
  HostFor("admin");
  Shown("Open_GoodKardex", [&](QWidget& window) {
    TypeGood(window, 5);
    TypeGood(window, 987654);  // no such good
    TypeGood(window, 8);
    bool open = false;
    WhileModal([&](QWidget& picker) {
      open = true;
      auto& rows = dynamic_cast<EntityRows&>(*dynamic_cast<QTableView&>(Child(picker, "Entity_GRD")).model());
      ASSERT_EQ(rows.RecentCount(), 2);
      EXPECT_EQ(rows.Record(0).code, 8);
      EXPECT_EQ(rows.Record(1).code, 5);
      PressKey(picker, Qt::Key_Escape);
    });
    Child(window, "Good_SEF.Code_EDT").setFocus();
    PressKey(window, Qt::Key_F4);
    Wait(50);
    EXPECT_TRUE(open);
  });
  WhileModal([](QWidget& card) { EXPECT_GT(RowCount(card), 0U); });
  Module().OpenKardex(3, 0, "", "");  // what a report hands over is nobody's choice
  EXPECT_EQ(RecentEntities(Settings(), Company().Title()).Codes(EntityType::Good),
            (std::vector<std::int64_t>{8, 5}));
}

TEST_F(QuickChoices, OnlySoManyAreKeptAndASpoiltSectionIsNone) {
  RecentEntities recent(Settings(), "شرکت");
  for (int code = 1; code <= 8; ++code) recent.Add(EntityType::Store, code);
  recent.Add(EntityType::Store, 6);
  recent.Add(EntityType::Unit, 3);
  EXPECT_EQ(recent.Codes(EntityType::Store), (std::vector<std::int64_t>{6, 8, 7, 5, 4}));
  EXPECT_TRUE(recent.Codes(EntityType::Unit).empty());
  QSettings file(folder_.filePath("settings/goods-desktop.ini"), QSettings::IniFormat);
  file.beginGroup("Sections");
  for (const QString& key : file.childKeys()) file.setValue(key, "x,12y,,4");
  file.sync();
  DesktopSettings again(folder_.filePath("settings"));
  EXPECT_EQ(RecentEntities(again, "شرکت").Codes(EntityType::Store), std::vector<std::int64_t>{4});
}

TEST_F(QuickChoices, ASearchAndWhatIsGoneLeaveTheRecentOnesOut) {
  EntityRows rows(Company(), EntityKind::Good, nullptr, {987'654, 5});
  rows.Search("");
  EXPECT_EQ(rows.RecentCount(), 1);
  EXPECT_EQ(rows.Record(0).code, 5);
  EXPECT_EQ(rows.RowOfCode(5), 5);  // its own place, below
  rows.Search("1");
  EXPECT_EQ(rows.RecentCount(), 0);
}

TEST_F(QuickChoices, SeveralWordsFindTheGoodsThatHoldThemAll) {
  const auto all = Company().SearchEntities(EntityKind::Good, "", 1000);
  const auto some = std::find_if(all.begin(), all.end(), [](const EntityRecord& good) {
    return good.name.find(' ') != std::string::npos && good.name.find(' ') != good.name.rfind(' ');
  });
  ASSERT_NE(some, all.end());
  const std::string first = some->name.substr(0, some->name.find(' '));
  const std::string last = some->name.substr(some->name.rfind(' ') + 1);
  const auto holds = [&](const std::string& text) {
    const auto found = Company().SearchEntities(EntityKind::Good, text, 1000);
    return std::any_of(found.begin(), found.end(), [&](const auto& good) { return good.code == some->code; });
  };
  EXPECT_TRUE(holds(last + "  " + first));
  EXPECT_TRUE(holds(first + " " + last));
  EXPECT_FALSE(holds(last + " چنین‌کالایی‌نیست"));
  EXPECT_TRUE(Company().SearchEntities(EntityKind::Good, "' OR 1=1", 10).empty());
}

}  // namespace
}  // namespace goods
