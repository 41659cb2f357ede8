// Passwords for the commands: from a file, or typed without being shown. Never from the command line, where
// other users of the computer could read them.
#pragma once

#include <string>

namespace goods {

// The first line of the file, or of the standard input for "-". Throws CompanyError when it is empty,
// FileError when the file cannot be read.
std::string ReadPasswordFile(const std::string& path);

// Whether somebody can be asked: the terminal of this process is there.
bool CanAskPassword();

// Asks at the terminal, which shows nothing of what is typed, not even after Ctrl+C. Throws CompanyError when
// there is no terminal.
std::string AskPassword(const std::string& prompt);

// A new password: of the file where one is given, else asked for twice. Empty when nothing was typed, or when
// nobody can be asked.
std::string NewPassword(const std::string& file, const std::string& login);

}  // namespace goods
