// Charts of a table whose rows are in groups: what the groups come to, beside each other.
#pragma once

#include <vector>

#include "desktop/charts/report_charts.h"

namespace goods {

// One for each visible column that has a sum, in their order, then how many rows each group has; of groups
// within groups the outermost. Of groups by month upright columns, of others lying bars, in the order of the
// table. None while nothing groups. A point is a group, and its row the group's first one.
std::vector<ChartOffer> ChartsOfGroups(const TSmartDBGrid_QRT& grid);

}  // namespace goods
