// TableSnapshot: what a table held when the snapshot was made, without its grid and its rows.
#pragma once

#include <string>
#include <vector>

#include "host/data/display_format.h"
#include "host/services/detailed_table.h"

namespace goods {

class TableSnapshot : public IDetailedTable {
 public:
  explicit TableSnapshot(const IReportTable& table);
  ~TableSnapshot() override;

  const std::vector<ReportColumn>& Columns() const override { return columns_; }
  std::size_t RowCount() const override { return rows_; }
  Value Cell(std::size_t row, std::size_t column) const override { return cells_[At(row, column)]; }
  std::string CellText(std::size_t row, std::size_t column) const override {
    return formats_[column].Format(cells_[At(row, column)]);
  }
  std::optional<Color> CellColor(std::size_t row, std::size_t column) const override;
  bool HasFooter() const override { return hasFooter_; }
  Value Footer(std::size_t column) const override { return footers_[column].value; }
  std::string FooterText(std::size_t column) const override { return footers_[column].text; }
  std::vector<UnitSum> UnitSums(std::size_t column) const override { return footers_[column].units; }
  bool HasRowNumbers() const override { return hasRowNumbers_; }
  std::size_t KeyColumns() const override { return keyColumns_; }

 private:
  struct Total {
    Value value;
    std::string text;
    std::vector<UnitSum> units;
  };
  std::size_t At(std::size_t row, std::size_t column) const { return row * columns_.size() + column; }

  std::vector<ReportColumn> columns_;
  std::vector<DisplayFormat> formats_;
  std::size_t rows_;
  std::vector<Value> cells_;  // row by row
  std::vector<Total> footers_;
  bool hasFooter_;
  bool hasRowNumbers_;
  std::size_t keyColumns_;
};

}  // namespace goods
