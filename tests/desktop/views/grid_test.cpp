// The table: what is painted, sorted, chosen, selected and copied.
#include <QClipboard>
#include <QDialog>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItem>
#include <QTimer>

#include <gtest/gtest.h>

#include "desktop/views/check_tree.h"
#include "desktop/views/column_chooser.h"
#include "desktop/views/grid_menu.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/keyboard_marks.h"
#include "desktop/views/shown_text.h"
#include "tests/desktop/views/grid_fixture.h"

namespace goods::testing {
namespace {

class Grid : public GridTest {
 protected:
  void ClickCell(std::size_t row, const char* field, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, keys,
                      Table().CellRect(row, Column(field)).center());
  }
  void ClickTitle(const char* field, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, keys, Table().TitleRect(Column(field)).center());
    Settle();
  }
};

TEST_F(Grid, OnlyVisibleCellsOfAMillionRowsArePainted) {
  Open(1000000);
  std::size_t cells = 0;
  std::set<std::size_t> rows;
  form.Kardex_GRD.OnDrawColumnCell = [&](std::size_t row, const TGridColumn&, TCellStyle&) {
    ++cells;
    rows.insert(row);
  };
  Table().verticalScrollBar()->setValue(500000);
  Table().viewport()->repaint();
  const auto visible = static_cast<std::size_t>(Table().Geometry().WholeRows());
  EXPECT_GE(rows.size(), visible);
  EXPECT_LE(rows.size(), visible + 2);
  EXPECT_EQ(*rows.begin(), 500000U);
  EXPECT_EQ(cells, rows.size() * form.Kardex_GRD.VisibleColumns().size());
}

TEST_F(Grid, TheFirstColumnStandsAtTheRight) {
  Open(20);
  EXPECT_GT(Table().CellRect(0, Column("Date")).left(), Table().CellRect(0, Column("PerName")).left());
  EXPECT_GT(Table().Geometry().NumbersArea().left(), Table().CellRect(0, Column("Date")).left());
  form.Kardex_GRD.RightAligned = false;
  form.Kardex_GRD.Changed();
  Settle();
  EXPECT_LT(Table().CellRect(0, Column("Date")).left(), Table().CellRect(0, Column("PerName")).left());
}

TEST_F(Grid, TheColumnThatFitsTakesTheRoomLeftOver) {
  Open(20);
  const int width = Table().CellRect(0, Column("Comment")).width();
  view.resize(view.width() + 200, view.height());
  Settle();
  EXPECT_EQ(Table().CellRect(0, Column("Comment")).width(), width + 200);
}

TEST_F(Grid, AClickOnATitleSortsAndWithCtrlJoinsTheKeys) {
  Open(50);
  ClickTitle("Bagh");
  EXPECT_EQ(form.Kardex_QRY.Sort(), "Bagh ASC");
  ClickTitle("Bagh");
  EXPECT_EQ(form.Kardex_QRY.Sort(), "Bagh DESC");
  ClickTitle("Date", Qt::ControlModifier);
  EXPECT_EQ(form.Kardex_QRY.Sort(), "Bagh DESC,Date ASC");
}

