#include "desktop/views/grid_accessible.h"

#include <QAccessible>
#include <QScrollBar>
#include <algorithm>
#include <climits>

#include "desktop/views/form_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/shown_text.h"
#include "host/base/base_dock.h"

namespace goods {
namespace {

// Cells that a reader may have asked for and forgotten.
constexpr std::size_t kMostMadeCells = 4096;
constexpr int kTitleRow = -1;

int Lines(const GridWidget& table) {
  return static_cast<int>(std::min<std::size_t>(table.LineCount(), static_cast<std::size_t>(INT_MAX)));
}

// So many columns does the text of a line that is no row take: those before the first total, at least one.
int HeadColumns(const GridWidget& table, const GridGroups::Line& line) {
  const auto& spans = table.Geometry().Spans();
  std::size_t columns = 1;
  while (columns < spans.size() && table.Grid().Groups().TotalText(line, *spans[columns].column).empty())
    ++columns;
  return static_cast<int>(columns);
}

// A title, a cell of a row, the head of a group over as many columns as its text may take, or one of its
// totals.
class CellAccessible : public QAccessibleInterface,
                       public QAccessibleTableCellInterface,
                       public QAccessibleActionInterface {
 public:
  CellAccessible(GridWidget& table, int line, int column) : table_(&table), line_(line), column_(column) {}

  bool isValid() const override { return table_ && Column() != nullptr && line_ < Lines(*table_); }
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
    if (kind == QAccessible::Name) return Name();
    if (kind == QAccessible::Value) return IsTitle() ? QString() : Name();
    const bool underTitle = kind == QAccessible::Description && !IsTitle() && !IsHead();
    return underTitle ? TitleOf(*Column()) : QString();
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  QRect rect() const override {
    const QRect cell = Place();
    return cell.isEmpty() ? QRect() : QRect(table_->viewport()->mapToGlobal(cell.topLeft()), cell.size());
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    state.readOnly = true;
    if (IsTitle()) return state;
    const auto* table = dynamic_cast<const GridAccessible*>(parent());
    state.selectable = Row().has_value();
    state.focusable = true;
    state.selected = isSelected();
    state.active = table != nullptr && table->CurrentCell() == std::pair(line_, column_);
    state.focused = state.active && table_->hasFocus();
    state.offscreen = !Place().intersects(table_->Geometry().RowsArea());
    if (IsHead()) {
      state.expandable = true;
      state.collapsed = table_->Grid().Groups().Folded(Line().group);
      state.expanded = !state.collapsed;
    }
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface && isValid() && IsHead())
      return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }

  int columnExtent() const override { return isValid() && IsHead() ? HeadColumns(*table_, Line()) : 1; }
  int rowExtent() const override { return 1; }
  QList<QAccessibleInterface*> columnHeaderCells() const override {
    auto* table = dynamic_cast<GridAccessible*>(parent());
    QList<QAccessibleInterface*> cells;
    if (table != nullptr && isValid() && !IsTitle() && !IsHead()) cells << table->child(column_);
    return cells;
  }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return column_; }
  int rowIndex() const override { return line_; }
  bool isSelected() const override {
    const auto* table = dynamic_cast<GridAccessible*>(parent());
    return table != nullptr && !IsTitle() && table->isRowSelected(line_);
  }
  QAccessibleInterface* table() const override { return parent(); }

  // The head of a group opens and folds it.
  QStringList actionNames() const override { return {toggleAction()}; }
  void doAction(const QString& name) override {
    if (name != toggleAction() || !isValid() || !IsHead()) return;
    const std::size_t group = Line().group;
    table_->FoldGroup(group, !table_->Grid().Groups().Folded(group));
  }
  QStringList keyBindingsForAction(const QString& name) const override {
    return name == toggleAction() ? QStringList{"+", "-"} : QStringList();
  }

 private:
  bool IsTitle() const { return line_ == kTitleRow; }
  GridGroups::Line Line() const { return table_->LineAt(static_cast<std::size_t>(line_)); }
  std::optional<std::size_t> Row() const { return IsTitle() ? std::nullopt : Line().row; }
  bool IsHead() const { return !IsTitle() && column_ == 0 && Line().IsHead(); }
  // The first cell of a head or of a unit's totals says whose they are.
  QString Name() const {
    const TGridColumn& column = *Column();
    if (IsTitle()) return TitleOf(column);
    const TSmartDBGrid_QRT& grid = table_->Grid();
    const GridGroups::Line line = Line();
    if (line.row) return ShownCell(grid.CellText(*line.row, column), column.IsNumber());
    if (column_ == 0) return ShownText(grid.Groups().HeadText(line));
    return ShownCell(grid.Groups().TotalText(line, column), true);
  }
  // On the viewport.
  QRect Place() const {
    if (!isValid()) return {};
    if (IsTitle()) return table_->TitleRect(*Column());
    const QRect line = table_->LineRect(static_cast<std::size_t>(line_));
    const auto& spans = table_->Geometry().Spans();
    QRect place;
    for (int i = column_; i < column_ + columnExtent(); ++i) {
      place |=
          table_->Geometry().ColumnRect(spans[static_cast<std::size_t>(i)],
                                        table_->horizontalScrollBar()->value(), line.top(), line.height());
    }
    return place;
  }
  const TGridColumn* Column() const {
    const auto& spans = table_->Geometry().Spans();
    return column_ >= 0 && static_cast<std::size_t>(column_) < spans.size()
               ? spans[static_cast<std::size_t>(column_)].column
               : nullptr;
  }

  QPointer<GridWidget> table_;
  int line_;
  int column_;
};

ReaderSink g_readerSink = nullptr;

