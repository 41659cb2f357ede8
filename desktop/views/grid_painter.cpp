#include "desktop/views/grid_painter.h"

#include <algorithm>

#include "desktop/views/shown_text.h"
#include "desktop/views/style.h"
#include "desktop/views/theme.h"
#include "host/components/grid_filter.h"
#include "host/core/text.h"

namespace goods {
namespace {

// The colours of drawing events are made for light paper; on a dark one they are toned down.
constexpr double kDarkenedBrush = 0.6;
constexpr int kLevelPaddings = 3;         // that a group within another stands in
constexpr double kSmallestFooter = 0.76;  // of the size of the other figures

}  // namespace

QString EmptyGridText(const TSmartDBGrid_QRT& grid) {
  const TADOQuery* query = grid.DataSet();
  if (query != nullptr && query->Opening()) return {};
  const bool stopped = query != nullptr && query->Stopped();
  return stopped ? QStringLiteral("خواندن اطلاعات متوقف شد") : ShownText(grid.EmptyText());
}

GridPainter::GridPainter(QPainter& painter, const TSmartDBGrid_QRT& grid, const GridGeometry& geometry,
                         const GridPaintState& state, const QFont& font)
    : painter_(painter),
      grid_(grid),
      table_(grid.RowsTable()),
      geometry_(geometry),
      state_(state),
      font_(font),
      bold_(font),
      columns_(geometry.ColumnsArea()) {
  bold_.setBold(true);
  for (std::size_t i = 0; i < geometry.Spans().size(); ++i) {
    if (geometry.InView(geometry.Spans()[i], state.offset)) inView_.push_back(i);
  }
}

template <typename PaintColumn>
void GridPainter::InParts(const QRect& band, PaintColumn&& paint) {
  painter_.save();
  for (const bool fixed : {false, true}) {
    painter_.setClipRect(band.intersected(fixed ? geometry_.FixedArea() : geometry_.ScrolledArea()));
    for (const std::size_t i : inView_) {
      if (geometry_.Spans()[i].fixed == fixed) paint(i);
    }
  }
  painter_.restore();
}

void GridPainter::Paint() {
  PaintRows();
  PaintHeader();
  if (grid_.ShowFooter) PaintFooter();
  PaintFixedEdge();
  if (state_.insertionX) {
    painter_.fillRect(*state_.insertionX - 1, 0, 3, geometry_.HeaderHeight(), CurrentTheme().accent);
  }
}

void GridPainter::PaintRows() {
  const QRect area = geometry_.RowsArea();
  painter_.fillRect(area, CurrentTheme().surface);
  const std::size_t count = grid_.RowCount();
  if (count == 0) return PaintEmpty();
  painter_.save();
  painter_.setClipRect(area);
  int top = area.top();
  const GridGroups& groups = grid_.Groups();
  const bool grouped = !state_.firstRows && groups.Active();
  const std::size_t lines = grouped ? groups.LineCount() : count;
  for (std::size_t line = state_.firstLine; line < lines && top <= area.bottom(); ++line) {
    const GridGroups::Line at = grouped ? groups.LineAt(line) : GridGroups::Line{0, line, std::nullopt};
    at.row ? PaintRow(*at.row, top) : PaintHead(at, top);
    top += geometry_.RowHeight();
  }
  painter_.restore();
}

// Its text from the side where reading starts up to the first total, which stand under their titles.
void GridPainter::PaintHead(const GridGroups::Line& line, int top) {
  const Theme& theme = CurrentTheme();
  const GridGroups& groups = grid_.Groups();
  const auto current = grid_.DataSet()->RecNo();
  const bool head = line.IsHead();
  const bool marked =
      head && groups.Folded(line.group) && current && groups.ShownGroupOf(*current) == line.group;
  const int height = geometry_.RowHeight();
  const int padding = geometry_.Padding();
  const bool rightToLeft = geometry_.RightToLeft();
  const QRect whole(0, top, columns_.width() + geometry_.NumberWidth(), height);
  painter_.fillRect(whole, marked ? state_.focused ? theme.accentSoft : theme.selection
                           : head && groups.LevelOf(line.group) == 0 ? theme.header
                                                                     : theme.band);
  painter_.setFont(head ? bold_ : font_);
  painter_.setPen(theme.text);
  QRect text = whole;
  InParts(geometry_.RowsArea(), [&](std::size_t i) {
    const GridSpan& span = geometry_.Spans()[i];
    const QString total = ShownCell(groups.TotalText(line, *span.column), true);
    if (total.isEmpty()) return;
    const QRect cell = geometry_.ColumnRect(span, state_.offset, top, height);
    if (rightToLeft) {
      text.setLeft(std::max(text.left(), cell.right() + 1));
    } else {
      text.setRight(std::min(text.right(), cell.left() - 1));
    }
    painter_.setFont(FooterFont(total, cell.width() - 2 * padding));
    DrawCell(painter_, cell.adjusted(padding, 0, -padding, -1), total, span.column->Align(), rightToLeft);
  });
  const int within = kLevelPaddings * padding * static_cast<int>(groups.LevelOf(line.group));
  const int mark = 3 * padding + within;
  const QRectF arrow(rightToLeft ? whole.right() - mark + 2 : whole.left() + padding + within,
                     top + (height - 8) / 2.0, 8, 8);
  if (head)
    DrawArrow(painter_, arrow, theme.accent, groups.Folded(line.group) ? (rightToLeft ? 90 : 270) : 0);
  const int indent = head ? mark : mark + 3 * padding;
  painter_.setFont(head ? bold_ : font_);
  painter_.setPen(head ? theme.text : theme.mutedText);
  DrawCell(painter_, text.adjusted(rightToLeft ? padding : indent, 0, rightToLeft ? -indent : -padding, -1),
           (rightToLeft ? QString(QChar(0x200F)) : QString()) + ShownText(groups.HeadText(line)),
           TextAlign::Start, rightToLeft);
  painter_.setPen(theme.gridLine);
  painter_.drawLine(0, top + height - 1, whole.right(), top + height - 1);
}

void GridPainter::PaintRow(std::size_t row, int top) {
  const Theme& theme = CurrentTheme();
  const TADOQuery* query = grid_.DataSet();
  const bool current = query->RecNo() == row;
  const bool selected = !state_.firstRows && grid_.Selection().count(row) > 0;
  const int height = geometry_.RowHeight();
  const QRect line(0, top, columns_.width() + geometry_.NumberWidth(), height);
  const QColor back = current        ? state_.focused ? theme.accentSoft : theme.selection
                      : selected     ? theme.selection
                      : row % 2 == 1 ? theme.band
                                     : theme.surface;
  painter_.fillRect(line, back);
  InParts(geometry_.RowsArea(), [&](std::size_t i) {
    const GridSpan& span = geometry_.Spans()[i];
    PaintCell(row, i, geometry_.ColumnRect(span, state_.offset, top, height), current || selected);
  });
  painter_.setPen(theme.gridLine);
  painter_.drawLine(0, top + height - 1, line.right(), top + height - 1);
  if (geometry_.NumberWidth() > 0) PaintRowNumber(row, top, current);
}

void GridPainter::PaintCell(std::size_t row, std::size_t index, const QRect& cell, bool marked) {
  const GridSpan& span = geometry_.Spans()[index];
  const Theme& theme = CurrentTheme();
  const TCellStyle style = grid_.CellStyle(row, *span.column);
  QColor font = theme.text;
  if (style.Brush) {
    QColor given = QColor::fromRgb(*style.Brush);
    // A band across a cell shows the colour itself, such as that of a tag.
    const bool band = style.InsetTop > 0 || style.InsetBottom > 0;
    if (theme.dark && !style.Font && !band) given = Mixed(given, theme.surface, kDarkenedBrush);
    const QColor fill = marked && !band ? Mixed(given, theme.accentSoft, 0.45) : given;
    painter_.fillRect(
        cell.adjusted(0, geometry_.Pixels(style.InsetTop), 0, -geometry_.Pixels(style.InsetBottom) - 1),
        fill);
    font = ReadableOn(fill);
  }
  if (style.Font) font = QColor::fromRgb(*style.Font);
  if (!state_.firstRows && state_.isHit && state_.isHit(row, *span.column)) {
    painter_.fillRect(cell.adjusted(1, 2, -1, -3), theme.hit);
    font = theme.text;
  }
  painter_.setFont(style.Bold ? bold_ : font_);
  painter_.setPen(font);
  const QString text = ShownCell(table_->CellText(row, index), span.column->IsNumber());
  const int padding = geometry_.Padding();
  DrawCell(painter_, cell.adjusted(padding, 0, -padding, -1), text, span.column->Align(),
           geometry_.RightToLeft());
  painter_.setPen(theme.gridLine);
  const int edge = geometry_.RightToLeft() ? cell.left() : cell.right();
  painter_.drawLine(edge, cell.top(), edge, cell.bottom());
  if (state_.focused && state_.column == span.column && grid_.DataSet()->RecNo() == row) {
    painter_.setPen(theme.accent);
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(cell.adjusted(0, 0, -1, -2));
  }
}

void GridPainter::PaintRowNumber(std::size_t row, int top, bool current) {
  const Theme& theme = CurrentTheme();
  const QRect area = geometry_.NumbersArea();
  const QRect cell(area.left(), top, area.width(), geometry_.RowHeight() - 1);
  painter_.fillRect(cell, current ? theme.accent : theme.header);
  painter_.setFont(font_);
  painter_.setPen(current ? theme.accentText : theme.mutedText);
  DrawCell(painter_, cell, ShownDigits(QString::number(row + 1)), TextAlign::Center, geometry_.RightToLeft());
}

void GridPainter::PaintEmpty() {
  painter_.setFont(font_);
  painter_.setPen(CurrentTheme().mutedText);
  painter_.setLayoutDirection(Qt::RightToLeft);
  painter_.drawText(geometry_.RowsArea(), Qt::AlignCenter | Qt::TextWordWrap, EmptyGridText(grid_));
}

void GridPainter::PaintHeader() {
  if (geometry_.HeaderHeight() == 0) return;
  const Theme& theme = CurrentTheme();
  const QRect header(0, 0, columns_.width() + geometry_.NumberWidth(), geometry_.HeaderHeight());
  painter_.fillRect(header, theme.header);
  painter_.setFont(GridGeometry::HeaderFont(font_));
  if (geometry_.GroupHeight() > 0) PaintGroups();
  InParts(header, [this](std::size_t i) { PaintTitle(i); });
  if (geometry_.NumberWidth() > 0) {
    painter_.setPen(theme.mutedText);
    QRect box = geometry_.NumbersArea();
    box.setHeight(geometry_.HeaderHeight());
    painter_.drawText(box, Qt::AlignCenter, "#");
  }
  painter_.setPen(theme.border);
  painter_.drawLine(0, header.bottom(), header.right(), header.bottom());
}

void GridPainter::PaintGroups() {
  const Theme& theme = CurrentTheme();
  painter_.save();
  for (const GridGroup& group : geometry_.Groups()) {
    const QRect area = geometry_.AreaOf(geometry_.Spans()[group.first]);
    const QRect box = geometry_.GroupRect(group, state_.offset);
    if (box.right() < area.left() || box.left() > area.right()) continue;
    painter_.setClipRect(area);
    painter_.setPen(theme.mutedText);
    // In the visible part of a wide group.
    const int padding = geometry_.Padding();
    DrawCell(painter_, box.intersected(area).adjusted(padding, 0, -padding, 0), group.title,
             TextAlign::Center, geometry_.RightToLeft());
    painter_.setPen(theme.border);
    painter_.drawLine(box.left() + 4, box.bottom(), box.right() - 4, box.bottom());
    const int edge = geometry_.RightToLeft() ? box.left() : box.right();
    painter_.drawLine(edge, box.top(), edge, box.bottom());
  }
  painter_.restore();
}

// Where columns disappear under the fixed ones.
void GridPainter::PaintFixedEdge() {
  const QRect fixed = geometry_.FixedArea();
  if (fixed.width() == 0 || state_.offset == 0) return;
  constexpr int kShade = 7;
  const bool rightToLeft = geometry_.RightToLeft();
  const int edge = rightToLeft ? fixed.left() : fixed.right();
  QLinearGradient shade(edge, 0, rightToLeft ? edge - kShade : edge + kShade, 0);
  shade.setColorAt(0, QColor(0, 0, 0, CurrentTheme().dark ? 110 : 46));
  shade.setColorAt(1, QColor(0, 0, 0, 0));
  painter_.fillRect(QRect(rightToLeft ? edge - kShade : edge + 1, 0, kShade, fixed.height()), shade);
  painter_.fillRect(edge, 0, 1, fixed.height(), CurrentTheme().border);
}

void GridPainter::PaintTitle(std::size_t index) {
  const Theme& theme = CurrentTheme();
  const GridSpan& span = geometry_.Spans()[index];
  const bool grouped = !GroupOf(*span.column).isEmpty();
  const int top = grouped ? geometry_.GroupHeight() : 0;
  const QRect cell = geometry_.ColumnRect(span, state_.offset, top, geometry_.HeaderHeight() - top - 1);
  if (state_.hoveredTitle == index) painter_.fillRect(cell, theme.buttonHover);
  QRect box = cell.adjusted(geometry_.Padding() / 2, 1, -geometry_.Padding() / 2, -1);
  if (HasCondition(grid_, *span.column)) {
    box = geometry_.RightToLeft() ? box.adjusted(geometry_.FilterRoom(), 0, 0, 0)
                                  : box.adjusted(0, 0, -geometry_.FilterRoom(), 0);
  }
  PaintSortMark(*span.column, box);
  painter_.setPen(theme.text);
  DrawLines(painter_, box, geometry_.TitleLines(*span.column, box.width(), font_),
            LineHeight(painter_.font()));
  PaintFilterButton(index, cell);
  painter_.setPen(theme.border);
  const int edge = geometry_.RightToLeft() ? cell.left() : cell.right();
  painter_.drawLine(edge, cell.top() + 5, edge, cell.bottom() - 5);
}

// A funnel: filled where the column has a condition, drawn under the mouse and on the column that keys mean,
// over what the title has there.
void GridPainter::PaintFilterButton(std::size_t index, const QRect& title) {
  const TGridColumn& column = *geometry_.Spans()[index].column;
  const bool inForce = HasCondition(grid_, column);
  const bool hovered = state_.hoveredTitle == index;
  const bool meant = state_.focused && state_.column == &column;
  if (!inForce && (!state_.filters || column.Kind() == CellKind::Swatch || (!hovered && !meant))) return;
  const Theme& theme = CurrentTheme();
  const QRect box = geometry_.FilterBox(title);
  if (!inForce) painter_.fillRect(box.adjusted(-1, 0, 1, 0), hovered ? theme.buttonHover : theme.header);
  const QPointF center = QRectF(box).center();
  const double half = box.width() / 3.2;
  const auto at = [&](double x, double y) { return center + QPointF(x * half, y * half); };
  painter_.save();
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setPen(QPen(inForce ? theme.accent : theme.mutedText, 1.2));
  painter_.setBrush(inForce ? QBrush(theme.accent) : QBrush(Qt::NoBrush));
  painter_.drawPolygon(
      QPolygonF({at(-1, -0.9), at(1, -0.9), at(0.25, 0.1), at(0.25, 1), at(-0.25, 0.7), at(-0.25, 0.1)}));
  painter_.restore();
}

void GridPainter::PaintSortMark(const TGridColumn& column, QRect& box) {
  const auto& keys = grid_.SortKeys();
  const auto key = std::find_if(keys.begin(), keys.end(), [&](const TSortKey& each) {
    return SameText(each.FieldName, column.FieldName());
  });
  if (key == keys.end()) return;
  const int room = geometry_.SortRoom();
  const bool rightToLeft = geometry_.RightToLeft();
  const QRect mark(rightToLeft ? box.left() : box.right() - room + 1, box.top(), room, box.height());
  box = rightToLeft ? box.adjusted(room, 0, 0, 0) : box.adjusted(0, 0, -room, 0);
  const bool several = keys.size() > 1;
  const QPointF center = QRectF(mark).center() - QPointF(0, several ? 4 : 0);
  DrawArrow(painter_, QRectF(center.x() - 4, center.y() - 4, 8, 8), CurrentTheme().accent,
            key->Descending ? 0 : 180);
  if (!several) return;
  QFont small(painter_.font());
  small.setPointSizeF(small.pointSizeF() * 0.7);
  painter_.save();
  painter_.setFont(small);
  painter_.setPen(CurrentTheme().accent);
  painter_.drawText(QRectF(center.x() - 8, center.y() + 2, 16, 14), Qt::AlignCenter | Qt::TextDontClip,
                    ShownDigits(QString::number(key - keys.begin() + 1)));
  painter_.restore();
}

// A sum is wider than the figures above it: before it is cut, it is written smaller.
QFont GridPainter::FooterFont(const QString& text, int room) const {
  if (QFontMetrics(bold_).horizontalAdvance(text) <= room) return bold_;
  QFont font = bold_;
  const double size = bold_.pointSizeF();
  for (const double share : {0.92, 0.84, kSmallestFooter}) {
    font.setPointSizeF(size * share);
    if (QFontMetrics(font).horizontalAdvance(text) <= room) break;
  }
  return font;
}

void GridPainter::PaintFooter() {
  const Theme& theme = CurrentTheme();
  const int top = geometry_.RowsArea().bottom() + 1;
  const QRect footer(0, top, columns_.width() + geometry_.NumberWidth(), geometry_.FooterHeight());
  painter_.fillRect(footer, theme.header);
  InParts(footer, [&](std::size_t i) {
    const GridSpan& span = geometry_.Spans()[i];
    const QRect cell = geometry_.ColumnRect(span, state_.offset, top, footer.height());
    painter_.setPen(theme.text);
    const int padding = geometry_.Padding();
    const QRect box = cell.adjusted(padding, 1, -padding, 0);
    const QString text = state_.firstRows ? QString() : ShownCell(table_->FooterText(i), true);
    painter_.setFont(FooterFont(text, box.width()));
    DrawCell(painter_, box, text, span.column->Align(), geometry_.RightToLeft());
    painter_.setPen(theme.border);
    const int edge = geometry_.RightToLeft() ? cell.left() : cell.right();
    painter_.drawLine(edge, cell.top(), edge, cell.bottom());
  });
  painter_.setPen(theme.border);
  painter_.drawLine(0, top, footer.right(), top);
}

}  // namespace goods
