// What the mouse does on a table's header: sort, resize, move.
#include <QFontMetrics>
#include <QScrollBar>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "desktop/views/form_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kDragDistance = 6;
constexpr int kLeastWidth = 24;

std::size_t IndexOf(const TSmartDBGrid_QRT& grid, const TGridColumn& column) {
  const auto& columns = grid.Columns();
  const auto found =
      std::find_if(columns.begin(), columns.end(), [&](const auto& each) { return each.get() == &column; });
  return static_cast<std::size_t>(found - columns.begin());
}

}  // namespace

std::optional<std::size_t> GridWidget::EdgeUnder(const QPoint& point) const {
  const auto edge = geometry_.EdgeAt(point.x(), Offset());
  if (!edge || point.y() >= geometry_.GroupHeight()) return edge;
  for (const GridGroup& group : geometry_.Groups()) {
    if (*edge >= group.first && *edge < group.last) return std::nullopt;
  }
  return edge;
}

void GridWidget::HeaderPressed(const QPoint& point) {
  pressedAt_ = point;
  pressedGroup_ = false;
  const auto& spans = geometry_.Spans();
  if (const auto edge = EdgeUnder(point)) {
    gesture_ = Gesture::Resize;
    dragged_ = {spans[*edge].column};
    widthAtPress_ = spans[*edge].width;
  } else if (const auto group = geometry_.GroupAt(point, Offset())) {
    gesture_ = Gesture::Press;
    pressedGroup_ = true;
    dragged_.clear();
    const GridGroup& pressed = geometry_.Groups()[*group];
    for (std::size_t i = pressed.first; i <= pressed.last; ++i) dragged_.push_back(spans[i].column);
  } else if (const auto span = geometry_.SpanAt(point.x(), Offset())) {
    TGridColumn& column = *spans[*span].column;
    if (FilterRect(column).contains(point)) return FilterColumn(&column);
    gesture_ = Gesture::Press;
    dragged_ = {&column};
  }
}

// A column that is dragged to the edge of the table is carried on to those beyond.
void GridWidget::ScrollWhileDragging(const QPoint& point) {
  constexpr int kReach = 24;
  const QRect area = geometry_.ScrolledArea();
  const bool atLeft = point.x() < area.left() + kReach;
  const bool atRight = point.x() > area.right() - kReach && point.x() < area.right() + kReach;
  if (atLeft == atRight) return;
  const bool forward = atLeft == geometry_.RightToLeft();
  const int step = horizontalScrollBar()->singleStep();
  horizontalScrollBar()->setValue(Offset() + (forward ? step : -step));
}

std::size_t GridWidget::DropPlace(const QPoint& point) const {
  const auto& spans = geometry_.Spans();
  for (std::size_t i = 0; i < spans.size(); ++i) {
    const QRect rect = geometry_.ColumnRect(spans[i], Offset(), 0, 1);
    const bool before =
        geometry_.RightToLeft() ? point.x() > rect.center().x() : point.x() < rect.center().x();
    if (before) return i;
  }
  return spans.size();
}

void GridWidget::HeaderMoved(const QPoint& point) {
  if (gesture_ == Gesture::Resize) {
    const int moved = geometry_.RightToLeft() ? pressedAt_.x() - point.x() : point.x() - pressedAt_.x();
    const int width = std::max(kLeastWidth, Unscaled(widthAtPress_ + moved, *this));
    view_.Do([&] {
      TGridColumn& column = *dragged_.front();
      if (column.AutoFit()) column.SetAutoFit(false);  // the user's width counts from here on
      column.SetWidth(width);
    });
    return;
  }
  if (gesture_ == Gesture::Press && std::abs(point.x() - pressedAt_.x()) >= kDragDistance)
    gesture_ = Gesture::Move;
  if (gesture_ != Gesture::Move) return;
  ScrollWhileDragging(point);
  const std::size_t place = DropPlace(point);
  const auto& spans = geometry_.Spans();
  const QRect rect = geometry_.ColumnRect(spans[std::min(place, spans.size() - 1)], Offset(), 0, 1);
  const bool atStart = place < spans.size();
  paint_.insertionX = atStart == geometry_.RightToLeft() ? rect.right() : rect.left();
  viewport()->update();
}

// Before the column at that place, each after the one moved before it.
void GridWidget::MoveDragged(std::size_t place) {
  const auto& spans = geometry_.Spans();
  const bool atEnd = place >= spans.size();
  const TGridColumn* target = atEnd ? spans.back().column : spans[place].column;
  const std::vector<TGridColumn*> moved = dragged_;
  if (std::find(moved.begin(), moved.end(), target) != moved.end() && moved.size() > 1) return;
  view_.Do([&] {
    for (const TGridColumn* column : moved) {
      const std::size_t from = IndexOf(grid_, *column);
      std::size_t to = IndexOf(grid_, *target) + (atEnd ? 1 : 0);
      if (to > from) --to;
      grid_.MoveColumn(from, to);
      if (atEnd) target = column;
    }
  });
}

void GridWidget::HeaderReleased(const QPoint& point, Qt::KeyboardModifiers modifiers) {
  const Gesture gesture = std::exchange(gesture_, Gesture::None);
  paint_.insertionX.reset();
  viewport()->update();
  if (gesture == Gesture::Press && !pressedGroup_) {
    const bool add = modifiers.testFlag(Qt::ControlModifier) || modifiers.testFlag(Qt::ShiftModifier);
    view_.Do([&] { grid_.TitleClick(*dragged_.front(), add); });
  } else if (gesture == Gesture::Move) {
    MoveDragged(DropPlace(point));
  }
  dragged_.clear();
}

void GridWidget::HeaderHovered(const QPoint& point) {
  const std::optional<std::size_t> before = paint_.hoveredTitle;
  paint_.hoveredTitle.reset();
  bool edge = false;
  if (InHeader(point)) {
    edge = EdgeUnder(point).has_value();
    if (!edge && !geometry_.GroupAt(point, Offset()))
      paint_.hoveredTitle = geometry_.SpanAt(point.x(), Offset());
  }
  viewport()->setCursor(edge ? Qt::SplitHCursor : Qt::ArrowCursor);
  if (before != paint_.hoveredTitle) viewport()->update();
}

// As wide as the title and the rows in view need.
void GridWidget::FitColumn(TGridColumn& column) {
  const QFontMetrics metrics(font());
  int width = QFontMetrics(GridGeometry::HeaderFont(font())).horizontalAdvance(TitleOf(column));
  const std::size_t last =
      std::min(grid_.RowCount(), FirstRow() + static_cast<std::size_t>(geometry_.WholeRows()) + 1);
  for (std::size_t row = FirstRow(); row < last; ++row) {
    const QString text = ShownCell(grid_.CellText(row, column), column.IsNumber());
    width = std::max(width, metrics.horizontalAdvance(text));
  }
  width += 3 * geometry_.Padding();
  view_.Do([&] {
    column.SetAutoFit(false);
    column.SetWidth(std::max(kLeastWidth, Unscaled(width, *this)));
  });
}

}  // namespace goods
