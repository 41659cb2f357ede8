// The conditions that a user puts on the columns of a grid: set, lifted, and put into words.
#pragma once

#include <string>
#include <vector>

#include "host/components/grid.h"

namespace goods {

// What is behind the cell of a visible row; null where there is none, or where the column is withheld.
Value CellValue(const TSmartDBGrid_QRT& grid, std::size_t position, const TGridColumn& column);

// The condition on a column that a value gives; numbers are compared at the decimals that the column shows.
RowCondition ConditionOn(const TGridColumn& column, ConditionKind kind, std::vector<Value> values);

// The column of a condition among those of the grid, visible ones first; null where none shows the field.
const TGridColumn* ColumnOf(const TSmartDBGrid_QRT& grid, const RowCondition& condition);
bool HasCondition(const TSmartDBGrid_QRT& grid, const TGridColumn& column);

// Adds a condition to those of the rows under the grid. Equal and OneOf take the place of all that there was
// on the field, From and To that of the same kind. On a withheld column nothing happens, and without rows
// neither.
void AddCondition(TSmartDBGrid_QRT& grid, RowCondition condition);
void RemoveCondition(TSmartDBGrid_QRT& grid, const RowCondition& condition);
void RemoveConditions(TSmartDBGrid_QRT& grid, const TGridColumn& column);
void RemoveConditions(TSmartDBGrid_QRT& grid);

// "نام کالا: شامل «پیچ»", with the column's title and the values as it shows them.
std::string ConditionText(const TSmartDBGrid_QRT& grid, const RowCondition& condition);
// All that are in force, as the line above a printed list and in files says it; empty where there are none.
std::string NarrowingLine(const TSmartDBGrid_QRT& grid);

}  // namespace goods
