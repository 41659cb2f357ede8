#include "company/server/server_session.h"

#include "company/company.h"
#include "company/server/odbc/odbc_rows.h"
#include "company/server/server_errors.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr int kLoginTimeout = 15;

template <typename Body>
auto Guarded(Body body) -> decltype(body()) {
  try {
    return body();
  } catch (const OdbcError& error) {
    throw CompanyError("سرور: " + UserMessage(error));
  }
}

OdbcConnection Connected(const std::string& connectionString) {
  return Guarded([&] { return OdbcConnection(connectionString, kLoginTimeout); });
}

}  // namespace

std::string ServerText(std::string_view text) { return "N'" + ReplaceAll(text, "'", "''") + "'"; }
std::string ServerName(std::string_view name) { return "[" + ReplaceAll(name, "]", "]]") + "]"; }

ServerSession::ServerSession(const std::string& connectionString) : connection_(Connected(connectionString)) {
  Run("SET NOCOUNT ON");
  Run("SET XACT_ABORT ON");
}

void ServerSession::Run(std::string_view statement) {
  Guarded([&] {
    OdbcStatement running(connection_);
    running.Run(statement);
    while (running.NextResult()) {
    }
  });
}

RowStore ServerSession::Ask(std::string_view statement) {
  return Guarded([&] {
    OdbcStatement running(connection_);
    running.Run(statement);
    RowStore rows;
    std::atomic<std::size_t> count{0};
    while (running.Columns() == 0) {
      if (!running.NextResult()) return rows;
    }
    ReadOdbcRows(running, rows, count);
    while (running.NextResult()) {
    }
    return rows;
  });
}

std::int64_t ServerSession::AskInteger(std::string_view statement) {
  const RowStore rows = Ask(statement);
  return rows.Count() == 0 ? 0 : rows.Cell(0, 0).AsInteger();
}

std::string ServerSession::AskText(std::string_view statement) {
  const RowStore rows = Ask(statement);
  return rows.Count() == 0 ? std::string() : rows.Cell(0, 0).AsText();
}

ServerTransaction::ServerTransaction(ServerSession& session) : session_(session) {
  session_.Run("BEGIN TRANSACTION");
}

ServerTransaction::~ServerTransaction() {
  if (!open_) return;
  try {
    session_.Run("IF @@TRANCOUNT > 0 ROLLBACK");
  } catch (const CompanyError&) {  // the connection is gone, and the transaction with it
  }
}

void ServerTransaction::Commit() {
  session_.Run("COMMIT");
  open_ = false;
}

}  // namespace goods
