#include "host/components/drop_down.h"

#include <utility>

#include "host/components/form.h"

namespace goods {

void TDropDownCombo::SetPanel(TPanel& panel) {
  panel_ = &panel;
  Place(panel);
}

void TDropDownCombo::SetText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  Changed();
}

void TDropDownCombo::SetDroppedDown(bool dropped) {
  if (dropped == droppedDown_ || (dropped && !CanDropDown())) return;
  if (!dropped) {
    const TForm* form = Form();
    const TControl* active = form == nullptr ? nullptr : form->ActiveControl();
    while (active != nullptr && active != panel_) active = active->Parent();
    if (active != nullptr) SetFocus();
  }
  droppedDown_ = dropped;
  Changed();
  if (dropped ? bool(OnDropDown) : bool(OnCloseUp)) (dropped ? OnDropDown : OnCloseUp)();
}

void TDropDownCombo::Click() {
  if (Visible() && Enabled()) SetDroppedDown(!droppedDown_);
}

void TDropDownCombo::DoKey(TKey& key) {
  if (!key.Is(Key::Enter) && !key.Is(Key::Space) && !key.Is(Key::F4) && !key.Is(Key::Down)) return;
  key.Consume();
  SetDroppedDown(true);
}

void TDropDownCombo::DoContainedKey(TKey& key) {
  if (!droppedDown_ || !key.Is(Key::Escape)) return;
  key.Consume();
  SetDroppedDown(false);
}

}  // namespace goods
