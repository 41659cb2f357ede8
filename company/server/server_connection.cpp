#include "company/server/server_connection.h"

#include <chrono>
#include <utility>

#include "company/server/odbc/odbc_handles.h"
#include "company/server/odbc/odbc_rows.h"
#include "company/server/server_address.h"
#include "company/server/server_errors.h"
#include "host/core/text.h"
#include "host/data/blocking_work.h"
#include "host/data/first_rows.h"
#include "host/data/row_store.h"

namespace goods {

struct ServerConnection::Session {
  explicit Session(const std::string& connectionString, int loginTimeout)
      : connection(connectionString, loginTimeout) {}
  OdbcConnection connection;
  bool readsSnapshots = false;
};

namespace {

// Everything that is read while it lives is of one committed state, also by a procedure of several
// statements.
class OneState {
 public:
  explicit OneState(ServerConnection::Session& session) : session_(session) {
    if (session_.readsSnapshots) Run("SET TRANSACTION ISOLATION LEVEL SNAPSHOT BEGIN TRANSACTION");
  }
  OneState(const OneState&) = delete;
  OneState& operator=(const OneState&) = delete;
  ~OneState() {
    if (!session_.readsSnapshots) return;
    try {
      // What a procedure wrote meanwhile stays, but for one that failed.
      Run(failed_ ? "IF @@TRANCOUNT > 0 ROLLBACK SET TRANSACTION ISOLATION LEVEL READ COMMITTED"
                  : "IF @@TRANCOUNT > 0 COMMIT SET TRANSACTION ISOLATION LEVEL READ COMMITTED");
    } catch (const OdbcError&) {  // the connection is gone, and the transaction with it
    }
  }
  void Done() { failed_ = false; }

 private:
  void Run(const char* text) { OdbcStatement(session_.connection).Run(text); }
  ServerConnection::Session& session_;
  bool failed_ = true;
};

// One statement, owned by the thread that runs it as much as by the caller.
struct Job {
  Job(std::shared_ptr<ServerConnection::Session> on, std::string_view asked, bool keep)
      : session(std::move(on)), statement(session->connection), text(asked), keepRows(keep) {}

  void Run() {
    if (!keepRows) return ReadAll();
    OneState state(*session);
    try {
      ReadAll();
    } catch (...) {
      statement.Close();  // the end of the transaction is a statement of its own
      throw;
    }
    state.Done();
  }

  void ReadAll() {
    statement.Run(text);
    bool read = false;
    do {
      if (statement.Columns() == 0) continue;
      RowStore dropped;
      const bool kept = keepRows && !read;
      ReadOdbcRows(statement, kept ? rows : dropped, *count, kept ? &firstRows : nullptr);
      read = true;
    } while (statement.NextResult());
    if (!read) rows.Define({});
  }

  std::shared_ptr<ServerConnection::Session> session;
  OdbcStatement statement;
  std::string text;
  bool keepRows;
  RowStore rows;
  FirstRowsRelay firstRows;
  BlockingWork::Rows count = std::make_shared<std::atomic<std::size_t>>(0);
};

constexpr const char* kTooLong = "پاسخ سرور در زمان تعیین شده نرسید.";
constexpr const char* kNoEncryption = "رمزگذاری خواسته شده است؛ شاید این سرور آن را ندارد.";
// Of a database that deploy made: the procedures of another may hold what a snapshot does not allow.
constexpr const char* kSnapshotState =
    "SELECT CAST(snapshot_isolation_state AS int) FROM sys.databases WHERE database_id = DB_ID() AND "
    "OBJECT_ID(N'dbo.SessionPrices') IS NOT NULL";
constexpr const char* kForgetPrices =
    "IF OBJECT_ID(N'dbo.SessionPrices') IS NOT NULL DELETE FROM dbo.SessionPrices WHERE Session = @@SPID";

bool IsPreparing(std::string_view statement) {
  constexpr std::string_view kPreparing = "exec rialistock_sp";
  return SameText(Trim(statement).substr(0, kPreparing.size()), kPreparing);
}

// Stops a statement when its time is over; drivers' own timeouts do not hold against a busy server.
class Deadline : public IStatementProgress {
 public:
  Deadline(IStatementProgress* inner, FirstRowsRelay& firstRows, int seconds)
      : inner_(inner),
        firstRows_(firstRows),
        limited_(seconds > 0),
        end_(Clock::now() + std::chrono::seconds(seconds)) {}
  bool Progress(std::size_t rows) override {
    expired_ = limited_ && Clock::now() >= end_;
    if (expired_ || inner_ == nullptr) return !expired_;
    firstRows_.Pass(*inner_, rows);
    return inner_->Progress(rows);
  }
  bool Expired() const { return expired_; }

