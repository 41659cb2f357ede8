#include "host/components/grid_filter.h"

#include <algorithm>
#include <array>
#include <utility>

#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::size_t kMostNamedValues = 5;
constexpr std::string_view kEmptyCell = "(خالی)";

constexpr std::array<std::string_view, 6> kConditionWords{"برابر ", "به جز ", "شامل ", "از ", "تا ", ""};

void SetConditions(TSmartDBGrid_QRT& grid, std::vector<RowCondition> conditions) {
  if (TADOQuery* query = grid.DataSet(); query != nullptr) query->SetNarrowing(std::move(conditions));
}

std::vector<RowCondition> ConditionsOf(const TSmartDBGrid_QRT& grid) {
  const TADOQuery* query = grid.DataSet();
  return query == nullptr ? std::vector<RowCondition>() : query->Narrowing();
}

bool Replaces(const RowCondition& added, const RowCondition& there) {
  if (!SameText(added.field, there.field)) return false;
  const bool whole = added.kind == ConditionKind::Equal || added.kind == ConditionKind::OneOf;
  const bool range = added.kind == ConditionKind::From || added.kind == ConditionKind::To;
  return whole || (range && added.kind == there.kind) || added == there;
}

std::string TitleOfColumn(const TGridColumn& column) {
  return ReplaceAll(Trim(PlainCaption(column.Caption())), "|", " / ");
}

}  // namespace

Value CellValue(const TSmartDBGrid_QRT& grid, std::size_t position, const TGridColumn& column) {
  const TADOQuery* query = grid.DataSet();
  if (query == nullptr || column.Withheld()) return {};
  const auto field = query->FindField(column.FieldName());
  return field ? query->Cell(position, *field) : Value();
}

RowCondition ConditionOn(const TGridColumn& column, ConditionKind kind, std::vector<Value> values) {
  // A format without signs shows a number and its opposite alike.
  const bool exact = kind == ConditionKind::Equal || kind == ConditionKind::NotEqual;
  if (exact && values.size() == 1 && values.front().IsNumber()) {
    const Decimal opposite = -values.front().AsDecimal();
    if (column.Format().Format(opposite) == column.Format().Format(values.front()))
      values.emplace_back(opposite);
  }
  return {column.FieldName(), kind, std::move(values), column.IsNumber() ? column.Format().Decimals() : -1};
}

const TGridColumn* ColumnOf(const TSmartDBGrid_QRT& grid, const RowCondition& condition) {
  const TGridColumn* found = nullptr;
  for (const auto& column : grid.Columns()) {
    if (column->Withheld() || !SameText(column->FieldName(), condition.field)) continue;
    if (column->Visible()) return column.get();
    if (found == nullptr) found = column.get();
  }
  return found;
}

bool HasCondition(const TSmartDBGrid_QRT& grid, const TGridColumn& column) {
  const TADOQuery* query = grid.DataSet();
  return query != nullptr && std::any_of(query->Narrowing().begin(), query->Narrowing().end(),
                                         [&column](const RowCondition& condition) {
                                           return SameText(condition.field, column.FieldName());
                                         });
}

void AddCondition(TSmartDBGrid_QRT& grid, RowCondition condition) {
  if (ColumnOf(grid, condition) == nullptr) return;
  std::vector<RowCondition> conditions = ConditionsOf(grid);
  std::erase_if(conditions, [&](const RowCondition& there) { return Replaces(condition, there); });
  conditions.push_back(std::move(condition));
  SetConditions(grid, std::move(conditions));
}

void RemoveCondition(TSmartDBGrid_QRT& grid, const RowCondition& condition) {
  std::vector<RowCondition> conditions = ConditionsOf(grid);
  std::erase(conditions, condition);
  SetConditions(grid, std::move(conditions));
}

void RemoveConditions(TSmartDBGrid_QRT& grid, const TGridColumn& column) {
  std::vector<RowCondition> conditions = ConditionsOf(grid);
  std::erase_if(conditions,
                [&](const RowCondition& there) { return SameText(there.field, column.FieldName()); });
  SetConditions(grid, std::move(conditions));
}

void RemoveConditions(TSmartDBGrid_QRT& grid) { SetConditions(grid, {}); }

std::string ConditionText(const TSmartDBGrid_QRT& grid, const RowCondition& condition) {
  const TGridColumn* column = ColumnOf(grid, condition);
  const std::string title = column == nullptr ? condition.field : TitleOfColumn(*column);
  std::vector<std::string> shown;
  for (const Value& value : condition.values) {
    std::string text = column == nullptr ? value.AsText() : column->Format().Format(value);
    text = text.empty() ? std::string(kEmptyCell) : "«" + text + "»";
    if (std::find(shown.begin(), shown.end(), text) == shown.end()) shown.push_back(std::move(text));
  }
  std::string list;
  for (std::size_t i = 0; i < std::min(shown.size(), kMostNamedValues); ++i)
    list += (i == 0 ? "" : "، ") + shown[i];
  if (shown.size() > kMostNamedValues)
    list += " و " + std::to_string(shown.size() - kMostNamedValues) + " مقدار دیگر";
  if (shown.empty()) list = "هیچ";
  return title + ": " + std::string(kConditionWords[static_cast<std::size_t>(condition.kind)]) + list;
}

std::string NarrowingLine(const TSmartDBGrid_QRT& grid) {
  std::string line;
  for (const RowCondition& condition : ConditionsOf(grid))
    line += (line.empty() ? "فیلتر جدول : " : " ؛ ") + ConditionText(grid, condition);
  return line;
}

}  // namespace goods
