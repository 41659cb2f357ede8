#include "host/data/display_format.h"

#include <gtest/gtest.h>

namespace goods {
namespace {

std::string Shown(std::string_view format, std::string_view number) {
  return DisplayFormat(format).Format(Decimal::Parse(number).value());
}

TEST(DisplayFormats, QuantitiesShowUpToFourDecimalsAndTheirSignBehind) {
  EXPECT_EQ(Shown(kQuantityFormat, "1234.5"), "1234.5");
  EXPECT_EQ(Shown(kQuantityFormat, "-1234.5"), "1234.5-");
  EXPECT_EQ(Shown(kQuantityFormat, "0.12345"), "0.1235");
  EXPECT_EQ(Shown(kQuantityFormat, "7"), "7");
  EXPECT_EQ(Shown(kQuantityFormat, "0"), "0");
}

TEST(DisplayFormats, AmountsAreGroupedByThousands) {
  EXPECT_EQ(Shown(kAmountFormat, "999"), "999");
  EXPECT_EQ(Shown(kAmountFormat, "1000"), "1,000");
  EXPECT_EQ(Shown(kAmountFormat, "1234567.891"), "1,234,567.89");
  EXPECT_EQ(Shown(kAmountFormat, "-1234567.5"), "1,234,567.5-");
  EXPECT_EQ(Shown(kAmountFormat, "170141183460469231731687303715.88"),
            "170,141,183,460,469,231,731,687,303,715.88");
}

TEST(DisplayFormats, ANegativeSectionWithoutASignHidesIt) {
  EXPECT_EQ(Shown("#0.####;#0.####;0", "-12.5"), "12.5");
  EXPECT_EQ(Shown("#0.####;#0.####;0", "12.5"), "12.5");
}

TEST(DisplayFormats, AValueThatRoundsToZeroIsShownByTheZeroSection) {
  EXPECT_EQ(Shown(kQuantityFormat, "0.00004"), "0");
  EXPECT_EQ(Shown(kQuantityFormat, "-0.00004"), "0");
  EXPECT_EQ(Shown(kQuantityFormat, "-0.00005"), "0.0001-");
  EXPECT_EQ(Shown("0.00;0.00-;صفر", "-0.004"), "صفر");
  EXPECT_EQ(Shown("0.00", "-0.004"), "0.00");
}

TEST(DisplayFormats, EachSectionRoundsAtItsOwnDecimals) {
  EXPECT_EQ(Shown("0;0.00-;صفر", "0.4"), "صفر");
  EXPECT_EQ(Shown("0;0.00-;صفر", "-0.4"), "0.40-");
}

TEST(DisplayFormats, RoundingIsHalfAwayFromZero) {
  EXPECT_EQ(Shown("0.00", "1.005"), "1.01");
  EXPECT_EQ(Shown("0.00;0.00-", "-1.005"), "1.01-");
  EXPECT_EQ(Shown("#,0", "999999.5"), "1,000,000");
}

TEST(DisplayFormats, MissingSectionsFallBackOnThePositiveOne) {
  EXPECT_EQ(Shown("0.0", "-2.5"), "-2.5");
  EXPECT_EQ(Shown("0.0", "0"), "0.0");
  EXPECT_EQ(Shown("0.0;(0.0)", "0"), "0.0");
  EXPECT_EQ(Shown("0.0;(0.0)", "-1"), "(1.0)");
  EXPECT_EQ(Shown("0.0;;صفر", "-1"), "-1.0");
}

TEST(DisplayFormats, DigitsThatAlwaysShowArePadded) {
  EXPECT_EQ(Shown("000", "7"), "007");
  EXPECT_EQ(Shown("0#", "7"), "07");
  EXPECT_EQ(Shown("0.000", "7.1"), "7.100");
  EXPECT_EQ(Shown("0.0##", "7.125"), "7.125");
  EXPECT_EQ(Shown("#.##", "0.5"), ".5");
  EXPECT_EQ(Shown("0,000", "7"), "0,007");
}

TEST(DisplayFormats, OtherCharactersStandForThemselves) {
  EXPECT_EQ(Shown("#,0 ریال", "1500"), "1,500 ریال");
  EXPECT_EQ(Shown("مبلغ #,0", "1500"), "مبلغ 1,500");
  EXPECT_EQ(Shown("بدهکار.;بستانکار.;-", "5"), "بدهکار.");
  EXPECT_EQ(Shown("بدهکار.;بستانکار.;-", "-5"), "بستانکار.");
  EXPECT_EQ(Shown("بدهکار.;بستانکار.;-", "0"), "-");
}

TEST(DisplayFormats, AnEmptyFormatGivesTheShortestExactText) {
  EXPECT_EQ(Shown("", "-12.340"), "-12.34");
  EXPECT_EQ(DisplayFormat().Format(Decimal(5)), "5");
}

TEST(DisplayFormats, MoreDecimalsThanThereAreArePaddedWithZeros) {
  EXPECT_EQ(Shown("0.000000000000", "0.123456789"), "0.123456789000");
}

TEST(DisplayFormats, NullIsEmptyAndATextStandsAsItIs) {
  const DisplayFormat format(kAmountFormat);
  EXPECT_EQ(format.Format(Value()), "");
  EXPECT_EQ(format.Format(Value("خرید")), "خرید");
  EXPECT_EQ(format.Format(Value("1234")), "1234");
  EXPECT_EQ(format.Format(Value(1234)), "1,234");
}

TEST(DisplayFormats, TheSmallestNumberIsFormattedToo) {
  EXPECT_EQ(Shown("0;0-", "-170141183460469231731687303715.884105728"), "170141183460469231731687303716-");
}

}  // namespace
}  // namespace goods
