#include "host/components/standard.h"

#include <algorithm>
#include <utility>

#include "host/components/form.h"

namespace goods {

void TButton::DoKey(TKey& key) {
  if (!key.Is(Key::Enter) && !key.Is(Key::Space)) return;
  key.Consume();
  Click();
}

void TCheckBox::SetChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  Changed();
  if (OnClick) OnClick();
}

void TCheckBox::Click() {
  if (Visible() && Enabled()) SetChecked(!checked_);
}

void TCheckBox::DoKey(TKey& key) {
  if (!key.Is(Key::Space)) return;
  key.Consume();
  Click();
}

void TRadioButton::SetChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  if (checked && Parent() != nullptr) {
    for (TControl* other : Parent()->Controls()) {
      if (auto* radio = dynamic_cast<TRadioButton*>(other); radio != nullptr && radio != this) {
        radio->SetChecked(false);
      }
    }
  }
  Changed();
  if (checked && OnClick) OnClick();
}

void TRadioButton::Click() {
  if (Visible() && Enabled()) SetChecked(true);
}

void TRadioButton::DoKey(TKey& key) {
  if (key.Is(Key::Space)) {
    key.Consume();
    Click();
    return;
  }
  const bool forward = key.Is(Key::Down) || key.Is(Key::Left);
  if ((!forward && !key.Is(Key::Up) && !key.Is(Key::Right)) || Parent() == nullptr) return;
  std::vector<TRadioButton*> group;
  for (TControl* each : Parent()->Controls()) {
    auto* radio = dynamic_cast<TRadioButton*>(each);
    if (radio != nullptr && radio->CanFocus()) group.push_back(radio);
  }
  const auto here = std::find(group.begin(), group.end(), this);
  if (here == group.end()) return;
  key.Consume();
  const auto at = static_cast<std::size_t>(here - group.begin());
  TRadioButton& next = *group[(at + (forward ? 1 : group.size() - 1)) % group.size()];
  next.SetFocus();
  next.Click();
}

TPanel::TPanel(TComponent* owner, std::string name, Flow flow, std::string caption)
    : TControl(owner, std::move(name), std::move(caption)), flow_(flow) {}

void TPanel::SetFolded(bool folded) {
  if (folded == folded_) return;
  folded_ = folded;
  Changed();
}

void TComboBox::SetItems(std::vector<TComboItem> items) {
  items_ = std::move(items);
  itemIndex_ = items_.empty() ? -1 : 0;
  typed_.clear();
  Changed();
}

void TComboBox::AddItem(TComboItem item) {
  items_.push_back(std::move(item));
  Changed();
}

std::vector<int> TComboBox::OfferedItems() const {
  const TForm* form = Form();
  const bool money = form == nullptr || form->ShowsMoney();
  std::vector<int> offered;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (money || !items_[i].Money) offered.push_back(static_cast<int>(i));
  }
  return offered;
}

void TComboBox::ClearItems() { SetItems({}); }

void TComboBox::SetItemIndex(int index) {
  if (index < 0 || index >= static_cast<int>(items_.size())) index = -1;
  if (index == itemIndex_ && typed_.empty()) return;
  itemIndex_ = index;
  typed_.clear();
  Changed();
  if (OnChange) OnChange();
}

std::int64_t TComboBox::ItemObject() const {
  return itemIndex_ < 0 ? 0 : items_[static_cast<std::size_t>(itemIndex_)].Object;
}

std::string TComboBox::Text() const {
  return itemIndex_ < 0 ? typed_ : items_[static_cast<std::size_t>(itemIndex_)].Text;
}

void TComboBox::SetText(std::string_view text) {
  if (text == Text()) return;
  const auto found =
      std::find_if(items_.begin(), items_.end(), [&](const TComboItem& item) { return item.Text == text; });
  if (found != items_.end()) {
    SetItemIndex(static_cast<int>(found - items_.begin()));
  } else if (style_ == ComboStyle::Typing) {
    itemIndex_ = -1;
    typed_ = std::string(text);
    Changed();
    if (OnChange) OnChange();
  }
}

void TComboBox::SetStyle(ComboStyle style) {
  if (style == style_) return;
  style_ = style;
  Changed();
}

void TComboBox::SetDroppedDown(bool dropped) {
  if (dropped == droppedDown_) return;
  droppedDown_ = dropped;
  Changed();
}

}  // namespace goods
