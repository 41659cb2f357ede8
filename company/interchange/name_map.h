// What files, columns and movement types are called in another system's files.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// A header, a file name or the name of a movement type as names are compared: as a Persian reader compares,
// and blanks, "_", "-" and what stands in parentheses do not count.
std::string FoldName(std::string_view name);

// Filled from a CSV file, whose columns are titled what, theirs (the foreign name) and ours (the name here):
//   what            theirs                    ours
//   file            the file or sheet         goods, movements, ...
//   movement type   their name or code        a name or code of docs/import.md
//   goods, ...      their header              the column
// and from "column=header" or "file.column=header".
class NameMap {
 public:
  // Throws CompanyError when the file cannot be read or has a line that means nothing.
  void ReadFile(const std::string& path);
  // Throws CompanyError when the text has no "=".
  void AddColumn(std::string_view assignment);
  // An empty theirs: the table has no such column, whatever its header says; there is no such file.
  void SetColumn(std::string_view table, std::string_view ours, std::string_view theirs);
  void SetFile(std::string_view table, std::string_view theirs);
  // The name or code of docs/import.md that stands for it.
  void SetMovementType(std::string_view theirs, std::string_view ours);

  // What the column of the table is called; none when nothing is told.
  std::optional<std::string> Header(std::string_view table, std::string_view column) const;
  std::optional<std::string> File(std::string_view table) const;
  // What a name in the files stands for.
  std::optional<std::string> MovementType(std::string_view theirs) const;

 private:
  // by table ("" for all) and column, both folded
  std::map<std::string, std::map<std::string, std::string>, std::less<>> headers_;
  std::map<std::string, std::string> files_;
  std::map<std::string, std::string> movementTypes_;
};

}  // namespace goods
