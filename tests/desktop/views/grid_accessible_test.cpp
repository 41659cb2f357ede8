// The accessibility tree of a table and of a window.
#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QLineEdit>
#include <QScrollBar>

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
