#include "desktop/views/grid_geometry.h"

#include <QFontMetricsF>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/grid_filter.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr int kCellPadding = 6;
constexpr int kGridRowExtra = 9;
constexpr int kHeaderExtra = 12;
constexpr int kMaxTitleLines = 3;
constexpr int kEdgeReach = 4;
// The share of the room that fixed columns may take; more of them would leave nothing to scroll.
constexpr double kMostFixed = 0.7;

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
  dpi_ = viewport.logicalDpiX();
  padding_ = Scaled(kCellPadding, viewport);
  const QFontMetrics metrics(viewport.font());
  rowHeight_ = LineHeight(viewport.font()) + Scaled(kGridRowExtra, viewport);
  footerHeight_ = grid.ShowFooter ? rowHeight_ + Scaled(2, viewport) : 0;
  numberWidth_ = 0;
  if (grid.ShowRowNumbers) {
    const std::size_t rows = grid.RowCount();
    const int digits = std::max(2, static_cast<int>(QString::number(rows).size()));
    int widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit) {
      widest = std::max(widest, metrics.horizontalAdvance(ShownDigits(QString(digits, digit))));
    }
    numberWidth_ = widest + 2 * padding_;
  }
  PlaceColumns(grid, viewport);
  FixColumns(grid);
  FindGroups(viewport.font());
  MeasureHeader(grid, viewport);
}

