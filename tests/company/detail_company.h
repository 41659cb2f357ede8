// A random company whose goods keep details of every type, and its detail movements as the tables tell them,
// put together apart from the procedures.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/data/connection.h"
#include "host/data/decimal.h"

namespace goods {

using Rows = std::vector<std::vector<std::string>>;

// A detail movement with all that criteria may ask of it.
struct DetailRow {
  std::string date;
  std::int64_t radif = 0;
  std::int64_t store = 0;
  std::string storeName;
  std::int64_t personCode = 0;
  std::string person;  // empty: none
  std::string comment;
  std::int64_t good = 0;
  std::string goodName;
  std::int64_t group = 0;
  std::set<std::int64_t> tags;
  std::set<std::int64_t> categories;  // those that the good holds, with all above them
  std::set<std::int64_t> lists;
  std::string unit;
  std::int64_t valueId = 0;
  std::array<std::int64_t, 5> details{};  // by position; 0: none
  std::array<std::string, 5> values;
  std::string text;
  std::int64_t type = 0;
  std::int64_t document = 0;
  Decimal amount1;
  Decimal amount2;
  Decimal amount3;
  Decimal length;
  Decimal width;
  Decimal price;

  Decimal Varede() const { return amount1.IsNegative() ? Decimal() : amount1; }
  Decimal Sadere() const { return amount1.IsNegative() ? -amount1 : Decimal(); }
  Decimal Total() const { return amount1.Abs() * price; }
};

// Details 1 to 8; their types in kDetailTypeOf. Values hold both spellings of yeh and kaf, quotes, Persian
// digits, numbers and dates in several forms, and texts that are neither where they should be. Some goods
// keep no details though they move; some details do not add up to their row.
inline constexpr int kDetails = 8;
inline constexpr std::array<int, kDetails> kDetailTypeOf = {1, 2, 3, 4, 5, 6, 3, 1};
void WriteDetailCompany(const std::string& path, unsigned seed, int movements);

// Every detail movement, by good, date, row number and combination.
std::vector<DetailRow> DetailRowsOfTables(IConnection& connection);

// The text as readers compare it.
std::string PlainText(std::string text);
// The number, or the date as year, month and day in one number, that a text holds.
std::optional<Decimal> NumberInText(const std::string& text);
std::optional<Decimal> DateInText(const std::string& text);

}  // namespace goods
