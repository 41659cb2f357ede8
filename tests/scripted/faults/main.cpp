// goods-faults: the cases of case files once more for every statement, look-up and allocation of theirs,
// which fails. What a case expects is left out; it must end with its windows closed and the library let go,
// and a failure must have reached the user.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <iostream>
#include <iterator>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "host/core/text.h"
#include "tests/company/faults/failing_new.h"
#include "tests/scripted/engine/case_parser.h"
#include "tests/scripted/program/module_environment.h"

namespace goods {
namespace {

constexpr const char* kUsage =
    "usage: goods-faults [--allocations N] CASEFILE...\n"
    "N: how many allocations of each case fail in turn, spread evenly; all with 0.\n";
constexpr const char* kFault = "the fault of this run";

struct Totals {
  std::uint64_t runs = 0;
  std::uint64_t failures = 0;
};

enum class Fault { None, Statement, Lookup, Allocation };

struct Outcome {
  std::vector<std::string> failures;
  std::size_t statements = 0;
  std::size_t lookups = 0;
  int allocations = 0;
  bool told = false;  // the user saw the message of the fault
};

// What only looks is left out, and so is what makes another fault than the wanted one.
std::vector<Step> WhatIsDone(const std::vector<Step>& steps) {
  std::vector<Step> done;
  std::copy_if(steps.begin(), steps.end(), std::back_inserter(done), [](const Step& step) {
    const std::string& word = step.words.front().text;
    return word != "expect" && word != "remember" && word != "forget";
  });
  return done;
}

Outcome RunWith(const CaseEnvironment& environment, const CaseFile& file, const Case& one, Fault fault,
                std::size_t at) {
  Outcome outcome;
  CaseRun run(environment, file, one);
  run.GoOnWith([](CaseRun&) { return std::nullopt; });
  if (fault == Fault::Statement) run.Host().Connection().FailAt(at, kFault);
  if (fault == Fault::Lookup) run.Host().Lookups().FailAt(at, kFault);
  {
    const FailingNew memory(fault == Fault::Allocation ? static_cast<int>(at) : 0);
    try {
      outcome.failures = run.Run();
    } catch (const std::bad_alloc&) {
      // In the loop that stands for the screen, between two actions.
      environment.detach();
    }
    outcome.allocations = FailingNew::Calls();
  }
  outcome.statements = run.Host().Connection().SentCount();
  outcome.lookups = run.Host().Lookups().AskedCount();
  for (const HostCall& call : run.Host().Log.Calls()) {
    outcome.told =
        outcome.told || (call.kind == CallKind::Message && call.text.find(kFault) != std::string::npos);
  }
  if (!run.Host().Windows().OpenWindows().empty())
    outcome.failures.push_back(one.place.Text() + ": a window stays open");
  return outcome;
}

void Tell(Totals& totals, const Case& one, const std::string& fault, const Outcome& outcome,
          bool mustBeTold) {
  ++totals.runs;
  std::vector<std::string> problems = outcome.failures;
  // Memory may also run out in the step itself, which stands for the user.
  std::erase_if(problems, [](const std::string& problem) { return problem.ends_with("std::bad_alloc"); });
  if (mustBeTold && !outcome.told) problems.push_back(one.place.Text() + ": the user is not told");
  if (problems.empty()) return;
  ++totals.failures;
  std::cout << one.place.Text() << ": " << fault << "\n";
  for (const std::string& problem : problems) std::cout << "  " << problem << "\n";
}

void TryCase(const CaseEnvironment& environment, const CaseFile& file, Case one, int allocations,
             Totals& totals) {
  one.steps = WhatIsDone(one.steps);
  const Outcome sound = RunWith(environment, file, one, Fault::None, 0);
  Tell(totals, one, "without a fault", sound, false);
  for (std::size_t n = 1; n <= sound.statements; ++n) {
    Tell(totals, one, "statement " + std::to_string(n) + " fails",
         RunWith(environment, file, one, Fault::Statement, n), true);
  }
  for (std::size_t n = 1; n <= sound.lookups; ++n) {
    Tell(totals, one, "look-up " + std::to_string(n) + " fails",
         RunWith(environment, file, one, Fault::Lookup, n), true);
  }
  const int step = allocations == 0 ? 1 : std::max(1, sound.allocations / allocations);
  for (int n = 1 + one.number % step; n <= sound.allocations; n += step) {
    Tell(totals, one, "allocation " + std::to_string(n) + " fails",
         RunWith(environment, file, one, Fault::Allocation, static_cast<std::size_t>(n)), false);
  }
}

int Run(const std::vector<std::string>& files, int allocations) {
  const CaseEnvironment environment = ModuleEnvironment();
  Totals totals;
  for (const std::string& path : files) {
    CaseFile file = ReadCaseFile(path);
    file.setup = WhatIsDone(file.setup);
    for (const Case& one : file.cases) TryCase(environment, file, one, allocations, totals);
  }
  std::cout << totals.runs << " runs, " << totals.failures << " with a failure\n";
  return totals.failures == 0 ? 0 : 1;
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  std::vector<std::string> files(argv + 1, argv + argc);
  int allocations = 20;
  if (files.size() > 1 && files.front() == "--allocations") {
    const auto number = goods::ParseInteger(files[1]);
    if (!number || *number < 0 || *number > 1'000'000) files.clear();
    allocations = static_cast<int>(number.value_or(0));
    files.erase(files.begin(), files.begin() + std::min<std::ptrdiff_t>(2, std::ssize(files)));
  }
  if (files.empty()) {
    std::cerr << goods::kUsage;
    return 2;
  }
  try {
    return goods::Run(files, allocations);
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
}
