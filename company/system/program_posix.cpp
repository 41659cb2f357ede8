#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>

#include <unistd.h>

#include "company/system/program.h"

namespace goods {

ProgramArguments::ProgramArguments(int argc, char** argv) : texts_(argv, argv + argc) { Point(); }

void PrepareTerminalOutput() { std::signal(SIGPIPE, SIG_IGN); }

bool InputIsTerminal() { return isatty(STDIN_FILENO) == 1; }

bool ErrorsAreTerminal() { return isatty(STDERR_FILENO) == 1; }

const std::vector<int>& StopSignals() {
  static const std::vector<int> signals{SIGINT, SIGTERM, SIGHUP};
  return signals;
}

std::string MakeTemporaryFolder(const std::string& beginning) {
  std::string folder = (std::filesystem::temp_directory_path() / (beginning + "XXXXXX")).string();
  if (mkdtemp(folder.data()) == nullptr) throw std::system_error(errno, std::generic_category(), folder);
  return folder;
}

}  // namespace goods
