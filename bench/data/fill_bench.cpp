// Filling a row store, beside copying the same cells into plain vectors.
#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "stock_card_rows.h"

namespace goods::bench {
namespace {

struct PlainVectors {
  std::vector<std::int64_t> integers[kIntegers];
  std::vector<double> numbers[kNumbers];
  std::vector<std::string> texts[kTexts];
};

void FillPlain(const StockCardRows& source, PlainVectors& plain) {
  for (std::size_t row = 0; row < kRows; ++row) {
    for (std::size_t c = 0; c < kIntegers; ++c) plain.integers[c].push_back(source.integers[c][row]);
    for (std::size_t c = 0; c < kNumbers; ++c) {
      plain.numbers[c].push_back(static_cast<double>(source.numbers[c][row]) / 1000);
    }
    for (std::size_t c = 0; c < kTexts; ++c) plain.texts[c].emplace_back(source.texts[c][row]);
  }
}

template <typename Work>
double Milliseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// ratio: time over the plain vectors' (at most 1.5); memory: bytes held over the bytes of the values (at most
// 2).
void FillRowStore(benchmark::State& state) {
  const StockCardRows& source = Source();
  std::vector<double> plainTimes;
  std::vector<double> storeTimes;
  std::size_t held = 0;
  for (auto _ : state) {
    {
      PlainVectors plain;
      plainTimes.push_back(Milliseconds([&] { FillPlain(source, plain); }));
      benchmark::DoNotOptimize(plain.texts[0].data());
    }
    RowStore store;
    storeTimes.push_back(Milliseconds([&] { FillStore(source, store); }));
    held = store.MemoryBytes();
  }
  state.counters["plain_ms"] = Median(plainTimes);
  state.counters["store_ms"] = Median(storeTimes);
  state.counters["ratio"] = Median(storeTimes) / Median(plainTimes);
  state.counters["memory"] = static_cast<double>(held) / static_cast<double>(source.ValueBytes());
}
BENCHMARK(FillRowStore)->Unit(benchmark::kMillisecond)->Iterations(7);

}  // namespace
}  // namespace goods::bench
