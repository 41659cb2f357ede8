#include "company/server/server_connection.h"

#include <utility>

#include "company/server/odbc/odbc_handles.h"
#include "company/server/odbc/odbc_rows.h"
#include "host/data/blocking_work.h"
#include "host/data/row_store.h"

namespace goods {

struct ServerConnection::Session {
  explicit Session(const std::string& connectionString, int loginTimeout)
      : connection(connectionString, loginTimeout) {}
  OdbcConnection connection;
};

namespace {

constexpr int kLockTimeout = 1222;  // the server's number of "lock request time out period exceeded"
constexpr int kDeadlock = 1205;

// One statement, owned by the thread that runs it as much as by the caller.
struct Job {
  Job(std::shared_ptr<ServerConnection::Session> on, std::string_view asked, bool keep)
      : session(std::move(on)), statement(session->connection), text(asked), keepRows(keep) {}

  void Run() {
    statement.Run(text);
    bool read = false;
    do {
      if (statement.Columns() == 0) continue;
      RowStore dropped;
      ReadOdbcRows(statement, keepRows && !read ? rows : dropped, *count);
      read = true;
    } while (statement.NextResult());
    if (!read) rows.Define({});
  }

  std::shared_ptr<ServerConnection::Session> session;
  OdbcStatement statement;
  std::string text;
  bool keepRows;
  RowStore rows;
  BlockingWork::Rows count = std::make_shared<std::atomic<std::size_t>>(0);
};

// In the user's language what happened, then the server's own words.
std::string UserMessage(const OdbcError& error) {
  const std::string said = error.what();
  if (error.TimedOut()) return "پاسخ سرور در زمان تعیین شده نرسید.\n" + said;
  if (error.Native() == kLockTimeout)
    return "داده ها در دست کاربر دیگری است؛ کمی بعد دوباره بکوشید.\n" + said;
  if (error.Native() == kDeadlock) return "کار با کار کاربر دیگری برخورد کرد؛ دوباره بکوشید.\n" + said;
  return said;
}

[[noreturn]] void Cancelled(std::string_view statement) {
  throw StatementCancelled("کار به خواست کاربر متوقف شد.", std::string(statement));
}

}  // namespace

ServerConnection::ServerConnection(std::string connectionString, ServerTimeouts timeouts)
    : connectionString_(std::move(connectionString)), timeouts_(timeouts) {
  Connect();
}

ServerConnection::~ServerConnection() = default;

void ServerConnection::Connect() {
  try {
    session_ = std::make_shared<Session>(connectionString_, timeouts_.login);
    OdbcStatement settings(session_->connection);
    settings.Run("SET NOCOUNT ON");
    settings.Run("SET TEXTSIZE 2147483647");
    settings.Run("SET LOCK_TIMEOUT " + std::to_string(timeouts_.lock == 0 ? -1 : timeouts_.lock * 1000));
  } catch (const OdbcError& error) {
    session_ = nullptr;
    throw ConnectionLost(std::string("ارتباط با سرور برقرار نشد.\n") + error.what(), "");
  }
}

void ServerConnection::Open(std::string_view statement, RowStore& into, IStatementProgress* progress) {
  Run(statement, &into, progress);
}

void ServerConnection::Execute(std::string_view statement, IStatementProgress* progress) {
  Run(statement, nullptr, progress);
}

void ServerConnection::Run(std::string_view statement, RowStore* into, IStatementProgress* progress) {
  if (lost_) throw ConnectionLost("ارتباط با سرور قطع شده است.", std::string(statement));
  if (session_ == nullptr) Connect();  // the last one was left behind in a cancelled statement
  try {
    const auto job = std::make_shared<Job>(session_, statement, into != nullptr);
    job->statement.SetTimeout(timeouts_.statement);
    WorkOutcome outcome = WorkOutcome::Ended;
    const auto leaveBehind = [&] {
      if (outcome == WorkOutcome::Abandoned) session_ = nullptr;
    };
    try {
      BlockingWork::Run(
          progress, job->count, [job] { job->Run(); }, [job] { job->statement.Cancel(); }, &outcome);
    } catch (...) {
      leaveBehind();
      throw;
    }
    leaveBehind();
    if (outcome != WorkOutcome::Ended) Cancelled(statement);
    if (into != nullptr) *into = std::move(job->rows);
  } catch (const OdbcError& error) {
    if (error.Cancelled()) Cancelled(statement);
    if (error.ConnectionGone() || (session_ != nullptr && session_->connection.Dead())) {
      lost_ = true;
      session_ = nullptr;
      throw ConnectionLost(std::string("ارتباط با سرور قطع شد.\n") + error.what(), std::string(statement));
    }
    throw DatabaseError(UserMessage(error), std::string(statement));
  }
}

}  // namespace goods
