// Reads case files.
#pragma once

#include <string>
#include <string_view>

#include "tests/scripted/engine/case_file.h"

namespace goods {

// Throws CaseError: a file that is not there, a line that is no step, a case without an expectation, numbers
// that do not rise.
CaseFile ReadCaseFile(const std::string& path);
// The same for a text; includes are looked for beside path.
CaseFile ParseCases(std::string_view text, const std::string& path);

}  // namespace goods
