// The windowing system, as reports need it. Everything runs on the user-interface thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace goods {

class TForm;

class IWindows {
 public:
  virtual ~IWindows();
  // Shows a view of the form and runs the message loop until form.ModalResult() is not 0; then takes the view
  // away. Called by TForm::ShowModal only, which fires the form's own events around it. Nests.
  virtual void RunModal(TForm& form) = 0;
  // Calls form.WindowMessage(code) later, from the message loop; never, if the form is gone by then.
  virtual void PostMessage(TForm& form, int code) = 0;
  // Handles messages until the condition holds or nothing can change any more (the application quits).
  virtual void ProcessMessages(const std::function<bool()>& until) = 0;
  // Milliseconds since some moment; never runs backwards.
  virtual std::uint64_t TickCount() const = 0;
  // The window that is in front, null when there is none.
  virtual TForm* ActiveWindow() const = 0;
  // "00000409" English, "00000429" Persian.
  virtual void ActivateKeyboardLayout(std::string_view layout) = 0;
  // Today as Jalali text.
  virtual std::string NowDate() const = 0;
};

}  // namespace goods
