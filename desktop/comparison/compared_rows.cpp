#include "desktop/comparison/compared_rows.h"

#include <deque>
#include <map>
#include <optional>
#include <utility>

#include "host/core/text.h"

namespace goods {
namespace {

constexpr int kPercentDecimals = 2;

using Row = std::optional<std::size_t>;

// The fields of one query, by their places in what is compared.
struct Side {
  Side(const TADOQuery& rows, const Comparison& comparison)
      : query(rows), key(rows.FindField(comparison.key)) {
    for (const std::string& field : comparison.labels) labels.push_back(rows.FindField(field));
    for (const std::string& field : comparison.figures) figures.push_back(rows.FindField(field));
  }
  Value At(Row row, std::optional<std::size_t> field) const {
    return row && field ? query.StoredCell(*row, *field) : Value();
  }
  std::string Key(std::size_t row) const { return At(row, key).AsText(); }

  const TADOQuery& query;
  std::optional<std::size_t> key;
  std::vector<std::optional<std::size_t>> labels;
  std::vector<std::optional<std::size_t>> figures;
};

std::vector<std::pair<Row, Row>> Pairs(const Side& own, const Side& other) {
  std::map<std::string, std::deque<std::size_t>> waiting;
  for (std::size_t row = 0; row < other.query.TotalCount(); ++row) waiting[other.Key(row)].push_back(row);
  std::vector<std::pair<Row, Row>> pairs;
  std::vector<bool> taken(other.query.TotalCount());
  for (std::size_t row = 0; row < own.query.TotalCount(); ++row) {
    const auto found = waiting.find(own.Key(row));
    if (found == waiting.end() || found->second.empty()) {
      pairs.emplace_back(row, std::nullopt);
      continue;
    }
    taken[found->second.front()] = true;
    pairs.emplace_back(row, found->second.front());
    found->second.pop_front();
  }
  for (std::size_t row = 0; row < taken.size(); ++row) {
    if (!taken[row]) pairs.emplace_back(std::nullopt, row);
  }
  return pairs;
}

void AppendFigure(Column& column, const Value& value) {
  if (value.IsNull()) {
    column.AppendNull();
  } else {
    column.AppendDecimal(value.AsDecimal());
  }
}

void AppendLabel(Column& column, ColumnType type, const Value& value) {
  if (value.IsNull()) {
    column.AppendNull();
  } else if (type == ColumnType::Integer) {
    column.AppendInteger(value.AsInteger());
  } else if (type == ColumnType::Decimal) {
    column.AppendDecimal(value.AsDecimal());
  } else {
    column.AppendText(value.AsText());
  }
}

Value PercentOf(Decimal difference, Decimal base) {
  if (base.IsZero()) return {};
  try {
    return (difference * Decimal(100) / base.Abs()).Rounded(kPercentDecimals);
  } catch (const std::exception&) {
    return {};  // beyond what a number holds
  }
}

}  // namespace

RowStore JoinPeriods(const TADOQuery& own, const TADOQuery& other, const Comparison& comparison) {
  std::vector<ColumnInfo> columns;
  for (const std::string& field : comparison.labels) {
    const auto place = own.FindField(field);
    columns.push_back({field, place ? own.Fields()[*place].type : ColumnType::Text});
  }
  for (const std::string& figure : comparison.figures) {
    const ComparedFields fields(figure);
    for (const std::string& each : {fields.own, fields.other, fields.difference, fields.percent})
      columns.push_back({each, ColumnType::Decimal});
  }
  RowStore joined;
  joined.Define(columns);
  const Side first(own, comparison);
  const Side second(other, comparison);
  for (const auto& [ours, theirs] : Pairs(first, second)) {
    std::size_t at = 0;
    for (std::size_t i = 0; i < first.labels.size(); ++i) {
      const Value label = ours ? first.At(ours, first.labels[i]) : second.At(theirs, second.labels[i]);
      AppendLabel(joined.ColumnAt(at), columns[at].type, label);
      ++at;
    }
    for (std::size_t i = 0; i < first.figures.size(); ++i) {
      const Value now = first.At(ours, first.figures[i]);
      const Value then = second.At(theirs, second.figures[i]);
      const Decimal difference = now.AsDecimal() - then.AsDecimal();
      AppendFigure(joined.ColumnAt(at++), now);
      AppendFigure(joined.ColumnAt(at++), then);
      AppendFigure(joined.ColumnAt(at++), Value(difference));
      AppendFigure(joined.ColumnAt(at++), PercentOf(difference, then.AsDecimal()));
    }
    joined.EndRow();
  }
  joined.Finish();
  return joined;
}

void JoinedRows::Open(std::string_view /*statement*/, RowStore& into, IStatementProgress* /*progress*/) {
  into = std::exchange(rows_, RowStore());
}

void JoinedRows::Execute(std::string_view /*statement*/, IStatementProgress* /*progress*/) {}

}  // namespace goods
