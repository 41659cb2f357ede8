// Sorting a million rows by a column of each kind, beside a stable sort of an index over plain vectors.
#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "host/data/query.h"
#include "stock_card_rows.h"

namespace goods::bench {
namespace {

void SortQuery(benchmark::State& state, const char* sort) {
  GeneratedConnection connection;
  TADOQuery query(nullptr, "Kardex_QRY", connection);
  query.Open();
  for (auto _ : state) {
    query.SetSort(sort);
    benchmark::DoNotOptimize(query.VisibleRows().data());
    state.PauseTiming();
    query.SetSort("");
    state.ResumeTiming();
  }
}
BENCHMARK_CAPTURE(SortQuery, Integer, "Person")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK_CAPTURE(SortQuery, Decimal, "Amount DESC")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK_CAPTURE(SortQuery, RepeatingText, "PersonName")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK_CAPTURE(SortQuery, DistinctText, "Comment DESC")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(SortQuery, ThreeKeys, "AnbarName, Type, Amount DESC")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

template <typename Cells>
void StableSort(benchmark::State& state, const Cells& cells) {
  for (auto _ : state) {
    std::vector<std::uint32_t> order(kRows);
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&cells](std::uint32_t a, std::uint32_t b) { return cells[a] < cells[b]; });
    benchmark::DoNotOptimize(order.data());
  }
}
void StableSortInteger(benchmark::State& state) { StableSort(state, Source().integers[4]); }
void StableSortDecimal(benchmark::State& state) { StableSort(state, Source().numbers[3]); }
void StableSortRepeatingText(benchmark::State& state) { StableSort(state, Source().texts[2]); }
BENCHMARK(StableSortInteger)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(StableSortDecimal)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(StableSortRepeatingText)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
}  // namespace goods::bench
