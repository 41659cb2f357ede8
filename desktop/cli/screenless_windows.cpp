#include "desktop/cli/screenless_windows.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "host/core/jalali.h"
#include "host/services/host.h"

namespace goods {
namespace {

constexpr const char* kPrintButton = "PrintList_BTN";
constexpr std::chrono::milliseconds kPatience{10'000};
constexpr std::chrono::milliseconds kPause{5};

}  // namespace

bool ScreenlessWindows::Deliver() {
  if (messages_.empty()) return false;
  const PostedMessage message = messages_.front();
  messages_.pop_front();
  // Only open windows hear; a closed one may be gone.
  if (std::find(open_.begin(), open_.end(), message.form) != open_.end()) {
    RunUserAction(host_, [&] { message.form->WindowMessage(message.code); });
  }
  return true;
}

void ScreenlessWindows::Print(TForm& form) {
  auto* button = dynamic_cast<TControl*>(form.FindComponent(kPrintButton));
  if (button == nullptr || !button->CanFocus()) {
    throw std::runtime_error("این پنجره چاپ ندارد: " + form.Name());
  }
  button->Click();
}

void ScreenlessWindows::RunModal(TForm& form) {
  open_.push_back(&form);
  while (Deliver()) {
  }
  RunUserAction(host_, [&] { Print(form); });
  form.Close();
  open_.pop_back();
}

void ScreenlessWindows::PostMessage(TForm& form, int code) { messages_.push_back({&form, code}); }

void ScreenlessWindows::ProcessMessages(const std::function<bool()>& until) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!until() && std::chrono::steady_clock::now() < end) {
    if (!Deliver()) std::this_thread::sleep_for(kPause);
  }
}

std::uint64_t ScreenlessWindows::TickCount() const {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void ScreenlessWindows::ActivateKeyboardLayout(std::string_view /*layout*/) {}

std::string ScreenlessWindows::NowDate() const {
  const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  return FormatJalali(JalaliFromDays(today.time_since_epoch().count()));
}

}  // namespace goods
