// Reading a stock card of 1,000,000 rows: through the connection into a query, beside a bare SQLite loop that
// steps the same statement and copies the same cells into plain vectors; and narrowing the rows that were
// read, beside asking the database for them again; and the figures of the card before a date. The ratios are
// printed after the runs.
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

constexpr std::int64_t kRows = 1'000'000;
constexpr char kStatement[] = "Exec Kardex_Proc 1";
// The same rows in SQL alone, but for the sums along the card.
constexpr char kStatementInSql[] = R"sql(
SELECT k.Date, p.Name, k.Comment, k.Anbar, max(k.Tedad, 0), max(-k.Tedad, 0), k.Meghdar2, k.Tedad, k.Tedad,
       CASE WHEN k.Tedad > 0 THEN k.Gheymat ELSE 0 END, CASE WHEN k.Tedad < 0 THEN k.Gheymat ELSE 0 END,
       dec_mul(abs(k.Tedad), k.Fi), k.Miangin, NULL, NULL, k.Radif, k.Percode, k.Type, k.OperationCode
FROM Kardex k
LEFT JOIN Persons p ON p.Code = k.Percode
WHERE k.Kala = 1
ORDER BY k.Date, k.Radif)sql";
constexpr char kFilter[] = "Anbar = 2 AND Date >= '1401/01/01' AND Date <= '1402/12/29'";

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
    PlainRows rows = ReadSelect(db, kStatementInSql, ColumnsOf("Kardex_Proc"));
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

std::string FiguresBefore(int year) {
  const std::string condition = " Kala=1 And Date<'" + std::to_string(year) + "/01/01'";
  return "Select isNull(Sum((Tedad+ABS(Tedad))/2),0)as Varede,isNull(Sum((Tedad-ABS(Tedad))/2),0)as Sadere "
         "from Kardex where " +
         condition;
}

// What the stock card shows beside its rows when a date is put in: of a card that was read, and of one that
// was not. Each date is another one, so that no answer is one that was given before.
void Figures(benchmark::State& state, bool cardRead) {
  const std::unique_ptr<IConnection> connection = OpenCompany(CompanyPath())->OpenConnection();
  if (cardRead) {
    RowStore card;
    connection->Open(kStatement, card);
  }
  int year = 1402;
  for (auto _ : state) {
    RowStore rows;
    const Watch watch(cardRead ? "figures" : "figures without card");
    connection->Open(FiguresBefore(year++), rows);
  }
}

void FiguresOfTheCard(benchmark::State& state) { Figures(state, true); }
void FiguresWithoutACard(benchmark::State& state) { Figures(state, false); }

// Look-ups of a window as it opens, a hundred times.
void LookUps(benchmark::State& state, const std::string& name, bool repeated) {
  const std::unique_ptr<IConnection> connection = OpenCompany(CompanyPath())->OpenConnection();
  int id = 1000;
  for (auto _ : state) {
    const Watch watch(name);
    for (int i = 0; i < 100; ++i) {
      RowStore rows;
      connection->Open("SELECT * FROM DetailTypes dt WHERE dt.ID = " + std::to_string(repeated ? 1 : ++id),
                       rows);
    }
  }
}

void LookUpsAgain(benchmark::State& state) { LookUps(state, "asked again", true); }
void LookUpsAnew(benchmark::State& state) { LookUps(state, "asked anew", false); }

void ReportRatios() {
  auto& best = Best();
  Tell({"1,000,000 stock-card rows through the connection into a query", best["query"] * 1e3,
        "a bare SQLite loop over the same rows, with joins, into plain vectors", best["bare"] * 1e3, 1.5});
  Tell({"memory of that query", static_cast<double>(QueryBytes()) / 1e6, "bytes of the values",
        static_cast<double>(ValueBytes()) / 1e6, 2, "MB"});
  Tell({"a criterion (store and dates) on those rows, with all footers", best["filter"] * 1e3,
        "asking the database again", best["query"] * 1e3, 0.2});
  Tell({"what came in and went out before a date, of that card", best["figures"] * 1e3, "reading the card",
        best["query"] * 1e3, 0.01});
  Tell({"the same while no card has been read", best["figures without card"] * 1e3, "reading the card",
        best["query"] * 1e3});
  Tell({"100 look-ups that were asked before", best["asked again"] * 1e3, "100 that were not",
        best["asked anew"] * 1e3});
}

BENCHMARK(BareLoop)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(QueryOpen)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FilterRows)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(FiguresOfTheCard)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FiguresWithoutACard)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(LookUpsAgain)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(LookUpsAnew)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace goods

int main(int argc, char** argv) { return goods::RunBenchmarks(argc, argv, goods::ReportRatios); }
