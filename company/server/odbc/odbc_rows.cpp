#include "company/server/odbc/odbc_rows.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/core/text.h"

namespace goods {

namespace {

// Rows of one fetch, as far as the widest ones leave room for them.
constexpr std::size_t kBlockRows = 1024;
constexpr std::size_t kBlockBytes = 4 << 20;
// Of the first fetch, which comes back when so many have come: a screen of rows must not wait for a block.
constexpr std::size_t kFirstBlockRows = 64;
// A text column wider than this is read cell by cell.
constexpr std::size_t kWidestBound = 4000;
// Sign, 38 digits, point, end.
constexpr std::size_t kDecimalChars = 48;

enum class CellKind { Integer, Decimal, Double, Text };

struct ResultColumn {
  ColumnInfo info;
  CellKind kind = CellKind::Text;
  std::size_t width = 0;  // bytes of a bound cell
  bool bound = true;
};

CellKind KindOf(SQLSMALLINT type) {
  switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return CellKind::Integer;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return CellKind::Decimal;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return CellKind::Double;
    default:
      return CellKind::Text;
  }
}

ResultColumn Describe(SQLHSTMT statement, SQLUSMALLINT number) {
  constexpr SQLSMALLINT kRoom = 256;
  char16_t name[kRoom] = {};
  SQLSMALLINT length = 0;
  SQLSMALLINT type = 0;
  SQLULEN size = 0;
  SQLSMALLINT scale = 0;
  SQLSMALLINT nullable = 0;
  Check(SQLDescribeColW(statement, number, reinterpret_cast<SQLWCHAR*>(name), kRoom, &length, &type, &size,
                        &scale, &nullable),
        SQL_HANDLE_STMT, statement);
  ResultColumn column;
  column.info.name =
      FromUtf16({name, static_cast<std::size_t>(std::clamp<SQLSMALLINT>(length, 0, kRoom - 1))});
  if (column.info.name.empty()) column.info.name = "Column" + std::to_string(number);
  column.kind = KindOf(type);
  switch (column.kind) {
    case CellKind::Integer:
      column.info.type = ColumnType::Integer;
      column.width = sizeof(std::int64_t);
      break;
    case CellKind::Decimal:
      column.info.type = ColumnType::Decimal;
      column.width = kDecimalChars;
      break;
    case CellKind::Double:
      column.info.type = ColumnType::Decimal;
      column.width = sizeof(double);
      break;
    case CellKind::Text:
      column.info.type = ColumnType::Text;
      column.bound = size > 0 && size <= kWidestBound;
      // Dates and the like are shorter than this as texts.
      column.width = (std::max<std::size_t>(size, 40) + 1) * sizeof(char16_t);
      break;
  }
  return column;
}

// Lengths and counts are the driver's word, which is not taken for what was never read.
[[noreturn]] void BadLength(const ColumnInfo& column) {
  throw OdbcError("خانه ای از ستون " + column.name + " بلندتر از تعریف آن است", "22001", 0);
}

[[noreturn]] void BadNumber(const ColumnInfo& column) {
  throw OdbcError("خانه ای از ستون " + column.name + " عددی بیرون از اندازه دارد", "22003", 0);
}

// The billionths of a plain number of at most 18 digits; none for what needs the long way.
std::optional<std::int64_t> ShortUnits(std::string_view text) {
  const bool negative = text.starts_with('-');
  std::size_t at = negative ? 1 : 0;
  if (text.size() - at > 18) return std::nullopt;
  std::int64_t units = 0;
  int places = -1;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '.' && places < 0) {
      places = 0;
      continue;
    }
    if (!IsDigit(c)) return std::nullopt;
    if (places >= Decimal::kDecimals) return std::nullopt;
    units = units * 10 + (c - '0');
    if (places >= 0) ++places;
  }
  for (int left = Decimal::kDecimals - std::max(places, 0); left > 0; --left) {
    if (units > INT64_MAX / 10) return std::nullopt;
    units *= 10;
  }
  return negative ? -units : units;
}

void AppendNumber(std::string_view text, const ColumnInfo& info, Column& column) {
  if (const std::optional<std::int64_t> units = ShortUnits(text)) {
    column.AppendDecimal(Decimal::FromUnits(*units));
    return;
  }
  const std::optional<Decimal> value = Decimal::Parse(text);
  if (!value) BadNumber(info);
  column.AppendDecimal(*value);
}

