// Finding in a table, jumping to what is typed, the search box's key, and what a row is beyond its columns.
#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>

#include <gtest/gtest.h>

#include "desktop/views/find_bar.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/line_edit.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/grid_groups.h"
#include "tests/desktop/views/grid_fixture.h"

namespace goods::testing {
namespace {

class GridFind : public GridTest {
 protected:
  FindBar& Bar() { return dynamic_cast<FindBar&>(*Table().findChild<QWidget*>("FindBar")); }
  QString Count() { return Table().findChild<QLabel*>("FindCount_LBL")->text(); }
  std::optional<std::size_t> Row() { return form.Kardex_QRY.RecNo(); }
  // Opens the bar by its key, types, and waits until all rows have been looked at.
  void Find(const QString& text) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(Bar().IsOpen());
    TypeLetters(QApplication::focusWidget(), text);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Count().contains(QChar(0x2026)); }));
  }
  QColor ColourIn(std::size_t row, const char* field) {
    const QRect cell = Table().CellRect(row, *form.Kardex_GRD.FindColumn(field));
    return Table().viewport()->grab().toImage().pixelColor((cell.bottomLeft() + QPoint(3, -5)) *
                                                           Table().devicePixelRatioF());
  }
};

TEST_F(GridFind, CtrlFMarksAllHitsCountsThemAndEnterGoesFromOneToTheNext) {
  Open(400);
  Find("مركزي");  // the Arabic spelling of what the rows have in the Persian one
  EXPECT_EQ(Row(), 0U);
  EXPECT_EQ(Count(), ShownDigits("100 ردیف"));
  EXPECT_EQ(ColourIn(1, "PerName"), CurrentTheme().hit);
  EXPECT_NE(ColourIn(1, "Comment"), CurrentTheme().hit);
  EXPECT_NE(ColourIn(2, "PerName"), CurrentTheme().hit);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Row(), 1U);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Row(), 5U);
  EXPECT_EQ(Count(), ShownDigits("2 از 100 ردیف"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ShiftModifier);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(Row(), 397U);  // round the end
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Row(), 1U);
}

TEST_F(GridFind, EscClosesTheBarGivesTheTableTheKeyboardAndLeavesTheWindowOpen) {
  Open(40);
  Find("فروش");
  const int rows = Table().Geometry().WholeRows();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(Bar().IsOpen());
  EXPECT_EQ(QApplication::focusWidget(), &Table());
  EXPECT_TRUE(form.Kardex_GRD.Focused());
  EXPECT_EQ(form.ModalResult(), kModalNone);
  EXPECT_GT(Table().Geometry().WholeRows(), rows);
  EXPECT_NE(ColourIn(1, "PerName"), CurrentTheme().hit);
}

TEST_F(GridFind, NumbersAreFoundAsTheyAreReadWithOrWithoutSeparators) {
  Open(97);
  Find("1187500");  // Miangin of row 95: 95 * 12500
  EXPECT_EQ(Count(), ShownDigits("1 ردیف"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Row(), 95U);
  Bar().Edit().setText("1,187,500");
  EXPECT_EQ(Count(), ShownDigits("1 از 1 ردیف"));
  Bar().Edit().setText("۱٬۱۸۷٬۵۰۰");
  EXPECT_EQ(Count(), ShownDigits("1 از 1 ردیف"));
  Bar().Edit().setText("۲/۲۵");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !Count().contains(QChar(0x2026)); }));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  ASSERT_TRUE(Row());
  EXPECT_NE(form.Kardex_GRD.CellText(*Row(), *form.Kardex_GRD.FindColumn("Tedad_Sadere")).find("2.25"),
            std::string::npos);
}

TEST_F(GridFind, WhatIsNowhereIsToldAndMovesNothing) {
  Open(40);
  form.Kardex_QRY.MoveTo(7);
  Find("ناکجا");
  EXPECT_EQ(Count(), "یافت نشد");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Row(), 7U);
}

TEST_F(GridFind, HiddenColumnsAreNotLookedAtAndOtherRowsAreLookedAtAnew) {
  Open(40);
  Find("مرکزی");
  EXPECT_EQ(Count(), ShownDigits("10 ردیف"));
  form.Kardex_QRY.SetFilter("Radif <= 20");
  Settle();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Count() == ShownDigits("5 ردیف"); }));
  form.Kardex_GRD.FindColumn("PerName")->SetVisible(false);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Count() == "یافت نشد"; }));
}

TEST_F(GridFind, CtrlFFromAnotherControlFindsInTheTableThatTheWindowPrints) {
  Open(40);
  form.Search_EDT.SetFocus();
  Settle();
  Find("فروش");
  EXPECT_EQ(QApplication::focusWidget(), &Bar().Edit());
  EXPECT_TRUE(form.Kardex_GRD.Focused());
  Settle();
  EXPECT_EQ(QApplication::focusWidget(), &Bar().Edit());
}

