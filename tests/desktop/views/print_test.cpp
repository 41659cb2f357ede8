// Pages of a table; the preview. The files are in export_test.cpp.
#include <QPainter>
#include <QTimer>

#include <gtest/gtest.h>

#include "desktop/print/page_layout.h"
#include "desktop/print/page_painter.h"
#include "desktop/print/preview_window.h"
#include "desktop/views/shown_text.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

class Printing : public ::testing::Test {
 protected:
  PrintJob Job(std::size_t rows) {
    form.Fill(rows);
    PrintJob job;
    job.title = "کاردکس کالا";
    job.lines = {"انبار: 3"};
    table = form.Kardex_GRD.Table();
    job.table = table.get();
    return job;
  }
  // The pages as pictures of one pixel a point.
  static std::vector<QImage> Pages(const PageLayout& layout) {
    std::vector<QImage> pages;
    for (std::size_t page = 0; page < layout.Pages().size(); ++page) {
      QImage image(layout.PaperSize().toSize(), QImage::Format_RGB32);
      image.fill(Qt::white);
      QPainter painter(&image);
      PaintPage(painter, layout, page);
      pages.push_back(image);
    }
    return pages;
  }

  TestHost host;
  TCard_FRM form{host};
  std::unique_ptr<IReportTable> table;
};

TEST_F(Printing, EveryRowIsOnOnePageAndTheTotalsAreOnTheLast) {
  for (const std::size_t rows : {0U, 1U, 24U, 25U, 26U, 27U, 28U, 29U, 30U, 500U}) {
    const PrintJob job = Job(rows);
    const PageLayout layout(job, "1403/05/12");
    EXPECT_EQ(layout.Bands(), 1U);
    std::size_t next = 0;
    for (const PrintedPage& page : layout.Pages()) {
      EXPECT_EQ(page.firstRow, next);
      next += page.rows;
      EXPECT_EQ(page.footer, &page == &layout.Pages().back());
      EXPECT_EQ(page.head, &page == &layout.Pages().front());
      const double height = layout.HeaderHeight() + (page.head ? layout.HeadHeight() : 0) +
                            layout.RowHeight() * static_cast<double>(page.rows + (page.footer ? 1 : 0)) +
                            layout.PageFooterHeight();
      EXPECT_LE(height, layout.Body().height() + 0.01) << rows;
    }
    EXPECT_EQ(next, rows);
  }
}

TEST_F(Printing, TheHeaderStandsOnEveryPage) {
  const PrintJob job = Job(120);
  const PageLayout layout(job, "1403/05/12");
  ASSERT_GT(layout.Pages().size(), 2U);
  const std::vector<QImage> pages = Pages(layout);
  const QRectF body = layout.Body();
  const int height = static_cast<int>(layout.HeaderHeight()) - 1;
  const auto headerOf = [&](std::size_t page) {
    const double top = body.top() + (layout.Pages()[page].head ? layout.HeadHeight() : 0);
    return pages[page].copy(static_cast<int>(body.left()) + 1, static_cast<int>(top) + 1,
                            static_cast<int>(body.width()) - 2, height);
  };
  EXPECT_EQ(headerOf(1), headerOf(2));
  int ink = 0;
  const QImage header = headerOf(1);
  for (int x = 0; x < header.width(); ++x)
    for (int y = 0; y < header.height(); ++y) ink += qGray(header.pixel(x, y)) < 100 ? 1 : 0;
  EXPECT_GT(ink, 100);
}

TEST_F(Printing, ColumnsFillTheSheetFromTheRightInProportion) {
  const PrintJob job = Job(5);
  const PageLayout layout(job, "1403/05/12");
  EXPECT_TRUE(layout.Landscape());
  const auto& columns = layout.Columns();
  EXPECT_NEAR(columns.front().left + columns.front().width, layout.Body().right(), 0.01);
  EXPECT_NEAR(columns.back().left, layout.Body().left(), 0.01);
  EXPECT_NEAR(columns[2].width / columns[4].width, 150.0 / 50.0, 0.01);
  for (const auto& column : form.Kardex_GRD.Columns())
    column->SetVisible(column->FieldName() == "Date" || column->FieldName() == "Bagh");
  const auto narrow = form.Kardex_GRD.Table();
  PrintJob upright = job;
  upright.table = narrow.get();
  EXPECT_FALSE(PageLayout(upright, "1403/05/12").Landscape());
}

