// ChartFrame: what is drawn around and over the plot: title, legend, the texts of the axes, goal and mark.
#pragma once

#include <QGraphicsItem>
#include <QStringList>

namespace goods {

class ChartScene;

class ChartFrame : public QGraphicsItem {
 public:
  explicit ChartFrame(const ChartScene& scene) : scene_(scene) { setZValue(1000); }

  // Above the plot, what the texts and the legend take in that width.
  double HeaderHeight(double width) const;

  QRectF boundingRect() const override;
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
  void Changed() {
    prepareGeometryChange();
    update();
  }

 private:
  struct LegendEntry {
    QRectF swatch;
    QRectF text;
    QString name;
    QColor color;
  };
  std::vector<LegendEntry> Legend(double width) const;
  void PaintHeader(QPainter& painter) const;
  void PaintNumberAxis(QPainter& painter, bool second) const;
  void PaintPlaces(QPainter& painter) const;
  void PaintNames(QPainter& painter) const;
  void PaintZero(QPainter& painter) const;
  void PaintGoal(QPainter& painter) const;
  void PaintMark(QPainter& painter) const;
  void PaintText(QPainter& painter, const QRectF& box, const QString& text, Qt::Alignment align) const;

  const ChartScene& scene_;
};

}  // namespace goods
