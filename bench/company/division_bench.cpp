// What the cores of the machine do for reports over all goods: the same statements by the clock, on one
// thread and on all of them, and beside one single-thread scan of the movements. At 2,000,000 movements, and
// at as many more as GOODS_BENCH_MOVEMENTS says.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include <benchmark/benchmark.h>

#include "bare_loop.h"
#include "company/company.h"
#include "company/demo/demo_company.h"
#include "company/embedded/embedded_connection.h"
#include "figures.h"
#include "host/data/row_store.h"

namespace goods {
namespace {

constexpr std::int64_t kGoods = 20'000;
constexpr std::int64_t kMovements = 2'000'000;
constexpr int kRuns = 5;

struct Asked {
  const char* name;
  const char* statement;
  double goal;  // beside the scan, on all cores
};
constexpr Asked kAsked[] = {
    {"the goods list over all dates", "exec GoodInf_sp @EffectiveDate1 = '', @EffectiveDate2 = '9999/99/99'",
     0.45},
    {"the goods list of a year",
     "exec GoodInf_sp @EffectiveDate1 = '1402/01/01', @EffectiveDate2 = '1402/12/29'", 0.25},
    {"the goods list without a period", "exec GoodInf_sp ", 0},
    {"stock per store, to a date",
     "exec GoodsAsset_Store_SP @StoreCodes='-1,0,1,1,2,2,3,3,',@ToDate='1402/12/29'", 0},
    {"overall turnover, amounts", "Exec GoodKardex_Overall_Money @FromDate='0000/00/00'", 0},
    {"row search without criteria", "Exec srKardex", 0},
};

struct Times {
  double alone = 0;
  double together = 0;
};
std::map<std::int64_t, std::map<std::string, Times>>& Found() {
  static std::map<std::int64_t, std::map<std::string, Times>> found;
  return found;
}
std::map<std::int64_t, double>& Scans() {
  static std::map<std::int64_t, double> scans;
  return scans;
}

template <typename Work>
double Milliseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> times) {
  std::ranges::sort(times);
  return times[times.size() / 2];
}

std::string CompanyPath(std::int64_t movements) {
  const std::string path =
      std::string(GOODS_BENCH_FILES) + "/turnover-" + std::to_string(movements) + ".company";
  if (!std::filesystem::exists(path)) MakeDemoCompany(path, {.goods = kGoods, .movements = movements});
  OpenCompany(path);  // brings an older one up to date
  return path;
}

void Scan(benchmark::State& state) {
  Database db(CompanyPath(state.range(0)), SQLITE_OPEN_READONLY);
  std::vector<double> times;
  for (auto each : state) times.push_back(Milliseconds([&] { ScanMovements(db); }));
  Scans()[state.range(0)] = Median(times);
}

void OnOneThreadAndOnAll(benchmark::State& state, const Asked& asked) {
  const std::string path = CompanyPath(state.range(0));
  EmbeddedConnection one(path, false, {.threads = 1});
  EmbeddedConnection all(path, false);
  std::vector<double> alone;
  std::vector<double> together;
  for (auto each : state) {
    for (const auto& [handle, times] : {std::pair{&one, &alone}, std::pair{&all, &together}}) {
      IConnection& connection = *handle;
      RowStore rows;
      times->push_back(Milliseconds([&] { connection.Open(asked.statement, rows); }));
    }
  }
  Found()[state.range(0)][asked.name] = {Median(alone), Median(together)};
}

void Report() {
  const std::string cores = std::to_string(std::max(1U, std::thread::hardware_concurrency())) + " cores";
  for (const auto& [movements, found] : Found()) {
    for (const Asked& asked : kAsked) {
      if (!found.contains(asked.name)) continue;
      const Times& times = found.at(asked.name);
      const std::string name =
          asked.name + (", " + std::to_string(movements)) + " movements, by the clock on " + cores;
      Tell({name, times.together, "on one", times.alone});
      Tell({name, times.together, "one scan of the movements by a bare SQLite loop", Scans()[movements],
            movements == kMovements ? asked.goal : 0});
    }
  }
}

void Register() {
  std::vector<std::int64_t> sizes = {kMovements};
  if (const char* more = std::getenv("GOODS_BENCH_MOVEMENTS")) sizes.push_back(std::atoll(more));
  for (const std::int64_t size : sizes) {
    benchmark::RegisterBenchmark("scan", Scan)->Arg(size)->Iterations(kRuns);
    for (const Asked& asked : kAsked) {
      benchmark::RegisterBenchmark(asked.name,
                                   [&asked](benchmark::State& state) { OnOneThreadAndOnAll(state, asked); })
          ->Arg(size)
          ->Iterations(kRuns)
          ->Unit(benchmark::kMillisecond);
    }
  }
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  goods::Register();
  return goods::RunBenchmarks(argc, argv, goods::Report);
}
