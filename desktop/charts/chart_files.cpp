#include "desktop/charts/chart_files.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QSvgGenerator>

#include "company/files/whole_file.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr int kSharpness = 2;
constexpr double kSceneDpi = 96;
constexpr double kPageMargin = 12;  // millimetres

QByteArray PngBytes(ChartScene& scene) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  ImageOf(scene).save(&buffer, "PNG");
  return bytes;
}

QByteArray SvgBytes(ChartScene& scene) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setResolution(static_cast<int>(kSceneDpi));
  svg.setSize(scene.sceneRect().size().toSize());
  svg.setViewBox(scene.sceneRect());
  QPainter painter(&svg);
  scene.render(&painter, scene.sceneRect(), scene.sceneRect());
  painter.end();
  return bytes;
}

}  // namespace

QImage ImageOf(ChartScene& scene) {
  const QSize size = scene.sceneRect().size().toSize();
  QImage image(size * kSharpness, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  scene.render(&painter, QRectF({0, 0}, QSizeF(image.size())), scene.sceneRect());
  return image;
}

QByteArray PictureBytes(ChartScene& scene, PictureFormat format) {
  return format == PictureFormat::Png ? PngBytes(scene) : SvgBytes(scene);
}

void SavePicture(ChartScene& scene, PictureFormat format, const std::string& path,
                 const std::vector<std::string>& forbidden) {
  const QByteArray bytes = PictureBytes(scene, format);
  WriteWholeFile(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())),
                 {.forbidden = forbidden});
}

void SetUpChartPage(QPrinter& printer) {
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setPageMargins(QMarginsF(kPageMargin, kPageMargin, kPageMargin, kPageMargin),
                         QPageLayout::Millimeter);
}

void PrintPicture(ChartScene& scene, QPrinter& printer) {
  QPainter painter;
  if (!painter.begin(&printer)) return;
  const double scale = printer.resolution() / kSceneDpi;
  const QSizeF page = printer.pageRect(QPrinter::DevicePixel).size();
  scene.Draw(page / scale);
  painter.setRenderHint(QPainter::Antialiasing);
  scene.render(&painter, QRectF({0, 0}, page), scene.sceneRect());
}

}  // namespace goods
