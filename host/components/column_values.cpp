#include "host/components/column_values.h"

#include <algorithm>
#include <utility>

#include "host/data/persian.h"

namespace goods {
namespace {

// Beyond so many numbers their texts are worked out again each time rather than kept.
constexpr std::size_t kMostKnownNumbers = 100'000;

}  // namespace

ColumnValues::ColumnValues(const TSmartDBGrid_QRT& grid, const TGridColumn& column, const std::string& search)
    : grid_(grid), column_(column), needle_(FoldPersian(search)) {
  const TADOQuery* query = grid.DataSet();
  if (query == nullptr || !query->Active() || column.Withheld()) return;
  field_ = query->FindField(column.FieldName());
  if (!field_) return;
  if (column.IsNumber()) decimals_ = column.Format().Decimals();
  total_ = query->TotalCount();
  mask_ = query->RowsBeside(column.FieldName());
  const RowStore& rows = *query->Rows();
  if (*field_ >= rows.Columns().size() || rows.Columns()[*field_].type != ColumnType::Text) return;
  texts_ = &rows.ColumnAt(*field_);
  byTextId_.assign(texts_->DistinctTexts(), kUnknown);
}

bool ColumnValues::Work(std::size_t rows) {
  if (Done()) return false;
  const std::size_t end = std::min(total_, row_ + rows);
  for (; row_ < end; ++row_) {
    if (!mask_.empty() && ((mask_[row_ / 64] >> (row_ % 64)) & 1U) == 0) continue;
    if (const std::uint32_t entry = EntryOf(row_); entry < kLeftOut) ++entries_[entry].count;
  }
  if (Done()) SortEntries();
  return !Done();
}

std::uint32_t ColumnValues::EntryOf(std::size_t row) {
  if (texts_ != nullptr && !texts_->IsNull(row)) {
    std::uint32_t& known = byTextId_[texts_->TextId(row)];
    if (known == kUnknown) known = EntryOfValue(Value(texts_->Text(row)));
    return known;
  }
  Value value = grid_.DataSet()->StoredCell(row, *field_);
  return value.IsNumber() ? EntryOfNumber(value.AsDecimal()) : EntryOfValue(std::move(value));
}

std::uint32_t ColumnValues::EntryOfNumber(Decimal number) {
  if (decimals_ >= 0) number = number.Rounded(decimals_);
  if (const auto found = byNumber_.find(number.Units()); found != byNumber_.end()) return found->second;
  // A full list takes no other number, but for the opposite of one that is shown without its sign.
  if (IsFull() && needle_.empty() && !byNumber_.contains(-number.Units())) {
    more_ = true;
    return kLeftOut;
  }
  const std::uint32_t entry = EntryOfValue(Value(number));
  if (byNumber_.size() < kMostKnownNumbers) byNumber_.emplace(number.Units(), entry);
  return entry;
}

std::uint32_t ColumnValues::EntryOfValue(Value value) {
  std::string text = column_.Format().Format(value);
  if (!needle_.empty() && FoldPersian(text).find(needle_) == std::string::npos) return kLeftOut;
  if (text.empty()) value = Value();
  const auto found = byText_.find(text);
  if (found == byText_.end()) {
    if (IsFull()) {
      more_ = true;
      return kLeftOut;
    }
    const auto entry = static_cast<std::uint32_t>(entries_.size());
    byText_.emplace(text, entry);
    entries_.push_back({std::move(text), {std::move(value)}, 0});
    return entry;
  }
  // The same text for another number: one that differs beyond the decimals shown, or in its sign.
  std::vector<Value>& values = entries_[found->second].values;
  if (std::find(values.begin(), values.end(), value) == values.end()) values.push_back(std::move(value));
  return found->second;
}

// Empty cells first, as the column sorts them.
void ColumnValues::SortEntries() {
  const auto less = [](const Entry& a, const Entry& b) {
    const Value& first = a.values.front();
    const Value& second = b.values.front();
    if (first.IsNull() || second.IsNull()) return first.IsNull() && !second.IsNull();
    if (first.IsNumber() && second.IsNumber()) return first.AsDecimal() < second.AsDecimal();
    return PersianSortKey(a.text) < PersianSortKey(b.text);
  };
  std::sort(entries_.begin(), entries_.end(), less);
}

}  // namespace goods
