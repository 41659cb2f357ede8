#include "desktop/app/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "desktop/app/help_book.h"
#include "desktop/app/help_viewer.h"
#include "desktop/views/form_view.h"

namespace goods {
namespace {

// The page for a widget by what it stands in and was opened from; empty where that is nothing with a page. A
// report may stand in a window of the application's.
QString PageFor(const QWidget* widget) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    if (const auto* view = dynamic_cast<const FormView*>(widget)) {
      QString page = HelpPageOf(view->Form());
      if (!page.isEmpty()) return page;
    }
    if (!widget->isWindow()) continue;
    QString page = HelpPageOf(widget->objectName());
    if (!page.isEmpty()) return page;
  }
  return {};
}

}  // namespace

HelpKey::HelpKey(Reach reach) : reach_(reach) { QCoreApplication::instance()->installEventFilter(this); }

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  if (QApplication::activePopupWidget() != nullptr) return false;
  QWidget* window = static_cast<QWidget*>(watched)->window();
  if (auto* viewer = dynamic_cast<HelpViewer*>(window)) {
    viewer->ShowPage(kHelpIndex);
    return true;
  }
  const QString page = PageFor(static_cast<QWidget*>(watched));
  if (page.isEmpty() && reach_ == Reach::ReportsOnly) return false;
  OpenHelp(*window, page.isEmpty() ? QString(kHelpIndex) : page);
  return true;
}

}  // namespace goods
