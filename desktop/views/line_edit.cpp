#include "desktop/views/line_edit.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

#include "desktop/views/letter_keys.h"
#include "desktop/views/shown_text.h"
#include "host/core/text.h"

namespace goods {

LineEdit::LineEdit(QWidget* parent) : QLineEdit(parent) {}

void LineEdit::CopySelection() const {
  if (!hasSelectedText() || echoMode() != Normal) return;
  const QString text = selectedText();
  QGuiApplication::clipboard()->setText(PlainDigits ? ToQt(AsciiDigits(FromQt(text))) : text);
}

void LineEdit::CutSelection() {
  CopySelection();
  if (hasSelectedText() && !isReadOnly() && echoMode() == Normal) insert("");
}

void LineEdit::keyPressEvent(QKeyEvent* event) {
  if (IsCommand(*event, QKeySequence::Copy)) return CopySelection();
  if (IsCommand(*event, QKeySequence::Cut)) return CutSelection();
  QKeyEvent latin = OnLatinLayout(*event);
  QLineEdit::keyPressEvent(&latin);
  event->setAccepted(latin.isAccepted());
}

void LineEdit::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.setAccessibleName("فهرست نوشته");
  menu.setLayoutDirection(Qt::RightToLeft);
  const bool writable = !isReadOnly() && isEnabled();
  menu.addAction("&واگرد", this, &QLineEdit::undo)->setEnabled(writable && isUndoAvailable());
  menu.addSeparator();
  menu.addAction("&برش", this, &LineEdit::CutSelection)->setEnabled(writable && hasSelectedText());
  menu.addAction("&رونوشت", this, [this] { CopySelection(); })->setEnabled(hasSelectedText());
  menu.addAction("&چسباندن", this, &QLineEdit::paste)
      ->setEnabled(writable && !QGuiApplication::clipboard()->text().isEmpty());
  menu.addSeparator();
  menu.addAction("انتخاب &همه", this, &QLineEdit::selectAll)->setEnabled(!text().isEmpty());
  menu.exec(event->globalPos());
}

}  // namespace goods
