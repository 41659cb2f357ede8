// ChartScene: a chart as it is drawn, on the screen, on paper and in pictures.
#pragma once

#include <QGraphicsScene>
#include <QStringList>
#include <cstddef>
#include <optional>

#include "desktop/charts/chart.h"
#include "desktop/charts/chart_look.h"
#include "desktop/charts/chart_ticks.h"

class QAbstractAxis;
class QAbstractBarSeries;
class QChart;
class QXYSeries;

namespace goods {

// What stands above and below the plot.
struct ChartTexts {
  QString title;
  QStringList lines;  // the criteria of the run
};

// From right to left: the first axis stands at the right, time and ranks run to the left. Texts are drawn as
// plain text. Of long lines no more is given to the plot than its pixels can show.
class ChartScene : public QGraphicsScene {
 public:
  // The chart must outlive the scene.
  ChartScene(const Chart& chart, ChartTexts texts, ChartLook look);
  ~ChartScene() override;

  // Lays everything out anew for a picture of that size.
  void Draw(QSizeF size);

  // The marked point, drawn with its figures; none takes the mark away.
  void SetMark(std::optional<std::size_t> point);
  std::optional<std::size_t> Mark() const { return mark_; }
  // The points that are seen, from the first on; the others of a chart with more points than there is room
  // for come into view with the mark. Lines show all until told otherwise.
  void Show(std::size_t first, std::size_t count);
  std::size_t FirstShown() const { return first_; }
  std::size_t CountShown() const { return count_; }

  // The point under a position of the scene; none outside of the plot.
  std::optional<std::size_t> PointAt(QPointF position) const;
  // Where a point's figure stands, for the first series that has one.
  QPointF PositionOf(std::size_t point) const;
  // "1403/04/11 · مقدار باقیمانده: 120 · ..."; the name and the figures of a point, as they are shown.
  QString PointText(std::size_t point) const;
  // "1 تا 20 از 300" while not all points are seen, else empty.
  QString PartText() const;
  QRectF PlotArea() const { return plot_; }
  // How many points were given to the plot, all series together.
  std::size_t PointsDrawn() const { return pointsDrawn_; }

 private:
  friend class ChartFrame;
  bool Empty() const { return chart_.Points() == 0 || chart_.series.empty(); }
  bool IsLines() const { return chart_.shape == ChartShape::Lines; }
  std::size_t Room() const;
  void BringIntoView();
  void Measure();
  NumberAxis AxisOf(bool second) const;
  bool HasSecondAxis() const;
  void MakePlot();
  void DrawLines();
  void DrawBars();
  void AddLine(const ChartSeries& series, const QColor& color);
  double LabelWidth() const;
  double XOf(double place) const;
  double YOf(double value, bool second) const;
  QRectF BandOf(std::size_t point) const;
  QString NameOf(std::size_t point) const;
  QColor ColorOf(std::size_t series) const;

  const Chart& chart_;
  ChartTexts texts_;
  ChartLook look_;
  QChart* plotted_ = nullptr;  // the scene's; null while there is nothing to plot
  QGraphicsItem* frame_;
  QSizeF size_{0, 0};
  QRectF plot_;
  QRectF header_;
  QStringList headLines_;
  NumberAxis firstAxis_;
  NumberAxis secondAxis_;
  double from_ = 0;  // Lines: the places that are seen
  double to_ = 1;
  std::size_t first_ = 0;
  std::size_t count_ = 0;
  std::optional<std::size_t> mark_;
  std::size_t pointsDrawn_ = 0;
};

}  // namespace goods
