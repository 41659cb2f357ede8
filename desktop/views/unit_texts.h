// What a sum of quantities comes to in each unit, where its rows are of several.
#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "host/components/grid.h"

namespace goods {

// In the place of a unit's name that a row does not have, and of a figure beyond the range of numbers.
inline constexpr const char* kNoUnit = "بدون واحد";
inline constexpr const char* kUnitTooLarge = "بیش از اندازه";

struct UnitSum {
  std::string unit;
  Value sum;  // null beyond the range of numbers
};

// The exact sums of the visible rows, in the order in which the units come. Rows name the unit of their
// quantities in the field UnitName, or in UnitName1 and UnitName2, the second being that of a column whose
// own name ends with 2. Empty where the column is no quantity with a sum, the rows name no unit, or all are
// of one. Reads every visible row.
std::vector<UnitSum> UnitSums(const TSmartDBGrid_QRT& grid, const TGridColumn& column);

// "unit: figure" a unit, each on a line, at most kMostUnits of them and then how many more there are; empty
// where there are no sums by unit.
inline constexpr qsizetype kMostUnits = 12;
QString UnitLines(const TSmartDBGrid_QRT& grid, const TGridColumn& column);
// A line a visible column that has them: its title, and all its sums by unit.
QStringList UnitTotalLines(const TSmartDBGrid_QRT& grid);

}  // namespace goods
