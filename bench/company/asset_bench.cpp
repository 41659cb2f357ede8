// The stock per store and the overall turnover over 20,000 goods in 50 stores. Beside: one scan of the
// movements that reads no more of them than the report needs, and the writing of the same result into a row
// store. At 200,000 and 2,000,000 movements, and at as many more as GOODS_BENCH_MOVEMENTS says. The ratios
// are printed after the runs.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "bare_loop.h"
#include "company/company.h"
#include "company/demo/demo_company.h"
#include "company/embedded/decimal_cell.h"
#include "company/embedded/embedded_connection.h"
#include "figures.h"
#include "host/data/connection.h"
#include "host/data/query.h"
#include "host/data/row_store.h"

namespace goods {
namespace {

// The goals are meant for a company of that size; with ten movements a good, what is done once a good weighs
// more.
constexpr std::int64_t kSizeOfGoals = 2'000'000;

constexpr std::int64_t kGoods = 20'000;
constexpr std::int64_t kStores = 50;

enum class Baseline { StoreScan, OperationScan };

struct Run {
  const char* name;
  const char* procedure;
  const char* parameters;
  Baseline baseline;
};
constexpr Run kRuns[] = {
    {"per store, stored", "GoodsAsset_Store_SP", "@ToDate='9',@FromDate=''", Baseline::StoreScan},
    {"per store, to a date", "GoodsAsset_Store_SP", "@ToDate='1404/12/29',@FromDate=''", Baseline::StoreScan},
    {"per store, a year", "GoodsAsset_Store_SP", "@CalcBefore =1,@ToDate='1404/12/29',@FromDate='1404/01/01'",
     Baseline::StoreScan},
    {"amounts", "GoodKardex_Overall_Money", "@Reverst=0", Baseline::OperationScan},
    {"quantities", "GoodKardex_Overall_Tedad", "@Reverst=0", Baseline::OperationScan},
    {"amounts of a year", "GoodKardex_Overall_Money", "@FromDate='1404/01/01',@CalcBeforeDatePeriod=1",
     Baseline::OperationScan},
    {"quantities of a year", "GoodKardex_Overall_Tedad", "@FromDate='1404/01/01',@CalcBeforeDatePeriod=1",
     Baseline::OperationScan}};

std::string CompanyPath(std::int64_t movements) {
  const std::string file =
      std::string(GOODS_BENCH_FILES) + "/asset-" + std::to_string(movements) + ".company";
  if (!std::filesystem::exists(file)) {
    DemoOptions options;
    options.goods = kGoods;
    options.stores = kStores;
    options.movements = movements;
    MakeDemoCompany(file, options);
  }
  return file;
}

std::string StatementOf(const Run& run) {
  std::string statement = std::string("exec ") + run.procedure + " " + run.parameters;
  if (run.baseline != Baseline::StoreScan) return statement;
  statement += ",@StoreCodes ='-1,0,";
  for (int code = 1; code <= kStores; ++code) statement += std::to_string(code) + ",";
  return statement + "'";
}

std::string Key(const std::string& name, std::int64_t movements) {
  return name + " at " + std::to_string(movements);
}

std::map<std::string, std::pair<std::size_t, std::size_t>> memory;  // of the query, of the values

void Scan(benchmark::State& state, const char* select, const char* name) {
  Database db(CompanyPath(state.range(0)), SQLITE_OPEN_READONLY);
  for (auto _ : state) {
    const Watch watch(Key(name, state.range(0)));
    Statement scan = db.Prepare(select);
    Int128 sum = 0;
    std::int64_t rows = 0;
    for (; scan.Step(); ++rows) {
      for (int i = 0; i < scan.Columns(); ++i) sum += ColumnUnits(scan.Handle(), i);
    }
    benchmark::DoNotOptimize(sum);
    if (rows < state.range(0)) state.SkipWithError("rows are missing");
  }
}

void ScanForStores(benchmark::State& state) {
  Scan(state, "SELECT Kala, Anbar, Tedad FROM Kardex", "stores");
}
void ScanForOperations(benchmark::State& state) {
  Scan(state, "SELECT Kala, Type, Tedad, Gheymat FROM Kardex", "operations");
}

// The cells of a result in plain columns.
struct PlainResult {
  std::vector<ColumnInfo> columns;
  std::vector<std::vector<Decimal>> numbers;
  std::vector<std::vector<std::string>> texts;
  std::size_t rows = 0;
  std::size_t valueBytes = 0;  // 8 an integer, 8 or 16 a decimal, a text's own
};

PlainResult PlainOf(const RowStore& from) {
  PlainResult plain{from.Columns(), {}, {}, from.Count(), 0};
  plain.numbers.resize(plain.columns.size());
  plain.texts.resize(plain.columns.size());
  for (std::size_t i = 0; i < plain.columns.size(); ++i) {
    const Column& column = from.ColumnAt(i);
    for (std::size_t row = 0; row < plain.rows; ++row) {
      if (column.Type() == ColumnType::Text) {
        plain.texts[i].emplace_back(column.Text(row));
        plain.valueBytes += column.Text(row).size();
      } else {
        plain.numbers[i].push_back(column.Number(row));
        plain.valueBytes += FitsCell64(column.Number(row).Units()) ? 8 : 16;
      }
    }
  }
  return plain;
}

void Write(const PlainResult& from, RowStore& into) {
  into.Define(from.columns);
  for (std::size_t row = 0; row < from.rows; ++row) {
    for (std::size_t i = 0; i < from.columns.size(); ++i) {
      switch (from.columns[i].type) {
        case ColumnType::Integer:
          into.ColumnAt(i).AppendInteger(
              static_cast<std::int64_t>(from.numbers[i][row].Units() / Decimal::kOne));
          break;
        case ColumnType::Decimal:
          into.ColumnAt(i).AppendDecimal(from.numbers[i][row]);
          break;
        case ColumnType::Text:
          into.ColumnAt(i).AppendText(from.texts[i][row]);
          break;
      }
    }
    into.EndRow();
  }
  into.Finish();
}

void Writing(benchmark::State& state, const Run& run) {
  RowStore result;
  OpenCompany(CompanyPath(state.range(0)))->OpenConnection()->Open(StatementOf(run), result);
  const PlainResult plain = PlainOf(result);
  memory[Key(run.name, state.range(0))].second = plain.valueBytes;
  for (auto _ : state) {
    RowStore again;
    const Watch watch(Key(std::string("writing ") + run.name, state.range(0)));
    Write(plain, again);
  }
}

void OpenReport(benchmark::State& state, const Run& run) {
  const std::unique_ptr<IConnection> connection = OpenCompany(CompanyPath(state.range(0)))->OpenConnection();
  for (auto _ : state) {
    TADOQuery query(nullptr, "Report_QRY", *connection);
    query.SetSQL(StatementOf(run));
    {
      const Watch watch(Key(run.name, state.range(0)));
      query.Open();
    }
    if (query.IsEmpty()) state.SkipWithError("rows are missing");
    memory[Key(run.name, state.range(0))].first = query.MemoryBytes();
  }
}

// Without help, for what takes the writing of the result off: several threads write while others read.
std::string OnOneThread(const Run& run) { return std::string("on one thread ") + run.name; }

void OpenOnOneThread(benchmark::State& state, const Run& run) {
  EmbeddedConnection one(CompanyPath(state.range(0)), false, {.threads = 1});
  IConnection& connection = one;
  for (auto _ : state) {
    RowStore rows;
    const Watch watch(Key(OnOneThread(run), state.range(0)));
    connection.Open(StatementOf(run), rows);
  }
}

std::set<std::int64_t> Sizes() {
  std::set<std::int64_t> sizes{200'000, 2'000'000};
  const char* more = std::getenv("GOODS_BENCH_MOVEMENTS");
  if (more != nullptr) sizes.insert(std::strtoll(more, nullptr, 10));
  return sizes;
}

void ReportRatios() {
  for (const std::int64_t size : Sizes()) {
    const double stores = Best()[Key("stores", size)] * 1e3;
    const double operations = Best()[Key("operations", size)] * 1e3;
    const std::string movements = ", " + std::to_string(size) + " movements";
    for (const Run& run : kRuns) {
      const double time = Best()[Key(run.name, size)] * 1e3;
      const double writing = Best()[Key(std::string("writing ") + run.name, size)] * 1e3;
      const bool perStore = run.baseline == Baseline::StoreScan;
      if (time == 0 || stores == 0 || operations == 0) continue;
      const std::string scan = perStore
                                   ? "one scan of store and quantity of the movements, and writing the result"
                                   : "one scan of type, quantity and cost of the movements";
      Tell({run.name + movements, time, scan, perStore ? stores + writing : operations, perStore ? 2.0 : 0});
      if (perStore && size >= kSizeOfGoals) {
        const double rest = Best()[Key(OnOneThread(run), size)] * 1e3 - writing;
        Tell({run.name + movements + ", on one thread, without writing the result", std::max(rest, 0.001),
              "one scan of store and quantity of the movements", stores, 0.35});
      }
      const auto [held, values] = memory[Key(run.name, size)];
      Tell({std::string("memory of the query ") + run.name + movements, static_cast<double>(held) / 1e6,
            "bytes of the values", static_cast<double>(values) / 1e6, 1.2, "MB"});
    }
    const auto both = [&](const char* first, const char* second) {
      return (Best()[Key(first, size)] + Best()[Key(second, size)]) * 1e3;
    };
    const std::string scan = "one scan of type, quantity and cost of the movements";
    Tell({"both overall turnovers" + movements, both("amounts", "quantities"), scan, operations,
          size >= kSizeOfGoals ? 0.6 : 0});
    Tell({"both, of a year and before" + movements, both("amounts of a year", "quantities of a year"), scan,
          operations, size >= kSizeOfGoals ? 0.6 : 0});
  }
}

void Register() {
  for (const std::int64_t size : Sizes()) {
    const auto add = [size](const std::string& name, auto function) {
      benchmark::RegisterBenchmark(name.c_str(), function)
          ->Arg(size)
          ->Unit(benchmark::kMillisecond)
          ->Iterations(7);
    };
    add("scan for stores", ScanForStores);
    add("scan for operations", ScanForOperations);
    for (const Run& run : kRuns) {
      add(std::string("writing ") + run.name, [&run](benchmark::State& state) { Writing(state, run); });
      add(run.name, [&run](benchmark::State& state) { OpenReport(state, run); });
      if (run.baseline == Baseline::StoreScan) {
        add(OnOneThread(run), [&run](benchmark::State& state) { OpenOnOneThread(state, run); });
      }
    }
  }
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  goods::Register();
  return goods::RunBenchmarks(argc, argv, goods::ReportRatios);
}
