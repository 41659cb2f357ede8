// Reading a stock card of 1,000,000 rows from a server: through the connection into a query, beside a bare
// ODBC loop with the same block size that copies the same cells into plain vectors. Needs GOODS_SERVER;
// without it nothing is measured.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <benchmark/benchmark.h>

#include "bare_loop.h"
#include "company/company.h"
#include "company/demo/demo_company.h"
#include "company/server/deploy.h"
#include "company/server/odbc/odbc_handles.h"
#include "company/server/server_connection.h"
#include "company/server/server_session.h"
#include "figures.h"
#include "host/core/text.h"
#include "host/data/decimal.h"
#include "host/data/query.h"

namespace goods {
namespace {

constexpr std::int64_t kRows = 1'000'000;
constexpr char kStatement[] = "Exec Kardex_Proc 1";
constexpr char kDatabase[] = "goods_bench";
// Of server/odbc/odbc_rows.cpp.
constexpr std::size_t kBlock = 1024;

bool HasServer() { return std::getenv("GOODS_SERVER") != nullptr; }

// A company with one good that has every movement; kept from run to run.
const std::string& ServerConnectionString() {
  static const std::string text = [] {
    ServerAddress server(std::getenv("GOODS_SERVER"));
    DeployCompany({server, kDatabase, {}, {}, {}});
    server.Set("DATABASE", kDatabase);
    ServerSession session(server.ConnectionString());
    if (session.AskInteger("SELECT COUNT(*) FROM dbo.Kardex") != kRows) {
      session.Run("DELETE FROM dbo.Kardex");
      session.Run(
          "WITH d AS (SELECT 0 AS n UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 UNION ALL "
          "SELECT 4 UNION "
          "ALL SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL SELECT 8 UNION ALL SELECT 9), m AS "
          "(SELECT a.n + "
          "10 * b.n + 100 * c.n + 1000 * d.n + 10000 * e.n + 100000 * f.n AS i FROM d a, d b, d c, d d, d e, "
          "d f) INSERT "
          "INTO dbo.Kardex(Kala, Date, Radif, Anbar, Percode, Tedad, Meghdar2, Gheymat, Fi, Miangin, Type, "
          "OperationCode, "
          "OperationRow, Comment, CommentSearch) SELECT 1, N'1402/0' + CONVERT(nvarchar(1), 1 + i / 125000) "
          "+ N'/' + "
          "CONVERT(nvarchar(2), 10 + i / 7000 % 20), i, 1 + i % 6, 0, CASE WHEN i % 3 = 0 THEN -1.25 ELSE "
          "2.5 END, 0, "
          "125000.5 + i % 900, 130000 + i % 700, 125001.333333333, CASE WHEN i % 3 = 0 THEN 1 ELSE 2 END, i "
          "/ 4, 1 + i % "
          "4, N'خرید شماره ' + CONVERT(nvarchar(10), i / 1000), N'خرید شماره ' + CONVERT(nvarchar(10), i / "
          "1000) FROM m");
    }
    return server.ConnectionString();
  }();
  return text;
}

// What a caller without any of this library would write.
std::size_t ReadBare(const OdbcConnection& connection, std::string_view text) {
  OdbcStatement statement(connection);
  statement.Run(text);
  while (statement.Columns() == 0) statement.NextResult();
  struct Bound {
    SQLSMALLINT type = SQL_C_WCHAR;
    std::size_t width = 0;
    std::vector<unsigned char> cells;
    std::vector<SQLLEN> lengths;
    std::vector<std::int64_t> integers;
    std::vector<Int128> decimals;
    std::vector<std::string> texts;
  };
  const SQLHSTMT handle = statement.Handle();
  std::vector<Bound> columns(static_cast<std::size_t>(statement.Columns()));
  SQLULEN fetched = 0;
  SQLSetStmtAttrW(handle, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kBlock), 0);
  SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    char16_t name[256];
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT scale = 0;
    SQLSMALLINT nullable = 0;
    const auto number = static_cast<SQLUSMALLINT>(i + 1);
    SQLDescribeColW(handle, number, reinterpret_cast<SQLWCHAR*>(name), 256, &length, &type, &size, &scale,
                    &nullable);
    Bound& column = columns[i];
    const bool decimal = type == SQL_DECIMAL || type == SQL_NUMERIC;
    const bool integer = type == SQL_BIGINT || type == SQL_INTEGER;
    column.type = integer ? SQL_C_SBIGINT : decimal ? SQL_C_CHAR : SQL_C_WCHAR;
    column.width = integer ? 8 : decimal ? 48 : (size + 1) * 2;
    column.cells.resize(column.width * kBlock);
    column.lengths.resize(kBlock);
    SQLBindCol(handle, number, column.type, column.cells.data(), static_cast<SQLLEN>(column.width),
               column.lengths.data());
  }
  std::size_t rows = 0;
  while (SQL_SUCCEEDED(SQLFetch(handle))) {
    for (Bound& column : columns) {
      for (std::size_t row = 0; row < fetched; ++row) {
        const unsigned char* cell = column.cells.data() + row * column.width;
        const SQLLEN length = column.lengths[row];
        const auto bytes = static_cast<std::size_t>(std::max<SQLLEN>(length, 0));
        if (column.type == SQL_C_SBIGINT) {
          column.integers.push_back(length < 0 ? 0 : *reinterpret_cast<const std::int64_t*>(cell));
        } else if (column.type == SQL_C_CHAR) {
          const auto value = Decimal::Parse({reinterpret_cast<const char*>(cell), bytes});
          column.decimals.push_back(value.value_or(Decimal()).Units());
        } else {
          column.texts.push_back(FromUtf16({reinterpret_cast<const char16_t*>(cell), bytes / 2}));
        }
      }
    }
    rows += fetched;
  }
  benchmark::DoNotOptimize(columns);
  return rows;
}

