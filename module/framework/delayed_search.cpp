#include "module/framework/delayed_search.h"

#include <utility>

#include "module/framework/endings.h"

namespace goods {

void DelayedSearch::Typed(int message) {
  IWindows& windows = window_.Host().Windows();
  lastKey_ = windows.TickCount();
  lastMessage_ = message;
  pending_ = true;
  hurried_ = held_ = false;
  windows.PostMessage(window_, message);
  if (OnTyped) OnTyped();
}

void DelayedSearch::TakeEnter(TKey& key) {
  if (!key.Is(Key::Enter) || !pending_) return;
  key.Consume();
  Hurry();
}

// A window that is being closed runs nothing more.
bool DelayedSearch::Ended() const { return !pending_ || window_.ModalResult() != kModalNone; }

bool DelayedSearch::Held() const {
  const auto* edit = dynamic_cast<const TEdit*>(window_.ActiveControl());
  return edit != nullptr && edit->HalfTyped();
}

bool DelayedSearch::Ready() {
  if (Ended()) return true;
  if (!hurried_ && window_.Host().Windows().TickCount() - lastKey_ < kQuietTime) return false;
  if (!Held()) return true;
  if (!std::exchange(held_, true) && OnHeld) OnHeld();
  return false;
}

// Keys that came during the run have lost their message to it.
void DelayedSearch::RunEnded() {
  if (--runs_ > 0 || !pending_) return;
  // At the end of a scope: a host that cannot take the message leaves the run to the next key.
  try {
    window_.Host().Windows().PostMessage(window_, lastMessage_);
  } catch (...) {
  }
}

bool DelayedSearch::Handle(int message, TEdit* edit) {
  if (message < kSearchEditTyped || message > kUpperEditTyped) return false;
  // The handler of an earlier key is waiting further out and runs for this key too; a run that is going on
  // asks again when it ends.
  if (waiting_ || runs_ > 0) return true;
  waiting_ = true;
  WithEnd([this] { window_.Host().Windows().ProcessMessages([this] { return Ready(); }); },
          [this] { waiting_ = false; });
  if (Ended() || Held()) return true;
  pending_ = false;
  const bool hurried = std::exchange(hurried_, false);
  const int caret = edit == nullptr ? 0 : edit->Caret();
  {
    const RunScope scope(*this);
    run_();
  }
  if (edit != nullptr) edit->SetCaret(caret);
  if (hurried && OnHurried) OnHurried();
  return true;
}

}  // namespace goods
