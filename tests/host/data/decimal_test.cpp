#include "host/data/decimal.h"

#include <algorithm>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "decimal_of.h"

namespace goods {
namespace {

using test::Of;

constexpr auto kMaxText = "170141183460469231731687303715.884105727";
constexpr auto kMinText = "-170141183460469231731687303715.884105728";

// Schoolbook arithmetic on digit strings: another road to every figure below.
std::string Stripped(const std::string& digits) {
  const std::size_t from = digits.find_first_not_of('0');
  return from == std::string::npos ? "0" : digits.substr(from);
}

std::string DigitsOfUnits(Decimal value) {
  std::string text = value.ToString();
  std::erase(text, '-');
  const std::size_t point = text.find('.');
  const std::size_t decimals = point == std::string::npos ? 0 : text.size() - point - 1;
  std::erase(text, '.');
  return Stripped(text + std::string(9 - decimals, '0'));
}

std::string LongProduct(const std::string& a, const std::string& b) {
  std::vector<int> cells(a.size() + b.size(), 0);
  for (std::size_t i = a.size(); i-- > 0;) {
    for (std::size_t k = b.size(); k-- > 0;) {
      const int sum = cells[i + k + 1] + (a[i] - '0') * (b[k] - '0');
      cells[i + k + 1] = sum % 10;
      cells[i + k] += sum / 10;
    }
  }
  std::string text;
  for (const int cell : cells) text.push_back(static_cast<char>('0' + cell));
  return Stripped(text);
}

bool LessDigits(const std::string& a, const std::string& b) {
  return a.size() != b.size() ? a.size() < b.size() : a < b;
}

std::string LongDifference(std::string a, const std::string& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    char& cell = a[a.size() - 1 - i];
    cell = static_cast<char>(cell - (i < b.size() ? b[b.size() - 1 - i] - '0' : 0));
    if (cell >= '0') continue;
    cell = static_cast<char>(cell + 10);
    --a[a.size() - 2 - i];
  }
  return Stripped(a);
}

std::string Increment(std::string digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return digits;
    }
    digits[i] = '0';
  }
  return "1" + digits;
}

// Long division, rounded half up.
std::string LongQuotient(const std::string& a, const std::string& b) {
  std::string quotient;
  std::string rest = "0";
  for (const char digit : a) {
    rest = Stripped(rest + digit);
    char count = '0';
    for (; !LessDigits(rest, b); ++count) rest = LongDifference(rest, b);
    quotient.push_back(count);
  }
  const std::string twice = LongProduct(rest, "2");
  return Stripped(LessDigits(twice, b) ? quotient : Increment(quotient));
}

class RandomDecimals {
 public:
  Decimal Next(int mostBits) {
    const int bits = std::uniform_int_distribution<int>(1, mostBits)(engine_);
    Int128 units = 0;
    for (int i = 0; i < bits; ++i) units = units * 2 + static_cast<int>(engine_() & 1U);
    return Decimal::FromUnits((engine_() & 1U) != 0 ? -units : units);
  }

 private:
  std::mt19937_64 engine_{20240321};
};

TEST(Decimals, ParseAndPrintTheShortestExactText) {
  EXPECT_EQ(Of("0").ToString(), "0");
  EXPECT_EQ(Of("-0.000").ToString(), "0");
  EXPECT_EQ(Of("+12.50").ToString(), "12.5");
  EXPECT_EQ(Of("-12.5").ToString(), "-12.5");
  EXPECT_EQ(Of("-0.000000001").ToString(), "-0.000000001");
  EXPECT_EQ(Of("1000000").ToString(), "1000000");
  // Around the units of 64 bits.
  for (const char* text :
       {"18446744073.709551614", "18446744073.709551615", "18446744073.709551616", "18446744073.70955162",
        "18446744074", "9223372036.854775807", "9223372036.854775808", "9223372036.85477581"}) {
    EXPECT_EQ(Of(text).ToString(), text);
    EXPECT_EQ(Of(std::string("-") + text).ToString(), std::string("-") + text);
  }
  EXPECT_EQ(Of("0001.5").ToString(), "1.5");
  EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::min()).ToString(), "-9223372036854775808");
}

TEST(Decimals, TheTenthDecimalRoundsHalfAwayFromZero) {
  EXPECT_EQ(Of("0.0000000005").ToString(), "0.000000001");
  EXPECT_EQ(Of("-0.0000000005").ToString(), "-0.000000001");
  EXPECT_EQ(Of("0.00000000049999").ToString(), "0");
  EXPECT_EQ(Of("0.9999999995").ToString(), "1");
}

TEST(Decimals, WhatIsNotANumberIsRefused) {
  for (const char* text :
       {"", "-", "+", ".", "1.", ".5", "1,000", "1e5", "--1", "1.2.3", " 1", "1 ", "۱۲", "0x1"}) {
    EXPECT_FALSE(Decimal::Parse(text).has_value()) << text;
  }
}

TEST(Decimals, TheWholeRangeIsParsedAndNothingBeyondIt) {
  EXPECT_EQ(Of(kMaxText).ToString(), kMaxText);
  EXPECT_EQ(Of(kMinText).ToString(), kMinText);
  EXPECT_FALSE(Decimal::Parse("170141183460469231731687303715.884105728").has_value());
  EXPECT_FALSE(Decimal::Parse("-170141183460469231731687303715.884105729").has_value());
  EXPECT_FALSE(Decimal::Parse("170141183460469231731687303715.8841057275").has_value());
  EXPECT_FALSE(Decimal::Parse(std::string(60, '9')).has_value());
  EXPECT_TRUE(Decimal::Parse(std::string(60, '0')).has_value());
}

