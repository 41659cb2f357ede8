// Running a prepared statement under the eyes of a progress listener.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <span>

#include "company/embedded/derived_columns.h"
#include "company/embedded/sqlite.h"
#include "host/data/connection.h"
#include "host/data/row_store.h"

namespace goods {

// The listener said stop.
class Cancelled : public std::exception {};

// While it lives, the listener hears of the handle's work soon after its start and then every 50 ms, also
// before the first row, and can stop it. progress may be null. Its exceptions come out of Rethrow.
class ProgressWatch {
 public:
  // mostInstructions: what the handle may do in all, 0 for any; then it is interrupted (SQLITE_INTERRUPT).
  ProgressWatch(sqlite3* db, IStatementProgress* progress, std::uint64_t mostInstructions = 0);
  ProgressWatch(const ProgressWatch&) = delete;
  ProgressWatch& operator=(const ProgressWatch&) = delete;
  ~ProgressWatch();

  // Called for each row. Throws Cancelled.
  void Row() {
    if (++rows_ % kRowsBetweenCalls == 0 && progress_ != nullptr) TellNow();
  }
  // Rows that other handles have read, which count with the others.
  void RowsReadElsewhere(std::size_t rows) { rows_ += rows; }
  // Where the rows go: the listener may want the first of them. rows must outlive this.
  void Fills(const RowStore& rows) { filled_ = &rows; }
  // For a thread that waits: tells the listener at once. Throws Cancelled.
  void Tell() {
    if (progress_ != nullptr) TellNow();
  }
  // After the handle was interrupted: throws what the listener threw, or Cancelled; nothing otherwise.
  void Rethrow() const;

 private:
  static constexpr std::size_t kRowsBetweenCalls = 1024;
  static int Called(void* self);
  void TellNow();
  bool Ask();

  sqlite3* db_;
  IStatementProgress* progress_;
  const RowStore* filled_ = nullptr;
  std::uint64_t mostInstructions_;
  std::uint64_t instructions_ = 0;
  std::size_t rows_ = 0;
  std::chrono::steady_clock::time_point told_{};
  std::exception_ptr thrown_;
  bool cancelled_ = false;
};

// Reads all rows into a store that has been defined with the statement's columns, behind those that it holds;
// the store is not finished. derived: one for each
// column, or none at all. Throws SqliteError, also for a cell that is not of its column's type, and
// std::overflow_error.
void ReadRows(Statement& statement, std::span<const DerivedColumn> derived, RowStore& into,
              ProgressWatch& watch);

}  // namespace goods
