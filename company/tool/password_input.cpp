#include "password_input.h"

#include <algorithm>
#include <iostream>

#include "company/company.h"
#include "company/files/input_file.h"
#include "company/system/terminal.h"

namespace goods {

namespace {

constexpr std::size_t kLongestLine = 4096;

}  // namespace

std::string ReadPasswordFile(const std::string& path) {
  std::string text;
  if (path == "-") {
    std::getline(std::cin, text);
  } else {
    text = ReadInputFile(path, kLongestLine);
  }
  text.resize(std::min(text.find_first_of("\r\n"), text.size()));
  if (text.empty()) throw CompanyError("فایل گذرواژه خالی است: " + path);
  return text;
}

bool CanAskPassword() { return Terminal().IsThere(); }

std::string AskPassword(const std::string& prompt) {
  const Terminal terminal;
  if (!terminal.IsThere())
    throw CompanyError("پایانه ای نیست که گذرواژه در آن پرسیده شود؛ --password-file را بدهید.");
  terminal.Say(prompt);
  return terminal.ReadUnseen();
}

std::string NewPassword(const std::string& file, const std::string& login) {
  if (!file.empty()) return ReadPasswordFile(file);
  if (!CanAskPassword()) return {};
  const std::string first = AskPassword("New password of " + login + " (empty for a random one): ");
  if (first.empty()) return {};
  if (AskPassword("The same again: ") != first) throw CompanyError("دو گذرواژه یکی نیستند.");
  return first;
}

}  // namespace goods
