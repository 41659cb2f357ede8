// Blocks of rows as a driver hands them over, which may lie about lengths and counts: rows, or an OdbcError.
// The calls of ODBC stand here instead of those of a library, and answer from the input.
#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <limits>
#include <map>
#include <string>

#include "company/interchange/text_file.h"
#include "company/server/odbc/odbc_handles.h"
#include "company/server/odbc/odbc_rows.h"
#include "fuzz/fuzz_input.h"

namespace {

using goods::fuzz::Holds;

constexpr std::size_t kMostRows = 5'000;
constexpr int kMostPieces = 20;

// Where the reader wants its cells.
struct BoundColumn {
  unsigned char* cells = nullptr;
  std::size_t width = 0;
  SQLLEN* lengths = nullptr;
};

struct Driver {
  std::string_view input;
  unsigned columns = 0;
  std::map<SQLUSMALLINT, BoundColumn> bound{};
  SQLULEN block = 1;
  SQLULEN* fetched = nullptr;
  std::size_t rows = 0;
  int pieces = 0;  // of long texts

  unsigned Byte() {
    if (input.empty()) return 0;
    const auto byte = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    return byte;
  }
  unsigned Number() {
    const unsigned high = Byte();
    return high << 8 | Byte();
  }
  // Into a cell, never beyond it; gives the length that the driver claims.
  SQLLEN Fill(void* cell, std::size_t room) {
    const unsigned kind = Byte();
    if (kind % 7 == 0) return SQL_NULL_DATA;
    const std::size_t length = std::min<std::size_t>(kind % 64, std::min(room, input.size()));
    std::memset(cell, 0, room);
    std::memcpy(cell, input.data(), length);
    input.remove_prefix(length);
    if (kind == 255) return SQL_NO_TOTAL;
    if (kind == 254) return -static_cast<SQLLEN>(Number());
    if (kind == 253) return static_cast<SQLLEN>(Number()) << 16;
    return static_cast<SQLLEN>(length);
  }
};

Driver& TheDriver() {
  static Driver driver;
  return driver;
}

int anything = 0;  // every handle is this one

}  // namespace

extern "C" {

SQLRETURN SQLAllocHandle(SQLSMALLINT, SQLHANDLE, SQLHANDLE* handle) {
  *handle = &anything;
  return SQL_SUCCESS;
}
SQLRETURN SQLFreeHandle(SQLSMALLINT, SQLHANDLE) { return SQL_SUCCESS; }
SQLRETURN SQLFreeStmt(SQLHSTMT, SQLUSMALLINT) { return SQL_SUCCESS; }
SQLRETURN SQLDisconnect(SQLHDBC) { return SQL_SUCCESS; }
SQLRETURN SQLCancel(SQLHSTMT) { return SQL_SUCCESS; }
SQLRETURN SQLMoreResults(SQLHSTMT) { return SQL_NO_DATA; }
SQLRETURN SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }
SQLRETURN SQLSetConnectAttrW(SQLHDBC, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }
SQLRETURN SQLGetConnectAttrW(SQLHDBC, SQLINTEGER, SQLPOINTER, SQLINTEGER, SQLINTEGER*) { return SQL_ERROR; }
SQLRETURN SQLDriverConnectW(SQLHDBC, SQLHWND, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*,
                            SQLUSMALLINT) {
  return SQL_SUCCESS;
}
SQLRETURN SQLExecDirectW(SQLHSTMT, SQLWCHAR*, SQLINTEGER) { return SQL_SUCCESS; }

SQLRETURN SQLGetDiagRecW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLWCHAR* state, SQLINTEGER* native,
                         SQLWCHAR* text, SQLSMALLINT room, SQLSMALLINT* length) {
  Driver& driver = TheDriver();
  if (driver.Byte() % 3 == 0) return SQL_NO_DATA;
  for (int i = 0; i < 5; ++i) state[i] = static_cast<SQLWCHAR>('0' + driver.Byte() % 40);
  *native = static_cast<SQLINTEGER>(driver.Number());
  const auto given = static_cast<SQLSMALLINT>(driver.Byte() % 40);
  for (SQLSMALLINT i = 0; i < given && i < room; ++i) text[i] = static_cast<SQLWCHAR>(driver.Number());
  // A driver tells the whole length of what it had to cut.
  *length = given == 39 ? std::numeric_limits<SQLSMALLINT>::max() : given;
  return SQL_SUCCESS;
}

SQLRETURN SQLNumResultCols(SQLHSTMT, SQLSMALLINT* columns) {
  *columns = static_cast<SQLSMALLINT>(TheDriver().columns);
  return SQL_SUCCESS;
}

