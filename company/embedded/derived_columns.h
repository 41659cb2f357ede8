// Columns of a procedure's result that follow from the cells before them, worked out while the rows are read.
// A window function would do the same at four times the cost of the whole reading.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "host/data/decimal.h"

namespace goods {

// Running: the sum of the column's own cells from the first row to this one. RunningWithin: the same over the
// rows whose cell of the integer column first equals this row's. Product: the cells first and second of this
// row, multiplied. Sources stand before the column.
enum class Derivation { None, Running, RunningWithin, Product };

struct DerivedColumn {
  Derivation kind = Derivation::None;
  std::size_t first = 0;
  std::size_t second = 0;
};

// Sums by key. Keys are few (stores) and come in runs, so the last one is tried first.
class KeyedSums {
 public:
  // The key's sum with the value added. Throws std::overflow_error.
  Decimal Add(std::int64_t key, Decimal value) {
    if (last_ >= sums_.size() || sums_[last_].first != key) {
      for (last_ = 0; last_ < sums_.size() && sums_[last_].first != key; ++last_) {
      }
      if (last_ == sums_.size()) sums_.emplace_back(key, Decimal());
    }
    return sums_[last_].second += value;
  }

 private:
  std::vector<std::pair<std::int64_t, Decimal>> sums_;
  std::size_t last_ = 0;
};

}  // namespace goods
