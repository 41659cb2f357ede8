#include "desktop/windows/held_keys.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <utility>

#include "desktop/windows/message_dialog.h"

// Tries the shortcuts, as the windowing system's own keys do before they become a key press. Exported by Qt
// Gui for Qt Test, whose header declares it in the same way.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* o, ulong timestamp, int k, Qt::KeyboardModifiers mods,
                                               const QString& text = QString(), bool autorep = false,
                                               ushort count = 1);
QT_END_NAMESPACE

namespace goods {

HeldKeys::HeldKeys(std::function<bool()> busy, std::function<QWidget*()> target)
    : busy_(std::move(busy)), target_(std::move(target)) {}

HeldKeys::~HeldKeys() = default;

bool HeldKeys::Hold(const QEvent& event) {
  const bool committed = event.type() == QEvent::InputMethod &&
                         !static_cast<const QInputMethodEvent&>(event).commitString().isEmpty();
  if (event.type() != QEvent::KeyPress && !committed) return false;
  if (keys_.empty()) qApp->installEventFilter(this);
  keys_.emplace_back(event.clone());
  return true;
}

void HeldKeys::DeliverLater() {
  if (posted_ || keys_.empty()) return;
  posted_ = true;
  QTimer::singleShot(0, this, [this] { Deliver(); });
}

void HeldKeys::Deliver() {
  posted_ = false;
  if (keys_.empty() || busy_()) return;
  if (dynamic_cast<const MessageDialog*>(QApplication::activeModalWidget()) != nullptr) {
    keys_.clear();
    qApp->removeEventFilter(this);
    return;
  }
  const std::unique_ptr<QEvent> key = std::move(keys_.front());
  keys_.pop_front();
  if (keys_.empty()) qApp->removeEventFilter(this);
  // Before it is sent: a key that opens a window does not come back until that window is closed.
  DeliverLater();
  QWidget* const popup = QApplication::activePopupWidget();
  QWidget* to = popup;
  if (to == nullptr) to = QApplication::focusWidget();
  // A window that has just opened gets the keyboard in a moment; until then it is with the one behind it.
  const QWidget* modal = QApplication::activeModalWidget();
  const bool behind = to != nullptr && modal != nullptr && to->window() != modal->window() && !popup;
  if (to == nullptr || behind) to = target_();
  if (to == nullptr) return;
  const QEvent* before = std::exchange(sending_, key.get());
  Send(*to, *key);
  sending_ = before;
}

void HeldKeys::Send(QWidget& to, QEvent& event) {
  if (event.type() == QEvent::KeyPress) {
    const auto& key = static_cast<const QKeyEvent&>(event);
    overriding_ = true;
    const bool taken =
        qt_sendShortcutOverrideEvent(&to, key.timestamp(), key.key(), key.modifiers(), key.text(),
                                     key.isAutoRepeat(), static_cast<ushort>(key.count()));
    overriding_ = false;
    if (taken) return;
  }
  QCoreApplication::sendEvent(&to, &event);
}

bool HeldKeys::eventFilter(QObject* /*watched*/, QEvent* event) {
  // While the program is at work the waiting indicator looks at every key, whichever filter was put up last:
  // Esc ends the work and must not wait behind other keys.
  if (event == sending_ || keys_.empty() || busy_()) return false;
  if (event->type() == QEvent::ShortcutOverride && !overriding_) {
    event->accept();  // else a shortcut would take the key, ahead of those that wait
    return true;
  }
  return Hold(*event);
}

}  // namespace goods
