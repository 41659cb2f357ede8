// GridGroups: the rows of a table in groups by its columns, one within the other, and what each group comes
// to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/components/row_units.h"
#include "host/data/value.h"

namespace goods {

class TGridColumn;
class TSmartDBGrid_QRT;

// Rows that the columns show alike are one group, as are texts that a Persian reader takes for the same and,
// by month, dates of one month. The grid sorts by these columns first, so that groups stand together, and by
// the user's keys within them. A folded group shows its head alone. Groups are worked out when they are asked
// for after rows or columns have changed, in one walk over the visible rows; a total when it is asked for.
//
// Groups are numbered in the order of their heads, each before those within it.
class GridGroups {
 public:
  static constexpr std::size_t kMostLevels = 3;

  explicit GridGroups(TSmartDBGrid_QRT& grid) : grid_(grid), rowUnits_(grid) {}

  // A column that groups, by its own name (TGridColumn::Name).
  struct Level {
    std::string column;
    bool byMonth = false;
    friend bool operator==(const Level&, const Level&) = default;
  };
  // Groups by a column alone, folded at first; by nothing for null. A withheld column groups nothing.
  void Set(const TGridColumn* column, bool byMonth = false);
  // Groups by a further column within the groups that there are, which are opened; by one that groups already
  // in the new way in its place. False, and nothing changes, for a withheld column and where there are as
  // many levels as there may be.
  bool Add(const TGridColumn& column, bool byMonth = false);
  // The levels within that one remain.
  void Remove(const TGridColumn& column);
  // Outermost first, all folded; what names no column, names one twice or is too many is left out.
  void SetLevels(const std::vector<Level>& levels);
  // As they were asked for.
  const std::vector<Level>& Levels() const { return levels_; }

  struct GroupedBy {
    const TGridColumn* column = nullptr;
    bool byMonth = false;
  };
  // The columns that are asked for, whether or not there are rows; without those that are withheld.
  std::vector<GroupedBy> Asked() const;
  // Those that group at the moment: none without rows, and without those whose field the rows do not have.
  std::vector<GroupedBy> Columns() const;
  // The outermost of them; null without one.
  const TGridColumn* By() const;
  // How that column is asked for: null for one that is not.
  const Level* LevelOf(const TGridColumn& column) const;
  bool Active() const { return By() != nullptr; }
  // "گروه‌بندی: انبار، سپس تاریخ (ماه)"; empty where nothing groups.
  std::string Caption() const;
  static std::string CaptionOf(const GroupedBy& by);

  // A line of the table: the head of a group, what its rows of one unit of measure come to, or a row, whose
  // group is the innermost.
  struct Line {
    std::size_t group = 0;
    std::optional<std::size_t> row;   // its position among the visible rows
    std::optional<std::size_t> unit;  // of Units(group)
    bool IsHead() const { return !row && !unit; }
  };
  // The lines in view, or all as if nothing were folded.
  enum class Lines { Shown, All };
  std::size_t LineCount(Lines lines = Lines::Shown) const;
  Line LineAt(std::size_t line, Lines lines = Lines::Shown) const;
  // That of a head where the row is folded away.
  std::size_t LineOf(std::size_t row) const;
  // None where the group is folded away.
  std::optional<std::size_t> HeadLine(std::size_t group) const;

  std::size_t GroupCount() const;  // on all levels
  // The innermost group of a row; and the innermost whose head is in view.
  std::size_t GroupOf(std::size_t row) const;
  std::size_t ShownGroupOf(std::size_t row) const;
  bool InView(std::size_t row) const;
  // 0 for an outermost group.
  std::size_t LevelOf(std::size_t group) const;
  // None for an outermost group.
  std::optional<std::size_t> Around(std::size_t group) const;
  std::size_t FirstRow(std::size_t group) const;
  std::size_t RowCount(std::size_t group) const;

  bool Folded(std::size_t group) const;
  // Whether it stands in a folded group.
  bool FoldedAway(std::size_t group) const;
  void Fold(std::size_t group, bool folded);
  void FoldAll(bool folded);
  // Opens the groups of so many outer levels and folds the others.
  void OpenLevels(std::size_t levels);
  // So many were opened last; single groups may have been folded and opened since.
  std::size_t LevelsOpen() const { return openLevels_; }
  // Unfolds the groups of a row.
  void Reveal(std::size_t row);

  // What the rows of a group have in common, as the column of its level shows it; "(خالی)" for empty cells.
  std::string Title(std::size_t group) const;
  // The units of measure of a group's rows where there are several; else nothing.
  std::vector<std::string> Units(std::size_t group) const;
  // "انبار مرکزی (12)" of a head, the unit's name of a unit's line.
  std::string HeadText(const Line& line) const;
  // The exact total of a column whose footer is a sum, over a group or its rows of one unit, where money and
  // quantities in second units have no part; null for other columns and rows.
  Value Total(const Line& line, const TGridColumn& column) const;
  std::string TotalText(const Line& line, const TGridColumn& column) const;

  // The units of measure of all rows, whether or not they are in groups.
  const RowUnits& AllUnits() const { return rowUnits_; }

  // Called by the grid.
  void RowsChanged();

 private:
  struct Group {
    std::size_t level = 0;
    std::size_t first = 0;
    std::size_t count = 0;
    std::optional<std::size_t> around = {};
    bool folded = true;
    std::vector<std::uint32_t> units = {};  // of RowUnits
  };
  // Groups that have lines, and the line of each one's head; behind the last the number of lines.
  struct LineMap {
    std::vector<std::size_t> groups;
    std::vector<std::size_t> heads;
  };
  void Ask(std::vector<Level> levels, std::size_t openLevels);
  void Forget();
  void Build() const;
  void FindGroups() const;
  void FindUnits() const;
  void CountLines() const;
  LineMap MapOf(Lines lines) const;
  const LineMap& Map(Lines lines) const;
  std::string KeyText(std::size_t row, const GroupedBy& by) const;
  // Of the group and of those around it, so that equal texts within others differ.
  std::string PathOf(std::size_t group) const;
  // Of one unit.
  const std::vector<std::uint32_t>& RowsOf(const Line& line) const;

  TSmartDBGrid_QRT& grid_;
  RowUnits rowUnits_;
  std::vector<Level> levels_;
  std::size_t openLevels_ = 0;
  std::set<std::string> exceptions_;  // paths of groups that are not as openLevels_ says

  mutable bool built_ = false;
  mutable std::size_t rows_ = 0;  // that were there then
  mutable std::vector<GroupedBy> by_;
  mutable std::vector<Group> groups_;
  mutable LineMap shown_;
  mutable std::optional<LineMap> all_;
  mutable std::unordered_map<std::string, Value> totals_;
  // The rows of the group that was asked for last, by its units.
  mutable std::optional<std::size_t> parted_;
  mutable std::vector<std::vector<std::uint32_t>> parts_;
};

}  // namespace goods
