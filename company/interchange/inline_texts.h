// Workbooks whose texts stand in their cells.
#pragma once

#include <string>

namespace goods {

// An XLSX as the library that reads it understands it: it passes over texts that stand in their cells
// ("inlineStr"), as programs write them that stream their rows, and takes those that a formula resulted in.
// So each of the former becomes one of the latter. Other workbooks, and what is none, come back as they are.
// Throws CompanyError for a sheet of more than 2 GB.
std::string WithReadableTexts(std::string archive);

}  // namespace goods
