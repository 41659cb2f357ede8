// The letters that choose tabs with Alt, and entries of menus by themselves.
#include "desktop/views/keyboard_marks.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QTimer>

#include "desktop/views/shown_text.h"
#include "tests/desktop/views/grid_fixture.h"
#include "tests/desktop/views/parts_kit.h"

namespace goods::testing {
namespace {

void PressLetter(QWidget& widget, QChar letter, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  const QString text = modifiers == Qt::NoModifier ? QString(letter) : QString();
  QTest::sendKeyEvent(QTest::Click, &widget, static_cast<Qt::Key>(letter.unicode()), text, modifiers);
  Settle();
}

TEST(KeyboardMarks, AreBeginningsOfWordsThatAreFreeElseAnyLetterThatIs) {
  Marks taken{u'ک'};
  EXPECT_EQ(Marked("کالاهای موجود", taken), "کالاهای &موجود");
  EXPECT_EQ(Marked("کالاهای موجود", taken), "ک&الاهای موجود");
  EXPECT_EQ(Marked("&ریز", taken), "&ریز");
  EXPECT_EQ(taken, (Marks{u'ک', u'م', u'ا'}));
  EXPECT_EQ(Marked("کم", taken), "کم");
}

TEST(KeyboardMarks, AreLettersThatAPersianKeyboardGives) {
  Marks taken;
  EXPECT_EQ(Marked("CSV خروجی", taken), "CSV &خروجی");
  EXPECT_EQ(Marked("ياد", taken), "ي&اد");
  EXPECT_EQ(Marked("یافتن\tCtrl+F", taken), "&یافتن\tCtrl+F");
  EXPECT_EQ(Marked("12 F9", taken), "12 F9");
}

TEST(KeyboardMarks, ADoubledSignIsPartOfTheText) {
  EXPECT_TRUE(MarkOf("پیچ && مهره").isNull());
  EXPECT_EQ(MarkOf("پیچ && &مهره"), u'م');
  EXPECT_EQ(WithoutMark("پیچ && &مهره\tF8"), "پیچ & مهره");
  EXPECT_EQ(AsPlain("پیچ & مهره"), "پیچ && مهره");
}

using MarkedTabs = Parts;

TEST_F(MarkedTabs, EachTabHasALetterThatNothingElseInTheWindowHas) {
  form.Kala_TBC.SetTabs({" کالاهای موجود ", " کالاهای کسری ", " کالاهای منفی "});
  Settle();
  Marks marks{u'ن', u'م', u'خ', u'ت', u'چ', u'س', u'ب', u'د'};  // those of the window's own captions
  const auto& bar = Widget<TabBar>(form.Kala_TBC);
  for (int i = 0; i < bar.count(); ++i) {
    EXPECT_FALSE(MarkOf(bar.tabText(i)).isNull()) << FromQt(bar.tabText(i));
    EXPECT_TRUE(marks.insert(MarkOf(bar.tabText(i))).second) << FromQt(bar.tabText(i));
  }
  EXPECT_EQ(form.Kala_TBC.Tabs().front(), " کالاهای موجود ");
}

TEST_F(MarkedTabs, AltAndTheLetterChooseTheTabFromAnywhereInTheWindow) {
  form.Kala_TBC.SetTabs({" کالاهای موجود ", " کالاهای کسری ", " کالاهای منفی "});
  Settle();
  Focus(form.After_EDT);
  const auto& bar = Widget<TabBar>(form.Kala_TBC);
  for (const int index : {2, 1, 0}) {
    PressLetter(*view.focusWidget(), MarkOf(bar.tabText(index)), Qt::AltModifier);
    EXPECT_EQ(form.Kala_TBC.TabIndex(), index);
  }
  EXPECT_EQ(form.After_EDT.Text(), "");
}

TEST_F(MarkedTabs, APageWithoutATabIsNotTurnedToByItsLetter) {
  form.Level_CMB.SetDroppedDown(true);
  Settle();
  PressLetter(*view.focusWidget(), u'س', Qt::AltModifier);
  EXPECT_EQ(form.Level_PGC.ActivePageIndex(), 1);
  form.Level_PGC.SetActivePageIndex(0);
  form.Levels_TBS.SetVisible(false);
  Settle();
  PressLetter(*view.focusWidget(), u'س', Qt::AltModifier);
  EXPECT_EQ(form.Level_PGC.ActivePageIndex(), 0);
}

class MarkedMenu : public GridTest {
 protected:
  // Opens the menu by its key and hands it over; the steps close it.
  void InMenu(const std::function<void(QMenu& menu)>& steps) {
    bool shown = false;
    QTimer::singleShot(0, [&] {
      auto* menu = view.findChild<QMenu*>("GridMenu");
      ASSERT_NE(menu, nullptr);
      shown = true;
      steps(*menu);
      menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(Table().viewport(), &event);
    EXPECT_TRUE(shown);
    Settle();
  }
};

void ExpectMarks(const QMenu& menu, int& seen) {
  Marks marks;
  for (const QAction* action : menu.actions()) {
    if (action->isSeparator()) continue;
    ++seen;
    EXPECT_FALSE(MarkOf(action->text()).isNull()) << FromQt(action->text());
    EXPECT_TRUE(marks.insert(MarkOf(action->text())).second) << FromQt(action->text());
    if (action->menu() != nullptr) {
      EXPECT_EQ(action->menu()->accessibleName(), WithoutMark(action->text()));
      ExpectMarks(*action->menu(), seen);
    }
  }
}

TEST_F(MarkedMenu, EveryEntryOfATablesMenusHasALetterOfItsOwn) {
  const_cast<TGridColumn&>(Column("Date")).SetKind(CellKind::Date);
  Open(20);
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().CellRect(2, Column("Date")).center());
  int seen = 0;
  InMenu([&](QMenu& menu) {
    EXPECT_FALSE(menu.accessibleName().isEmpty());
    ExpectMarks(menu, seen);
  });
  EXPECT_GE(seen, 16);
}

TEST_F(MarkedMenu, TheLettersWorkAlsoInTheMenusInside) {
  Open(20);
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().CellRect(0, Column("PerName")).center());
  InMenu([](QMenu& menu) { PressLetter(menu, u'ی'); });
  EXPECT_TRUE(Table().findChild<QWidget*>("FindBar")->isVisible());
  InMenu([](QMenu& menu) {
    PressLetter(menu, u'گ');
    auto* inside = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(inside, nullptr);
    EXPECT_EQ(inside->objectName(), "GridGroupMenu");
    PressLetter(*inside, u'ب');
  });
  EXPECT_TRUE(form.Kardex_GRD.Groups().Active());
}

TEST_F(MarkedMenu, ASignInACompanysTextIsNoMark) {
  const_cast<TGridColumn&>(Column("PerName")).SetCaption("نام && شخص");
  Open(20);
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().CellRect(0, Column("PerName")).center());
  InMenu([](QMenu& menu) {
    EXPECT_EQ(MarkOf(menu.actions().front()->text()), u'ف');
    EXPECT_EQ(WithoutMark(menu.actions().front()->text()), "فیلتر نام & شخص");
  });
}

}  // namespace
}  // namespace goods::testing
