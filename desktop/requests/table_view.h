// TableView: how a user has arranged a table: its columns, its order, and what is filtered by what is seen.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/components/grid.h"
#include "host/data/row_condition.h"

namespace goods {

// Columns are named by their own names (TGridColumn::Name), whatever they show at the moment.
struct TableView {
  struct Column {
    std::string name;
    int width = 0;  // pixels at 96 dpi
    bool shown = true;
    friend bool operator==(const Column&, const Column&) = default;
  };
  struct SortKey {
    std::string column;
    bool descending = false;
    friend bool operator==(const SortKey&, const SortKey&) = default;
  };
  struct Condition {
    std::string column;
    ConditionKind kind = ConditionKind::Equal;
    // Numbers by their shortest exact text; none is an empty cell.
    std::vector<std::optional<std::string>> values;
    friend bool operator==(const Condition&, const Condition&) = default;
  };
  std::vector<Column> columns;  // in the order of display, hidden ones among them
  std::vector<SortKey> sort;
  std::vector<Condition> conditions;
  struct GroupLevel {
    std::string column;
    bool byMonth = false;
    friend bool operator==(const GroupLevel&, const GroupLevel&) = default;
  };
  std::vector<GroupLevel> groups;  // outermost first
  std::size_t openLevels = 0;      // so many outer levels show what is within
  friend bool operator==(const TableView&, const TableView&) = default;
};

TableView TableViewOf(const TSmartDBGrid_QRT& grid);

// Columns, groups and order, as a user sets them. Columns that the grid does not have, that nobody may
// customise or that this user may not see are passed over; a table without columns or sort leaves the grid's.
void ApplyLayout(TSmartDBGrid_QRT& grid, const TableView& table);
// Takes the place of the conditions that there are.
void ApplyConditions(TSmartDBGrid_QRT& grid, const TableView& table);
// The titles, else the names, of what the view filters or sorts by and the grid does not offer this user.
std::vector<std::string> MissingColumns(const TSmartDBGrid_QRT& grid, const TableView& table);

}  // namespace goods
