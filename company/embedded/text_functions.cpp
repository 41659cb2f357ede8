#include "company/embedded/text_functions.h"

#include <cstdint>
#include <optional>
#include <string_view>

#include "company/embedded/sql_function.h"
#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {

namespace {

void Fold(sqlite3_context* context, int, sqlite3_value** values) {
  if (IsNull(values[0])) return;
  GuardedFunction(context, [&] { ReturnText(context, FoldPersian(TextOf(values[0]))); });
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
  if (IsNull(values[0]) || IsNull(values[1])) return;
  std::string_view sought = TextOf(values[1]);
  while (const std::optional<std::int64_t> code = TakeCode(sought)) {
    std::string_view codes = TextOf(values[0]);
    while (const std::optional<std::int64_t> held = TakeCode(codes)) {
      if (*held == *code) return sqlite3_result_int(context, 1);
    }
  }
  sqlite3_result_int(context, 0);
}

}  // namespace

void RegisterTextFunctions(sqlite3* db) {
  RegisterSqlFunction(db, "fold_persian", 1, Fold);
  RegisterSqlFunction(db, "code_at", 2, CodeAt);
  RegisterSqlFunction(db, "shares_code", 2, SharesCode);
}

}  // namespace goods
