// A real company behind the scripted host.
#pragma once

#include <string>

#include "tests/scripted/engine/case_run.h"

namespace goods {

// Makes each case's host send its statements to the company, on a connection of its own, and look up there
// what the case does not give. Canned rows are not used then. Throws std::runtime_error when the company
// cannot be opened, or when companies are not built in.
void AnswerFromCompany(CaseEnvironment& environment, const std::string& path);

}  // namespace goods
