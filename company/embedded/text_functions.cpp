#include "company/embedded/text_functions.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {

namespace {

void Fold(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  try {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
    const auto length = static_cast<std::size_t>(sqlite3_value_bytes(values[0]));
    const std::string folded = FoldPersian(std::string_view(text == nullptr ? "" : text, length));
    sqlite3_result_text(context, folded.data(), static_cast<int>(folded.size()), SQLITE_TRANSIENT);
  } catch (const std::exception&) {
    sqlite3_result_error_nomem(context);
  }
}

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

// The next code of a list, cut off its front; none at its end. What is no number is passed over.
std::optional<std::int64_t> TakeCode(std::string_view& codes) {
  while (!codes.empty()) {
    const std::size_t comma = codes.find(',');
    const std::optional<std::int64_t> code = ParseInteger(Trim(codes.substr(0, comma)));
    codes = comma == std::string_view::npos ? std::string_view() : codes.substr(comma + 1);
    if (code) return code;
  }
  return std::nullopt;
}

void CodeAt(sqlite3_context* context, int, sqlite3_value** values) {
  std::string_view codes = TextOf(values[0]);
  std::optional<std::int64_t> code;
  for (std::int64_t left = sqlite3_value_int64(values[1]); left > 0; --left) {
    code = TakeCode(codes);
    if (!code) return;
  }
  if (code) sqlite3_result_int64(context, *code);
}

void SharesCode(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL) return;
  std::string_view sought = TextOf(values[1]);
  while (const std::optional<std::int64_t> code = TakeCode(sought)) {
    std::string_view codes = TextOf(values[0]);
    while (const std::optional<std::int64_t> held = TakeCode(codes)) {
      if (*held == *code) return sqlite3_result_int(context, 1);
    }
  }
  sqlite3_result_int(context, 0);
}

void Scalar(sqlite3* db, const char* name, int arguments,
            void (*function)(sqlite3_context*, int, sqlite3_value**)) {
  sqlite3_create_function_v2(db, name, arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                             nullptr, function, nullptr, nullptr, nullptr);
}

}  // namespace

void RegisterTextFunctions(sqlite3* db) {
  Scalar(db, "fold_persian", 1, Fold);
  Scalar(db, "code_at", 2, CodeAt);
  Scalar(db, "shares_code", 2, SharesCode);
}

}  // namespace goods
