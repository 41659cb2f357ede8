// Decimal: the one number type of quantities and money. Fixed point, nine decimals, 128 bits, exact.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace goods {

__extension__ typedef __int128 Int128;

// A number of billionths. The range is that of a 128-bit integer, about 1.7e29 with nine decimals; an
// operation that leaves it throws std::overflow_error, never wraps.
class Decimal {
 public:
  static constexpr int kDecimals = 9;
  static constexpr std::int64_t kOne = 1'000'000'000;

  constexpr Decimal() = default;
  constexpr Decimal(std::int64_t whole)
      : units_(static_cast<Int128>(whole) * kOne) {}  // NOLINT: a number is one
  static constexpr Decimal FromUnits(Int128 billionths) {
    Decimal value;
    value.units_ = billionths;
    return value;
  }
  // An optional sign, digits, and optionally "." with digits. More than nine decimals are rounded half away
  // from zero. Thousands separators are not accepted. None when the text is not such a number or out of
  // range.
  static std::optional<Decimal> Parse(std::string_view text);

  constexpr Int128 Units() const { return units_; }
  bool IsZero() const { return units_ == 0; }
  bool IsNegative() const { return units_ < 0; }
  Decimal Abs() const;
  // Rounded half away from zero to 0 to 9 decimals.
  Decimal Rounded(int decimals) const;
  // The shortest exact text: "-12.5", "0", "1000000".
  std::string ToString() const;
  // Nearest double, for drawing only.
  double ToDouble() const;

  Decimal operator-() const;
  Decimal& operator+=(Decimal other);
  Decimal& operator-=(Decimal other);
  friend Decimal operator+(Decimal a, Decimal b) { return a += b; }
  friend Decimal operator-(Decimal a, Decimal b) { return a -= b; }
  // Exact product and quotient, rounded once to nine decimals, half away from zero. Dividing by zero throws
  // std::domain_error.
  friend Decimal operator*(Decimal a, Decimal b);
  friend Decimal operator/(Decimal a, Decimal b);
  friend constexpr bool operator==(Decimal a, Decimal b) { return a.units_ == b.units_; }
  friend constexpr std::strong_ordering operator<=>(Decimal a, Decimal b) {
    return a.units_ < b.units_   ? std::strong_ordering::less
           : a.units_ > b.units_ ? std::strong_ordering::greater
                                 : std::strong_ordering::equal;
  }

 private:
  Int128 units_ = 0;
};

}  // namespace goods