void BareLoop(benchmark::State& state) {
  if (!HasServer()) return state.SkipWithError("GOODS_SERVER is not set");
  const OdbcConnection connection(ServerConnectionString(), 15);
  for (auto _ : state) {
    const Watch watch("bare");
    if (ReadBare(connection, kStatement) != static_cast<std::size_t>(kRows))
      state.SkipWithError("rows are missing");
  }
}

void QueryOpen(benchmark::State& state) {
  if (!HasServer()) return state.SkipWithError("GOODS_SERVER is not set");
  ServerConnection connection(ServerConnectionString());
  for (auto _ : state) {
    TADOQuery query(nullptr, "Kardex_QRY", connection);
    query.SetSQL(kStatement);
    {
      const Watch watch("query");
      query.Open();
    }
    if (query.RecordCount() != static_cast<std::size_t>(kRows)) state.SkipWithError("rows are missing");
    state.counters["bytes a row"] = static_cast<double>(query.MemoryBytes()) / static_cast<double>(kRows);
  }
}

// A report over the smaller company, by the clock, since a server works in a process of its own.
struct AskedReport {
  const char* name;
  const char* statement;
};
constexpr AskedReport kReports[] = {
    {"goods list", "exec GoodInf_sp "},
    {"goods list of a period",
     "exec GoodInf_sp @StoreCode=NULL,@invertList=0, @Inlist=1, @SelectedCode=NULL, @EffectiveDate1 = "
     "'1401/01/01', @EffectiveDate2 = '1401/12/29'"},
    {"stock per store",
     "exec GoodsAsset_Store_SP @CalcBefore =0,@Reverse =0,@StoreCodes "
     "='-1,0,1,1,2,2,3,3,',@ToDate='1403/12/30',"
     "@FromDate='1402/01/01'"},
    {"overall turnover, quantities",
     "Exec GoodKardex_Overall_Tedad @FromDate='0000/00/00',@ToDate='9999/99/99',@Reverst=0,"
     "@CalcBeforeDatePeriod=0,@script_Sadere_sayer=0,@script_Varede_sayer=0"},
    {"overall turnover, amounts",
     "Exec GoodKardex_Overall_Money @FromDate='0000/00/00',@ToDate='9999/99/99',@Reverst=0,"
     "@CalcBeforeDatePeriod=0,@script_Sadere_sayer=0,@script_Varede_sayer=0"},
    {"row search of a month", "Exec srKardex @FromDate='1402/01/01',@ToDate='1402/01/31'"},
    {"negative stock", "Exec srKardex_Negative"},
    {"stock by details", "EXEC GoodDetailTransaction @StoreSeparation=1"},
    {"all detail movements of a week",
     "EXEC AllGoodDetailTransaction @FromDate='1402/01/01',@ToDate='1402/01/07'"},
    {"one good's details", "EXEC OneGoodDetailTransaction @GoodCode=2122"},
    {"detail mismatch", "EXEC DetailKardexAsset_Dismatch"},
    {"operation mismatch", "EXEC DetailOperation_Dismatch"},
    {"stock card", "Exec Kardex_Proc 12"},
};
constexpr char kReportsDatabase[] = "goods_bench_reports";
constexpr int kTimes = 3;
constexpr std::chrono::seconds kUntilPlanned{90};
double Seconds(const std::function<void()>& work) {
  work();  // the first call of a session compiles the procedure
  double best = 0;
  for (int i = 0; i < kTimes; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    best = i == 0 ? took.count() : std::min(best, took.count());
  }
  return best;
}

std::string JsonText(const std::string& text) {
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') json += '\\';
    json += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
  }
  return json + '"';
}

