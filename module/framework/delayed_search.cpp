#include "module/framework/delayed_search.h"

#include <utility>

namespace goods {

void DelayedSearch::Typed(int message) {
  IWindows& windows = window_.Host().Windows();
  lastKey_ = windows.TickCount();
  pending_ = true;
  windows.PostMessage(window_, message);
}

void DelayedSearch::TakeEnter(TKey& key) {
  if (!key.Is(Key::Enter) || !pending_) return;
  key.Consume();
  Hurry();
}

// A window that is being closed runs nothing more.
bool DelayedSearch::Ended() const { return !pending_ || window_.ModalResult() != kModalNone; }

bool DelayedSearch::Handle(int message, TEdit* edit) {
  if (message < kSearchEditTyped || message > kUpperEditTyped) return false;
  // The handler of an earlier key is waiting further out and runs for this key too.
  if (waiting_) return true;
  waiting_ = true;
  IWindows& windows = window_.Host().Windows();
  try {
    windows.ProcessMessages(
        [&] { return Ended() || hurried_ || windows.TickCount() - lastKey_ >= kQuietTime; });
  } catch (...) {
    waiting_ = false;
    throw;
  }
  waiting_ = false;
  if (Ended()) return true;
  pending_ = false;
  const bool hurried = std::exchange(hurried_, false);
  const int caret = edit == nullptr ? 0 : edit->Caret();
  run_();
  if (edit != nullptr) edit->SetCaret(caret);
  if (hurried && OnHurried) OnHurried();
  return true;
}

}  // namespace goods
