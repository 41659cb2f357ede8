// ODBC handles that free themselves, and the driver's diagnostics as exceptions.
//
// A thin layer of our own over unixODBC: the libraries that wrap ODBC rewrite statements for parameters, or
// fetch row by row, while a report's statement must arrive unchanged and its rows in blocks.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#if defined(_WIN32)
#include <windows.h>  // whose types the headers of ODBC use
#endif
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

namespace goods {

// What the driver said. The message is the server's own, without the names of the driver in front of it.
class OdbcError : public std::runtime_error {
 public:
  OdbcError(const std::string& message, std::string state, int native)
      : std::runtime_error(message), state_(std::move(state)), native_(native) {}
  ~OdbcError() override;
  const std::string& State() const { return state_; }
  // The server's number of the error, 0 for one of the driver's.
  int Native() const { return native_; }
  // The connection is no more.
  bool ConnectionGone() const;
  bool Cancelled() const { return state_ == "HY008"; }
  bool TimedOut() const { return state_ == "HYT00" || state_ == "HYT01"; }

 private:
  std::string state_;
  int native_;
};

// The first diagnostic of a handle that tells of a failure, messages of the same failure joined line by line.
OdbcError DiagnosticOf(SQLSMALLINT kind, SQLHANDLE handle);

// Throws the handle's diagnostic unless the call did well. SQL_NO_DATA does well.
void Check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle);

// One connection to a server. Not copied; freed with its statements gone.
class OdbcConnection {
 public:
  // loginTimeout: seconds. Throws OdbcError.
  OdbcConnection(const std::string& connectionString, int loginTimeout);
  OdbcConnection(OdbcConnection&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;
  ~OdbcConnection();
  SQLHDBC Handle() const { return handle_; }
  bool Dead() const;

 private:
  SQLHDBC handle_ = SQL_NULL_HDBC;
};

class OdbcStatement {
 public:
  explicit OdbcStatement(const OdbcConnection& connection);
  OdbcStatement(const OdbcStatement&) = delete;
  OdbcStatement& operator=(const OdbcStatement&) = delete;
  ~OdbcStatement();
  SQLHSTMT Handle() const { return handle_; }

  // Sends the text as it is.
  void Run(std::string_view text);
  // Goes on to the next result of the statement; false after the last one. Failures of a batch's later parts
  // come here.
  bool NextResult();
  int Columns() const;
  // Leaves what has not been read of its results.
  void Close() { SQLFreeStmt(handle_, SQL_CLOSE); }
  // Stops the running statement; may be called while another thread waits in this one.
  void Cancel() { SQLCancel(handle_); }

 private:
  SQLHSTMT handle_ = SQL_NULL_HSTMT;
};

}  // namespace goods