// A table of forty columns, its first two saying what a row is about.
class WideTable : public IReportTable {
 public:
  WideTable() {
    for (int c = 0; c < 40; ++c) {
      ReportColumn column;
      column.name = column.caption = "c" + std::to_string(c);
      column.width = c == 39 ? 26 : 90;
      column.kind = c == 39 ? CellKind::Swatch : CellKind::Text;
      columns_.push_back(column);
    }
  }
  const std::vector<ReportColumn>& Columns() const override { return columns_; }
  std::size_t RowCount() const override { return 70; }
  Value Cell(std::size_t row, std::size_t column) const override { return Value(CellText(row, column)); }
  std::string CellText(std::size_t row, std::size_t column) const override {
    return std::to_string(row) + ":" + std::to_string(column);
  }
  std::optional<Color> CellColor(std::size_t row, std::size_t column) const override {
    return column == 39 && row == 0 ? std::optional<Color>(0xFF0000) : std::nullopt;
  }
  bool HasFooter() const override { return true; }
  Value Footer(std::size_t /*column*/) const override { return {}; }
  std::string FooterText(std::size_t /*column*/) const override { return {}; }
  bool HasRowNumbers() const override { return true; }
  std::size_t KeyColumns() const override { return 2; }

 private:
  std::vector<ReportColumn> columns_;
};

TEST_F(Printing, AWideTableFallsIntoBandsOfPagesSideBySide) {
  const WideTable wide;
  PrintJob job;
  job.title = "پهن";
  job.table = &wide;
  const PageLayout layout(job, "1403/05/12");
  ASSERT_GT(layout.Bands(), 1U);
  std::vector<int> seen(40);
  for (std::size_t band = 0; band < layout.Bands(); ++band) {
    const auto& columns = layout.Columns(band);
    ASSERT_GT(columns.size(), 3U);
    EXPECT_EQ(columns[0].index, -1);
    EXPECT_EQ(columns[1].index, 0);
    EXPECT_EQ(columns[2].index, 1);
    EXPECT_NEAR(columns.front().left + columns.front().width, layout.Body().right(), 0.01);
    EXPECT_GE(columns.back().left, layout.Body().left() - 0.01);
    for (std::size_t c = 3; c < columns.size(); ++c) ++seen[static_cast<std::size_t>(columns[c].index)];
  }
  for (std::size_t c = 2; c < 40; ++c) EXPECT_EQ(seen[c], 1) << c;
  // The pages of the same rows stand one behind the other.
  ASSERT_EQ(layout.Pages().size() % layout.Bands(), 0U);
  for (std::size_t page = 0; page < layout.Pages().size(); ++page) {
    EXPECT_EQ(layout.Pages()[page].band, page % layout.Bands());
    EXPECT_EQ(layout.Pages()[page].firstRow, layout.Pages()[page - page % layout.Bands()].firstRow);
  }
}

// So many units, each with a sum of what came in.
std::vector<UnitRow> UnitRows(const IReportTable& of, std::size_t count) {
  std::vector<UnitRow> rows;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string unit = "واحد " + std::to_string(i + 1);
    rows.push_back({"جمع (" + unit + ")", unit, std::vector<Value>(of.Columns().size()),
                    std::vector<std::string>(of.Columns().size())});
    rows.back().sums[4] = Value(static_cast<std::int64_t>(i + 12));
    rows.back().texts[4] = std::to_string(i + 12);
  }
  return rows;
}

