#include <csignal>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include "company/system/terminal.h"

namespace goods {

namespace {

int Descriptor(std::intptr_t handle) { return static_cast<int>(handle); }

}  // namespace

Terminal::Terminal() : input_(open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY)), output_(input_) {}

Terminal::~Terminal() {
  if (IsThere()) close(Descriptor(input_));
}

bool Terminal::IsThere() const { return input_ >= 0; }

void Terminal::Say(const std::string& text) const {
  if (write(Descriptor(output_), text.data(), text.size()) < 0) throw TerminalError("روی پایانه نوشته نشد.");
}

std::string Terminal::ReadUnseen() const {
  const int handle = Descriptor(input_);
  sigset_t interrupts;
  sigset_t before;
  sigemptyset(&interrupts);
  for (const int signal : {SIGINT, SIGTERM, SIGTSTP, SIGQUIT}) sigaddset(&interrupts, signal);
  sigprocmask(SIG_BLOCK, &interrupts, &before);
  termios shown{};
  const bool steerable = tcgetattr(handle, &shown) == 0;
  termios hidden = shown;
  // Ctrl+C comes as a character while signals wait.
  hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
  if (steerable) tcsetattr(handle, TCSAFLUSH, &hidden);
  std::string line;
  bool given = true;
  for (char c = 0; read(handle, &c, 1) == 1 && c != '\n' && line.size() < kLongestLine;) {
    if (c == '\x03') {
      given = false;
      break;
    }
    line.push_back(c);
  }
  if (steerable) tcsetattr(handle, TCSAFLUSH, &shown);
  sigprocmask(SIG_SETMASK, &before, nullptr);
  Say("\n");
  if (!given) throw TerminalError("گذرواژه ای داده نشد.");
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

}  // namespace goods
