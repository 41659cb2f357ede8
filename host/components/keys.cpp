#include "host/components/keys.h"

#include <array>
#include <string>
#include <utility>

#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::array<std::pair<std::string_view, Key>, 40> kNames{{
    {"Enter", Key::Enter},   {"Esc", Key::Escape},    {"Escape", Key::Escape},
    {"Tab", Key::Tab},       {"Up", Key::Up},         {"Down", Key::Down},
    {"Left", Key::Left},     {"Right", Key::Right},   {"Home", Key::Home},
    {"End", Key::End},       {"PageUp", Key::PageUp}, {"PageDown", Key::PageDown},
    {"Insert", Key::Insert}, {"Delete", Key::Delete}, {"Backspace", Key::Backspace},
    {"Space", Key::Space},   {"Plus", Key::Plus},     {"F1", Key::F1},
    {"F2", Key::F2},         {"F3", Key::F3},         {"F4", Key::F4},
    {"F5", Key::F5},         {"F6", Key::F6},         {"F7", Key::F7},
    {"F8", Key::F8},         {"F9", Key::F9},         {"F10", Key::F10},
    {"F11", Key::F11},       {"F12", Key::F12},       {"0", Key::Digit0},
    {"1", Key::Digit1},      {"2", Key::Digit2},      {"3", Key::Digit3},
    {"4", Key::Digit4},      {"5", Key::Digit5},      {"6", Key::Digit6},
    {"7", Key::Digit7},      {"8", Key::Digit8},      {"9", Key::Digit9},
    {"Other", Key::Other},
}};

}  // namespace

TKey ParseKey(std::string_view text) {
  TKey key;
  for (const std::string& part : Split(text, '+')) {
    if (SameText(part, "Ctrl")) {
      key.ctrl = true;
    } else if (SameText(part, "Alt")) {
      key.alt = true;
    } else if (SameText(part, "Shift")) {
      key.shift = true;
    } else {
      for (const auto& [name, value] : kNames) {
        if (SameText(part, name)) key.key = value;
      }
    }
  }
  return key;
}

}  // namespace goods
