#include "desktop/views/grid_finder.h"

#include <algorithm>

#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {
namespace {

std::string WithoutSeparators(std::string text) {
  std::erase(text, ',');
  return text;
}

// Empty where it has other characters than those of numbers.
std::string AsNumber(const std::string& needle) {
  std::string number = ReplaceAll(ReplaceAll(needle, "٬", ""), "٫", ".");
  number = ReplaceAll(WithoutSeparators(std::move(number)), "/", ".");
  return number.find_first_not_of("0123456789.-") == std::string::npos ? number : std::string();
}

}  // namespace

GridFinder::GridFinder(const TSmartDBGrid_QRT& grid, const std::string& text, std::size_t from)
    : grid_(grid), query_(grid.DataSet()), needle_(FoldPersian(text)), number_(AsNumber(needle_)) {
  if (query_ == nullptr || !query_->Active() || needle_.empty()) return;
  const RowStore& rows = *query_->Rows();
  for (const TGridColumn* column : grid.VisibleColumns()) {
    const auto field = query_->FindField(column->FieldName());
    if (!field || column->Kind() == CellKind::Swatch) continue;
    const bool stored = *field < rows.Columns().size();
    const bool isText = stored && rows.Columns()[*field].type == ColumnType::Text;
    const bool number = !isText && query_->Fields()[*field].type != ColumnType::Text;
    if (number && number_.empty()) continue;
    SearchedColumn& searched = columns_.emplace_back();
    searched = {column, *field, number, isText ? &rows.ColumnAt(*field) : nullptr, {}};
    if (isText) searched.byId.assign(searched.texts->DistinctTexts(), -1);
  }
  total_ = columns_.empty() ? 0 : grid.RowCount();
  from_ = from < total_ ? from : 0;
}

bool GridFinder::Holds(SearchedColumn& column, std::size_t row) {
  if (column.texts != nullptr) {
    const std::size_t stored = query_->VisibleRows()[row];
    if (column.texts->IsNull(stored)) return false;
    std::int8_t& known = column.byId[column.texts->TextId(stored)];
    if (known < 0) {
      FoldPersianInto(column.texts->Text(stored), folded_);
      known = folded_.find(needle_) != std::string::npos ? 1 : 0;
    }
    return known == 1;
  }
  const std::string text = column.column->Format().Format(query_->Cell(row, column.field));
  if (column.number) return WithoutSeparators(text).find(number_) != std::string::npos;
  FoldPersianInto(text, folded_);
  return folded_.find(needle_) != std::string::npos;
}

bool GridFinder::CellHolds(std::size_t row, const TGridColumn& column) {
  if (row >= total_) return false;
  const auto found = std::find_if(columns_.begin(), columns_.end(),
                                  [&](const SearchedColumn& each) { return each.column == &column; });
  return found != columns_.end() && Holds(*found, row);
}

bool GridFinder::RowHolds(std::size_t row) {
  return row < total_ && std::any_of(columns_.begin(), columns_.end(),
                                     [&](SearchedColumn& column) { return Holds(column, row); });
}

bool GridFinder::Work(std::size_t rows) {
  const std::size_t end = std::min(total_, looked_ + rows);
  for (; looked_ < end; ++looked_) {
    const std::size_t row = (from_ + looked_) % total_;
    if (RowHolds(row)) (row >= from_ ? after_ : before_).push_back(static_cast<std::uint32_t>(row));
  }
  return !Done();
}

std::optional<std::size_t> GridFinder::Next(std::size_t row) const {
  const std::vector<std::uint32_t>& part = row + 1 >= from_ ? after_ : before_;
  const auto found = std::upper_bound(part.begin(), part.end(), row);
  if (found != part.end()) return *found;
  if (!Done() || Hits() == 0) return std::nullopt;
  // Past the rows before from_ come those behind it, and past the last the first.
  if (&part == &before_ && !after_.empty()) return after_.front();
  return HitAt(0);
}

std::optional<std::size_t> GridFinder::Previous(std::size_t row) const {
  if (!Done() || Hits() == 0) return std::nullopt;
  const auto inAfter = std::lower_bound(after_.begin(), after_.end(), row);
  const auto inBefore = std::lower_bound(before_.begin(), before_.end(), row);
  const std::size_t place = static_cast<std::size_t>(inBefore - before_.begin()) +
                            static_cast<std::size_t>(inAfter - after_.begin());
  return HitAt(place == 0 ? Hits() - 1 : place - 1);
}

std::optional<std::size_t> GridFinder::PlaceOf(std::size_t row) const {
  if (!Done()) return std::nullopt;
  const std::vector<std::uint32_t>& part = row >= from_ ? after_ : before_;
  const auto found = std::lower_bound(part.begin(), part.end(), row);
  if (found == part.end() || *found != row) return std::nullopt;
  return static_cast<std::size_t>(found - part.begin()) + (row >= from_ ? before_.size() : 0) + 1;
}

}  // namespace goods
