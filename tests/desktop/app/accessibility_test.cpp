// What a screen reader finds in the windows of reports, and what the keyboard reaches.
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <set>

#include "desktop/app/main_window.h"
#include "desktop/views/form_view.h"
#include "desktop/views/grid_view.h"
#include "goods_reports.h"
#include "host/base/base_dock.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class Accessibility : public DesktopTest {
 protected:
  // Each report that a menu opens, and its criteria dialog where it has one.
  void EachWindow(const std::function<void(QWidget& window)>& look) {
    HostFor("admin");
    for (const ReportDescription& report : MenuReports()) {
      if (!Module().Has(report.exportName)) continue;
      SCOPED_TRACE(report.exportName);
      WhileModal([&](QWidget& window) {
        Wait(100);
        look(window);
        const auto* button = FormOf(window).FindComponent("ADVSearch_Fram1.ADVSearch_BTN");
        if (button == nullptr || !dynamic_cast<const TControl*>(button)->CanFocus()) return;
        WhileModal([&](QWidget& dialog) {
          Wait(50);
          look(dialog);
        });
        PressKey(window, Qt::Key_F10, Qt::ControlModifier);
      });
      Module().Open(report);
      RethrowFailure();
    }
  }
};

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

TEST_F(Accessibility, WhateverCanBeOperatedHasAName) {
  EachWindow([](QWidget& window) {
    QStringList nameless;
    int seen = 0;
    CollectNameless(QAccessible::queryAccessibleInterface(&window), nameless, seen);
    EXPECT_GT(seen, 3);
    EXPECT_TRUE(nameless.isEmpty()) << FromQt(window.objectName() + ": " + nameless.join("\n"));
  });
}

TEST_F(Accessibility, TabReachesEveryControlOfEveryWindow) {
  EachWindow([](QWidget& window) {
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
