// The view of a table.
#pragma once

#include <QAbstractScrollArea>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/views/control_view.h"
#include "desktop/views/grid_geometry.h"
#include "desktop/views/grid_painter.h"
#include "desktop/views/typed_jump.h"
#include "host/components/grid_groups.h"

namespace goods {

class FilterChips;
class FindBar;
class GridControlView;

// Asks the component for the visible cells only, so that a million rows cost what a thousand cost. Its own
// state is where it is scrolled to and what the mouse is doing; everything else is the component's.
class GridWidget : public QAbstractScrollArea {
 public:
  GridWidget(GridControlView& view, TSmartDBGrid_QRT& grid, QWidget* parent);

  TSmartDBGrid_QRT& Grid() const { return grid_; }
  const GridGeometry& Geometry() const { return geometry_; }
  // Follows the component: columns, rows, current row.
  void Follow();

  // In a table with groups the first line may be a head: its first row then.
  std::size_t FirstRow() const;
  // Places on the viewport, for tool tips and tests. Rows and columns need not be visible.
  QRect CellRect(std::size_t row, const TGridColumn& column) const;
  QRect TitleRect(const TGridColumn& column) const;
  std::optional<std::size_t> RowAt(const QPoint& point) const;
  // The group whose head is there, and the place of a group's head.
  std::optional<std::size_t> HeadAt(const QPoint& point) const;
  QRect HeadRect(std::size_t group) const;
  // What stands below each other: rows, or where they are in groups also heads and totals of units.
  bool Grouped() const;
  std::size_t LineCount() const;
  GridGroups::Line LineAt(std::size_t line) const;
  // That of the head where the row is folded away.
  std::size_t LineOf(std::size_t row) const;
  // As wide as the viewport.
  QRect LineRect(std::size_t line) const;
  std::optional<std::size_t> LineUnder(const QPoint& point) const;
  // Groups the rows by a column alone, by nothing for null; by a further one within the groups; no longer by
  // it.
  void GroupBy(const TGridColumn* column, bool byMonth = false);
  void GroupWithin(const TGridColumn& column, bool byMonth = false);
  void NoLongerGroupBy(const TGridColumn& column);
  void FoldGroup(std::size_t group, bool folded);
  void FoldGroups(bool folded);
  // Opens one level more of all groups, or folds the innermost that is open.
  void OpenOneLevel(bool more);
  // Makes a row the current one, without a selection.
  void GoToRow(std::size_t row) { GoTo(row, false); }
  // Opens the bar that finds a text in the table.
  void Find();
  // Opens the filter of a column, with something to search for among its values; of the current column where
  // none is named.
  void FilterColumn(const TGridColumn* column = nullptr, const std::string& search = "");
  // The button in a column's title that does so; empty where the table has no filters.
  QRect FilterRect(const TGridColumn& column) const;
  // The column that keys mean, marked in the current row: the one that was clicked or gone to by Ctrl and the
  // arrows last, else the first; null in a table without columns.
  TGridColumn* CurrentColumn() const;
  // What a row is beyond its columns, a line for each fact, as it is shown.
  QString FactsOf(std::size_t row) const;
  QRect GroupRect(const GridGroup& group) const { return geometry_.GroupRect(group, Offset()); }
  QSize sizeHint() const override;

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  enum class Gesture { None, Press, Resize, Move };

  int Offset() const;
  void UpdateScrollBars();
  void WatchFirstRows();
  bool CurrentInView() const;
  void ShowCurrent();
  void MoveBy(qint64 rows, bool extend);
  void GoTo(std::size_t row, bool extend);
  void SelectTo(std::size_t row);
  void RowPressed(std::size_t row, Qt::KeyboardModifiers modifiers);
  bool ShowCellTip(const QPoint& point, const QPoint& global);
  bool ShowFooterTip(std::size_t span, const QPoint& global);
  void DescribeCurrent();

  // Groups and their lines, in grid_lines.cpp.
  std::size_t FirstLine() const;
  void MoveLines(qint64 lines, bool extend);
  void GroupByCurrent(bool within);
  bool FoldKey(const QKeyEvent& event);
  bool GroupKey(const QKeyEvent& event);

  // Finding and jumping, in grid_search.cpp.
  void MakeBars();
  void PlaceBars();
  // True when rows, columns or lines are others than before.
  bool WatchRows();
  bool TypedKey(const QKeyEvent& event);
  bool ColumnKey(const QKeyEvent& event);
  void GoToColumn(const TGridColumn& column);

  // The header, in grid_header.cpp.
  bool InHeader(const QPoint& point) const { return point.y() < geometry_.HeaderHeight(); }
  void HeaderPressed(const QPoint& point);
  void HeaderMoved(const QPoint& point);
  void HeaderReleased(const QPoint& point, Qt::KeyboardModifiers modifiers);
  void HeaderHovered(const QPoint& point);
  void FitColumn(TGridColumn& column);
  std::size_t DropPlace(const QPoint& point) const;
  // The edge that the mouse can take hold of there: in the line of the groups that of a group's last column.
  std::optional<std::size_t> EdgeUnder(const QPoint& point) const;
  void ScrollWhileDragging(const QPoint& point);
  void MoveDragged(std::size_t place);

  GridControlView& view_;
  TSmartDBGrid_QRT& grid_;
  GridGeometry geometry_;
  GridPaintState paint_;
  std::optional<std::size_t> shownRow_;  // the current row when it was last scrolled to
  std::optional<std::size_t> anchor_;    // where a selection by Shift begins
  Gesture gesture_ = Gesture::None;
  std::vector<TGridColumn*> dragged_;  // more than one where a group is moved
  bool pressedGroup_ = false;
  bool drawingFailed_ = false;
  QPoint pressedAt_;
  int widthAtPress_ = 0;

  // Which rows and columns were there when they were last looked at.
  struct RowsSeen {
    const TADOQuery* query = nullptr;
    const RowStore* store = nullptr;
    const std::uint32_t* index = nullptr;
    std::size_t count = 0;
    std::size_t changes = 0;
    std::vector<std::string> fields{};
    bool operator==(const RowsSeen&) const = default;
  };
  RowsSeen rowsSeen_;
  std::size_t linesSeen_ = 0;
  std::size_t rowsChanged_ = 0;  // how often the source has told of other rows
  TDataSource* source_ = nullptr;
  Subscription sourceChanged_;
  const TADOQuery* query_ = nullptr;  // that firstRowsCame_ listens to
  Subscription firstRowsCame_;
  FilterChips* chips_ = nullptr;
  FindBar* find_ = nullptr;
  std::string currentColumn_;  // the name of the column that keys mean; empty before one was chosen
  TypedJump jump_;
};

class GridControlView : public ControlView {
 public:
  GridControlView(FormView& form, TSmartDBGrid_QRT& grid, QWidget* parent);
  QWidget* FocusWidget() const override { return grid_; }
  void Refresh() override;
  GridWidget& Grid() const { return *grid_; }

  // Runs what the user's action on the grid causes.
  void Do(const std::function<void()>& action);
  // Whether the window gave the grid the common pop-up menu.
  bool HasMenu() const;

 private:
  GridWidget* grid_;
};

}  // namespace goods
