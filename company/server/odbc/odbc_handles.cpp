#include "company/server/odbc/odbc_handles.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "host/core/text.h"

namespace goods {

namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the wide calls take UTF-16");

std::u16string Wide(std::string_view text) { return ToUtf16(text); }
SQLWCHAR* Chars(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

// One environment for the process, made on first use and never freed: statements may still run at its end.
SQLHENV Environment() {
  static const SQLHENV environment = [] {
    SQLHENV made = SQL_NULL_HENV;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &made))) {
      throw OdbcError("کتابخانه ODBC آماده نشد.", "HY001", 0);
    }
    SQLSetEnvAttr(made, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    return made;
  }();
  return environment;
}

// "[unixODBC][FreeTDS][SQL Server]text" without what stands in brackets in front of it.
std::string_view WithoutSource(std::string_view message) {
  while (message.starts_with('[')) {
    const std::size_t end = message.find(']');
    if (end == std::string_view::npos) break;
    message.remove_prefix(end + 1);
  }
  return Trim(message);
}

struct Diagnostic {
  std::string state;
  int native = 0;
  std::string text;
};

bool ReadDiagnostic(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number, Diagnostic& into) {
  constexpr SQLSMALLINT kRoom = 2048;
  std::u16string state(6, u'\0');
  std::u16string text(kRoom, u'\0');
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  const SQLRETURN result =
      SQLGetDiagRecW(kind, handle, number, Chars(state), &native, Chars(text), kRoom, &length);
  if (!SQL_SUCCEEDED(result)) return false;
  state.resize(5);
  text.resize(static_cast<std::size_t>(std::min<SQLSMALLINT>(length, kRoom - 1)));
  into = {FromUtf16(state), native, std::string(WithoutSource(FromUtf16(text)))};
  return true;
}

}  // namespace

OdbcError::~OdbcError() = default;

// 08: the connection; the numbers are FreeTDS's own for a server that is gone.
bool OdbcError::ConnectionGone() const {
  constexpr int kWriteFailed = 20006;
  constexpr int kReadFailed = 20004;
  constexpr int kEndOfFile = 20017;
  constexpr int kDeadConnection = 20047;
  return state_.starts_with("08") || native_ == kWriteFailed || native_ == kReadFailed ||
         native_ == kEndOfFile || native_ == kDeadConnection;
}

// Messages that only inform stand beside the failure with a state of their own.
OdbcError DiagnosticOf(SQLSMALLINT kind, SQLHANDLE handle) {
  Diagnostic first;
  std::string text;
  constexpr SQLSMALLINT kMost = 8;
  for (SQLSMALLINT number = 1; number <= kMost; ++number) {
    Diagnostic next;
    if (!ReadDiagnostic(kind, handle, number, next)) break;
    if (next.state.starts_with("01") || next.text.empty()) continue;
    if (first.state.empty()) first = next;
    if (text.find(next.text) == std::string::npos) text += (text.empty() ? "" : "\n") + next.text;
  }
  if (first.state.empty()) return OdbcError("درایور ODBC پیامی نداد.", "HY000", 0);
  return OdbcError(text, first.state, first.native);
}

void Check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
  if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
  if (result == SQL_INVALID_HANDLE) throw OdbcError("درایور ODBC پیامی نداد.", "HY000", 0);
  throw DiagnosticOf(kind, handle);
}

OdbcConnection::OdbcConnection(const std::string& connectionString, int loginTimeout) {
  Check(SQLAllocHandle(SQL_HANDLE_DBC, Environment(), &handle_), SQL_HANDLE_ENV, Environment());
  // ODBC takes numbers as pointers. NOLINTNEXTLINE(performance-no-int-to-ptr)
  auto* timeout = reinterpret_cast<SQLPOINTER>(std::intptr_t{loginTimeout});
  SQLSetConnectAttrW(handle_, SQL_ATTR_LOGIN_TIMEOUT, timeout, 0);
  std::u16string wide = Wide(connectionString);
  const SQLRETURN result =
      SQLDriverConnectW(handle_, nullptr, Chars(wide), static_cast<SQLSMALLINT>(wide.size()), nullptr, 0,
                        nullptr, SQL_DRIVER_NOPROMPT);
  if (SQL_SUCCEEDED(result)) return;
  const OdbcError error = DiagnosticOf(SQL_HANDLE_DBC, handle_);
  SQLFreeHandle(SQL_HANDLE_DBC, handle_);
  throw error;
}

OdbcConnection::~OdbcConnection() {
  if (handle_ == SQL_NULL_HDBC) return;
  SQLDisconnect(handle_);
  SQLFreeHandle(SQL_HANDLE_DBC, handle_);
}

bool OdbcConnection::Dead() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN result =
      SQLGetConnectAttrW(handle_, SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
  return SQL_SUCCEEDED(result) && dead == SQL_CD_TRUE;
}

OdbcStatement::OdbcStatement(const OdbcConnection& connection) {
  Check(SQLAllocHandle(SQL_HANDLE_STMT, connection.Handle(), &handle_), SQL_HANDLE_DBC, connection.Handle());
}

OdbcStatement::~OdbcStatement() { SQLFreeHandle(SQL_HANDLE_STMT, handle_); }

void OdbcStatement::Run(std::string_view text) {
  std::u16string wide = Wide(text);
  Check(SQLExecDirectW(handle_, Chars(wide), static_cast<SQLINTEGER>(wide.size())), SQL_HANDLE_STMT, handle_);
}

bool OdbcStatement::NextResult() {
  const SQLRETURN result = SQLMoreResults(handle_);
  Check(result, SQL_HANDLE_STMT, handle_);
  return result != SQL_NO_DATA;
}

int OdbcStatement::Columns() const {
  SQLSMALLINT columns = 0;
  Check(SQLNumResultCols(handle_, &columns), SQL_HANDLE_STMT, handle_);
  return columns;
}

}  // namespace goods
