#include <cstdlib>
#include <iostream>

#include <termios.h>
#include <unistd.h>

#include "company/files/input_file.h"
#include "desktop/cli/command_line.h"

namespace goods {
namespace {

constexpr std::uint64_t kLongestPasswordFile = 4096;

// What is typed is not shown while this lives.
class EchoOff {
 public:
  EchoOff() {
    tcgetattr(STDIN_FILENO, &before_);
    termios quiet = before_;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
  }
  EchoOff(const EchoOff&) = delete;
  EchoOff& operator=(const EchoOff&) = delete;
  ~EchoOff() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_); }

 private:
  termios before_{};
};

}  // namespace

std::string AskPassword(const CommandLine& line) {
  if (!line.passwordFile.empty()) {
    const std::string text = ReadInputFile(line.passwordFile, kLongestPasswordFile);
    return text.substr(0, text.find_first_of("\r\n"));
  }
  if (const char* variable = std::getenv("GOODS_PASSWORD"); variable != nullptr) return variable;
  if (isatty(STDIN_FILENO) == 0) {
    throw UsageError("گذرواژه داده نشده است: --password-file یا متغیر GOODS_PASSWORD");
  }
  std::cerr << "گذرواژه: " << std::flush;
  std::string password;
  {
    const EchoOff quiet;
    std::getline(std::cin, password);
  }
  std::cerr << std::endl;
  return password;
}

}  // namespace goods
