// Passwords for the commands that set one.
#pragma once

#include <string>

namespace goods {

// The first line of the file, or of the standard input for "-". Throws CompanyError when it is empty,
// FileError when the file cannot be read.
std::string ReadPasswordFile(const std::string& path);

// A new password: of the file where one is given, else asked for twice. Empty when nothing was typed, or when
// nobody can be asked.
std::string NewPassword(const std::string& file, const std::string& login);

}  // namespace goods
