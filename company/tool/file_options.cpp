#include "command.h"
#include "company/company.h"
#include "company/interchange/problems.h"
#include "progress_line.h"

namespace goods {

void AddFileOptions(CLI::App& command, FileOptions& options) {
  command.add_option("--from", options.from, "A folder of CSV, XLSX and ODS files, or a workbook")
      ->required();
  command.add_option("--map", options.map,
                     "A CSV file with the columns what,theirs,ours: names of files, columns, movement types");
  command.add_option("--columns", options.columns,
                     "column=header or file.column=header; may be given repeatedly");
  command.add_flag("--unsigned", options.unsignedQuantities,
                   "Quantities have no sign; the movement type tells what goes out");
  command.add_option("--problems", options.problems, "Write the list of problems to this CSV file too");
  command.add_flag("--quiet", options.quiet, "Show no progress");
}

NameMap ReadNames(const FileOptions& options) {
  NameMap names;
  if (!options.map.empty()) names.ReadFile(options.map);
  for (const std::string& column : options.columns) names.AddColumn(column);
  return names;
}

int WithProblemsFile(const FileOptions& options, const std::function<int()>& body) {
  try {
    return body();
  } catch (const ImportRefused& refused) {
    EndProgressLine();
    if (!options.problems.empty()) WriteProblems(options.problems, refused);
    throw;
  }
}

}  // namespace goods
