// The terminal of the process, whatever its standard input and output are bound to: for POSIX in
// terminal_posix.cpp, for Windows in terminal_win32.cpp.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace goods {

// A Persian sentence for the user.
class TerminalError : public std::runtime_error {
 public:
  explicit TerminalError(const std::string& sentence) : std::runtime_error(sentence) {}
  ~TerminalError() override;
};

class Terminal {
 public:
  Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal();
  bool IsThere() const;
  // text: UTF-8. Throws TerminalError.
  void Say(const std::string& text) const;
  // A line that is typed unseen, as UTF-8 without its end; what asks the program to stop waits until the
  // terminal shows again what is typed. Throws TerminalError when the user gives up with Ctrl+C.
  std::string ReadUnseen() const;

 private:
  static constexpr std::size_t kLongestLine = 4096;  // bytes

  std::intptr_t input_;
  std::intptr_t output_;
};

}  // namespace goods
