// The difference between the lines that were expected and those that came.
#pragma once

#include <string>
#include <vector>

namespace goods {

// One line each: " " before what is in both, "-" before what was expected only, "+" before what came only.
std::string DiffLines(const std::vector<std::string>& expected, const std::vector<std::string>& got);

}  // namespace goods
