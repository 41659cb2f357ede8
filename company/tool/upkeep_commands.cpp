#include <iostream>

#include "command.h"
#include "company/upkeep/check_company.h"
#include "company/upkeep/company_backup.h"
#include "company/upkeep/company_info.h"
#include "progress_line.h"

namespace goods {

Command MakeCheckCommand(CLI::App& program) {
  struct Line {
    std::string file;
    bool quiet = false;
  };
  const auto line = std::make_shared<Line>();
  CLI::App* check = program.add_subcommand(
      "check",
      "Check structure, references, averages and stored figures; ends with 0, 1 (error) or 3 (differences)");
  check->add_option("FILE", line->file, "The company file")->required();
  check->add_flag("--quiet", line->quiet, "Show no progress");
  return {check, [line] {
            CheckOptions options;
            options.watcher = MakeProgressLine(line->quiet);
            options.difference = [](const std::string& text) {
              EndProgressLine();
              std::cout << text << "\n";
            };
            const std::int64_t differences = CheckCompany(line->file, options);
            EndProgressLine();
            if (differences == 0) {
              std::cout << "شرکت درست است.\n";
              return kDone;
            }
            std::cout << differences << " نادرستی\n";
            return kDiffers;
          }};
}

Command MakeInfoCommand(CLI::App& program) {
  const auto file = std::make_shared<std::string>();
  CLI::App* info = program.add_subcommand("info", "Show title, sizes, dates, schema and users of a company");
  info->add_option("FILE", *file, "The company file")->required();
  return {info, [file] {
            std::cout << CompanyInfoText(ReadCompanyInfo(*file));
            return kDone;
          }};
}

Command MakeBackupCommand(CLI::App& program) {
  struct Line {
    std::string file;
    std::string to;
    bool force = false;
    bool quiet = false;
  };
  const auto line = std::make_shared<Line>();
  CLI::App* backup =
      program.add_subcommand("backup", "Copy a company, also while others work with it, and check the copy");
  backup->add_option("FILE", line->file, "The company file")->required();
  backup->add_option("TO", line->to, "The copy")->required();
  backup->add_flag("--force", line->force, "Replace an existing file");
  backup->add_flag("--quiet", line->quiet, "Show no progress");
  return {backup, [line] {
            BackupOptions options;
            options.replace = line->force;
            options.watcher = MakeProgressLine(line->quiet);
            BackUpCompany(line->file, line->to, options);
            EndProgressLine();
            std::cout << line->to << "\n";
            return kDone;
          }};
}

}  // namespace goods
