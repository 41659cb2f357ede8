// The accessibility tree of a table and of a window.
#include "desktop/views/grid_accessible.h"

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QLineEdit>
#include <QScrollBar>
#include <utility>

#include <gtest/gtest.h>

#include "desktop/views/grid_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

class GridReader : public ::testing::Test {
 protected:
  void Open(std::size_t rows) {
    form.Fill(rows);
    form.Kardex_GRD.SetAccessibleName("ردیف های کاردکس");
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    form.Kardex_GRD.SetFocus();
    Settle();
  }
  GridWidget& Widget() { return dynamic_cast<GridWidget&>(*view.WidgetOf(form.Kardex_GRD)); }
  QAccessibleInterface& Reader() { return *QAccessible::queryAccessibleInterface(&Widget()); }
  QAccessibleTableInterface& Table() { return *Reader().tableInterface(); }

  TestHost host;
  TCard_FRM form{host};
  FormView view{form};
};

TEST_F(GridReader, HearsATableOfTitlesAndCells) {
  Open(300);
  EXPECT_EQ(Reader().role(), QAccessible::Table);
  EXPECT_EQ(Reader().text(QAccessible::Name), "ردیف های کاردکس");
  EXPECT_EQ(Table().rowCount(), 300);
  EXPECT_EQ(Table().columnCount(), 9);
  EXPECT_EQ(Table().columnDescription(1), "نام شخص");
  QAccessibleInterface* cell = Table().cellAt(1, 1);
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(cell->role(), QAccessible::Cell);
  EXPECT_EQ(cell->text(QAccessible::Name), "فروشگاه مرکزی");
  EXPECT_EQ(cell->text(QAccessible::Description), "نام شخص");
  EXPECT_EQ(Table().cellAt(3, 6)->text(QAccessible::Name),
            ShownCell(form.Kardex_GRD.CellText(3, *form.Kardex_GRD.FindColumn("Bagh")), true));
  ASSERT_NE(cell->tableCellInterface(), nullptr);
  EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 1);
  EXPECT_EQ(cell->tableCellInterface()->columnIndex(), 1);
  ASSERT_EQ(cell->tableCellInterface()->columnHeaderCells().size(), 1);
  EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells().front()->text(QAccessible::Name), "نام شخص");
  EXPECT_EQ(cell->parent(), &Reader());
  EXPECT_EQ(Reader().child(Reader().indexOfChild(cell)), cell);
  EXPECT_EQ(Reader().child(1)->role(), QAccessible::ColumnHeader);
  EXPECT_EQ(Table().cellAt(300, 0), nullptr);
}

TEST_F(GridReader, CellsStandWhereTheyAreSeen) {
  Open(300);
  const QRect cell = Table().cellAt(2, 3)->rect();
  EXPECT_EQ(cell.topLeft(), Widget().viewport()->mapToGlobal(
                                Widget().CellRect(2, *form.Kardex_GRD.FindColumn("Anbar")).topLeft()));
  EXPECT_EQ(Reader().childAt(cell.center().x(), cell.center().y()), Table().cellAt(2, 3));
  EXPECT_FALSE(Table().cellAt(2, 3)->state().offscreen);
  EXPECT_TRUE(Table().cellAt(299, 3)->state().offscreen);
}

TEST_F(GridReader, FindsTheCellThatKeysGoTo) {
  Open(300);
  QTest::keyClick(&Widget(), Qt::Key_Down);
  Settle();
  EXPECT_TRUE(Table().cellAt(1, 0)->state().focused);
  EXPECT_EQ(Reader().focusChild(), Table().cellAt(1, 0));
  QTest::keyClick(&Widget(), Qt::Key_Left, Qt::ControlModifier);
  QTest::keyClick(&Widget(), Qt::Key_Left, Qt::ControlModifier);
  EXPECT_TRUE(Table().cellAt(1, 1)->state().focused);
  EXPECT_EQ(Reader().focusChild(), Table().cellAt(1, 1));
}

TEST_F(GridReader, SelectsRowsAndFollowsTheSelectionOfTheTable) {
  Open(300);
  EXPECT_TRUE(Table().selectRow(7));
  EXPECT_EQ(form.Kardex_QRY.RecNo(), 7U);
  EXPECT_EQ(Table().selectedRows(), QList<int>{7});
  form.Kardex_GRD.SetSelection({2, 5});
  EXPECT_EQ(Table().selectedRows(), (QList<int>{2, 5}));
  EXPECT_TRUE(Table().cellAt(5, 0)->tableCellInterface()->isSelected());
  EXPECT_FALSE(Table().cellAt(7, 0)->tableCellInterface()->isSelected());
}

