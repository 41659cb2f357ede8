// The report module as cases run on it.
#pragma once

#include "tests/scripted/engine/case_run.h"

namespace goods {

// Its exported functions, through the built library, and its windows, by class name.
CaseEnvironment ModuleEnvironment();

}  // namespace goods
