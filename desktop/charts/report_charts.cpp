#include "desktop/charts/report_charts.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <numeric>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "desktop/charts/chart_columns.h"
#include "desktop/charts/group_charts.h"
#include "host/core/jalali.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr const char* kCountFormat = "#,0;#,0-;0";
constexpr const char* kShareFormat = "#0.#";
constexpr double kGoalShare = 80;
constexpr std::size_t kMostStores = 9;  // in colours of their own; the rest is one more
constexpr const char* kOtherStores = "سایر انبارها";

// "group|title"
std::pair<std::string, std::string> GroupAndTitle(const TGridColumn& column) {
  const std::string caption = PlainCaption(column.Caption());
  const auto bar = caption.find('|');
  if (bar == std::string::npos) return {"", std::string(Trim(caption))};
  return {std::string(Trim(caption.substr(0, bar))), std::string(Trim(caption.substr(bar + 1)))};
}

double FigureOf(const Value& value) {
  return value.IsNull() || value.IsText() ? kNoFigure : value.AsDecimal().ToDouble();
}
double OrZero(double figure) { return std::isnan(figure) ? 0 : figure; }

// One column's cells of the rows that are seen.
class CellsOfColumn {
 public:
  CellsOfColumn(const TSmartDBGrid_QRT& grid, const TGridColumn* column) : query_(grid.DataSet()) {
    if (query_ != nullptr && column != nullptr && !column->Withheld())
      field_ = query_->FindField(column->FieldName());
  }
  Value At(std::size_t position) const { return field_ ? query_->Cell(position, *field_) : Value(); }
  double Figure(std::size_t position) const { return FigureOf(At(position)); }
  std::string Text(std::size_t position) const { return At(position).AsText(); }

 private:
  const TADOQuery* query_;
  std::optional<std::size_t> field_;
};

// The series of a column, and its cells beside those of the others. Null where the user does not have the
// column.
ChartSeries* AddSeries(Chart& chart, std::vector<CellsOfColumn>& cells, const TSmartDBGrid_QRT& grid,
                       const char* name) {
  const TGridColumn* column = ColumnOfChart(grid, name);
  if (column == nullptr) return nullptr;
  chart.series.push_back({.name = TitleOfSeries(*column), .format = column->DisplayFormatText()});
  cells.emplace_back(grid, column);
  return &chart.series.back();
}

// The days of dates; the text of the row before is not read twice.
class DayReader {
 public:
  std::optional<std::int64_t> Day(const std::string& text) {
    if (text != text_) {
      text_ = text;
      const auto date = ParseJalali(text);
      day_ = date ? std::optional(DaysFromJalali(*date)) : std::nullopt;
    }
    return day_;
  }

 private:
  std::string text_;
  std::optional<std::int64_t> day_;
};

// The rows that are seen in the order in which they were read, whatever they are sorted by.
std::vector<std::size_t> PositionsAsRead(const TADOQuery& query) {
  std::vector<std::size_t> positions(query.RecordCount());
  std::iota(positions.begin(), positions.end(), std::size_t{0});
  const auto rows = query.VisibleRows();
  const auto before = [&](std::size_t a, std::size_t b) { return rows[a] < rows[b]; };
  if (!std::is_sorted(positions.begin(), positions.end(), before))
    std::sort(positions.begin(), positions.end(), before);
  return positions;
}

// Rows of a day stand evenly over it, in their order.
void SpreadOverDays(std::vector<double>& places) {
  for (std::size_t begin = 0; begin < places.size();) {
    std::size_t end = begin + 1;
    while (end < places.size() && places[end] == places[begin]) ++end;
    const double part = 1.0 / static_cast<double>(end - begin);
    for (std::size_t i = begin; i < end; ++i) places[i] += static_cast<double>(i - begin) * part;
    begin = end;
  }
}

Chart RemainderOverTime(const TSmartDBGrid_QRT& grid) {
  Chart chart;
  chart.title = "مانده و قیمت میانگین در گذر زمان";
  chart.placesAre = ChartPlaces::Days;
  const TADOQuery* query = grid.DataSet();
  std::vector<CellsOfColumn> cells;
  if (ChartSeries* remainder = AddSeries(chart, cells, grid, "Bagh")) remainder->filled = true;
  if (ChartSeries* average = AddSeries(chart, cells, grid, "Miangin")) {
    average->secondAxis = true;
    average->fromZero = false;
  }
  if (cells.size() == 1) chart.title = "مانده در گذر زمان";
  if (query == nullptr || cells.empty()) return chart;
  const CellsOfColumn dates(grid, ColumnOfChart(grid, "Date"));
  DayReader reader;
  std::vector<std::pair<std::int64_t, std::size_t>> days;
  for (const std::size_t position : PositionsAsRead(*query)) {
    if (const auto day = reader.Day(dates.Text(position))) days.emplace_back(*day, position);
  }
  std::stable_sort(days.begin(), days.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& [day, position] : days) {
    chart.places.push_back(static_cast<double>(day));
    chart.rows.push_back(position);
    for (std::size_t i = 0; i < cells.size(); ++i)
      chart.series[i].values.push_back(cells[i].Figure(position));
  }
  SpreadOverDays(chart.places);
  return chart;
}

