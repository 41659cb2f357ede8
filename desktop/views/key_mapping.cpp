#include "desktop/views/key_mapping.h"

#include <QKeyEvent>
#include <array>
#include <utility>

namespace goods {
namespace {

constexpr std::array<std::pair<int, Key>, 20> kKeys{{
    {Qt::Key_Return, Key::Enter},      {Qt::Key_Enter, Key::Enter},
    {Qt::Key_Escape, Key::Escape},     {Qt::Key_Tab, Key::Tab},
    {Qt::Key_Backtab, Key::Tab},       {Qt::Key_Up, Key::Up},
    {Qt::Key_Down, Key::Down},         {Qt::Key_Left, Key::Left},
    {Qt::Key_Right, Key::Right},       {Qt::Key_Home, Key::Home},
    {Qt::Key_End, Key::End},           {Qt::Key_PageUp, Key::PageUp},
    {Qt::Key_PageDown, Key::PageDown}, {Qt::Key_Insert, Key::Insert},
    {Qt::Key_Delete, Key::Delete},     {Qt::Key_Backspace, Key::Backspace},
    {Qt::Key_Space, Key::Space},       {Qt::Key_Plus, Key::Plus},
    {Qt::Key_unknown, Key::Other},     {Qt::Key_Menu, Key::Other},
}};

constexpr int kPersianZero = 0x06F0;
constexpr int kArabicZero = 0x0660;

Key PlainKey(int key) {
  const auto digit = [key](int zero) { return key >= zero && key <= zero + 9; };
  const auto numbered = [](Key first, int offset) {
    return static_cast<Key>(static_cast<int>(first) + offset);
  };
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return numbered(Key::F1, key - Qt::Key_F1);
  for (const int zero : {static_cast<int>(Qt::Key_0), kPersianZero, kArabicZero}) {
    if (digit(zero)) return numbered(Key::Digit0, key - zero);
  }
  for (const auto& [qtKey, mapped] : kKeys) {
    if (qtKey == key) return mapped;
  }
  const bool modifier = key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
                        key == Qt::Key_Meta || key == Qt::Key_AltGr || key == Qt::Key_CapsLock ||
                        key == Qt::Key_NumLock;
  return modifier ? Key::None : Key::Other;
}

}  // namespace

TKey KeyFromQt(const QKeyEvent& event) {
  TKey key;
  key.key = PlainKey(event.key());
  key.ctrl = event.modifiers().testFlag(Qt::ControlModifier);
  key.alt = event.modifiers().testFlag(Qt::AltModifier);
  key.shift = event.modifiers().testFlag(Qt::ShiftModifier);
  return key;
}

}  // namespace goods
