// The row search and the negative stock card over 2,000,000 movements of 20,000 goods. The search: through
// the connection into a query, beside a bare SQLite loop over the same statement. The negative report: beside
// one scan of the movements that reads what the report needs to find its rows. The ratios are printed after
// the runs.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "bare_loop.h"
#include "company/company.h"
#include "company/demo/demo_company.h"
#include "figures.h"
#include "host/data/connection.h"
#include "host/data/query.h"

namespace goods {
namespace {

constexpr std::int64_t kGoods = 20'000;
constexpr std::int64_t kRows = 2'000'000;
constexpr char kSearch[] = "Exec srKardex";
// The same rows in SQL alone.
constexpr char kSearchInSql[] = R"sql(
SELECT k.Date, k.Kala, g.AbbName, p.Name, g.Name, s.Name, k.Comment, max(k.Tedad, 0), max(-k.Tedad, 0),
       iif(k.Tedad > 0, k.Gheymat, 0), iif(k.Tedad < 0, k.Gheymat, 0), dec_mul(max(k.Tedad, 0), k.Gheymat),
       dec_mul(max(-k.Tedad, 0), k.Gheymat), k.Type, k.OperationCode, u.Name
FROM Kardex k
LEFT JOIN GoodInf g ON g.Code = k.Kala
LEFT JOIN Stores s ON s.Code = k.Anbar
LEFT JOIN Persons p ON p.Code = k.Percode
LEFT JOIN Units u ON u.Code = g.Unit
ORDER BY k.Kala, k.Date, k.Radif)sql";
constexpr char kByName[] = "Exec srKardex @KalaName='پیچ'";
constexpr char kByDate[] = "Exec srKardex @FromDate='1402/01/01',@ToDate='1402/01/31'";
constexpr char kNegative[] = "Exec srKardex_Negative";

const std::string& CompanyPath() {
  static const std::string path = [] {
    const std::string file = std::string(GOODS_BENCH_FILES) + "/search.company";
    if (!std::filesystem::exists(file)) {
      MakeDemoCompany(file, {.goods = kGoods, .movements = kRows});
    }
    return file;
  }();
  return path;
}

std::size_t valueBytes = 0;
std::size_t queryBytes = 0;

void SearchBareLoop(benchmark::State& state) {
  Database db(CompanyPath(), SQLITE_OPEN_READONLY);
  for (auto _ : state) {
    const Watch watch("bare");
    const PlainRows rows = ReadSelect(db, kSearchInSql, ColumnsOf("srKardex"));
    if (rows.rows != static_cast<std::size_t>(kRows)) state.SkipWithError("rows are missing");
    valueBytes = rows.valueBytes;
  }
}

void Open(benchmark::State& state, const char* statement, const std::string& name) {
  const std::unique_ptr<IConnection> connection = OpenCompany(CompanyPath())->OpenConnection();
  for (auto _ : state) {
    TADOQuery query(nullptr, "KardexSearch_QRY", *connection);
    query.SetSQL(statement);
    {
      const Watch watch(name);
      query.Open();
    }
    if (query.IsEmpty()) state.SkipWithError("rows are missing");
    state.counters["rows"] = static_cast<double>(query.RecordCount());
    if (statement == kSearch) queryBytes = query.MemoryBytes();
  }
}

void SearchQuery(benchmark::State& state) { Open(state, kSearch, "query"); }
void SearchByName(benchmark::State& state) { Open(state, kByName, "name"); }
void SearchByDate(benchmark::State& state) { Open(state, kByDate, "date"); }
void NegativeReport(benchmark::State& state) { Open(state, kNegative, "negative"); }

void ScanOfMovements(benchmark::State& state) {
  Database db(CompanyPath(), SQLITE_OPEN_READONLY);
  for (auto _ : state) {
    const Watch watch("scan");
    ScanMovements(db);
  }
}

void ReportRatios() {
  auto& best = Best();
  const std::string scan = "one scan of the movements";
  Tell({"row search without criteria, 2,000,000 movements, into a query", best["query"] * 1e3,
        "a bare SQLite loop over the same rows, with joins, into plain vectors", best["bare"] * 1e3, 0.5});
  Tell({"memory of that query", static_cast<double>(queryBytes) / 1e6, "bytes of the values",
        static_cast<double>(valueBytes) / 1e6, 1.2, "MB"});
  Tell({"negative stock card over the same movements", best["negative"] * 1e3, scan, best["scan"] * 1e3, 3});
  Tell({"search by a good's name", best["name"] * 1e3, scan, best["scan"] * 1e3});
  Tell({"search by a month of dates", best["date"] * 1e3, scan, best["scan"] * 1e3});
}

BENCHMARK(SearchBareLoop)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(SearchQuery)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(SearchByName)->Unit(benchmark::kMillisecond)->Iterations(7);
BENCHMARK(SearchByDate)->Unit(benchmark::kMillisecond)->Iterations(7);
BENCHMARK(ScanOfMovements)->Unit(benchmark::kMillisecond)->Iterations(7);
BENCHMARK(NegativeReport)->Unit(benchmark::kMillisecond)->Iterations(7);

}  // namespace
}  // namespace goods

int main(int argc, char** argv) { return goods::RunBenchmarks(argc, argv, goods::ReportRatios); }
