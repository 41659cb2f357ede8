#include "host/core/jalali.h"

#include <string>

#include <gtest/gtest.h>

namespace goods {
namespace {

TEST(Jalali, KnownDaysFallOnTheirGregorianDates) {
  // Days since 1970-01-01 of published equivalents.
  EXPECT_EQ(DaysFromJalali({1348, 10, 11}), 0);      // 1970-01-01
  EXPECT_EQ(DaysFromJalali({1378, 10, 11}), 10957);  // 2000-01-01
  EXPECT_EQ(DaysFromJalali({1399, 12, 30}), 18706);  // 2021-03-20
  EXPECT_EQ(DaysFromJalali({1400, 1, 1}), 18707);    // 2021-03-21
  EXPECT_EQ(DaysFromJalali({1403, 1, 1}), 19802);    // 2024-03-20
  EXPECT_EQ(DaysFromJalali({1403, 12, 30}), 20167);  // 2025-03-20
}

TEST(Jalali, LeapYearsOfThisAgeAreTheCalendarsOwn) {
  for (const int year : {1342, 1346, 1350, 1354, 1358, 1362, 1366, 1370, 1375, 1379, 1383, 1387, 1391, 1395,
                         1399, 1403, 1408, 1412}) {
    EXPECT_TRUE(IsJalaliLeapYear(year)) << year;
    EXPECT_EQ(JalaliMonthLength(year, 12), 30);
    EXPECT_FALSE(IsJalaliLeapYear(year + 1)) << year + 1;
    EXPECT_EQ(JalaliMonthLength(year + 1, 12), 29);
  }
}

TEST(Jalali, MonthsHaveTheirLengths) {
  for (int month = 1; month <= 6; ++month) EXPECT_EQ(JalaliMonthLength(1402, month), 31);
  for (int month = 7; month <= 11; ++month) EXPECT_EQ(JalaliMonthLength(1402, month), 30);
}

TEST(Jalali, EveryDayComesBackFromItsNumberAndItsText) {
  std::int64_t days = DaysFromJalali({kFirstJalaliYear, 1, 1});
  int weekday = JalaliWeekday({kFirstJalaliYear, 1, 1});
  for (int year = kFirstJalaliYear; year <= kLastJalaliYear; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= JalaliMonthLength(year, month); ++day, ++days, weekday = (weekday + 1) % 7) {
        const JalaliDate date{year, month, day};
        ASSERT_EQ(DaysFromJalali(date), days) << FormatJalali(date);
        ASSERT_EQ(JalaliFromDays(days), date) << FormatJalali(date);
        ASSERT_EQ(JalaliWeekday(date), weekday) << FormatJalali(date);
        ASSERT_EQ(ParseJalali(FormatJalali(date)), date);
      }
    }
  }
}

TEST(Jalali, WeekdaysRunFromSaturday) {
  EXPECT_EQ(JalaliWeekday({1403, 1, 1}), 4);  // a Wednesday
  EXPECT_EQ(JalaliWeekday({1403, 1, 4}), 0);  // a Saturday
  EXPECT_EQ(JalaliWeekday({1403, 1, 3}), 6);  // a Friday
}

TEST(Jalali, ImpossibleDatesAreNotValid) {
  for (const char* text :
       {"", "1402", "1402/1/1", "1402/13/01", "1402/00/01", "1402/01/00", "1402/01/32", "1402/07/31",
        "1402/12/30", "1199/12/29", "1501/01/01", "0000/00/00", "9999/99/99", "1402-01-01", "1402/01/0a",
        " 402/01/01", "1402/01/011", "۱۴۰۲/۰۱/۰۱", "+402/01/01"}) {
    EXPECT_FALSE(IsValidJalali(text)) << text;
  }
  EXPECT_TRUE(IsValidJalali("1403/12/30"));
  EXPECT_TRUE(IsValidJalali("1200/01/01"));
  EXPECT_TRUE(IsValidJalali("1500/12/29"));
}

}  // namespace
}  // namespace goods