void GridGeometry::PlaceColumns(const TSmartDBGrid_QRT& grid, const QWidget& viewport) {
  spans_.clear();
  int total = 0;
  int fitting = 0;
  for (TGridColumn* column : grid.VisibleColumns()) {
    spans_.push_back({column, 0, Scaled(column->Width(), viewport), false});
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

void GridGeometry::FixColumns(const TSmartDBGrid_QRT& grid) {
  fixedWidth_ = 0;
  const int room = size_.width() - numberWidth_;
  if (contentWidth_ <= room) return;  // nothing is scrolled
  const auto& columns = grid.Columns();
  const auto first = static_cast<std::ptrdiff_t>(
      std::min(columns.size(), static_cast<std::size_t>(std::max(0, grid.FixedColumns))));
  const auto wanted = static_cast<std::size_t>(std::count_if(
      columns.begin(), columns.begin() + first, [](const auto& column) { return column->Visible(); }));
  for (std::size_t i = 0; i < wanted && fixedWidth_ + spans_[i].width <= room * kMostFixed; ++i) {
    spans_[i].fixed = true;
    fixedWidth_ += spans_[i].width;
  }
}

GridGeometry::Title& GridGeometry::TitleFor(const TGridColumn& column, const QFont& font) const {
  if (titlesFont_ != font || titlesDigits_ != PersianDigits() || titles_.size() > 2 * spans_.size() + 8) {
    titles_.clear();
    titlesFont_ = font;
    titlesDigits_ = PersianDigits();
  }
  Title& title = titles_[&column];
  if (title.room < 0 || title.caption != column.Caption())
    title = {column.Caption(), GroupOf(column), TitleOf(column), 0, {}};
  return title;
}

void GridGeometry::FindGroups(const QFont& font) {
  groups_.clear();
  for (std::size_t i = 0; i < spans_.size(); ++i) {
    const QString& group = TitleFor(*spans_[i].column, font).group;
    if (group.isEmpty()) continue;
    const bool goesOn = !groups_.empty() && groups_.back().last + 1 == i && groups_.back().title == group &&
                        spans_[i].fixed == spans_[i - 1].fixed;
    if (goesOn) {
      groups_.back().last = i;
    } else {
      groups_.push_back({group, i, i});
    }
  }
}

const QStringList& GridGeometry::TitleLines(const TGridColumn& column, int room, const QFont& font) const {
  Title& title = TitleFor(column, font);
  if (title.room != room) {
    title.lines = WrappedWords(title.own, QFontMetricsF(HeaderFont(font)), room, kMaxTitleLines);
    title.room = room;
  }
  return title.lines;
}

void GridGeometry::MeasureHeader(const TSmartDBGrid_QRT& grid, const QWidget& viewport) {
  const bool titled = std::any_of(spans_.begin(), spans_.end(),
                                  [](const GridSpan& span) { return !span.column->Caption().empty(); });
  groupHeight_ = 0;
  headerHeight_ = 0;
  if (!titled) return;
  qsizetype lines = 1;
  for (const GridSpan& span : spans_) {
    const bool sorted = std::any_of(grid.SortKeys().begin(), grid.SortKeys().end(), [&](const TSortKey& key) {
      return SameText(key.FieldName, span.column->FieldName());
    });
    const int marks = (sorted ? SortRoom() : 0) + (HasCondition(grid, *span.column) ? FilterRoom() : 0);
    const int room = std::max(1, span.width - padding_ - marks);
    lines = std::max(lines, TitleLines(*span.column, room, viewport.font()).size());
  }
  const int line = LineHeight(HeaderFont(viewport.font()));
  const int extra = Scaled(kHeaderExtra, viewport);
  groupHeight_ = groups_.empty() ? 0 : line + extra / 2;
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

QRect GridGeometry::FixedArea() const {
  QRect area = ColumnsArea();
  if (rightToLeft_) area.setLeft(area.right() + 1 - fixedWidth_);
  area.setWidth(fixedWidth_);
  return area;
}

QRect GridGeometry::ScrolledArea() const {
  return ColumnsArea().adjusted(rightToLeft_ ? 0 : fixedWidth_, 0, rightToLeft_ ? -fixedWidth_ : 0, 0);
}

int GridGeometry::WholeRows() const { return std::max(1, RowsArea().height() / std::max(1, rowHeight_)); }

QRect GridGeometry::ColumnRect(const GridSpan& span, int offset, int top, int height) const {
  const int from = numberWidth_ + span.start - (span.fixed ? 0 : offset);
  const int left = rightToLeft_ ? size_.width() - from - span.width : from;
  return {left, top, span.width, height};
}

bool GridGeometry::InView(const GridSpan& span, int offset) const {
  const QRect area = AreaOf(span);
  const QRect rect = ColumnRect(span, offset, 0, 1);
  return rect.right() >= area.left() && rect.left() <= area.right();
}

QRect GridGeometry::GroupRect(const GridGroup& group, int offset) const {
  return ColumnRect(spans_[group.first], offset, 0, groupHeight_)
      .united(ColumnRect(spans_[group.last], offset, 0, groupHeight_));
}

std::optional<std::size_t> GridGeometry::SpanAt(int x, int offset) const {
  for (std::size_t i = 0; i < spans_.size(); ++i) {
    const QRect rect = ColumnRect(spans_[i], offset, 0, 1);
    if (x >= rect.left() && x <= rect.right() && AreaOf(spans_[i]).contains(x, 0)) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> GridGeometry::GroupAt(const QPoint& point, int offset) const {
  if (point.y() >= groupHeight_) return std::nullopt;
  const auto span = SpanAt(point.x(), offset);
  for (std::size_t i = 0; span && i < groups_.size(); ++i) {
    if (*span >= groups_[i].first && *span <= groups_[i].last) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> GridGeometry::EdgeAt(int x, int offset) const {
  // From the end, so that a column of no width can be pulled open again.
  for (std::size_t i = spans_.size(); i-- > 0;) {
    const QRect area = AreaOf(spans_[i]).adjusted(-kEdgeReach, 0, kEdgeReach, 0);
    if (x < area.left() || x > area.right()) continue;
    const QRect rect = ColumnRect(spans_[i], offset, 0, 1);
    const int edge = rightToLeft_ ? rect.left() : rect.right() + 1;
    if (edge >= area.left() && edge <= area.right() + 1 && std::abs(x - edge) <= kEdgeReach) return i;
  }
  return std::nullopt;
}

}  // namespace goods