// A table with the rows, to fetch them without any work of a report.
void KeepResult(ServerSession& session, const std::string& table, const RowStore& rows) {
  std::string columns;
  std::string shape;
  for (std::size_t i = 0; i < rows.Columns().size(); ++i) {
    const ColumnType type = rows.Columns()[i].type;
    const std::string name = "c" + std::to_string(i);
    const std::string kind = type == ColumnType::Integer   ? "bigint"
                             : type == ColumnType::Decimal ? "decimal(38,9)"
                                                           : "nvarchar(400)";
    columns += (i > 0 ? ", " : "") + name + " " + kind;
    shape += (i > 0 ? ", " : "") + name + " " + kind + " '$[" + std::to_string(i) + "]'";
  }
  session.Run("IF OBJECT_ID(N'dbo." + table + "') IS NOT NULL DROP TABLE dbo." + table);
  session.Run("CREATE TABLE dbo." + table + "(" + columns + ")");
  constexpr std::size_t kRowsAtOnce = 1000;
  for (std::size_t row = 0; row < rows.Count();) {
    std::string json;
    for (const std::size_t end = std::min(rows.Count(), row + kRowsAtOnce); row < end; ++row) {
      json += json.empty() ? "[[" : ",[";
      for (std::size_t i = 0; i < rows.Columns().size(); ++i) {
        const Value value = rows.Cell(row, i);
        json += (i > 0 ? "," : "") + (value.IsNull() ? std::string("null") : JsonText(value.AsText()));
      }
      json += ']';
    }
    session.Run("INSERT INTO dbo." + table + " SELECT * FROM OPENJSON(" + ServerText(json + "]") +
                ") WITH (" + shape + ")");
  }
}

struct ReportTimes {
  double server = 0;
  double bare = 0;      // the same statement, fetched by the bare loop
  double embedded = 0;  // the statement in a company file
  double transfer = 0;  // the bare loop over a table with the same rows
  std::size_t rows = 0;
};
std::map<std::string, ReportTimes>& Reports() {
  static std::map<std::string, ReportTimes> reports;
  return reports;
}

void ReportsBesideAFile(benchmark::State& state) {
  if (!HasServer()) return state.SkipWithError("GOODS_SERVER is not set");
  const std::string path = std::string(GOODS_BENCH_FILES) + "/server_reports.goods";
  DemoOptions options;
  options.goods = 20'000;
  options.stores = 6;
  options.movements = 200'000;
  options.replace = true;
  MakeDemoCompany(path, options);
  ServerAddress server(std::getenv("GOODS_SERVER"));
  {
    server.Set("DATABASE", "master");
    ServerSession session(server.ConnectionString());
    session.Run(std::string("IF DB_ID(N'") + kReportsDatabase + "') IS NOT NULL DROP DATABASE " +
                kReportsDatabase);
  }
  DeployCompany({server, kReportsDatabase, path, {}, {}});
  // A server plans by what it knows of its tables, and gathers that by and by.
  std::this_thread::sleep_for(kUntilPlanned);
  server.Set("DATABASE", kReportsDatabase);
  const auto file = OpenCompany(path);
  const auto embedded = file->OpenConnection();
  ServerConnection connection(server.ConnectionString());
  ServerSession session(server.ConnectionString());
  const OdbcConnection plain(server.ConnectionString(), 15);
  for (auto each : state) {
    for (const AskedReport& report : kReports) {
      ReportTimes& times = Reports()[report.name];
      RowStore rows;
      times.embedded = Seconds([&] { embedded->Open(report.statement, rows); });
      times.rows = rows.Count();
      times.server = Seconds([&] {
        RowStore fetched;
        connection.Open(report.statement, fetched);
        if (fetched.Count() != times.rows) state.SkipWithError("rows are missing");
      });
      times.bare = Seconds([&] { ReadBare(plain, report.statement); });
      if (times.rows > 0) {
        KeepResult(session, "BenchResult", rows);
        times.transfer = Seconds([&] { ReadBare(plain, "SELECT * FROM dbo.BenchResult"); });
      }
      std::fprintf(stderr,
                   "%-32s %8zu rows  file %8.3f s  transfer %8.3f s  server %8.3f s  bare loop %8.3f s\n",
                   report.name, times.rows, times.embedded, times.transfer, times.server, times.bare);
    }
  }
}

BENCHMARK(ReportsBesideAFile)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BareLoop)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(QueryOpen)->Unit(benchmark::kMillisecond)->Iterations(3);

void ReportRatios() {
  const std::string loop = "a bare ODBC loop over the same statement into plain vectors, same block";
  Tell({"1,000,000 stock-card rows of a server into a query, by the clock", Best()["query"] * 1e3, loop,
        Best()["bare"] * 1e3, 1.3});
  Tell({"the same, of the processor", BestOfProcessor()["query"] * 1e3, loop,
        BestOfProcessor()["bare"] * 1e3});
  Tell({"memory of that query, a row", Counter("QueryOpen", "bytes a row"), "", 0, 0, "bytes"});
  for (const auto& [name, times] : Reports()) {
    const std::string asked =
        name + ", 20,000 goods, 200,000 movements, " + std::to_string(times.rows) + " rows, by the clock";
    Tell({asked, times.server * 1e3, "3 times the statement in a file and the transfer of its rows",
          (3 * times.embedded + times.transfer) * 1e3, 1});
    Tell({asked, times.server * 1e3, "the same statement fetched by a bare ODBC loop", times.bare * 1e3});
  }
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) { return goods::RunBenchmarks(argc, argv, goods::ReportRatios); }
