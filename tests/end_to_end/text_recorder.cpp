#include "tests/end_to_end/text_recorder.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

namespace goods {
namespace {

// Drops everything but texts.
class TextEngine : public QPaintEngine {
 public:
  TextEngine() : QPaintEngine(QPaintEngine::AllFeatures) {}
  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  void updateState(const QPaintEngineState&) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPath(const QPainterPath&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawTextItem(const QPointF&, const QTextItem& item) override { text += item.text() + '\n'; }
  Type type() const override { return User; }

  QString text;
};

class TextDevice : public QPaintDevice {
 public:
  explicit TextDevice(QSize size) : size_(size) {}
  QPaintEngine* paintEngine() const override { return &engine_; }
  const QString& Text() const { return engine_.text; }

 protected:
  int metric(PaintDeviceMetric metric) const override {
    constexpr int kDotsPerInch = 96;
    constexpr double kMillimetres = 25.4 / kDotsPerInch;
    switch (metric) {
      case PdmWidth:
        return size_.width();
      case PdmHeight:
        return size_.height();
      case PdmWidthMM:
        return static_cast<int>(size_.width() * kMillimetres);
      case PdmHeightMM:
        return static_cast<int>(size_.height() * kMillimetres);
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return kDotsPerInch;
      case PdmDepth:
        return 32;
      case PdmNumColors:
        return 1 << 24;
      case PdmDevicePixelRatio:
        return 1;
      default:  // the ratio, scaled as the device says
        return static_cast<int>(devicePixelRatioFScale());
    }
  }

 private:
  QSize size_;
  mutable TextEngine engine_;
};

}  // namespace

QString PaintedText(QWidget& widget) {
  TextDevice device(widget.size());
  QPainter painter(&device);
  widget.render(&painter);
  painter.end();
  return device.Text();
}

}  // namespace goods
