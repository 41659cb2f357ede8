// The name that a report's file is proposed under.
#pragma once

#include <string>
#include <string_view>

namespace goods {

// "کاردکس کالا 1403-05-12.pdf": the title without what some system does not take in a name (separators,
// wildcards, quotes, control and direction marks, blanks and points at the ends, the names of devices), at
// most 80 characters of it; then the day, a Jalali text, and the ending, given without its point.
std::string ProposedFileName(std::string_view title, std::string_view today, std::string_view ending);

}  // namespace goods
