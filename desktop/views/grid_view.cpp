#include "desktop/views/grid_view.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>
#include <algorithm>
#include <climits>
#include <exception>
#include <utility>

#include "desktop/views/form_view.h"
#include "desktop/views/grid_accessible.h"
#include "desktop/views/grid_menu.h"
#include "desktop/views/letter_keys.h"
#include "desktop/views/panel_splitter.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "desktop/views/unit_texts.h"
#include "host/base/base_dock.h"
#include "host/components/grid_groups.h"

namespace goods {

GridControlView::GridControlView(FormView& form, TSmartDBGrid_QRT& grid, QWidget* parent)
    : ControlView(form, grid), grid_(new GridWidget(*this, grid, parent)) {
  SetWidget(grid_);
}

void GridControlView::Refresh() {
  ControlView::Refresh();
  const int height = SplitterGives(Control(), Qt::Vertical) ? 0 : Control().Height();
  const int width = SplitterGives(Control(), Qt::Horizontal) ? 0 : Control().Width();
  if (Control().Height() > 0) grid_->setMinimumHeight(Scaled(height, *grid_));
  if (Control().Width() > 0) grid_->setMinimumWidth(Scaled(width, *grid_));
  grid_->Follow();
}

void GridControlView::Do(const std::function<void()>& action) { Act(action); }

bool GridControlView::HasMenu() const {
  const auto* window = dynamic_cast<const TBaseDock_FRM*>(&Form().Form());
  return window != nullptr && (window->HasPopMenu(Control()) || window->HasPopMenu(*window));
}

GridWidget::GridWidget(GridControlView& view, TSmartDBGrid_QRT& grid, QWidget* parent)
    : QAbstractScrollArea(parent), view_(view), grid_(grid), jump_(viewport()) {
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::StyledPanel);
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  verticalScrollBar()->setSingleStep(1);
  horizontalScrollBar()->setSingleStep(Scaled(30, *this));
  MakeBars();
  MakeGridsAccessible();
}

// Given, or as wide as the columns, within bounds.
QSize GridWidget::sizeHint() const {
  constexpr int kWidest = 480;
  constexpr int kNarrowest = 160;
  constexpr int kNaturalHeight = 260;
  constexpr int kScrollBar = 16;
  int columns = kScrollBar;
  for (const TGridColumn* column : grid_.VisibleColumns()) columns += column->Width();
  const int width = grid_.Width() > 0 ? grid_.Width() : std::clamp(columns, kNarrowest, kWidest);
  return {Scaled(width, *this), Scaled(grid_.Height() > 0 ? grid_.Height() : kNaturalHeight, *this)};
}

int GridWidget::Offset() const { return horizontalScrollBar()->value(); }

void GridWidget::UpdateScrollBars() {
  geometry_.Update(grid_, *viewport());
  const int rows = static_cast<int>(std::min<std::size_t>(LineCount(), INT_MAX / 2));
  const int page = geometry_.WholeRows();
  verticalScrollBar()->setPageStep(page);
  verticalScrollBar()->setRange(0, std::max(0, rows - page));
  const int room = geometry_.ColumnsArea().width();
  horizontalScrollBar()->setPageStep(room);
  horizontalScrollBar()->setRange(0, std::max(0, geometry_.ContentWidth() - room));
}

void GridWidget::Follow() {
  setLayoutDirection(grid_.RightAligned ? Qt::RightToLeft : Qt::LeftToRight);
  if (source_ != grid_.DataSource()) {
    source_ = grid_.DataSource();
    sourceChanged_ =
        source_ == nullptr ? Subscription() : source_->Changed.Connect([this] { ++rowsChanged_; });
  }
  WatchFirstRows();
  UpdateScrollBars();
  const TADOQuery* query = grid_.DataSet();
  const std::optional<std::size_t> current = query == nullptr ? std::nullopt : query->RecNo();
  const bool moved = current != shownRow_;
  shownRow_ = current;
  if (moved) ShowCurrent();
  // A reader hears of other rows before it hears which cell is current among them.
  const bool others = WatchRows();
  const bool empty = !current && accessibleDescription() != EmptyGridText(grid_);
  if (others || moved || empty) DescribeCurrent();
  viewport()->update();
}

