// SQLite behind objects that close themselves and throw.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include <sqlite3.h>

#include "host/data/decimal.h"

namespace goods {

// A failed call: SQLite's primary result code and its message.
class SqliteError : public std::runtime_error {
 public:
  SqliteError(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
  ~SqliteError() override;
  int Code() const { return code_; }

 private:
  int code_;
};

// What to tell a user of a failed call: Persian, none of SQLite's own words.
std::string PersianMessage(const SqliteError& error);

// A prepared statement. Parameters count from 1, columns from 0. Texts given to Bind are copied; texts
// returned live until the next Step, Reset or Bind.
class Statement {
 public:
  Statement() = default;
  Statement(sqlite3* db, std::string_view sql);
  // The first statement of a text; tail is set to what follows it. Blanks and comments give no handle.
  Statement(sqlite3* db, const char* begin, const char* end, const char** tail);
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;
  ~Statement();

  void Bind(int index, std::int64_t value);
  void Bind(int index, std::string_view value);
  void Bind(int index, Decimal value);                // as a decimal cell
  void BindBytes(int index, std::string_view bytes);  // as a blob; copied
  void BindNull(int index);
  // True while there is a row.
  bool Step();
  void Reset();
  // Step to the end, then Reset: for statements without rows.
  void Run();

  int Columns() const { return sqlite3_column_count(statement_); }
  bool IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }
  std::int64_t Integer(int column) const { return sqlite3_column_int64(statement_, column); }
  std::string_view Text(int column) const;
  Decimal Number(int column) const;  // a decimal cell; null reads as 0
  sqlite3_stmt* Handle() const { return statement_; }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

// What the statements of a handle may do. None reaches another file or loads code.
enum class Access {
  Read,   // SELECT, and nothing else
  Write,  // rows of the file's tables, tables of the handle's own; no schema
  Build   // the schema too: a new file, or an older one that is brought up to date
};

// A database handle with the functions and the table-valued functions of this folder registered, for one
// thread at a time: it has no lock of its own, which would be taken for each cell that is read. A file is
// data: nothing that it defines runs by itself (triggers are off, its schema is not trusted), and there are
// limits on what a file or a statement can ask for: a cell, row or statement of kLargestCell bytes,
// expressions 500 deep, 1000 columns, 1 GB of memory for all handles together, and a schema that is read
// within kSchemaInstructions.
class Database {
 public:
  static constexpr int kLargestCell = 4 * 1024 * 1024;
  static constexpr int kSchemaInstructions = 20'000;  // 2,500 tables, views, indexes and triggers

  Database() = default;
  // flags: SQLITE_OPEN_...; the path is UTF-8 and a file's name whatever it looks like, but for ":memory:".
  // The schema is read, so a file that is no database, damaged or locked is noticed here. Access is Build.
  Database(const std::string& path, int flags);
  Database(Database&& other) noexcept;
  Database& operator=(Database&& other) noexcept;
  ~Database();

  // Runs every statement of a text; rows are dropped.
  void Run(std::string_view sql);
  Statement Prepare(std::string_view sql) { return Statement(db_, sql); }
  // The first column of the first row; 0 or empty without rows.
  std::int64_t AskInteger(std::string_view sql);
  std::string AskText(std::string_view sql);
  sqlite3* Handle() const { return db_; }
  void SetAccess(Access access);
  // For a file whose schema this program has just written itself.
  void RunTriggers();
  // Another number whenever another handle has written; of the state that this one read last.
  std::uint32_t DataVersion() const;
  // The file is no longer under its name: renamed, deleted, or another one put in its place.
  bool WasMoved() const;

 private:
  sqlite3* db_ = nullptr;
};

// A transaction that is undone unless committed.
class Transaction {
 public:
  explicit Transaction(Database& db, const char* begin = "BEGIN IMMEDIATE");
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();
  void Commit();

 private:
  Database& db_;
  bool open_ = true;
};

}  // namespace goods
