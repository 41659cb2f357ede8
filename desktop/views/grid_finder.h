// GridFinder: the rows of a table that hold a text, looked for in portions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/components/grid.h"

namespace goods {

// Looks at what the visible columns show, as a Persian reader compares (FoldPersian); numbers also without
// their thousands separators and with "/" for the point. Begins at a given row and goes round, so that what
// comes next is known first. Columns and rows must not change meanwhile: whoever looks makes another one when
// they do.
class GridFinder {
 public:
  GridFinder(const TSmartDBGrid_QRT& grid, const std::string& text, std::size_t from);

  bool CellHolds(std::size_t row, const TGridColumn& column);
  bool RowHolds(std::size_t row);

  // Looks at up to so many rows more; false when all have been looked at.
  bool Work(std::size_t rows);
  bool Done() const { return looked_ >= total_; }
  // Of the rows that were looked at.
  std::size_t Hits() const { return before_.size() + after_.size(); }
  // The next row that holds the text, after the last one the first; none where there is none, or not yet.
  std::optional<std::size_t> Next(std::size_t row) const;
  std::optional<std::size_t> Previous(std::size_t row) const;
  // The place of a row among those that hold the text, from 1; none where it does not, or before the end.
  std::optional<std::size_t> PlaceOf(std::size_t row) const;

 private:
  struct SearchedColumn {
    const TGridColumn* column;
    std::size_t field;
    bool number;
    const Column* texts;            // a text column of the store
    std::vector<std::int8_t> byId;  // of its texts: 1 holds, 0 does not, -1 not looked at
  };

  bool Holds(SearchedColumn& column, std::size_t row);
  std::size_t HitAt(std::size_t place) const {
    return place < before_.size() ? before_[place] : after_[place - before_.size()];
  }

  const TSmartDBGrid_QRT& grid_;
  const TADOQuery* query_;
  std::string needle_;
  std::string number_;  // the needle as a number is compared; empty where no number can hold it
  std::vector<SearchedColumn> columns_;
  std::size_t from_ = 0;
  std::size_t total_ = 0;
  std::size_t looked_ = 0;
  std::vector<std::uint32_t> after_;   // rows from from_ on, ascending
  std::vector<std::uint32_t> before_;  // those before it
  std::string folded_;
};

}  // namespace goods
