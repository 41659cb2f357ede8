// Table-valued functions whose rows are worked out in C++ while they are read, for what SQL alone would do at
// several times the cost. A cursor reads other tables through statements of its own.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include <sqlite3.h>

namespace goods {

// The rows of one reading. May throw SqliteError, std::overflow_error and std::bad_alloc.
class ComputedRows {
 public:
  ComputedRows() = default;
  ComputedRows(const ComputedRows&) = delete;
  ComputedRows& operator=(const ComputedRows&) = delete;
  virtual ~ComputedRows();

  // To the next row, at first to the first one; false at the end.
  virtual bool Next() = 0;
  // The row's cell, as a result of the context.
  virtual void Cell(sqlite3_context* context, int column) const = 0;
};

struct ComputedTable {
  const char* name;
  const char* columns;  // "CREATE TABLE x(...)"; the first column is the good
  int ordered;          // the rows come in the order of so many of the first columns
  // All rows, or those of one good.
  std::unique_ptr<ComputedRows> (*open)(sqlite3* db, std::optional<std::int64_t> good);
};

template <typename Rows>
std::unique_ptr<ComputedRows> OpenComputed(sqlite3* db, std::optional<std::int64_t> good) {
  return std::make_unique<Rows>(db, good);
}

// The table is there under its name alone, for reading. It must outlive the handle.
void RegisterComputedTable(sqlite3* db, const ComputedTable& table);

}  // namespace goods
