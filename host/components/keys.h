// Keys as windows handle them, whatever the toolkit calls them.
#pragma once

#include <string_view>

namespace goods {

enum class Key {
  None,
  Enter,
  Escape,
  Tab,
  Up,
  Down,
  Left,
  Right,
  Home,
  End,
  PageUp,
  PageDown,
  Insert,
  Delete,
  Backspace,
  Space,
  Plus,
  F1,
  F2,
  F3,
  F4,
  F5,
  F6,
  F7,
  F8,
  F9,
  F10,
  F11,
  F12,
  Digit0,
  Digit1,
  Digit2,
  Digit3,
  Digit4,
  Digit5,
  Digit6,
  Digit7,
  Digit8,
  Digit9,
  Other,
};

struct TKey {
  Key key = Key::None;
  bool ctrl = false;
  bool alt = false;
  bool shift = false;

  // Tells the view, and the handlers after this one, that nothing is left to do.
  void Consume() { key = Key::None; }
  bool IsConsumed() const { return key == Key::None; }
  bool Is(Key wanted) const { return key == wanted && !ctrl && !alt && !shift; }
  bool IsCtrl(Key wanted) const { return key == wanted && ctrl && !alt && !shift; }
  bool IsAlt(Key wanted) const { return key == wanted && alt && !ctrl && !shift; }
};

// "F2", "Ctrl+F2", "Alt+2", "Enter"; Key::None when the text names no key.
TKey ParseKey(std::string_view text);

}  // namespace goods
