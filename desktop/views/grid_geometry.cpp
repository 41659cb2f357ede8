#include "desktop/views/grid_geometry.h"

#include <QFontMetricsF>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr int kPadding = 6;
constexpr int kRowExtra = 9;
constexpr int kHeaderExtra = 12;
constexpr int kMaxTitleLines = 3;
constexpr int kEdgeReach = 4;

}  // namespace

QString GroupOf(const TGridColumn& column) {
  const QString caption = ShownText(PlainCaption(column.Caption()));
  const qsizetype bar = caption.indexOf('|');
  return bar < 0 ? QString() : caption.left(bar);
}

QString TitleOf(const TGridColumn& column) {
  const QString caption = ShownText(PlainCaption(column.Caption()));
  return caption.mid(caption.indexOf('|') + 1);
}

QFont GridGeometry::HeaderFont(const QFont& font) {
  QFont header(font);
  header.setWeight(QFont::DemiBold);
  return header;
}

void GridGeometry::Update(const TSmartDBGrid_QRT& grid, const QWidget& viewport) {
  size_ = viewport.size();
  rightToLeft_ = grid.RightAligned;
  padding_ = Scaled(kPadding, viewport);
  const QFontMetrics metrics(viewport.font());
  rowHeight_ = LineHeight(viewport.font()) + Scaled(kRowExtra, viewport);
  footerHeight_ = grid.ShowFooter ? rowHeight_ + Scaled(2, viewport) : 0;
  numberWidth_ = 0;
  if (grid.ShowRowNumbers) {
    const std::size_t rows = grid.Table().RowCount();
    const int digits = std::max(2, static_cast<int>(QString::number(rows).size()));
    int widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit) {
      widest = std::max(widest, metrics.horizontalAdvance(ShownDigits(QString(digits, digit))));
    }
    numberWidth_ = widest + 2 * padding_;
  }
  PlaceColumns(grid, viewport);
  MeasureHeader(grid, viewport);
}

void GridGeometry::PlaceColumns(const TSmartDBGrid_QRT& grid, const QWidget& viewport) {
  spans_.clear();
  int total = 0;
  int fitting = 0;
  for (TGridColumn* column : grid.VisibleColumns()) {
    spans_.push_back({column, 0, Scaled(column->Width(), viewport)});
    total += spans_.back().width;
    if (column->AutoFit()) ++fitting;
  }
  int left = std::max(0, size_.width() - numberWidth_ - total);
  int start = 0;
  for (GridSpan& span : spans_) {
    if (span.column->AutoFit()) {
      const int share = left / fitting--;
      span.width += share;
      left -= share;
    }
    span.start = start;
    start += span.width;
  }
  contentWidth_ = start;
}

QStringList GridGeometry::TitleLines(const TGridColumn& column, int room, const QFont& font) const {
  return WrappedWords(TitleOf(column), QFontMetricsF(HeaderFont(font)), room, kMaxTitleLines);
}

void GridGeometry::MeasureHeader(const TSmartDBGrid_QRT& grid, const QWidget& viewport) {
  bool groups = false;
  qsizetype lines = 1;
  for (const GridSpan& span : spans_) {
    groups = groups || !GroupOf(*span.column).isEmpty();
    const bool sorted = std::any_of(grid.SortKeys().begin(), grid.SortKeys().end(), [&](const TSortKey& key) {
      return SameText(key.FieldName, span.column->FieldName());
    });
    const int room = std::max(1, span.width - padding_ - (sorted ? SortRoom() : 0));
    lines = std::max(lines, TitleLines(*span.column, room, viewport.font()).size());
  }
  const int line = LineHeight(HeaderFont(viewport.font()));
  const int extra = Scaled(kHeaderExtra, viewport);
  groupHeight_ = groups ? line + extra / 2 : 0;
  headerHeight_ = groupHeight_ + line * static_cast<int>(lines) + extra;
}

QRect GridGeometry::RowsArea() const {
  return {0, headerHeight_, size_.width(), std::max(0, size_.height() - headerHeight_ - footerHeight_)};
}

QRect GridGeometry::ColumnsArea() const {
  return {rightToLeft_ ? 0 : numberWidth_, 0, std::max(0, size_.width() - numberWidth_), size_.height()};
}

QRect GridGeometry::NumbersArea() const {
  return {rightToLeft_ ? size_.width() - numberWidth_ : 0, 0, numberWidth_, size_.height()};
}

int GridGeometry::WholeRows() const { return std::max(1, RowsArea().height() / std::max(1, rowHeight_)); }

QRect GridGeometry::ColumnRect(const GridSpan& span, int offset, int top, int height) const {
  const int from = numberWidth_ + span.start - offset;
  const int left = rightToLeft_ ? size_.width() - from - span.width : from;
  return {left, top, span.width, height};
}

std::optional<std::size_t> GridGeometry::SpanAt(int x, int offset) const {
  if (!ColumnsArea().contains(x, 0)) return std::nullopt;
  for (std::size_t i = 0; i < spans_.size(); ++i) {
    const QRect rect = ColumnRect(spans_[i], offset, 0, 1);
    if (x >= rect.left() && x <= rect.right()) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> GridGeometry::EdgeAt(int x, int offset) const {
  // From the end, so that a column of no width can be pulled open again.
  for (std::size_t i = spans_.size(); i-- > 0;) {
    const QRect rect = ColumnRect(spans_[i], offset, 0, 1);
    const int edge = rightToLeft_ ? rect.left() : rect.right() + 1;
    if (std::abs(x - edge) <= kEdgeReach) return i;
  }
  return std::nullopt;
}

}  // namespace goods
