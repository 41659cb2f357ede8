// TControl: a component that is seen. What every visible component has, and how it is laid out.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/keys.h"
#include "host/core/component.h"

namespace goods {

class TForm;

// How a container lays out its controls: one under the other, or in reading direction beside each other.
enum class Flow { Column, Row };

// Its state lives here and only here. A view watches Changed and calls the same public methods that the
// program calls; a property set by the program fires the component's event exactly as the user's action does.
class TControl : public TComponent {
 public:
  TControl(TComponent* owner, std::string name, std::string caption = "");
  ~TControl() override;

  // "&" marks the letter of the keyboard accelerator.
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  // False also for money in a window that shows none.
  bool Visible() const { return visible_ && !Withheld(); }
  void SetVisible(bool visible);
  // Declares that it shows, asks for or chooses prices or amounts, with all that stands in it.
  void SetMoney(bool money = true);
  bool Money() const { return money_; }
  // Declared as money in a window that shows none.
  bool Withheld() const;
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  const std::string& Hint() const { return hint_; }
  void SetHint(std::string hint);
  // What a screen reader says; the caption without its mark where nothing was set.
  std::string AccessibleName() const;
  void SetAccessibleName(std::string name);

  // Whether the Tab key stops here, as far as it can have the focus.
  virtual bool TakesFocus() const { return false; }
  // Visible and enabled, and so are all its containers.
  bool CanFocus() const;
  // Makes it the window's active control; nothing where it cannot have the focus.
  void SetFocus();
  bool Focused() const;

  // The control that this one stands in, null for a window; and what stands in this one, in order.
  TControl* Parent() const { return parent_; }
  const std::vector<TControl*>& Controls() const { return controls_; }
  // Puts a control at the end of this one. stretch is its share of the room that is left over, 0 for its
  // natural size.
  TControl& Place(TControl& control, int stretch = 0);
  int Stretch() const { return stretch_; }
  // Width and height in pixels at 96 dpi; 0 for the natural size. A view takes them as the least size.
  int Width() const { return width_; }
  void SetWidth(int width);
  int Height() const { return height_; }
  void SetHeight(int height);

  // The window that it is part of, null while it is in none.
  TForm* Form();
  const TForm* Form() const;

  // A click, by the mouse, the accelerator or the program. Does nothing while it is invisible or disabled.
  virtual void Click();
  std::function<void()> OnClick;
  // The focus came, the focus went.
  std::function<void()> OnEnter;
  std::function<void()> OnExit;
  // Called by the window as the focus moves.
  virtual void DoEnter();
  virtual void DoExit();
  // What a key does in this control itself, after every handler: Enter in an edit accepts, Space clicks a
  // button.
  virtual void DoKey(TKey& key);
  // What a container does with a key of the control inside it that has the focus, after that control's
  // OnKeyDown and before the window's own handler: Escape closes an open drop-down.
  virtual void DoContainedKey(TKey& key);
  // Keys that reach the focused control before its own editing. May consume the key.
  std::function<void(TKey&)> OnKeyDown;

 protected:
  virtual TForm* AsForm() { return nullptr; }
  // Whether what stands in it is shown while it is itself shown.
  virtual bool ShowsContents() const { return true; }

 private:
  std::string caption_;
  std::string hint_;
  std::string accessibleName_;
  bool visible_ = true;
  bool money_ = false;
  bool enabled_ = true;
  TControl* parent_ = nullptr;
  std::vector<TControl*> controls_;
  int stretch_ = 0;
  int width_ = 0;
  int height_ = 0;
};

// The caption without its accelerator marks; "&&" is one "&".
std::string PlainCaption(std::string_view caption);

}  // namespace goods
