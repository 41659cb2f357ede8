#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <system_error>

#include <windows.h>
// behind it
#include <shellapi.h>

#include "company/files/file_path.h"
#include "company/system/program.h"

namespace goods {

namespace {

bool IsConsole(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

}  // namespace

// What main was handed is in the code page of the user, which has few of the letters that names are written
// with.
ProgramArguments::ProgramArguments(int argc, char** argv) {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  if (words == nullptr) {
    texts_.assign(argv, argv + argc);
  } else {
    for (int i = 0; i < count; ++i) {
      const int size = WideCharToMultiByte(CP_UTF8, 0, words[i], -1, nullptr, 0, nullptr, nullptr);
      std::string text(static_cast<std::size_t>(size > 0 ? size : 1), '\0');
      WideCharToMultiByte(CP_UTF8, 0, words[i], -1, text.data(), size, nullptr, nullptr);
      text.pop_back();  // the zero at its end
      texts_.push_back(std::move(text));
    }
    LocalFree(words);
  }
  Point();
}

void PrepareTerminalOutput() {
  SetConsoleOutputCP(CP_UTF8);
  // What rewrites a line of progress is written for terminals that understand it.
  const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  if (GetConsoleMode(errors, &mode) != 0) SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

bool InputIsTerminal() { return IsConsole(STD_INPUT_HANDLE); }

bool ErrorsAreTerminal() { return IsConsole(STD_ERROR_HANDLE); }

const std::vector<int>& StopSignals() {
  static const std::vector<int> signals{SIGINT, SIGTERM, SIGBREAK};
  return signals;
}

// The temporary folder is the user's own already.
std::string MakeTemporaryFolder(const std::string& beginning) {
  namespace fs = std::filesystem;
  constexpr int kTries = 100;
  std::random_device device;
  std::error_code error = std::make_error_code(std::errc::file_exists);
  for (int tries = 0; tries < kTries; ++tries) {
    const fs::path folder = fs::temp_directory_path() / PathOf(beginning + std::to_string(device()));
    if (fs::create_directory(folder, error)) return folder.string();
    if (error) break;
  }
  throw std::system_error(error, beginning);
}

}  // namespace goods
