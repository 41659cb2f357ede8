#include <iostream>

#include "command.h"
#include "company/interchange/export_company.h"
#include "progress_line.h"

namespace goods {

Command MakeExportCommand(CLI::App& program) {
  struct Line {
    std::string file;
    std::string folder;
    bool force = false;
    bool hashes = false;
    bool quiet = false;
  };
  const auto line = std::make_shared<Line>();
  CLI::App* command =
      program.add_subcommand("export", "Write a company as a folder of CSV files; see docs/import.md");
  command->add_option("FILE", line->file, "The company file")->required();
  command->add_option("--to", line->folder, "The folder, made where it is missing")->required();
  command->add_flag("--force", line->force, "Replace files that are there");
  command->add_flag("--password-hashes", line->hashes, "Write the hashes of the users' passwords too");
  command->add_flag("--quiet", line->quiet, "Show no progress");
  return {command, [line] {
            ExportOptions options;
            options.replace = line->force;
            options.passwordHashes = line->hashes;
            options.watcher = MakeProgressLine(line->quiet);
            const ExportCounts counts = ExportCompany(line->file, line->folder, options);
            EndProgressLine();
            std::cout << counts.goods << " goods, " << counts.movements << " movements\n";
            if (counts.unattachedDetails > 0) {
              std::cerr << counts.unattachedDetails << " سطر جزییات گردشی نداشت و نوشته نشد.\n";
            }
            return kDone;
          }};
}

}  // namespace goods
