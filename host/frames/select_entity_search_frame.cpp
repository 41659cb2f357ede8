#include "host/frames/select_entity_search_frame.h"

#include <algorithm>
#include <utility>

namespace goods {

TSelectEntity_Search_Frame::TSelectEntity_Search_Frame(TComponent* owner, std::string name,
                                                       std::string caption)
    : TSearchFrame(owner, std::move(name), SelectEntity_CHK, SelectEntity_CMB, SelectEntity_Reverst_CHK),
      SelectEntity_CHK(this, "SelectEntity_CHK", std::move(caption)) {
  TSelect_Entity_Frame1.Code_EDT.SetAccessibleName("کد " + SelectEntity_CHK.AccessibleName());
  LayOut();
  Place(TSelect_Entity_Frame1, 1);
  TSelect_Entity_Frame1.OnCodeChange = [this] {
    const bool given = CodeAsInt() != 0;
    if (SelectEntity_CHK.Checked() != given) {
      SelectEntity_CHK.SetChecked(given);  // its own click brings the criterion up to date
    } else {
      ControlsChanged();
    }
  };
}

bool TSelectEntity_Search_Frame::IsOnlyThisOne() const {
  return InUse() && !SelectEntity_Reverst_CHK.Checked();
}

void TSelectEntity_Search_Frame::SetEntityTypes(std::vector<EntityType> types) {
  types_ = std::move(types);
  FollowType();
}

void TSelectEntity_Search_Frame::FollowType() {
  const auto chosen = static_cast<std::size_t>(std::max(SelectEntity_CMB.ItemIndex(), 0));
  if (chosen >= types_.size() || types_[chosen] == TSelect_Entity_Frame1.GetEntityType()) return;
  SetEntityType(types_[chosen]);
  TSelect_Entity_Frame1.SetCode(0);
}

void TSelectEntity_Search_Frame::SetCode(std::int64_t code) {
  TSelect_Entity_Frame1.SetCode(code);
  SelectEntity_CHK.SetChecked(code != 0);
}

void TSelectEntity_Search_Frame::Clear() {
  SetCode(0);
  SelectEntity_Reverst_CHK.SetChecked(false);
}

void TSelectEntity_Search_Frame::FillSearch() {
  FollowType();
  Search.Operator = SearchOperator::Equals;
  Search.Value = CodeAsInt() == 0 ? "" : std::to_string(CodeAsInt());
}

}  // namespace goods
