// A random company for the row search, and its stock-card rows worked out apart from the procedures.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "host/data/connection.h"
#include "host/data/decimal.h"

namespace goods {

// A row as srKardex shows it.
struct FoundRow {
  std::string date;
  std::int64_t good = 0;
  std::int64_t radif = 0;
  std::int64_t store = 0;
  std::string abbName;
  std::optional<std::string> person;
  std::string goodName;
  std::string storeName;
  std::string comment;
  Decimal tedad;
  Decimal varede;
  Decimal sadere;
  Decimal mabVarede;
  Decimal mabSadere;
  Decimal gheymatVarede;
  Decimal gheymatSadere;
  std::int64_t type = 0;
  std::int64_t document = 0;
  std::string unit = "عدد";  // of every good

  // Its cells in the procedure's columns; null is the empty text.
  std::vector<std::string> Cells() const;
};

// One criterion: its parameters in a statement, and which rows meet it.
struct SearchCriterion {
  std::string parameters;
  std::function<bool(const FoundRow&)> holds;
};

// Names and comments hold both spellings of yeh and kaf, joiners, quotes and percent signs; every tenth
// movement has no person. Stores go below zero.
void WriteSearchCompany(const std::string& path, unsigned seed, int movements);

// Every row, by good, date and row number, from the tables alone.
std::vector<FoundRow> RowsOfTables(IConnection& connection);

inline constexpr int kCriteria = 11;
// A criterion of that kind (0 to kCriteria - 1) with values drawn at random; some of them meet no row.
SearchCriterion RandomCriterion(int kind, std::mt19937& random, bool exclude);

}  // namespace goods
