// DesktopMessages: what the user is told, in boxes and balloons.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/services/messages.h"

namespace goods {

class DesktopWindows;

struct ShownMessage {
  std::string caption;
  std::string text;
  std::string details;  // what a technician may want to see
  MessageIcon icon = MessageIcon::None;
  bool question = false;
  bool balloon = false;
};

class DesktopMessages : public IMessages {
 public:
  explicit DesktopMessages(DesktopWindows& windows) : windows_(windows) {}

  void ShowSmartMessage(std::string_view text, std::string_view caption, MessageIcon icon) override;
  void ShowSmartMessage(int number, std::string_view inserted) override;
  void OpenOther(std::string_view text, std::string_view name) override;
  void MsgWithoutGardesh(std::string_view name) override;
  void MsgRequiredField(std::string_view name) override;
  void ShowTooltipMessage(const TControl& beside, std::string_view text, int width = 0) override;
  void ShowError(const std::exception& error) override;

  // Yes or no.
  bool Ask(std::string_view text, std::string_view caption);

  // Answers in the user's place: called for each box and balloon instead of showing it. What it gives back is
  // the answer to a question. Null: boxes are shown again.
  // Gives back the one before.
  using Answer = std::function<bool(const ShownMessage& message)>;
  Answer SetUnattended(Answer answer) { return std::exchange(answer_, std::move(answer)); }
  // Tells the user in a way of its own: called for each box and balloon but questions; where it gives back
  // false, it is shown. Null: all are shown.
  void SetTeller(std::function<bool(const ShownMessage& message)> teller) { teller_ = std::move(teller); }
  // Every message since the beginning, shown or answered.
  const std::vector<ShownMessage>& Shown() const { return shown_; }

 private:
  bool Show(ShownMessage message);

  DesktopWindows& windows_;
  Answer answer_;
  std::function<bool(const ShownMessage&)> teller_;
  std::vector<ShownMessage> shown_;
};

}  // namespace goods