void TellReaders(QAccessibleEvent& event) {
  g_readerSink != nullptr ? g_readerSink(event) : QAccessible::updateAccessibility(&event);
}

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  if (auto* table = dynamic_cast<GridWidget*>(object)) return new GridAccessible(*table);
  auto* form = dynamic_cast<FormView*>(object);
  if (form == nullptr || !form->isWindow()) return nullptr;
  const bool report = dynamic_cast<const TBaseDock_FRM*>(&form->Form()) != nullptr;
  return new QAccessibleWidget(form, report ? QAccessible::Window : QAccessible::Dialog);
}

}  // namespace

void MakeGridsAccessible() {
  static const bool kInstalled = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  static_cast<void>(kInstalled);
}

void SetReaderSink(ReaderSink sink) { g_readerSink = sink; }

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
  TellReaders(event);
}

void TellRowsChanged(GridWidget& table) {
  QAccessibleTableModelChangeEvent event(&table, QAccessibleTableModelChangeEvent::ModelReset);
  TellReaders(event);
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

int GridAccessible::rowCount() const { return Lines(table_); }

int GridAccessible::CellCount() const {
  const int columns = columnCount();
  if (columns == 0) return 0;
  const int most = INT_MAX / 2 / columns;
  return (std::min(rowCount(), most) + 1) * columns;
}

int GridAccessible::childCount() const { return CellCount() + QAccessibleWidget::childCount(); }

int GridAccessible::FirstColumnOf(int line, int column) const {
  if (line == kTitleRow || column == 0) return column;
  const GridGroups::Line at = table_.LineAt(static_cast<std::size_t>(line));
  return !at.row && column < HeadColumns(table_, at) ? 0 : column;
}

QAccessibleInterface* GridAccessible::Made(int line, int column) const {
  const std::pair place(line, FirstColumnOf(line, column));
  const auto found = made_.find(place);
  if (found != made_.end()) return QAccessible::accessibleInterface(found->second);
  auto* cell = new CellAccessible(table_, place.first, place.second);
  made_.emplace(place, QAccessible::registerAccessibleInterface(cell));
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
  if (query == nullptr || !query->RecNo() || *query->RecNo() >= table_.Grid().RowCount()) return std::nullopt;
  const int line = static_cast<int>(table_.LineOf(*query->RecNo()));
  const auto& spans = table_.Geometry().Spans();
  for (std::size_t i = 0; i < spans.size(); ++i) {
    if (spans[i].column == table_.CurrentColumn())
      return std::pair(line, FirstColumnOf(line, static_cast<int>(i)));
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
  const auto line = table_.LineUnder(point);
  const auto span = table_.Geometry().SpanAt(point.x(), table_.horizontalScrollBar()->value());
  if (!span) return nullptr;
  if (line) return Made(static_cast<int>(*line), static_cast<int>(*span));
  return table_.TitleRect(*spans[*span].column).contains(point) ? Made(kTitleRow, static_cast<int>(*span))
                                                                : nullptr;
}

QAccessibleInterface* GridAccessible::cellAt(int row, int column) const {
  if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
  return Made(row, column);
}

QString GridAccessible::columnDescription(int column) const {
  if (column < 0 || column >= columnCount()) return {};
  return TitleOf(*table_.Geometry().Spans()[static_cast<std::size_t>(column)].column);
}

QString GridAccessible::rowDescription(int line) const {
  if (line < 0 || line >= rowCount()) return {};
  const GridGroups::Line at = table_.LineAt(static_cast<std::size_t>(line));
  if (!at.row) return ShownText(table_.Grid().Groups().HeadText(at));
  return table_.FactsOf(*at.row).replace('\n', "، ");
}

// The lines of the selected rows, or of the current one where none is selected.
QList<int> GridAccessible::selectedRows() const {
  const TADOQuery* query = table_.Grid().DataSet();
  std::set<std::size_t> rows = table_.Grid().Selection();
  if (rows.empty() && query != nullptr && query->RecNo()) rows.insert(*query->RecNo());
  QList<int> lines;
  for (const std::size_t row : rows) {
    const int line = static_cast<int>(table_.LineOf(row));
    if (lines.isEmpty() || lines.back() != line) lines << line;
  }
  return lines;
}

int GridAccessible::selectedRowCount() const { return static_cast<int>(selectedRows().size()); }

bool GridAccessible::isRowSelected(int line) const {
  if (line < 0 || line >= rowCount()) return false;
  const TADOQuery* query = table_.Grid().DataSet();
  const std::set<std::size_t>& selection = table_.Grid().Selection();
  const auto row = table_.LineAt(static_cast<std::size_t>(line)).row;
  if (!selection.empty() && row) return selection.contains(*row);
  return selection.empty() && query != nullptr && query->RecNo() &&
         table_.LineOf(*query->RecNo()) == static_cast<std::size_t>(line);
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

// The head of a folded group stands for its rows.
bool GridAccessible::selectRow(int line) {
  if (line < 0 || line >= rowCount()) return false;
  const GridGroups::Line at = table_.LineAt(static_cast<std::size_t>(line));
  const GridGroups& groups = table_.Grid().Groups();
  if (!at.row && !(at.IsHead() && groups.Folded(at.group))) return false;
  table_.GoToRow(at.row ? *at.row : groups.FirstRow(at.group));
  return true;
}

bool GridAccessible::unselectRow(int line) {
  if (line < 0 || line >= rowCount()) return false;
  const auto row = table_.LineAt(static_cast<std::size_t>(line)).row;
  std::set<std::size_t> rows = table_.Grid().Selection();
  if (!row || rows.erase(*row) == 0) return false;
  table_.Grid().SetSelection(std::move(rows));
  return true;
}

}  // namespace goods
