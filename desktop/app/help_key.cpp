#include "desktop/app/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "desktop/app/help_book.h"
#include "desktop/app/help_viewer.h"
#include "desktop/views/form_view.h"

namespace goods {
namespace {

QString PageFor(const QWidget* window) {
  while (window != nullptr) {
    if (const auto* view = dynamic_cast<const FormView*>(window)) {
      const QString page = HelpPageOf(view->Form());
      if (!page.isEmpty()) return page;
    }
    const QString page = HelpPageOf(window->objectName());
    if (!page.isEmpty()) return page;
    const QWidget* parent = window->parentWidget();
    window = parent == nullptr ? nullptr : parent->window();
  }
  return kHelpIndex;
}

}  // namespace

HelpKey::HelpKey() { QCoreApplication::instance()->installEventFilter(this); }

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  if (QApplication::activePopupWidget() != nullptr) return false;
  QWidget* window = static_cast<QWidget*>(watched)->window();
  if (auto* viewer = dynamic_cast<HelpViewer*>(window)) {
    viewer->ShowPage(kHelpIndex);
  } else {
    OpenHelp(*window, PageFor(window));
  }
  return true;
}

}  // namespace goods
