// Where the parts of a table lie: columns in reading direction, header, rows, footer.
#pragma once

#include <QFont>
#include <QRect>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "host/components/grid.h"

class QWidget;

namespace goods {

struct GridSpan {
  TGridColumn* column;
  int start;  // from the first column's beginning, in reading direction
  int width;
};

// The group over a column and the column's own title, from "group|title".
QString GroupOf(const TGridColumn& column);
QString TitleOf(const TGridColumn& column);

class GridGeometry {
 public:
  // Works everything out anew: sizes come from the columns, the font and the room of the viewport.
  void Update(const TSmartDBGrid_QRT& grid, const QWidget& viewport);

  const std::vector<GridSpan>& Spans() const { return spans_; }
  int ContentWidth() const { return contentWidth_; }
  int RowHeight() const { return rowHeight_; }
  int GroupHeight() const { return groupHeight_; }
  int HeaderHeight() const { return headerHeight_; }
  int FooterHeight() const { return footerHeight_; }
  int NumberWidth() const { return numberWidth_; }
  bool RightToLeft() const { return rightToLeft_; }
  int Padding() const { return padding_; }

  // Room for rows and columns, without header, footer and row numbers.
  QRect RowsArea() const;
  QRect ColumnsArea() const;
  QRect NumbersArea() const;
  int WholeRows() const;

  // A column's horizontal place; offset is how far the content is scrolled.
  QRect ColumnRect(const GridSpan& span, int offset, int top, int height) const;
  std::optional<std::size_t> SpanAt(int x, int offset) const;
  // The span whose far edge is near x.
  std::optional<std::size_t> EdgeAt(int x, int offset) const;

  // A title as it is wrapped into room, and the room that its sort mark takes.
  QStringList TitleLines(const TGridColumn& column, int room, const QFont& font) const;
  int SortRoom() const { return 2 * padding_ + 2; }

  static QFont HeaderFont(const QFont& font);

 private:
  void PlaceColumns(const TSmartDBGrid_QRT& grid, const QWidget& viewport);
  void MeasureHeader(const TSmartDBGrid_QRT& grid, const QWidget& viewport);

  std::vector<GridSpan> spans_;
  QSize size_;
  int contentWidth_ = 0;
  int rowHeight_ = 0;
  int groupHeight_ = 0;
  int headerHeight_ = 0;
  int footerHeight_ = 0;
  int numberWidth_ = 0;
  int padding_ = 0;
  bool rightToLeft_ = true;
};

}  // namespace goods
