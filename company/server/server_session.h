// ServerSession: statements for the upkeep of a database, one after another on one connection.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "company/server/odbc/odbc_handles.h"
#include "host/data/row_store.h"

namespace goods {

// N'...' with quotes doubled, and [...] with brackets doubled.
std::string ServerText(std::string_view text);
std::string ServerName(std::string_view name);

// Every function throws CompanyError with what the server said.
class ServerSession {
 public:
  explicit ServerSession(const std::string& connectionString);

  void Run(std::string_view statement);
  RowStore Ask(std::string_view statement);
  // The first cell of the first row; 0 or empty without one.
  std::int64_t AskInteger(std::string_view statement);
  std::string AskText(std::string_view statement);

 private:
  OdbcConnection connection_;
};

// A transaction that is undone unless committed.
class ServerTransaction {
 public:
  explicit ServerTransaction(ServerSession& session);
  ServerTransaction(const ServerTransaction&) = delete;
  ServerTransaction& operator=(const ServerTransaction&) = delete;
  ~ServerTransaction();
  void Commit();

 private:
  ServerSession& session_;
  bool open_ = true;
};

}  // namespace goods
