// Sorting inside the data kit: a text becomes keys, keys over columns become an order of rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/data/row_store.h"

namespace goods {

struct SortKey {
  std::string field;
  bool descending = false;
  int detail = -1;        // as SortColumn has it
  std::size_t place = 0;  // of the field in the sort text, in characters from 1
};

// Throws FilterError. An empty text has no keys.
std::vector<SortKey> ParseSort(std::string_view text);

struct SortColumn {
  const Column* column = nullptr;
  bool descending = false;
  // Texts are compared by so many of their first characters, an empty one as a null, and numbers by so many
  // decimals, rounded; -1: in full.
  int detail = -1;
};

// The rows 0 to rowCount - 1 in the order of the columns, the first one counting most. Equal rows keep their
// order; nulls come first in either direction; texts are in the order of PersianSortKey.
std::vector<std::uint32_t> SortRows(std::span<const SortColumn> columns, std::size_t rowCount);

}  // namespace goods
