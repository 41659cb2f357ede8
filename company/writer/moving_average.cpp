#include "company/writer/moving_average.h"

#include <cstdint>

namespace goods {

namespace {

__extension__ typedef unsigned __int128 Unsigned128;

// 256 bits, enough for a quantity times a price of any size.
struct Wide {
  Unsigned128 high = 0;
  Unsigned128 low = 0;
};

Wide Multiply(Unsigned128 a, Unsigned128 b) {
  constexpr Unsigned128 kMask = ~std::uint64_t{0};
  const Unsigned128 lowLow = (a & kMask) * (b & kMask);
  const Unsigned128 highLow = (a >> 64) * (b & kMask);
  const Unsigned128 lowHigh = (a & kMask) * (b >> 64);
  const Unsigned128 middle = (lowLow >> 64) + (highLow & kMask) + (lowHigh & kMask);
  Wide product;
  product.low = (middle << 64) | (lowLow & kMask);
  product.high = (a >> 64) * (b >> 64) + (highLow >> 64) + (lowHigh >> 64) + (middle >> 64);
  return product;
}

Wide Add(Wide a, Wide b) {
  Wide sum;
  sum.low = a.low + b.low;
  sum.high = a.high + b.high + (sum.low < a.low ? 1 : 0);
  return sum;
}

// Bit by bit; the quotient must fit 128 bits and the divisor 127.
Unsigned128 DivideHalfUp(Wide dividend, Unsigned128 divisor) {
  Unsigned128 quotient = 0;
  Unsigned128 rest = 0;
  for (int bit = 255; bit >= 0; --bit) {
    const Unsigned128 word = bit >= 128 ? dividend.high : dividend.low;
    rest = rest << 1 | (word >> (bit & 127) & 1);
    quotient <<= 1;
    if (rest >= divisor) {
      rest -= divisor;
      quotient |= 1;
    }
  }
  return rest >= divisor - rest ? quotient + 1 : quotient;
}

}  // namespace

Decimal MovingAverage(Decimal stock, Decimal average, Decimal quantity, Decimal price) {
  if (stock.Units() <= 0) return price;
  const Decimal total = stock + quantity;
  const Wide value =
      Add(Multiply(static_cast<Unsigned128>(stock.Units()), static_cast<Unsigned128>(average.Units())),
          Multiply(static_cast<Unsigned128>(quantity.Units()), static_cast<Unsigned128>(price.Units())));
  const auto divisor = static_cast<Unsigned128>(total.Units());
  if (value.high == 0) {
    const Unsigned128 rest = value.low % divisor;
    return Decimal::FromUnits(static_cast<Int128>(value.low / divisor + (rest >= divisor - rest ? 1 : 0)));
  }
  return Decimal::FromUnits(static_cast<Int128>(DivideHalfUp(value, divisor)));
}

}  // namespace goods
