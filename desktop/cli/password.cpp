#include <cstdlib>

#include "company/system/password_input.h"
#include "company/system/program.h"
#include "desktop/cli/command_line.h"

namespace goods {

std::string AskPassword(const CommandLine& line) {
  if (!line.passwordFile.empty()) return PasswordFromFile(line.passwordFile);
  if (const char* variable = std::getenv("GOODS_PASSWORD"); variable != nullptr) return variable;
  if (!InputIsTerminal() || !CanAskPassword()) {
    throw UsageError("گذرواژه داده نشده است: --password-file یا متغیر GOODS_PASSWORD");
  }
  return AskForPassword("گذرواژه: ");
}

}  // namespace goods
