// GridGroups: the rows of a table in groups by one of its columns, and what each group comes to.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/data/value.h"

namespace goods {

class TGridColumn;
class TSmartDBGrid_QRT;

// Rows that the column shows alike are one group, as are texts that a Persian reader takes for the same and,
// by month, dates of one month. The grid sorts by the column first, so that groups stand together, and by the
// user's keys within them. A folded group shows its head alone. Groups are worked out when they are asked for
// after rows or columns have changed, in one walk over the visible rows; a total when it is asked for.
class GridGroups {
 public:
  explicit GridGroups(TSmartDBGrid_QRT& grid) : grid_(grid) {}

  // Groups by a column, folded at first; by nothing for null. A withheld column groups nothing.
  void Set(const TGridColumn* column, bool byMonth = false);
  // The column as it was asked for, by its own name; empty for none.
  const std::string& ColumnName() const { return column_; }
  bool ByMonth() const { return byMonth_; }
  // The column that is asked for, whether or not there are rows; null without one, or where it is withheld.
  const TGridColumn* Asked() const;
  // The column that groups at the moment: null without rows, too, and where they do not have its field.
  const TGridColumn* By() const;
  bool Active() const { return By() != nullptr; }
  // "گروه‌بندی: انبار"; empty where nothing groups.
  std::string Caption() const;

  // A line of the table: the head of a group, what its rows of one unit of measure come to, or a row.
  struct Line {
    std::size_t group = 0;
    std::optional<std::size_t> row;   // its position among the visible rows
    std::optional<std::size_t> unit;  // of Units(group)
    bool IsHead() const { return !row && !unit; }
  };
  std::size_t LineCount() const;
  Line LineAt(std::size_t line) const;
  // That of the head where the row is folded away.
  std::size_t LineOf(std::size_t row) const;

  std::size_t GroupCount() const;
  std::size_t GroupOf(std::size_t row) const;
  std::size_t FirstRow(std::size_t group) const;
  std::size_t RowCount(std::size_t group) const;
  bool Folded(std::size_t group) const;
  void Fold(std::size_t group, bool folded);
  void FoldAll(bool folded);
  bool FoldedAtFirst() const { return foldedAll_; }
  // Unfolds the group of a row.
  void Reveal(std::size_t row);

  // What the rows of a group have in common, as the column shows it; "(خالی)" for empty cells.
  std::string Title(std::size_t group) const;
  // The units of measure of a group's rows where there are several; else nothing.
  const std::vector<std::string>& Units(std::size_t group) const;
  // "انبار مرکزی (12)" of a head, the unit's name of a unit's line.
  std::string HeadText(const Line& line) const;
  // The exact total of a column whose footer is a sum, over a group or its rows of one unit, where money has
  // no part; null for other columns and rows.
  Value Total(const Line& line, const TGridColumn& column) const;
  std::string TotalText(const Line& line, const TGridColumn& column) const;

  // Called by the grid.
  void RowsChanged();

 private:
  struct Group {
    std::size_t first = 0;
    std::size_t count = 0;
    bool folded = true;
    std::vector<std::string> units = {};
  };
  void Build() const;
  void FindGroups(const TGridColumn& column) const;
  void FindUnits() const;
  void CountLines() const;
  std::string KeyText(std::size_t row, const TGridColumn& column) const;
  std::vector<std::uint32_t> RowsOfUnit(const Group& group, const std::string& unit) const;

  TSmartDBGrid_QRT& grid_;
  std::string column_;
  bool byMonth_ = false;
  bool foldedAll_ = true;
  std::set<std::string> exceptions_;  // titles of groups that are not as foldedAll_ says

  mutable bool built_ = false;
  mutable std::vector<Group> groups_;
  mutable std::vector<std::size_t> lines_;  // the line of each group's head, and behind the last
  mutable std::unordered_map<std::string, Value> totals_;
};

}  // namespace goods
