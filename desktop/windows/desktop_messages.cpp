#include "desktop/windows/desktop_messages.h"

#include <utility>

#include "desktop/views/shown_text.h"
#include "desktop/windows/balloon.h"
#include "desktop/windows/desktop_windows.h"
#include "desktop/windows/message_dialog.h"
#include "host/core/text.h"
#include "host/data/connection.h"
#include "host/services/error_text.h"

namespace goods {
namespace {

constexpr const char* kNotice = "پیغام";
constexpr const char* kErrorCaption = "خطا";

// The numbered messages; %1 is the inserted text.
std::string NumberedText(int number) {
  if (number == kMessageNotPossibleBecause) return "به دلیل %1 امکان انجام این عملیات وجود ندارد.";
  return "پیغام شماره " + std::to_string(number) + ": %1";
}

std::string Quoted(std::string_view name) { return "«" + std::string(Trim(name)) + "»"; }

}  // namespace

bool DesktopMessages::Show(ShownMessage message) {
  shown_.push_back(message);
  if (answer_) return answer_(message);
  if (teller_ && !message.question && teller_(message)) return true;
  MessageDialog dialog(message, windows_.DialogParent());
  return dialog.exec() == QDialog::Accepted;
}

void DesktopMessages::ShowSmartMessage(std::string_view text, std::string_view caption, MessageIcon icon) {
  Show({std::string(caption.empty() ? kNotice : caption), std::string(text), "", icon, false, false});
}

void DesktopMessages::ShowSmartMessage(int number, std::string_view inserted) {
  ShowSmartMessage(ReplaceAll(NumberedText(number), "%1", inserted), kNotice, MessageIcon::Information);
}

void DesktopMessages::OpenOther(std::string_view text, std::string_view name) {
  const std::string said = SameText(text, name) ? "پنجره " + Quoted(name) + " هم اکنون باز است."
                                                : std::string(text) + " " + Quoted(name) + " باز شده است.";
  ShowSmartMessage(said, kNotice, MessageIcon::Warning);
}

void DesktopMessages::MsgWithoutGardesh(std::string_view name) {
  ShowSmartMessage(Quoted(name) + " گردشی ندارد.", kNotice, MessageIcon::Information);
}

void DesktopMessages::MsgRequiredField(std::string_view name) {
  ShowSmartMessage("لطفاً " + Quoted(name) + " را وارد کنید.", kNotice, MessageIcon::Warning);
}

void DesktopMessages::ShowTooltipMessage(const TControl& beside, std::string_view text, int width) {
  ShownMessage message{"", std::string(text), "", MessageIcon::Warning, false, true};
  shown_.push_back(message);
  if (answer_) {
    answer_(message);
  } else if (teller_ && teller_(message)) {
    return;
  } else if (QWidget* widget = windows_.WidgetOf(beside)) {
    ShowBalloon(*widget, ShownText(text), width);
  }
}

void DesktopMessages::ShowError(const std::exception& error) {
  if (dynamic_cast<const StatementCancelled*>(&error) != nullptr) return;
  ShownMessage message{kErrorCaption, "", "", MessageIcon::Error, false, false};
  if (const auto* lost = dynamic_cast<const ConnectionLost*>(&error)) {
    message.text = "ارتباط با پایگاه داده قطع شده است. پس از برقراری دوباره ارتباط، کار را تکرار کنید.";
    message.details = std::string(lost->what());
  } else if (const auto* refused = dynamic_cast<const DatabaseError*>(&error)) {
    message.text = "پایگاه داده این درخواست را انجام نداد:\n" + std::string(refused->what());
    message.details = refused->Statement();
  } else {
    message.text = ErrorText(error);
    if (message.text == kUnexpectedError) message.details = error.what();
  }
  Show(std::move(message));
}

bool DesktopMessages::Ask(std::string_view text, std::string_view caption) {
  return Show({std::string(caption.empty() ? kNotice : caption), std::string(text), "",
               MessageIcon::Information, true, false});
}

}  // namespace goods
