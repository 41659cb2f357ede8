#include "host/core/jalali.h"

#include <array>
#include <cstdio>

namespace goods {
namespace {

// 1 Farvardin 1200 in days since 1970-01-01.
constexpr std::int64_t kEpochDays = -54342;

bool Digits(std::string_view text, int& value) {
  value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return false;
    value = value * 10 + (c - '0');
  }
  return true;
}

int YearLength(int year) { return IsJalaliLeapYear(year) ? 366 : 365; }

// Days from the first year's beginning to that of year.
std::int64_t DaysBeforeYear(int year) {
  std::int64_t days = 0;
  for (int each = kFirstJalaliYear; each < year; ++each) days += YearLength(each);
  return days;
}

}  // namespace

bool IsJalaliLeapYear(int year) { return (year + 2346) * 683 % 2820 < 683; }

int JalaliMonthLength(int year, int month) {
  if (month <= 6) return 31;
  if (month <= 11) return 30;
  return IsJalaliLeapYear(year) ? 30 : 29;
}

std::optional<JalaliDate> ParseJalali(std::string_view text) {
  if (text.size() != 10 || text[4] != '/' || text[7] != '/') return std::nullopt;
  JalaliDate date;
  if (!Digits(text.substr(0, 4), date.year) || !Digits(text.substr(5, 2), date.month) ||
      !Digits(text.substr(8, 2), date.day)) {
    return std::nullopt;
  }
  const bool exists = date.year >= kFirstJalaliYear && date.year <= kLastJalaliYear && date.month >= 1 &&
                      date.month <= 12 && date.day >= 1 &&
                      date.day <= JalaliMonthLength(date.year, date.month);
  if (!exists) return std::nullopt;
  return date;
}

bool IsValidJalali(std::string_view text) { return ParseJalali(text).has_value(); }

std::string FormatJalali(const JalaliDate& date) {
  std::array<char, 40> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%04d/%02d/%02d", date.year, date.month, date.day);
  return buffer.data();
}

std::int64_t DaysFromJalali(const JalaliDate& date) {
  const int fullMonths = date.month - 1;
  const int before = fullMonths <= 6 ? fullMonths * 31 : 186 + (fullMonths - 6) * 30;
  return kEpochDays + DaysBeforeYear(date.year) + before + date.day - 1;
}

JalaliDate JalaliFromDays(std::int64_t days) {
  std::int64_t rest = days - kEpochDays;
  int year = kFirstJalaliYear;
  for (; year < kLastJalaliYear && rest >= YearLength(year); ++year) rest -= YearLength(year);
  int month = 1;
  for (; month < 12 && rest >= JalaliMonthLength(year, month); ++month)
    rest -= JalaliMonthLength(year, month);
  return {year, month, static_cast<int>(rest) + 1};
}

int JalaliWeekday(const JalaliDate& date) {
  // 1970-01-01 was a Thursday, day 5 of a week that begins on Saturday.
  const std::int64_t shifted = (DaysFromJalali(date) + 5) % 7;
  return static_cast<int>(shifted < 0 ? shifted + 7 : shifted);
}

}  // namespace goods
