// goods-company: makes company files.
#include <exception>
#include <iostream>
#include <vector>

#include "command.h"

int main(int argc, char** argv) {
  CLI::App program("Makes company files for the goods reports.");
  program.require_subcommand(1);
  const std::vector<goods::Command> commands = {
      goods::MakeCreateCommand(program), goods::MakeImportCommand(program), goods::MakeDeployCommand(program),
      goods::MakeVerifyCommand(program)};
  CLI11_PARSE(program, argc, argv);
  try {
    for (const goods::Command& command : commands) {
      if (command.options->parsed()) return command.run();
    }
    return goods::kFailed;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return goods::kFailed;
  }
}
