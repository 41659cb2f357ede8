#include "company/embedded/detail_functions.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "company/embedded/decimal_cell.h"
#include "host/core/text.h"
#include "host/data/decimal.h"
#include "host/data/persian.h"

namespace goods {

namespace {

constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool IsNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

// Nothing may be thrown through SQLite.
template <typename Body>
void Guarded(sqlite3_context* context, Body body) {
  try {
    body();
  } catch (const std::exception&) {
    sqlite3_result_error_nomem(context);
  }
}

void DetailText(sqlite3_context* context, int count, sqlite3_value** values) {
  Guarded(context, [&] {
    std::string text;
    for (int i = 0; i + 1 < count; i += 2) {
      const std::string_view value = TextOf(values[i + 1]);
      if (value.empty()) continue;
      if (!text.empty()) text += " - ";
      const std::string_view title = TextOf(values[i]);
      if (!title.empty()) text.append(title).append(": ");
      text += value;
    }
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  });
}

std::optional<Decimal> NumberIn(std::string_view text) { return Decimal::Parse(Trim(AsciiDigits(text))); }

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
  Guarded(context, [&] {
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
  Guarded(context, [&] {
    if (const std::optional<Decimal> number = NumberIn(TextOf(values[0]))) {
      ReturnUnits(context, number->Units());
    }
  });
}

}  // namespace

void RegisterDetailFunctions(sqlite3* db) {
  const auto add = [db](const char* name, int arguments,
                        void (*function)(sqlite3_context*, int, sqlite3_value**)) {
    sqlite3_create_function_v2(db, name, arguments, kFlags, nullptr, function, nullptr, nullptr, nullptr);
  };
  add("detail_text", -1, DetailText);
  add("detail_between", 4, DetailBetween);
  add("dec_try", 1, NumberOf);
}

}  // namespace goods
