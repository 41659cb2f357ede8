// ExactSum: a sum that cannot overflow on its way, only at its end.
#pragma once

#include <cstdint>
#include <limits>
#include <stdexcept>

#include "host/data/wide_integer.h"

namespace goods {

// The halves of the addends are added apart, each with room for 2^32 of them.
class ExactSum {
 public:
  void Add(Int128 units) {
    high_ += units >> 64;
    low_ += static_cast<std::uint64_t>(units);
  }
  // Throws std::overflow_error when the sum is beyond the range of Decimal.
  Decimal Total() const {
    const Int128 high = high_ + static_cast<Int128>(low_ >> 64U);
    if (high < std::numeric_limits<std::int64_t>::min() || high > std::numeric_limits<std::int64_t>::max()) {
      throw std::overflow_error("حاصل از اندازه یک عدد بزرگتر است.");
    }
    const UInt128 units = (static_cast<UInt128>(high) << 64U) | static_cast<std::uint64_t>(low_);
    return Decimal::FromUnits(static_cast<Int128>(units));
  }

 private:
  Int128 high_ = 0;
  UInt128 low_ = 0;
};

}  // namespace goods
