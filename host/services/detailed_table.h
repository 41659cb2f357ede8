// What the table of a grid tells beyond rows and totals: totals by unit of measure, and groups within groups.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "host/services/report_table.h"

namespace goods {

// What a column comes to over the rows of one unit of measure.
struct UnitSum {
  std::string unit;  // its name; "بدون واحد" of rows that name none
  Value sum;         // exact; null beyond the range of numbers
  std::string text;  // as the grid shows it
};

class IDetailedTable : public IReportTable {
 public:
  ~IDetailedTable() override;

  // What the total of a column of quantities comes to in each unit of measure, in the order in which the
  // units come, without units in which nothing stands; empty where fewer than two are left, the rows name no
  // unit, or the column is no quantity with a sum. Reads every row.
  virtual std::vector<UnitSum> UnitSums(std::size_t column) const;

  // So many groups stand within each other; 0: every row has the role Row.
  virtual std::size_t GroupLevels() const;
  bool HasGroups() const final { return GroupLevels() > 0; }
  // Of a head and of a unit total: how many groups stand around their own, 0 for an outermost one; of a row,
  // all that stand around it.
  virtual std::size_t Level(std::size_t row) const;
  // Whether the group of a head or unit total is folded; not asked for others.
  virtual bool Folded(std::size_t row) const;
  // The same table with what is folded away, which Hidden() then tells; null where that is this table. It is
  // good as long as this one.
  virtual std::unique_ptr<IDetailedTable> Unfolded() const;
  virtual bool Hidden(std::size_t row) const;
};

// The table itself where it tells so; else null.
const IDetailedTable* DetailsOf(const IReportTable* table);
// As above; 0 of a table that tells none.
std::size_t LevelOf(const IReportTable& table, std::size_t row);

}  // namespace goods
