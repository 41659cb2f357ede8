// The waiting indicator.
#pragma once

#include <string_view>

namespace goods {

class TForm;

// Shown over a window while a statement runs. Calls do not nest: showing again changes the text, hiding hides
// it.
class IWaiting {
 public:
  virtual ~IWaiting();
  // owner may be null: over the application's active window.
  virtual void ShowWaitting(TForm* owner, std::string_view text) = 0;
  virtual void HideWaitting(TForm* owner, int reserved) = 0;
};

// Shows the indicator for a scope; hides it also when a statement throws.
class WaitingScope {
 public:
  WaitingScope(IWaiting& waiting, TForm* owner, std::string_view text) : waiting_(waiting), owner_(owner) {
    waiting_.ShowWaitting(owner_, text);
  }
  WaitingScope(const WaitingScope&) = delete;
  WaitingScope& operator=(const WaitingScope&) = delete;
  ~WaitingScope() {
    if (stays_) return;
    // Also while an exception is on its way; a host that fails at this, too, must not end the program.
    try {
      waiting_.HideWaitting(owner_, 0);
    } catch (...) {
    }
  }
  // The indicator stays up behind the scope.
  void Stay() { stays_ = true; }

 private:
  IWaiting& waiting_;
  TForm* owner_;
  bool stays_ = false;
};

}  // namespace goods
