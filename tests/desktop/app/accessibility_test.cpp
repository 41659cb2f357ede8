// What a screen reader finds in the windows of reports, and what the keyboard reaches.
#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTabBar>
#include <set>

#include "desktop/app/main_window.h"
#include "desktop/views/form_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/group_title.h"
#include "desktop/views/keyboard_marks.h"
#include "host/base/base_dock.h"
#include "tests/desktop/app/every_window.h"

namespace goods {
namespace {

using Accessibility = EveryWindow;

bool IsOperated(QAccessible::Role role) {
  switch (role) {
    case QAccessible::PushButton:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::EditableText:
    case QAccessible::ComboBox:
    case QAccessible::PageTab:
    case QAccessible::PageTabList:
    case QAccessible::Table:
    case QAccessible::List:
    case QAccessible::ButtonMenu:
    case QAccessible::MenuItem:
      return true;
    default:
      return false;
  }
}

// What can be operated and says nothing, by what is known of it.
void CollectNameless(QAccessibleInterface* item, QStringList& nameless, int& seen) {
  if (item == nullptr || !item->isValid() || item->state().invisible) return;
  if (IsOperated(item->role())) {
    ++seen;
    if (item->text(QAccessible::Name).trimmed().isEmpty() && !item->state().disabled) {
      const QObject* object = item->object();
      nameless << QString("%1 %2 %3")
                      .arg(item->role())
                      .arg(object == nullptr ? "?" : object->metaObject()->className(),
                           object == nullptr ? "?" : object->objectName());
    }
  }
  // A table's cells are looked at by themselves, and a combo box is one thing.
  if (item->role() == QAccessible::Table || item->role() == QAccessible::ComboBox) return;
  for (int i = 0; i < item->childCount(); ++i) CollectNameless(item->child(i), nameless, seen);
}

void CollectStops(const FormView& form, TControl& container, std::set<std::string>& stops) {
  for (TControl* control : container.Controls()) {
    const QWidget* widget = form.WidgetOf(*control);
    if (control->TakesFocus() && control->CanFocus() && widget != nullptr && widget->isVisible())
      stops.insert(FromQt(ComponentPath(*control)));
    CollectStops(form, *control, stops);
  }
}

void ExpectNames(QWidget& window) {
  QStringList nameless;
  int seen = 0;
  CollectNameless(QAccessible::queryAccessibleInterface(&window), nameless, seen);
  EXPECT_GT(seen, 0) << FromQt(window.objectName());
  EXPECT_TRUE(nameless.isEmpty()) << FromQt(window.objectName() + ": " + nameless.join("\n"));
}

TEST_F(Accessibility, WhateverCanBeOperatedInAReportHasAName) { EachReport(ExpectNames); }

TEST_F(Accessibility, WhateverCanBeOperatedInADialogHasAName) { EachDialog(ExpectNames); }

TEST_F(Accessibility, TabReachesEveryControlOfEveryReport) {
  EachReport([](QWidget& window) {
    auto& form = dynamic_cast<FormView&>(window);
    std::set<std::string> wanted;
    CollectStops(form, form.Form(), wanted);
    std::set<std::string> reached;
    for (std::size_t i = 0; i < 2 * wanted.size() + 2; ++i) {
      if (const TControl* active = form.Form().ActiveControl())
        reached.insert(FromQt(ComponentPath(*active)));
      PressKey(window, Qt::Key_Tab);
    }
    for (const std::string& control : wanted)
      EXPECT_TRUE(reached.contains(control)) << FromQt(window.objectName()) << ": " << control;
    EXPECT_FALSE(wanted.empty());
  });
}

// What a user clicks, types into or chooses from; parts of such a control are not looked at.
bool IsControl(const QWidget& widget) {
  for (const QWidget* each = widget.parentWidget(); each != nullptr; each = each->parentWidget()) {
    for (const char* whole : {"QComboBox", "QAbstractSpinBox", "QTabBar", "QLineEdit", "QHeaderView"})
      if (each->inherits(whole)) return false;
  }
  for (const char* kind : {"QAbstractButton", "QLineEdit", "QComboBox", "QAbstractSpinBox",
                           "QAbstractItemView", "QTabBar", "QTextEdit"})
    if (widget.inherits(kind) && !widget.inherits("QHeaderView")) return true;
  return dynamic_cast<const GridWidget*>(&widget) != nullptr;
}

// "F8", "(Ctrl+T)", "Esc" and their like, in what the control says of itself, or a letter that Alt goes with.
bool NamesAKey(const QWidget& widget) {
  static const QRegularExpression kKey(
      "(?:^|[ (])((?:Ctrl|Alt|Shift)\\+[A-Za-z0-9+-]+|F[0-9]{1,2}|Esc|Enter|Del|Ins)(?:$|[ )])");
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  const QString texts = (button == nullptr ? QString() : button->text()) + " " + widget.toolTip() + " " +
                        widget.accessibleName() + " " + widget.accessibleDescription();
  return kKey.match(texts).hasMatch() || (button != nullptr && !MarkOf(button->text()).isNull());
}

// Where Tab comes to from where the keyboard is, all the way round.
std::set<const QWidget*> ReachedByTab(QWidget& window) {
  constexpr int kMost = 300;
  std::set<const QWidget*> reached;
  const QWidget* first = window.focusWidget();
  for (int i = 0; i < kMost; ++i) {
    for (const QWidget* each = window.focusWidget(); each != nullptr && each != &window;
         each = each->parentWidget())
      reached.insert(each);
    PressKey(window, Qt::Key_Tab);
    if (i > 0 && window.focusWidget() == first) break;
  }
  return reached;
}

void ExpectReachable(QWidget& window) {
  const bool report = dynamic_cast<FormView*>(&window) != nullptr;
  const std::set<const QWidget*> reached = report ? std::set<const QWidget*>() : ReachedByTab(window);
  int seen = 0;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->window() != &window || !IsSeen(*widget) || !IsControl(*widget)) continue;
    ++seen;
    const bool stops = (widget->focusPolicy() & Qt::TabFocus) != 0;
    // The title over a group of controls that does not fold.
    if (dynamic_cast<const GroupTitle*>(widget) != nullptr && widget->cursor().shape() == Qt::ArrowCursor)
      continue;
    if (report && stops) continue;  // looked at by the components' order
    // Of boxes of which one is chosen Tab comes to the chosen one, and the arrows go on from there.
    const bool choice = widget->inherits("QRadioButton");
    EXPECT_TRUE(reached.contains(widget) || NamesAKey(*widget) || choice ||
                (widget->focusProxy() != nullptr && reached.contains(widget->focusProxy())))
        << FromQt(window.objectName()) << ": " << widget->metaObject()->className() << ' '
        << FromQt(widget->objectName());
  }
  EXPECT_GT(seen, 0) << FromQt(window.objectName());
}

