// TForm: a window. TFormOptions: what a window tells the host about itself.
#pragma once

#include <string>
#include <utility>

#include "host/components/control.h"
#include "host/services/host.h"

namespace goods {

inline constexpr int kModalNone = 0;
inline constexpr int kModalOk = 1;
inline constexpr int kModalCancel = 2;

// The life of a window:
//   1. It is constructed with its controls; its own class calls FormCreate at the end of its constructor.
//   2. ShowModal: the showing flag is set, FormShow, then the host shows it and runs the message loop.
//   3. The user works; every event reaches a handler through the controls, keys first through FormKeyDown.
//   4. Close or SetModalResult ends the loop; FormClose; the showing flag is cleared; ShowModal returns.
//   5. Kept windows go on with 2; others are destroyed, their destructor being what other toolkits call
//   FormDestroy.
// An error in FormShow or FormClose is shown to the user; the window is shown, or closed, all the same.
class TForm : public TControl {
 public:
  // host must outlive the window.
  TForm(THost& host, std::string name);
  ~TForm() override;

  THost& Host() const { return host_; }

  // The section of the user's settings under which the host keeps the window's place and size; its name,
  // unless the window gives another.
  const std::string& Section() const { return section_; }
  void SetSection(std::string section) { section_ = std::move(section); }
  // Whether what is declared as money is shown here: the user's right (IRights::SeesPrices) when the window
  // was constructed, and again each time that it is shown.
  bool ShowsMoney() const { return showsMoney_; }

  // Shows the window and returns its modal result when it is closed. Throws std::logic_error while it is
  // showing.
  int ShowModal();
  // True from before FormShow until after FormClose.
  bool Showing() const { return showing_; }
  int ModalResult() const { return modalResult_; }
  // Anything but kModalNone closes the window.
  void SetModalResult(int result);
  // Closes it as given up, unless it is closing already.
  void Close();

  // The control with the focus, null when it is elsewhere. Setting fires OnExit and OnEnter.
  TControl* ActiveControl() const { return activeControl_; }
  void SetActiveControl(TControl* control);
  void ForgetControl(const TControl& control);
  // What the Tab key does: the next control that takes the focus, in the order of placing, becomes active;
  // after the last one the first.
  void FocusNext(bool backwards = false);

  // A key, before the focused control sees it: its OnKeyDown, then what it stands in (DoContainedKey), then
  // FormKeyDown, then what the control itself does with it. True when the key was consumed.
  bool KeyDown(TKey key);

  // A message that was posted to the window with IWindows::PostMessage.
  virtual void WindowMessage(int code);

  virtual void FormCreate();
  virtual void FormShow();
  virtual void FormClose();
  // The view was given another size.
  virtual void FormResize();
  virtual void FormKeyDown(TKey& key);

  // The size that the window asks for when it is first shown, pixels at 96 dpi; maximised says more room is
  // better.
  int PreferredWidth = 900;
  int PreferredHeight = 600;
  bool Maximised = false;

 protected:
  TForm* AsForm() override { return this; }

 private:
  THost& host_;
  std::string section_;
  bool showing_ = false;
  bool showsMoney_ = true;
  int modalResult_ = kModalNone;
  TControl* activeControl_ = nullptr;
};

// Component software parts: what kind of report a window is.
enum ComponentSoftwarePart : int {
  cspKardex = 66,
  cspSearchInKardex = 67,
  cspGoodAmountAsset = 68,
  cspGoodCashAsset = 69,
  cspGoodDetail = 80,
};

class TFormOptions : public TComponent {
 public:
  using TComponent::TComponent;
  int ComponentSoftwarePart = 0;
  // The help page of what the window shows, such as "stock-card"; empty where it has none of its own.
  std::string HelpKeyword;
  // What the host calls the window in its frame and on its pages where the caption does not tell; empty where
  // the caption does.
  std::string WindowTitle;
};

}  // namespace goods
