// A chart as it is drawn: from right to left, plain texts, no more points than pixels, and as a picture.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QGraphicsTextItem>
#include <QPainter>
#include <QPrinter>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <cmath>

#include <gtest/gtest.h>

#include "company/files/whole_file.h"
#include "desktop/charts/chart_files.h"
#include "desktop/charts/chart_scene.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/core/jalali.h"

namespace goods {
namespace {

constexpr QSizeF kSize(1000, 600);

Chart LineOf(std::size_t points) {
  Chart chart;
  chart.title = "مانده";
  chart.placesAre = ChartPlaces::Days;
  chart.series = {{.name = "مقدار باقیمانده", .format = "#0.##", .filled = true},
                  {.name = "قیمت میانگین", .format = "#,0", .secondAxis = true, .fromZero = false}};
  const auto first = static_cast<double>(DaysFromJalali({1403, 1, 1}));
  for (std::size_t i = 0; i < points; ++i) {
    const auto at = static_cast<double>(i);
    chart.places.push_back(first + at);
    chart.rows.push_back(i);
    chart.series[0].values.push_back(100 * std::sin(at / 7) + 20);
    chart.series[1].values.push_back(1'250'000 + 1000 * at);
  }
  return chart;
}

Chart BarsOf(std::size_t bars, ChartShape shape) {
  Chart chart;
  chart.shape = shape;
  chart.series = {{.name = "انبار مرکزی", .format = "#0"}, {.name = "انبار دو", .format = "#0"}};
  for (std::size_t i = 0; i < bars; ++i) {
    chart.labels.push_back("کالای شماره " + std::to_string(i + 1));
    chart.rows.push_back(i);
    chart.series[0].values.push_back(static_cast<double>(i % 9) - 2);
    chart.series[1].values.push_back(i % 4 == 0 ? kNoFigure : 3);
  }
  return chart;
}

std::size_t PixelsOf(const QImage& image, const QColor& color) {
  std::size_t pixels = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) pixels += image.pixelColor(x, y) == color ? 1U : 0U;
  }
  return pixels;
}

class ChartDrawing : public ::testing::Test {
 protected:
  void TearDown() override { ApplyTheme(*qApp, ThemeMode::Light); }
};

TEST_F(ChartDrawing, RunsFromRightToLeft) {
  const Chart line = LineOf(40);
  ChartScene lines(line, {}, ScreenLook());
  lines.Draw(kSize);
  EXPECT_GT(lines.PositionOf(0).x(), lines.PositionOf(39).x());
  // The axis of the first series stands at the right: more room is left there than the numbers of the other
  // axis need, and none is drawn over.
  EXPECT_LT(lines.PlotArea().right(), kSize.width() - 10);
  EXPECT_GT(lines.PlotArea().left(), 10);

  const Chart months = BarsOf(6, ChartShape::Columns);
  ChartScene columns(months, {}, ScreenLook());
  columns.Draw(kSize);
  EXPECT_GT(columns.PositionOf(0).x(), columns.PositionOf(5).x());
  const Chart goods = BarsOf(6, ChartShape::Bars);
  ChartScene bars(goods, {}, ScreenLook());
  bars.Draw(kSize);
  EXPECT_LT(bars.PositionOf(0).y(), bars.PositionOf(5).y());  // the first one on top
}

// Bars grow to the left from zero, negative ones to the right; each has the colour of its store.
TEST_F(ChartDrawing, DrawsWhatTheFiguresSay) {
  Chart chart;
  chart.shape = ChartShape::Bars;
  chart.labels = {"الف", "ب"};
  chart.series = {{.name = "یک", .values = {10, -5}}, {.name = "دو", .values = {20, 0}}};
  const ChartLook look = ScreenLook();
  ChartScene scene(chart, {}, look);
  scene.Draw(kSize);
  const QImage image = ImageOf(scene);
  const QRectF plot = scene.PlotArea();
  // The axis runs from -5 to 30: from right to left a seventh of the plot is below zero.
  const auto at = [&](double value, std::size_t bar) {
    const QPointF place(plot.right() - (value + 5) / 35 * plot.width(), scene.PositionOf(bar).y());
    return image.pixelColor((place * 2).toPoint());
  };
  EXPECT_EQ(at(5, 0), look.series[0]);
  EXPECT_EQ(at(20, 0), look.series[1]);
  EXPECT_EQ(at(-2, 0), look.background);
  EXPECT_EQ(at(-3, 1), look.series[0]);
  EXPECT_EQ(at(5, 1), look.background);
}

TEST_F(ChartDrawing, FindsThePointUnderThePointer) {
  for (const Chart& chart : {LineOf(50), BarsOf(5, ChartShape::Bars), BarsOf(5, ChartShape::Columns)}) {
    ChartScene scene(chart, {}, ScreenLook());
    scene.Draw(kSize);
    for (std::size_t i = 0; i < chart.Points(); ++i) EXPECT_EQ(scene.PointAt(scene.PositionOf(i)), i);
    EXPECT_EQ(scene.PointAt({1, 1}), std::nullopt);
  }
  const Chart bars = BarsOf(5, ChartShape::Bars);
  ChartScene scene(bars, {}, ScreenLook());
  scene.Draw(kSize);
  EXPECT_EQ(scene.PointAt({kSize.width() - 5, scene.PositionOf(3).y()}), 3U);  // on its name
}

