// The Jalali calendar: dates as text "yyyy/mm/dd".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace goods {

struct JalaliDate {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to the month's length
  auto operator<=>(const JalaliDate&) const = default;
};

// The years that a date of a company can have; others are typing mistakes.
inline constexpr int kFirstJalaliYear = 1200;
inline constexpr int kLastJalaliYear = 1500;

// The arithmetic rule of 683 leap years in a cycle of 2820.
bool IsJalaliLeapYear(int year);
int JalaliMonthLength(int year, int month);

// The one test of a date text: four digits, "/", two digits, "/", two digits, and a day that exists, in a
// year from 1200 to 1500. The open bounds 0000/00/00 and 9999/99/99 are not dates.
std::optional<JalaliDate> ParseJalali(std::string_view text);
bool IsValidJalali(std::string_view text);
std::string FormatJalali(const JalaliDate& date);

// Days since 1970-01-01 (proleptic Gregorian), and back. The date must be valid.
std::int64_t DaysFromJalali(const JalaliDate& date);
JalaliDate JalaliFromDays(std::int64_t days);
// 0 Saturday to 6 Friday, as a Persian week runs.
int JalaliWeekday(const JalaliDate& date);

}  // namespace goods
