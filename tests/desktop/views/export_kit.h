// What the tests of exported files share: a table made of values, and the contents of a file.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "company/files/whole_file.h"
#include "desktop/views/shown_text.h"
#include "host/data/display_format.h"
#include "host/services/detailed_table.h"

namespace goods::testing {

class MadeTable : public IDetailedTable {
 public:
  void Add(std::string name, std::string caption, CellKind kind, std::vector<Value> cells) {
    ReportColumn column;
    column.name = std::move(name);
    column.caption = std::move(caption);
    column.kind = kind;
    columns_.push_back(std::move(column));
    cells_.push_back(std::move(cells));
  }
  // With a total.
  void AddNumber(std::string name, std::string caption, std::string format, std::vector<Value> cells) {
    Add(std::move(name), std::move(caption), CellKind::Number, std::move(cells));
    columns_.back().isNumber = true;
    columns_.back().format = std::move(format);
    columns_.back().total = TotalKind::Sum;
  }
  // Of the column that was added last, in pixels.
  void SetWidth(int width) { columns_.back().width = width; }
  std::size_t keys = 0;
  // By column; none for the others.
  std::map<std::size_t, std::vector<UnitSum>> units;

  const std::vector<ReportColumn>& Columns() const override { return columns_; }
  std::size_t RowCount() const override { return cells_.empty() ? 0 : cells_.front().size(); }
  Value Cell(std::size_t row, std::size_t column) const override { return cells_[column][row]; }
  std::string CellText(std::size_t row, std::size_t column) const override {
    return DisplayFormat(columns_[column].format).Format(Cell(row, column));
  }
  std::optional<Color> CellColor(std::size_t row, std::size_t column) const override {
    if (columns_[column].kind != CellKind::Swatch) return std::nullopt;
    return ParseColor(Cell(row, column).AsText());
  }
  bool HasFooter() const override { return true; }
  Value Footer(std::size_t column) const override {
    if (columns_[column].total == TotalKind::None) return {};
    Decimal sum;
    for (const Value& value : cells_[column]) sum += value.AsDecimal();
    return sum;
  }
  std::string FooterText(std::size_t column) const override {
    return DisplayFormat(columns_[column].format).Format(Footer(column));
  }
  std::vector<UnitSum> UnitSums(std::size_t column) const override {
    const auto found = units.find(column);
    return found == units.end() ? std::vector<UnitSum>() : found->second;
  }
  bool HasRowNumbers() const override { return false; }
  std::size_t KeyColumns() const override { return keys; }

 private:
  std::vector<ReportColumn> columns_;
  std::vector<std::vector<Value>> cells_;
};

inline QByteArray Contents(const std::string& path) {
  QFile file(ToQt(path));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace goods::testing
