// Reading a stock card of 1,000,000 rows: through the connection into a query, beside a bare SQLite loop that
// steps the same statement and copies the same cells into plain vectors; and narrowing the rows that were
// read, beside asking the database for them again. The ratios are printed after the runs.
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "company/company.h"
#include "company/demo/demo_company.h"
#include "company/embedded/decimal_cell.h"
#include "company/embedded/procedures.h"
#include "company/embedded/sqlite.h"
#include "host/data/connection.h"
#include "host/data/query.h"

namespace goods {
namespace {

constexpr std::int64_t kRows = 1'000'000;
constexpr char kStatement[] = "Exec Kardex_Proc 1";
constexpr char kFilter[] = "Anbar = 2 AND Date >= '1401/01/01' AND Date <= '1402/12/29'";

// The best time of each benchmark, in processor seconds, for the ratios.
std::map<std::string, double>& Best() {
  static std::map<std::string, double> best;
  return best;
}

// Time that the processor spent on this process: other work on the machine does not count.
double CpuSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

class Watch {
 public:
  explicit Watch(std::string name) : name_(std::move(name)), start_(CpuSeconds()) {}
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() {
    const double seconds = CpuSeconds() - start_;
    const auto [place, first] = Best().try_emplace(name_, seconds);
    if (!first && seconds < place->second) place->second = seconds;
  }

 private:
  std::string name_;
  double start_;
};

// With two goods the first one has every movement.
const std::string& CompanyPath() {
  static const std::string path = [] {
    const std::string file = std::string(GOODS_BENCH_FILES) + "/million.company";
    if (!std::filesystem::exists(file)) {
      DemoOptions options;
      options.goods = 2;
      options.movements = kRows;
      MakeDemoCompany(file, options);
    }
    return file;
  }();
  return path;
}

// Plain columns, as a caller without a query would keep them.
struct PlainRows {
  std::vector<std::vector<std::int64_t>> integers;
  std::vector<std::vector<Int128>> decimals;
  std::vector<std::vector<std::string>> texts;
  std::size_t valueBytes = 0;  // of the cells themselves: 8 an integer, 8 or 16 a decimal, a text's own bytes
};

void CopyCells(sqlite3_stmt* statement, const std::vector<ColumnInfo>& columns, PlainRows& rows) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const int index = static_cast<int>(i);
    switch (columns[i].type) {
      case ColumnType::Integer:
        rows.integers[i].push_back(sqlite3_column_int64(statement, index));
        rows.valueBytes += 8;
        break;
      case ColumnType::Decimal: {
        const Int128 units = ColumnUnits(statement, index);
        rows.decimals[i].push_back(units);
        rows.valueBytes += FitsCell64(units) ? 8 : 16;
        break;
      }
      case ColumnType::Text: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
        const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, index));
        rows.texts[i].emplace_back(text == nullptr ? "" : text, length);
        rows.valueBytes += length;
        break;
      }
    }
  }
}

PlainRows ReadBare(Database& db) {
  ExecStatement exec;
  exec.procedure = "Kardex_Proc";
  exec.arguments.push_back({"", NumberValue{"1"}, 0});
  const ProcedureCall call = MatchProcedure(exec, kStatement);
  Statement statement = db.Prepare(call.procedure->body);
  BindParameters(statement, call);
  PlainRows rows;
  const std::vector<ColumnInfo>& columns = call.procedure->columns;
  rows.integers.resize(columns.size());
  rows.decimals.resize(columns.size());
  rows.texts.resize(columns.size());
  while (sqlite3_step(statement.Handle()) == SQLITE_ROW) CopyCells(statement.Handle(), columns, rows);
  return rows;
}

std::size_t& ValueBytes() {
  static std::size_t bytes = 0;
  return bytes;
}

std::size_t& QueryBytes() {
  static std::size_t bytes = 0;
  return bytes;
}

void BareLoop(benchmark::State& state) {
  Database db(CompanyPath(), SQLITE_OPEN_READONLY);
  for (auto _ : state) {
    const Watch watch("bare");
    PlainRows rows = ReadBare(db);
    benchmark::DoNotOptimize(rows);
    ValueBytes() = rows.valueBytes;
  }
}

void QueryOpen(benchmark::State& state) {
  const std::unique_ptr<IConnection> connection = OpenCompany(CompanyPath())->OpenConnection();
  for (auto _ : state) {
    TADOQuery query(nullptr, "Kardex_QRY", *connection);
    query.SetSQL(kStatement);
    {
      const Watch watch("query");
      query.Open();
    }
    if (query.RecordCount() != static_cast<std::size_t>(kRows)) state.SkipWithError("rows are missing");
    QueryBytes() = query.MemoryBytes();
  }
}

// What the stock card does on a criterion: filter and add up its footers.
void FilterRows(benchmark::State& state) {
  const std::unique_ptr<IConnection> connection = OpenCompany(CompanyPath())->OpenConnection();
  TADOQuery query(nullptr, "Kardex_QRY", *connection);
  query.SetSQL(kStatement);
  query.Open();
  for (auto _ : state) {
    query.SetFilter("");
    const Watch watch("filter");
    query.SetFilter(kFilter);
    for (const char* field : {"Tedad_Varde", "Tedad_Sadere", "Meghdar2"})
      benchmark::DoNotOptimize(query.Sum(field));
  }
  state.counters["rows left"] = static_cast<double>(query.RecordCount());
}

void ReportRatios() {
  std::printf("reading into the query / bare loop:      %.2f (goal at most 1.5)\n",
              Best()["query"] / Best()["bare"]);
  std::printf("memory of the query / bytes of values:   %.2f (goal at most 2)\n",
              static_cast<double>(QueryBytes()) / static_cast<double>(ValueBytes()));
  std::printf("filtering with footers / asking again:   %.4f (goal below 0.2)\n",
              Best()["filter"] / Best()["query"]);
}

BENCHMARK(BareLoop)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(QueryOpen)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FilterRows)->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  goods::ReportRatios();
  return 0;
}
