// Runs whole case files.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "tests/scripted/engine/case_run.h"

namespace goods {

struct CaseCounts {
  int passed = 0;
  int failed = 0;
};

// Runs the cases of a file, each on a host of its own, and writes a line for each one that fails, with what
// went wrong. With only, just the case of that number. A file that cannot be read counts as one failure.
CaseCounts RunCaseFile(const CaseEnvironment& environment, const std::string& path, std::optional<int> only,
                       std::ostream& out);
CaseCounts RunCases(const CaseEnvironment& environment, const CaseFile& file, std::optional<int> only,
                    std::ostream& out);

}  // namespace goods
