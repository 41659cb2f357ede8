#include "company/embedded/decimal_functions.h"

#include <cstddef>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/sql_function.h"
#include "host/data/decimal.h"

namespace goods {

namespace {

class BadCell : public std::exception {
 public:
  const char* what() const noexcept override { return "خانه عددی شکل درستی ندارد"; }
};

Int128 Units(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return sqlite3_value_int64(value);
    case SQLITE_BLOB:
      if (sqlite3_value_bytes(value) == 16) return FromWideCell(sqlite3_value_blob(value));
      [[fallthrough]];
    default:
      throw BadCell();
  }
}

bool AnyNull(int count, sqlite3_value** values) {
  for (int i = 0; i < count; ++i) {
    if (IsNull(values[i])) return true;
  }
  return false;
}

Int128 Add(Int128 a, Int128 b) {
  Int128 sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) throw std::overflow_error(kTooLargeMessage);
  return sum;
}

Int128 Subtract(Int128 a, Int128 b) {
  Int128 difference = 0;
  if (__builtin_sub_overflow(a, b, &difference)) throw std::overflow_error(kTooLargeMessage);
  return difference;
}

Int128 Negate(Int128 a) { return Subtract(0, a); }

Int128 Divide(Int128 a, Int128 b) { return (Decimal::FromUnits(a) / Decimal::FromUnits(b)).Units(); }

Int128 WholeTimes(Int128 a, Int128 b) {
  if (b == 0) throw std::domain_error(kZeroDivisionMessage);
  if (FitsCell64(a) && FitsCell64(b) && b != -1) {
    return static_cast<Int128>(static_cast<std::int64_t>(a) / static_cast<std::int64_t>(b)) * Decimal::kOne;
  }
  Int128 units = 0;
  if (__builtin_mul_overflow(b == -1 ? Negate(a) : a / b, static_cast<Int128>(Decimal::kOne), &units)) {
    throw std::overflow_error(kTooLargeMessage);
  }
  return units;
}

Int128 RestOf(Int128 a, Int128 b) {
  if (b == 0) throw std::domain_error(kZeroDivisionMessage);
  return b == -1 ? 0 : a % b;
}

template <Int128 (*operation)(Int128, Int128)>
void Binary(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  GuardedFunction(context, [&] { ReturnUnits(context, operation(Units(values[0]), Units(values[1]))); });
}

template <Int128 (*operation)(Int128)>
void Unary(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  GuardedFunction(context, [&] { ReturnUnits(context, operation(Units(values[0]))); });
}

Int128 Absolute(Int128 a) { return a < 0 ? Negate(a) : a; }
Int128 Truncate(Int128 a) { return a - a % Decimal::kOne; }

void Compare(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  GuardedFunction(context, [&] {
    const Int128 a = Units(values[0]);
    const Int128 b = Units(values[1]);
    sqlite3_result_int(context, a < b ? -1 : a > b ? 1 : 0);
  });
}

void OfWhole(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  GuardedFunction(context, [&] {
    if (sqlite3_value_type(values[0]) != SQLITE_INTEGER) throw BadCell();
    ReturnUnits(context, static_cast<Int128>(sqlite3_value_int64(values[0])) * Decimal::kOne);
  });
}

void ToText(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  GuardedFunction(context, [&] { ReturnText(context, Decimal::FromUnits(Units(values[0])).ToString()); });
}

void FromText(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  GuardedFunction(context, [&] {
    const std::optional<Decimal> number = Decimal::Parse(TextOf(values[0]));
    if (!number) throw BadCell();
    ReturnUnits(context, number->Units());
  });
}

void SortKey(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  GuardedFunction(context, [&] {
    const WideCell cell = ToWideCell(Units(values[0]));
    WideCell key{};
    for (std::size_t i = 0; i < key.size(); ++i) key[i] = cell[key.size() - 1 - i];
    key[0] ^= 0x80;
    sqlite3_result_blob(context, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
  });
}

// SQLite's memory for an aggregate is zeroed and aligned to 8 bytes: a 128-bit number is kept as two words.
struct Running {
  std::uint64_t low;
  std::int64_t high;
  std::int64_t rows;
  Int128 Get() const { return static_cast<Int128>(high) << 64 | low; }
  void Set(Int128 units) {
    low = static_cast<std::uint64_t>(units);
    high = static_cast<std::int64_t>(units >> 64);
  }
};

Running* State(sqlite3_context* context, bool create) {
  return static_cast<Running*>(sqlite3_aggregate_context(context, create ? sizeof(Running) : 0));
}

void SumStep(sqlite3_context* context, int count, sqlite3_value** values) {
  Running* state = State(context, true);
  if (state == nullptr || AnyNull(count, values)) return;
  GuardedFunction(context, [&] {
    state->Set(Add(state->Get(), Units(values[0])));
    ++state->rows;
  });
}

void SumInverse(sqlite3_context* context, int count, sqlite3_value** values) {
  Running* state = State(context, true);
  if (state == nullptr || AnyNull(count, values)) return;
  GuardedFunction(context, [&] {
    state->Set(Subtract(state->Get(), Units(values[0])));
    --state->rows;
  });
}

void RunningValue(sqlite3_context* context) {
  const Running* state = State(context, false);
  if (state != nullptr && state->rows > 0) ReturnUnits(context, state->Get());
}

template <bool greatest>
void ExtremeStep(sqlite3_context* context, int count, sqlite3_value** values) {
  Running* state = State(context, true);
  if (state == nullptr || AnyNull(count, values)) return;
  GuardedFunction(context, [&] {
    const Int128 units = Units(values[0]);
    if (state->rows++ == 0 || (greatest ? units > state->Get() : units < state->Get())) state->Set(units);
  });
}

}  // namespace

void RegisterDecimalFunctions(sqlite3* db) {
  RegisterSqlFunction(db, "dec_add", 2, Binary<Add>);
  RegisterSqlFunction(db, "dec_sub", 2, Binary<Subtract>);
  RegisterSqlFunction(db, "dec_mul", 2, Binary<MultiplyUnits>);
  RegisterSqlFunction(db, "dec_div", 2, Binary<Divide>);
  RegisterSqlFunction(db, "dec_whole", 2, Binary<WholeTimes>);
  RegisterSqlFunction(db, "dec_rest", 2, Binary<RestOf>);
  RegisterSqlFunction(db, "dec_neg", 1, Unary<Negate>);
  RegisterSqlFunction(db, "dec_abs", 1, Unary<Absolute>);
  RegisterSqlFunction(db, "dec_trunc", 1, Unary<Truncate>);
  RegisterSqlFunction(db, "dec_cmp", 2, Compare);
  RegisterSqlFunction(db, "dec_of", 1, OfWhole);
  RegisterSqlFunction(db, "dec_text", 1, ToText);
  RegisterSqlFunction(db, "dec_parse", 1, FromText);
  RegisterSqlFunction(db, "dec_key", 1, SortKey);
  sqlite3_create_window_function(db, "dec_sum", 1, kSqlFunctionFlags, nullptr, SumStep, RunningValue,
                                 RunningValue, SumInverse, nullptr);
  sqlite3_create_function_v2(db, "dec_min", 1, kSqlFunctionFlags, nullptr, nullptr, ExtremeStep<false>,
                             RunningValue, nullptr);
  sqlite3_create_function_v2(db, "dec_max", 1, kSqlFunctionFlags, nullptr, nullptr, ExtremeStep<true>,
                             RunningValue, nullptr);
}

}  // namespace goods
