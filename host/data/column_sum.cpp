// The exact sums of a column.
#include <array>
#include <bit>

#include "host/data/column_chunk.h"
#include "host/data/exact_sum.h"
#include "host/data/row_store.h"
#include "host/data/wide_integer.h"

namespace goods {
namespace {

// Sums of 64-bit cells per scale; 2^32 of them cannot overflow 128 bits, scaled up to billionths neither.
using ScaleSums = std::array<Int128, Decimal::kDecimals + 1>;

Decimal Combine(ExactSum sum, const ScaleSums& byScale) {
  for (std::size_t scale = 0; scale < byScale.size(); ++scale) {
    sum.Add(byScale[scale] * PowerOfTen(Decimal::kDecimals - static_cast<int>(scale)));
  }
  return sum.Total();
}

// Calls add with each cell of the chunk whose bit is set.
template <typename Cells, typename Add>
void ForMasked(const Cells& cells, std::size_t size, const std::uint64_t* mask, Add add) {
  for (std::size_t from = 0; from < size; from += 64) {
    for (std::uint64_t word = mask[from / 64]; word != 0; word &= word - 1) {
      add(cells[from + static_cast<std::size_t>(std::countr_zero(word))]);
    }
  }
}

}  // namespace

Decimal Column::Sum(const std::uint32_t* rows, std::size_t count) const {
  if (Type() == ColumnType::Text) return Decimal();
  ExactSum wide;
  ScaleSums byScale{};
  for (std::size_t i = 0; i < count; ++i) {
    const ColumnChunk& chunk = ChunkOf(rows[i]);
    const std::size_t cell = rows[i] % kChunkCells;
    if (chunk.wide) {
      wide.Add(chunk.wide[cell]);
    } else {
      byScale[static_cast<std::size_t>(chunk.scale)] += chunk.narrow[cell];
    }
  }
  return Combine(wide, byScale);
}

Decimal Column::SumAll() const {
  if (Type() == ColumnType::Text) return Decimal();
  ExactSum wide;
  ScaleSums byScale{};
  for (const ColumnChunk& chunk : Chunks()) {
    Int128 narrow = 0;
    for (std::size_t i = 0; i < chunk.size; ++i) {
      if (chunk.wide) {
        wide.Add(chunk.wide[i]);
      } else {
        narrow += chunk.narrow[i];
      }
    }
    byScale[static_cast<std::size_t>(chunk.scale)] += narrow;
  }
  return Combine(wide, byScale);
}

Decimal Column::SumMasked(const std::uint64_t* mask) const {
  if (Type() == ColumnType::Text) return Decimal();
  ExactSum wide;
  ScaleSums byScale{};
  for (const ColumnChunk& chunk : Chunks()) {
    if (chunk.wide) {
      ForMasked(chunk.wide, chunk.size, mask, [&wide](Int128 cell) { wide.Add(cell); });
    } else {
      Int128 sum = 0;
      ForMasked(chunk.narrow.get(), chunk.size, mask, [&sum](std::int64_t cell) { sum += cell; });
      byScale[static_cast<std::size_t>(chunk.scale)] += sum;
    }
    mask += kChunkCells / 64;
  }
  return Combine(wide, byScale);
}

}  // namespace goods
