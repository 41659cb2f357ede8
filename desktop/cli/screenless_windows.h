// ScreenlessWindows: a windowing system without a screen. A window that is shown prints its list and is
// closed.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/form.h"
#include "host/services/windows.h"

namespace goods {

class ScreenlessWindows : public IWindows {
 public:
  explicit ScreenlessWindows(THost& host) : host_(host) {}

  // Delivers what was posted, clicks PrintList_BTN, and closes the window. A window without that button, or
  // with it disabled, is told as an error.
  void RunModal(TForm& form) override;
  void PostMessage(TForm& form, int code) override;
  // Waits, delivering messages, for at most ten seconds.
  void ProcessMessages(const std::function<bool()>& until) override;
  std::uint64_t TickCount() const override;
  TForm* ActiveWindow() const override { return open_.empty() ? nullptr : open_.back(); }
  void ActivateKeyboardLayout(std::string_view layout) override;
  std::string NowDate() const override;

 private:
  struct PostedMessage {
    TForm* form;
    int code;
  };
  bool Deliver();
  void Print(TForm& form);

  THost& host_;
  std::vector<TForm*> open_;
  std::deque<PostedMessage> messages_;
};

}  // namespace goods