TEST_F(Grid, TheCurrentRowIsTheQuerysBothWays) {
  Open(500);
  ClickCell(3, "Date");
  EXPECT_EQ(form.Kardex_QRY.RecNo(), 3U);
  QTest::keyClick(&Table(), Qt::Key_Down);
  EXPECT_EQ(form.Kardex_QRY.RecNo(), 4U);
  QTest::keyClick(&Table(), Qt::Key_PageDown);
  EXPECT_EQ(form.Kardex_QRY.RecNo(), 4U + static_cast<std::size_t>(Table().Geometry().WholeRows()));
  QTest::keyClick(&Table(), Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(form.Kardex_QRY.RecNo(), 499U);
  EXPECT_EQ(Table().verticalScrollBar()->value(), Table().verticalScrollBar()->maximum());
  form.Kardex_QRY.First();
  Settle();
  EXPECT_EQ(Table().FirstRow(), 0U);
}

TEST_F(Grid, TheCurrentRowStaysInViewWhenTheGridLosesHeight) {
  Open(500);
  view.resize(view.width(), view.height() + 60);
  Settle();
  QTest::keyClick(Table().viewport(), Qt::Key_End, Qt::ControlModifier);
  Settle();
  const auto inView = [&] {
    return Table().Geometry().RowsArea().contains(Table().CellRect(499, Column("Date")));
  };
  ASSERT_TRUE(inView());
  const int before = Table().Geometry().WholeRows();
  view.resize(view.width(), view.height() - 150);
  Settle();
  ASSERT_LT(Table().Geometry().WholeRows(), before);
  EXPECT_TRUE(inView());
}

TEST_F(Grid, ShiftAndCtrlSelectSeveralRows) {
  Open(100);
  ClickCell(1, "Date");
  ClickCell(4, "Date", Qt::ShiftModifier);
  EXPECT_EQ(form.Kardex_GRD.Selection(), (std::set<std::size_t>{1, 2, 3, 4}));
  ClickCell(2, "Date", Qt::ControlModifier);
  EXPECT_EQ(form.Kardex_GRD.Selection(), (std::set<std::size_t>{1, 3, 4}));
  QTest::keyClick(&Table(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(form.Kardex_GRD.Selection(), (std::set<std::size_t>{2, 3}));
  ClickCell(0, "Date");
  EXPECT_TRUE(form.Kardex_GRD.Selection().empty());
}

TEST_F(Grid, CopyGivesTheSelectedRowsWithTheirTitles) {
  Open(100);
  form.Kardex_GRD.SetSelection({0, 3});
  QTest::keyClick(&Table(), Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QGuiApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0].split('\t').front(), "تاریخ");
  EXPECT_EQ(lines[0].split('\t').back(), "مبلغ / مبلغ باقیمانده");
  EXPECT_EQ(lines[1].split('\t').front(), "1403/01/01");
  EXPECT_EQ(lines[2].split('\t').back(), "15,625,000-");
}

TEST_F(Grid, ADoubleClickReachesTheComponentOnRowsOnly) {
  Open(10);
  const QPoint cell = Table().CellRect(2, Column("PerName")).center();
  QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, cell);
  EXPECT_EQ(form.documents, 1);
  QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, Table().TitleRect(Column("PerName")).center());
  EXPECT_EQ(form.documents, 1);
}

TEST_F(Grid, ATitlesEdgeResizesAndATitleIsMovedByTheMouse) {
  Open(10);
  const QRect title = Table().TitleRect(Column("PerName"));
  QWidget* port = Table().viewport();
  const QPoint edge(title.left(), title.center().y());
  QTest::mousePress(port, Qt::LeftButton, {}, edge);
  QTest::mouseMove(port, edge - QPoint(30, 0));
  QTest::mouseRelease(port, Qt::LeftButton, {}, edge - QPoint(30, 0));
  EXPECT_EQ(Column("PerName").Width(), 180);
  Settle();
  const QPoint from = Table().TitleRect(Column("Anbar")).center();
  const QPoint to = Table().TitleRect(Column("Date")).center() + QPoint(10, 0);
  QTest::mousePress(port, Qt::LeftButton, {}, from);
  QTest::mouseMove(port, (from + to) / 2);
  QTest::mouseMove(port, to);
  QTest::mouseRelease(port, Qt::LeftButton, {}, to);
  EXPECT_EQ(form.Kardex_GRD.Columns().front()->FieldName(), "Anbar");
  EXPECT_TRUE(form.Kardex_GRD.SortKeys().empty());
}

TEST_F(Grid, TheColumnChooserOffersWhatMayBeHiddenAndKeepsOneColumn) {
  Open(10);
  for (const auto& column : form.Kardex_GRD.Columns())
    column->SetVisible(column->FieldName() == "Bagh" || column->FieldName() == "Anbar");
  QDialog* chooser = ShowColumnChooser(view, form.Kardex_GRD);
  auto* tree = chooser->findChild<CheckTree*>();
  ASSERT_NE(tree, nullptr);
  const auto box = [&](const char* field) -> QStandardItem* {
    const auto& columns = form.Kardex_GRD.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (columns[i]->FieldName() == field) return tree->Item(QString::number(i));
    }
    return nullptr;
  };
  EXPECT_EQ(box("Date"), nullptr);
  ASSERT_NE(box("Bagh"), nullptr);
  box("Bagh")->setCheckState(Qt::Unchecked);
  EXPECT_FALSE(Column("Bagh").Visible());
  box("Anbar")->setCheckState(Qt::Unchecked);
  EXPECT_TRUE(Column("Anbar").Visible());
  EXPECT_EQ(box("Anbar")->checkState(), Qt::Checked);
  chooser->close();
}

