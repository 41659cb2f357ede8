// How a column's cells lie in memory: for code that works through whole columns (filter, sort, sums).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "host/data/wide_integer.h"

namespace goods {

inline constexpr std::size_t kChunkShift = 16;
inline constexpr std::size_t kChunkCells = std::size_t{1} << kChunkShift;

// Up to kChunkCells cells of one column; every chunk but the last is full. Exactly one kind of cells is
// there: narrow (integers, and decimals at a common scale), wide (decimals in billionths), or text ids.
struct ColumnChunk {
  std::size_t size = 0;
  std::unique_ptr<std::int64_t[]> narrow;
  std::unique_ptr<Int128[]> wide;
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
    return wide != nullptr ? wide[i] : Int128{narrow[i]} * PowerOfTen(Decimal::kDecimals - scale);
  }
  std::uint32_t TextId(std::size_t i) const {
    return ids != nullptr ? ids[i] : firstId + static_cast<std::uint32_t>(i);
  }
};

}  // namespace goods
