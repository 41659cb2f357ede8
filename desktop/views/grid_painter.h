// Paints what is visible of a table, straight from its component.
#pragma once

#include <QFont>
#include <QPainter>
#include <QString>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/views/grid_geometry.h"
#include "host/components/grid_groups.h"

namespace goods {

struct GridPaintState {
  std::size_t firstLine = 0;
  bool firstRows = false;  // of a statement that is running: no totals, no groups, nothing selected
  int offset = 0;          // how far the columns are scrolled, in reading direction
  bool focused = false;
  std::optional<std::size_t> hoveredTitle;
  std::optional<int> insertionX;        // where a dragged column would go
  bool filters = false;                 // titles have a button for the column's filter
  const TGridColumn* column = nullptr;  // the one that keys mean
  // Whether a cell holds what is looked for.
  std::function<bool(std::size_t row, const TGridColumn& column)> isHit;
};

// What stands in the place of rows where there are none: that the list was stopped, else its own text;
// nothing while rows are on their way.
QString EmptyGridText(const TSmartDBGrid_QRT& grid);

// One cell is asked for its text and its style exactly once a painting, and only when it is visible.
class GridPainter {
 public:
  GridPainter(QPainter& painter, const TSmartDBGrid_QRT& grid, const GridGeometry& geometry,
              const GridPaintState& state, const QFont& font);
  void Paint();

 private:
  void PaintRows();
  void PaintRow(std::size_t row, int top);
  // The head of a group, or what its rows of one unit of measure come to.
  void PaintHead(const GridGroups::Line& line, int top);
  void PaintCell(std::size_t row, std::size_t index, const QRect& cell, bool marked);
  void PaintRowNumber(std::size_t row, int top, bool current);
  void PaintHeader();
  void PaintGroups();
  // Calls paint for the columns in view, those that are scrolled first, each kind inside its own part of the
  // band.
  template <typename PaintColumn>
  void InParts(const QRect& band, PaintColumn&& paint);
  void PaintFixedEdge();
  void PaintTitle(std::size_t index);
  void PaintFilterButton(std::size_t index, const QRect& title);
  void PaintSortMark(const TGridColumn& column, QRect& box);
  QFont FooterFont(const QString& text, int room) const;
  void PaintFooter();
  void PaintEmpty();
  QPainter& painter_;
  const TSmartDBGrid_QRT& grid_;
  std::unique_ptr<IReportTable> table_;  // its columns are the geometry's spans
  const GridGeometry& geometry_;
  const GridPaintState& state_;
  QFont font_;
  QFont bold_;
  QRect columns_;
  std::vector<std::size_t> inView_;  // places of the columns that can be seen
};

}  // namespace goods
