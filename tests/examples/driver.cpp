// A plugin that any program with Qt loads (QT_QPA_GENERIC_PLUGINS): plays the user, by the steps of
// GOODS_DRIVE.
//   wait NAME      until a widget of that object name is seen
//   gone NAME      until none is
//   key KEYS       to the widget that has the keyboard
//   trigger NAME   an action or a button
//   close NAME     a window or a report
//   picture FILE   of the window in front
// Steps are separated by ";". What does not come within 30 seconds ends the program with 3.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QGenericPlugin>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kStepMs = 40;
constexpr int kPatienceMs = 30'000;

// The outermost of that name: what a window shows may be called as the window is.
QWidget* SeenWidget(const QString& name) {
  QWidget* seen = nullptr;
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->objectName() != name || !widget->isVisible()) continue;
    if (seen == nullptr || widget->isAncestorOf(seen)) seen = widget;
  }
  return seen;
}

QWidget* FrontWindow() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return QApplication::activeWindow();
}

class Driver : public QObject {
 public:
  Driver() : steps_(qEnvironmentVariable("GOODS_DRIVE").split(';', Qt::SkipEmptyParts)) {
    timer_.callOnTimeout(this, [this] { TakeStep(); });
    timer_.start(kStepMs);
    since_.start();
  }

 private:
  void TakeStep() {
    if (steps_.isEmpty()) return timer_.stop();
    const QString step = steps_.first().trimmed();
    if (Take(step.section(' ', 0, 0), step.section(' ', 1))) {
      steps_.removeFirst();
      since_.start();
    } else if (since_.elapsed() > kPatienceMs) {
      std::printf("driver: \"%s\" did not happen\n", qPrintable(step));
      std::fflush(stdout);
      std::_Exit(3);
    }
  }

  // False while it cannot be taken yet. What opens a window is posted: the steps go on inside it.
  static bool Take(const QString& what, const QString& argument) {
    if (what == "wait") return SeenWidget(argument) != nullptr;
    if (what == "gone") return SeenWidget(argument) == nullptr;
    if (what == "key") return PostKey(argument);
    if (what == "trigger") return Trigger(argument);
    if (what == "close") {
      QWidget* widget = SeenWidget(argument);
      return widget != nullptr && QMetaObject::invokeMethod(widget, &QWidget::close, Qt::QueuedConnection);
    }
    if (what == "picture") return FrontWindow() != nullptr && FrontWindow()->grab().save(argument);
    return false;
  }

  static bool PostKey(const QString& keys) {
    QWidget* to = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : FrontWindow();
    const QKeySequence sequence(keys);
    if (to == nullptr || sequence.isEmpty()) return false;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QCoreApplication::postEvent(to, new QKeyEvent(type, sequence[0].key(), sequence[0].keyboardModifiers(),
                                                    keys.size() == 1 ? keys : QString()));
    }
    return true;
  }

  static bool Trigger(const QString& name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* action = window->findChild<QAction*>(name))
        return QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
      if (auto* button = window->findChild<QAbstractButton*>(name))
        return QMetaObject::invokeMethod(button, &QAbstractButton::click, Qt::QueuedConnection);
    }
    return false;
  }

  QStringList steps_;
  QTimer timer_;
  QElapsedTimer since_;
};

class DriverPlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "driver.json")
 public:
  QObject* create(const QString& /*name*/, const QString& /*specification*/) override { return new Driver; }
};

}  // namespace

#include "driver.moc"
