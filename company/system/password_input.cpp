#include "company/system/password_input.h"

#include <cstdint>
#include <iostream>

#include "company/files/input_file.h"
#include "company/system/terminal.h"

namespace goods {
namespace {

constexpr std::uint64_t kLongestPasswordFile = 4096;  // bytes

}  // namespace

std::string PasswordFromFile(const std::string& path) {
  std::string text;
  if (path == "-") {
    std::getline(std::cin, text);
  } else {
    text = ReadInputFile(path, kLongestPasswordFile);
  }
  return text.substr(0, text.find_first_of("\r\n"));
}

bool CanAskPassword() { return Terminal().IsThere(); }

std::string AskForPassword(const std::string& prompt) {
  const Terminal terminal;
  if (!terminal.IsThere())
    throw TerminalError("پایانه ای نیست که گذرواژه در آن پرسیده شود؛ --password-file را بدهید.");
  terminal.Say(prompt);
  return terminal.ReadUnseen();
}

}  // namespace goods
