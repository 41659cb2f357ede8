// goods-random-user: a user at random on the scripted host, over a company. Each case is written down while
// it runs, so that one which fails, or takes the program down, can be run again and made smaller.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include "host/core/text.h"
#include "tests/scripted/engine/case_parser.h"
#include "tests/scripted/program/company_host.h"
#include "tests/scripted/program/module_environment.h"
#include "tests/scripted/random_user/random_steps.h"
#include "tests/scripted/random_user/statement_shape.h"

namespace goods {
namespace {

constexpr const char* kUsage =
    "usage: goods-random-user --company FILE [--seed N] [--actions N] [--steps N] [--out FILE.case]\n"
    "       goods-random-user --company FILE --shrink FILE.case\n"
    "Takes about that many actions, in cases of so many steps; what fails stays in FILE.case "
    "(random-user.case).\n"
    "--shrink leaves out of it what it fails without.\n";

struct Options {
  std::string company;
  std::string out = "random-user.case";
  std::string shrink;
  std::uint64_t seed = 1;
  std::uint64_t actions = 10'000;
  std::uint64_t steps = 120;
};

std::optional<Options> ReadOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i + 1 < arguments.size(); i += 2) {
    const std::string& name = arguments[i];
    const std::string& value = arguments[i + 1];
    const auto number = ParseInteger(value);
    if (name == "--company") {
      options.company = value;
    } else if (name == "--out") {
      options.out = value;
    } else if (name == "--shrink") {
      options.shrink = value;
    } else if (number && *number > 0 && name == "--seed") {
      options.seed = static_cast<std::uint64_t>(*number);
    } else if (number && *number > 0 && name == "--actions") {
      options.actions = static_cast<std::uint64_t>(*number);
    } else if (number && *number > 0 && name == "--steps") {
      options.steps = static_cast<std::uint64_t>(*number);
    } else {
      return std::nullopt;
    }
  }
  if (arguments.size() % 2 != 0 || options.company.empty()) return std::nullopt;
  return options;
}

// What must hold after every step, whatever was done; reads what came into the log since the last look.
class Watch {
 public:
  void Look(CaseRun& run, const Place& place) {
    const auto& calls = run.Host().Log.Calls();
    for (; seen_ < calls.size(); ++seen_) {
      const HostCall& call = calls[seen_];
      if (call.kind == CallKind::Misuse &&
          call.text.find("nothing says what is chosen") == std::string::npos) {
        run.Fail(place, "misuse of the host: " + call.text);
      }
      if (call.kind == CallKind::Window) ++Windows;
      if (call.kind != CallKind::Statement) continue;
      ++Statements;
      const std::string problem = ProblemOfStatement(call.plain);
      if (!problem.empty()) run.Fail(place, problem + ": " + call.plain);
    }
  }

  std::uint64_t Statements = 0;
  std::uint64_t Windows = 0;
  // A new case has a log of its own.
  void Restart() { seen_ = 0; }

 private:
  std::size_t seen_ = 0;
};

Case EmptyCase(std::uint64_t seed) {
  Case one;
  one.number = 1;
  one.title = "Random user " + std::to_string(seed) + ".";
  return one;
}

// One case of random steps; its text goes to out before each step is taken. The failures.
std::vector<std::string> RunRandomCase(const CaseEnvironment& environment, std::uint64_t seed,
                                       std::uint64_t steps, const std::string& out, Watch& watch) {
  CaseFile file;
  file.path = out;
  file.cases.push_back(EmptyCase(seed));
  std::ofstream written(out, std::ios::trunc);
  written << "1. " << file.cases.front().title << "\n" << std::flush;
  RandomSteps random(seed);
  watch.Restart();
  std::uint64_t taken = 0;
  std::size_t failed = 0;
  CaseRun run(environment, file, file.cases.front());
  run.GoOnWith([&](CaseRun& each) -> std::optional<Step> {
    const Place place{out, static_cast<std::size_t>(taken) + 1};
    watch.Look(each, place);
    if (taken++ == steps || each.Failed() != failed) return std::nullopt;
    const std::string text = random.Next(each);
    written << "  " << text << "\n" << std::flush;
    return Step{{out, static_cast<std::size_t>(taken) + 1}, ReadWords(place, text), {}};
  });
  std::vector<std::string> failures = run.Run();
  written << "  forget calls\n  expect no window\n";
  return failures;
}

// Whether the steps of a case still fail, tried in a program of their own: they may take it down.
bool StillFails(const Options& options, const CaseFile& file, const std::vector<Step>& steps) {
  const pid_t child = fork();
  if (child == 0) {
    int result = 0;
    try {
      if (std::freopen("/dev/null", "w", stderr) == nullptr) _exit(0);
      CaseEnvironment environment = ModuleEnvironment();
      AnswerFromCompany(environment, options.company);
      Case one = EmptyCase(0);
      one.steps = steps;
      Watch watch;
      CaseRun run(environment, file, one);
      run.GoOnWith([&](CaseRun& each) -> std::optional<Step> {
        watch.Look(each, one.place);
        return std::nullopt;
      });
      result = run.Run().empty() ? 0 : 1;
    } catch (const std::exception&) {
      result = 1;
    }
    _exit(result);
  }
  int status = 0;
  return waitpid(child, &status, 0) == child && status != 0;
}

// Leaves out halves, quarters, ... as long as what is left fails as well.
int Shrink(const Options& options) {
  const CaseFile file = ReadCaseFile(options.shrink);
  std::vector<Step> steps = file.cases.at(0).steps;
  if (!StillFails(options, file, steps)) {
    std::cout << options.shrink << " does not fail\n";
    return 1;
  }
  for (std::size_t size = steps.size() / 2; size > 0; size /= 2) {
    for (std::size_t from = 0; from < steps.size();) {
      std::vector<Step> fewer = steps;
      const std::size_t to = std::min(from + size, fewer.size());
      fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(from),
                  fewer.begin() + static_cast<std::ptrdiff_t>(to));
      if (!fewer.empty() && StillFails(options, file, fewer)) {
        steps = std::move(fewer);
      } else {
        from = to;
      }
    }
  }
  std::ofstream out(options.shrink, std::ios::trunc);
  out << "1. " << file.cases.front().title << "\n";
  for (const Step& step : steps) {
    out << " ";
    for (const Word& word : step.words) out << " " << (word.quoted ? InQuotes(word.text) : word.text);
    out << "\n";
  }
  std::cout << steps.size() << " steps are left\n";
  return 0;
}

int Wander(const Options& options) {
  CaseEnvironment environment = ModuleEnvironment();
  AnswerFromCompany(environment, options.company);
  std::uint64_t seed = options.seed;
  Watch watch;
  for (std::uint64_t done = 0; done < options.actions; done += options.steps, ++seed) {
    const std::vector<std::string> failures =
        RunRandomCase(environment, seed, options.steps, options.out, watch);
    if (failures.empty()) continue;
    std::cout << "seed " << seed << ", " << options.out << ":\n";
    for (const std::string& failure : failures) std::cout << failure << "\n";
    return 1;
  }
  std::cout << seed - options.seed << " cases, " << (seed - options.seed) * options.steps << " actions, "
            << watch.Windows << " windows, " << watch.Statements << " statements: no fault\n";
  return 0;
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  const auto options = goods::ReadOptions({argv + 1, argv + argc});
  if (!options) {
    std::cerr << goods::kUsage;
    return 2;
  }
  try {
    return options->shrink.empty() ? goods::Wander(*options) : goods::Shrink(*options);
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
}
