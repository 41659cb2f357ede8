// What charts ask of the columns of a table.
#pragma once

#include <string>
#include <string_view>

#include "host/components/grid.h"

namespace goods {

// A column that the user sees or may show, by the name that it was made with; null for none.
const TGridColumn* ColumnOfChart(const TSmartDBGrid_QRT& grid, std::string_view name);

// "group, title"
std::string TitleOfSeries(const TGridColumn& column);

}  // namespace goods
