#include "desktop/charts/chart_columns.h"

#include "host/core/text.h"

namespace goods {

const TGridColumn* ColumnOfChart(const TSmartDBGrid_QRT& grid, std::string_view name) {
  for (const auto& column : grid.Columns()) {
    if (column->Name() == name && (column->Visible() || column->Customizable())) return column.get();
  }
  return nullptr;
}

std::string TitleOfSeries(const TGridColumn& column) {
  return ReplaceAll(std::string(Trim(PlainCaption(column.Caption()))), "|", "، ");
}

}  // namespace goods
