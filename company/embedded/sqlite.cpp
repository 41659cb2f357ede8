#include "company/embedded/sqlite.h"

#include <utility>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/decimal_functions.h"
#include "company/embedded/detail_functions.h"
#include "company/embedded/detail_mismatch.h"
#include "company/embedded/negative_stock.h"
#include "company/embedded/stock_figures.h"
#include "company/embedded/text_functions.h"

namespace goods {

namespace {

[[noreturn]] void Throw(sqlite3* db, int code) {
  throw SqliteError(code & 0xff, db != nullptr ? sqlite3_errmsg(db) : sqlite3_errstr(code));
}

void Check(sqlite3_stmt* statement, int code) {
  if (code != SQLITE_OK) Throw(sqlite3_db_handle(statement), code);
}

}  // namespace

SqliteError::~SqliteError() = default;

std::string PersianMessage(const SqliteError& error) {
  switch (error.Code()) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "فایل شرکت در اختیار برنامه دیگری است و قفل شده است.";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return "فایل شرکت آسیب دیده است و خوانده نمی شود.";
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return "فایل شرکت فقط خواندنی است و چیزی در آن نوشته نمی شود.";
    case SQLITE_FULL:
      return "جای خالی دیسک برای این کار کافی نیست.";
    case SQLITE_IOERR:
      return "خواندن یا نوشتن فایل شرکت ممکن نشد.";
    case SQLITE_CANTOPEN:
      return "فایل شرکت باز نشد.";
    case SQLITE_NOMEM:
      return "حافظه برای این کار کافی نیست.";
    default:
      return std::string("پایگاه داده دستور را نپذیرفت: ") + error.what();
  }
}

Statement::Statement(sqlite3* db, std::string_view sql) {
  const int code = sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()), 0, &statement_, nullptr);
  if (code != SQLITE_OK) Throw(db, code);
}

Statement::Statement(sqlite3* db, const char* begin, const char* end, const char** tail) {
  const int code = sqlite3_prepare_v2(db, begin, static_cast<int>(end - begin), &statement_, tail);
  if (code != SQLITE_OK) Throw(db, code);
}

Statement::Statement(Statement&& other) noexcept : statement_(std::exchange(other.statement_, nullptr)) {}

Statement& Statement::operator=(Statement&& other) noexcept {
  std::swap(statement_, other.statement_);
  return *this;
}

Statement::~Statement() { sqlite3_finalize(statement_); }

void Statement::Bind(int index, std::int64_t value) {
  Check(statement_, sqlite3_bind_int64(statement_, index, value));
}

void Statement::Bind(int index, std::string_view value) {
  Check(statement_, sqlite3_bind_text(statement_, index, value.empty() ? "" : value.data(),
                                      static_cast<int>(value.size()), SQLITE_TRANSIENT));
}

void Statement::Bind(int index, Decimal value) {
  if (FitsCell64(value.Units())) {
    Bind(index, static_cast<std::int64_t>(value.Units()));
  } else {
    const WideCell cell = ToWideCell(value.Units());
    Check(statement_,
          sqlite3_bind_blob(statement_, index, cell.data(), static_cast<int>(cell.size()), SQLITE_TRANSIENT));
  }
}

void Statement::BindNull(int index) { Check(statement_, sqlite3_bind_null(statement_, index)); }

bool Statement::Step() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  Throw(sqlite3_db_handle(statement_), code);
}

void Statement::Reset() { sqlite3_reset(statement_); }

void Statement::Run() {
  while (Step()) {
  }
  Reset();
}

std::string_view Statement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

Decimal Statement::Number(int column) const { return Decimal::FromUnits(ColumnUnits(statement_, column)); }

Database::Database(const std::string& path, int flags) {
  const int code = sqlite3_open_v2(path.c_str(), &db_, flags, nullptr);
  if (code != SQLITE_OK) {
    const std::string message = db_ != nullptr ? sqlite3_errmsg(db_) : sqlite3_errstr(code);
    sqlite3_close_v2(std::exchange(db_, nullptr));
    throw SqliteError(code & 0xff, message);
  }
  sqlite3_db_config(db_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_busy_timeout(db_, 1000);
  RegisterDecimalFunctions(db_);
  RegisterTextFunctions(db_);
  RegisterDetailFunctions(db_);
  RegisterNegativeStock(db_);
  RegisterDetailMismatch(db_);
  RegisterStockFigures(db_);
}

Database::Database(Database&& other) noexcept : db_(std::exchange(other.db_, nullptr)) {}

Database& Database::operator=(Database&& other) noexcept {
  std::swap(db_, other.db_);
  return *this;
}

Database::~Database() { sqlite3_close_v2(db_); }

void Database::Run(std::string_view sql) {
  const char* at = sql.data();
  const char* end = at + sql.size();
  while (at < end) {
    Statement statement(db_, at, end, &at);
    if (statement.Handle() != nullptr) statement.Run();
  }
}

std::int64_t Database::AskInteger(std::string_view sql) {
  Statement statement = Prepare(sql);
  return statement.Step() ? statement.Integer(0) : 0;
}

std::string Database::AskText(std::string_view sql) {
  Statement statement = Prepare(sql);
  return statement.Step() ? std::string(statement.Text(0)) : std::string();
}

Transaction::Transaction(Database& db, const char* begin) : db_(db) { db_.Run(begin); }

Transaction::~Transaction() {
  if (open_) sqlite3_exec(db_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
  db_.Run("COMMIT");
  open_ = false;
}

}  // namespace goods
