#include "desktop/charts/group_charts.h"

#include <functional>
#include <string>
#include <utility>

#include "desktop/charts/chart_columns.h"
#include "host/components/grid_groups.h"

namespace goods {
namespace {

constexpr const char* kRowsFormat = "#,0;#,0-;0";
constexpr const char* kSeveralUnits =
    "در برخی گروه‌ها واحد کالاها یکی نیست؛ جمع، "
    "همه را با هم می‌شمارد.";

// A bar for each group, its figure by the group's number.
Chart BarsOfGroups(const TSmartDBGrid_QRT& grid, ChartSeries series,
                   const std::function<double(std::size_t group)>& figure) {
  const GridGroups& groups = grid.Groups();
  Chart chart;
  chart.ofGroups = true;
  if (!groups.Active()) return chart;
  const GridGroups::GroupedBy outermost = groups.Columns().front();
  chart.shape = outermost.byMonth ? ChartShape::Columns : ChartShape::Bars;
  chart.title = series.name + "، " + GridGroups::CaptionOf(outermost);
  for (std::size_t group = 0; group < groups.GroupCount(); ++group) {
    if (groups.LevelOf(group) > 0) continue;
    chart.labels.push_back(groups.Title(group));
    chart.rows.push_back(groups.FirstRow(group));
    chart.pointOfRow.insert(chart.pointOfRow.end(), groups.RowCount(group), chart.labels.size() - 1);
    series.values.push_back(figure(group));
  }
  chart.series.push_back(std::move(series));
  return chart;
}

Chart SumsOfGroups(const TSmartDBGrid_QRT& grid, const std::string& name) {
  const TGridColumn* column = ColumnOfChart(grid, name);
  if (column == nullptr || column->Withheld()) return {};
  const GridGroups& groups = grid.Groups();
  bool severalUnits = false;
  Chart chart =
      BarsOfGroups(grid, {.name = "جمع " + TitleOfSeries(*column), .format = column->DisplayFormatText()},
                   [&](std::size_t group) {
                     severalUnits = severalUnits || !groups.Units(group).empty();
                     const Value total = groups.Total({group, {}, {}}, *column);
                     return total.IsNumber() ? total.AsDecimal().ToDouble() : kNoFigure;
                   });
  if (severalUnits && !column->Money()) chart.notes.emplace_back(kSeveralUnits);
  return chart;
}

Chart RowsOfGroups(const TSmartDBGrid_QRT& grid) {
  return BarsOfGroups(
      grid, {.name = "شمار ردیف‌ها", .format = kRowsFormat},
      [&grid](std::size_t group) { return static_cast<double>(grid.Groups().RowCount(group)); });
}

}  // namespace

std::vector<ChartOffer> ChartsOfGroups(const TSmartDBGrid_QRT& grid) {
  std::vector<ChartOffer> offers;
  if (!grid.Groups().Active()) return offers;
  for (const TGridColumn* column : grid.VisibleColumns()) {
    if (column->Footer() != FooterKind::Sum) continue;
    offers.push_back({"گروه‌ها: جمع " + TitleOfSeries(*column),
                      [&grid, name = column->Name()] { return SumsOfGroups(grid, name); }});
  }
  offers.push_back({"گروه‌ها: شمار ردیف‌ها", [&grid] { return RowsOfGroups(grid); }});
  return offers;
}

}  // namespace goods
