#include "password_input.h"

#include <algorithm>
#include <csignal>
#include <iostream>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include "company/company.h"
#include "company/files/input_file.h"

namespace goods {

namespace {

constexpr std::size_t kLongestLine = 4096;

// The process's terminal, whatever the standard input and output are bound to.
class Terminal {
 public:
  Terminal() : handle_(open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY)) {}
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal() {
    if (handle_ >= 0) close(handle_);
  }
  bool IsThere() const { return handle_ >= 0; }

  void Say(const std::string& text) const {
    if (write(handle_, text.data(), text.size()) < 0) throw CompanyError("روی پایانه نوشته نشد.");
  }

  // A line that is typed unseen. Signals wait until the terminal shows what is typed again.
  std::string ReadUnseen() const {
    sigset_t interrupts;
    sigset_t before;
    sigemptyset(&interrupts);
    for (const int signal : {SIGINT, SIGTERM, SIGTSTP, SIGQUIT}) sigaddset(&interrupts, signal);
    sigprocmask(SIG_BLOCK, &interrupts, &before);
    termios shown{};
    const bool steerable = tcgetattr(handle_, &shown) == 0;
    termios hidden = shown;
    // Ctrl+C comes as a character while signals wait.
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
    if (steerable) tcsetattr(handle_, TCSAFLUSH, &hidden);
    std::string line;
    bool given = true;
    for (char c = 0; read(handle_, &c, 1) == 1 && c != '\n' && line.size() < kLongestLine;) {
      if (c == '\x03') {
        given = false;
        break;
      }
      line.push_back(c);
    }
    if (steerable) tcsetattr(handle_, TCSAFLUSH, &shown);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    Say("\n");
    if (!given) throw CompanyError("گذرواژه ای داده نشد.");
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
  }

 private:
  int handle_;
};

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
