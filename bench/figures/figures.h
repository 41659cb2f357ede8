// What a benchmark program found, as lines of the page of benchmarks.
#pragma once

#include <string>

namespace goods {

struct Figure {
  std::string asked;        // what is asked, in a few words
  double measured = 0;      // in the unit
  std::string baseline{};   // what it stands beside; empty: nothing
  double beside = 0;        // the baseline in the same unit, measured by the same process
  double goal = 0;          // the highest ratio that is good; 0: none is set
  std::string unit = "ms";  // "ms": of the processor
};

// Prints the line; with GOODS_BENCH_ROWS in the environment it is also put at the end of that file, as a row
// of the page's table (bench/run). What was not measured (0) is left out.
void Tell(const Figure& figure);

// The main function of a program on Google Benchmark: runs what was registered, then tells the figures.
// report is called after every run, also of a part (--benchmark_filter).
int RunBenchmarks(int argc, char** argv, void (*report)());

// The time of the processor, in milliseconds for each iteration, that a benchmark of that name took; of
// several the least. 0: it did not run. Names are those that --benchmark_list_tests shows, without
// "/iterations:N" and the like.
double ProcessorTime(const std::string& name);
// A counter of it; 0: there is none.
double Counter(const std::string& name, const std::string& counter);

}  // namespace goods
