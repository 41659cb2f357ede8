#include "desktop/requests/table_view.h"

#include <algorithm>

#include "host/components/grid_filter.h"
#include "host/components/grid_groups.h"
#include "host/core/text.h"

namespace goods {
namespace {

TGridColumn* ColumnNamed(const TSmartDBGrid_QRT& grid, std::string_view name) {
  for (const auto& column : grid.Columns()) {
    if (SameText(column->Name(), name) && !column->Withheld()) return column.get();
  }
  return nullptr;
}

// One value says it for a column that shows a number and its opposite alike: its condition adds the other.
TableView::Condition ConditionOf(const TGridColumn& column, const RowCondition& condition) {
  TableView::Condition kept{column.Name(), condition.kind, {}};
  for (const Value& value : condition.values) {
    kept.values.push_back(value.IsNull() ? std::nullopt : std::optional(value.AsText()));
    if (condition.kind != ConditionKind::OneOf) break;
  }
  return kept;
}

Value ValueFor(const TGridColumn& column, const std::optional<std::string>& text) {
  if (!text) return {};
  const auto number = column.IsNumber() ? Decimal::Parse(*text) : std::nullopt;
  return number ? Value(*number) : Value(*text);
}

}  // namespace

TableView TableViewOf(const TSmartDBGrid_QRT& grid) {
  TableView table;
  // A layout tells of hidden columns, too, and of those that others may see, what was asked for.
  for (const std::string& line : Split(grid.SaveLayout(), '\n')) {
    const std::size_t equals = line.rfind('=');
    if (equals == std::string::npos) continue;
    const std::vector<std::string> values = Split(std::string_view(line).substr(equals + 1), ',');
    if (values.size() != 2) continue;
    table.columns.push_back(
        {line.substr(0, equals), static_cast<int>(ParseInteger(values[0]).value_or(0)), values[1] == "1"});
  }
  for (const TSortKey& key : grid.SortKeys()) {
    if (const TGridColumn* column = grid.FindColumn(key.FieldName))
      table.sort.push_back({column->Name(), key.Descending});
  }
  const GridGroups& groups = grid.Groups();
  for (const GridGroups::Level& level : groups.Levels())
    table.groups.push_back({level.column, level.byMonth});
  table.openLevels = groups.LevelsOpen();
  const TADOQuery* query = grid.DataSet();
  if (query == nullptr) return table;
  for (const RowCondition& condition : query->Narrowing()) {
    if (const TGridColumn* column = ColumnOf(grid, condition))
      table.conditions.push_back(ConditionOf(*column, condition));
  }
  return table;
}

void ApplyLayout(TSmartDBGrid_QRT& grid, const TableView& table) {
  std::string layout;
  for (const TableView::Column& column : table.columns)
    layout += column.name + "=" + std::to_string(column.width) + "," + (column.shown ? "1" : "0") + "\n";
  if (!layout.empty()) grid.LoadLayout(layout);
  std::vector<TSortKey> keys;
  for (const TableView::SortKey& key : table.sort) {
    if (const TGridColumn* column = ColumnNamed(grid, key.column))
      keys.push_back({column->FieldName(), key.descending});
  }
  if (!table.sort.empty() || !grid.SortKeys().empty()) grid.SetSortKeys(std::move(keys));
  GridGroups& groups = grid.Groups();
  std::vector<GridGroups::Level> levels;
  for (const TableView::GroupLevel& level : table.groups) {
    if (const TGridColumn* column = ColumnNamed(grid, level.column))
      levels.push_back({column->Name(), level.byMonth});
  }
  if (groups.Levels() != levels) groups.SetLevels(levels);
  if (!levels.empty() && groups.LevelsOpen() != table.openLevels) groups.OpenLevels(table.openLevels);
}

void ApplyConditions(TSmartDBGrid_QRT& grid, const TableView& table) {
  RemoveConditions(grid);
  for (const TableView::Condition& condition : table.conditions) {
    const TGridColumn* column = ColumnNamed(grid, condition.column);
    if (column == nullptr) continue;
    std::vector<Value> values;
    for (const auto& value : condition.values) values.push_back(ValueFor(*column, value));
    AddCondition(grid, ConditionOn(*column, condition.kind, std::move(values)));
  }
}

std::vector<std::string> MissingColumns(const TSmartDBGrid_QRT& grid, const TableView& table) {
  std::vector<std::string> missing;
  const auto look = [&](const std::string& name) {
    if (ColumnNamed(grid, name) == nullptr &&
        std::find(missing.begin(), missing.end(), name) == missing.end())
      missing.push_back(name);
  };
  for (const TableView::SortKey& key : table.sort) look(key.column);
  for (const TableView::Condition& condition : table.conditions) look(condition.column);
  for (const TableView::GroupLevel& level : table.groups) look(level.column);
  return missing;
}

}  // namespace goods
