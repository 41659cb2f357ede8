// The lines under a table's totals that tell them by unit of measure, on paper and in files.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/services/detailed_table.h"

namespace goods {

// What the columns come to in one unit. Both lists have an entry for each column of the table.
struct UnitRow {
  std::string title;               // "جمع (کیلوگرم)"
  std::string unit;                // "کیلوگرم"
  std::vector<Value> sums;         // exact; null where the column has none in this unit, or too large a one
  std::vector<std::string> texts;  // as the grid shows it; empty where the column has none in this unit
};

// In the order in which the units come; none where no column has sums by unit, or the table no totals. Reads
// the rows once for each column of quantities.
std::vector<UnitRow> UnitRowsOf(const IReportTable& table);

// Where files write the title: the first column without sums by unit, else the first.
std::size_t UnitTitleColumn(const std::vector<UnitRow>& rows);

}  // namespace goods
