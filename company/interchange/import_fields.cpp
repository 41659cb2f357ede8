#include "company/interchange/import_fields.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <vector>

#include "company/interchange/name_map.h"
#include "host/core/jalali.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::int64_t kFirstDayNumber = 10'000;  // 1927
constexpr std::int64_t kLastDayNumber = 80'000;   // 2119
constexpr std::int64_t kDaysBefore1970 = 25'569;

bool AllDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsPlainAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

std::string Plain(std::string_view text) { return AsciiDigits(Trim(text)); }

std::optional<std::string> FromDays(std::int64_t days) {
  if (days < DaysFromJalali({kFirstJalaliYear, 1, 1})) return std::nullopt;
  if (days > DaysFromJalali({kLastJalaliYear, 12, JalaliMonthLength(kLastJalaliYear, 12)}))
    return std::nullopt;
  return FormatJalali(JalaliFromDays(days));
}

std::optional<std::string> FromGregorian(int year, int month, int day) {
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return std::nullopt;
  return FromDays(std::chrono::sys_days(date).time_since_epoch().count());
}

// Digits in groups of three, set apart: "1,250,000.5"; without them, "1250000.5". Anything else as it stands.
std::string WithoutThousands(const std::string& text) {
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::size_t sign = text.starts_with("-") || text.starts_with("+") ? 1 : 0;
  std::string digits = text.substr(0, sign);
  const std::vector<std::string> groups = Split(std::string_view(text).substr(sign, point - sign), ',');
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const bool fits = i == 0 ? groups[i].size() >= 1 && groups[i].size() <= 3 : groups[i].size() == 3;
    if (!fits || !AllDigits(groups[i])) return text;
    digits += groups[i];
  }
  return digits + text.substr(point);
}

// Up to 18 digits with a point among the last nine of them: nearly every number there is.
std::optional<Decimal> ReadShortNumber(std::string_view text) {
  std::size_t at = text.starts_with("-") ? 1 : 0;
  const bool negative = at == 1;
  if (text.size() - at > 18 || text.size() == at) return std::nullopt;
  std::int64_t whole = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) whole = whole * 10 + (text[at] - '0');
  std::int64_t part = 0;
  std::int64_t scale = Decimal::kOne;
  if (at < text.size() && text[at] == '.') {
    if (at + 1 == text.size() || at == (negative ? 1U : 0U)) return std::nullopt;
    for (++at; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
      scale /= 10;
      if (scale == 0) return std::nullopt;
      part += (text[at] - '0') * scale;
    }
  }
  if (at != text.size()) return std::nullopt;
  const Int128 units = static_cast<Int128>(whole) * Decimal::kOne + part;
  return Decimal::FromUnits(negative ? -units : units);
}

}  // namespace

std::string Quoted(std::string_view text) { return "«" + std::string(text) + "»"; }

std::optional<std::int64_t> ReadWhole(std::string_view text, std::int64_t low, std::int64_t high) {
  text = Trim(text);
  std::int64_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) {
    const std::optional<std::int64_t> parsed = ParseInteger(Plain(text));
    if (!parsed) return std::nullopt;
    number = *parsed;
  }
  if (number < low || number > high) return std::nullopt;
  return number;
}

std::optional<Decimal> ReadNumber(std::string_view text, std::int64_t largest) {
  text = Trim(text);
  std::optional<Decimal> number = ReadShortNumber(text);
  if (!number) {
    std::string plain = ReplaceAll(ReplaceAll(Plain(text), "٫", "."), "٬", ",");
    plain = ReplaceAll(plain, "−", "-");
    if (plain.find(',') != std::string::npos) plain = WithoutThousands(plain);
    const std::size_t point = plain.find('.');
    if (point != std::string::npos &&
        plain.size() - point - 1 > static_cast<std::size_t>(Decimal::kDecimals)) {
      return std::nullopt;
    }
    number = Decimal::Parse(plain);
  }
  if (!number || *number > Decimal(largest) || *number < Decimal(-largest)) return std::nullopt;
  return number;
}

std::optional<std::string> ReadDate(std::string_view text, bool days) {
  std::string plain = IsPlainAscii(text) ? std::string(Trim(text)) : Plain(text);
  std::replace(plain.begin(), plain.end(), '-', '/');
  if (days) {
    const std::optional<std::int64_t> number =
        ReadWhole(std::string_view(plain).substr(0, plain.find('.')), kFirstDayNumber, kLastDayNumber);
    if (number) return FromDays(*number - kDaysBefore1970);
  }
  // A time behind the date.
  const std::size_t end = plain.find_first_of(" T");
  if (end != std::string::npos && plain.find(':', end) != std::string::npos) plain.resize(end);
  const std::vector<std::string> parts = Split(plain, '/');
  if (parts.size() != 3 || parts[0].size() != 4 || parts[1].size() > 2 || parts[2].size() > 2)
    return std::nullopt;
  for (const std::string& part : parts) {
    if (!AllDigits(part)) return std::nullopt;
  }
  const JalaliDate date{std::stoi(parts[0]), std::stoi(parts[1]), std::stoi(parts[2])};
  if (date.year > kLastJalaliYear) return FromGregorian(date.year, date.month, date.day);
  std::string jalali = FormatJalali(date);
  if (!IsValidJalali(jalali)) return std::nullopt;
  return jalali;
}

std::optional<bool> ReadFlag(std::string_view text) {
  const std::string folded = FoldName(text);
  for (const char* yes : {"1", "yes", "true", "بله", "بلی", "آری"}) {
    if (folded == FoldName(yes)) return true;
  }
  for (const char* no : {"", "0", "no", "false", "خیر", "نه"}) {
    if (folded == FoldName(no)) return false;
  }
  return std::nullopt;
}

}  // namespace goods
