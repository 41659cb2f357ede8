#include "host/components/grid_arrangement.h"

#include <utility>
#include <vector>

#include "host/core/text.h"

namespace goods {
namespace {

// A line that no column has.
constexpr std::string_view kSortLine = "*Sort=";

const TGridColumn* SortColumnNamed(const TSmartDBGrid_QRT& grid, std::string_view name) {
  for (const auto& column : grid.Columns()) {
    if (SameText(column->Name(), name) && !column->Withheld()) return column.get();
  }
  return nullptr;
}

}  // namespace

std::string ArrangementOf(const TSmartDBGrid_QRT& grid) {
  std::string text = grid.SaveLayout();
  std::string sort;
  for (const TSortKey& key : grid.SortKeys()) {
    const TGridColumn* column = grid.FindColumn(key.FieldName);
    if (column == nullptr) continue;
    sort += (sort.empty() ? "" : ",") + std::string(key.Descending ? "-" : "+") + column->Name();
  }
  if (!sort.empty()) text += std::string(kSortLine) + sort + "\n";
  return text;
}

void ApplyArrangement(TSmartDBGrid_QRT& grid, std::string_view text) {
  grid.LoadLayout(text);
  for (const std::string& line : Split(text, '\n')) {
    if (!line.starts_with(kSortLine)) continue;
    std::vector<TSortKey> keys;
    for (const std::string& part : Split(Trim(std::string_view(line).substr(kSortLine.size())), ',')) {
      const TGridColumn* column = part.size() < 2 ? nullptr : SortColumnNamed(grid, part.substr(1));
      if (column != nullptr) keys.push_back({column->FieldName(), part.front() == '-'});
    }
    if (!keys.empty()) grid.SetSortKeys(std::move(keys));
  }
}

}  // namespace goods
