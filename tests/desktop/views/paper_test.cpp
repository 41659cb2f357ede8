// What the user chooses of the paper, several jobs in one document, and what a table held.
#include <QComboBox>
#include <QSpinBox>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include "desktop/print/page_setup_dialog.h"
#include "desktop/print/printed_document.h"
#include "desktop/print/table_snapshot.h"
#include "tests/desktop/views/export_kit.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

class PaperTest : public ::testing::Test {
 protected:
  PrintJob Job(std::size_t rows, const char* title = "کاردکس کالا") {
    form.Fill(rows);
    tables.push_back(std::make_unique<TableSnapshot>(*form.Kardex_GRD.Table()));
    PrintJob job;
    job.title = title;
    job.table = tables.back().get();
    return job;
  }
  static PageLayout Laid(const PrintJob& job, PageOptions options) {
    return PageLayout(job, "1403/05/12", std::move(options));
  }

  TestHost host;
  TCard_FRM form{host};
  std::vector<std::unique_ptr<TableSnapshot>> tables;
};

TEST_F(PaperTest, ChoicesAreKeptAsTextAndForeignTextIsPassedOver) {
  PageOptions options;
  EXPECT_EQ(TextOf(options), "");
  EXPECT_EQ(PageOptionsOf(""), options);
  options.textSize = 9;
  options.sheet = SheetDirection::Upright;
  options.widths = {{"PerName", 150}, {"S1=2", 60}};
  EXPECT_EQ(PageOptionsOf(TextOf(options)), options);
  EXPECT_EQ(PageOptionsOf("text=400\nsheet=round\nwidth PerName=1\nwidth =90\nwidth\n\xff\nother=1"),
            PageOptions());
}

TEST_F(PaperTest, TextOfAChosenSizeIsThatLargeAndItsColumnsFallIntoBandsSooner) {
  const PrintJob job = Job(40);
  const PageLayout natural = Laid(job, {});
  ASSERT_EQ(natural.Bands(), 1U);
  EXPECT_EQ(natural.TextSize(), 8);
  PageOptions large;
  large.textSize = 14;
  const PageLayout layout = Laid(job, large);
  EXPECT_EQ(layout.TextSize(), 14);
  EXPECT_GT(layout.Bands(), 1U);
  EXPECT_GT(layout.Pages().size(), natural.Pages().size());
  PageOptions small;
  small.textSize = 5;
  EXPECT_EQ(Laid(job, small).Bands(), 1U);
  EXPECT_EQ(Laid(job, small).TextSize(), 5);
}

TEST_F(PaperTest, TheSheetLiesOrStandsAsChosen) {
  const PrintJob job = Job(5);
  EXPECT_TRUE(Laid(job, {}).Landscape());
  PageOptions upright;
  upright.sheet = SheetDirection::Upright;
  EXPECT_FALSE(Laid(job, upright).Landscape());
  EXPECT_LT(Laid(job, upright).PaperSize().width(), Laid(job, upright).PaperSize().height());
}

TEST_F(PaperTest, AColumnTakesItsShareOfTheWidthAndTheSheetStaysFull) {
  const PrintJob job = Job(5);
  const PageLayout natural = Laid(job, {});
  PageOptions options;
  options.widths["PerName"] = 50;
  const PageLayout layout = Laid(job, options);
  const auto ratio = [](const PageLayout& each) {
    return each.Columns()[2].width / each.Columns()[1].width;  // of the person beside the date
  };
  EXPECT_NEAR(ratio(layout), ratio(natural) / 2, 0.01);
  EXPECT_NEAR(layout.Columns().back().left, layout.Body().left(), 0.01);
}

TEST_F(PaperTest, SeveralJobsStandOneBehindTheOtherEachFromAPageOfItsOwn) {
  PrintedDocument document({Job(60), Job(0), Job(3)}, "1403/05/12");
  const auto pages = [&](std::size_t job) { return document.Layout(job).Pages().size(); };
  ASSERT_GT(pages(0), 1U);
  EXPECT_EQ(document.PageCount(), pages(0) + 2);
  EXPECT_EQ(document.FirstRow(0), 0U);
  EXPECT_GT(document.FirstRow(1), 0U);
  EXPECT_EQ(document.FirstRow(pages(0)), 0U);
  EXPECT_EQ(document.Title(), "کاردکس کالا (3)");
  EXPECT_EQ(PrintedDocument({Job(3)}, "").Title(), "کاردکس کالا");
  const std::size_t before = document.PageCount();
  PageOptions large;
  large.textSize = 16;
  document.SetOptions(large);
  EXPECT_GT(document.PageCount(), before);
}

