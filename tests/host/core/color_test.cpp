#include "host/core/color.h"

#include <gtest/gtest.h>

namespace goods {
namespace {

TEST(Colors, HexadecimalOfCompanyDataHasBlueFirst) {
  EXPECT_EQ(ParseColor("$000000FF"), 0xFF0000U);
  EXPECT_EQ(ParseColor("$00FF8001"), 0x0180FFU);
  EXPECT_EQ(ParseColor("$ff8001"), 0x0180FFU);
  EXPECT_EQ(ParseColor("$00000000"), 0U);
}

TEST(Colors, DecimalIsTheSameNumber) {
  EXPECT_EQ(ParseColor("255"), 0xFF0000U);
  EXPECT_EQ(ParseColor("16711680"), 0x0000FFU);
  EXPECT_EQ(ParseColor("16777215"), kWhite);
  EXPECT_EQ(ParseColor("0"), 0U);
}

TEST(Colors, ANumberSignHasRedFirst) {
  EXPECT_EQ(ParseColor("#FF8001"), 0xFF8001U);
  EXPECT_EQ(ParseColor("#0a0b0c"), 0x0A0B0CU);
}

TEST(Colors, BasicNamesAreKnownInAnyLetterCase) {
  EXPECT_EQ(ParseColor("clRed"), 0xFF0000U);
  EXPECT_EQ(ParseColor("CLNAVY"), 0x000080U);
  EXPECT_EQ(ParseColor("clwhite"), kWhite);
  EXPECT_EQ(ParseColor("clSilver"), 0xC0C0C0U);
  EXPECT_EQ(ParseColor("clFuchsia"), 0xFF00FFU);
}

TEST(Colors, AnythingElseIsNone) {
  for (const char* text : {"",
                           " ",
                           "$",
                           "#",
                           "cl",
                           "Red",
                           "clPink",
                           "$1000000",
                           "$FF0000FF",
                           "$GG0000",
                           "$-1",
                           "#12345",
                           "#1234567",
                           "#12345G",
                           "#-12345",
                           "16777216",
                           "99999999999999999999",
                           "-1",
                           "+1",
                           "1.5",
                           "0xFF",
                           "12 34",
                           "$ FF0000",
                           "ffffff"}) {
    EXPECT_EQ(ParseColor(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace goods
