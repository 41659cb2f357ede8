// What the user is told. Every message returns when the user has seen it, or at once where it does not wait.
#pragma once

#include <exception>
#include <string_view>

namespace goods {

class TControl;

enum class MessageIcon : int { None = 0, Information = 1, Warning = 2, Error = 3 };

// Numbered messages of the host; one text is inserted in each. The host owns their wording.
inline constexpr int kMessageNotPossibleBecause = 10026;

class IMessages {
 public:
  virtual ~IMessages();
  virtual void ShowSmartMessage(std::string_view text, std::string_view caption, MessageIcon icon) = 0;
  virtual void ShowSmartMessage(int number, std::string_view inserted) = 0;
  // A document window of another part is already open, or its module is busy.
  virtual void OpenOther(std::string_view text, std::string_view name) = 0;
  // The named thing (such as "کالا") has no turnover.
  virtual void MsgWithoutGardesh(std::string_view name) = 0;
  // The named field must be filled.
  virtual void MsgRequiredField(std::string_view name) = 0;
  // A balloon beside a control; does not wait. width is in pixels at 96 dpi, 0 for the host's own.
  virtual void ShowTooltipMessage(const TControl& beside, std::string_view text, int width = 0) = 0;
  // What escaped from a handler or an export. A cancelled statement is not an error and is not shown.
  virtual void ShowError(const std::exception& error) = 0;
};

}  // namespace goods
