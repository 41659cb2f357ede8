#include "tests/scripted/scripted_windows.h"

#include <algorithm>
#include <utility>

namespace goods {
namespace {

constexpr std::uint64_t kTick = 10;
constexpr std::uint64_t kPatience = 60'000;  // how long a wait goes on when there is no action left

}  // namespace

void ScriptedWindows::QueueInput(std::uint64_t after, std::function<void()> input) {
  input_.push_back({clock_ + after, std::move(input)});
}

bool ScriptedWindows::DeliverMessage() {
  if (messages_.empty()) return false;
  const PostedMessage message = std::move(messages_.front());
  messages_.pop_front();
  if (TForm* form = message.window.Get()) {
    RunUserAction(host_, [&] { form->WindowMessage(message.code); });
  }
  return true;
}

bool ScriptedWindows::DeliverInput() {
  if (input_.empty() || input_.front().due > clock_) return false;
  const Input input = std::move(input_.front());
  input_.pop_front();
  input.action();
  return true;
}

void ScriptedWindows::Pump(const std::function<bool()>& until, const std::function<void()>& onQuit) {
  bool quitting = false;
  std::uint64_t giveUp = 0;
  while (!until()) {
    if (DeliverMessage() || DeliverInput()) continue;
    if (clock_ < target_ || !input_.empty() || (quitting && clock_ < giveUp)) {
      clock_ += kTick;
    } else if (quitting) {
      return;
    } else if (!OnIdle || !OnIdle()) {
      quitting = true;
      giveUp = clock_ + kPatience;
      onQuit();
    }
  }
}

TForm* ScriptedWindows::ClosedLast() const { return closedLast_ == nullptr ? nullptr : closedLast_->Get(); }

std::size_t ScriptedWindows::InstanceNumber(const TForm& form) const {
  const auto found =
      std::find_if(seen_.begin(), seen_.end(), [&](const WindowWatch& each) { return each.Get() == &form; });
  return static_cast<std::size_t>(found - seen_.begin()) + 1;
}

void ScriptedWindows::RunModal(TForm& form) {
  log_.Add(CallKind::Window, "RunModal(" + form.Name() + ")");
  if (std::find(open_.begin(), open_.end(), &form) != open_.end()) {
    log_.AddMisuse("the window " + form.Name() + " is shown while it is showing");
  }
  if (InstanceNumber(form) > seen_.size()) seen_.emplace_back(form);
  open_.push_back(&form);
  struct OpenScope {
    std::vector<TForm*>& open;
    ~OpenScope() { open.pop_back(); }
  };
  {
    const OpenScope scope{open_};
    Pump([&form] { return form.ModalResult() != kModalNone; }, [&form] { form.Close(); });
  }
  closedLast_ = std::make_unique<WindowWatch>(form);
}

void ScriptedWindows::PostMessage(TForm& form, int code) { messages_.push_back({WindowWatch(form), code}); }

void ScriptedWindows::ProcessMessages(const std::function<bool()>& until) {
  Pump(until, [] {});
}

void ScriptedWindows::ActivateKeyboardLayout(std::string_view layout) {
  log_.Add(CallKind::Keyboard, CallText("ActivateKeyboardLayout", layout));
}

}  // namespace goods
