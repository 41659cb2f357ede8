#include "desktop/views/plain_texts.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

#include "desktop/views/form_view.h"

namespace goods {
namespace {

// A label is polished before it is measured or shown for the first time; a tooltip even before it has a text.
class PlainTexts : public QObject {
 public:
  PlainTexts(PlainTextReach reach, QObject* parent) : QObject(parent), reach_(reach) {}
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Polish) {
      auto* label = qobject_cast<QLabel*>(watched);
      if (label != nullptr && label->textFormat() == Qt::AutoText && Reaches(label))
        label->setTextFormat(Qt::PlainText);
    }
    return false;
  }

 private:
  bool Reaches(const QWidget* widget) const {
    if (reach_ == PlainTextReach::Everywhere) return true;
    while (widget != nullptr && dynamic_cast<const FormView*>(widget) == nullptr)
      widget = widget->parentWidget();
    return widget != nullptr;
  }

  PlainTextReach reach_;
};

}  // namespace

void ShowPlainTextsOnly(QApplication& application, PlainTextReach reach) {
  application.installEventFilter(new PlainTexts(reach, &application));
}

}  // namespace goods
