#include "host/components/control.h"

#include <algorithm>
#include <utility>

#include "host/components/form.h"

namespace goods {

TControl::TControl(TComponent* owner, std::string name, std::string caption)
    : TComponent(owner, std::move(name)), caption_(std::move(caption)) {}

TControl::~TControl() {
  // Without a parent it stands in no window: one whose window could not be made has never been placed.
  if (parent_ != nullptr) {
    if (TForm* form = Form(); form != nullptr) form->ForgetControl(*this);
    std::erase(parent_->controls_, this);
  }
  for (TControl* control : controls_) control->parent_ = nullptr;
}

void TControl::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  Changed();
}

void TControl::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  Changed();
}

void TControl::SetMoney(bool money) {
  if (money == money_) return;
  money_ = money;
  Changed();
}

bool TControl::Withheld() const {
  if (!money_) return false;
  const TForm* form = Form();
  return form != nullptr && !form->ShowsMoney();
}

void TControl::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  Changed();
}

void TControl::SetHint(std::string hint) {
  if (hint == hint_) return;
  hint_ = std::move(hint);
  Changed();
}

std::string TControl::AccessibleName() const {
  return accessibleName_.empty() ? PlainCaption(caption_) : accessibleName_;
}

void TControl::SetAccessibleName(std::string name) {
  accessibleName_ = std::move(name);
  Changed();
}

bool TControl::CanFocus() const {
  for (const TControl* each = this; each->parent_ != nullptr; each = each->parent_) {
    if (!each->Visible() || !each->enabled_ || !each->parent_->ShowsContents()) return false;
  }
  return true;
}

void TControl::SetFocus() {
  if (TForm* form = Form(); form != nullptr && CanFocus()) form->SetActiveControl(this);
}

bool TControl::Focused() const {
  const TForm* form = Form();
  return form != nullptr && form->ActiveControl() == this;
}

TControl& TControl::Place(TControl& control, int stretch) {
  controls_.reserve(controls_.size() + 1);  // what may fail comes first
  if (control.parent_ != nullptr) std::erase(control.parent_->controls_, &control);
  control.parent_ = this;
  control.stretch_ = stretch;
  controls_.push_back(&control);
  return control;
}

void TControl::SetWidth(int width) {
  if (width == width_) return;
  width_ = width;
  Changed();
}

void TControl::SetHeight(int height) {
  if (height == height_) return;
  height_ = height;
  Changed();
}

TForm* TControl::Form() {
  TControl* top = this;
  while (top->parent_ != nullptr) top = top->parent_;
  return top->AsForm();
}

const TForm* TControl::Form() const { return const_cast<TControl*>(this)->Form(); }

void TControl::Click() {
  if (Visible() && enabled_ && OnClick) OnClick();
}

void TControl::DoEnter() {
  if (OnEnter) OnEnter();
}

void TControl::DoExit() {
  if (OnExit) OnExit();
}

void TControl::DoKey(TKey& /*key*/) {}
void TControl::DoContainedKey(TKey& /*key*/) {}

std::string PlainCaption(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    plain.push_back(caption[i]);
  }
  return plain;
}

}  // namespace goods
