// Table-valued functions whose rows are worked out in C++ while they are read, for what SQL alone would do at
// several times the cost; the procedure around them keeps its criteria, joins and order in SQL. A cursor
// reads other tables through statements of its own. (A result that no SELECT can shape is a native
// procedure's.)
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include <sqlite3.h>

namespace goods {

// The rows of one reading after another. May throw SqliteError, std::overflow_error and std::bad_alloc.
class ComputedRows {
 public:
  ComputedRows() = default;
  ComputedRows(const ComputedRows&) = delete;
  ComputedRows& operator=(const ComputedRows&) = delete;
  virtual ~ComputedRows();

  // A new reading, before its first row. given: the table's arguments; of a table without any the good asked
  // for, or nothing when all are (see GoodIn). The values live until Start returns.
  virtual void Start(std::span<sqlite3_value* const> given) = 0;
  // To the next row, at first to the first one; false at the end.
  virtual bool Next() = 0;
  // The row's cell, as a result of the context; not asked for arguments.
  virtual void Cell(sqlite3_context* context, int column) const = 0;
};

struct ComputedTable {
  const char* name;
  const char* columns;  // "CREATE TABLE x(...)"; the first column is the good
  int arguments;        // so many of the first columns are HIDDEN, and every reading gives them all, by "="
  int ordered;          // the rows come in the order of so many of the first columns
  std::unique_ptr<ComputedRows> (*make)(sqlite3* db);
};

template <typename Rows>
std::unique_ptr<ComputedRows> MakeComputed(sqlite3* db) {
  return std::make_unique<Rows>(db);
}

// The one good that a reading of a table without arguments is for; none when it is for all.
inline std::optional<std::int64_t> GoodIn(std::span<sqlite3_value* const> given) {
  if (given.empty()) return std::nullopt;
  return sqlite3_value_int64(given[0]);
}

// The table is there under its name alone, for reading. It must outlive the handle.
void RegisterComputedTable(sqlite3* db, const ComputedTable& table);

}  // namespace goods
