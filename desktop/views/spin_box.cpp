#include "desktop/views/spin_box.h"

#include <QWheelEvent>

#include "desktop/views/shown_text.h"
#include "host/core/text.h"

namespace goods {

SpinBox::SpinBox(QWidget* parent) : QSpinBox(parent) { setFocusPolicy(Qt::StrongFocus); }

QString SpinBox::Typed(QString text) const {
  text = text.trimmed();
  const QString behind = suffix().trimmed();
  if (!behind.isEmpty() && text.endsWith(behind)) text.chop(behind.size());
  return ToQt(AsciiDigits(FromQt(text.trimmed())));
}

QString SpinBox::textFromValue(int value) const { return ShownDigits(QString::number(value)); }

int SpinBox::valueFromText(const QString& text) const { return Typed(text).toInt(); }

QValidator::State SpinBox::validate(QString& text, int& /*place*/) const {
  const QString typed = Typed(text);
  if (typed.isEmpty()) return QValidator::Intermediate;
  bool number = false;
  const int value = typed.toInt(&number);
  if (!number || value < 0 || value > maximum()) return QValidator::Invalid;
  return value < minimum() ? QValidator::Intermediate : QValidator::Acceptable;
}

void SpinBox::wheelEvent(QWheelEvent* event) {
  if (!hasFocus()) return event->ignore();
  QSpinBox::wheelEvent(event);
}

}  // namespace goods
