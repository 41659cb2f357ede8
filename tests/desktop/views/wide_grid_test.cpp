// Tables with grouped headers, hundreds of columns and fixed ones, and tables as lists.
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardItem>

#include "desktop/views/check_tree.h"
#include "desktop/views/column_chooser.h"
#include "tests/desktop/views/parts_kit.h"

namespace goods::testing {
namespace {

class WideGrid : public Parts {
 protected:
  void Widen(int columns) {
    form.AddAmountColumns(columns);
    Settle();
  }
  TGridColumn& Column(std::size_t place) { return *form.Goods_GRD.Columns()[place]; }
  const std::vector<GridGroup>& Groups() { return Table().Geometry().Groups(); }
  void ScrollTo(int value) {
    Table().horizontalScrollBar()->setValue(value);
    Settle();
  }
  void Drag(const QPoint& from, const QPoint& to) {
    QWidget* port = Table().viewport();
    QTest::mousePress(port, Qt::LeftButton, {}, from);
    QTest::mouseMove(port, (from + to) / 2);
    QTest::mouseMove(port, to);
    QTest::mouseRelease(port, Qt::LeftButton, {}, to);
    Settle();
  }
};

TEST_F(WideGrid, AGroupsTitleSpansTheVisibleColumnsBesideEachOther) {
  Widen(8);
  ASSERT_EQ(Groups().size(), 2U);
  const auto whole = [&](std::size_t first, std::size_t last) {
    return Table().TitleRect(Column(first)).united(Table().TitleRect(Column(last)));
  };
  const auto span = [&](const GridGroup& group) {
    const QRect rect = Table().GroupRect(group);
    return std::pair(rect.left(), rect.right());
  };
  EXPECT_EQ(span(Groups()[0]), std::pair(whole(2, 5).left(), whole(2, 5).right()));
  EXPECT_GT(span(Groups()[0]).first, span(Groups()[1]).second);
  Column(2).SetVisible(false);
  Column(3).SetWidth(130);
  Settle();
  EXPECT_EQ(span(Groups()[0]), std::pair(whole(3, 5).left(), whole(3, 5).right()));
  // A column of another group in between cuts it in two.
  form.Goods_GRD.MoveColumn(6, 4);
  Settle();
  EXPECT_EQ(Groups().size(), 4U);
  EXPECT_EQ(Groups()[0].title, Groups()[2].title);
}

TEST_F(WideGrid, AGroupIsMovedByItsTitleAndAClickOnItSortsNothing) {
  Widen(8);
  const QPoint first = Table().GroupRect(Groups()[0]).center();
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, first);
  EXPECT_TRUE(form.Goods_GRD.SortKeys().empty());
  view.resize(1500, 640);
  Settle();
  Drag(Table().GroupRect(Groups()[0]).center(), Table().TitleRect(Column(9)).center() - QPoint(30, 0));
  ASSERT_EQ(Groups().size(), 2U);
  EXPECT_EQ(Column(2).Caption(), "انبار شماره 2|وارده");
  EXPECT_EQ(Column(6).Caption(), "انبار شماره 1|وارده");
  EXPECT_EQ(Column(9).Caption(), "انبار شماره 1|مبلغ باقیمانده");
}

TEST_F(WideGrid, InTheLineOfTheGroupsOnlyAGroupsOwnEdgeResizes) {
  Widen(8);
  const QRect title = Table().TitleRect(Column(2));
  Drag(QPoint(title.left(), title.top() - 4), QPoint(title.left() - 30, title.top() - 4));
  EXPECT_EQ(Column(2).Width(), 90);
  const QRect last = Table().TitleRect(Column(5));
  Drag(QPoint(last.left(), last.top() - 4), QPoint(last.left() - 30, last.top() - 4));
  EXPECT_EQ(Column(5).Width(), 120);
}

TEST_F(WideGrid, CodeAndNameStayInSightWhereverTheOthersAreScrolled) {
  Widen(248);
  const QRect code = Table().CellRect(0, Column(0));
  const QRect name = Table().CellRect(0, Column(1));
  const QRect far = Table().CellRect(0, Column(200));
  ScrollTo(9000);
  EXPECT_EQ(Table().CellRect(0, Column(0)), code);
  EXPECT_EQ(Table().CellRect(0, Column(1)), name);
  EXPECT_EQ(Table().CellRect(0, Column(200)).left(), far.left() + 9000);
  // What is under the fixed columns cannot be clicked through them.
  const auto& geometry = Table().Geometry();
  EXPECT_EQ(geometry.SpanAt(name.center().x(), 9000), 1U);
  EXPECT_EQ(geometry.SpanAt(code.center().x(), 9000), 0U);
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().TitleRect(Column(1)).center());
  ASSERT_EQ(form.Goods_GRD.SortKeys().size(), 1U);
  EXPECT_EQ(form.Goods_GRD.SortKeys()[0].FieldName, "PerName");
}

