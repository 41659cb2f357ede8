#include "desktop/app/keyboard_hint.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>

#include "desktop/views/shown_text.h"

namespace goods {

KeyboardHint::KeyboardHint(std::initializer_list<QLineEdit*> edits, QWidget* parent)
    : QLabel(parent), persian_(QGuiApplication::inputMethod()->locale().textDirection() == Qt::RightToLeft) {
  setObjectName("Keyboard_LBL");
  setForegroundRole(QPalette::PlaceholderText);
  setWordWrap(true);
  for (QLineEdit* edit : edits) edit->installEventFilter(this);
  connect(QGuiApplication::inputMethod(), &QInputMethod::localeChanged, this, [this] {
    persian_ = QGuiApplication::inputMethod()->locale().textDirection() == Qt::RightToLeft;
    Tell();
  });
  Tell();
}

bool KeyboardHint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) Look(*static_cast<QKeyEvent*>(event));
  return QLabel::eventFilter(watched, event);
}

void KeyboardHint::Look(const QKeyEvent& key) {
  if (key.key() == Qt::Key_CapsLock) {
    if (capsLock_) capsLock_ = !*capsLock_;
    Tell();
    return;
  }
  if (key.text().size() != 1 || !key.text().at(0).isLetter()) return;
  const QChar letter = key.text().at(0);
  persian_ = HasRightToLeft(key.text());
  if (letter.isUpper() != letter.isLower()) {
    capsLock_ = letter.isUpper() != key.modifiers().testFlag(Qt::ShiftModifier);
  }
  Tell();
}

void KeyboardHint::Tell() {
  QString text = persian_ ? "صفحه‌کلید: فارسی" : "صفحه‌کلید: لاتین";
  if (capsLock_.value_or(false)) text += "  •  Caps Lock روشن است";
  setText(text);
}

}  // namespace goods
