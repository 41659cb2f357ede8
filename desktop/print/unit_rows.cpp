#include "desktop/print/unit_rows.h"

#include <algorithm>
#include <utility>

namespace goods {

std::vector<UnitRow> UnitRowsOf(const IReportTable& table) {
  std::vector<UnitRow> rows;
  const IDetailedTable* details = DetailsOf(&table);
  if (details == nullptr || !table.HasFooter()) return rows;
  const std::size_t columns = table.Columns().size();
  for (std::size_t column = 0; column < columns; ++column) {
    for (UnitSum& sum : details->UnitSums(column)) {
      auto row = std::find_if(rows.begin(), rows.end(), [&](const UnitRow& r) { return r.unit == sum.unit; });
      if (row == rows.end()) {
        rows.push_back({"جمع (" + sum.unit + ")", sum.unit, std::vector<Value>(columns),
                        std::vector<std::string>(columns)});
        row = rows.end() - 1;
      }
      row->sums[column] = std::move(sum.sum);
      row->texts[column] = std::move(sum.text);
    }
  }
  return rows;
}

std::size_t UnitTitleColumn(const std::vector<UnitRow>& rows) {
  const std::size_t columns = rows.empty() ? 0 : rows.front().texts.size();
  for (std::size_t column = 0; column < columns; ++column) {
    if (std::all_of(rows.begin(), rows.end(), [&](const UnitRow& row) { return row.texts[column].empty(); }))
      return column;
  }
  return 0;
}

}  // namespace goods