// Figures of many goods have no unit in common: there the movements themselves are counted.
bool IsOfOneGood(const TSmartDBGrid_QRT& grid, const TADOQuery& query) {
  const CellsOfColumn codes(grid, ColumnOfChart(grid, "Code"));
  for (std::size_t i = 1; i < query.RecordCount(); ++i) {
    if (!(codes.At(i) == codes.At(0))) return false;
  }
  return true;
}

Chart MovementsByMonth(const TSmartDBGrid_QRT& grid, const char* incoming, const char* outgoing) {
  constexpr int kMonthsOfYear = 12;
  Chart chart;
  chart.shape = ChartShape::Columns;
  chart.title = "گردش ماه به ماه";
  const TADOQuery* query = grid.DataSet();
  if (query == nullptr) return chart;
  const bool counted = ColumnOfChart(grid, "Code") != nullptr && !IsOfOneGood(grid, *query);
  if (counted)
    chart.notes.emplace_back(
        "کالاها چندتاست و واحدشان یکی نیست: شمار ردیف‌ها کشیده "
        "شده "
        "است.");
  std::vector<CellsOfColumn> cells;
  for (const char* name : {incoming, outgoing}) {
    ChartSeries* series = AddSeries(chart, cells, grid, name);
    if (series == nullptr || !counted) continue;
    series->name.insert(0, "شمار ردیف‌های ");
    series->format = kCountFormat;
  }
  struct Month {
    std::vector<double> sums;
    std::size_t row;
  };
  std::map<int, Month> months;
  const CellsOfColumn dates(grid, ColumnOfChart(grid, "Date"));
  DayReader reader;
  std::vector<int> monthOfRow(query->RecordCount(), -1);
  for (const std::size_t position : PositionsAsRead(*query)) {
    const auto day = reader.Day(dates.Text(position));
    if (!day) continue;
    const JalaliDate date = JalaliFromDays(*day);
    Month& month = months[monthOfRow[position] = date.year * kMonthsOfYear + date.month - 1];
    if (month.sums.empty()) month = {std::vector<double>(cells.size()), position};
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const double figure = OrZero(cells[i].Figure(position));
      month.sums[i] += counted ? (figure != 0 ? 1 : 0) : figure;
    }
  }
  if (months.empty()) return chart;
  for (const int month : monthOfRow) {
    chart.pointOfRow.push_back(month < 0 ? kNoPoint
                                         : static_cast<std::size_t>(month - months.begin()->first));
  }
  // Months without a movement have their place, too.
  for (int month = months.begin()->first; month <= months.rbegin()->first; ++month) {
    const auto found = months.find(month);
    const JalaliDate first{month / kMonthsOfYear, month % kMonthsOfYear + 1, 1};
    chart.labels.push_back(FormatJalali(first).substr(0, 7));
    chart.rows.push_back(found == months.end() ? kNoRow : found->second.row);
    for (std::size_t i = 0; i < cells.size(); ++i)
      chart.series[i].values.push_back(found == months.end() ? 0 : found->second.sums[i]);
  }
  return chart;
}

Chart TurnoverByOperation(const TSmartDBGrid_QRT& grid) {
  Chart chart;
  chart.shape = ChartShape::Bars;
  chart.title = "گردش به تفکیک نوع عملیات";
  const TADOQuery* query = grid.DataSet();
  if (query == nullptr || query->IsEmpty()) return chart;
  for (const TGridColumn* column : grid.VisibleColumns()) {
    const auto [group, title] = GroupAndTitle(*column);
    if (group.empty() || !column->IsNumber()) continue;
    auto series = std::find_if(chart.series.begin(), chart.series.end(),
                               [&, name = group](const ChartSeries& each) { return each.name == name; });
    if (series == chart.series.end()) {
      chart.series.push_back({.name = group, .format = column->DisplayFormatText()});
      series = chart.series.end() - 1;
    }
    series->values.resize(chart.labels.size(), kNoFigure);
    series->values.push_back(query->Sum(column->FieldName()).ToDouble());
    chart.labels.push_back(title);
  }
  for (ChartSeries& series : chart.series) series.values.resize(chart.labels.size(), kNoFigure);
  return chart;
}

struct StoreColumn {
  std::string name;
  const TGridColumn* column;
};