SQLRETURN SQLDescribeColW(SQLHSTMT, SQLUSMALLINT, SQLWCHAR* name, SQLSMALLINT room, SQLSMALLINT* length,
                          SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* scale, SQLSMALLINT* nullable) {
  constexpr std::array<SQLSMALLINT, 10> kTypes{SQL_BIGINT,       SQL_INTEGER,  SQL_BIT,      SQL_DECIMAL,
                                               SQL_NUMERIC,      SQL_DOUBLE,   SQL_WVARCHAR, SQL_VARCHAR,
                                               SQL_WLONGVARCHAR, SQL_TYPE_DATE};
  Driver& driver = TheDriver();
  *type = kTypes[driver.Byte() % kTypes.size()];
  const unsigned width = driver.Byte();
  *size = width == 255 ? 0 : width == 254 ? std::numeric_limits<SQLULEN>::max() : width * 3;
  const auto given = static_cast<SQLSMALLINT>(driver.Byte() % 8);
  for (SQLSMALLINT i = 0; i < given && i < room; ++i) name[i] = static_cast<SQLWCHAR>(driver.Number());
  *length = given;
  *scale = static_cast<SQLSMALLINT>(driver.Byte() % 10);
  *nullable = SQL_NULLABLE;
  return SQL_SUCCESS;
}

SQLRETURN SQLSetStmtAttrW(SQLHSTMT, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
  Driver& driver = TheDriver();
  if (attribute == SQL_ATTR_ROW_ARRAY_SIZE) driver.block = reinterpret_cast<SQLULEN>(value);
  if (attribute == SQL_ATTR_ROWS_FETCHED_PTR) driver.fetched = static_cast<SQLULEN*>(value);
  return SQL_SUCCESS;
}

SQLRETURN SQLBindCol(SQLHSTMT, SQLUSMALLINT number, SQLSMALLINT, SQLPOINTER cells, SQLLEN width,
                     SQLLEN* lengths) {
  TheDriver().bound[number] = {static_cast<unsigned char*>(cells), static_cast<std::size_t>(width), lengths};
  return SQL_SUCCESS;
}

SQLRETURN SQLFetch(SQLHSTMT) {
  Driver& driver = TheDriver();
  if (driver.input.empty() || driver.rows >= kMostRows) return SQL_NO_DATA;
  if (driver.fetched == nullptr) {  // row by row: cells are asked for one by one
    ++driver.rows;
    return driver.Byte() == 250 ? SQL_ERROR : SQL_SUCCESS;
  }
  const unsigned kind = driver.Byte();
  if (kind == 250) return SQL_ERROR;
  const SQLULEN given = std::min<SQLULEN>(kind % 16, driver.block);
  for (SQLULEN row = 0; row < given; ++row) {
    for (auto& [number, bound] : driver.bound) {
      bound.lengths[row] = driver.Fill(bound.cells + row * bound.width, bound.width);
    }
  }
  driver.rows += given;
  // More than the reader has room for is a lie that must not be believed.
  *driver.fetched = kind == 251 ? driver.block + driver.Number() : given;
  return SQL_SUCCESS;
}

SQLRETURN SQLGetData(SQLHSTMT, SQLUSMALLINT, SQLSMALLINT, SQLPOINTER cell, SQLLEN room, SQLLEN* length) {
  Driver& driver = TheDriver();
  const unsigned kind = driver.Byte();
  if (kind == 250) return SQL_ERROR;
  if (kind == 251 || driver.input.empty()) {
    *length = 0;
    return SQL_NO_DATA;
  }
  *length = driver.Fill(cell, static_cast<std::size_t>(room));
  return kind > 200 && ++driver.pieces < kMostPieces ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

}  // extern "C"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Driver& driver = TheDriver();
  driver = Driver{goods::fuzz::AsText(data, size)};
  driver.columns = driver.Byte() % 8;
  const goods::OdbcConnection connection("DRIVER=none", 1);
  goods::OdbcStatement statement(connection);
  goods::RowStore rows;
  std::atomic<std::size_t> count{0};
  try {
    goods::ReadOdbcRows(statement, rows, count);
  } catch (const goods::OdbcError& error) {
    Holds(goods::IsUtf8(error.what()), "a message is a text");
    return 0;
  }
  Holds(rows.Columns().size() == driver.columns, "every column is there");
  Holds(count == rows.Count() && rows.Count() >= driver.rows, "every row that was handed over is there");
  for (std::size_t column = 0; column < rows.Columns().size(); ++column) {
    Holds(goods::IsUtf8(rows.Columns()[column].name), "a column's name is a text");
    for (std::size_t row = 0; row < rows.Count(); ++row) {
      Holds(goods::IsUtf8(rows.Cell(row, column).AsText()), "a cell is a text");
    }
  }
  return 0;
}
