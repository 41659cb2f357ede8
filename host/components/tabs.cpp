#include "host/components/tabs.h"

#include <algorithm>
#include <utility>

#include "host/components/form.h"

namespace goods {

void TTabControl::SetTabs(std::vector<std::string> captions) {
  tabs_ = std::move(captions);
  tabIndex_ = tabs_.empty() ? -1 : 0;
  Changed();
}

void TTabControl::SetTabIndex(int index) {
  if (index == tabIndex_ || index < 0 || index >= static_cast<int>(tabs_.size())) return;
  tabIndex_ = index;
  Changed();
  if (OnChange) OnChange();
}

// Text runs from right to left, so the next tab is the one at the left.
void TTabControl::DoKey(TKey& key) {
  const bool forward = key.Is(Key::Left);
  if (!forward && !key.Is(Key::Right)) return;
  key.Consume();
  SetTabIndex(tabIndex_ + (forward ? 1 : -1));
}

bool TTabSheet::ShowsContents() const {
  const auto* pages = dynamic_cast<const TPageControl*>(Parent());
  return pages == nullptr || pages->ActivePage() == this;
}

std::vector<TTabSheet*> TPageControl::Pages() const {
  std::vector<TTabSheet*> pages;
  for (TControl* control : Controls()) {
    if (auto* page = dynamic_cast<TTabSheet*>(control)) pages.push_back(page);
  }
  return pages;
}

TTabSheet* TPageControl::ActivePage() const {
  const std::vector<TTabSheet*> pages = Pages();
  const auto active = static_cast<std::size_t>(ActivePageIndex());
  return active < pages.size() ? pages[active] : nullptr;
}

int TPageControl::ActivePageIndex() const {
  const std::vector<TTabSheet*> pages = Pages();
  const auto active = static_cast<std::size_t>(active_);
  if (active >= pages.size() || !pages[active]->Withheld()) return active_;
  const auto seen =
      std::find_if(pages.begin(), pages.end(), [](const TTabSheet* page) { return page->Visible(); });
  return seen == pages.end() ? active_ : static_cast<int>(seen - pages.begin());
}

void TPageControl::SetActivePageIndex(int index) {
  const std::vector<TTabSheet*> pages = Pages();
  if (index == active_ || index < 0 || index >= static_cast<int>(pages.size())) return;
  if (pages[static_cast<std::size_t>(index)]->Withheld()) return;
  const TForm* form = Form();
  const TControl* inside = form == nullptr ? nullptr : form->ActiveControl();
  while (inside != nullptr && inside != ActivePage()) inside = inside->Parent();
  if (inside != nullptr) SetFocus();
  active_ = index;
  Changed();
  if (OnChange) OnChange();
}

void TPageControl::DoKey(TKey& key) {
  if (!key.Is(Key::Left) && !key.Is(Key::Right)) return;
  const bool forward = key.Is(Key::Left);
  key.Consume();
  Turn(forward);
}

void TPageControl::DoContainedKey(TKey& key) {
  if (key.key != Key::Tab || !key.ctrl || key.alt) return;
  const bool forward = !key.shift;
  key.Consume();
  Turn(forward);
}

void TPageControl::Turn(bool forward) {
  const std::vector<TTabSheet*> pages = Pages();
  const int count = static_cast<int>(pages.size());
  for (int step = 1; step < count; ++step) {
    const int index = (ActivePageIndex() + (forward ? step : count - step)) % count;
    if (pages[static_cast<std::size_t>(index)]->Visible()) return SetActivePageIndex(index);
  }
}

}  // namespace goods