TEST_F(ChartDrawing, TheMarkBringsItsBarIntoView) {
  const Chart chart = BarsOf(500, ChartShape::Bars);
  ChartScene scene(chart, {}, ScreenLook());
  scene.Draw(kSize);
  ASSERT_LT(scene.CountShown(), 100U);
  EXPECT_EQ(scene.FirstShown(), 0U);
  EXPECT_EQ(scene.PartText(), ShownText("1 تا " + std::to_string(scene.CountShown()) + " از 500"));
  scene.SetMark(499);
  EXPECT_EQ(scene.FirstShown() + scene.CountShown(), 500U);
  scene.SetMark(200);
  EXPECT_EQ(scene.FirstShown(), 200U);
  EXPECT_TRUE(scene.PlotArea().contains(scene.PositionOf(200)));
  scene.SetMark(5000);
  EXPECT_EQ(scene.Mark(), std::nullopt);
}

TEST_F(ChartDrawing, APictureWithoutRoomShowsOneBar) {
  for (const ChartShape shape : {ChartShape::Bars, ChartShape::Columns}) {
    const Chart chart = BarsOf(40, shape);
    ChartScene scene(chart, {}, ScreenLook());
    scene.Draw(QSize(20, 12));
    EXPECT_EQ(scene.CountShown(), 1U);
  }
}

// Nothing of an earlier size, view or scale is left in the picture.
TEST_F(ChartDrawing, DrawnAnewIsAsDrawnForTheFirstTime) {
  for (const Chart& chart : {LineOf(300), BarsOf(60, ChartShape::Bars), BarsOf(80, ChartShape::Columns)}) {
    ChartScene fresh(chart, {"عنوان", {}}, ScreenLook());
    fresh.Draw(kSize);
    fresh.SetMark(50);
    ChartScene again(chart, {"عنوان", {}}, ScreenLook());
    again.Draw({700, 900});
    again.SetMark(5);
    again.Show(3, 7);
    again.Show(0, chart.Points());
    again.Draw(kSize);
    again.SetMark(50);
    EXPECT_EQ(again.FirstShown(), fresh.FirstShown());
    EXPECT_EQ(ImageOf(again), ImageOf(fresh));
  }
}

