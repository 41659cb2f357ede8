#include "desktop/views/grid_accessible.h"

#include <QAccessible>
#include <algorithm>
#include <climits>

#include "desktop/views/form_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

// Cells that a reader may have asked for and forgotten.
constexpr std::size_t kMostMadeCells = 4096;
constexpr int kTitleRow = -1;

class CellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  CellAccessible(GridWidget& table, int row, int column) : table_(&table), row_(row), column_(column) {}

  bool isValid() const override { return table_ && Column() != nullptr && row_ < Rows(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(table_); }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

  QAccessible::Role role() const override {
    return IsTitle() ? QAccessible::ColumnHeader : QAccessible::Cell;
  }

  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    const TGridColumn& column = *Column();
    if (kind == QAccessible::Name || kind == QAccessible::Value) {
      if (IsTitle()) return kind == QAccessible::Name ? TitleOf(column) : QString();
      return ShownCell(table_->Grid().CellText(static_cast<std::size_t>(row_), column), column.IsNumber());
    }
    return kind == QAccessible::Description && !IsTitle() ? TitleOf(column) : QString();
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  QRect rect() const override {
    if (!isValid()) return {};
    const QRect cell = IsTitle() ? table_->TitleRect(*Column())
                                 : table_->CellRect(static_cast<std::size_t>(row_), *Column());
    return {table_->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    state.readOnly = true;
    if (IsTitle()) return state;
    state.selectable = true;
    state.focusable = true;
    state.selected = isSelected();
    const TADOQuery* query = table_->Grid().DataSet();
    const bool current =
        query->RecNo() == static_cast<std::size_t>(row_) && table_->CurrentColumn() == Column();
    state.active = current;
    state.focused = current && table_->hasFocus();
    const QRect cell = table_->CellRect(static_cast<std::size_t>(row_), *Column());
    state.offscreen = !cell.intersects(table_->Geometry().RowsArea());
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                   : nullptr;
  }

  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QList<QAccessibleInterface*> columnHeaderCells() const override {
    auto* table = dynamic_cast<GridAccessible*>(parent());
    QList<QAccessibleInterface*> cells;
    if (table != nullptr && !IsTitle()) cells << table->child(column_);
    return cells;
  }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return column_; }
  int rowIndex() const override { return row_; }
  bool isSelected() const override {
    const auto* table = dynamic_cast<GridAccessible*>(parent());
    return table != nullptr && !IsTitle() && table->isRowSelected(row_);
  }
  QAccessibleInterface* table() const override { return parent(); }

 private:
  bool IsTitle() const { return row_ == kTitleRow; }
  int Rows() const {
    return static_cast<int>(
        std::min<std::size_t>(table_->Grid().RowCount(), static_cast<std::size_t>(INT_MAX)));
  }
  const TGridColumn* Column() const {
    const auto& spans = table_->Geometry().Spans();
    return column_ >= 0 && static_cast<std::size_t>(column_) < spans.size()
               ? spans[static_cast<std::size_t>(column_)].column
               : nullptr;
  }

  QPointer<GridWidget> table_;
  int row_;
  int column_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  auto* table = dynamic_cast<GridWidget*>(object);
  return table == nullptr ? nullptr : new GridAccessible(*table);
}

}  // namespace

void MakeGridsAccessible() {
  static const bool kInstalled = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  static_cast<void>(kInstalled);
}

void TellCurrentCell(GridWidget& table) {
  if (!table.hasFocus()) return;
  auto* accessible = dynamic_cast<GridAccessible*>(QAccessible::queryAccessibleInterface(&table));
  if (accessible == nullptr) return;
  accessible->ForgetManyCells();
  const auto cell = accessible->CurrentCell();
  const int index = cell ? accessible->IndexOf(cell->first, cell->second) : -1;
  if (index < 0) return;
  QAccessibleEvent event(&table, QAccessible::Focus);
  event.setChild(index);
  QAccessible::updateAccessibility(&event);
}

void TellRowsChanged(GridWidget& table) {
  QAccessibleTableModelChangeEvent event(&table, QAccessibleTableModelChangeEvent::ModelReset);
  QAccessible::updateAccessibility(&event);
}

GridAccessible::GridAccessible(GridWidget& table)
    : QAccessibleWidget(&table, QAccessible::Table), table_(table) {}

GridAccessible::~GridAccessible() { ForgetCells(); }

void GridAccessible::ForgetCells() {
  for (const auto& [place, id] : made_) QAccessible::deleteAccessibleInterface(id);
  made_.clear();
}

void GridAccessible::ForgetManyCells() {
  if (made_.size() > kMostMadeCells) ForgetCells();
}

void* GridAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

int GridAccessible::columnCount() const { return static_cast<int>(table_.Geometry().Spans().size()); }

int GridAccessible::rowCount() const {
  return static_cast<int>(std::min<std::size_t>(table_.Grid().RowCount(), static_cast<std::size_t>(INT_MAX)));
}

int GridAccessible::CellCount() const {
  const int columns = columnCount();
  if (columns == 0) return 0;
  const int most = INT_MAX / 2 / columns;
  return (std::min(rowCount(), most) + 1) * columns;
}

