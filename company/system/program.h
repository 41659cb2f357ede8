// What a program of the terminal asks of the system beside files: for POSIX in program_posix.cpp, for Windows
// in program_win32.cpp.
#pragma once

#include <string>
#include <vector>

namespace goods {

// The words of the command line as UTF-8, whatever the system handed to main. Values ends with a null
// pointer; it lives as long as the object.
class ProgramArguments {
 public:
  ProgramArguments(int argc, char** argv);
  ProgramArguments(const ProgramArguments&) = delete;
  ProgramArguments& operator=(const ProgramArguments&) = delete;
  int Count() const { return static_cast<int>(texts_.size()); }
  char** Values() { return values_.data(); }

 private:
  void Point();

  std::vector<std::string> texts_;
  std::vector<char*> values_;
};

// First of all: output is UTF-8, and when whoever reads it has gone, writing fails and the work goes on.
void PrepareTerminalOutput();

// Whether somebody types there, and looks there.
bool InputIsTerminal();
bool ErrorsAreTerminal();

// The signals by which a user asks long work to stop.
const std::vector<int>& StopSignals();

// Makes an empty folder of the user's own among the system's temporary ones, whose name begins so. Throws
// std::system_error.
std::string MakeTemporaryFolder(const std::string& beginning);

}  // namespace goods
