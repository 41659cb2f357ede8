// ScreenlessWindows: a windowing system without a screen. A window that is shown is handed to a function and
// then closed.
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

  // What stands for the user: called with each window that is shown, once its posted messages are delivered.
  std::function<void(TForm& form)> OnShown;

  void RunModal(TForm& form) override;
  void PostMessage(TForm& form, int code) override;
  // Delivers messages. Nobody types here, so while there are none the clock runs ahead instead of waiting.
  void ProcessMessages(const std::function<bool()>& until) override;
  std::uint64_t TickCount() const override;
  TForm* ActiveWindow() const override { return open_.empty() ? nullptr : open_.back(); }
  void ActivateKeyboardLayout(std::string_view layout) override;
  std::string NowDate() const override;

  // Everything that was posted.
  void DeliverAll();

 private:
  struct PostedMessage {
    TForm* form;
    int code;
  };
  bool Deliver();

  THost& host_;
  std::vector<TForm*> open_;
  std::deque<PostedMessage> messages_;
  std::uint64_t ahead_ = 0;  // milliseconds that were not waited for
};

}  // namespace goods
