#include "host/data/chunk_packing.h"

#include <algorithm>
#include <array>
#include <limits>

#include "host/data/wide_integer.h"

namespace goods {
namespace {

// Division by 10^k without dividing: a multiple of 5^k times the inverse of 5^k modulo 2^128 is the quotient,
// and anything else lands outside of the quotients' range; the 2^k that is left is a shift.
struct ExactDivisor {
  UInt128 inverse = 1;
  Int128 limit = 0;
  unsigned shift = 0;

  bool Divides(Int128 units) const {
    const auto fifth = static_cast<Int128>(static_cast<UInt128>(units) * inverse);
    const UInt128 lowBits = (UInt128{1} << shift) - 1;
    return fifth >= -limit && fifth <= limit && (static_cast<UInt128>(fifth) & lowBits) == 0;
  }
  // Of a multiple only.
  Int128 Quotient(Int128 units) const {
    return static_cast<Int128>(static_cast<UInt128>(units) * inverse) >> shift;
  }
};

constexpr ExactDivisor MakeDivisor(unsigned k) {
  UInt128 power = 1;
  for (unsigned i = 0; i < k; ++i) power *= 5;
  UInt128 inverse = power;  // right in its lowest 3 bits; each step doubles them
  for (int step = 0; step < 6; ++step) inverse *= 2 - power * inverse;
  const UInt128 greatest = ~UInt128{0} >> 1U;
  return {inverse, static_cast<Int128>(greatest / power), k};
}

constexpr std::array<ExactDivisor, 10> kDivisors = {
    MakeDivisor(0), MakeDivisor(1), MakeDivisor(2), MakeDivisor(3), MakeDivisor(4),
    MakeDivisor(5), MakeDivisor(6), MakeDivisor(7), MakeDivisor(8), MakeDivisor(9)};

const ExactDivisor& DivisorFor(int scale) {
  return kDivisors[static_cast<std::size_t>(Decimal::kDecimals - scale)];
}

// Billionths hold every cell, also the smallest number, whose magnitude is beyond the quotients' range.
int CommonScale(const Int128* cells, std::size_t count) {
  int scale = 0;
  for (std::size_t i = 0; i < count && scale < Decimal::kDecimals; ++i) {
    while (scale < Decimal::kDecimals && !DivisorFor(scale).Divides(cells[i])) ++scale;
  }
  return scale;
}

}  // namespace

namespace {

// Whether what is above the lowest 64 bits of every cell fits so many bytes.
template <typename High>
bool Fit(const Int128* cells, std::size_t count) {
  return std::all_of(cells, cells + count, [](Int128 units) {
    const auto high = static_cast<std::int64_t>(units >> 64U);
    return high >= std::numeric_limits<High>::min() && high <= std::numeric_limits<High>::max();
  });
}

template <typename High>
std::unique_ptr<High[]> HighPart(const Int128* cells, std::size_t count) {
  auto high = std::make_unique_for_overwrite<High[]>(count);
  std::transform(cells, cells + count, high.get(),
                 [](Int128 units) { return static_cast<High>(units >> 64U); });
  return high;
}

}  // namespace

WideCells::WideCells(const Int128* cells, std::size_t count) {
  if (Fit<std::int8_t>(cells, count)) {
    highByte_ = HighPart<std::int8_t>(cells, count);
  } else if (Fit<std::int16_t>(cells, count)) {
    high_ = HighPart<std::int16_t>(cells, count);
  } else {
    full_ = std::make_unique_for_overwrite<Int128[]>(count);
    std::copy_n(cells, count, full_.get());
    return;
  }
  low_ = std::make_unique_for_overwrite<std::uint64_t[]>(count);
  std::transform(cells, cells + count, low_.get(),
                 [](Int128 units) { return static_cast<std::uint64_t>(units); });
}

void PackDecimals(const Int128* cells, std::size_t count, ColumnChunk& chunk) {
  chunk.size = count;
  chunk.scale = CommonScale(cells, count);
  const ExactDivisor divisor = DivisorFor(chunk.scale);
  auto narrow = std::make_unique_for_overwrite<std::int64_t[]>(count);
  std::uint64_t lost = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const Int128 quotient = divisor.Quotient(cells[i]);
    narrow[i] = static_cast<std::int64_t>(quotient);
    lost |= static_cast<std::uint64_t>((quotient >> 63) ^ (quotient >> 127));
  }
  if (lost == 0) {
    chunk.narrow = std::move(narrow);
    return;
  }
  chunk.scale = Decimal::kDecimals;
  chunk.wide = WideCells(cells, count);
}

}  // namespace goods
