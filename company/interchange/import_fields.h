// What a field of an imported file may hold. Persian digits and the Persian decimal point mean the same as
// Latin ones; blanks at both ends do not count.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/data/decimal.h"

namespace goods {

// A whole number from low to high.
std::optional<std::int64_t> ReadWhole(std::string_view text, std::int64_t low, std::int64_t high);
// A number with at most nine decimals, its absolute value at most largest.
std::optional<Decimal> ReadNumber(std::string_view text, std::int64_t largest);
// A Jalali date (years 1200 to 1500) or a Gregorian one (ISO), parts joined with "-" or "/"; as a Jalali date
// text "yyyy/mm/dd".
std::optional<std::string> ReadDate(std::string_view text);
// A movement type by code, 0 to 25, or by English name.
std::optional<int> ReadMovementType(std::string_view text);

}  // namespace goods
