// TDropDownCombo: a text whose drop-down is a panel of the window.
#pragma once

#include <functional>
#include <string>

#include "host/components/standard.h"

namespace goods {

// The panel is placed in it, and is seen only while it hangs open. The text is the program's; the user
// chooses in the panel.
class TDropDownCombo : public TControl {
 public:
  using TControl::TControl;
  bool TakesFocus() const override { return true; }

  // panel must outlive its use here.
  void SetPanel(TPanel& panel);
  TPanel* Panel() const { return panel_; }

  const std::string& Text() const { return text_; }
  void SetText(std::string text);

  // Visible and enabled with all its containers, and with a panel.
  bool CanDropDown() const { return panel_ != nullptr && CanFocus(); }
  bool DroppedDown() const { return droppedDown_; }
  // Opening does nothing where it cannot drop down. Opening fires OnDropDown, which may move the focus into
  // the panel; closing takes a focus that is inside back to the combo and fires OnCloseUp.
  void SetDroppedDown(bool dropped);
  std::function<void()> OnDropDown;
  std::function<void()> OnCloseUp;

  // Opens and closes it.
  void Click() override;
  // Enter, Space, F4 and Down open.
  void DoKey(TKey& key) override;
  // Escape closes.
  void DoContainedKey(TKey& key) override;

 protected:
  bool ShowsContents() const override { return droppedDown_; }

 private:
  TPanel* panel_ = nullptr;
  std::string text_;
  bool droppedDown_ = false;
};

}  // namespace goods
