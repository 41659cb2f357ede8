// Commands on a keyboard whose layout is Persian: each key does what it does on a Latin one.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QTableWidget>
#include <set>

#include "desktop/app/main_window.h"
#include "desktop/app/view_store.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/keyboard_marks.h"
#include "desktop/views/letter_keys.h"
#include "host/base/base_dock.h"
#include "host/components/edit.h"
#include "host/components/grid_groups.h"
#include "tests/desktop/app/every_window.h"

namespace goods {
namespace {

// The key of that Latin letter, as the Persian layout gives it.
Qt::Key PersianKeyOf(Qt::Key latin) { return OnBothLayouts(QKeySequence(latin)).back()[0].key(); }

bool IsLetterOrDigit(Qt::Key key) {
  return (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
}

// The shortcuts that no key of a Persian layout reaches.
void CollectDeaf(const QList<QKeySequence>& keys, const QString& name, QStringList& deaf, int& seen) {
  for (const QKeySequence& each : keys) {
    if (each.count() != 1 || !IsLetterOrDigit(each[0].key())) continue;
    ++seen;
    const QKeySequence persian(QKeyCombination(each[0].keyboardModifiers(), PersianKeyOf(each[0].key())));
    if (!keys.contains(persian)) deaf << name + ": " + each.toString();
  }
}

class PersianLayout : public EveryWindow {
 protected:
  int seen_ = 0;

  Look LooksForDeafKeys() {
    return [this](QWidget& window) {
      QStringList deaf;
      for (const QShortcut* each : window.findChildren<QShortcut*>())
        CollectDeaf(each->keys(), "a shortcut", deaf, seen_);
      for (const QAction* each : window.findChildren<QAction*>())
        CollectDeaf(each->shortcuts(), each->text(), deaf, seen_);
      EXPECT_TRUE(deaf.isEmpty()) << FromQt(window.objectName() + ": " + deaf.join(", "));
    };
  }
};

TEST(LetterKeys, EachLetterAndDigitHasItsPersianOneAndComesBackFromIt) {
  std::set<int> persian;
  for (int key = Qt::Key_0; key <= Qt::Key_Z; ++key) {
    if (!IsLetterOrDigit(static_cast<Qt::Key>(key))) continue;
    const Qt::Key other = PersianKeyOf(static_cast<Qt::Key>(key));
    EXPECT_NE(other, key);
    EXPECT_TRUE(persian.insert(other).second) << key;
    EXPECT_EQ(LatinKey(other), key);
    EXPECT_EQ(LatinKey(key), key);
  }
  EXPECT_EQ(LatinKey(u'٤'), Qt::Key_4);
  EXPECT_EQ(LatinKey(u'ي'), Qt::Key_D);
  EXPECT_EQ(LatinKey(Qt::Key_F5), Qt::Key_F5);
  EXPECT_EQ(OnBothLayouts(QKeySequence(Qt::Key_F5)).size(), 1);
}

TEST(LetterKeys, LettersThatAreTypedStayWhatTheyAre) {
  EXPECT_EQ(OnLatinLayout(QKeyEvent(QEvent::KeyPress, u'ز', Qt::NoModifier, "ز")).key(), u'ز');
  EXPECT_EQ(OnLatinLayout(QKeyEvent(QEvent::KeyPress, u'ز', Qt::ControlModifier)).key(), Qt::Key_C);
}

TEST_F(PersianLayout, NoShortcutOfAReportIsDeaf) { EachReport(LooksForDeafKeys()); }

TEST_F(PersianLayout, NoShortcutOfTheProgramOrADialogIsDeaf) {
  EachDialog(LooksForDeafKeys());
  EXPECT_GT(seen_, 10) << "the reports' digits alone are as many";
}

TEST_F(PersianLayout, TheKeysOfAReportAnswer) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    const auto press = [&](Qt::Key latin) {
      PressKey(window, PersianKeyOf(latin), Qt::ControlModifier);
      Wait(50);
    };
    auto& grid = Component<TSmartDBGrid_QRT>(window, "Kardex_GRD");
    Child(window, "Kardex_GRD").setFocus();
    press(Qt::Key_A);
    EXPECT_EQ(grid.Selection().size(), grid.RowCount());
    QApplication::clipboard()->clear();
    press(Qt::Key_C);
    EXPECT_FALSE(QApplication::clipboard()->text().isEmpty());
    auto& figures = *window.findChild<QTableWidget*>("Figures_TBL");
    ASSERT_FALSE(figures.isVisible());
    press(Qt::Key_T);
    EXPECT_TRUE(figures.isVisible());
    press(Qt::Key_G);
    EXPECT_EQ(grid.Groups().Levels().size(), 1U);
    press(Qt::Key_F);
    EXPECT_TRUE(Child(window, "FindBar").isVisible());
  });
  Module().Call("Open_GoodKardex");
  RethrowFailure();
}

TEST_F(PersianLayout, TheKeysOfThePreviewAnswer) {
  HostFor("admin");
  QStringList opened;
  WhileModal([&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    WhileModal([&](QWidget& preview) {
      for (const Qt::Key latin : {Qt::Key_P, Qt::Key_S, Qt::Key_E}) {
        WhileModal([&](QWidget& dialog) {
          opened << (dialog.objectName().isEmpty() ? QString(dialog.metaObject()->className())
                                                   : dialog.objectName());
        });
        PressKey(preview, PersianKeyOf(latin), Qt::ControlModifier);
        RethrowFailure();
      }
    });
    PressKey(window, Qt::Key_F9);
  });
  Module().Call("Open_GoodKardex");
  RethrowFailure();
  EXPECT_EQ(opened, (QStringList{"QPrintDialog", "File_DLG", "PageSetup_DLG"}));
}

// Texts that are copied from an edit, and put back.
TEST_F(PersianLayout, TheKeysOfAnEditAnswer) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    TypeText(window, "Good_SEF.Code_EDT", "123");
    auto& line = dynamic_cast<QLineEdit&>(Child(window, "Good_SEF.Code_EDT"));
    const auto press = [&](Qt::Key latin) { PressKey(window, PersianKeyOf(latin), Qt::ControlModifier); };
    press(Qt::Key_A);
    EXPECT_EQ(line.selectedText(), line.text());
    press(Qt::Key_X);
    EXPECT_EQ(line.text(), "");
    press(Qt::Key_V);
    EXPECT_EQ(line.text(), ShownDigits("123"));
  });
  Module().Call("Open_GoodKardex");
  RethrowFailure();
}

TEST_F(PersianLayout, TheMenusNumberTheirEntriesInTheDigitsOfTheRest) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    PressKey(window, Qt::Key_2, Qt::AltModifier);
    Wait(50);
    Child(window, "Date_RDSF.RangeDate_From_EDT").setFocus();
    for (const Qt::Key digit : {Qt::Key_1, PersianKeyOf(Qt::Key_2)}) {
      PressKey(window, Qt::Key_Down, Qt::ControlModifier);
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      EXPECT_EQ(MarkOf(menu->actions().front()->text()), u'۱');
      EXPECT_EQ(MarkOf(menu->actions().back()->text()), u'۰');
      PressKey(*menu, digit);
      Wait(50);
      EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
    const std::string day = Component<TEdit>(window, "Date_RDSF.RangeDate_From_EDT").Text();
    EXPECT_EQ(Component<TEdit>(window, "Date_RDSF.RangeDate_To_EDT").Text(), day);
    EXPECT_LT(day, FormOf(window).Host().Windows().NowDate()) << "yesterday";
  });
  Module().Call("Open_GoodKardex");
  RethrowFailure();
}

}  // namespace
}  // namespace goods
