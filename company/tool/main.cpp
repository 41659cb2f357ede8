// goods-company: makes, fills, checks and copies company files.
#include <exception>
#include <iostream>
#include <vector>

#include "command.h"
#include "company/system/program.h"
#include "company/writer/work_progress.h"
#include "progress_line.h"

// Only a mistake in the options' own declarations is thrown out of it.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  goods::PrepareTerminalOutput();
  goods::ProgramArguments arguments(argc, argv);
  CLI::App program("Makes, fills, checks and copies company files for the goods reports.");
  program.allow_windows_style_options(false);  // "/..." is a path on every system
  program.require_subcommand(1);
  program.footer(
      "Ends with 0, with 1 after an error, with 3 when check or verify finds differences, with 130 when "
      "stopped.");
  const std::vector<goods::Command> commands = {
      goods::MakeCreateCommand(program), goods::MakeImportCommand(program), goods::MakeAddCommand(program),
      goods::MakeExportCommand(program), goods::MakeCheckCommand(program),  goods::MakeInfoCommand(program),
      goods::MakeBackupCommand(program), goods::MakeUserCommand(program),   goods::MakeDeployCommand(program),
      goods::MakeVerifyCommand(program)};
  CLI11_PARSE(program, arguments.Count(), arguments.Values());
  try {
    for (const goods::Command& command : commands) {
      if (command.options->parsed()) return command.run();
    }
    return goods::kFailed;
  } catch (const goods::WorkStopped& stopped) {
    goods::EndProgressLine();
    std::cerr << stopped.what() << "\n";
    return goods::kStopped;
  } catch (const std::exception& error) {
    goods::EndProgressLine();
    std::cerr << error.what() << "\n";
    return goods::kFailed;
  }
}