TEST_F(WideGrid, FixedColumnsThatLeaveNoRoomAreScrolledLikeTheOthers) {
  Widen(40);
  Column(1).SetWidth(2000);
  Settle();
  EXPECT_TRUE(Table().Geometry().Spans()[0].fixed);
  EXPECT_FALSE(Table().Geometry().Spans()[1].fixed);
}

TEST_F(WideGrid, Of250ColumnsOnlyThoseInViewArePainted) {
  Widen(248);
  ASSERT_EQ(form.Goods_GRD.VisibleColumns().size(), 250U);
  for (const int offset : {0, 7777, Table().horizontalScrollBar()->maximum()}) {
    ScrollTo(offset);
    std::set<const TGridColumn*> columns;
    std::set<std::size_t> rows;
    std::size_t cells = 0;
    form.Goods_GRD.OnDrawColumnCell = [&](std::size_t row, const TGridColumn& column, TCellStyle&) {
      columns.insert(&column);
      rows.insert(row);
      ++cells;
    };
    Table().viewport()->repaint();
    const int room = Table().Geometry().ScrolledArea().width();
    EXPECT_EQ(columns.count(&Column(0)) + columns.count(&Column(1)), 2U) << offset;
    EXPECT_GE(columns.size(), 2U + static_cast<std::size_t>(room / 90)) << offset;
    EXPECT_LE(columns.size(), 2U + static_cast<std::size_t>(room / 90) + 2) << offset;
    EXPECT_EQ(cells, columns.size() * rows.size()) << offset;
    form.Goods_GRD.OnDrawColumnCell = nullptr;
  }
}

TEST_F(WideGrid, TheChooserSearchesGroupsAndTicksAllAtOnce) {
  Widen(248);
  QDialog* chooser = ShowColumnChooser(view, form.Goods_GRD);
  Settle();
  auto* tree = chooser->findChild<CheckTree*>();
  ASSERT_NE(tree, nullptr);
  EXPECT_EQ(tree->Item("0"), nullptr);  // the code may not be hidden
  EXPECT_EQ(tree->Checked().size(), 248);
  EXPECT_LE(chooser->height(), 600);
  tree->Search().setText("انبار شماره 62");
  chooser->findChild<QPushButton*>("None_BTN")->click();
  EXPECT_EQ(form.Goods_GRD.VisibleColumns().size(), 246U);
  EXPECT_FALSE(Column(249).Visible());
  EXPECT_EQ(tree->Item("group انبار شماره ۶۲")->checkState(), Qt::Unchecked);
  tree->Item("246")->setCheckState(Qt::Checked);
  EXPECT_TRUE(Column(246).Visible());
  EXPECT_EQ(tree->Item("group انبار شماره ۶۲")->checkState(), Qt::PartiallyChecked);
  tree->Item("group انبار شماره ۶۲")->setCheckState(Qt::Checked);
  EXPECT_EQ(form.Goods_GRD.VisibleColumns().size(), 250U);
  tree->Search().clear();
  chooser->findChild<QPushButton*>("None_BTN")->click();
  EXPECT_EQ(form.Goods_GRD.VisibleColumns().size(), 2U);
  chooser->findChild<QPushButton*>("All_BTN")->click();
  EXPECT_EQ(form.Goods_GRD.VisibleColumns().size(), 250U);
  chooser->close();
}

TEST_F(WideGrid, ATableWithoutTitlesIsAList) {
  auto& list = Widget<GridWidget>(form.GoodGroup_DBG);
  EXPECT_EQ(list.Geometry().HeaderHeight(), 0);
  EXPECT_EQ(list.Geometry().FooterHeight(), 0);
  const TGridColumn& only = *form.GoodGroup_DBG.Columns()[0];
  EXPECT_EQ(list.CellRect(0, only).width(), list.viewport()->width());
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.CellRect(2, only).center());
  EXPECT_EQ(form.Groups_QRY.RecNo(), 2U);
  Focus(form.GoodGroup_DBG);
  Press(Qt::Key_Down);
  EXPECT_EQ(form.Groups_QRY.RecNo(), 3U);
}

TEST_F(WideGrid, ABandOfColourLeavesTheInsetsOfItsCell) {
  form.Goods_GRD.OnDrawColumnCell = [](std::size_t row, const TGridColumn& column, TCellStyle& style) {
    if (row != 1 || column.FieldName() != "Radif") return;
    style.Brush = 0xFF0000;
    style.InsetTop = 6;
    style.InsetBottom = 6;
  };
  Table().viewport()->repaint();
  const QImage image = Table().viewport()->grab().toImage();
  const QRect cell = Table().CellRect(1, Column(0));
  const auto at = [&](int y) { return image.pixelColor(cell.left() + 5, y); };
  EXPECT_EQ(at(cell.center().y()), QColor(255, 0, 0));
  EXPECT_NE(at(cell.top() + 3), QColor(255, 0, 0));
  EXPECT_NE(at(cell.bottom() - 4), QColor(255, 0, 0));
}

}  // namespace
}  // namespace goods::testing
