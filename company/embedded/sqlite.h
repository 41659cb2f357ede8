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

// What to tell a user of a failed call, in Persian; SQLite's own words are added where they help.
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
  void Bind(int index, Decimal value);  // as a decimal cell
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

// A database handle with the functions and the table-valued functions of this folder registered.
class Database {
 public:
  Database() = default;
  // flags: SQLITE_OPEN_...; the path is UTF-8.
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
