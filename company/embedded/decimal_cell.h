// How a decimal stands in a cell of the company file: an INTEGER of billionths, or, where that does not fit
// 64 bits, a BLOB of 16 bytes, little-endian two's complement. One number has one form, so equal cells are
// equal numbers.
#pragma once

#include <array>
#include <cstdint>
#include <limits>

#include <sqlite3.h>

#include "host/data/decimal.h"

namespace goods {

using WideCell = std::array<unsigned char, 16>;

constexpr bool FitsCell64(Int128 units) {
  return units >= std::numeric_limits<std::int64_t>::min() &&
         units <= std::numeric_limits<std::int64_t>::max();
}

inline WideCell ToWideCell(Int128 units) {
  WideCell cell{};
  for (unsigned char& byte : cell) {
    byte = static_cast<unsigned char>(units & 0xff);
    units >>= 8;
  }
  return cell;
}

inline Int128 FromWideCell(const void* bytes) {
  const auto* cell = static_cast<const unsigned char*>(bytes);
  std::uint64_t low = 0;
  std::uint64_t high = 0;
  for (int i = 7; i >= 0; --i) {
    low = low << 8 | cell[i];
    high = high << 8 | cell[i + 8];
  }
  return static_cast<Int128>(static_cast<std::int64_t>(high)) << 64 | low;
}

// The billionths in a result column that holds a decimal cell; null is 0.
inline Int128 ColumnUnits(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      return sqlite3_column_int64(statement, column);
    case SQLITE_BLOB:
      return sqlite3_column_bytes(statement, column) == 16
                 ? FromWideCell(sqlite3_column_blob(statement, column))
                 : 0;
    default:
      return 0;
  }
}

// The billionths as the result of a function, in the cell form.
inline void ReturnUnits(sqlite3_context* context, Int128 units) {
  if (FitsCell64(units)) {
    sqlite3_result_int64(context, static_cast<std::int64_t>(units));
  } else {
    const WideCell cell = ToWideCell(units);
    sqlite3_result_blob(context, cell.data(), static_cast<int>(cell.size()), SQLITE_TRANSIENT);
  }
}

// The product of two numbers in billionths, as Decimal multiplies, with a short way for those of 64 bits.
// Throws std::overflow_error.
inline Int128 MultiplyUnits(Int128 a, Int128 b) {
  if (!FitsCell64(a) || !FitsCell64(b)) return (Decimal::FromUnits(a) * Decimal::FromUnits(b)).Units();
  const Int128 product = a * b;
  constexpr Int128 kHalf = Decimal::kOne / 2;
  const Int128 away = product < 0 ? product - kHalf : product + kHalf;
  if (FitsCell64(away)) return static_cast<std::int64_t>(away) / Decimal::kOne;
  return away / Decimal::kOne;
}

}  // namespace goods
