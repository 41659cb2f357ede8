// HeldKeys: what is typed while the program is at work, delivered in order when it is done.
#pragma once

#include <QEvent>
#include <QObject>
#include <deque>
#include <functional>
#include <memory>

class QWidget;

namespace goods {

// A key goes where the keyboard is at the time of its delivery, so that a key that opens a window is followed
// by keys in that window. As long as keys are held and the program is not at work, those that are typed next
// are held behind them; what is typed during work comes in through Hold. Where the work ends with a message,
// keys that were typed before it appeared are no answer to it, and are dropped.
class HeldKeys : public QObject {
 public:
  // busy: the program is at work, nothing may be delivered now. target: where keys go when no widget of the
  // application has the keyboard; may give null.
  HeldKeys(std::function<bool()> busy, std::function<QWidget*()> target);
  ~HeldKeys() override;

  // The text that an input method commits is held like a key. True where the event is one of these.
  bool Hold(const QEvent& event);
  // From the message loop, one at a time; to be called when the program is no longer busy.
  void DeliverLater();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Deliver();
  void Send(QWidget& to, QEvent& event);

  std::function<bool()> busy_;
  std::function<QWidget*()> target_;
  std::deque<std::unique_ptr<QEvent>> keys_;
  const QEvent* sending_ = nullptr;
  bool posted_ = false;
  bool overriding_ = false;
};

}  // namespace goods