// Painted at once: while a statement runs the message loop comes round late.
void GridWidget::WatchFirstRows() {
  TADOQuery* query = grid_.DataSet();
  if (query_ == query) return;
  query_ = query;
  firstRowsCame_ =
      query == nullptr ? Subscription() : query->FirstRowsCame.Connect([this] { viewport()->repaint(); });
}

bool GridWidget::CurrentInView() const {
  if (!shownRow_ || *shownRow_ >= grid_.RowCount()) return false;
  const std::size_t line = LineOf(*shownRow_);
  return line >= FirstLine() && line < FirstLine() + static_cast<std::size_t>(geometry_.WholeRows());
}

void GridWidget::ShowCurrent() {
  if (!shownRow_) return;
  const auto row = static_cast<int>(LineOf(*shownRow_));
  const int first = verticalScrollBar()->value();
  const int page = geometry_.WholeRows();
  if (row < first) {
    verticalScrollBar()->setValue(row);
  } else if (row >= first + page) {
    verticalScrollBar()->setValue(row - page + 1);
  }
}

void GridWidget::DescribeCurrent() {
  QString description = shownRow_ ? QString() : EmptyGridText(grid_);
  if (shownRow_ && Grouped()) {
    const GridGroups& groups = grid_.Groups();
    const std::size_t shown = groups.ShownGroupOf(*shownRow_);
    for (std::optional<std::size_t> group = shown; group; group = groups.Around(*group))
      description.prepend(ShownText(groups.HeadText({*group, {}, {}})) + "، ");
    if (groups.Folded(shown)) description += "بسته، ";
  }
  if (shownRow_) {
    // What is in view, as to the eye: a table may have hundreds of columns.
    for (const GridSpan& span : geometry_.Spans())
      if (geometry_.InView(span, Offset()))
        description += TitleOf(*span.column) + ": " + ToQt(grid_.CellText(*shownRow_, *span.column)) + "، ";
    description += FactsOf(*shownRow_).replace('\n', "، ");
  }
  setAccessibleDescription(description);
  TellCurrentCell(*this);
}

QRect GridWidget::CellRect(std::size_t row, const TGridColumn& column) const {
  if (Grouped() && !grid_.Groups().InView(row)) return {};
  const int top = geometry_.RowsArea().top() +
                  (static_cast<int>(LineOf(row)) - verticalScrollBar()->value()) * geometry_.RowHeight();
  for (const GridSpan& span : geometry_.Spans()) {
    if (span.column == &column) return geometry_.ColumnRect(span, Offset(), top, geometry_.RowHeight());
  }
  return {};
}

QRect GridWidget::TitleRect(const TGridColumn& column) const {
  for (const GridSpan& span : geometry_.Spans()) {
    if (span.column != &column) continue;
    const int top = GroupOf(column).isEmpty() ? 0 : geometry_.GroupHeight();
    return geometry_.ColumnRect(span, Offset(), top, geometry_.HeaderHeight() - top);
  }
  return {};
}

void GridWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  const TADOQuery::FirstRowsScope firstRows(grid_.DataSet());
  paint_.firstRows = firstRows.Shown();
  paint_.firstLine = paint_.firstRows ? 0 : FirstLine();
  paint_.offset = Offset();
  paint_.focused = hasFocus();
  paint_.filters = view_.HasMenu();
  paint_.column = currentColumn_.empty() ? nullptr : CurrentColumn();
  // A drawing event is the program's code. What it throws never passes into the toolkit: it is shown once,
  // and only after the painting, since a message paints windows itself.
  try {
    GridPainter(painter, grid_, geometry_, paint_, font()).Paint();
  } catch (const std::exception&) {
    if (std::exchange(drawingFailed_, true)) return;
    const std::exception_ptr error = std::current_exception();
    QMetaObject::invokeMethod(
        this, [this, error] { view_.Form().Run([&] { std::rethrow_exception(error); }); },
        Qt::QueuedConnection);
  }
}

// A grid that loses height, as when the criteria unfold, keeps the current row in view.
void GridWidget::resizeEvent(QResizeEvent* event) {
  const bool inView = CurrentInView();
  QAbstractScrollArea::resizeEvent(event);
  PlaceBars();
  UpdateScrollBars();
  if (inView) ShowCurrent();
}

void GridWidget::scrollContentsBy(int /*dx*/, int /*dy*/) { viewport()->update(); }

void GridWidget::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) UpdateScrollBars();
}

void GridWidget::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
  // The toolkit tells of the table itself when this is over; the cell is what a reader hears last.
  QTimer::singleShot(0, this, [this] { TellCurrentCell(*this); });
}

