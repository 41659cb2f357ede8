// The subcommands of goods-company: each file *_command.cpp declares its options and does its work.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace goods {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kDifferences = 3;

struct Command {
  CLI::App* options = nullptr;  // owned by the program's own App
  std::function<int()> run;     // called once the line has been read; gives the exit code
};

Command MakeCreateCommand(CLI::App& program);
Command MakeImportCommand(CLI::App& program);
Command MakeDeployCommand(CLI::App& program);
Command MakeVerifyCommand(CLI::App& program);

}  // namespace goods
