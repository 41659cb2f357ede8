// What a table does beside showing its rows: finding, jumping to what is typed, and telling what a row is.
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "desktop/views/filter_chips.h"
#include "desktop/views/filter_dialog.h"
#include "desktop/views/find_bar.h"
#include "desktop/views/form_view.h"
#include "desktop/views/grid_accessible.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/shown_text.h"
#include "host/components/grid_groups.h"

namespace goods {

void GridWidget::MakeBars() {
  chips_ = new FilterChips(grid_, this);
  chips_->OnAction = [this](const std::function<void()>& action) { view_.Do(action); };
  find_ = new FindBar(grid_, this);
  find_->OnGoTo = [this](std::size_t row) {
    view_.Do([&] { grid_.Groups().Reveal(row); });
    GoTo(row, false);
  };
  find_->OnMarks = [this] { viewport()->update(); };
  find_->OnClosed = [this] { setFocus(Qt::OtherFocusReason); };
  find_->OnHeight = [this] { PlaceBars(); };
  paint_.isHit = [this](std::size_t row, const TGridColumn& column) { return find_->Marks(row, column); };
}

// Above the titles, as wide as the viewport.
void GridWidget::PlaceBars() {
  const int finding = find_->IsOpen() ? find_->sizeHint().height() : 0;
  const int chips = chips_->HeightFor(viewport()->width());
  if (viewportMargins().top() != finding + chips) setViewportMargins(0, finding + chips, 0, 0);
  const QRect view = viewport()->geometry();
  chips_->setGeometry(view.left(), view.top() - finding - chips, view.width(), chips);
  find_->setGeometry(view.left(), view.top() - finding, view.width(), finding);
}

void GridWidget::Find() { find_->Open(); }

// The rows may have changed without the component's telling how: another store, another index, other columns.
bool GridWidget::WatchRows() {
  if (chips_->Follow()) PlaceBars();
  const TADOQuery* query = grid_.DataSet();
  RowsSeen seen;
  if (query != nullptr) {
    seen = {query, query->Rows(), query->VisibleRows().data(), query->RecordCount(), rowsChanged_, {}};
  }
  for (const GridSpan& span : geometry_.Spans()) seen.fields.push_back(span.column->FieldName());
  const bool sameRows = seen == rowsSeen_;
  const bool sameLines = linesSeen_ == LineCount();
  rowsSeen_ = std::move(seen);
  linesSeen_ = LineCount();
  sameRows ? find_->RowMoved() : find_->RowsChanged();
  if (sameRows && sameLines) return false;
  TellRowsChanged(*this);
  return true;
}

TGridColumn* GridWidget::CurrentColumn() const {
  const auto& spans = geometry_.Spans();
  const auto found = std::find_if(spans.begin(), spans.end(), [this](const GridSpan& span) {
    return span.column->Name() == currentColumn_;
  });
  if (found != spans.end()) return found->column;
  return spans.empty() ? nullptr : spans.front().column;
}

// Into view too, as far as it is scrolled with the others.
void GridWidget::GoToColumn(const TGridColumn& column) {
  currentColumn_ = column.Name();
  const auto& spans = geometry_.Spans();
  const auto span = std::find_if(spans.begin(), spans.end(),
                                 [&column](const GridSpan& each) { return each.column == &column; });
  if (span != spans.end() && !span->fixed) {
    const QRect area = geometry_.ScrolledArea();
    const QRect rect = geometry_.ColumnRect(*span, Offset(), 0, 1);
    const bool rightToLeft = geometry_.RightToLeft();
    const int beyondStart = rightToLeft ? rect.right() - area.right() : area.left() - rect.left();
    const int beyondEnd = rightToLeft ? area.left() - rect.left() : rect.right() - area.right();
    if (beyondEnd > 0) horizontalScrollBar()->setValue(Offset() + beyondEnd);
    if (beyondStart > 0) horizontalScrollBar()->setValue(Offset() - beyondStart);
  }
  viewport()->update();
  TellCurrentCell(*this);
}

bool GridWidget::ColumnKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
  if (modifiers == Qt::AltModifier && event.key() == Qt::Key_Down) {
    FilterColumn();
    return true;
  }
  const bool sideways = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
  const TGridColumn* current = CurrentColumn();
  if (!sideways || modifiers != Qt::ControlModifier || current == nullptr) return false;
  const auto& spans = geometry_.Spans();
  std::size_t at = 0;
  while (spans[at].column != current) ++at;
  const bool forward = (event.key() == Qt::Key_Left) == geometry_.RightToLeft();
  // The first press shows which column it is.
  if (!currentColumn_.empty() && forward && at + 1 < spans.size()) ++at;
  if (!currentColumn_.empty() && !forward && at > 0) --at;
  GoToColumn(*spans[at].column);
  return true;
}

void GridWidget::FilterColumn(const TGridColumn* column, const std::string& search) {
  const TADOQuery* query = grid_.DataSet();
  if (!view_.HasMenu() || query == nullptr || !query->Active()) return;
  for (const auto& each : grid_.Columns()) {
    if (each.get() != (column == nullptr ? CurrentColumn() : column)) continue;
    if (each->Withheld() || each->Kind() == CellKind::Swatch) return;
    ShowFilterDialog(view_.Form(), grid_, *each, search);
    return;
  }
}

QRect GridWidget::FilterRect(const TGridColumn& column) const {
  if (!view_.HasMenu() || column.Kind() == CellKind::Swatch) return {};
  const QRect title = TitleRect(column);
  return title.isEmpty() ? QRect() : geometry_.FilterBox(title);
}

bool GridWidget::TypedKey(const QKeyEvent& event) {
  const bool plain = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  const QString text = event.text();
  if (!plain || text.isEmpty() || !text.at(0).isPrint()) return false;
  if (text.at(0).isSpace() && !jump_.Waiting()) return false;
  view_.Do([&] {
    if (jump_.Type(grid_, text)) grid_.Groups().Reveal(grid_.DataSet()->RecNo().value_or(0));
  });
  return true;
}

QString GridWidget::FactsOf(std::size_t row) const {
  QStringList lines;
  if (grid_.OnDescribeRow) {
    for (const TSmartDBGrid_QRT::Fact& fact : grid_.OnDescribeRow(row))
      if (!fact.text.empty()) lines << ShownText(fact.caption) + ": " + ShownText(fact.text);
  }
  return lines.join('\n');
}

}  // namespace goods
