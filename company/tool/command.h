// The subcommands of goods-company: each file *_command.cpp declares its options and does its work.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "company/interchange/import_company.h"
#include "company/interchange/name_map.h"

namespace goods {

// Exit codes.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kDiffers = 3;    // check or verify found differences
inline constexpr int kStopped = 130;  // by Ctrl+C

struct Command {
  CLI::App* options = nullptr;  // owned by the program's own App
  std::function<int()> run;     // called once the line has been read; gives the exit code
};

Command MakeCreateCommand(CLI::App& program);
Command MakeImportCommand(CLI::App& program);
Command MakeAddCommand(CLI::App& program);
Command MakeExportCommand(CLI::App& program);
Command MakeCheckCommand(CLI::App& program);
Command MakeInfoCommand(CLI::App& program);
Command MakeBackupCommand(CLI::App& program);
Command MakeDeployCommand(CLI::App& program);
Command MakeVerifyCommand(CLI::App& program);
Command MakeUserCommand(CLI::App& program);

// What import and add tell of the files that they read.
struct FileOptions {
  std::string from;
  std::string map;
  std::vector<std::string> columns;
  std::string problems;
  bool unsignedQuantities = false;
  bool quiet = false;
};

void AddFileOptions(CLI::App& command, FileOptions& options);
// The names of the map and of the columns. Throws CompanyError.
NameMap ReadNames(const FileOptions& options);
// Runs body; the problems of a refusal are written to the file too that the options name.
int WithProblemsFile(const FileOptions& options, const std::function<int()>& body);
// Says the first user's password where it was made, and which users have none yet.
void PrintPasswords(const ImportCounts& counts);

}  // namespace goods
