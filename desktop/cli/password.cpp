#include <cstdlib>

#include "company/files/input_file.h"
#include "company/system/program.h"
#include "company/system/terminal.h"
#include "desktop/cli/command_line.h"

namespace goods {
namespace {

constexpr std::uint64_t kLongestPasswordFile = 4096;

}  // namespace

std::string AskPassword(const CommandLine& line) {
  if (!line.passwordFile.empty()) {
    const std::string text = ReadInputFile(line.passwordFile, kLongestPasswordFile);
    return text.substr(0, text.find_first_of("\r\n"));
  }
  if (const char* variable = std::getenv("GOODS_PASSWORD"); variable != nullptr) return variable;
  const Terminal terminal;
  if (!InputIsTerminal() || !terminal.IsThere()) {
    throw UsageError("گذرواژه داده نشده است: --password-file یا متغیر GOODS_PASSWORD");
  }
  terminal.Say("گذرواژه: ");
  return terminal.ReadUnseen();
}

}  // namespace goods