TEST_F(GridFind, TwoHundredThousandRowsAreLookedThroughBetweenEvents) {
  Open(200'000);
  form.Kardex_QRY.MoveTo(150'000);
  Settle();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
  Bar().Edit().setText("12500");
  EXPECT_TRUE(Count().contains(QChar(0x2026)));  // the key came back before the end
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Row() != 150'000U; }));
  EXPECT_GT(*Row(), 150'000U);
  EXPECT_LT(*Row(), 150'100U);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  Settle();
  EXPECT_EQ(QApplication::focusWidget(), &Table());
}

TEST_F(GridFind, TypedLettersJumpInTheSortedColumn) {
  Open(40);
  form.Kardex_GRD.TitleClick(*form.Kardex_GRD.FindColumn("Comment"));
  Settle();
  TypeLetters(&Table(), "فر");
  ASSERT_TRUE(Row());
  EXPECT_EQ(form.Kardex_QRY.FieldByName("Comment").AsText(), "فروش نقدی");
  EXPECT_TRUE(Table().findChild<QLabel*>("TypedJump_LBL")->isVisible());
  QTest::qWait(1100);
  TypeLetters(&Table(), "خ");
  EXPECT_EQ(form.Kardex_QRY.FieldByName("Comment").AsText(), "خرید شماره 1204");
}

TEST_F(GridFind, WithoutASortTypedLettersJumpInTheFirstColumnOfTexts) {
  Open(40);
  form.Kardex_GRD.FindColumn("Date")->SetKind(CellKind::Date);
  TypeLetters(&Table(), "کار");
  EXPECT_EQ(Row(), 3U);
  const auto before = Row();
  TypeLetters(&Table(), "ظظ");
  EXPECT_EQ(Row(), before);
}

TEST_F(GridFind, F3GoesToTheSearchBoxWhosePlaceholderNamesIt) {
  form.Search_EDT.SearchBox = true;
  form.Search_EDT.SetText("پیچ");
  Open(10);
  auto& line = dynamic_cast<QLineEdit&>(*view.WidgetOf(form.Search_EDT));
  EXPECT_EQ(line.placeholderText(), "جستجو در شرح (F3)");
  EXPECT_EQ(form.Search_EDT.Placeholder(), "جستجو در شرح");
  QTest::keyClick(&Table(), Qt::Key_F3);
  Settle();
  EXPECT_EQ(QApplication::focusWidget(), &line);
  EXPECT_TRUE(form.Search_EDT.Focused());
  EXPECT_EQ(line.selectedText(), "پیچ");
}

TEST_F(GridFind, ARowSaysInItsTooltipWhatItIsBeyondItsColumns) {
  Open(10);
  form.Kardex_GRD.OnDescribeRow = [](std::size_t position) {
    return std::vector<TSmartDBGrid_QRT::Fact>{
        {"نوع عملیات", "فروش"}, {"شماره سند", std::to_string(position)}, {"انبار", ""}};
  };
  EXPECT_EQ(Table().FactsOf(4), "نوع عملیات: فروش\nشماره سند: " + ShownDigits("4"));
  const QPoint point = Table().CellRect(4, *form.Kardex_GRD.FindColumn("Anbar")).center();
  QHelpEvent help(QEvent::ToolTip, point, Table().viewport()->mapToGlobal(point));
  QApplication::sendEvent(Table().viewport(), &help);
  EXPECT_EQ(QToolTip::text(), Table().FactsOf(4));
  QToolTip::hideText();
  form.Kardex_QRY.MoveTo(6);
  Settle();
  EXPECT_TRUE(Table().accessibleDescription().contains("شماره سند: " + ShownDigits("6")));
}

TEST_F(GridFind, ATotalOverSeveralUnitsIsToldByUnitInItsTooltip) {
  Open(10);
  const TGridColumn& column = *form.Kardex_GRD.FindColumn("Tedad_Varde");
  const auto tip = [&] {
    QToolTip::hideText();
    const QRect cell = Table().CellRect(0, column);
    const QPoint point(cell.center().x(), Table().Geometry().RowsArea().bottom() + 4);
    QHelpEvent help(QEvent::ToolTip, point, Table().viewport()->mapToGlobal(point));
    QApplication::sendEvent(Table().viewport(), &help);
    return QToolTip::text();
  };
  EXPECT_EQ(tip(), "");
  form.Kardex_QRY.AddComputed({"UnitName", ColumnType::Text}, [](std::size_t row, const RowStore&) {
    return row % 6 == 4 ? Value() : Value(row % 6 < 2 ? "عدد" : "کیلوگرم");
  });
  const QStringList lines = tip().split('\n');
  ASSERT_EQ(lines.size(), 5);  // the sum, a line between, and the three of the rows
  EXPECT_EQ(lines[0], ShownCell(form.Kardex_GRD.FooterText(column), true));
  EXPECT_TRUE(lines[2].startsWith("عدد: "));
  EXPECT_TRUE(lines[4].startsWith(kNoUnit));
  Decimal all;
  const RowUnits& units = form.Kardex_GRD.Groups().AllUnits();
  for (const UnitSum& each : units.Sums(column)) all += each.sum.AsDecimal();
  EXPECT_EQ(all, form.Kardex_GRD.FooterValue(column).AsDecimal());
  EXPECT_EQ(units.Sums(*form.Kardex_GRD.FindColumn("Tedad_Sadere")).size(), 2U) << "no zero of a third unit";
  EXPECT_TRUE(units.Sums(*form.Kardex_GRD.FindColumn("Mab_Bagh")).empty()) << "no quantity";
  form.Kardex_QRY.SetFilter("UnitName = 'عدد'");
  EXPECT_TRUE(units.Sums(column).empty()) << "rows of one unit need no more than their sum";
  QToolTip::hideText();
}

TEST_F(GridFind, TheWindowsOwnTitleStandsInItsFrameBesideTheCaption) {
  form.FormOptions_SFO.WindowTitle = "کاردکس منفی";
  form.Changed();
  view.show();
  Settle();
  EXPECT_EQ(view.windowTitle(), "کاردکس منفی");
  EXPECT_EQ(form.Caption(), "کاردکس کالا");
  EXPECT_EQ(form.HostTitle(), "کاردکس منفی");
}

}  // namespace
}  // namespace goods::testing
