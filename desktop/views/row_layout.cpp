#include "desktop/views/row_layout.h"

#include <QLabel>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace goods {
namespace {

int OneLineWidth(const QLayout& layout);

// The least width of an item whose rows have one line each.
int OneLineWidth(QLayoutItem& item) {
  if (QLayout* inner = item.layout()) return OneLineWidth(*inner);
  const QWidget* widget = item.widget();
  if (widget == nullptr || widget->layout() == nullptr) return item.minimumSize().width();
  return std::max(widget->minimumWidth(), OneLineWidth(*widget->layout()));
}

int OneLineWidth(const QLayout& layout) {
  const auto* box = qobject_cast<const QBoxLayout*>(&layout);
  const bool row = box != nullptr && (box->direction() == QBoxLayout::LeftToRight ||
                                      box->direction() == QBoxLayout::RightToLeft);
  int width = 0;
  bool first = true;
  for (int i = 0; i < layout.count(); ++i) {
    QLayoutItem& item = *layout.itemAt(i);
    if (row && item.spacerItem() != nullptr) width += item.sizeHint().width();
    if (item.isEmpty()) continue;
    const int each = OneLineWidth(item);
    if (!row) {
      width = std::max(width, each);
    } else {
      width += each + (first ? 0 : box->spacing());
    }
    first = false;
  }
  const QMargins margins = layout.contentsMargins();
  return width + margins.left() + margins.right();
}

bool IsCaption(const QLayoutItem& item) {
  const auto* label = qobject_cast<const QLabel*>(const_cast<QLayoutItem&>(item).widget());
  return label != nullptr && !label->font().bold();
}

int HeightOf(QLayoutItem& item) {
  return std::max(item.minimumSize().height(),
                  std::min(item.sizeHint().height(), item.maximumSize().height()));
}

}  // namespace

RowLayout::RowLayout(QWidget* parent) : QBoxLayout(QBoxLayout::LeftToRight, parent) {}

std::vector<RowLayout::Part> RowLayout::Parts() const {
  std::vector<Part> parts;
  int gap = 0;
  bool caption = false;
  for (int i = 0; i < count(); ++i) {
    QLayoutItem* item = itemAt(i);
    if (item->spacerItem() != nullptr) gap += item->sizeHint().width();
    if (item->isEmpty()) continue;
    parts.push_back({item, stretch(i), OneLineWidth(*item), gap + spacing(), caption && gap == 0});
    gap = 0;
    caption = IsCaption(*item);
  }
  return parts;
}

std::vector<RowLayout::Line> RowLayout::LinesAt(int width) const {
  const std::vector<Part> parts = Parts();
  std::vector<Line> lines;
  int used = 0;
  for (std::size_t i = 0; i < parts.size();) {
    std::size_t end = i + 1;
    int together = parts[i].least;
    for (; end < parts.size() && parts[end].joined; ++end) together += parts[end].before + parts[end].least;
    if (lines.empty() || used + parts[i].before + together > width) {
      lines.emplace_back();
      used = together;
    } else {
      used += parts[i].before + together;
    }
    for (; i < end; ++i) lines.back().push_back(parts[i]);
  }
  return lines;
}

// Each its least width, then what it would like, then what is left to those that stretch.
std::vector<int> RowLayout::Widths(const Line& line, int width) const {
  std::vector<int> widths;
  int rest = width;
  int shares = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const int gap = i == 0 ? 0 : line[i].before;
    widths.push_back(std::min(line[i].least, std::max(0, rest - gap)));
    rest -= widths.back() + gap;
    shares += line[i].stretch;
  }
  for (std::size_t i = 0; i < line.size(); ++i) {
    const int wanted =
        std::min(line[i].item->sizeHint().width(), line[i].item->maximumSize().width()) - widths[i];
    const int given = std::clamp(wanted, 0, std::max(0, rest));
    widths[i] += given;
    rest -= given;
  }
  for (std::size_t i = 0; i < line.size() && rest > 0 && shares > 0; ++i) {
    const int given = rest * line[i].stretch / shares;
    widths[i] += given;
    rest -= given;
    shares -= line[i].stretch;
  }
  return widths;
}

void RowLayout::SetWrappedHeight(int height) {
  if (height == wrappedHeight_) return;
  wrappedHeight_ = height;
  invalidate();
  if (QWidget* widget = parentWidget()) widget->updateGeometry();
}

QSize RowLayout::minimumSize() const {
  const QSize oneLine = QBoxLayout::minimumSize();
  const QMargins margins = contentsMargins();
  int widest = 0;
  for (int i = 0; i < count(); ++i) {
    if (!itemAt(i)->isEmpty()) widest = std::max(widest, itemAt(i)->minimumSize().width());
  }
  widest += margins.left() + margins.right();
  return {std::min(widest, oneLine.width()), Wrapped() ? wrappedHeight_ : oneLine.height()};
}

QSize RowLayout::sizeHint() const {
  const QSize oneLine = QBoxLayout::sizeHint();
  return {oneLine.width(), Wrapped() ? wrappedHeight_ : oneLine.height()};
}

void RowLayout::setGeometry(const QRect& rect) {
  if (rect.width() >= OneLineWidth(*this)) {
    SetWrappedHeight(0);
    QBoxLayout::setGeometry(rect);
    return;
  }
  // Not the line that the box would make of it.
  QLayout::setGeometry(rect);  // NOLINT(bugprone-parent-virtual-call)
  const QRect room = rect.marginsRemoved(contentsMargins());
  const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
  int top = room.top();
  for (const Line& line : LinesAt(room.width())) {
    if (top > room.top()) top += spacing();
    const std::vector<int> widths = Widths(line, room.width());
    int height = 0;
    for (const Part& part : line) height = std::max(height, HeightOf(*part.item));
    int left = room.left();
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (i > 0) left += line[i].before;
      line[i].item->setGeometry(QStyle::visualRect(direction, room, QRect(left, top, widths[i], height)));
      left += widths[i];
    }
    top += height;
  }
  SetWrappedHeight(top + contentsMargins().bottom() - rect.top());
}

}  // namespace goods