 private:
  using Clock = std::chrono::steady_clock;
  IStatementProgress* inner_;
  FirstRowsRelay& firstRows_;
  bool limited_;
  Clock::time_point end_;
  bool expired_ = false;
};

// Whether the database keeps the states that OneState asks for; a user may be without the right to know.
bool ReadsSnapshots(ServerConnection::Session& session) {
  try {
    OdbcStatement asked(session.connection);
    asked.Run(kSnapshotState);
    RowStore rows;
    std::atomic<std::size_t> count{0};
    ReadOdbcRows(asked, rows, count);
    return rows.Count() == 1 && rows.Cell(0, 0).AsInteger() == 1;
  } catch (const OdbcError& error) {
    if (error.ConnectionGone()) throw;
    return false;
  }
}

bool AsksForEncryption(const std::string& connectionString) {
  const ServerAddress address(connectionString);
  for (const char* keyword : {"Encryption", "Encrypt"}) {
    const auto value = address.Find(keyword);
    if (value && !SameText(*value, "no") && !SameText(*value, "off") && !SameText(*value, "request"))
      return true;
  }
  return false;
}

[[noreturn]] void Cancelled(std::string_view statement) {
  throw StatementCancelled("کار به خواست کاربر متوقف شد.", std::string(statement));
}

}  // namespace

void PreparedPrices::Keep(std::string_view statement) {
  const std::lock_guard lock(mutex_);
  statement_ = statement;
}

std::string PreparedPrices::Statement() const {
  const std::lock_guard lock(mutex_);
  return statement_;
}

ServerConnection::ServerConnection(std::string connectionString, ServerTimeouts timeouts,
                                   std::shared_ptr<PreparedPrices> prices)
    : connectionString_(std::move(connectionString)),
      timeouts_(timeouts),
      prices_(prices != nullptr ? std::move(prices) : std::make_shared<PreparedPrices>()) {
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
    session_->readsSnapshots = ReadsSnapshots(*session_);
    PreparePrices();
  } catch (const OdbcError& error) {
    session_ = nullptr;
    std::string told = "ارتباط با سرور برقرار نشد.\n" + UserMessage(error);
    if (AsksForEncryption(connectionString_)) told += std::string("\n") + kNoEncryption;
    throw ConnectionLost(told, "");
  }
}

// A session begins without prices; it may have the number of one that is gone and left some.
void ServerConnection::PreparePrices() {
  try {
    OdbcStatement prices(session_->connection);
    const std::string prepared = prices_->Statement();
    prices.Run(prepared.empty() ? kForgetPrices : prepared);
  } catch (const OdbcError& error) {
    if (error.ConnectionGone())
      throw;  // a database of another make, or a user without the right: none to forget
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
    Deadline deadline(progress, job->firstRows, timeouts_.statement);
    WorkOutcome outcome = WorkOutcome::Ended;
    const auto leaveBehind = [&] {
      if (outcome == WorkOutcome::Abandoned) session_ = nullptr;
    };
    try {
      BlockingWork::Run(
          &deadline, job->count, [job] { job->Run(); }, [job] { job->statement.Cancel(); }, &outcome);
    } catch (...) {
      leaveBehind();
      throw;
    }
    leaveBehind();
    if (deadline.Expired()) throw DatabaseError(kTooLong, std::string(statement));
    if (outcome != WorkOutcome::Ended) Cancelled(statement);
    if (IsPreparing(statement)) prices_->Keep(statement);
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
