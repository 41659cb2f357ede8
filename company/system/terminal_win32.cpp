#include <algorithm>
#include <cstdint>

#include <windows.h>

#include "company/system/terminal.h"

namespace goods {

namespace {

std::intptr_t OpenConsole(const wchar_t* name) {
  const HANDLE handle = CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
  return reinterpret_cast<std::intptr_t>(handle);
}

HANDLE Console(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

constexpr std::intptr_t kNoConsole = -1;

}  // namespace

Terminal::Terminal() : input_(OpenConsole(L"CONIN$")), output_(OpenConsole(L"CONOUT$")) {}

Terminal::~Terminal() {
  if (input_ != kNoConsole) CloseHandle(Console(input_));
  if (output_ != kNoConsole) CloseHandle(Console(output_));
}

bool Terminal::IsThere() const { return input_ != kNoConsole && output_ != kNoConsole; }

void Terminal::Say(const std::string& text) const {
  const int size = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(std::max(length, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), length);
  DWORD written = 0;
  if (WriteConsoleW(Console(output_), wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr) == 0)
    throw TerminalError("روی پایانه نوشته نشد.");
}

std::string Terminal::ReadUnseen() const {
  const HANDLE handle = Console(input_);
  DWORD shown = 0;
  const bool steerable = GetConsoleMode(handle, &shown) != 0;
  // Ctrl+C comes as a character, and whole lines do not: Enter ends the line, Backspace is ours to follow.
  if (steerable) SetConsoleMode(handle, 0);
  std::wstring line;
  bool given = true;
  wchar_t c = 0;
  DWORD read = 0;
  while (line.size() < kLongestLine / 4 && ReadConsoleW(handle, &c, 1, &read, nullptr) != 0 && read == 1 &&
         c != L'\r' && c != L'\n') {
    given = c != L'\x03';
    if (!given) break;
    if (c != L'\b') {
      line.push_back(c);
    } else if (!line.empty()) {
      line.pop_back();
    }
  }
  if (steerable) SetConsoleMode(handle, shown);
  Say("\r\n");
  if (!given) throw TerminalError("گذرواژه ای داده نشد.");
  const int size = static_cast<int>(line.size());
  const int length = WideCharToMultiByte(CP_UTF8, 0, line.data(), size, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
  WideCharToMultiByte(CP_UTF8, 0, line.data(), size, text.data(), length, nullptr, nullptr);
  return text;
}

}  // namespace goods
