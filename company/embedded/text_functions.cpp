#include "company/embedded/text_functions.h"

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>

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

}  // namespace

void RegisterTextFunctions(sqlite3* db) {
  sqlite3_create_function_v2(db, "fold_persian", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                             nullptr, Fold, nullptr, nullptr, nullptr);
}

}  // namespace goods
