// What a user has arranged in a grid, as text for a settings file: order, visibility and widths of the
// columns, and the sort.
#pragma once

#include <string>
#include <string_view>

#include "host/components/grid.h"

namespace goods {

// The grid's layout, and where it is sorted a further line that names the columns of the sort by their own
// names.
std::string ArrangementOf(const TSmartDBGrid_QRT& grid);
// A sort by a column that is not there any more, or not this user's, goes; without any left, and where the
// text has none, the grid keeps the sort that it has.
void ApplyArrangement(TSmartDBGrid_QRT& grid, std::string_view text);

}  // namespace goods
