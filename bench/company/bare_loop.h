// The baseline of the company's benchmarks: a procedure's own statement, stepped with SQLite alone, its cells
// copied into plain vectors.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "company/embedded/sqlite.h"
#include "host/data/decimal.h"
#include "host/data/row_store.h"

namespace goods {

// The best time of each benchmark, in seconds: by the clock, since reports are divided over the cores and a
// bare loop is not, and of the processor, all threads together. Of several runs the best has met the least of
// other work on the machine.
std::map<std::string, double>& Best();
std::map<std::string, double>& BestOfProcessor();

// Times a scope.
class Watch {
 public:
  explicit Watch(std::string name);
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch();

 private:
  std::string name_;
  std::chrono::steady_clock::time_point start_;
  double processorStart_;
};

// Plain columns, as a caller without a query would keep them.
struct PlainRows {
  std::vector<std::vector<std::int64_t>> integers;
  std::vector<std::vector<Int128>> decimals;
  std::vector<std::vector<std::string>> texts;
  std::size_t rows = 0;
  std::size_t valueBytes = 0;  // of the cells themselves: 8 an integer, 8 or 16 a decimal, a text's own bytes
};

// All rows of an EXEC statement whose procedure reads.
PlainRows ReadBare(Database& db, std::string_view statement);
// The columns that a procedure declares.
const std::vector<ColumnInfo>& ColumnsOf(std::string_view procedure);
// All rows of a SELECT with those columns.
PlainRows ReadSelect(Database& db, std::string_view select, const std::vector<ColumnInfo>& columns);

// One scan of the movements: good, date, row number, store and quantity of each.
void ScanMovements(Database& db);

}  // namespace goods
