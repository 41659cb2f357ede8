// ChartView: a chart on the screen, with its mark and its keys.
#pragma once

#include <QGraphicsView>
#include <functional>
#include <memory>

#include "desktop/charts/chart_scene.h"

namespace goods {

// Left and Down go to the next point, Right and Up to the one before, since a chart runs from right to left;
// PageDown, PageUp, Home and End further. A click marks the point under it. Plus and minus show fewer or more
// points around the mark, 0 all of them, as the wheel does.
class ChartView : public QGraphicsView {
 public:
  explicit ChartView(QWidget* parent);
  ~ChartView() override;

  // From now on this chart, which must outlive its being shown; the mark stands there, if given.
  void ShowChart(const Chart& chart, ChartTexts texts, std::optional<std::size_t> mark);
  // Null before the first chart.
  ChartScene* Scene() const { return scene_.get(); }
  void SetMark(std::optional<std::size_t> point);
  // The same colours as the theme has now.
  void FollowTheme();

  // A click on a point, and a double click.
  std::function<void(std::size_t point)> OnPoint;
  std::function<void(std::size_t point)> OnOpen;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void MoveTo(std::ptrdiff_t point);
  void Zoom(double factor);
  bool Moves(int key);
  std::optional<std::size_t> PointUnder(const QMouseEvent& event) const;
  void TellMark();

  const Chart* chart_ = nullptr;
  ChartTexts texts_;
  std::unique_ptr<ChartScene> scene_;
};

}  // namespace goods
