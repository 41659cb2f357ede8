#include <iostream>

#include "command.h"
#include "company/interchange/import_company.h"
#include "password_input.h"
#include "progress_line.h"

namespace goods {

namespace {

void PrintCounts(const ImportCounts& counts) {
  std::cout << counts.goods << " goods, " << counts.stores << " stores, " << counts.persons << " persons, "
            << counts.movements << " movements\n";
}

}  // namespace

void PrintPasswords(const ImportCounts& counts) {
  if (!counts.firstPassword.empty()) {
    std::cout << "گذرواژه کاربر " << counts.firstLogin << ": " << counts.firstPassword
              << "\nاین گذرواژه دوباره نشان داده نمی شود.\n";
  }
  if (counts.withoutPassword.empty()) return;
  std::cout << "این کاربران تا گذرواژه ای نگیرند وارد نمی شوند:";
  for (const std::string& login : counts.withoutPassword) std::cout << " " << login;
  std::cout << "\n";
}

Command MakeImportCommand(CLI::App& program) {
  struct Line {
    std::string file;
    std::string title;
    std::string passwordFile;
    bool force = false;
    FileOptions files;
  };
  const auto line = std::make_shared<Line>();
  CLI::App* import =
      program.add_subcommand("import", "Write a company from CSV, XLSX or ODS files; see docs/import.md");
  import->add_option("FILE", line->file, "The company file to write")->required();
  AddFileOptions(*import, line->files);
  import->add_option("--title", line->title, "The company's name; that of the files when not given");
  import->add_option(
      "--password-file", line->passwordFile,
      "The first line is the first user's password, - is the standard input; asked for when not given, and "
      "made at random when nothing is typed");
  import->add_flag("--force", line->force, "Replace an existing file");
  return {import, [line] {
            return WithProblemsFile(line->files, [&] {
              ImportOptions options;
              options.title = line->title;
              options.replace = line->force;
              options.names = ReadNames(line->files);
              options.unsignedQuantities = line->files.unsignedQuantities;
              options.firstPassword = NewPassword(line->passwordFile, "the first user");
              options.watcher = MakeProgressLine(line->files.quiet);
              const ImportCounts counts = ImportCompany(line->file, line->files.from, options);
              EndProgressLine();
              PrintCounts(counts);
              PrintPasswords(counts);
              return kDone;
            });
          }};
}

Command MakeAddCommand(CLI::App& program) {
  struct Line {
    std::string file;
    FileOptions files;
  };
  const auto line = std::make_shared<Line>();
  CLI::App* add = program.add_subcommand(
      "add", "Add movements and changed goods, stores, persons, ... to a company; all of them or nothing");
  add->add_option("FILE", line->file, "The company file")->required();
  AddFileOptions(*add, line->files);
  return {add, [line] {
            return WithProblemsFile(line->files, [&] {
              AddOptions options;
              options.names = ReadNames(line->files);
              options.unsignedQuantities = line->files.unsignedQuantities;
              options.watcher = MakeProgressLine(line->files.quiet);
              const ImportCounts counts = AddToCompany(line->file, line->files.from, options);
              EndProgressLine();
              PrintCounts(counts);
              return kDone;
            });
          }};
}

}  // namespace goods
