// What a screen reader meets in a table: titles, cells, the current one.
#pragma once

#include <QAccessibleWidget>
#include <cstddef>
#include <map>
#include <optional>
#include <utility>

namespace goods {

class GridWidget;
class TGridColumn;

// Gives every GridWidget its interface from now on, and windows of reports and their dialogs the role of
// windows; further calls do nothing.
void MakeGridsAccessible();

// Takes what readers are to hear. The toolkit does, and drops it while no reader listens, unless another sink
// is set; null: the toolkit again.
using ReaderSink = void (*)(QAccessibleEvent& event);
void SetReaderSink(ReaderSink sink);

// Tells that another cell is the current one, or that the rows are others.
void TellCurrentCell(GridWidget& table);
void TellRowsChanged(GridWidget& table);

// A table of the visible columns and of what stands below each other: rows, or with rows in groups their
// heads and totals, too. The head of a group is one cell over the columns before its first total; it says
// whether the group is open, and opens and folds it. The children are the titles, then the cells line by
// line, as far as an int counts them, then the parts beside the cells, such as the bar that finds. Cells are
// made as they are asked for, and hold places alone: they tell what stands there when they are asked.
class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit GridAccessible(GridWidget& table);
  ~GridAccessible() override;

  void* interface_cast(QAccessible::InterfaceType type) override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* focusChild() const override;
  QAccessibleInterface* childAt(int x, int y) const override;

  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int line, int column) const override;
  int columnCount() const override;
  int rowCount() const override;
  QString columnDescription(int column) const override;
  QString rowDescription(int line) const override;
  int selectedCellCount() const override;
  QList<QAccessibleInterface*> selectedCells() const override;
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override;
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override;
  bool isColumnSelected(int /*column*/) const override { return false; }
  bool isRowSelected(int line) const override;
  bool selectRow(int line) override;
  bool selectColumn(int /*column*/) override { return false; }
  bool unselectRow(int line) override;
  bool unselectColumn(int /*column*/) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

  GridWidget& Table() const { return table_; }
  // The place of the current cell; none without a current row.
  std::optional<std::pair<int, int>> CurrentCell() const;
  // The place of a cell among the children, -1 beyond what an int counts.
  int IndexOf(int line, int column) const;
  // Gives back the cells that were made, where they are many; to be called when nobody holds one.
  void ForgetManyCells();

 private:
  void ForgetCells();
  int CellCount() const;
  // line -1: the titles.
  QAccessibleInterface* Made(int line, int column) const;
  // Where the cell that covers a place begins.
  int FirstColumnOf(int line, int column) const;

  GridWidget& table_;
  mutable std::map<std::pair<int, int>, QAccessible::Id> made_;
};

}  // namespace goods
