#include "desktop/print/table_snapshot.h"

#include "host/core/color.h"

namespace goods {

TableSnapshot::TableSnapshot(const IReportTable& table)
    : columns_(table.Columns()),
      rows_(table.RowCount()),
      hasFooter_(table.HasFooter()),
      hasRowNumbers_(table.HasRowNumbers()),
      keyColumns_(table.KeyColumns()) {
  const IDetailedTable* details = DetailsOf(&table);
  for (std::size_t c = 0; c < columns_.size(); ++c) {
    formats_.emplace_back(columns_[c].format);
    footers_.push_back({table.Footer(c), table.FooterText(c),
                        details == nullptr ? std::vector<UnitSum>() : details->UnitSums(c)});
  }
  cells_.reserve(rows_ * columns_.size());
  for (std::size_t row = 0; row < rows_; ++row)
    for (std::size_t c = 0; c < columns_.size(); ++c) cells_.push_back(table.Cell(row, c));
}

TableSnapshot::~TableSnapshot() = default;

std::optional<Color> TableSnapshot::CellColor(std::size_t row, std::size_t column) const {
  if (columns_[column].kind != CellKind::Swatch) return std::nullopt;
  const Value& value = cells_[At(row, column)];
  return value.IsNull() ? std::nullopt : ParseColor(value.AsText());
}

}  // namespace goods
