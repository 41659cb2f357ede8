// Sums by unit of measure as they are shown.
#pragma once

#include <QString>

#include "host/components/grid.h"
#include "host/components/row_units.h"

namespace goods {

// "unit: figure" a unit, each on a line, at most kMostUnits of them and then how many more there are; empty
// where the column's total has no sums by unit.
inline constexpr qsizetype kMostUnits = 12;
QString UnitLines(const TSmartDBGrid_QRT& grid, const TGridColumn& column);

}  // namespace goods
