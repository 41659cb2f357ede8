#include "company/embedded/detail_functions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/sql_function.h"
#include "host/core/text.h"
#include "host/data/decimal.h"
#include "host/data/persian.h"

namespace goods {

namespace {

void DetailText(sqlite3_context* context, int count, sqlite3_value** values) {
  GuardedFunction(context, [&] {
    std::string text;
    for (int i = 0; i + 1 < count; i += 2) {
      const std::string_view value = TextOf(values[i + 1]);
      if (value.empty()) continue;
      if (!text.empty()) text += " - ";
      const std::string_view title = TextOf(values[i]);
      if (!title.empty()) text.append(title).append(": ");
      text += value;
    }
    ReturnText(context, text);
  });
}

// As an amount edit takes it.
std::optional<Decimal> NumberIn(std::string_view text) {
  const std::string plain = AsciiDigits(Trim(text));
  const std::size_t point = std::min(plain.find('.'), plain.size());
  return Decimal::Parse(ReplaceAll(plain.substr(0, point), ",", "") + plain.substr(point));
}

// The year, month and day as one number.
std::optional<Int128> DateIn(std::string_view text) {
  const std::string plain = AsciiDigits(text);
  const std::vector<std::string> parts = Split(Trim(plain), '/');
  if (parts.size() != 3) return std::nullopt;
  constexpr std::array<std::size_t, 3> kDigits = {4, 2, 2};
  Int128 date = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::string& part = parts[i];
    if (part.empty() || part.size() > kDigits[i]) return std::nullopt;
    if (part.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
    date = date * 100 + ParseInteger(part).value_or(0);
  }
  return date;
}

constexpr Int128 kLowest = std::numeric_limits<std::int64_t>::min();
constexpr Int128 kHighest = std::numeric_limits<std::int64_t>::max();

bool NumberBetween(sqlite3_value** values) {
  const std::optional<Decimal> value = NumberIn(TextOf(values[1]));
  if (!value) return false;
  const std::optional<Decimal> from = NumberIn(TextOf(values[2]));
  const std::optional<Decimal> to = NumberIn(TextOf(values[3]));
  return (IsNull(values[2]) || (from && *from <= *value)) && (IsNull(values[3]) || (to && *value <= *to));
}

std::optional<Int128> DateEnd(sqlite3_value* value, Int128 open) {
  const std::string text = AsciiDigits(TextOf(value));
  if (text.find_first_of("0123456789") == std::string::npos) return open;
  return DateIn(text);
}

bool DateBetween(sqlite3_value** values) {
  const std::optional<Int128> value = DateIn(TextOf(values[1]));
  if (!value) return false;
  const std::optional<Int128> from = DateEnd(values[2], kLowest);
  const std::optional<Int128> to = DateEnd(values[3], kHighest);
  return from && to && *from <= *value && *value <= *to;
}

// The ends of a range of texts. They are the same for every row of a statement, which keeps them.
struct TextEnds {
  std::optional<std::string> equal;  // both ends, folded, when they are one text
  std::optional<std::string> from;   // sort keys
  std::optional<std::string> to;
};

TextEnds ReadTextEnds(sqlite3_value* from, sqlite3_value* to) {
  TextEnds ends;
  if (!IsNull(from) && !IsNull(to)) {
    std::string folded = FoldPersian(Trim(TextOf(from)));
    if (folded == FoldPersian(Trim(TextOf(to)))) ends.equal = std::move(folded);
  }
  if (!IsNull(from)) ends.from = PersianSortKey(Trim(TextOf(from)));
  if (!IsNull(to)) ends.to = PersianSortKey(Trim(TextOf(to)));
  return ends;
}

bool TextBetween(const TextEnds& ends, std::string_view value) {
  if (ends.equal) {
    std::string folded;
    FoldPersianInto(Trim(value), folded);
    return folded == *ends.equal;
  }
  const std::string key = PersianSortKey(Trim(value));
  return (!ends.from || *ends.from <= key) && (!ends.to || key <= *ends.to);
}

bool TextBetween(sqlite3_context* context, sqlite3_value** values) {
  constexpr int kKeptWith = 3;
  const std::string_view value = TextOf(values[1]);
  if (const auto* kept = static_cast<const TextEnds*>(sqlite3_get_auxdata(context, kKeptWith))) {
    return TextBetween(*kept, value);
  }
  auto ends = std::make_unique<TextEnds>(ReadTextEnds(values[2], values[3]));
  const bool between = TextBetween(*ends, value);
  sqlite3_set_auxdata(context, kKeptWith, ends.release(),
                      [](void* kept) { delete static_cast<TextEnds*>(kept); });
  return between;
}

void DetailBetween(sqlite3_context* context, int, sqlite3_value** values) {
  GuardedFunction(context, [&] {
    bool between = false;
    if (!IsNull(values[1])) {
      const int type = sqlite3_value_int(values[0]);
      between = type == 3 || type == 4 ? NumberBetween(values)
                : type == 5            ? DateBetween(values)
                                       : TextBetween(context, values);
    }
    sqlite3_result_int(context, between ? 1 : 0);
  });
}

void NumberOf(sqlite3_context* context, int, sqlite3_value** values) {
  if (IsNull(values[0])) return;
  GuardedFunction(context, [&] {
    if (const std::optional<Decimal> number = NumberIn(TextOf(values[0]))) {
      ReturnUnits(context, number->Units());
    }
  });
}

}  // namespace

void RegisterDetailFunctions(sqlite3* db) {
  RegisterSqlFunction(db, "detail_text", -1, DetailText);
  RegisterSqlFunction(db, "detail_between", 4, DetailBetween);
  RegisterSqlFunction(db, "dec_try", 1, NumberOf);
}

}  // namespace goods
