// The grid as a typed table.
#include <algorithm>
#include <memory>

#include "host/components/grid.h"

namespace goods {
namespace {

TotalKind TotalOf(FooterKind footer) {
  switch (footer) {
    case FooterKind::Sum:
      return TotalKind::Sum;
    case FooterKind::Count:
      return TotalKind::Count;
    case FooterKind::None:
      break;
  }
  return TotalKind::None;
}

// Columns and the places of their fields are looked up once; a cell is then one access to the query.
class GridTable : public IReportTable {
 public:
  explicit GridTable(const TSmartDBGrid_QRT& grid) : grid_(grid), query_(grid.DataSet()) {
    const std::vector<ColumnInfo> fields = query_ == nullptr ? std::vector<ColumnInfo>() : query_->Fields();
    for (const TGridColumn* column : grid.VisibleColumns()) {
      const auto field = query_ == nullptr ? std::nullopt : query_->FindField(column->FieldName());
      const bool numeric = column->IsNumber() || (field && fields[*field].type != ColumnType::Text);
      const CellKind kind = column->Kind() == CellKind::Text && numeric ? CellKind::Number : column->Kind();
      sources_.push_back({column, field});
      columns_.push_back({column->FieldName(), column->Caption(), column->Width(), column->Align(),
                          column->IsNumber(), kind, column->DisplayFormatText(), TotalOf(column->Footer())});
    }
    const int keys = grid.KeyColumns > 0 ? grid.KeyColumns : grid.FixedColumns;
    const auto& all = grid.Columns();
    const auto end = all.begin() + std::clamp<std::ptrdiff_t>(keys, 0, std::ssize(all));
    keyColumns_ = static_cast<std::size_t>(
        std::count_if(all.begin(), end, [](const auto& column) { return column->Visible(); }));
    keyColumns_ = std::min(keyColumns_, columns_.size());
  }

  const std::vector<ReportColumn>& Columns() const override { return columns_; }
  std::size_t RowCount() const override { return grid_.RowCount(); }
  Value Cell(std::size_t row, std::size_t column) const override {
    const auto field = sources_[column].field;
    return field ? query_->Cell(row, *field) : Value();
  }
  std::string CellText(std::size_t row, std::size_t column) const override {
    return sources_[column].column->Format().Format(Cell(row, column));
  }
  std::optional<Color> CellColor(std::size_t row, std::size_t column) const override {
    if (columns_[column].kind != CellKind::Swatch) return std::nullopt;
    const Value value = Cell(row, column);
    return value.IsNull() ? std::nullopt : ParseColor(value.AsText());
  }
  bool HasFooter() const override { return grid_.ShowFooter; }
  Value Footer(std::size_t column) const override { return grid_.FooterValue(*sources_[column].column); }
  std::string FooterText(std::size_t column) const override {
    return grid_.FooterText(*sources_[column].column);
  }
  bool HasRowNumbers() const override { return grid_.ShowRowNumbers; }
  std::size_t KeyColumns() const override { return keyColumns_; }

 private:
  struct Source {
    const TGridColumn* column;
    std::optional<std::size_t> field;
  };

  const TSmartDBGrid_QRT& grid_;
  const TADOQuery* query_;
  std::vector<Source> sources_;
  std::vector<ReportColumn> columns_;
  std::size_t keyColumns_ = 0;
};

}  // namespace

std::unique_ptr<IReportTable> TSmartDBGrid_QRT::Table() const { return std::make_unique<GridTable>(*this); }

}  // namespace goods
