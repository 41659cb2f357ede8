#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "command.h"
#include "company/company.h"
#include "company/files/file_path.h"
#include "company/interchange/import_company.h"
#include "company/server/deploy.h"
#include "company/system/program.h"
#include "company/writer/work_progress.h"
#include "password_input.h"
#include "progress_line.h"

namespace goods {

namespace {

namespace fs = std::filesystem;

struct Line {
  std::string server;
  std::string user;
  std::string passwordFile;
  std::string database;
  std::string from;
  std::vector<std::string> with;
};

void AddServerOptions(CLI::App& command, Line& line) {
  command
      .add_option("--server", line.server, "HOST[:PORT], or an ODBC connection string; see docs/server.md")
      ->required();
  command.add_option("--user", line.user, "The server's login");
  command.add_option("--password-file", line.passwordFile, "The first line is the login's password");
  command.add_option("--database", line.database, "The database's name")->required();
}

ServerAddress AddressOf(const Line& line) {
  ServerAddress address(line.server);
  if (!line.user.empty()) address.Set("UID", line.user);
  if (!line.passwordFile.empty()) {
    address.Set("PWD", ReadPasswordFile(line.passwordFile));
  }
  return address;
}

std::string TemporaryFolder() {
  try {
    return MakeTemporaryFolder("goods-deploy-");
  } catch (const std::exception&) {
    throw CompanyError("پوشه موقت ساخته نشد.");
  }
}

// A folder of files as a company file of its own that is gone at the end.
class ImportedFolder {
 public:
  explicit ImportedFolder(const std::string& from) {
    folder_ = PathOf(TemporaryFolder());
    try {
      ImportOptions options;
      options.watcher = MakeProgressLine(false);
      const ImportCounts counts = ImportCompany(File(), from, options);
      EndProgressLine();
      PrintPasswords(counts);
    } catch (...) {
      Remove();
      throw;
    }
  }
  ImportedFolder(const ImportedFolder&) = delete;
  ImportedFolder& operator=(const ImportedFolder&) = delete;
  ~ImportedFolder() { Remove(); }
  std::string File() const { return (folder_ / "company.goods").string(); }

 private:
  void Remove() const {
    std::error_code error;
    fs::remove_all(folder_, error);
  }
  fs::path folder_;
};

void Warn(const std::string& warning) {
  if (!warning.empty()) std::cerr << warning << "\n";
}

}  // namespace

Command MakeDeployCommand(CLI::App& program) {
  const auto line = std::make_shared<Line>();
  CLI::App* deploy = program.add_subcommand(
      "deploy", "Make, upgrade or fill a company's database on a server; see docs/server.md");
  AddServerOptions(*deploy, *line);
  deploy->add_option(
      "--from", line->from,
      "Fill the database from this company file, or from a folder that docs/import.md describes");
  deploy->add_option(
      "--with", line->with,
      "Make this too, for a large company: period_indexes; see docs/scale.md. May be given repeatedly");
  return {deploy, [line] {
            const ServerAddress address = AddressOf(*line);
            std::unique_ptr<ImportedFolder> imported;
            std::string from = line->from;
            if (fs::is_directory(PathOf(from))) {
              imported = std::make_unique<ImportedFolder>(from);
              from = imported->File();
            }
            bool stopped = false;
            const auto told = [&, watcher = MakeProgressLine(false)](const FillProgress& progress) {
              stopped = !watcher({progress.table, progress.rows, progress.total});
              return !stopped;
            };
            try {
              DeployCompany({address, line->database, from, line->with, told});
            } catch (const CompanyError&) {
              if (stopped) throw WorkStopped();
              throw;
            }
            EndProgressLine();
            Warn(CollationWarning(address, line->database));
            return kDone;
          }};
}

Command MakeVerifyCommand(CLI::App& program) {
  const auto line = std::make_shared<Line>();
  CLI::App* verify = program.add_subcommand(
      "verify",
      "Compare a company's database with what deploy installs, and its stored figures with the movements");
  AddServerOptions(*verify, *line);
  return {verify, [line] {
            const ServerAddress address = AddressOf(*line);
            Warn(CollationWarning(address, line->database));
            const std::vector<std::string> differences = VerifyCompany(address, line->database);
            for (const std::string& difference : differences) std::cout << difference << "\n";
            return differences.empty() ? kDone : kDiffers;
          }};
}

}  // namespace goods