// The columns of the stores that end so, and that of the other stores behind them.
std::vector<StoreColumn> StoreColumns(const TSmartDBGrid_QRT& grid, std::string_view suffix) {
  std::vector<StoreColumn> stores;
  const TGridColumn* others = nullptr;
  for (const TGridColumn* column : grid.VisibleColumns()) {
    const std::string& name = column->Name();
    if (!name.ends_with(suffix)) continue;
    if (name.starts_with('S')) stores.push_back({GroupAndTitle(*column).first, column});
    if (name.starts_with("E0")) others = column;
  }
  if (others != nullptr) stores.push_back({kOtherStores, others});
  return stores;
}

double SumOf(const TADOQuery& query, const TGridColumn& column) {
  return query.Sum(column.FieldName()).ToDouble();
}

// The largest stores by themselves in the order of the columns, all others as one.
Chart StockInStores(const TSmartDBGrid_QRT& grid, std::string_view suffix, const char* title) {
  Chart chart;
  chart.shape = ChartShape::Bars;
  chart.title = title;
  const TADOQuery* query = grid.DataSet();
  const std::vector<StoreColumn> stores = StoreColumns(grid, suffix);
  if (query == nullptr || stores.empty()) return chart;
  std::vector<std::size_t> bySize(stores.size());
  std::iota(bySize.begin(), bySize.end(), std::size_t{0});
  std::vector<double> sizes;
  for (const StoreColumn& store : stores) sizes.push_back(std::abs(SumOf(*query, *store.column)));
  std::stable_sort(bySize.begin(), bySize.end(),
                   [&](std::size_t a, std::size_t b) { return sizes[a] > sizes[b]; });
  std::set<std::size_t> single;
  for (const std::size_t i : bySize) {
    if (single.size() < kMostStores && stores[i].name != kOtherStores) single.insert(i);
  }
  for (const std::size_t i : single) {
    chart.series.push_back({.name = stores[i].name, .format = stores[i].column->DisplayFormatText()});
  }
  const bool rest = single.size() < stores.size();
  if (rest) chart.series.push_back({.name = kOtherStores, .format = stores[0].column->DisplayFormatText()});
  std::vector<CellsOfColumn> cells;
  for (const StoreColumn& store : stores) cells.emplace_back(grid, store.column);
  const CellsOfColumn names(grid, ColumnOfChart(grid, "GoodName"));
  for (std::size_t row = 0; row < query->RecordCount(); ++row) {
    chart.labels.push_back(names.Text(row));
    chart.rows.push_back(row);
    std::size_t next = 0;
    double others = 0;
    for (std::size_t i = 0; i < stores.size(); ++i) {
      const double figure = cells[i].Figure(row);
      if (single.contains(i)) {
        chart.series[next++].values.push_back(figure);
      } else {
        others += OrZero(figure);
      }
    }
    if (rest) chart.series[next].values.push_back(others);
  }
  return chart;
}

Chart StoreTotals(const TSmartDBGrid_QRT& grid) {
  Chart chart;
  chart.shape = ChartShape::Bars;
  chart.title = "ارزش موجودی هر انبار";
  const TADOQuery* query = grid.DataSet();
  if (query == nullptr || query->IsEmpty()) return chart;
  for (const StoreColumn& store : StoreColumns(grid, "-Cost")) {
    if (chart.series.empty())
      chart.series.push_back({.name = "مبلغ", .format = store.column->DisplayFormatText()});
    chart.labels.push_back(store.name);
    chart.series[0].values.push_back(SumOf(*query, *store.column));
  }
  return chart;
}

const TGridColumn* ValueColumn(const TSmartDBGrid_QRT& grid) {
  const TGridColumn* priced = ColumnOfChart(grid, "SumStock");
  return priced != nullptr ? priced : ColumnOfChart(grid, "Jam_Kol");
}

std::string Percent(double share) {
  static const DisplayFormat kFormat(kShareFormat);
  constexpr double kTenths = 10;
  const auto tenths = static_cast<std::int64_t>(std::round(share * kTenths));
  return kFormat.Format(Decimal(tenths) / Decimal(static_cast<std::int64_t>(kTenths))) + "%";
}

