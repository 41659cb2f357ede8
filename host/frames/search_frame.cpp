#include "host/frames/search_frame.h"

#include <utility>

namespace goods {

TSearchFrame::TSearchFrame(TComponent* owner, std::string name, TCheckBox& check, TComboBox& kinds,
                           TCheckBox& reverse)
    : TPanel(owner, std::move(name), Flow::Row), check_(check), kinds_(kinds), reverse_(reverse) {}

void TSearchFrame::SetItems(std::vector<TSearchItem> items) {
  items_ = std::move(items);
  std::vector<TComboItem> titles;
  for (const TSearchItem& item : items_) titles.push_back({item.Title, 0, ""});
  kinds_.SetItems(std::move(titles));
  kinds_.SetVisible(items_.size() > 1);
  ControlsChanged();
}

void TSearchFrame::ControlsChanged() {
  const std::string condition = Search.DataSetCondition();
  const std::string parameters = Search.ProcParams();
  const auto chosen = static_cast<std::size_t>(kinds_.ItemIndex() < 0 ? 0 : kinds_.ItemIndex());
  if (chosen < items_.size()) {
    Search.Title = items_[chosen].Title;
    Search.FieldName = items_[chosen].FieldName;
    Search.Kind = items_[chosen].Kind;
  }
  Search.Active = check_.Checked();
  Search.Exclude = reverse_.Checked();
  FillSearch();
  if (Search.DataSetCondition() != condition || Search.ProcParams() != parameters) Search.NotifyChange();
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
