#include <chrono>
#include <csignal>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include "command.h"
#include "company/company.h"
#include "company/server/deploy.h"

namespace goods {

namespace {

struct Line {
  std::string server;
  std::string user;
  std::string passwordFile;
  std::string database;
  std::string from;
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
    std::ifstream file(line.passwordFile);
    std::string password;
    if (!std::getline(file, password)) throw CompanyError("پرونده گذرواژه خوانده نشد: " + line.passwordFile);
    if (!password.empty() && password.back() == '\r') password.pop_back();
    address.Set("PWD", password);
  }
  return address;
}

volatile std::sig_atomic_t stopped = 0;

// A line every few seconds; Ctrl+C stops, and the database stays as it was.
class ToldLines {
 public:
  ToldLines() {
    std::signal(SIGINT, [](int) { stopped = 1; });
  }
  ToldLines(const ToldLines&) = delete;
  ToldLines& operator=(const ToldLines&) = delete;
  ~ToldLines() { std::signal(SIGINT, SIG_DFL); }
  bool Tell(std::string_view table, std::int64_t rows) {
    const auto now = std::chrono::steady_clock::now();
    if (now - last_ >= std::chrono::seconds(3)) {
      std::cerr << table << ": " << rows << " rows\n";
      last_ = now;
    }
    return stopped == 0;
  }

 private:
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

}  // namespace

Command MakeDeployCommand(CLI::App& program) {
  const auto line = std::make_shared<Line>();
  CLI::App* deploy = program.add_subcommand(
      "deploy", "Make, upgrade or fill a company's database on a server; see docs/server.md");
  AddServerOptions(*deploy, *line);
  deploy->add_option("--from", line->from, "Fill the database from this company file");
  return {
      deploy, [line] {
        ToldLines lines;
        DeployCompany({AddressOf(*line), line->database, line->from,
                       [&](std::string_view table, std::int64_t rows) { return lines.Tell(table, rows); }});
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
            const std::vector<std::string> differences = VerifyCompany(AddressOf(*line), line->database);
            for (const std::string& difference : differences) std::cout << difference << "\n";
            return differences.empty() ? kDone : kDiffers;
          }};
}

}  // namespace goods