void AppendDouble(double value, const ColumnInfo& info, Column& column) {
  char text[400];
  const int length = std::snprintf(text, sizeof text, "%.9f", value);
  AppendNumber({text, static_cast<std::size_t>(std::max(length, 0))}, info, column);
}

// UTF-16 as UTF-8 into a buffer that keeps its memory; what is not ASCII or of the basic plane goes the long
// way.
void AppendWide(std::u16string_view text, std::string& buffer, Column& column) {
  buffer.clear();
  for (const char16_t c : text) {
    if (c < 0x80) {
      buffer.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
      buffer.push_back(static_cast<char>(0xC0U | (c >> 6U)));
      buffer.push_back(static_cast<char>(0x80U | (c & 0x3FU)));
    } else if (c < 0xD800 || c > 0xDFFF) {
      buffer.push_back(static_cast<char>(0xE0U | (c >> 12U)));
      buffer.push_back(static_cast<char>(0x80U | ((c >> 6U) & 0x3FU)));
      buffer.push_back(static_cast<char>(0x80U | (c & 0x3FU)));
    } else {
      buffer = FromUtf16(text);
      break;
    }
  }
  column.AppendText(buffer);
}

SQLSMALLINT TypeInMemory(CellKind kind) {
  switch (kind) {
    case CellKind::Integer:
      return SQL_C_SBIGINT;
    case CellKind::Decimal:
      return SQL_C_CHAR;
    case CellKind::Double:
      return SQL_C_DOUBLE;
    case CellKind::Text:
      return SQL_C_WCHAR;
  }
  return SQL_C_WCHAR;
}

void AppendCell(const ResultColumn& from, const unsigned char* cell, SQLLEN length, std::string& buffer,
                Column& column) {
  if (length == SQL_NULL_DATA) {
    column.AppendNull();
    return;
  }
  const bool counted = from.kind == CellKind::Decimal || from.kind == CellKind::Text;
  if (counted && (length < 0 || static_cast<std::size_t>(length) >= from.width)) BadLength(from.info);
  switch (from.kind) {
    case CellKind::Integer: {
      std::int64_t value = 0;
      std::memcpy(&value, cell, sizeof value);
      column.AppendInteger(value);
      return;
    }
    case CellKind::Double: {
      double value = 0;
      std::memcpy(&value, cell, sizeof value);
      AppendDouble(value, from.info, column);
      return;
    }
    case CellKind::Decimal:
      AppendNumber({reinterpret_cast<const char*>(cell), static_cast<std::size_t>(length)}, from.info,
                   column);
      return;
    case CellKind::Text:
      AppendWide(
          {reinterpret_cast<const char16_t*>(cell), static_cast<std::size_t>(length) / sizeof(char16_t)},
          buffer, column);
      return;
  }
}

// Who is told of the rows as they come.
struct RowsRead {
  std::atomic<std::size_t>& rows;
  FirstRowsRelay* first;

  void Count(const RowStore& into) const { rows.store(into.Count(), std::memory_order_relaxed); }
  void Tell(const RowStore& into) const {
    if (first != nullptr) first->Offer(into);
    Count(into);
  }
};

// Every column bound, many rows a fetch.
void ReadBlocks(OdbcStatement& statement, const std::vector<ResultColumn>& columns, RowStore& into,
                const RowsRead& read) {
  const SQLHSTMT handle = statement.Handle();
  std::size_t rowBytes = 1;
  for (const ResultColumn& column : columns) rowBytes += column.width;
  const std::size_t block = std::clamp<std::size_t>(kBlockBytes / rowBytes, 1, kBlockRows);
  std::size_t asked = std::min(block, kFirstBlockRows);
  const auto askFor = [&](std::size_t count) {
    // ODBC takes numbers as pointers. NOLINTNEXTLINE(performance-no-int-to-ptr)
    SQLSetStmtAttrW(handle, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(count), 0);
  };
  struct Bound {
    std::unique_ptr<unsigned char[]> cells;
    std::unique_ptr<SQLLEN[]> lengths;
  };
  std::vector<Bound> bound(columns.size());
  SQLULEN fetched = 0;
  SQLSetStmtAttrW(handle, SQL_ATTR_ROW_BIND_TYPE, reinterpret_cast<SQLPOINTER>(SQL_BIND_BY_COLUMN), 0);
  askFor(asked);
  SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    bound[i].cells = std::make_unique<unsigned char[]>(block * columns[i].width);
    bound[i].lengths = std::make_unique<SQLLEN[]>(block);
    Check(SQLBindCol(handle, static_cast<SQLUSMALLINT>(i + 1), TypeInMemory(columns[i].kind),
                     bound[i].cells.get(), static_cast<SQLLEN>(columns[i].width), bound[i].lengths.get()),
          SQL_HANDLE_STMT, handle);
  }
  std::string buffer;
  for (;;) {
    const SQLRETURN result = SQLFetch(handle);
    if (result == SQL_NO_DATA) break;
    Check(result, SQL_HANDLE_STMT, handle);
    if (fetched > asked) throw OdbcError("درایور ODBC بیش از آن چه خواسته شد ردیف داد.", "HY000", 0);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      Column& column = into.ColumnAt(i);
      const unsigned char* cell = bound[i].cells.get();
      for (std::size_t row = 0; row < fetched; ++row, cell += columns[i].width) {
        AppendCell(columns[i], cell, bound[i].lengths[row], buffer, column);
      }
    }
    for (std::size_t row = 0; row < fetched; ++row) into.EndRow();
    read.Tell(into);
    if (std::exchange(asked, block) != block) askFor(block);
  }
  SQLFreeStmt(handle, SQL_UNBIND);
  SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
  askFor(1);
}