TEST_F(GridReader, ACellThatIsGoneIsInvalidAndCrashesNothing) {
  Open(300);
  QAccessibleInterface* cell = Table().cellAt(250, 2);
  ASSERT_TRUE(cell->isValid());
  form.Fill(10);
  Settle();
  EXPECT_FALSE(cell->isValid());
  EXPECT_EQ(cell->text(QAccessible::Name), QString());
  EXPECT_TRUE(cell->state().invalid);
}

TEST_F(GridReader, AMillionRowsMakeNoCellsThatNobodyAskedFor) {
  Open(1'000'000);
  EXPECT_EQ(Table().rowCount(), 1'000'000);
  EXPECT_EQ(Reader().indexOfChild(Table().cellAt(999'999, 8)), (1'000'000 + 1) * 9 - 1);
}

// What is told to a reader while this lives.
class Listener {
 public:
  Listener() {
    Told().clear();
    SetReaderSink([](QAccessibleEvent& event) {
      const bool focus = event.type() == QAccessible::Focus;
      if (!focus && event.type() != QAccessible::TableModelChanged) return;
      QAccessibleInterface* heard = event.accessibleInterface();
      Told() << (!focus ? QString("rows") : heard == nullptr ? QString() : heard->text(QAccessible::Name));
    });
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() { SetReaderSink(nullptr); }
  // Since it was asked last, with what is still to come of it.
  QStringList Heard() {
    Settle();
    return HeardSoFar();
  }
  QStringList HeardSoFar() { return std::exchange(Told(), {}); }

 private:
  static QStringList& Told() {
    static QStringList told;
    return told;
  }
};

TEST_F(GridReader, IsToldTheCellThatBecomesTheCurrentOne) {
  Open(300);
  QTest::keyClick(&Widget(), Qt::Key_Right, Qt::ControlModifier);  // the first press shows the column
  Listener reader;
  const auto cell = [this](std::size_t row, const char* field) {
    const TGridColumn& column = *form.Kardex_GRD.FindColumn(field);
    return ShownCell(form.Kardex_GRD.CellText(row, column), column.IsNumber());
  };
  QTest::keyClick(&Widget(), Qt::Key_Down);
  EXPECT_EQ(reader.Heard(), QStringList(cell(1, "Date")));
  QTest::keyClick(&Widget(), Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(reader.Heard(), QStringList(cell(1, "PerName")));
  QTest::keyClick(&Widget(), Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(reader.Heard(), QStringList(cell(299, "PerName")));
  form.Kardex_QRY.MoveTo(40);
  EXPECT_EQ(reader.Heard(), QStringList(cell(40, "PerName")));
  // Other rows are told before the cell among them, also where the current one has the same number.
  form.Kardex_QRY.SetFilter("Anbar = 1");
  const QStringList heard = reader.Heard();
  ASSERT_GE(heard.size(), 2);
  EXPECT_EQ(heard.front(), "rows");
  EXPECT_EQ(heard.back(), cell(*form.Kardex_QRY.RecNo(), "PerName"));
  form.Search_EDT.SetFocus();
  Settle();
  reader.Heard();
  form.Kardex_QRY.MoveTo(3);
  EXPECT_TRUE(reader.Heard().isEmpty());  // the keyboard is elsewhere
  form.Kardex_GRD.SetFocus();
  EXPECT_TRUE(reader.Heard().contains(cell(3, "PerName")));
}

// What the toolkit says of the table itself comes between.
TEST_F(GridReader, IsToldTheCellBehindTheTableThatTheKeyboardComesTo) {
  Open(300);
  form.Search_EDT.SetFocus();
  Settle();
  Listener reader;
  Widget().setFocus();
  EXPECT_TRUE(reader.HeardSoFar().isEmpty());
  EXPECT_EQ(reader.Heard(), QStringList(Table().cellAt(0, 0)->text(QAccessible::Name)));
}

TEST_F(GridReader, HearsThatAWindowIsOne) {
  Open(3);
  const QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&view);
  EXPECT_TRUE(window->role() == QAccessible::Window || window->role() == QAccessible::Dialog);
  EXPECT_EQ(window->text(QAccessible::Name), view.windowTitle());
}

TEST_F(GridReader, TheHeadOfAGroupIsACellOfItsOwn) {
  Open(400);
  GridGroups& groups = form.Kardex_GRD.Groups();
  Widget().GroupBy(form.Kardex_GRD.FindColumn("PerName"));
  Settle();
  ASSERT_EQ(groups.GroupCount(), 4U);
  EXPECT_EQ(Table().rowCount(), 4);
  QAccessibleInterface* head = Table().cellAt(1, 0);
  ASSERT_NE(head, nullptr);
  EXPECT_EQ(head->role(), QAccessible::Cell);
  EXPECT_EQ(head->text(QAccessible::Name), ShownText(groups.HeadText(groups.LineAt(1))));
  EXPECT_TRUE(head->state().expandable);
  EXPECT_TRUE(head->state().collapsed);
  // Over the columns before its first total, which stand under their titles.
  const int extent = head->tableCellInterface()->columnExtent();
  ASSERT_GT(extent, 1);
  ASSERT_LT(extent, Table().columnCount());
  for (int column = 0; column < extent; ++column) EXPECT_EQ(Table().cellAt(1, column), head);
  EXPECT_TRUE(head->tableCellInterface()->columnHeaderCells().isEmpty());
  QAccessibleInterface* total = Table().cellAt(1, extent);
  const TGridColumn& summed = *Widget().Geometry().Spans()[static_cast<std::size_t>(extent)].column;
  EXPECT_EQ(total->text(QAccessible::Name), ShownCell(groups.TotalText(groups.LineAt(1), summed), true));
  EXPECT_EQ(total->tableCellInterface()->columnHeaderCells().size(), 1);
  EXPECT_EQ(Reader().child(Reader().indexOfChild(head)), head);
  EXPECT_EQ(Reader().childAt(head->rect().center().x(), head->rect().center().y()), head);
  EXPECT_TRUE(head->rect().contains(Table().cellAt(1, 0)->rect().center()));

  ASSERT_NE(head->actionInterface(), nullptr);
  head->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  Settle();
  EXPECT_FALSE(groups.Folded(1));
  EXPECT_TRUE(head->state().expanded);
  EXPECT_EQ(Table().rowCount(), 104);
  QAccessibleInterface* cell = Table().cellAt(2, 1);
  EXPECT_EQ(cell->text(QAccessible::Name),
            ToQt(form.Kardex_GRD.CellText(groups.FirstRow(1), *form.Kardex_GRD.FindColumn("PerName"))));
  EXPECT_EQ(cell->text(QAccessible::Description), "نام شخص");
  EXPECT_EQ(cell->actionInterface(), nullptr);
  EXPECT_TRUE(Table().selectRow(2));
  EXPECT_EQ(form.Kardex_QRY.RecNo(), groups.FirstRow(1));
  EXPECT_EQ(Table().selectedRows(), QList<int>{2});
}

TEST_F(GridReader, IsToldTheHeadThatStandsForItsRowsAndWhenItOpens) {
  Open(400);
  Widget().GroupBy(form.Kardex_GRD.FindColumn("PerName"));
  Settle();
  const GridGroups& groups = form.Kardex_GRD.Groups();
  QTest::keyClick(&Widget(), Qt::Key_Home, Qt::ControlModifier);
  Settle();
  Listener reader;
  QTest::keyClick(&Widget(), Qt::Key_Down);
  EXPECT_EQ(reader.Heard(), QStringList(ShownText(groups.HeadText(groups.LineAt(1)))));
  EXPECT_EQ(Reader().focusChild(), Table().cellAt(1, 0));
  QTest::keyClick(&Widget(), Qt::Key_Plus);
  const QStringList opened = reader.Heard();
  ASSERT_EQ(opened.size(), 2) << opened.join('|').toStdString();
  EXPECT_EQ(opened.front(), "rows");
  const TGridColumn& first = *Widget().Geometry().Spans().front().column;
  EXPECT_EQ(opened.back(), ShownCell(form.Kardex_GRD.CellText(groups.FirstRow(1), first), first.IsNumber()));
}

TEST_F(GridReader, TheFrameOfATableShowsThatItHasTheKeyboard) {
  Open(30);
  const auto corner = [&] { return Widget().grab().toImage().pixelColor(0, 20); };
  EXPECT_EQ(corner(), CurrentTheme().accent);
  form.Search_EDT.SetFocus();
  Settle();
  EXPECT_EQ(corner(), CurrentTheme().border);
}

}  // namespace
}  // namespace goods::testing