TEST_F(Accessibility, WhatTabDoesNotReachInAReportNamesItsKey) { EachReport(ExpectReachable); }

TEST_F(Accessibility, EveryControlOfADialogIsReachedByTabOrByAKeyThatItNames) { EachDialog(ExpectReachable); }

// The marks of what is seen, but for strips of tabs.
Marks MarksIn(const QWidget& window, QStringList& twice) {
  Marks marks;
  const auto add = [&](const QString& text) {
    if (!MarkOf(text).isNull() && !marks.insert(MarkOf(text)).second) twice << text;
  };
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->window() != &window || !widget->isVisible()) continue;
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) add(button->text());
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label != nullptr && label->buddy() != nullptr) add(label->text());
  }
  return marks;
}

TEST_F(Accessibility, NoTwoMarksOfADialogAreTheSame) {
  EachDialog([](QWidget& window) {
    if (dynamic_cast<FormView*>(&window) != nullptr) return;
    QStringList twice;
    MarksIn(window, twice);
    EXPECT_TRUE(twice.isEmpty()) << FromQt(window.objectName() + ": " + twice.join("\n"));
  });
}

TEST_F(Accessibility, TabsOfReportsHaveMarksThatNothingElseInTheWindowHas) {
  int tabs = 0;
  EachReport([&tabs](QWidget& window) {
    QStringList captions;
    Marks marks = MarksIn(window, captions);
    for (const QTabBar* bar : window.findChildren<QTabBar*>()) {
      if (!bar->isVisible()) continue;
      for (int i = 0; i < bar->count(); ++i) {
        if (!bar->isTabVisible(i)) continue;
        ++tabs;
        EXPECT_FALSE(MarkOf(bar->tabText(i)).isNull()) << FromQt(bar->tabText(i));
        EXPECT_TRUE(marks.insert(MarkOf(bar->tabText(i))).second)
            << FromQt(window.objectName() + ": " + bar->tabText(i));
      }
    }
  });
  EXPECT_GT(tabs, 10);
}

