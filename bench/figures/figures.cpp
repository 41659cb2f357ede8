#include "figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <vector>

#include <benchmark/benchmark.h>
#include <errno.h>

namespace goods {
namespace {

struct Measured {
  double time = 0;
  std::map<std::string, double> counters;
};

std::map<std::string, Measured>& All() {
  static std::map<std::string, Measured> all;
  return all;
}

class Reporter : public benchmark::ConsoleReporter {
 public:
  Reporter() : ConsoleReporter(OO_Tabular) {}
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      const std::string name = run.run_name.args.empty()
                                   ? run.run_name.function_name
                                   : run.run_name.function_name + "/" + run.run_name.args;
      Measured& measured = All()[name];
      const double time = run.GetAdjustedCPUTime() * 1e3 / benchmark::GetTimeUnitMultiplier(run.time_unit);
      measured.time = measured.time == 0 ? time : std::min(measured.time, time);
      for (const auto& [counter, value] : run.counters) measured.counters[counter] = value.value;
    }
  }
};

// Three digits of what counts.
std::string Text(double value) {
  const int whole = value >= 1 ? static_cast<int>(std::log10(value)) + 1 : 0;
  const int decimals = value >= 1 ? std::max(0, 3 - whole) : value >= 0.01 ? 2 : 4;
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

}  // namespace

void Tell(const Figure& figure) {
  const bool alone = figure.baseline.empty();
  if (figure.measured == 0 || (!alone && figure.beside == 0)) return;
  const double ratio = alone ? 0 : figure.measured / figure.beside;
  const std::string measured = Text(figure.measured) + " " + figure.unit;
  const std::string beside = alone ? "" : figure.baseline + ": " + Text(figure.beside) + " " + figure.unit;
  std::string goal;
  if (figure.goal > 0) {
    goal = "at most " + Text(figure.goal);
    if (ratio > figure.goal) goal += ", **missed**";
  }
  std::printf("%s: %s%s%s", figure.asked.c_str(), measured.c_str(), alone ? "" : "; ", beside.c_str());
  if (!alone) std::printf("; ratio %s", Text(ratio).c_str());
  std::printf("%s%s\n", goal.empty() ? "" : "; goal ", goal.c_str());
  const char* rows = std::getenv("GOODS_BENCH_ROWS");
  if (rows == nullptr) return;
  std::ofstream(rows, std::ios::app) << "| `" << program_invocation_short_name << "` | " << figure.asked
                                     << " | " << measured << " | " << beside << " | "
                                     << (alone ? "" : Text(ratio)) << " | " << goal << " |\n";
}

int RunBenchmarks(int argc, char** argv, void (*report)()) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  Reporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  report();
  return 0;
}

double ProcessorTime(const std::string& name) {
  const auto found = All().find(name);
  return found == All().end() ? 0 : found->second.time;
}

double Counter(const std::string& name, const std::string& counter) {
  const auto found = All().find(name);
  if (found == All().end()) return 0;
  const auto value = found->second.counters.find(counter);
  return value == found->second.counters.end() ? 0 : value->second;
}

}  // namespace goods
