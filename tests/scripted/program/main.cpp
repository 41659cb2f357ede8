// goods-cases: runs case files on the scripted host.
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "company/system/program.h"
#include "host/core/text.h"
#include "tests/scripted/engine/case_runner.h"
#include "tests/scripted/engine/step_table.h"
#include "tests/scripted/program/company_host.h"
#include "tests/scripted/program/module_environment.h"

namespace {

constexpr const char* kUsage =
    "usage: goods-cases [--company FILE | --server ADDRESS] [--only NUMBER] CASEFILE...\n"
    "       goods-cases --grammar\n";

struct Options {
  std::vector<std::string> files;
  std::optional<std::string> company;
  std::optional<int> only;
  bool grammar = false;
};

std::optional<Options> ReadOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const bool hasNext = i + 1 < arguments.size();
    if (arguments[i] == "--grammar") {
      options.grammar = true;
    } else if (arguments[i] == "--company" && hasNext) {
      options.company = arguments[++i];
    } else if (arguments[i] == "--server" && hasNext) {
      options.company = "server:" + arguments[++i];
    } else if (arguments[i] == "--only" && hasNext) {
      const auto number = goods::ParseInteger(arguments[++i]);
      if (!number || *number < 1 || *number > 100'000) return std::nullopt;
      options.only = static_cast<int>(*number);
    } else if (arguments[i].starts_with("-")) {
      return std::nullopt;
    } else {
      options.files.push_back(arguments[i]);
    }
  }
  if (options.files.empty() && !options.grammar) return std::nullopt;
  return options;
}

int Run(const Options& options) {
  goods::CaseEnvironment environment = goods::ModuleEnvironment();
  if (options.company) goods::AnswerFromCompany(environment, *options.company);
  goods::CaseCounts total;
  for (const std::string& file : options.files) {
    const goods::CaseCounts counts = goods::RunCaseFile(environment, file, options.only, std::cout);
    total.passed += counts.passed;
    total.failed += counts.failed;
  }
  std::cout << total.passed << " passed, " << total.failed << " failed\n";
  return total.failed == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  goods::ProgramArguments arguments(argc, argv);
  const auto options = ReadOptions({arguments.Values() + 1, arguments.Values() + arguments.Count()});
  if (!options) {
    std::cerr << kUsage;
    return 2;
  }
  if (options->grammar) {
    for (const std::string& pattern : goods::AllSteps().Patterns()) std::cout << pattern << "\n";
    return 0;
  }
  try {
    return Run(*options);
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
}
