// StatementLog: one line for each statement that reached the database.
#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

namespace goods {

// A line is three fields with tabs between: milliseconds with three decimals; "rows N", "done", "cancelled"
// or "error: message"; the statement text. Line breaks, tabs and backslashes inside a field are written as
// \n, \r, \t and \\, so that a line is always one statement and the text can be had back byte for byte.
class StatementLog {
 public:
  // Appends to the file at path. Throws std::runtime_error, with a Persian message, when it cannot be
  // written.
  explicit StatementLog(const std::string& path);

  void Write(std::string_view statement, double milliseconds, std::string_view outcome);

 private:
  std::ofstream file_;
};

}  // namespace goods