TEST_F(PaperTest, AllPagesOfADocumentHaveTheDirectionOfTheFirst) {
  MadeTable narrow;
  narrow.Add("a", "الف", CellKind::Text, {Value("1")});
  PrintJob job;
  job.title = "باریک";
  job.table = &narrow;
  const PrintedDocument document({Job(3), job}, "");
  EXPECT_TRUE(document.Landscape());
  EXPECT_TRUE(document.Layout(1).Landscape());
}

TEST_F(PaperTest, ASnapshotHoldsWhatTheTableHeld) {
  form.Fill(7);
  const auto table = form.Kardex_GRD.Table();
  const TableSnapshot snapshot(*table);
  const auto same = [&](const IReportTable& other) {
    ASSERT_EQ(snapshot.RowCount(), 7U);
    ASSERT_EQ(snapshot.Columns().size(), other.Columns().size());
    EXPECT_EQ(snapshot.HasRowNumbers(), other.HasRowNumbers());
    EXPECT_EQ(snapshot.KeyColumns(), other.KeyColumns());
    for (std::size_t c = 0; c < other.Columns().size(); ++c) {
      EXPECT_EQ(snapshot.Columns()[c].caption, other.Columns()[c].caption);
      EXPECT_EQ(snapshot.FooterText(c), other.FooterText(c));
      EXPECT_EQ(snapshot.Footer(c), other.Footer(c));
      for (std::size_t row = 0; row < 7; ++row) {
        EXPECT_EQ(snapshot.Cell(row, c), other.Cell(row, c));
        EXPECT_EQ(snapshot.CellText(row, c), other.CellText(row, c));
      }
    }
  };
  same(*table);
  form.Fill(2);
  EXPECT_EQ(snapshot.RowCount(), 7U);
  EXPECT_EQ(snapshot.CellText(6, 1), "آقای احمدی");
}

TEST_F(PaperTest, WidthsAreShownAndTypedInTheDigitsOfTheRest) {
  form.Fill(3);
  PageSetupDialog dialog({}, form.Kardex_GRD.Table()->Columns(), nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  auto& date = *dialog.findChild<QSpinBox*>("Width_Date");
  EXPECT_EQ(date.text(), "۱۰۰ ٪");
  date.setFocus();
  for (const char* typed : {"۸۵", "٨٥", "85"}) {
    date.setValue(100);
    date.selectAll();
    TypeLetters(date.findChild<QWidget*>("qt_spinbox_lineedit"), typed);
    EXPECT_EQ(dialog.Options().widths.at("Date"), 85) << typed;
  }
  date.selectAll();
  TypeLetters(date.findChild<QWidget*>("qt_spinbox_lineedit"), "پهن");
  EXPECT_EQ(dialog.Options().widths.at("Date"), 85);
  date.clearFocus();
  QWheelEvent wheel({5, 5}, date.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, {}, {}, false);
  QApplication::sendEvent(&date, &wheel);
  EXPECT_EQ(dialog.Options().widths.at("Date"), 85) << "the wheel scrolls the page in passing";
}

TEST_F(PaperTest, TheDialogSetsUpByKeysAndGoesBackToTheDefaults) {
  form.Fill(3);
  PageOptions before;
  before.textSize = 9;
  before.widths = {{"Date", 80}, {"Gone", 70}};
  PageSetupDialog dialog(before, form.Kardex_GRD.Table()->Columns(), nullptr);
  dialog.show();
  EXPECT_EQ(dialog.Options(), before);
  int changes = 0;
  dialog.OnChange = [&] { ++changes; };
  auto& size = *dialog.findChild<QComboBox*>("TextSize_CMB");
  QTest::keyClick(&size, Qt::Key_Down);
  EXPECT_EQ(dialog.Options().textSize, 10);
  auto& date = *dialog.findChild<QSpinBox*>("Width_Date");
  QTest::keyClick(&date, Qt::Key_Up);
  EXPECT_EQ(dialog.Options().widths.at("Date"), 90);
  QTest::keyClick(&date, Qt::Key_Up);
  EXPECT_FALSE(dialog.Options().widths.contains("Date")) << "its own width is no choice";
  EXPECT_EQ(changes, 3);
  dialog.findChild<QWidget*>("Reset_BTN")->setFocus();
  QTest::keyClick(dialog.findChild<QWidget*>("Reset_BTN"), Qt::Key_Space);
  PageOptions others;
  others.widths = {{"Gone", 70}};
  EXPECT_EQ(dialog.Options(), others) << "columns that are not shown now keep their width";
  EXPECT_EQ(changes, 4);
}

}  // namespace
}  // namespace goods::testing
