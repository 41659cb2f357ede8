#include "tests/scripted/engine/case_runner.h"

#include <ostream>

#include "tests/scripted/engine/case_parser.h"

namespace goods {

CaseCounts RunCases(const CaseEnvironment& environment, const CaseFile& file, std::optional<int> only,
                    std::ostream& out) {
  CaseCounts counts;
  for (const Case& one : file.cases) {
    if (only && one.number != *only) continue;
    const std::vector<std::string> failures = CaseRun(environment, file, one).Run();
    if (failures.empty()) {
      ++counts.passed;
      continue;
    }
    ++counts.failed;
    out << one.place.Text() << ": FAILED " << one.number << ". " << one.title << "\n";
    for (const std::string& failure : failures) out << failure << "\n";
  }
  if (only && counts.passed + counts.failed == 0) {
    out << file.path << ":1: no case has the number " << *only << "\n";
    ++counts.failed;
  }
  return counts;
}

CaseCounts RunCaseFile(const CaseEnvironment& environment, const std::string& path, std::optional<int> only,
                       std::ostream& out) {
  try {
    return RunCases(environment, ReadCaseFile(path), only, out);
  } catch (const CaseError& error) {
    out << error.what() << "\n";
    return {0, 1};
  }
}

}  // namespace goods
