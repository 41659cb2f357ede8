#include "company/embedded/sqlite.h"

#include <cstddef>
#include <iterator>
#include <utility>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/decimal_functions.h"
#include "company/embedded/detail_functions.h"
#include "company/embedded/detail_mismatch.h"
#include "company/embedded/negative_stock.h"
#include "company/embedded/stock_figures.h"
#include "company/embedded/text_functions.h"
#include "company/files/file_path.h"

namespace goods {

namespace {

[[noreturn]] void Throw(sqlite3* db, int code) {
  throw SqliteError(code & 0xff, db != nullptr ? sqlite3_errmsg(db) : sqlite3_errstr(code));
}

void Check(sqlite3_stmt* statement, int code) {
  if (code != SQLITE_OK) Throw(sqlite3_db_handle(statement), code);
}

// SQLite may be built to read "file:...?..." as more than a name.
std::string FileName(const std::string& path) {
  if (path == ":memory:" || PathOf(path).has_root_path()) return path;
  return "./" + path;
}

// Of the whole process. Sorting spills to disk, so an honest report stays far below it.
void LimitMemory() {
  constexpr sqlite3_int64 kMost = sqlite3_int64{1} << 30;
  static const sqlite3_int64 before = sqlite3_hard_heap_limit64(kMost);
  static_cast<void>(before);
}

void Configure(sqlite3* db) {
  struct Switch {
    int option;
    int on;
  };
  constexpr Switch kSwitches[] = {{SQLITE_DBCONFIG_DEFENSIVE, 1},
                                  {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                  {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                  {SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0},
                                  {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0}};
  for (const Switch& option : kSwitches) sqlite3_db_config(db, option.option, option.on, nullptr);
  struct Limit {
    int what;
    int most;
  };
  constexpr Limit kLimits[] = {{SQLITE_LIMIT_LENGTH, Database::kLargestCell},
                               {SQLITE_LIMIT_SQL_LENGTH, Database::kLargestCell},
                               {SQLITE_LIMIT_EXPR_DEPTH, 500},
                               {SQLITE_LIMIT_COLUMN, 1000},
                               {SQLITE_LIMIT_COMPOUND_SELECT, 100},
                               {SQLITE_LIMIT_TRIGGER_DEPTH, 4},
                               {SQLITE_LIMIT_WORKER_THREADS, 0}};
  for (const Limit& limit : kLimits) sqlite3_limit(db, limit.what, limit.most);
}

// Reads the schema while little is allowed to be read: a file may bring any number of objects of any size.
class SchemaWatch {
 public:
  explicit SchemaWatch(sqlite3* db) : db_(db) {
    for (std::size_t i = 0; i < std::size(kSmall); ++i)
      before_[i] = sqlite3_limit(db_, kSmall[i].what, kSmall[i].most);
    sqlite3_progress_handler(db_, kBetween, Called, this);
  }
  SchemaWatch(const SchemaWatch&) = delete;
  SchemaWatch& operator=(const SchemaWatch&) = delete;
  ~SchemaWatch() {
    sqlite3_progress_handler(db_, 0, nullptr, nullptr);
    for (std::size_t i = 0; i < std::size(kSmall); ++i) sqlite3_limit(db_, kSmall[i].what, before_[i]);
  }

 private:
  struct Limit {
    int what;
    int most;
  };
  static constexpr int kBetween = 100;                                           // instructions
  static constexpr sqlite3_int64 kMostMemory = sqlite3_int64{32} * 1024 * 1024;  // bytes
  static constexpr Limit kSmall[] = {{SQLITE_LIMIT_LENGTH, 1 << 20}, {SQLITE_LIMIT_SQL_LENGTH, 16 * 1024}};

  static int Called(void* self) {
    auto& watch = *static_cast<SchemaWatch*>(self);
    watch.instructions_ += kBetween;
    return watch.instructions_ > Database::kSchemaInstructions ||
           sqlite3_memory_used() - watch.memory_ > kMostMemory;
  }

  sqlite3* db_;
  int before_[std::size(kSmall)] = {};
  int instructions_ = 0;
  sqlite3_int64 memory_ = sqlite3_memory_used();
};

void ReadSchema(sqlite3* db) {
  const SchemaWatch watch(db);
  Statement(db, "SELECT 1 FROM sqlite_schema LIMIT 1").Step();
}

// Not by the names of views, which reach an authorizer in the same way as those of common table expressions:
// what a company's schema may hold is looked at by CheckCompanySchema.
int AllowReading(void*, int action, const char* first, const char* second, const char*, const char*) {
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    case SQLITE_FUNCTION:
      return second != nullptr && sqlite3_stricmp(second, "load_extension") == 0 ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_PRAGMA:
      return first != nullptr && sqlite3_stricmp(first, "table_xinfo") == 0 ? SQLITE_OK : SQLITE_DENY;
    default:
      return SQLITE_DENY;
  }
}

int AllowWriting(void* data, int action, const char* first, const char* second, const char* database,
                 const char* trigger) {
  switch (action) {
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
      return trigger == nullptr ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
    case SQLITE_CREATE_TEMP_TABLE:
    case SQLITE_CREATE_TEMP_INDEX:
    case SQLITE_DROP_TEMP_TABLE:
    case SQLITE_DROP_TEMP_INDEX:
      return SQLITE_OK;
    default:
      return AllowReading(data, action, first, second, database, trigger);
  }
}

// Other files are out of reach, and so is code that a file brings along.
int AllowBuilding(void*, int action, const char*, const char* second, const char*, const char*) {
  switch (action) {
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
    case SQLITE_CREATE_VTABLE:
      return SQLITE_DENY;
    case SQLITE_FUNCTION:
      return second != nullptr && sqlite3_stricmp(second, "load_extension") == 0 ? SQLITE_DENY : SQLITE_OK;
    default:
      return SQLITE_OK;
  }
}

}  // namespace

SqliteError::~SqliteError() = default;

// SQLite's own words are English. Those of this folder's functions are Persian and tell more than a number.
std::string PersianMessage(const SqliteError& error) {
  switch (error.Code()) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "فایل شرکت در اختیار برنامه دیگری است و قفل شده است.";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_FORMAT:
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
    case SQLITE_INTERRUPT:
      return "خواندن این فایل کاری بیش از اندازه می خواهد و رها شد.";
    case SQLITE_TOOBIG:
      return "متن یا خانه ای بزرگتر از اندازه پذیرفتنی است.";
    case SQLITE_CONSTRAINT:
      return "داده ها با جدول های شرکت نمی خوانند و نوشته نشدند.";
    default:
      break;
  }
  const std::string_view own = error.what();
  const bool persian = own.find_first_of("\xd8\xd9\xda\xdb") != own.npos;
  return "پایگاه داده دستور را نپذیرفت" +
         (persian ? ": " + std::string(own) : " (خطای شماره " + std::to_string(error.Code()) + ").");
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

void Statement::BindBytes(int index, std::string_view bytes) {
  Check(statement_, sqlite3_bind_blob64(statement_, index, bytes.data(), bytes.size(), SQLITE_TRANSIENT));
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
  LimitMemory();
  const int code = sqlite3_open_v2(FileName(path).c_str(), &db_, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  try {
    if (code != SQLITE_OK) Throw(db_, code);
    Configure(db_);
    sqlite3_busy_timeout(db_, 1000);
    ReadSchema(db_);
    RegisterDecimalFunctions(db_);
    RegisterTextFunctions(db_);
    RegisterDetailFunctions(db_);
    RegisterNegativeStock(db_);
    RegisterDetailMismatch(db_);
    RegisterStockFigures(db_);
    SetAccess(Access::Build);
  } catch (...) {
    sqlite3_close_v2(std::exchange(db_, nullptr));
    throw;
  }
}

Database::Database(Database&& other) noexcept : db_(std::exchange(other.db_, nullptr)) {}

Database& Database::operator=(Database&& other) noexcept {
  std::swap(db_, other.db_);
  return *this;
}

Database::~Database() { sqlite3_close_v2(db_); }

void Database::SetAccess(Access access) {
  // SQLite makes this table known where it is first used, which is a change of the schema to an authorizer.
  static_cast<void>(Prepare("SELECT 1 FROM pragma_table_xinfo(?1)"));
  sqlite3_set_authorizer(db_,
                         access == Access::Read    ? AllowReading
                         : access == Access::Write ? AllowWriting
                                                   : AllowBuilding,
                         nullptr);
}

void Database::RunTriggers() { sqlite3_db_config(db_, SQLITE_DBCONFIG_ENABLE_TRIGGER, 1, nullptr); }

bool Database::WasMoved() const {
  int moved = 0;
  return sqlite3_file_control(db_, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0;
}

std::uint32_t Database::DataVersion() const {
  unsigned int version = 0;
  sqlite3_file_control(db_, "main", SQLITE_FCNTL_DATA_VERSION, &version);
  return version;
}

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
