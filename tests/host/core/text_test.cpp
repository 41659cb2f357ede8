#include "host/core/text.h"

#include <limits>

#include <gtest/gtest.h>

namespace goods {
namespace {

TEST(Texts, TrimTakesBlanksAndControlCharactersFromBothEnds) {
  EXPECT_EQ(Trim(" \t\r\n a b \n"), "a b");
  EXPECT_EQ(Trim(" کالا "), "کالا");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(Texts, NamesAreEqualButForTheCaseOfAToZ) {
  EXPECT_TRUE(SameText("KalaCode", "kALAcODE"));
  EXPECT_FALSE(SameText("Kala", "KalaCode"));
  EXPECT_FALSE(SameText("É", "é"));
  EXPECT_FALSE(SameText("@", "`"));
  EXPECT_EQ(LowerAscii("AZ[É"), "az[É");
}

TEST(Texts, AQuotedTextDoublesItsQuotes) {
  EXPECT_EQ(QuotedStr("O'Neil"), "'O''Neil'");
  EXPECT_EQ(QuotedStr(""), "''");
  EXPECT_EQ(QuotedStr("''"), "''''''");
}

TEST(Texts, ReplaceAllReplacesEveryOccurrenceOnce) {
  EXPECT_EQ(ReplaceAll("aXbXX", "X", "XX"), "aXXbXXXX");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(ReplaceAll("abc", "b", ""), "ac");
}

TEST(Texts, SplitKeepsEmptyParts) {
  EXPECT_EQ(Split("0;5;;", ';'), (std::vector<std::string>{"0", "5", "", ""}));
  EXPECT_EQ(Split("", ';'), std::vector<std::string>{""});
  EXPECT_EQ(Split("abc", ';'), std::vector<std::string>{"abc"});
}

TEST(Texts, AnIntegerIsTheWholeTextOrNone) {
  EXPECT_EQ(ParseInteger("-12"), -12);
  EXPECT_EQ(ParseInteger("+12"), 12);
  EXPECT_EQ(ParseInteger("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
  for (const char* text : {"", "-", "+", "1 ", " 1", "1.0", "9223372036854775808", "12a", "0x1", "۱"}) {
    EXPECT_FALSE(ParseInteger(text).has_value()) << text;
  }
}

TEST(Texts, ASecondSignIsNoInteger) {
  EXPECT_FALSE(ParseInteger("+-5").has_value());
  EXPECT_FALSE(ParseInteger("--5").has_value());
}

TEST(Texts, PersianAndArabicDigitsBecomeAscii) {
  EXPECT_EQ(AsciiDigits("۱۴۰۱/۰۹/۳۰"), "1401/09/30");
  EXPECT_EQ(AsciiDigits("٤٥٦ کد"), "456 کد");
  EXPECT_EQ(AsciiDigits("a\xFF"), "a\xFF");
}

TEST(Texts, LengthAndBeginningCountCharacters) {
  EXPECT_EQ(CharCount("کالا"), 4U);
  EXPECT_EQ(CharCount("a🙂"), 2U);
  EXPECT_EQ(FirstChars("کالا", 2), "کا");
  EXPECT_EQ(FirstChars("کالا", 9), "کالا");
  EXPECT_EQ(FirstChars("کالا", 0), "");
}

TEST(Texts, Utf16ComesAndGoesUnchanged) {
  const std::string text = "کالا a🙂‌";
  EXPECT_EQ(FromUtf16(ToUtf16(text)), text);
  EXPECT_EQ(ToUtf16("🙂").size(), 2U);
}

TEST(Texts, BrokenTextBecomesTheReplacementCharacter) {
  const char16_t lonely[] = {u'a', 0xD83D, u'b', 0xDC00};
  EXPECT_EQ(FromUtf16({lonely, 4}), "a\uFFFDb\uFFFD");
  EXPECT_EQ(ToUtf16("a\xFF"), u"a\uFFFD");
  EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"\uFFFD");
  EXPECT_EQ(ToUtf16("\xC0\xAF").front(), u'\uFFFD');
  EXPECT_EQ(ToUtf16("\xE2\x80"), u"\uFFFD");
}

}  // namespace
}  // namespace goods