TEST_F(Grid, TheCommonMenuBelongsToGridsThatWereGivenIt) {
  Open(10);
  QStringList entries;
  QTimer::singleShot(0, [&] {
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
      for (const QAction* action : menu->actions()) entries << WithoutMark(action->text());
      menu->close();
    }
  });
  QContextMenuEvent event(QContextMenuEvent::Mouse, Table().Geometry().RowsArea().center(), QPoint(100, 100));
  QApplication::sendEvent(Table().viewport(), &event);
  EXPECT_TRUE(entries.contains(QString::fromUtf8("رونوشت")));
}

TEST_F(Grid, FootersFollowTheFilter) {
  Open(100);
  const std::string all = form.Kardex_GRD.FooterText(Column("Tedad_Varde"));
  form.Kardex_QRY.SetFilter("Anbar = 1");
  const QImage before = Table().grab().toImage();
  EXPECT_NE(form.Kardex_GRD.FooterText(Column("Tedad_Varde")), all);
  form.Kardex_QRY.SetFilter("");
  Settle();
  const QImage after = Table().grab().toImage();
  const QRect footer(0, after.height() - 24, after.width(), 20);
  EXPECT_NE(before.copy(footer), after.copy(footer));
}

TEST_F(Grid, AnEmptyTableSaysSo) {
  Open(0);
  const QImage told = Table().grab().toImage();
  form.Kardex_GRD.SetEmptyText("");
  Settle();
  EXPECT_NE(told, Table().grab().toImage());
}

TEST_F(Grid, AListThatWasStoppedSaysThatAndNotThatThereIsNoData) {
  Open(20);
  TADOQuery& rows = form.Kardex_QRY;
  const QString none = ShownText(form.Kardex_GRD.EmptyText());
  rows.SetSQL("stopped 5");
  EXPECT_THROW(rows.Open(), StatementCancelled);
  Settle();
  EXPECT_EQ(EmptyGridText(form.Kardex_GRD), "خواندن اطلاعات متوقف شد");
  EXPECT_EQ(Table().accessibleDescription(), "خواندن اطلاعات متوقف شد");
  const QImage stopped = Table().grab().toImage();
  form.Fill(0);
  Settle();
  EXPECT_EQ(EmptyGridText(form.Kardex_GRD), none);
  EXPECT_EQ(Table().accessibleDescription(), none);
  EXPECT_TRUE(none.contains("داده"));
  EXPECT_NE(Table().grab().toImage(), stopped);
}

TEST_F(Grid, AThrowingDrawingEventIsShownAndTheWindowLives) {
  Open(5);
  host.messages.SetUnattended([](const ShownMessage&) { return true; });
  bool thrown = false;
  form.Kardex_GRD.OnDrawColumnCell = [&](std::size_t, const TGridColumn&, TCellStyle&) {
    if (!std::exchange(thrown, true)) throw std::runtime_error("no such thing");
  };
  Table().viewport()->repaint();
  EXPECT_TRUE(host.messages.Shown().empty());
  Settle();
  ASSERT_EQ(host.messages.Shown().size(), 1U);
  EXPECT_EQ(host.messages.Shown()[0].details, "no such thing");
}

TEST(DrawCell, ANegativeAmountHasItsMinusAtTheRightEndOfTheDigits) {
  SetPersianDigits(false);
  const auto ink = [](const QString& text, QRect where) {
    QImage image(200, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(QFont("DejaVu Sans", 14));
    painter.setPen(Qt::black);
    DrawCell(painter, QRect(0, 0, 200, 40), text, TextAlign::Start, true);
    painter.end();
    int dark = 0;
    for (int y = where.top(); y <= where.bottom(); ++y) {
      for (int x = where.left(); x <= where.right(); ++x) dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    }
    return dark;
  };
  // Digits fill their whole height, a minus does not: the last character is the light one.
  const QRect last(193, 0, 7, 40);
  EXPECT_LT(ink("888-", last), ink("8888", last) / 2);
  EXPECT_GT(ink("888-", last), 0);
  SetPersianDigits(true);
}

}  // namespace
}  // namespace goods::testing
