// ColumnValues: the distinct values of a grid's column, gathered in portions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/components/grid.h"
#include "host/data/wide_integer.h"

namespace goods {

// Looks at the rows that the filter of the report and the user's conditions on other columns let through.
// Values that are shown alike are one. At most kMostValues are kept, those met first; each of them is counted
// to the end. Null cells and empty texts are one value, shown as the empty text. The rows must not change
// meanwhile: whoever gathers drops it when they do.
class ColumnValues {
 public:
  static constexpr std::size_t kMostValues = 1000;

  // search: only values whose shown text holds it, as a Persian reader compares; empty for all.
  ColumnValues(const TSmartDBGrid_QRT& grid, const TGridColumn& column, const std::string& search = "");

  struct Entry {
    std::string text;  // as the column shows it
    // Those that look so, numbers rounded to the decimals shown; one null for empty cells.
    std::vector<Value> values;
    std::size_t count = 0;
  };

  // Looks at up to so many rows of the store more; false when all have been looked at.
  bool Work(std::size_t rows);
  bool Done() const { return row_ >= total_; }
  // In the order in which they were met until Work has given false; then as the column sorts.
  const std::vector<Entry>& Entries() const { return entries_; }
  // There are others, which were left out.
  bool More() const { return more_; }

 private:
  static constexpr std::uint32_t kUnknown = 0xFFFFFFFF;
  static constexpr std::uint32_t kLeftOut = 0xFFFFFFFE;

  std::uint32_t EntryOf(std::size_t row);
  std::uint32_t EntryOfNumber(Decimal number);
  std::uint32_t EntryOfValue(Value value);
  bool IsFull() const { return entries_.size() >= kMostValues; }
  void SortEntries();

  const TSmartDBGrid_QRT& grid_;
  const TGridColumn& column_;
  std::string needle_;
  std::optional<std::size_t> field_;
  int decimals_ = -1;              // that numbers are shown with
  const Column* texts_ = nullptr;  // a text column of the store
  std::size_t total_ = 0;
  std::size_t row_ = 0;
  std::vector<std::uint64_t> mask_;
  std::vector<Entry> entries_;
  std::vector<std::uint32_t> byTextId_;
  std::unordered_map<std::string, std::uint32_t> byText_;
  struct UnitsHash {
    std::size_t operator()(Int128 units) const {
      const auto bits = static_cast<std::uint64_t>(units) ^ static_cast<std::uint64_t>(units >> 64);
      return static_cast<std::size_t>(bits * 0x9E3779B97F4A7C15ULL >> 16);
    }
  };
  std::unordered_map<Int128, std::uint32_t, UnitsHash> byNumber_;  // rounded to the decimals shown
  bool more_ = false;
};

}  // namespace goods
