// StatementLog: one line for each statement that reached the database.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "company/files/appended_file.h"

namespace goods {

// A line is three fields with tabs between: milliseconds with three decimals; "rows N", "done", "cancelled"
// or "error: message"; the statement text. Line breaks, tabs and backslashes inside a field are written as
// \n, \r, \t and \\, so that a line is always one statement and the text can be had back byte for byte.
class StatementLog {
 public:
  // Appends to the file at path. Throws FileError, with a Persian message, when it cannot be written, is a
  // database, or is one of the forbidden files.
  explicit StatementLog(const std::string& path, const std::vector<std::string>& forbidden = {});

  // Throws FileError when the log is one of these files, under whatever name.
  void Forbid(const std::vector<std::string>& files) const { file_.Forbid(files); }

  // Does not throw: a statement does not fail because its line cannot be written. The line is then left out
  // whole, and OnFailure is told of the first such line.
  void Write(std::string_view statement, double milliseconds, std::string_view outcome) noexcept;
  std::function<void(const std::exception&)> OnFailure;

 private:
  AppendedFile file_;
  bool told_ = false;
};

}  // namespace goods
