// What a field of an imported file may hold. Persian digits and the Persian decimal point mean the same as
// Latin ones; blanks at both ends do not count.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/data/decimal.h"

namespace goods {

// As a problem quotes what a field holds.
std::string Quoted(std::string_view text);

// A whole number from low to high.
std::optional<std::int64_t> ReadWhole(std::string_view text, std::int64_t low, std::int64_t high);
// A number with at most nine decimals, its absolute value at most largest. Thousands may be set apart with
// "," or "٬".
std::optional<Decimal> ReadNumber(std::string_view text, std::int64_t largest);
// A Jalali date (years 1200 to 1500) or a Gregorian one (ISO), parts joined with "-" or "/", a time behind it
// aside; as a Jalali date text "yyyy/mm/dd". days: a number of days since 1899-12-30 is a date too, as
// spreadsheets keep them.
std::optional<std::string> ReadDate(std::string_view text, bool days = false);
// Yes or no: 1 and 0, yes and no, true and false, بله and خیر; empty is no.
std::optional<bool> ReadFlag(std::string_view text);
// A movement type by code, 0 to 25, or by name: those of docs/import.md, the Persian ones and usual others.
std::optional<int> ReadMovementType(std::string_view text);
// The name with which a movement type is exported.
std::string_view MovementTypeName(int type);
// A kind of document by number, 1 to 15, or by the name with which it is exported.
std::optional<std::int64_t> ReadDocumentKind(std::string_view text);
std::string_view DocumentKindName(std::int64_t kind);
// 1 for what comes in ("in", "ورود", "وارده"), -1 for what goes out ("out", "خروج", "صادره").
std::optional<int> ReadDirection(std::string_view text);

}  // namespace goods
