#include "desktop/views/grid_painter.h"

#include <algorithm>

#include "desktop/views/shown_text.h"
#include "desktop/views/style.h"
#include "desktop/views/theme.h"
#include "host/core/text.h"

namespace goods {
namespace {

// The colours of drawing events are made for light paper; on a dark one they are toned down.
constexpr double kDarkenedBrush = 0.6;

QColor Mixed(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](int x, int y) { return qRound(x + (y - x) * share); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

}  // namespace

GridPainter::GridPainter(QPainter& painter, const TSmartDBGrid_QRT& grid, const GridGeometry& geometry,
                         const GridPaintState& state, const QFont& font)
    : painter_(painter),
      grid_(grid),
      geometry_(geometry),
      state_(state),
      font_(font),
      bold_(font),
      columns_(geometry.ColumnsArea()) {
  bold_.setBold(true);
}

void GridPainter::Paint() {
  PaintRows();
  PaintHeader();
  if (grid_.ShowFooter) PaintFooter();
  if (state_.insertionX) {
    painter_.fillRect(*state_.insertionX - 1, 0, 3, geometry_.HeaderHeight(), CurrentTheme().accent);
  }
}

void GridPainter::PaintRows() {
  const QRect area = geometry_.RowsArea();
  painter_.fillRect(area, CurrentTheme().surface);
  const std::size_t count = grid_.Table().RowCount();
  if (count == 0) return PaintEmpty();
  painter_.save();
  painter_.setClipRect(area);
  int top = area.top();
  for (std::size_t row = state_.firstRow; row < count && top <= area.bottom(); ++row) {
    PaintRow(row, top);
    top += geometry_.RowHeight();
  }
  painter_.restore();
}

void GridPainter::PaintRow(std::size_t row, int top) {
  const Theme& theme = CurrentTheme();
  const TADOQuery* query = grid_.DataSet();
  const bool current = query->RecNo() == row;
  const bool selected = grid_.Selection().count(row) > 0;
  const int height = geometry_.RowHeight();
  const QRect line(0, top, columns_.width() + geometry_.NumberWidth(), height);
  const QColor back = current        ? state_.focused ? theme.accentSoft : theme.selection
                      : selected     ? theme.selection
                      : row % 2 == 1 ? theme.band
                                     : theme.surface;
  painter_.fillRect(line, back);
  painter_.save();
  painter_.setClipRect(columns_.intersected(geometry_.RowsArea()));
  for (const GridSpan& span : geometry_.Spans()) {
    const QRect cell = geometry_.ColumnRect(span, state_.offset, top, height);
    if (InView(cell)) PaintCell(row, span, cell, current || selected);
  }
  painter_.restore();
  painter_.setPen(theme.gridLine);
  painter_.drawLine(0, top + height - 1, line.right(), top + height - 1);
  if (geometry_.NumberWidth() > 0) PaintRowNumber(row, top, current);
}

void GridPainter::PaintCell(std::size_t row, const GridSpan& span, const QRect& cell, bool marked) {
  const Theme& theme = CurrentTheme();
  const TCellStyle style = grid_.CellStyle(row, *span.column);
  QColor font = theme.text;
  if (style.Brush) {
    QColor given = QColor::fromRgb(*style.Brush);
    if (theme.dark && !style.Font) given = Mixed(given, theme.surface, kDarkenedBrush);
    const QColor fill = marked ? Mixed(given, theme.accentSoft, 0.45) : given;
    painter_.fillRect(cell.adjusted(0, style.InsetTop, 0, -style.InsetBottom - 1), fill);
    font = ReadableOn(fill);
  }
  if (style.Font) font = QColor::fromRgb(*style.Font);
  painter_.setFont(style.Bold ? bold_ : font_);
  painter_.setPen(font);
  const QString text = ShownCell(grid_.CellText(row, *span.column), span.column->IsNumber());
  const int padding = geometry_.Padding();
  DrawCell(painter_, cell.adjusted(padding, 0, -padding, -1), text, span.column->Align(),
           geometry_.RightToLeft());
  painter_.setPen(theme.gridLine);
  const int edge = geometry_.RightToLeft() ? cell.left() : cell.right();
  painter_.drawLine(edge, cell.top(), edge, cell.bottom());
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
  painter_.drawText(geometry_.RowsArea(), Qt::AlignCenter | Qt::TextWordWrap, ShownText(grid_.EmptyText()));
}

void GridPainter::PaintHeader() {
  const Theme& theme = CurrentTheme();
  const QRect header(0, 0, columns_.width() + geometry_.NumberWidth(), geometry_.HeaderHeight());
  painter_.fillRect(header, theme.header);
  painter_.setFont(GridGeometry::HeaderFont(font_));
  painter_.save();
  painter_.setClipRect(columns_.intersected(header));
  if (geometry_.GroupHeight() > 0) PaintGroups();
  for (std::size_t i = 0; i < geometry_.Spans().size(); ++i) PaintTitle(i, geometry_.Spans()[i]);
  painter_.restore();
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
  const auto& spans = geometry_.Spans();
  for (std::size_t from = 0; from < spans.size();) {
    const QString group = GroupOf(*spans[from].column);
    std::size_t to = from + 1;
    while (to < spans.size() && !group.isEmpty() && GroupOf(*spans[to].column) == group) ++to;
    if (!group.isEmpty()) {
      QRect box = geometry_.ColumnRect(spans[from], state_.offset, 0, geometry_.GroupHeight());
      for (std::size_t i = from + 1; i < to; ++i)
        box = box.united(geometry_.ColumnRect(spans[i], state_.offset, 0, geometry_.GroupHeight()));
      painter_.setPen(theme.mutedText);
      // In the visible part of a wide group.
      DrawCell(painter_, box.intersected(columns_), group, TextAlign::Center, geometry_.RightToLeft());
      painter_.setPen(theme.border);
      painter_.drawLine(box.left() + 4, box.bottom(), box.right() - 4, box.bottom());
      const int edge = geometry_.RightToLeft() ? box.left() : box.right();
      painter_.drawLine(edge, box.top(), edge, box.bottom());
    }
    from = to;
  }
}

void GridPainter::PaintTitle(std::size_t index, const GridSpan& span) {
  const Theme& theme = CurrentTheme();
  const bool grouped = !GroupOf(*span.column).isEmpty();
  const int top = grouped ? geometry_.GroupHeight() : 0;
  const QRect cell = geometry_.ColumnRect(span, state_.offset, top, geometry_.HeaderHeight() - top - 1);
  if (!InView(cell)) return;
  if (state_.hoveredTitle == index) painter_.fillRect(cell, theme.buttonHover);
  QRect box = cell.adjusted(geometry_.Padding() / 2, 1, -geometry_.Padding() / 2, -1);
  PaintSortMark(*span.column, box);
  painter_.setPen(theme.text);
  DrawLines(painter_, box, geometry_.TitleLines(*span.column, box.width(), font_),
            LineHeight(painter_.font()));
  painter_.setPen(theme.border);
  const int edge = geometry_.RightToLeft() ? cell.left() : cell.right();
  painter_.drawLine(edge, cell.top() + 5, edge, cell.bottom() - 5);
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

void GridPainter::PaintFooter() {
  const Theme& theme = CurrentTheme();
  const int top = geometry_.RowsArea().bottom() + 1;
  const QRect footer(0, top, columns_.width() + geometry_.NumberWidth(), geometry_.FooterHeight());
  painter_.fillRect(footer, theme.header);
  painter_.save();
  painter_.setClipRect(columns_.intersected(footer));
  painter_.setFont(bold_);
  for (const GridSpan& span : geometry_.Spans()) {
    const QRect cell = geometry_.ColumnRect(span, state_.offset, top, footer.height());
    if (!InView(cell)) continue;
    painter_.setPen(theme.text);
    const int padding = geometry_.Padding();
    DrawCell(painter_, cell.adjusted(padding, 1, -padding, 0),
             ShownCell(grid_.FooterText(*span.column), true), span.column->Align(), geometry_.RightToLeft());
    painter_.setPen(theme.border);
    const int edge = geometry_.RightToLeft() ? cell.left() : cell.right();
    painter_.drawLine(edge, cell.top(), edge, cell.bottom());
  }
  painter_.restore();
  painter_.setPen(theme.border);
  painter_.drawLine(0, top, footer.right(), top);
}

}  // namespace goods
