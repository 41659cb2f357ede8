#include "desktop/views/numbered_menu.h"

#include <QKeyEvent>

#include "desktop/views/keyboard_marks.h"
#include "desktop/views/letter_keys.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

// -1 for a key that gives none.
int DigitOf(const QKeyEvent& event) {
  const int key = LatinKey(event.key());
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return key - Qt::Key_0;
  return event.text().size() == 1 ? event.text().front().digitValue() : -1;
}

}  // namespace

QString NumberedMenu::Numbered(int digit, const QString& text) {
  return '&' + ShownDigits(QString::number(digit)) + "  " + text;
}

void NumberedMenu::keyPressEvent(QKeyEvent* event) {
  const int digit = DigitOf(*event);
  for (QAction* action : actions()) {
    if (digit < 0 || !action->isEnabled() || MarkOf(action->text()).digitValue() != digit) continue;
    setActiveAction(action);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    return QMenu::keyPressEvent(&enter);
  }
  QMenu::keyPressEvent(event);
}

}  // namespace goods
