// Passwords for programs: from a file, or typed without being shown. Never from the command line, where other
// users of the computer could read them.
#pragma once

#include <string>

namespace goods {

// The first line of the file, or of the standard input for "-"; empty where that is. Throws FileError when
// the file cannot be read.
std::string PasswordFromFile(const std::string& path);

// Whether somebody can be asked: the terminal of this process is there.
bool CanAskPassword();

// Asks at the terminal, which shows nothing of what is typed, not even after Ctrl+C. Throws TerminalError
// when there is no terminal, or the user gives up.
std::string AskForPassword(const std::string& prompt);

}  // namespace goods
