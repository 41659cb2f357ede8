// 128-bit arithmetic that the decimals, the display formats and the packed columns share.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "host/data/decimal.h"

namespace goods {

__extension__ typedef unsigned __int128 UInt128;

inline constexpr std::array<std::int64_t, 10> kPowersOfTen = {
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};

constexpr std::int64_t PowerOfTen(int exponent) { return kPowersOfTen[static_cast<std::size_t>(exponent)]; }

// The amount without its sign; right for the smallest number too.
constexpr UInt128 Magnitude(Int128 value) {
  return value < 0 ? UInt128{0} - static_cast<UInt128>(value) : static_cast<UInt128>(value);
}

// The magnitude in units of step, rounded half up.
constexpr UInt128 RoundedQuotient(UInt128 magnitude, UInt128 step) {
  const UInt128 rest = magnitude % step;
  return magnitude / step + (rest >= step - rest ? 1U : 0U);
}

// The decimal digits, without leading zeros; "0" for zero.
std::string DigitsOf(UInt128 value);

}  // namespace goods
