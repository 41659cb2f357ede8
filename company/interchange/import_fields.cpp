#include "company/interchange/import_fields.h"

#include <chrono>
#include <vector>

#include "host/core/jalali.h"
#include "host/core/text.h"

namespace goods {

namespace {

// By movement type.
constexpr std::string_view kTypeNames[] = {"fixed_production_in",
                                           "sale",
                                           "purchase",
                                           "opening",
                                           "sale_return",
                                           "purchase_return",
                                           "transfer_out",
                                           "transfer_in",
                                           "production_in",
                                           "production_out",
                                           "fixed_production_out",
                                           "expense",
                                           "sale_accompanying",
                                           "sale_gift",
                                           "voucher_in",
                                           "voucher_out",
                                           "adjustment_in",
                                           "adjustment_out",
                                           "advanced_production_in",
                                           "advanced_production_out",
                                           "by_product",
                                           "issue",
                                           "receipt",
                                           "revenue",
                                           "split_out",
                                           "split_in"};
constexpr int kTypes = static_cast<int>(std::size(kTypeNames));

std::string Plain(std::string_view text) { return AsciiDigits(Trim(text)); }

bool AllDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<std::string> FromGregorian(int year, int month, int day) {
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return std::nullopt;
  const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
  if (days < DaysFromJalali({kFirstJalaliYear, 1, 1})) return std::nullopt;
  if (days > DaysFromJalali({kLastJalaliYear, 12, JalaliMonthLength(kLastJalaliYear, 12)}))
    return std::nullopt;
  return FormatJalali(JalaliFromDays(days));
}

}  // namespace

std::optional<std::int64_t> ReadWhole(std::string_view text, std::int64_t low, std::int64_t high) {
  const std::optional<std::int64_t> number = ParseInteger(Plain(text));
  if (!number || *number < low || *number > high) return std::nullopt;
  return number;
}

std::optional<Decimal> ReadNumber(std::string_view text, std::int64_t largest) {
  const std::string plain = ReplaceAll(Plain(text), "٫", ".");
  const std::size_t point = plain.find('.');
  if (point != std::string::npos && plain.size() - point - 1 > static_cast<std::size_t>(Decimal::kDecimals)) {
    return std::nullopt;
  }
  const std::optional<Decimal> number = Decimal::Parse(plain);
  if (!number || *number > Decimal(largest) || *number < Decimal(-largest)) return std::nullopt;
  return number;
}

std::optional<std::string> ReadDate(std::string_view text) {
  const std::vector<std::string> parts = Split(ReplaceAll(Plain(text), "-", "/"), '/');
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

std::optional<int> ReadMovementType(std::string_view text) {
  const std::string plain = Plain(text);
  if (AllDigits(plain)) {
    const std::optional<std::int64_t> code = ReadWhole(plain, 0, kTypes - 1);
    return code ? std::optional(static_cast<int>(*code)) : std::nullopt;
  }
  for (int type = 0; type < kTypes; ++type) {
    if (SameText(kTypeNames[type], plain)) return type;
  }
  return std::nullopt;
}

}  // namespace goods
