#include "password_input.h"

#include "company/company.h"
#include "company/system/password_input.h"

namespace goods {

std::string ReadPasswordFile(const std::string& path) {
  std::string password = PasswordFromFile(path);
  if (password.empty()) throw CompanyError("فایل گذرواژه خالی است: " + path);
  return password;
}

std::string NewPassword(const std::string& file, const std::string& login) {
  if (!file.empty()) return ReadPasswordFile(file);
  if (!CanAskPassword()) return {};
  std::string first = AskForPassword("New password of " + login + " (empty for a random one): ");
  if (first.empty()) return {};
  if (AskForPassword("The same again: ") != first) throw CompanyError("دو گذرواژه یکی نیستند.");
  return first;
}

}  // namespace goods
