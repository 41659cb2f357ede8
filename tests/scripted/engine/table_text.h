// Tables as lines of text, so that two of them can be compared and shown.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/core/color.h"
#include "tests/scripted/engine/case_file.h"

namespace goods {

// A cell as a case file writes it: in quotes where it would not be read back as it stands.
std::string CellAsWritten(const std::string& cell);
// "| a | b |"
std::string RowAsWritten(const std::vector<std::string>& cells);
// The same of a table's row; null is the empty text.
std::string RowAsWritten(const Table::Row& row);
// RRGGBB, empty for none.
std::string ColorText(const std::optional<Color>& color);

}  // namespace goods
