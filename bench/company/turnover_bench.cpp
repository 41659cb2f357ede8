// The goods turnover list over 20,000 goods. Without a period: through the connection into a query, beside a
// bare SQLite loop over the stored columns of the same tables into plain vectors. With a period: beside one
// scan of the movements and that loop together. Both at 200,000 and 2,000,000 movements, and at as many more
// as GOODS_BENCH_MOVEMENTS says. The ratios are printed after the runs.
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
#include "company/embedded/procedures.h"
#include "figures.h"
#include "host/data/connection.h"
#include "host/data/query.h"

namespace goods {
namespace {

constexpr std::int64_t kGoods = 20'000;
constexpr int kShortRuns = 31;
constexpr int kLongRuns = 11;
constexpr std::int64_t kSizeOfGoals = 2'000'000;

struct Run {
  const char* name;
  const char* asked;
  const char* statement;
  bool period;
  double goal;
};
constexpr Run kRuns[] = {
    {"list", "goods turnover list, 20,000 goods, into a query", "exec GoodInf_sp ", false, 1.0},
    {"one tab", "one group's goods in stock", "exec GoodInf_sp @GrpCode = 3,@GoodExistType = 1", false, 0},
    {"a store", "one store's stored figures", "exec GoodInf_sp @StoreCode=2", false, 1.2},
    {"all dates", "the list over all dates",
     "exec GoodInf_sp @EffectiveDate1 = '', @EffectiveDate2 = '9999/99/99'", true, 0.45},
    {"a year", "the list of a year in the middle",
     "exec GoodInf_sp @EffectiveDate1 = '1402/01/01', @EffectiveDate2 = '1402/12/29'", true, 0.25},
    {"a month", "the list of a month",
     "exec GoodInf_sp @EffectiveDate1 = '1402/01/01', @EffectiveDate2 = '1402/01/31'", true, 0.25},
    {"a store's dates", "one store's list over all dates",
     "exec GoodInf_sp @EffectiveDate1 = '', @EffectiveDate2 = '9999/99/99',@StoreCode=2", true, 0}};

// What the list reads from tables as it stands there; figures that follow from these are not asked for.
constexpr char kBare[] =
    "SELECT g.GrpCode, g.Code, g.Name, s.OperationDate, g.AbbName, g.Pos, g.Unit, g.AvaBgPrd, g.CostBgPrd,"
    " g.CurAva, g.Status, s.varede, s.sadere, s.gheymat_miangin, g.Unit2, g.AvaBgPrd2, s.Mogodi2, g.Meghdar2,"
    " g.kala_type, g.kala_index, g.kala_name, g.Meghdar_Formool, g.Store, g.SMSCode, u.Name AS UnitName1,"
    " u2.Name AS UnitName2, s.Jam_Kol, g.Position, g.MinAva, s.Mogodi, r.Stock, g.category_code, g.Tags"
    " FROM GoodInf g JOIN GoodStock s ON s.Kala = g.Code JOIN Units u ON u.Code = g.Unit"
    " JOIN Units u2 ON u2.Code = g.Unit2 LEFT JOIN RialiStock r ON r.Kala = g.Code ORDER BY g.Code";

std::string Movements(std::int64_t count) { return ", " + std::to_string(count) + " movements"; }

std::string CompanyPath(std::int64_t movements) {
  const std::string file =
      std::string(GOODS_BENCH_FILES) + "/turnover-" + std::to_string(movements) + ".company";
  if (!std::filesystem::exists(file)) {
    DemoOptions options;
    options.goods = kGoods;
    options.movements = movements;
    MakeDemoCompany(file, options);
  }
  return file;
}

std::vector<ColumnInfo> BareColumns(Database& db) {
  std::map<std::string, ColumnType> types;
  for (const Procedure& procedure : Procedures()) {
    if (procedure.name != "GoodInf_sp") continue;
    for (const ColumnInfo& column : procedure.columns) types[column.name] = column.type;
  }
  const Statement select = db.Prepare(kBare);
  std::vector<ColumnInfo> columns;
  for (int i = 0; i < select.Columns(); ++i) {
    const std::string name = sqlite3_column_name(select.Handle(), i);
    columns.push_back({name, types.at(name)});
  }
  return columns;
}

std::string Key(const std::string& name, std::int64_t movements) {
  return name + " at " + std::to_string(movements);
}

std::map<std::string, std::pair<std::size_t, std::size_t>> memory;  // of the query, of the values

void BareLoop(benchmark::State& state) {
  Database db(CompanyPath(state.range(0)), SQLITE_OPEN_READONLY);
  const std::vector<ColumnInfo> columns = BareColumns(db);
  for (auto _ : state) {
    const Watch watch(Key("bare", state.range(0)));
    PlainRows rows = ReadSelect(db, kBare, columns);
    benchmark::DoNotOptimize(rows);
    if (rows.rows != static_cast<std::size_t>(kGoods)) state.SkipWithError("rows are missing");
  }
}

void ScanOfMovements(benchmark::State& state) {
  Database db(CompanyPath(state.range(0)), SQLITE_OPEN_READONLY);
  for (auto _ : state) {
    const Watch watch(Key("scan", state.range(0)));
    ScanMovements(db);
  }
}

void OpenList(benchmark::State& state, const Run& run) {
  const std::string path = CompanyPath(state.range(0));
  const std::unique_ptr<IConnection> connection = OpenCompany(path)->OpenConnection();
  for (auto _ : state) {
    TADOQuery query(nullptr, "GoodTransaction_QRY", *connection);
    query.SetSQL(run.statement);
    {
      const Watch watch(Key(run.name, state.range(0)));
      query.Open();
    }
    if (query.IsEmpty()) state.SkipWithError("rows are missing");
    memory[Key(run.name, state.range(0))].first = query.MemoryBytes();
  }
  Database db(path, SQLITE_OPEN_READONLY);
  memory[Key(run.name, state.range(0))].second = ReadBare(db, run.statement).valueBytes;
}

std::set<std::int64_t> Sizes() {
  std::set<std::int64_t> sizes{200'000, 2'000'000};
  const char* more = std::getenv("GOODS_BENCH_MOVEMENTS");
  if (more != nullptr) sizes.insert(std::strtoll(more, nullptr, 10));
  return sizes;
}

void ReportRatios() {
  for (const std::int64_t size : Sizes()) {
    const double bare = Best()[Key("bare", size)] * 1e3;
    const double scan = Best()[Key("scan", size)] * 1e3;
    const std::string loop = "a bare SQLite loop over the stored columns into plain vectors";
    for (const Run& run : kRuns) {
      // The goals are meant for a company of that size; with ten movements a good, what is done once a good
      // weighs more.
      const double goal = size >= kSizeOfGoals ? run.goal : 0;
      const std::string asked = std::string(run.asked) + Movements(size);
      const double time = Best()[Key(run.name, size)] * 1e3;
      if (run.period) {
        Tell({asked, time, "one scan of the movements and that loop", bare == 0 ? 0 : scan + bare, goal});
      } else {
        Tell({asked, time, loop, bare, goal});
      }
    }
    const auto [held, values] = memory[Key(kRuns[0].name, size)];
    Tell({"memory of the list's query" + Movements(size), static_cast<double>(held) / 1e6,
          "bytes of the values", static_cast<double>(values) / 1e6, 1.2, "MB"});
  }
}

void Register() {
  for (const std::int64_t size : Sizes()) {
    const auto add = [size](const char* name, auto function, int iterations) {
      benchmark::RegisterBenchmark(name, function)
          ->Arg(size)
          ->Unit(benchmark::kMillisecond)
          ->Iterations(iterations);
    };
    add("bare", BareLoop, kShortRuns);
    add("scan", ScanOfMovements, kLongRuns);
    for (const Run& run : kRuns) {
      const auto open = [&run](benchmark::State& state) { OpenList(state, run); };
      add(run.name, open, run.period ? kLongRuns : kShortRuns);
    }
  }
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  goods::Register();
  return goods::RunBenchmarks(argc, argv, goods::ReportRatios);
}
