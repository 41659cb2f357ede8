#include "tests/scripted/engine/table_text.h"

#include <array>
#include <cstdio>

#include "tests/scripted/call_log.h"

namespace goods {

std::string CellAsWritten(const std::string& cell) {
  const bool plain = cell != "null" && !cell.starts_with(' ') && !cell.ends_with(' ') &&
                     cell.find_first_of("|\"\\\r\n\t") == std::string::npos;
  return plain ? cell : InQuotes(cell);
}

std::string RowAsWritten(const std::vector<std::string>& cells) {
  std::string line = "|";
  for (const std::string& cell : cells) line += " " + CellAsWritten(cell) + " |";
  return line;
}

std::string RowAsWritten(const Table::Row& row) {
  std::vector<std::string> cells;
  for (const auto& cell : row) cells.push_back(cell.value_or(""));
  return RowAsWritten(cells);
}

std::string ColorText(const std::optional<Color>& color) {
  if (!color) return {};
  std::array<char, 9> text{};
  std::snprintf(text.data(), text.size(), "%06X", *color);
  return text.data();
}

}  // namespace goods
