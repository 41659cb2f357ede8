#include "host/data/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "host/core/text.h"
#include "host/data/wide_integer.h"

namespace goods {
namespace {

constexpr UInt128 kGreatest = ~UInt128{0} >> 1U;
constexpr UInt128 kOneUnits = static_cast<UInt128>(Decimal::kOne);

[[noreturn]] void ThrowOverflow() { throw std::overflow_error("حاصل از اندازه یک عدد بزرگتر است."); }

std::optional<Int128> Signed(UInt128 magnitude, bool negative) {
  if (magnitude > kGreatest + (negative ? 1U : 0U)) return std::nullopt;
  return static_cast<Int128>(negative ? UInt128{0} - magnitude : magnitude);
}

Decimal Checked(UInt128 magnitude, bool negative) {
  const auto units = Signed(magnitude, negative);
  if (!units) ThrowOverflow();
  return Decimal::FromUnits(*units);
}

// A product of 256 bits.
struct Wide {
  UInt128 high = 0;
  UInt128 low = 0;
};

Wide Multiply(UInt128 a, UInt128 b) {
  constexpr UInt128 kLow64 = std::numeric_limits<std::uint64_t>::max();
  const UInt128 a0 = a & kLow64;
  const UInt128 a1 = a >> 64U;
  const UInt128 b0 = b & kLow64;
  const UInt128 b1 = b >> 64U;
  const UInt128 low = a0 * b0;
  const UInt128 cross1 = a0 * b1;
  const UInt128 cross2 = a1 * b0;
  const UInt128 middle = (low >> 64U) + (cross1 & kLow64) + (cross2 & kLow64);
  return {a1 * b1 + (cross1 >> 64U) + (cross2 >> 64U) + (middle >> 64U), (middle << 64U) | (low & kLow64)};
}

// Rounded half up; the quotient must fit 128 bits.
UInt128 Divide(Wide dividend, UInt128 divisor) {
  if (dividend.high == 0) return RoundedQuotient(dividend.low, divisor);
  if (dividend.high >= divisor) ThrowOverflow();
  UInt128 quotient = 0;
  UInt128 rest = dividend.high;
  for (unsigned bit = 128; bit-- > 0;) {
    const bool carry = (rest >> 127U) != 0;
    rest = (rest << 1U) | ((dividend.low >> bit) & 1U);
    if (carry || rest >= divisor) {
      rest -= divisor;
      quotient |= UInt128{1} << bit;
    }
  }
  if (rest < divisor - rest) return quotient;
  if (quotient == ~UInt128{0}) ThrowOverflow();
  return quotient + 1;
}

// Billionths as text.
std::string ShortText(std::uint64_t units, bool negative) {
  constexpr std::uint64_t kUnits = kOneUnits;
  std::array<char, 32> text;
  char* end = text.data();
  if (negative) *end++ = '-';
  end = std::to_chars(end, text.data() + text.size(), units / kUnits).ptr;
  if (std::uint64_t rest = units % kUnits; rest != 0) {
    *end = '.';
    for (int i = Decimal::kDecimals; i > 0; --i, rest /= 10) end[i] = static_cast<char>('0' + rest % 10);
    end += Decimal::kDecimals;
    while (*end == '0') --end;
    ++end;
  }
  return {text.data(), end};
}

}  // namespace

std::string DigitsOf(UInt128 value) {
  if (value <= std::numeric_limits<std::uint64_t>::max())
    return std::to_string(static_cast<std::uint64_t>(value));
  std::string digits;
  do {
    digits.push_back(static_cast<char>('0' + static_cast<int>(value % 10)));
    value /= 10;
  } while (value != 0);
  std::reverse(digits.begin(), digits.end());
  return digits;
}

std::optional<Decimal> Decimal::Parse(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  const std::string_view decimals =
      point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
  if (whole.empty() || (point != std::string_view::npos && decimals.empty())) return std::nullopt;
  if (!std::all_of(whole.begin(), whole.end(), IsDigit) ||
      !std::all_of(decimals.begin(), decimals.end(), IsDigit)) {
    return std::nullopt;
  }

  constexpr UInt128 kLimit = (~UInt128{0} - 10) / 10;
  UInt128 units = 0;
  const auto append = [&units](char digit) {
    if (units > kLimit) return false;
    units = units * 10 + static_cast<UInt128>(digit - '0');
    return true;
  };
  for (const char digit : whole) {
    if (!append(digit)) return std::nullopt;
  }
  for (std::size_t i = 0; i < kDecimals; ++i) {
    if (!append(i < decimals.size() ? decimals[i] : '0')) return std::nullopt;
  }
  if (decimals.size() > kDecimals && decimals[kDecimals] >= '5') ++units;
  const auto value = Signed(units, negative);
  if (!value) return std::nullopt;
  return FromUnits(*value);
}

Decimal Decimal::Abs() const { return Checked(Magnitude(units_), false); }

Decimal Decimal::Rounded(int decimals) const {
  if (decimals >= kDecimals) return *this;
  const auto step = static_cast<UInt128>(PowerOfTen(kDecimals - std::max(decimals, 0)));
  return Checked(RoundedQuotient(Magnitude(units_), step) * step, units_ < 0);
}

// Most numbers have at most 64 bits, which a processor divides by itself.
std::string Decimal::ToString() const {
  const UInt128 magnitude = Magnitude(units_);
  if (magnitude <= std::numeric_limits<std::uint64_t>::max()) {
    return ShortText(static_cast<std::uint64_t>(magnitude), units_ < 0);
  }
  std::string text = units_ < 0 ? "-" : "";
  text += DigitsOf(magnitude / kOneUnits);
  if (const UInt128 rest = magnitude % kOneUnits; rest != 0) {
    const std::string digits = DigitsOf(kOneUnits + rest);  // the leading one keeps the zeros
    text += '.';
    text.append(digits, 1, digits.find_last_not_of('0'));
  }
  return text;
}

double Decimal::ToDouble() const {
  constexpr Int128 kExact = std::int64_t{1} << 53;
  if (units_ >= -kExact && units_ <= kExact) return static_cast<double>(units_) / static_cast<double>(kOne);
  const std::string text = ToString();
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

Decimal Decimal::operator-() const { return Checked(Magnitude(units_), units_ > 0); }

Decimal& Decimal::operator+=(Decimal other) {
  if (__builtin_add_overflow(units_, other.units_, &units_)) ThrowOverflow();
  return *this;
}

Decimal& Decimal::operator-=(Decimal other) {
  if (__builtin_sub_overflow(units_, other.units_, &units_)) ThrowOverflow();
  return *this;
}

Decimal operator*(Decimal a, Decimal b) {
  const Wide product = Multiply(Magnitude(a.units_), Magnitude(b.units_));
  return Checked(Divide(product, kOneUnits), a.IsNegative() != b.IsNegative());
}

Decimal operator/(Decimal a, Decimal b) {
  if (b.IsZero()) throw std::domain_error("تقسیم بر صفر ممکن نیست.");
  const Wide scaled = Multiply(Magnitude(a.units_), kOneUnits);
  return Checked(Divide(scaled, Magnitude(b.units_)), a.IsNegative() != b.IsNegative());
}

}  // namespace goods
