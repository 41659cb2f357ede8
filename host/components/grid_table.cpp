// The grid as a typed table.
#include <algorithm>
#include <memory>
#include <stdexcept>

#include "host/components/grid.h"
#include "host/components/grid_groups.h"

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
class GridTable : public IDetailedTable {
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
    return sources_[column].column->Format().Format(GridTable::Cell(row, column));
  }
  std::optional<Color> CellColor(std::size_t row, std::size_t column) const override {
    if (columns_[column].kind != CellKind::Swatch) return std::nullopt;
    const Value value = GridTable::Cell(row, column);
    return value.IsNull() ? std::nullopt : ParseColor(value.AsText());
  }
  bool HasFooter() const override { return grid_.ShowFooter; }
  // None where it is beyond the range of numbers: a file has no total then, and its rows.
  Value Footer(std::size_t column) const override {
    try {
      return grid_.FooterValue(*sources_[column].column);
    } catch (const std::overflow_error&) {
      return {};
    }
  }
  std::string FooterText(std::size_t column) const override {
    return grid_.FooterText(*sources_[column].column);
  }
  std::vector<UnitSum> UnitSums(std::size_t column) const override {
    return grid_.Groups().AllUnits().Sums(*sources_[column].column);
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

// The same in groups: a line for each head, each unit of measure, and each row that is not folded away.
class GroupedTable : public GridTable {
 public:
  GroupedTable(const TSmartDBGrid_QRT& grid, GridGroups::Lines lines)
      : GridTable(grid),
        grid_(grid),
        groups_(grid.Groups()),
        lines_(lines),
        levels_(groups_.Columns().size()),
        columns_(grid.VisibleColumns()) {
    const auto text = std::find_if(columns_.begin(), columns_.end(),
                                   [](const TGridColumn* each) { return each->Footer() != FooterKind::Sum; });
    text_ = text == columns_.end() ? 0 : static_cast<std::size_t>(text - columns_.begin());
  }

  std::size_t RowCount() const override { return groups_.LineCount(lines_); }
  RowRole Role(std::size_t row) const override {
    const GridGroups::Line line = At(row);
    return line.row ? RowRole::Row : line.unit ? RowRole::UnitTotal : RowRole::GroupHead;
  }
  std::size_t TextColumn() const override { return text_; }
  std::optional<std::size_t> RowNumber(std::size_t row) const override {
    const GridGroups::Line line = At(row);
    return line.row ? std::optional(*line.row + 1) : std::nullopt;
  }
  std::size_t GroupLevels() const override { return levels_; }
  std::size_t Level(std::size_t row) const override {
    const GridGroups::Line line = At(row);
    return line.row ? levels_ : groups_.LevelOf(line.group);
  }
  bool Folded(std::size_t row) const override { return groups_.Folded(At(row).group); }
  std::unique_ptr<IDetailedTable> Unfolded() const override {
    if (groups_.LineCount(GridGroups::Lines::All) == RowCount()) return nullptr;
    return std::make_unique<GroupedTable>(grid_, GridGroups::Lines::All);
  }
  bool Hidden(std::size_t row) const override {
    const GridGroups::Line line = At(row);
    return line.row ? !groups_.InView(*line.row) : groups_.FoldedAway(line.group);
  }
  Value Cell(std::size_t row, std::size_t column) const override {
    const GridGroups::Line line = At(row);
    if (line.row) return GridTable::Cell(*line.row, column);
    return column == text_ ? Value(groups_.HeadText(line)) : groups_.Total(line, *columns_[column]);
  }
  std::string CellText(std::size_t row, std::size_t column) const override {
    const GridGroups::Line line = At(row);
    if (line.row) return GridTable::CellText(*line.row, column);
    return column == text_ ? groups_.HeadText(line) : groups_.TotalText(line, *columns_[column]);
  }
  std::optional<Color> CellColor(std::size_t row, std::size_t column) const override {
    const GridGroups::Line line = At(row);
    return line.row ? GridTable::CellColor(*line.row, column) : std::nullopt;
  }

 private:
  GridGroups::Line At(std::size_t row) const { return groups_.LineAt(row, lines_); }

  const TSmartDBGrid_QRT& grid_;
  const GridGroups& groups_;
  GridGroups::Lines lines_;
  std::size_t levels_;
  std::vector<TGridColumn*> columns_;
  std::size_t text_ = 0;
};

}  // namespace

std::unique_ptr<IReportTable> TSmartDBGrid_QRT::RowsTable() const {
  return std::make_unique<GridTable>(*this);
}

std::unique_ptr<IReportTable> TSmartDBGrid_QRT::Table() const {
  if (groups_->Active()) return std::make_unique<GroupedTable>(*this, GridGroups::Lines::Shown);
  return RowsTable();
}

}  // namespace goods
