// The groups of a table: where their lines are, and the keys and the mouse on them.
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "desktop/views/form_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/letter_keys.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

bool IsPlus(const QKeyEvent& event) {
  return event.key() == Qt::Key_Plus || (event.key() == Qt::Key_Equal && event.modifiers() != Qt::NoModifier);
}

}  // namespace

bool GridWidget::Grouped() const { return grid_.Groups().Active(); }

std::size_t GridWidget::LineCount() const {
  return Grouped() ? grid_.Groups().LineCount() : grid_.RowCount();
}

std::size_t GridWidget::LineOf(std::size_t row) const { return Grouped() ? grid_.Groups().LineOf(row) : row; }

GridGroups::Line GridWidget::LineAt(std::size_t line) const {
  return Grouped() ? grid_.Groups().LineAt(line) : GridGroups::Line{0, line, std::nullopt};
}

QRect GridWidget::LineRect(std::size_t line) const {
  const int top = geometry_.RowsArea().top() +
                  (static_cast<int>(line) - verticalScrollBar()->value()) * geometry_.RowHeight();
  return {0, top, viewport()->width(), geometry_.RowHeight()};
}

std::size_t GridWidget::FirstLine() const { return static_cast<std::size_t>(verticalScrollBar()->value()); }

std::size_t GridWidget::FirstRow() const {
  const std::size_t line = FirstLine();
  if (!Grouped() || line >= LineCount()) return line;
  const GridGroups::Line first = LineAt(line);
  return first.row.value_or(grid_.Groups().FirstRow(first.group));
}

std::optional<std::size_t> GridWidget::LineUnder(const QPoint& point) const {
  const QRect area = geometry_.RowsArea();
  if (!area.contains(point)) return std::nullopt;
  const std::size_t line =
      FirstLine() + static_cast<std::size_t>((point.y() - area.top()) / geometry_.RowHeight());
  return line < LineCount() ? std::optional(line) : std::nullopt;
}

std::optional<std::size_t> GridWidget::RowAt(const QPoint& point) const {
  const auto line = LineUnder(point);
  return line ? LineAt(*line).row : std::nullopt;
}

std::optional<std::size_t> GridWidget::HeadAt(const QPoint& point) const {
  const auto line = LineUnder(point);
  if (!line || !Grouped()) return std::nullopt;
  const GridGroups::Line under = LineAt(*line);
  return under.IsHead() ? std::optional(under.group) : std::nullopt;
}

QRect GridWidget::HeadRect(std::size_t group) const {
  const GridGroups& groups = grid_.Groups();
  if (!Grouped() || group >= groups.GroupCount()) return {};
  const auto line = groups.HeadLine(group);
  return line ? LineRect(*line) : QRect();
}

// Goes over heads of groups that show their rows; the head of a folded one stands for its first row.
void GridWidget::MoveLines(qint64 lines, bool extend) {
  const TADOQuery* query = grid_.DataSet();
  if (query == nullptr || !query->RecNo() || LineCount() == 0) return;
  const GridGroups& groups = grid_.Groups();
  const auto last = static_cast<qint64>(LineCount()) - 1;
  const auto here = static_cast<qint64>(LineOf(*query->RecNo()));
  const auto stops = [&](qint64 line) {
    const GridGroups::Line at = groups.LineAt(static_cast<std::size_t>(line));
    return at.row.has_value() || (at.IsHead() && groups.Folded(at.group));
  };
  const qint64 wanted = std::clamp<qint64>(here + lines, 0, last);
  for (const qint64 step : {lines < 0 ? -1 : 1, lines < 0 ? 1 : -1}) {
    qint64 line = wanted;
    while (line >= 0 && line <= last && !stops(line)) line += step;
    if (line < 0 || line > last) continue;
    const GridGroups::Line at = groups.LineAt(static_cast<std::size_t>(line));
    return GoTo(at.row.value_or(groups.FirstRow(at.group)), extend);
  }
}

void GridWidget::FoldGroup(std::size_t group, bool folded) {
  shownRow_.reset();  // the current row is brought into view again
  view_.Do([&] { grid_.Groups().Fold(group, folded); });
}

void GridWidget::FoldGroups(bool folded) {
  shownRow_.reset();
  view_.Do([&] { grid_.Groups().FoldAll(folded); });
}

void GridWidget::OpenOneLevel(bool more) {
  const std::size_t open = grid_.Groups().LevelsOpen();
  if (!more && open == 0) return;
  shownRow_.reset();
  view_.Do([&] { grid_.Groups().OpenLevels(more ? open + 1 : open - 1); });
}

void GridWidget::GroupBy(const TGridColumn* column, bool byMonth) {
  if (!view_.HasMenu()) return;
  shownRow_.reset();
  view_.Do([&] { grid_.Groups().Set(column, byMonth); });
}

void GridWidget::GroupWithin(const TGridColumn& column, bool byMonth) {
  if (!view_.HasMenu()) return;
  bool added = true;
  shownRow_.reset();
  view_.Do([&] { added = grid_.Groups().Add(column, byMonth); });
  if (!added && !column.Withheld()) {
    const QString most = ShownDigits(QString::number(GridGroups::kMostLevels));
    QToolTip::showText(viewport()->mapToGlobal(geometry_.RowsArea().center()),
                       "گروه‌بندی بیش از " + most + " لایه نمی‌شود.", viewport());
  }
}

void GridWidget::NoLongerGroupBy(const TGridColumn& column) {
  shownRow_.reset();
  view_.Do([&] { grid_.Groups().Remove(column); });
}

// By the column that keys mean: dates first by month, then by day; then none.
void GridWidget::GroupByCurrent(bool within) {
  const TGridColumn* column = CurrentColumn();
  if (column == nullptr || column->Kind() == CellKind::Swatch) return;
  const GridGroups& groups = grid_.Groups();
  const bool date = column->Kind() == CellKind::Date;
  if (const GridGroups::Level* level = groups.LevelOf(*column))
    return date && level->byMonth ? GroupWithin(*column) : NoLongerGroupBy(*column);
  if (within && !groups.Levels().empty()) return GroupWithin(*column, date);
  GroupBy(column, date);
}

bool GridWidget::GroupKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const bool letter = LatinKey(event.key()) == Qt::Key_G;
  if (!letter || (modifiers & ~Qt::ShiftModifier) != Qt::ControlModifier) return FoldKey(event);
  GroupByCurrent(modifiers.testFlag(Qt::ShiftModifier));
  return true;
}

// The group of the current row; of a folded one that stands in another, minus folds that.
bool GridWidget::FoldKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  const bool minus = event.key() == Qt::Key_Minus;
  if (!Grouped() || (!minus && !IsPlus(event))) return false;
  const TADOQuery* query = grid_.DataSet();
  if (modifiers == Qt::ControlModifier) {
    FoldGroups(minus);
  } else if (modifiers == Qt::AltModifier) {
    OpenOneLevel(!minus);
  } else if (modifiers == Qt::NoModifier && query->RecNo()) {
    const GridGroups& groups = grid_.Groups();
    const std::size_t group = groups.ShownGroupOf(*query->RecNo());
    FoldGroup(minus && groups.Folded(group) ? groups.Around(group).value_or(group) : group, minus);
  } else {
    return false;
  }
  return true;
}

}  // namespace goods