TEST_F(Accessibility, AReaderFindsTheCellsOfAReportUnderTheirTitles) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    TSmartDBGrid_QRT& grid = *dynamic_cast<TBaseDock_FRM&>(FormOf(window)).PrintedGrid();
    auto& form = dynamic_cast<FormView&>(window);
    form.Run([&] { grid.SetFocus(); });
    form.Flush();
    auto* table = QAccessible::queryAccessibleInterface(form.WidgetOf(grid));
    ASSERT_NE(table, nullptr);
    ASSERT_NE(table->tableInterface(), nullptr);
    EXPECT_EQ(static_cast<std::size_t>(table->tableInterface()->rowCount()), grid.RowCount());
    const std::vector<TGridColumn*> columns = grid.VisibleColumns();
    ASSERT_EQ(static_cast<std::size_t>(table->tableInterface()->columnCount()), columns.size());
    for (std::size_t column = 0; column < columns.size(); ++column) {
      auto* cell = table->tableInterface()->cellAt(3, static_cast<int>(column));
      ASSERT_NE(cell, nullptr);
      EXPECT_EQ(cell->text(QAccessible::Name),
                ShownCell(grid.CellText(3, *columns[column]), columns[column]->IsNumber()));
      ASSERT_EQ(cell->tableCellInterface()->columnHeaderCells().size(), 1);
      EXPECT_FALSE(
          cell->tableCellInterface()->columnHeaderCells().front()->text(QAccessible::Name).isEmpty());
    }
    // The focus is on the current cell, and goes with the keys.
    const auto heard = [&] {
      auto* focused = table->focusChild();
      return focused == nullptr || focused->tableCellInterface() == nullptr
                 ? -1
                 : focused->tableCellInterface()->rowIndex();
    };
    PressKey(window, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(heard(), 0);
    PressKey(window, Qt::Key_Down);
    EXPECT_EQ(heard(), 1);
  });
  Module().Call("Open_GoodKardex");
  RethrowFailure();
}

TEST_F(Accessibility, EveryEntryOfTheMenusHasAKeyOrAMarkOfItsOwn) {
  DesktopHost& host = HostFor("admin");
  MainWindow window(host, Module(), Settings(), "شرکت", "", {}, &host.Views());
  for (const QAction* title : window.menuBar()->actions()) {
    EXPECT_TRUE(title->text().contains('&')) << FromQt(title->text());
    std::set<QChar> marks;
    for (const QAction* action : title->menu()->actions()) {
      if (action->isSeparator()) continue;
      const auto mark = action->text().indexOf('&');
      EXPECT_TRUE(mark >= 0 || !action->shortcut().isEmpty()) << FromQt(action->text());
      if (mark < 0) continue;
      EXPECT_TRUE(marks.insert(action->text().at(mark + 1)).second) << FromQt(action->text());
    }
  }
}

}  // namespace
}  // namespace goods