// A text of any length, piece by piece.
void AppendLongText(SQLHSTMT handle, SQLUSMALLINT number, const ColumnInfo& info, std::string& buffer,
                    Column& column) {
  constexpr std::size_t kPiece = 8192;
  std::u16string text;
  char16_t piece[kPiece];
  for (;;) {
    SQLLEN length = 0;
    const SQLRETURN result = SQLGetData(handle, number, SQL_C_WCHAR, piece, sizeof piece, &length);
    if (result == SQL_NO_DATA) break;
    Check(result, SQL_HANDLE_STMT, handle);
    if (length == SQL_NULL_DATA) {
      column.AppendNull();
      return;
    }
    const std::size_t whole = kPiece - 1;
    const bool more = result == SQL_SUCCESS_WITH_INFO &&
                      (length == SQL_NO_TOTAL || static_cast<std::size_t>(length) >= sizeof piece);
    const std::size_t units = more ? whole : static_cast<std::size_t>(length) / sizeof(char16_t);
    if (units > whole) BadLength(info);
    text.append(piece, units);
    if (!more) break;
  }
  AppendWide(text, buffer, column);
}

// Row by row and cell by cell in order, as every driver allows it.
void ReadCells(OdbcStatement& statement, const std::vector<ResultColumn>& columns, RowStore& into,
               const RowsRead& read) {
  const SQLHSTMT handle = statement.Handle();
  alignas(std::int64_t) unsigned char cell[kDecimalChars];
  std::string buffer;
  for (;;) {
    const SQLRETURN result = SQLFetch(handle);
    if (result == SQL_NO_DATA) break;
    Check(result, SQL_HANDLE_STMT, handle);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const auto number = static_cast<SQLUSMALLINT>(i + 1);
      if (columns[i].kind == CellKind::Text) {
        AppendLongText(handle, number, columns[i].info, buffer, into.ColumnAt(i));
        continue;
      }
      SQLLEN length = 0;
      Check(SQLGetData(handle, number, TypeInMemory(columns[i].kind), cell, sizeof cell, &length),
            SQL_HANDLE_STMT, handle);
      AppendCell(columns[i], cell, length, buffer, into.ColumnAt(i));
    }
    into.EndRow();
    if (into.Count() % kFirstBlockRows == 0) {
      read.Tell(into);
    } else {
      read.Count(into);
    }
  }
}

}  // namespace

void ReadOdbcRows(OdbcStatement& statement, RowStore& into, std::atomic<std::size_t>& rows,
                  FirstRowsRelay* first) {
  std::vector<ResultColumn> columns;
  std::vector<ColumnInfo> infos;
  bool allBound = true;
  const int count = statement.Columns();
  for (int i = 1; i <= count; ++i) {
    columns.push_back(Describe(statement.Handle(), static_cast<SQLUSMALLINT>(i)));
    infos.push_back(columns.back().info);
    allBound = allBound && columns.back().bound;
  }
  into.Define(std::move(infos));
  const RowsRead read{rows, first};
  if (allBound) {
    ReadBlocks(statement, columns, into, read);
  } else {
    ReadCells(statement, columns, into, read);
  }
  into.Finish();
}

}  // namespace goods
