#include "desktop/views/field_list_view.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/grid.h"

namespace goods {
namespace {

constexpr int kFieldRowExtra = 7;
constexpr int kGap = 10;        // between a caption and its text
constexpr int kPairGap = 28;    // between pairs beside each other
constexpr int kTextRoom = 170;  // what a text wants when as many pairs as fit stand beside each other
constexpr int kNaturalRows = 3;
constexpr double kMostCaption = 0.5;  // of a pair's width

}  // namespace

FieldListWidget::FieldListWidget(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

int FieldListWidget::RowHeight() const { return LineHeight(font()) + Scaled(kFieldRowExtra, *this); }

int FieldListWidget::RowCount() const {
  return (static_cast<int>(pairs_.size()) + shownColumns_ - 1) / shownColumns_;
}

QSize FieldListWidget::sizeHint() const {
  const int rows = std::clamp(RowCount(), 1, kNaturalRows);
  return {Scaled(2 * kTextRoom, *this), rows * RowHeight()};
}

QSize FieldListWidget::minimumSizeHint() const { return {Scaled(kTextRoom, *this), RowHeight()}; }

void FieldListWidget::Show(const std::vector<TFieldList::Entry>& entries, int columns) {
  const std::size_t before = pairs_.size();
  pairs_.clear();
  QString description;
  for (const TFieldList::Entry& entry : entries) {
    pairs_.push_back(
        {ShownText(entry.Caption + " :"), ShownCell(entry.Text, IsNumberLike(ToQt(entry.Text)))});
    description += ToQt(entry.Caption) + ": " + ToQt(entry.Text) + "، ";
  }
  wantedColumns_ = columns;
  setAccessibleDescription(description);
  Arrange();
  if (before != pairs_.size()) updateGeometry();
  viewport()->update();
}

void FieldListWidget::Arrange() {
  const QFontMetrics metrics(font());
  int widest = 0;
  for (const Pair& pair : pairs_) widest = std::max(widest, metrics.horizontalAdvance(pair.caption));
  const int wanted = widest + Scaled(kGap + kTextRoom + kPairGap, *this);
  const int fitting = std::max(1, (viewport()->width() + Scaled(kPairGap, *this)) / std::max(1, wanted));
  const int most = std::max(1, static_cast<int>(pairs_.size()));
  const int before = shownColumns_;
  shownColumns_ = std::min(wantedColumns_ > 0 ? wantedColumns_ : fitting, most);
  if (before != shownColumns_) updateGeometry();
  captionWidths_.assign(static_cast<std::size_t>(shownColumns_), 0);
  for (std::size_t i = 0; i < pairs_.size(); ++i) {
    int& width = captionWidths_[i % captionWidths_.size()];
    width = std::max(width, metrics.horizontalAdvance(pairs_[i].caption) + 1);
  }
  const int room = viewport()->height();
  verticalScrollBar()->setSingleStep(RowHeight());
  verticalScrollBar()->setPageStep(room);
  verticalScrollBar()->setRange(0, std::max(0, RowCount() * RowHeight() - room));
}

QRect FieldListWidget::CellRect(std::size_t pair) const {
  const int column = static_cast<int>(pair) % shownColumns_;
  const int row = static_cast<int>(pair) / shownColumns_;
  const int gap = Scaled(kPairGap, *this);
  const int room = viewport()->width() + gap;
  const int from = room * column / shownColumns_;
  const int width = room * (column + 1) / shownColumns_ - from - gap;
  const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
  return {rightToLeft ? viewport()->width() - from - width : from,
          row * RowHeight() - verticalScrollBar()->value(), width, RowHeight()};
}

QRect FieldListWidget::CaptionRect(std::size_t pair) const {
  QRect cell = CellRect(pair);
  const int wanted = captionWidths_[pair % captionWidths_.size()];
  const int width = std::min(wanted, static_cast<int>(cell.width() * kMostCaption));
  if (layoutDirection() == Qt::RightToLeft) cell.setLeft(cell.right() + 1 - width);
  cell.setWidth(width);
  return cell;
}

QRect FieldListWidget::TextRect(std::size_t pair) const {
  const QRect cell = CellRect(pair);
  const int taken = CaptionRect(pair).width() + Scaled(kGap, *this);
  return layoutDirection() == Qt::RightToLeft ? cell.adjusted(0, 0, -taken, 0)
                                              : cell.adjusted(taken, 0, 0, 0);
}

bool FieldListWidget::Cut(std::size_t pair) const {
  return fontMetrics().horizontalAdvance(pairs_[pair].text) > TextRect(pair).width();
}

void FieldListWidget::PaintPair(QPainter& painter, std::size_t pair) const {
  const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
  const Theme& theme = CurrentTheme();
  painter.setPen(theme.mutedText);
  DrawCell(painter, CaptionRect(pair), pairs_[pair].caption, TextAlign::Start, rightToLeft);
  painter.setPen(theme.text);
  DrawCell(painter, TextRect(pair), pairs_[pair].text, TextAlign::Start, rightToLeft);
}

void FieldListWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter.setFont(font());
  for (std::size_t i = 0; i < pairs_.size(); ++i) {
    const QRect cell = CellRect(i);
    if (cell.bottom() < 0 || cell.top() >= viewport()->height()) continue;
    PaintPair(painter, i);
    painter.setPen(CurrentTheme().gridLine);
    painter.drawLine(cell.left(), cell.bottom(), cell.right(), cell.bottom());
  }
}

void FieldListWidget::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  Arrange();
}

void FieldListWidget::scrollContentsBy(int /*dx*/, int /*dy*/) { viewport()->update(); }

void FieldListWidget::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) Arrange();
}

bool FieldListWidget::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    for (std::size_t i = 0; i < pairs_.size(); ++i) {
      if (!TextRect(i).contains(help->pos()) || !Cut(i)) continue;
      QToolTip::showText(help->globalPos(), pairs_[i].text, viewport(), TextRect(i));
      return true;
    }
    QToolTip::hideText();
  }
  return QAbstractScrollArea::viewportEvent(event);
}

FieldListView::FieldListView(FormView& form, TFieldList& list, QWidget* parent)
    : ControlView(form, list), list_(list), widget_(new FieldListWidget(parent)) {
  SetWidget(widget_);
}

// The table that shows the same rows may know more of the current one.
void FieldListView::AddFacts(std::vector<TFieldList::Entry>& entries) const {
  const TSmartDBGrid_QRT* grid = list_.DataSource() == nullptr ? nullptr : GridOver(Form().Form());
  const TADOQuery* query = grid == nullptr ? nullptr : grid->DataSet();
  if (query == nullptr || !query->RecNo() || !grid->OnDescribeRow) return;
  for (TSmartDBGrid_QRT::Fact& fact : grid->OnDescribeRow(*query->RecNo()))
    if (!fact.text.empty()) entries.push_back({std::move(fact.caption), std::move(fact.text)});
}

const TSmartDBGrid_QRT* FieldListView::GridOver(const TControl& container) const {
  for (const TControl* control : container.Controls()) {
    const auto* grid = dynamic_cast<const TSmartDBGrid_QRT*>(control);
    if (grid != nullptr && grid->DataSource() == list_.DataSource()) return grid;
    if (const TSmartDBGrid_QRT* inside = GridOver(*control)) return inside;
  }
  return nullptr;
}

void FieldListView::Refresh() {
  ControlView::Refresh();
  std::vector<TFieldList::Entry> entries = list_.Entries();
  AddFacts(entries);
  widget_->Show(entries, list_.Columns());
}

}  // namespace goods
