#include "desktop/cli/screenless_windows.h"

#include <algorithm>
#include <chrono>

#include "host/core/jalali.h"
#include "host/services/host.h"

namespace goods {
namespace {

constexpr std::uint64_t kMostAhead = 10'000;  // milliseconds that one wait may skip
constexpr std::uint64_t kStep = 50;

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

void ScreenlessWindows::DeliverAll() {
  while (Deliver()) {
  }
}

void ScreenlessWindows::RunModal(TForm& form) {
  open_.push_back(&form);
  DeliverAll();
  if (OnShown) OnShown(form);
  form.Close();
  open_.pop_back();
}

void ScreenlessWindows::PostMessage(TForm& form, int code) { messages_.push_back({&form, code}); }

void ScreenlessWindows::ProcessMessages(const std::function<bool()>& until) {
  for (std::uint64_t skipped = 0; !until() && skipped < kMostAhead;) {
    if (Deliver()) continue;
    ahead_ += kStep;
    skipped += kStep;
  }
}

std::uint64_t ScreenlessWindows::TickCount() const {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return ahead_ +
         static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void ScreenlessWindows::ActivateKeyboardLayout(std::string_view /*layout*/) {}

std::string ScreenlessWindows::NowDate() const {
  const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  return FormatJalali(JalaliFromDays(today.time_since_epoch().count()));
}

}  // namespace goods