TEST_F(ChartDrawing, AMillionPointsAreGivenAsWhatThePixelsCanShow) {
  const Chart chart = LineOf(1'000'000);
  ChartScene scene(chart, {}, ScreenLook());
  scene.Draw(kSize);
  EXPECT_LE(scene.PointsDrawn(), 2 * (4 * 1000 + 2));
  EXPECT_GT(scene.PointsDrawn(), 2000U);
  scene.Show(500'000, 100);  // a hundred of them: each by itself
  EXPECT_EQ(scene.PointsDrawn(), 2 * (100U + 2));
}

TEST_F(ChartDrawing, MarkIsDrawnAndTellsItsFiguresInTheDigitsThatAreShown) {
  const Chart chart = LineOf(40);
  const ChartLook look = ScreenLook();
  ChartScene scene(chart, {}, look);
  scene.Draw(kSize);
  EXPECT_EQ(PixelsOf(ImageOf(scene), look.mark), 0U);
  scene.SetMark(10);
  EXPECT_GT(PixelsOf(ImageOf(scene), look.mark), 500U);
  EXPECT_TRUE(scene.PointText(10).startsWith(ShownText("1403/01/11")));
  EXPECT_TRUE(scene.PointText(10).contains(QString::fromUtf8("۱۲۶۰۰۰۰")) ||
              scene.PointText(10).contains(QString::fromUtf8("۱٬۲۶۰٬۰۰۰")) ||
              scene.PointText(10).contains(ShownNumber("1,260,000")));
  EXPECT_FALSE(scene.PointText(10).contains(QChar('1')));
}

TEST_F(ChartDrawing, StandsNoPointsOnePointAndNoFigures) {
  const ChartLook look = ScreenLook();
  const Chart none = LineOf(0);
  ChartScene empty(none, {"عنوان", {}}, look);
  empty.Draw(kSize);
  EXPECT_GT(PixelsOf(ImageOf(empty), look.muted), 20U);  // it says so
  EXPECT_EQ(empty.PointAt({500, 300}), std::nullopt);
  empty.SetMark(0);
  EXPECT_EQ(empty.Mark(), std::nullopt);

  const Chart single = LineOf(1);
  ChartScene one(single, {}, look);
  one.Draw(kSize);
  EXPECT_GT(PixelsOf(ImageOf(one), look.series[1]), 100U);
  EXPECT_EQ(one.PointAt(one.PositionOf(0)), 0U);

  Chart blank = LineOf(5);
  for (ChartSeries& series : blank.series) series.values.assign(5, kNoFigure);
  ChartScene figureless(blank, {}, look);
  figureless.Draw(kSize);
  figureless.SetMark(3);
  EXPECT_FALSE(ImageOf(figureless).isNull());
  for (const QSizeF size : {QSizeF(0, 0), QSizeF(20, 20), QSizeF(300, 40)}) {
    figureless.Draw(size);
    one.Draw(size);
  }
}

TEST_F(ChartDrawing, TextsOfACompanyAreNeverMarkup) {
  Chart chart = BarsOf(3, ChartShape::Bars);
  const std::string nasty = "<img src=\"/dev/zero\"><b>نام</b>";
  chart.labels[0] = chart.series[0].name = nasty;
  chart.notes = {nasty};
  ChartScene scene(chart, {ToQt(nasty), {ToQt(nasty)}}, ScreenLook());
  scene.Draw(kSize);
  scene.SetMark(0);
  EXPECT_TRUE(scene.PointText(0).contains("<img"));
  for (const QGraphicsItem* item : scene.items()) {
    const auto* text = dynamic_cast<const QGraphicsTextItem*>(item);
    if (text != nullptr) {
      EXPECT_EQ(text->toPlainText(), "");
    }
  }
  EXPECT_FALSE(ImageOf(scene).isNull());
}

TEST_F(ChartDrawing, FollowsTheThemeOnTheScreenAndIsDarkOnWhiteOnPaper) {
  const QColor light = ScreenLook().background;
  ApplyTheme(*qApp, ThemeMode::Dark);
  EXPECT_NE(ScreenLook().background, light);
  EXPECT_LT(ScreenLook().background.lightness(), 100);
  EXPECT_EQ(PaperLook().background, QColor(Qt::white));
  for (const ChartLook& look : {ScreenLook(), PaperLook()}) {
    EXPECT_GE(Contrast(look.text, look.background), 7);
    EXPECT_GE(Contrast(look.muted, look.background), 4.5);
    for (const QColor& color : look.series) EXPECT_GE(Contrast(color, look.background), 3);
  }
}

class ChartPicture : public ChartDrawing {
 protected:
  ChartPicture() : scene_(chart_, {"کاردکس کالا: مانده", {"انبار : 1"}}, PaperLook()) { scene_.Draw(kSize); }
  std::string Path(const char* name) const { return FromQt(folder_.filePath(name)); }
  QByteArray Bytes(const char* name) const {
    QFile file(folder_.filePath(name));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
  }

  QTemporaryDir folder_;
  Chart chart_ = LineOf(200);
  ChartScene scene_;
};

TEST_F(ChartPicture, IsAPngAtTwiceTheSize) {
  SavePicture(scene_, PictureFormat::Png, Path("chart.png"), {});
  QImage image;
  ASSERT_TRUE(image.loadFromData(Bytes("chart.png"), "PNG"));
  EXPECT_EQ(image.size(), QSize(2000, 1200));
  EXPECT_GT(PixelsOf(image, PaperLook().series[1]), 1000U);
}

TEST_F(ChartPicture, IsAnSvgWithItsTextsAndLines) {
  SavePicture(scene_, PictureFormat::Svg, Path("chart.svg"), {});
  QXmlStreamReader xml(Bytes("chart.svg"));
  while (!xml.atEnd()) xml.readNext();
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  QSvgRenderer drawn(Bytes("chart.svg"));
  ASSERT_TRUE(drawn.isValid());
  EXPECT_EQ(drawn.viewBoxF().size(), kSize);
  QImage image(kSize.toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  drawn.render(&painter);
  painter.end();
  EXPECT_GT(PixelsOf(image, PaperLook().series[1]), 200U);
}

TEST_F(ChartPicture, IsWrittenWholeOrNotAtAll) {
  EXPECT_THROW(SavePicture(scene_, PictureFormat::Png, Path("nowhere/chart.png"), {}), FileError);
  WriteWholeFile(Path("kept.png"), "as it was");
  EXPECT_THROW(SavePicture(scene_, PictureFormat::Png, Path("kept.png"), {Path("kept.png")}), FileError);
  EXPECT_EQ(Bytes("kept.png"), "as it was");
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden), QStringList("kept.png"));
}

TEST_F(ChartPicture, TakesAPageOfPaper) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(folder_.filePath("chart.pdf"));
  SetUpChartPage(printer);
  PrintPicture(scene_, printer);
  EXPECT_TRUE(Bytes("chart.pdf").startsWith("%PDF"));
  EXPECT_GT(Bytes("chart.pdf").size(), 5000);
  // Drawn in the shape of the page, lying.
  EXPECT_NEAR(scene_.sceneRect().width() / scene_.sceneRect().height(), 273.0 / 186.0, 0.02);
}

}  // namespace
}  // namespace goods
