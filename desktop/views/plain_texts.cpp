#include "desktop/views/plain_texts.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

namespace goods {
namespace {

// A label is polished before it is measured or shown for the first time; a tooltip even before it has a text.
class PlainTexts : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Polish) {
      auto* label = qobject_cast<QLabel*>(watched);
      if (label != nullptr && label->textFormat() == Qt::AutoText) label->setTextFormat(Qt::PlainText);
    }
    return false;
  }
};

}  // namespace

void ShowPlainTextsOnly(QApplication& application) {
  application.installEventFilter(new PlainTexts(&application));
}

}  // namespace goods
