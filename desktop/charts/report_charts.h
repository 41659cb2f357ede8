// Which charts a report's table has, and the figures of each. All of it comes from the rows that the report
// has read, as they are seen: filtered, narrowed, within what the user may see.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/charts/chart.h"
#include "host/components/grid.h"

namespace goods {

struct ChartOffer {
  std::string title;
  // The figures as they stand now; asks nobody. Good as long as the grid.
  std::function<Chart()> make;
};

// The charts of a grid, the most looked at first: of the stock card remainder and average price, and the
// movements by month; of the row search the movements by month; of the stock per store the goods' stock in
// the stores, in quantity and in money, and what each store holds; of the overall turnover its operations; of
// the goods list in money the goods by value. A table in groups has those of its groups before them, whatever
// report it is of (group_charts.h). Empty for other grids. A chart whose figures the user may not
// see (prices, or a column that a right takes away) is not among them, and of the stock card the price is
// left out.
std::vector<ChartOffer> ChartsOf(const TSmartDBGrid_QRT& grid);

}  // namespace goods