void GridWidget::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

void GridWidget::SelectTo(std::size_t row) {
  if (!anchor_) anchor_ = shownRow_.value_or(row);
  std::set<std::size_t> rows;
  for (std::size_t i = std::min(*anchor_, row); i <= std::max(*anchor_, row); ++i) rows.insert(rows.end(), i);
  grid_.SetSelection(std::move(rows));
}

void GridWidget::GoTo(std::size_t row, bool extend) {
  const std::size_t count = grid_.RowCount();
  if (count == 0) return;
  row = std::min(row, count - 1);
  view_.Do([&] {
    if (extend && grid_.MultiSelect) {
      SelectTo(row);
    } else {
      anchor_ = row;
      if (!grid_.Selection().empty()) grid_.SetSelection({});
    }
    grid_.MoveTo(row);
  });
}

void GridWidget::MoveBy(qint64 rows, bool extend) {
  if (Grouped()) return MoveLines(rows, extend);
  const TADOQuery* query = grid_.DataSet();
  const auto current = static_cast<qint64>(query == nullptr ? 0 : query->RecNo().value_or(0));
  GoTo(static_cast<std::size_t>(std::max<qint64>(0, current + rows)), extend);
}

void GridWidget::keyPressEvent(QKeyEvent* event) {
  const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
  const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
  const std::size_t count = grid_.RowCount();
  if (IsCommand(*event, QKeySequence::Copy)) return CopyRows(grid_);
  if (ColumnKey(*event) || GroupKey(*event)) return;
  if (ctrl && LatinKey(event->key()) == Qt::Key_A && grid_.MultiSelect && count > 0) {
    anchor_ = 0;
    return view_.Do([&] { SelectTo(count - 1); });
  }
  switch (event->key()) {
    case Qt::Key_Up:
      return MoveBy(-1, extend);
    case Qt::Key_Down:
      return MoveBy(1, extend);
    case Qt::Key_PageUp:
      return MoveBy(-geometry_.WholeRows(), extend);
    case Qt::Key_PageDown:
      return MoveBy(geometry_.WholeRows(), extend);
    case Qt::Key_Home:
      return ctrl ? GoTo(0, extend) : horizontalScrollBar()->setValue(0);
    case Qt::Key_End:
      return ctrl ? GoTo(count, extend) : horizontalScrollBar()->setValue(horizontalScrollBar()->maximum());
    case Qt::Key_Left:
    case Qt::Key_Right: {
      const bool forward = (event->key() == Qt::Key_Left) == geometry_.RightToLeft();
      const int step = horizontalScrollBar()->singleStep();
      return horizontalScrollBar()->setValue(Offset() + (forward ? step : -step));
    }
    default:
      if (!TypedKey(*event)) event->ignore();
  }
}

void GridWidget::RowPressed(std::size_t row, Qt::KeyboardModifiers modifiers) {
  if (modifiers.testFlag(Qt::ControlModifier) && grid_.MultiSelect) {
    view_.Do([&] {
      std::set<std::size_t> rows = grid_.Selection();
      if (rows.empty() && shownRow_) rows.insert(*shownRow_);
      if (!rows.erase(row)) rows.insert(row);
      anchor_ = row;
      grid_.MoveTo(row);
      grid_.SetSelection(std::move(rows));
    });
  } else {
    GoTo(row, modifiers.testFlag(Qt::ShiftModifier));
  }
}

void GridWidget::mousePressEvent(QMouseEvent* event) {
  const QPoint point = event->pos();
  if (InHeader(point)) {
    if (event->button() == Qt::LeftButton) HeaderPressed(point);
    return;
  }
  if (const auto head = HeadAt(point)) {
    if (event->button() == Qt::LeftButton) FoldGroup(*head, !grid_.Groups().Folded(*head));
    return;
  }
  const auto row = RowAt(point);
  if (!row) return;
  if (const auto span = geometry_.SpanAt(point.x(), Offset()))
    currentColumn_ = geometry_.Spans()[*span].column->Name();
  if (event->button() == Qt::LeftButton) {
    RowPressed(*row, event->modifiers());
  } else if (event->button() == Qt::RightButton && grid_.Selection().count(*row) == 0) {
    RowPressed(*row, Qt::NoModifier);
  }
}

void GridWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->pos();
  if (gesture_ != Gesture::None) {
    HeaderMoved(point);
  } else if (event->buttons().testFlag(Qt::LeftButton) && grid_.MultiSelect) {
    if (const auto row = RowAt(point); row && row != shownRow_) GoTo(*row, true);
  } else {
    HeaderHovered(point);
  }
}

void GridWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (gesture_ != Gesture::None) HeaderReleased(event->pos(), event->modifiers());
}

void GridWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint point = event->pos();
  if (InHeader(point)) {
    const auto edge = EdgeUnder(point);
    if (edge) return FitColumn(*geometry_.Spans()[*edge].column);
    return HeaderPressed(point);
  }
  if (const auto head = HeadAt(point)) return FoldGroup(*head, !grid_.Groups().Folded(*head));
  if (event->button() == Qt::LeftButton && RowAt(point)) view_.Do([this] { grid_.DoubleClick(); });
}

void GridWidget::contextMenuEvent(QContextMenuEvent* event) {
  if (!view_.HasMenu()) return;
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  std::optional<GridCell> cell;
  TGridColumn* column = CurrentColumn();
  QPoint at = event->globalPos();
  if (byKey) {
    at = viewport()->mapToGlobal(geometry_.RowsArea().center());
    if (shownRow_ && CurrentColumn() != nullptr) cell = {*shownRow_, CurrentColumn()};
    if (cell && CurrentInView()) at = viewport()->mapToGlobal(CellRect(cell->row, *cell->column).center());
  } else {
    const auto row = RowAt(event->pos());
    const auto span = geometry_.SpanAt(event->pos().x(), Offset());
    if (row && span) cell = {*row, geometry_.Spans()[*span].column};
    if (span) column = geometry_.Spans()[*span].column;
  }
  GridMenu(*this, view_.Form(), cell, column, at);
}

void GridWidget::wheelEvent(QWheelEvent* event) {
  constexpr int kRowsPerNotch = 3;
  constexpr int kNotch = 120;
  const QPoint delta = event->angleDelta();
  if (event->modifiers().testFlag(Qt::ShiftModifier) || delta.y() == 0)
    return QAbstractScrollArea::wheelEvent(event);
  const int rows = -delta.y() * kRowsPerNotch / kNotch;
  verticalScrollBar()->setValue(verticalScrollBar()->value() + (rows == 0 ? (delta.y() > 0 ? -1 : 1) : rows));
  event->accept();
}

bool GridWidget::ShowCellTip(const QPoint& point, const QPoint& global) {
  const auto row = RowAt(point);
  const auto span = geometry_.SpanAt(point.x(), Offset());
  if (span && point.y() > geometry_.RowsArea().bottom()) return ShowFooterTip(*span, global);
  if (!row || !span) return false;
  const TGridColumn& column = *geometry_.Spans()[*span].column;
  QString text = ShownCell(grid_.CellText(*row, column), column.IsNumber());
  const QRect cell = CellRect(*row, column);
  if (fontMetrics().horizontalAdvance(text) <= cell.width() - 2 * geometry_.Padding()) text.clear();
  const QString facts = FactsOf(*row);
  if (text.isEmpty() && facts.isEmpty()) return false;
  QToolTip::showText(global, text.isEmpty() || facts.isEmpty() ? text + facts : text + "\n\n" + facts,
                     viewport(), cell);
  return true;
}

// A sum that had to be written smaller is told in full, whether it was cut or not; one over several units is
// told by unit.
bool GridWidget::ShowFooterTip(std::size_t span, const QPoint& global) {
  const GridSpan& under = geometry_.Spans()[span];
  const QString text = ShownCell(grid_.FooterText(*under.column), true);
  const QString units = UnitLines(grid_, *under.column);
  QFont bold = font();
  bold.setBold(true);
  const bool whole = QFontMetrics(bold).horizontalAdvance(text) <= under.width - 2 * geometry_.Padding();
  if (whole && units.isEmpty()) return false;
  QToolTip::showText(global, units.isEmpty() ? text : text + "\n\n" + units, viewport());
  return true;
}

bool GridWidget::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    if (ShowCellTip(help->pos(), help->globalPos())) return true;
    QToolTip::hideText();
  } else if (event->type() == QEvent::Leave) {
    paint_.hoveredTitle.reset();
    viewport()->update();
  }
  return QAbstractScrollArea::viewportEvent(event);
}

}  // namespace goods
