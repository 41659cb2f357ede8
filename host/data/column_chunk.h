// How a column's cells lie in memory: for code that works through whole columns (filter, sort, sums).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "host/data/wide_integer.h"

namespace goods {

inline constexpr std::size_t kChunkShift = 16;
inline constexpr std::size_t kChunkCells = std::size_t{1} << kChunkShift;

// Decimals in billionths that 64 bits do not hold: as few bits a cell as are enough for all of them, 72 (up
// to 2.3 trillion), 80 (up to 600 trillion) or 128. A few large amounts in a chunk then cost an eighth or a
// quarter more, not twice as much.
class WideCells {
 public:
  WideCells() = default;
  WideCells(const Int128* cells, std::size_t count);
  explicit operator bool() const { return low_ != nullptr || full_ != nullptr; }
  Int128 operator[](std::size_t i) const {
    if (full_ != nullptr) return full_[i];
    const Int128 high = highByte_ != nullptr ? highByte_[i] : high_[i];
    return static_cast<Int128>((static_cast<UInt128>(high) << 64U) | low_[i]);
  }
  std::size_t BytesPerCell() const {
    if (full_ != nullptr) return sizeof(Int128);
    return sizeof(std::uint64_t) + (highByte_ != nullptr ? sizeof(std::int8_t) : sizeof(std::int16_t));
  }

 private:
  // Either full_, or low_ with one of the two above it.
  std::unique_ptr<std::uint64_t[]> low_;
  std::unique_ptr<std::int8_t[]> highByte_;
  std::unique_ptr<std::int16_t[]> high_;
  std::unique_ptr<Int128[]> full_;
};

// Up to kChunkCells cells of one column; every chunk but the last is full. Exactly one kind of cells is
// there: narrow (integers, and decimals at a common scale), wide (decimals in billionths), or text ids.
struct ColumnChunk {
  std::size_t size = 0;
  std::unique_ptr<std::int64_t[]> narrow;
  WideCells wide;
  std::unique_ptr<std::uint32_t[]> ids;
  // Text chunks without ids: cell i has the id firstId + i.
  std::uint32_t firstId = 0;
  // Decimals of the narrow cells, 0 to 9.
  int scale = 0;
  // A set bit is a null; no bitmap, no nulls.
  std::unique_ptr<std::uint64_t[]> nulls;

  bool IsNull(std::size_t i) const { return nulls != nullptr && ((nulls[i / 64] >> (i % 64)) & 1U) != 0; }
  // A number in billionths.
  Int128 Units(std::size_t i) const {
    return wide ? wide[i] : Int128{narrow[i]} * PowerOfTen(Decimal::kDecimals - scale);
  }
  std::uint32_t TextId(std::size_t i) const {
    return ids != nullptr ? ids[i] : firstId + static_cast<std::uint32_t>(i);
  }
};

}  // namespace goods
