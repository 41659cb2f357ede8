// The small standard controls: labels, buttons, boxes, panels.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/control.h"

namespace goods {

// Text that stands still. With a focus control, its accelerator moves the focus there and a click clicks it.
class TLabel : public TControl {
 public:
  using TControl::TControl;
  TControl* FocusControl = nullptr;
  // A value beside a caption rather than a caption: views give it weight.
  bool Emphasis = false;
};

class TButton : public TControl {
 public:
  using TControl::TControl;
  bool TakesFocus() const override { return true; }
  void DoKey(TKey& key) override;
};

class TCheckBox : public TControl {
 public:
  using TControl::TControl;
  // A caption that is not shown still gives the accelerator; a label beside the box says what it is for.
  bool CaptionShown = true;
  bool TakesFocus() const override { return true; }
  bool Checked() const { return checked_; }
  // Fires OnClick when the state changes, whoever changes it.
  void SetChecked(bool checked);
  // The user's click: toggles.
  void Click() override;
  void DoKey(TKey& key) override;

 private:
  bool checked_ = false;
};

// One of several: choosing it unchooses the other radio buttons in the same container.
class TRadioButton : public TControl {
 public:
  using TControl::TControl;
  bool TakesFocus() const override { return true; }
  bool Checked() const { return checked_; }
  // Fires OnClick when it becomes chosen, whoever chooses it. Unchoosing is silent and leaves none chosen.
  void SetChecked(bool checked);
  void Click() override;
  // Space chooses it; the arrow keys choose the neighbour and move the focus there.
  void DoKey(TKey& key) override;

 private:
  bool checked_ = false;
};

// A container. With a caption it is a group with a title; a foldable one can be reduced to that title.
class TPanel : public TControl {
 public:
  TPanel(TComponent* owner, std::string name, Flow flow = Flow::Column, std::string caption = "");
  Flow Direction() const { return flow_; }
  bool Foldable = false;
  // Draws a frame around what it holds.
  bool Framed = false;
  // The user may drag the borders between what it holds.
  bool Splitter = false;
  // Holds a warning: views give it a colour that is noticed.
  bool Warning = false;
  bool Folded() const { return folded_; }
  void SetFolded(bool folded);

 protected:
  bool ShowsContents() const override { return !folded_; }

 private:
  Flow flow_;
  bool folded_ = false;
};

// An entry of a combo box: what is shown, and the number and the text that it stands for. A view leaves out
// one that stands for prices or amounts where they are not shown.
struct TComboItem {
  std::string Text;
  std::int64_t Object = 0;
  std::string HiddenValue;
  bool Money = false;
};

enum class ComboStyle { PickList, Typing };

// A drop-down list, where the style is Typing with an edit in front.
class TComboBox : public TControl {
 public:
  using TControl::TControl;
  bool TakesFocus() const override { return true; }

  const std::vector<TComboItem>& Items() const { return items_; }
  // The places of the items that the user is offered: all but those of money in a window that shows none.
  std::vector<int> OfferedItems() const;
  // Replaces the list; the first item becomes chosen without an event, none of an empty list.
  void SetItems(std::vector<TComboItem> items);
  void AddItem(TComboItem item);
  void ClearItems();

  // -1: none. Fires OnChange when the choice changes. Out of range: none.
  int ItemIndex() const { return itemIndex_; }
  void SetItemIndex(int index);
  std::int64_t ItemObject() const;  // of the chosen item, 0 when none

  // The chosen item's text, or what was typed.
  std::string Text() const;
  // Chooses the item of that text; with the style Typing any text stands. Fires OnChange when the text
  // changes.
  void SetText(std::string_view text);

  ComboStyle Style() const { return style_; }
  void SetStyle(ComboStyle style);

  // Whether the list hangs open; set by the view and the program.
  bool DroppedDown() const { return droppedDown_; }
  void SetDroppedDown(bool dropped);

  std::function<void()> OnChange;

 private:
  std::vector<TComboItem> items_;
  int itemIndex_ = -1;
  std::string typed_;
  ComboStyle style_ = ComboStyle::PickList;
  bool droppedDown_ = false;
};

}  // namespace goods