TEST_F(Printing, TotalsByUnitHaveTheirRoomUnderTheTotals) {
  for (const std::size_t units : {1U, 7U, 300U}) {
    for (std::size_t rows = 0; rows < 60; ++rows) {
      const PrintJob job = Job(rows);
      const PageLayout layout(job, "1403/05/12", {}, UnitRows(*job.table, units));
      const std::size_t lines = layout.Units().size();
      EXPECT_EQ(lines < units, units == 300);
      std::size_t next = 0;
      for (const PrintedPage& page : layout.Pages()) {
        EXPECT_EQ(page.firstRow, next);
        next += page.rows;
        const std::size_t all = page.rows + (page.footer ? 1 + lines : 0);
        const double height = layout.HeaderHeight() + (page.head ? layout.HeadHeight() : 0) +
                              layout.RowHeight() * static_cast<double>(all) + layout.PageFooterHeight();
        EXPECT_LE(height, layout.Body().height() + 0.01) << rows;
        EXPECT_TRUE(!page.footer || rows == 0 || page.rows > 0) << rows;
      }
      EXPECT_EQ(next, rows);
    }
  }
  const PrintJob job = Job(3);
  const PageLayout cut(job, "", {}, UnitRows(*job.table, 300));
  const std::size_t shown = cut.Units().size();
  EXPECT_EQ(cut.Units().back().title, "و " + std::to_string(300 - shown + 1) + " واحد دیگر");
}

TEST_F(Printing, ATotalByUnitStandsUnderItsColumnBesideItsUnit) {
  const PrintJob job = Job(3);
  const auto inkBelow = [&](std::size_t units, double from, double to) {
    const PageLayout layout(job, "", {}, UnitRows(*job.table, units));
    const QImage page = Pages(layout)[0];
    const double top =
        layout.Body().top() + layout.HeadHeight() + layout.HeaderHeight() + layout.RowHeight() * 4;
    int ink = 0;
    for (int y = static_cast<int>(top) + 2; y < static_cast<int>(top + layout.RowHeight()) - 1; ++y)
      for (int x = static_cast<int>(from) + 2; x < static_cast<int>(to) - 2; ++x)
        ink += qGray(page.pixel(x, y)) < 160 ? 1 : 0;
    return ink;
  };
  const PageLayout layout(job, "", {}, UnitRows(*job.table, 2));
  const PrintedColumn& figures = layout.Columns()[5];  // behind the row numbers
  ASSERT_EQ(figures.index, 4);
  EXPECT_GT(inkBelow(2, figures.left, figures.left + figures.width), 4);
  EXPECT_GT(inkBelow(2, figures.left + figures.width, layout.Body().right()), 20) << "its unit";
  EXPECT_EQ(inkBelow(2, layout.Body().left(), figures.left), 0);
  EXPECT_EQ(inkBelow(0, layout.Body().left(), layout.Body().right()), 0);
}

TEST_F(Printing, ASwatchIsPaintedInItsColourWithoutItsText) {
  const WideTable wide;
  PrintJob job;
  job.title = "پهن";
  job.table = &wide;
  const PageLayout layout(job, "1403/05/12");
  const QImage last = Pages(layout)[layout.Bands() - 1];
  int red = 0;
  for (int x = 0; x < last.width(); ++x)
    for (int y = 0; y < last.height(); ++y) red += last.pixelColor(x, y) == QColor(255, 0, 0) ? 1 : 0;
  EXPECT_GT(red, 20);
}

TEST_F(Printing, ThePreviewTurnsPagesAndEscClosesIt) {
  const PrintJob job = Job(200);
  int turned = 0;
  QTimer::singleShot(50, [&] {
    auto* preview = dynamic_cast<PreviewWindow*>(QApplication::activeModalWidget());
    ASSERT_NE(preview, nullptr);
    preview->GoToPage(3);
    turned = preview->CurrentPage();
    const QByteArray folderOfPictures = qgetenv("GOODS_PICTURES");
    if (!folderOfPictures.isEmpty()) preview->grab().save(QString(folderOfPictures) + "/preview.png");
    QTest::keyClick(preview, Qt::Key_Escape);
  });
  host.printing.Preview(job);
  EXPECT_EQ(turned, 3);
}

}  // namespace
}  // namespace goods::testing