int GridAccessible::childCount() const { return CellCount() + QAccessibleWidget::childCount(); }

QAccessibleInterface* GridAccessible::Made(int row, int column) const {
  const auto found = made_.find({row, column});
  if (found != made_.end()) return QAccessible::accessibleInterface(found->second);
  auto* cell = new CellAccessible(table_, row, column);
  made_.emplace(std::pair(row, column), QAccessible::registerAccessibleInterface(cell));
  return cell;
}

QAccessibleInterface* GridAccessible::child(int index) const {
  const int cells = CellCount();
  if (index < 0) return nullptr;
  if (index >= cells) return QAccessibleWidget::child(index - cells);
  return Made(index / columnCount() - 1, index % columnCount());
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const {
  if (child == nullptr) return -1;
  const auto* cell = dynamic_cast<const CellAccessible*>(child);
  if (cell == nullptr) {
    const int index = QAccessibleWidget::indexOfChild(child);
    return index < 0 ? -1 : CellCount() + index;
  }
  if (!cell->isValid() || cell->parent() != this) return -1;
  return IndexOf(cell->rowIndex(), cell->columnIndex());
}

int GridAccessible::IndexOf(int row, int column) const {
  const int columns = columnCount();
  return columns > 0 && row < CellCount() / columns - 1 ? (row + 1) * columns + column : -1;
}

std::optional<std::pair<int, int>> GridAccessible::CurrentCell() const {
  const TADOQuery* query = table_.Grid().DataSet();
  if (query == nullptr || !query->RecNo()) return std::nullopt;
  const auto& spans = table_.Geometry().Spans();
  for (std::size_t i = 0; i < spans.size(); ++i) {
    if (spans[i].column == table_.CurrentColumn())
      return std::pair(static_cast<int>(*query->RecNo()), static_cast<int>(i));
  }
  return std::nullopt;
}

QAccessibleInterface* GridAccessible::focusChild() const {
  const auto cell = table_.hasFocus() ? CurrentCell() : std::nullopt;
  return cell ? cellAt(cell->first, cell->second) : QAccessibleWidget::focusChild();
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const {
  const QPoint point = table_.viewport()->mapFromGlobal(QPoint(x, y));
  if (!table_.viewport()->rect().contains(point)) return QAccessibleWidget::childAt(x, y);
  const auto& spans = table_.Geometry().Spans();
  const auto row = table_.RowAt(point);
  for (std::size_t i = 0; i < spans.size(); ++i) {
    if (row && table_.CellRect(*row, *spans[i].column).contains(point))
      return Made(static_cast<int>(*row), static_cast<int>(i));
    if (table_.TitleRect(*spans[i].column).contains(point)) return Made(kTitleRow, static_cast<int>(i));
  }
  return nullptr;
}

QAccessibleInterface* GridAccessible::cellAt(int row, int column) const {
  if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
  return Made(row, column);
}

QString GridAccessible::columnDescription(int column) const {
  if (column < 0 || column >= columnCount()) return {};
  return TitleOf(*table_.Geometry().Spans()[static_cast<std::size_t>(column)].column);
}

QString GridAccessible::rowDescription(int row) const {
  if (row < 0 || row >= rowCount()) return {};
  return table_.FactsOf(static_cast<std::size_t>(row)).replace('\n', "، ");
}

// The selected rows, or the current one where none is selected.
QList<int> GridAccessible::selectedRows() const {
  QList<int> rows;
  for (const std::size_t row : table_.Grid().Selection()) rows << static_cast<int>(row);
  const TADOQuery* query = table_.Grid().DataSet();
  if (rows.isEmpty() && query != nullptr && query->RecNo()) rows << static_cast<int>(*query->RecNo());
  return rows;
}

int GridAccessible::selectedRowCount() const { return static_cast<int>(selectedRows().size()); }

bool GridAccessible::isRowSelected(int row) const {
  const std::set<std::size_t>& selection = table_.Grid().Selection();
  if (!selection.empty()) return selection.contains(static_cast<std::size_t>(std::max(row, 0)));
  const TADOQuery* query = table_.Grid().DataSet();
  return row >= 0 && query != nullptr && query->RecNo() == static_cast<std::size_t>(row);
}

int GridAccessible::selectedCellCount() const { return selectedRowCount() * columnCount(); }

QList<QAccessibleInterface*> GridAccessible::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  for (const int row : selectedRows()) {
    for (int column = 0; column < columnCount(); ++column) {
      if (static_cast<std::size_t>(cells.size()) >= kMostMadeCells) return cells;
      cells << cellAt(row, column);
    }
  }
  return cells;
}

bool GridAccessible::selectRow(int row) {
  if (row < 0 || row >= rowCount()) return false;
  table_.GoToRow(static_cast<std::size_t>(row));
  return true;
}

bool GridAccessible::unselectRow(int row) {
  std::set<std::size_t> rows = table_.Grid().Selection();
  if (row < 0 || rows.erase(static_cast<std::size_t>(row)) == 0) return false;
  table_.Grid().SetSelection(std::move(rows));
  return true;
}

}  // namespace goods
