#include "desktop/charts/chart_view.h"

#include <QAccessible>
#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr double kZoomFactor = 2;
constexpr std::size_t kFewestShown = 2;
constexpr std::size_t kPagesOfLine = 20;  // a page of a line is this part of what is seen
constexpr int kChartWidth = 320;          // the least that a chart is given
constexpr int kChartHeight = 220;

}  // namespace

ChartView::ChartView(QWidget* parent) : QGraphicsView(parent) {
  setObjectName("Chart_VIEW");
  setRenderHint(QPainter::Antialiasing);
  setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
  setLayoutDirection(Qt::LeftToRight);  // the scene's directions are its own
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(Scaled(kChartWidth, *this), Scaled(kChartHeight, *this));
}

ChartView::~ChartView() { setScene(nullptr); }

void ChartView::ShowChart(const Chart& chart, ChartTexts texts, std::optional<std::size_t> mark) {
  chart_ = &chart;
  texts_ = std::move(texts);
  auto scene = std::make_unique<ChartScene>(chart, texts_, ScreenLook());
  setScene(scene.get());
  scene_ = std::move(scene);
  setAccessibleName(texts_.title);
  scene_->Draw(viewport()->size());
  scene_->SetMark(mark);
  TellMark();
}

void ChartView::FollowTheme() {
  if (chart_ == nullptr) return;
  const std::optional<std::size_t> mark = scene_->Mark();
  const std::size_t first = scene_->FirstShown();
  const std::size_t count = scene_->CountShown();
  ShowChart(*chart_, texts_, mark);
  scene_->Show(first, count);
}

void ChartView::SetMark(std::optional<std::size_t> point) {
  if (scene_ == nullptr || scene_->Mark() == point) return;
  scene_->SetMark(point);
  TellMark();
}

// A screen reader hears what the mark says.
void ChartView::TellMark() {
  setAccessibleDescription(scene_->Mark() ? scene_->PointText(*scene_->Mark()) : QString());
  QAccessibleEvent event(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&event);
}

void ChartView::resizeEvent(QResizeEvent* event) {
  QGraphicsView::resizeEvent(event);
  if (scene_ != nullptr) scene_->Draw(viewport()->size());
}

void ChartView::changeEvent(QEvent* event) {
  QGraphicsView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) FollowTheme();
}

void ChartView::MoveTo(std::ptrdiff_t point) {
  const auto points = static_cast<std::ptrdiff_t>(chart_->Points());
  if (points == 0) return;
  SetMark(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(point, 0, points - 1)));
}

void ChartView::Zoom(double factor) {
  const std::size_t points = chart_->Points();
  if (chart_->shape != ChartShape::Lines || points <= kFewestShown) return;
  const auto wanted = static_cast<double>(scene_->CountShown()) / factor;
  const std::size_t count =
      factor == 0 ? points : std::clamp(static_cast<std::size_t>(std::ceil(wanted)), kFewestShown, points);
  const std::size_t centre = scene_->Mark().value_or(scene_->FirstShown() + scene_->CountShown() / 2);
  scene_->Show(centre - std::min(centre, count / 2), count);
}

bool ChartView::Moves(int key) {
  const auto mark = static_cast<std::ptrdiff_t>(scene_->Mark().value_or(scene_->FirstShown()));
  const std::size_t shown = scene_->CountShown();
  const auto page = static_cast<std::ptrdiff_t>(
      std::max<std::size_t>(1, chart_->shape == ChartShape::Lines ? shown / kPagesOfLine : shown));
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Down:
      MoveTo(mark + 1);
      return true;
    case Qt::Key_Right:
    case Qt::Key_Up:
      MoveTo(mark - 1);
      return true;
    case Qt::Key_PageDown:
      MoveTo(mark + page);
      return true;
    case Qt::Key_PageUp:
      MoveTo(mark - page);
      return true;
    case Qt::Key_Home:
      MoveTo(0);
      return true;
    case Qt::Key_End:
      MoveTo(static_cast<std::ptrdiff_t>(chart_->Points()) - 1);
      return true;
    default:
      return false;
  }
}

void ChartView::keyPressEvent(QKeyEvent* event) {
  if (scene_ == nullptr || (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != 0)
    return event->ignore();
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return Zoom(kZoomFactor);
    case Qt::Key_Minus:
      return Zoom(1 / kZoomFactor);
    case Qt::Key_0:
      return Zoom(0);
    default:
      if (!Moves(event->key())) event->ignore();
  }
}

std::optional<std::size_t> ChartView::PointUnder(const QMouseEvent& event) const {
  if (scene_ == nullptr || event.button() != Qt::LeftButton) return std::nullopt;
  return scene_->PointAt(mapToScene(event.pos()));
}

void ChartView::mousePressEvent(QMouseEvent* event) {
  const auto point = PointUnder(*event);
  if (!point) return;
  SetMark(point);
  if (OnPoint) OnPoint(*point);
}

void ChartView::mouseDoubleClickEvent(QMouseEvent* event) {
  const auto point = PointUnder(*event);
  if (point && OnOpen) OnOpen(*point);
}

void ChartView::wheelEvent(QWheelEvent* event) {
  const int turned = event->angleDelta().y();
  event->accept();
  if (scene_ == nullptr || turned == 0) return;
  if (chart_->shape == ChartShape::Lines) {
    Zoom(turned > 0 ? kZoomFactor : 1 / kZoomFactor);
  } else {
    MoveTo(static_cast<std::ptrdiff_t>(scene_->Mark().value_or(0)) + (turned > 0 ? -1 : 1));
  }
}

}  // namespace goods
