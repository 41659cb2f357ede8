// Columns of a procedure's result that follow from the cells before them, worked out while the rows are read.
// A window function would do the same at four times the cost of the whole reading.
#pragma once

#include <cstddef>
#include <string>

namespace goods {

// Running: the sum of the column's own cells from the first row to this one. RunningWithin: the same over the
// rows whose cell of the integer column first equals this row's. Product: the cells first and second of this
// row, multiplied. Named: the cell is a key, and what is shown is what the statement names finds for it (?1),
// asked once for each key; null without a key or a row. Sources stand before the column.
enum class Derivation { None, Running, RunningWithin, Product, Named };

struct DerivedColumn {
  Derivation kind = Derivation::None;
  std::size_t first = 0;
  std::size_t second = 0;
  std::string names;
};

}  // namespace goods
