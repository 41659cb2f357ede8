// What the SQL functions of this folder share: their arguments, their results and their failures.
#pragma once

#include <cstddef>
#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>

#include <sqlite3.h>

namespace goods {

using SqlFunction = void (*)(sqlite3_context*, int, sqlite3_value**);

inline constexpr int kSqlFunctionFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
inline constexpr char kTooLargeMessage[] = "حاصل از اندازه یک عدد بزرگتر است";
inline constexpr char kZeroDivisionMessage[] = "تقسیم بر صفر";

// arguments -1: any number.
inline void RegisterSqlFunction(sqlite3* db, const char* name, int arguments, SqlFunction function) {
  sqlite3_create_function_v2(db, name, arguments, kSqlFunctionFlags, nullptr, function, nullptr, nullptr,
                             nullptr);
}

inline bool IsNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

// Lives as long as the value; null reads as the empty text.
inline std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

inline void ReturnText(sqlite3_context* context, std::string_view text) {
  const char* data = text.data() == nullptr ? "" : text.data();
  sqlite3_result_text(context, data, static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

// Nothing may be thrown through SQLite: what body throws becomes the function's error.
template <typename Body>
void GuardedFunction(sqlite3_context* context, Body body) {
  try {
    body();
  } catch (const std::overflow_error&) {
    sqlite3_result_error(context, kTooLargeMessage, -1);
  } catch (const std::domain_error&) {
    sqlite3_result_error(context, kZeroDivisionMessage, -1);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

}  // namespace goods