TEST(Decimals, RoundingIsHalfAwayFromZeroAtEveryPrecision) {
  EXPECT_EQ(Of("2.5").Rounded(0).ToString(), "3");
  EXPECT_EQ(Of("-2.5").Rounded(0).ToString(), "-3");
  EXPECT_EQ(Of("2.499999999").Rounded(0).ToString(), "2");
  EXPECT_EQ(Of("1.005").Rounded(2).ToString(), "1.01");
  EXPECT_EQ(Of("-1.005").Rounded(2).ToString(), "-1.01");
  EXPECT_EQ(Of("-0.004").Rounded(2).ToString(), "0");
  EXPECT_EQ(Of("1.123456789").Rounded(9).ToString(), "1.123456789");
  EXPECT_THROW((void)Of(kMaxText).Rounded(0), std::overflow_error);
}

TEST(Decimals, SumsAndDifferencesAreExact) {
  EXPECT_EQ((Of("0.1") + Of("0.2")).ToString(), "0.3");
  EXPECT_EQ((Of("1") - Of("0.000000001")).ToString(), "0.999999999");
  EXPECT_EQ((-Of("1.5")).ToString(), "-1.5");
  EXPECT_EQ(Of("-1.5").Abs().ToString(), "1.5");
}

TEST(Decimals, ProductsRoundOnceHalfAwayFromZero) {
  EXPECT_EQ((Of("0.00001") * Of("0.00005")).ToString(), "0.000000001");
  EXPECT_EQ((Of("-0.00001") * Of("0.00005")).ToString(), "-0.000000001");
  EXPECT_EQ((Of("0.00001") * Of("0.000049999")).ToString(), "0");
  EXPECT_EQ((Of("1234.5") * Of("-8")).ToString(), "-9876");
}

TEST(Decimals, QuotientsRoundOnceHalfAwayFromZero) {
  EXPECT_EQ((Of("1") / Of("3")).ToString(), "0.333333333");
  EXPECT_EQ((Of("2") / Of("3")).ToString(), "0.666666667");
  EXPECT_EQ((Of("-2") / Of("3")).ToString(), "-0.666666667");
  EXPECT_EQ((Of("0.000000001") / Of("2")).ToString(), "0.000000001");
  EXPECT_EQ((Of("-0.000000001") / Of("2")).ToString(), "-0.000000001");
  EXPECT_EQ((Of(kMaxText) / Of(kMaxText)).ToString(), "1");
  EXPECT_THROW((void)(Of("1") / Decimal()), std::domain_error);
}

TEST(Decimals, RandomProductsAgreeWithSchoolbookMultiplication) {
  RandomDecimals random;
  for (int i = 0; i < 3000; ++i) {
    const Decimal a = random.Next(100);
    const Decimal b = random.Next(50);
    const std::string expected = LongQuotient(LongProduct(DigitsOfUnits(a), DigitsOfUnits(b)), "1000000000");
    const Decimal product = a * b;
    EXPECT_EQ(DigitsOfUnits(product), expected) << a.ToString() << " * " << b.ToString();
    EXPECT_TRUE(product.IsZero() || product.IsNegative() == (a.IsNegative() != b.IsNegative()));
  }
}

TEST(Decimals, RandomQuotientsAgreeWithLongDivision) {
  RandomDecimals random;
  for (int i = 0; i < 3000; ++i) {
    const Decimal a = random.Next(127);
    Decimal b = random.Next(127);
    if (b.Abs() < Decimal(1)) b = b.IsNegative() ? b - Decimal(1) : b + Decimal(1);
    const std::string expected = LongQuotient(LongProduct(DigitsOfUnits(a), "1000000000"), DigitsOfUnits(b));
    EXPECT_EQ(DigitsOfUnits(a / b), expected) << a.ToString() << " / " << b.ToString();
  }
}

TEST(Decimals, LeavingTheRangeThrowsAndNeverWraps) {
  const Decimal most = Of(kMaxText);
  const Decimal least = Of(kMinText);
  const Decimal bit = Decimal::FromUnits(1);
  EXPECT_THROW((void)(most + bit), std::overflow_error);
  EXPECT_THROW((void)(least - bit), std::overflow_error);
  EXPECT_THROW((void)(-least), std::overflow_error);
  EXPECT_THROW((void)least.Abs(), std::overflow_error);
  EXPECT_THROW((void)(most * Decimal(2)), std::overflow_error);
  EXPECT_THROW((void)(most * most), std::overflow_error);
  EXPECT_THROW((void)(most / Of("0.1")), std::overflow_error);
  EXPECT_THROW((void)(least / Decimal(-1)), std::overflow_error);
  EXPECT_EQ(most * Decimal(1), most);
  EXPECT_EQ(least * Decimal(1), least);
  EXPECT_EQ(least / Decimal(1), least);
}

TEST(Decimals, OrderIsThatOfTheNumbers) {
  EXPECT_LT(Of("-1"), Of("-0.999999999"));
  EXPECT_GT(Of("10"), Of("9.999999999"));
  EXPECT_EQ(Of("1.50"), Of("1.5"));
}

TEST(Decimals, TheDoubleForDrawingIsTheNearestOne) {
  EXPECT_DOUBLE_EQ(Of("0.1").ToDouble(), 0.1);
  EXPECT_EQ(Of("123456789012345678.123456789").ToDouble(), 123456789012345678.123456789);
  EXPECT_EQ(Of("-2.5").ToDouble(), -2.5);
}

}  // namespace
}  // namespace goods
