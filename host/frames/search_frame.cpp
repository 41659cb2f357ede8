#include "host/frames/search_frame.h"

#include <algorithm>
#include <utility>

namespace goods {

TSearchFrame::TSearchFrame(TComponent* owner, std::string name, TCheckBox& check, TComboBox& kinds,
                           TCheckBox& reverse)
    : TPanel(owner, std::move(name), Flow::Row), check_(check), kinds_(kinds), reverse_(reverse) {}

void TSearchFrame::SetItems(std::vector<TSearchItem> items) {
  items_ = std::move(items);
  ShowItems(0);
}

void TSearchFrame::InsertItem(std::size_t at, TSearchItem item) {
  const std::size_t chosen = Chosen();
  at = std::min(at, items_.size());
  items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), std::move(item));
  ShowItems(chosen >= at && items_.size() > 1 ? chosen + 1 : chosen);
}

void TSearchFrame::RemoveItem(std::size_t at) {
  if (at >= items_.size()) return;
  const std::size_t chosen = Chosen();
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(at));
  ShowItems(chosen == at ? 0 : chosen - (chosen > at ? 1 : 0));
}

void TSearchFrame::RenameItem(std::size_t at, std::string title) {
  if (at >= items_.size() || items_[at].Title == title) return;
  items_[at].Title = std::move(title);
  ShowItems(Chosen());
}

std::size_t TSearchFrame::Chosen() const { return static_cast<std::size_t>(std::max(kinds_.ItemIndex(), 0)); }

void TSearchFrame::ShowItems(std::size_t chosen) {
  std::vector<TComboItem> titles;
  for (const TSearchItem& item : items_) titles.push_back({item.Title, 0, "", item.Money});
  showingItems_ = true;
  kinds_.SetItems(std::move(titles));
  kinds_.SetItemIndex(static_cast<int>(chosen));
  showingItems_ = false;
  kinds_.SetVisible(items_.size() > 1);
  ControlsChanged();
}

bool TSearchFrame::ControlsChanged() {
  if (showingItems_) return false;
  const std::string condition = Search.DataSetCondition();
  const std::string parameters = Search.ProcParams();
  const std::size_t chosen = Chosen();
  if (chosen < items_.size()) {
    Search.Title = items_[chosen].Title;
    Search.FieldName = items_[chosen].FieldName;
    Search.Kind = items_[chosen].Kind;
  }
  Search.Active = check_.Checked() && !Withheld();  // what is not seen does not filter
  Search.Exclude = reverse_.Checked();
  FillSearch();
  if (Search.DataSetCondition() == condition && Search.ProcParams() == parameters) return false;
  Search.NotifyChange();
  return true;
}

void TSearchFrame::LayOut() {
  check_.OnClick = [this] {
    if (OnCheckClick) OnCheckClick();
    ControlsChanged();
  };
  reverse_.OnClick = [this] { ControlsChanged(); };
  kinds_.OnChange = [this] { ControlsChanged(); };
  kinds_.SetVisible(false);
  reverse_.SetHint("همه به جز مورد انتخاب شده");
  Place(check_);
  Place(reverse_);
  Place(kinds_);
}

}  // namespace goods
