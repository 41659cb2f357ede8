#include "desktop/tools/window_driver.h"

#include <QApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QTemporaryFile>
#include <QTimer>
#include <exception>
#include <memory>
#include <stdexcept>
#include <utility>

#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr int kPoll = 20;          // milliseconds
constexpr int kPatience = 60'000;  // milliseconds: a busy server takes long over what it does first

std::exception_ptr g_failure;

void SendKey(QWidget& target, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&target, &press);
  QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
  QApplication::sendEvent(&target, &release);
}

// Watches for a modal window that is not the one in front now.
class ModalSteps : public QObject {
 public:
  explicit ModalSteps(std::function<void(QWidget&)> steps)
      : steps_(std::move(steps)), before_(QApplication::activeModalWidget()) {
    startTimer(kPoll);
  }

 protected:
  void timerEvent(QTimerEvent* event) override {
    QWidget* window = QApplication::activeModalWidget();
    waited_ += kPoll;
    if (window == nullptr || window == before_ || !window->isVisible()) {
      if (waited_ < kPatience) return;
      g_failure = std::make_exception_ptr(std::runtime_error("the window did not open"));
      deleteLater();
      return;
    }
    killTimer(event->timerId());
    QPointer<QWidget> watched(window);
    Wait(100);
    try {
      if (watched) steps_(*watched);
    } catch (...) {
      g_failure = std::current_exception();
    }
    if (watched && watched->isVisible()) watched->close();
    deleteLater();
  }

 private:
  std::function<void(QWidget&)> steps_;
  QPointer<QWidget> before_;
  int waited_ = 0;
};

}  // namespace

void UseOffscreenScreen(QSize pixels, double scale) {
  static QTemporaryFile file;
  const QJsonObject screen{{"name", "screen"},
                           {"x", 0},
                           {"y", 0},
                           {"width", pixels.width()},
                           {"height", pixels.height()},
                           {"logicalDpi", 96},
                           {"logicalBaseDpi", 96},
                           {"dpr", 1}};
  if (!file.open()) throw std::runtime_error("cannot write the description of a screen");
  file.write(QJsonDocument(QJsonObject{{"screens", QJsonArray{screen}}}).toJson());
  file.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
  qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
}

void Wait(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

bool WaitUntil(const std::function<bool()>& condition, int patience) {
  for (int waited = 0; waited < patience; waited += kPoll) {
    if (condition()) return true;
    Wait(kPoll);
  }
  return condition();
}

void WhileModal(std::function<void(QWidget& window)> steps) { new ModalSteps(std::move(steps)); }

void RethrowFailure() {
  if (g_failure) std::rethrow_exception(std::exchange(g_failure, nullptr));
}

void PressKey(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWidget* focus = window.focusWidget() != nullptr ? window.focusWidget() : &window;
  SendKey(*focus, key, modifiers, {});
}

QWidget& Child(QWidget& window, const QString& objectName) {
  for (QWidget* child : window.findChildren<QWidget*>(objectName)) {
    if (child->isVisible()) return *child;
  }
  throw std::runtime_error("no visible widget is called " + FromQt(objectName));
}

void TypeText(QWidget& window, const QString& objectName, const QString& text) {
  QWidget& target = Child(window, objectName);
  target.setFocus();
  for (const QChar c : text) SendKey(target, 0, Qt::NoModifier, QString(c));
}

QImage PictureOf(QWidget& window) {
  constexpr double kSharpness = 2;
  QImage image(window.size() * kSharpness, QImage::Format_RGB32);
  image.setDevicePixelRatio(kSharpness);
  image.fill(window.palette().color(QPalette::Window));
  window.render(&image);
  return image;
}

}  // namespace goods