// Values of zero and less come last and take no part in the shares.
Chart GoodsByValue(const TSmartDBGrid_QRT& grid) {
  Chart chart;
  chart.title = "کالاها به ترتیب ارزش، با خط ۸۰/۲۰";
  const TADOQuery* query = grid.DataSet();
  const TGridColumn* column = ValueColumn(grid);
  if (query == nullptr || column == nullptr) return chart;
  const CellsOfColumn cells(grid, column);
  const CellsOfColumn names(grid, ColumnOfChart(grid, "Name"));
  std::vector<std::pair<double, std::size_t>> order;
  for (std::size_t row = 0; row < query->RecordCount(); ++row)
    order.emplace_back(OrZero(cells.Figure(row)), row);
  std::stable_sort(order.begin(), order.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  const double whole = std::accumulate(order.begin(), order.end(), 0.0, [](double sum, const auto& each) {
    return sum + std::max(0.0, each.first);
  });
  chart.series.push_back(
      {.name = TitleOfSeries(*column), .format = column->DisplayFormatText(), .filled = true});
  chart.series.push_back({.name = "سهم از کل، انباشته (درصد)", .format = kShareFormat, .secondAxis = true});
  double sum = 0;
  std::size_t carrying = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    sum += std::max(0.0, order[i].first);
    const double share = whole > 0 ? sum / whole * 100 : 0;
    if (carrying == 0 && whole > 0 && share >= kGoalShare) carrying = i + 1;
    chart.places.push_back(static_cast<double>(i + 1));
    chart.labels.push_back(names.Text(order[i].second));
    chart.rows.push_back(order[i].second);
    chart.series[0].values.push_back(order[i].first);
    chart.series[1].values.push_back(share);
  }
  if (carrying == 0) return chart;
  chart.goal = kGoalShare;
  chart.goalPlace = static_cast<double>(carrying);
  chart.notes.push_back(std::to_string(carrying) + " کالا از " + std::to_string(order.size()) + " کالا (" +
                        Percent(100.0 * static_cast<double>(carrying) / static_cast<double>(order.size())) +
                        " آن‌ها) ۸۰% ارزش را دارند.");
  return chart;
}

using ChartMaker = std::function<Chart(const TSmartDBGrid_QRT&)>;

// Which charts the grids of the reports have, before it is asked what the user may see.
struct OfferedChart {
  std::string_view grid;
  const char* title;
  ChartMaker make;
  std::function<bool(const TSmartDBGrid_QRT&)> seen;
};

const std::vector<OfferedChart>& OfferedCharts() {
  const auto always = [](const TSmartDBGrid_QRT&) { return true; };
  const auto valued = [](const TSmartDBGrid_QRT& grid) { return ValueColumn(grid) != nullptr; };
  const auto measured = [](std::string_view suffix) {
    return [suffix](const TSmartDBGrid_QRT& grid) { return !StoreColumns(grid, suffix).empty(); };
  };
  const auto months = [](const char* incoming, const char* outgoing) {
    return [=](const TSmartDBGrid_QRT& grid) { return MovementsByMonth(grid, incoming, outgoing); };
  };
  const auto stores = [](std::string_view suffix, const char* title) {
    return [=](const TSmartDBGrid_QRT& grid) { return StockInStores(grid, suffix, title); };
  };
  constexpr const char* kQuantities = "موجودی کالاها در انبارها (مقدار)";
  constexpr const char* kAmounts = "موجودی کالاها در انبارها (مبلغ)";
  static const std::vector<OfferedChart> kOffered{
      {"Kardex_GRD", "مانده و قیمت میانگین", RemainderOverTime, always},
      {"Kardex_GRD", "گردش ماه به ماه", months("Tedad_Varde", "Tedad_Sadere"), always},
      {"KardexSearch_GRD", "گردش ماه به ماه", months("Varede", "Sadere"), always},
      {"GoodsAsset_Store_GRD", kQuantities, stores("-1", kQuantities), measured("-1")},
      {"GoodsAsset_Store_GRD", kAmounts, stores("-Cost", kAmounts), measured("-Cost")},
      {"GoodsAsset_Store_GRD", "ارزش موجودی هر انبار", StoreTotals, measured("-Cost")},
      {"money_Overall_List_GRD", "گردش به تفکیک نوع عملیات", TurnoverByOperation, always},
      {"tedad_Overall_List_GRD", "گردش به تفکیک نوع عملیات", TurnoverByOperation, always},
      {"GoodTransactin_List_GRD", "کالاها به ترتیب ارزش", GoodsByValue, valued},
      {"GoodTransactinDetail_List_GRD", "کالاها به ترتیب ارزش", GoodsByValue, valued},
  };
  return kOffered;
}

}  // namespace

std::vector<ChartOffer> ChartsOf(const TSmartDBGrid_QRT& grid) {
  std::vector<ChartOffer> offers;
  std::vector<ChartOffer> ofGroups = ChartsOfGroups(grid);
  for (const OfferedChart& each : OfferedCharts()) {
    if (grid.Name() != each.grid || !each.seen(grid)) continue;
    offers.push_back({each.title, [&grid, &each] { return each.make(grid); }});
  }
  // Without prices there is the remainder alone.
  if (!offers.empty() && grid.Name() == "Kardex_GRD" && ColumnOfChart(grid, "Miangin") == nullptr)
    offers.front().title = "مانده";
  offers.insert(offers.begin(), std::make_move_iterator(ofGroups.begin()),
                std::make_move_iterator(ofGroups.end()));
  return offers;
}

}  // namespace goods
