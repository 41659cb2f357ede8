// Where the parts of a table lie: columns in reading direction, header, rows, footer.
#pragma once

#include <QFont>
#include <QRect>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/components/grid.h"

class QWidget;

namespace goods {

struct GridSpan {
  TGridColumn* column;
  int start;  // from the first column's beginning, in reading direction
  int width;
  bool fixed;  // stays where it is when the others are scrolled
};

// Visible columns beside each other with the same group title, by their places among the spans. Where the
// fixed columns end, a group ends too.
struct GridGroup {
  QString title;
  std::size_t first;
  std::size_t last;
};

// The group over a column and the column's own title, from "group|title".
QString GroupOf(const TGridColumn& column);
QString TitleOf(const TGridColumn& column);

// Without any title the table has no header: it is a list.
class GridGeometry {
 public:
  // Works everything out anew: sizes come from the columns, the font and the room of the viewport.
  void Update(const TSmartDBGrid_QRT& grid, const QWidget& viewport);

  const std::vector<GridSpan>& Spans() const { return spans_; }
  const std::vector<GridGroup>& Groups() const { return groups_; }
  int ContentWidth() const { return contentWidth_; }
  int RowHeight() const { return rowHeight_; }
  int GroupHeight() const { return groupHeight_; }
  int HeaderHeight() const { return headerHeight_; }
  int FooterHeight() const { return footerHeight_; }
  int NumberWidth() const { return numberWidth_; }
  bool RightToLeft() const { return rightToLeft_; }
  int Padding() const { return padding_; }
  // A measure of the component, which is in pixels at 96 dpi.
  int Pixels(int measure) const { return measure * dpi_ / kReferenceDpi; }

  // Room for rows and columns, without header, footer and row numbers.
  QRect RowsArea() const;
  QRect ColumnsArea() const;
  QRect NumbersArea() const;
  // The parts of the columns' area that stand still and that are scrolled.
  QRect FixedArea() const;
  QRect ScrolledArea() const;
  QRect AreaOf(const GridSpan& span) const { return span.fixed ? FixedArea() : ScrolledArea(); }
  // Whether any of the column can be seen.
  bool InView(const GridSpan& span, int offset) const;
  int WholeRows() const;

  // A column's horizontal place; offset is how far the content is scrolled.
  QRect ColumnRect(const GridSpan& span, int offset, int top, int height) const;
  QRect GroupRect(const GridGroup& group, int offset) const;
  std::optional<std::size_t> SpanAt(int x, int offset) const;
  std::optional<std::size_t> GroupAt(const QPoint& point, int offset) const;
  // The span whose far edge is near x.
  std::optional<std::size_t> EdgeAt(int x, int offset) const;

  // A title as it is wrapped into room, and the room that its sort mark takes.
  const QStringList& TitleLines(const TGridColumn& column, int room, const QFont& font) const;
  int SortRoom() const { return 2 * padding_ + 2; }
  // The place of the filter's button in a title, at its far end.
  int FilterRoom() const { return 3 * padding_; }
  QRect FilterBox(const QRect& title) const {
    const int left =
        rightToLeft_ ? title.left() + padding_ / 2 + 2 : title.right() - FilterRoom() - padding_ / 2 - 1;
    return {left, title.center().y() - FilterRoom() / 2, FilterRoom(), FilterRoom()};
  }

  static QFont HeaderFont(const QFont& font);

 private:
  void PlaceColumns(const TSmartDBGrid_QRT& grid, const QWidget& viewport);
  void FixColumns(const TSmartDBGrid_QRT& grid);
  void FindGroups(const QFont& font);
  void MeasureHeader(const TSmartDBGrid_QRT& grid, const QWidget& viewport);

  // What was worked out of a caption, for as long as it stays: wrapping hundreds of titles at every step of
  // the current row would be felt.
  struct Title {
    std::string caption;
    QString group;
    QString own;
    int room = -1;
    QStringList lines;
  };
  Title& TitleFor(const TGridColumn& column, const QFont& font) const;

  static constexpr int kReferenceDpi = 96;

  std::vector<GridSpan> spans_;
  std::vector<GridGroup> groups_;
  mutable std::unordered_map<const TGridColumn*, Title> titles_;
  mutable QFont titlesFont_;
  mutable bool titlesDigits_ = false;
  QSize size_;
  int dpi_ = kReferenceDpi;
  int fixedWidth_ = 0;
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
