// Cases that are told once and run for each row of a table.
#pragma once

#include <vector>

#include "tests/scripted/engine/case_file.h"

namespace goods {

// A case whose first step is "for each" becomes one case for each row of that step's table, where {Heading}
// in title, steps and blocks stands for the row's cell; other cases stay as they are. Throws CaseError for a
// table without rows, a heading that nothing uses, and a {name} that is no heading.
std::vector<Case> ExpandRows(const std::vector<Case>& cases);

}  // namespace goods
