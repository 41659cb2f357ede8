// A windowing system in which the test is the user and the clock.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/form.h"
#include "tests/scripted/call_log.h"

namespace goods {

// A window that may be gone by now.
class WindowWatch {
 public:
  explicit WindowWatch(TForm& form) : form_(form), probe_(std::make_unique<TComponent>(&form, "")) {}
  // Null when the window was destroyed.
  TForm* Get() const { return probe_->Owner() == nullptr ? nullptr : &form_; }

 private:
  TForm& form_;
  std::unique_ptr<TComponent> probe_;  // a window that dies lets its components go
};

// One loop serves every wait (a modal window, ProcessMessages, a document that stays open): posted messages
// first, then typed input that is due, then the clock as far as it was told to go; when all is quiet, OnIdle
// does the user's next action. So actions reach the innermost window, and what a window does while it waits
// is interleaved with them as on a screen.
class ScriptedWindows : public IWindows {
 public:
  ScriptedWindows(THost& host, CallLog& log) : host_(host), log_(log) {}

  // The user's next action; false when there is none left, and every open window is closed.
  std::function<bool()> OnIdle;
  std::string Today = "1402/06/15";

  // Lets the clock go on by this much before the next action.
  void LetTimePass(std::uint64_t milliseconds) { target_ = std::max(target_, clock_) + milliseconds; }
  // Input that arrives after that many milliseconds from now; in the order of their times.
  void QueueInput(std::uint64_t after, std::function<void()> input);
  // Runs the loop until the condition holds; onQuit is called when there is no action left.
  void Pump(const std::function<bool()>& until, const std::function<void()>& onQuit);

  // Open windows, the one in front last.
  const std::vector<TForm*>& OpenWindows() const { return open_; }
  // The window that was closed last, null when there is none or it was destroyed.
  TForm* ClosedLast() const;
  // 1 for the first window that was shown, 2 for the next one; a kept window keeps its number.
  std::size_t InstanceNumber(const TForm& form) const;

  void RunModal(TForm& form) override;
  void PostMessage(TForm& form, int code) override;
  void ProcessMessages(const std::function<bool()>& until) override;
  std::uint64_t TickCount() const override { return clock_; }
  TForm* ActiveWindow() const override { return open_.empty() ? nullptr : open_.back(); }
  void ActivateKeyboardLayout(std::string_view layout) override;
  std::string NowDate() const override { return Today; }

 private:
  bool DeliverMessage();
  bool DeliverInput();

  struct PostedMessage {
    WindowWatch window;
    int code;
  };
  struct Input {
    std::uint64_t due;
    std::function<void()> action;
  };

  THost& host_;
  CallLog& log_;
  std::uint64_t clock_ = 1'000'000;
  std::uint64_t target_ = 0;
  std::vector<TForm*> open_;
  std::vector<WindowWatch> seen_;
  std::unique_ptr<WindowWatch> closedLast_;
  std::deque<PostedMessage> messages_;
  std::deque<Input> input_;
};

}  // namespace goods
