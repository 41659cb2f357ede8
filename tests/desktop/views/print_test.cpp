// Pages, PDF, text, CSV and spreadsheet of a table; the preview.
#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include "desktop/print/export.h"
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
    job.table = &form.Kardex_GRD.Table();
    return job;
  }
  std::string Path(const char* name) const { return folder.filePath(name).toStdString(); }
  static QByteArray Contents(const std::string& path) {
    QFile file(ToQt(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
  QTemporaryDir folder;
};

TEST_F(Printing, EveryRowIsOnOnePageAndTheTotalsAreOnTheLast) {
  for (const std::size_t rows : {0U, 1U, 24U, 25U, 26U, 27U, 28U, 29U, 30U, 500U}) {
    const PrintJob job = Job(rows);
    const PageLayout layout(job, "1403/05/12");
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
  EXPECT_FALSE(PageLayout(job, "1403/05/12").Landscape());
}

TEST_F(Printing, APdfHasThePagesOfTheLayout) {
  const PrintJob job = Job(120);
  WritePdf(job, Path("card.pdf"), "1403/05/12");
  const QByteArray pdf = Contents(Path("card.pdf"));
  ASSERT_TRUE(pdf.startsWith("%PDF"));
  const qsizetype pages = pdf.count("/Type /Page\n");
  EXPECT_EQ(static_cast<std::size_t>(pages), PageLayout(job, "1403/05/12").Pages().size());
}

TEST_F(Printing, TextAndCsvCarryPlainDigitsAndEveryRow) {
  const PrintJob job = Job(30);
  WriteText(job, Path("card.txt"));
  WriteCsv(*job.table, Path("card.csv"));
  const QByteArray text = Contents(Path("card.txt"));
  EXPECT_TRUE(text.startsWith("کاردکس کالا\nانبار: 3\n"));
  EXPECT_EQ(text.count('\n'), 3 + 2 + 30 + 2);
  EXPECT_TRUE(text.contains("15,625,000-"));
  const QByteArray csv = Contents(Path("card.csv"));
  EXPECT_TRUE(csv.startsWith("\xEF\xBB\xBFتاریخ,"));
  EXPECT_EQ(csv.count("\r\n"), 31);
  EXPECT_TRUE(csv.contains("\"15,625,000-\""));
}

TEST_F(Printing, ASpreadsheetHasNumbersAsNumbers) {
  Job(30);
  WriteXlsx(form.Kardex_GRD, Path("card.xlsx"), "کاردکس");
  QProcess unzip;
  unzip.start("unzip", {"-p", ToQt(Path("card.xlsx")), "xl/worksheets/sheet1.xml"});
  ASSERT_TRUE(unzip.waitForFinished());
  const QByteArray sheet = unzip.readAllStandardOutput();
  EXPECT_TRUE(sheet.contains("rightToLeft=\"1\""));
  EXPECT_TRUE(sheet.contains("<v>-15625000</v>"));
  EXPECT_EQ(sheet.count("<row "), 31);
}

TEST_F(Printing, AFileThatCannotBeWrittenIsAnError) {
  const PrintJob job = Job(3);
  EXPECT_THROW(WritePdf(job, "/no/such/folder/card.pdf", "1403/05/12"), ExportError);
  EXPECT_THROW(WriteCsv(*job.table, "/no/such/folder/card.csv"), ExportError);
  EXPECT_THROW(WriteXlsx(form.Kardex_GRD, "/no/such/folder/card.xlsx", "x"), ExportError);
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
