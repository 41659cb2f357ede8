#include "host/frames/general_search_frame.h"

#include <utility>

namespace goods {

TGeneral_Search_Frame::TGeneral_Search_Frame(TComponent* owner, std::string name, std::string caption)
    : TSearchFrame(owner, std::move(name), GeneralSearch_CHK, GeneralSearch_CMB, GeneralSearch_Reverst_CHK),
      GeneralSearch_CHK(this, "GeneralSearch_CHK", std::move(caption)) {
  GeneralSearch_EDT.SearchBox = true;
  GeneralSearch_EDT.SetAccessibleName(GeneralSearch_CHK.AccessibleName());
  LayOut();
  Place(GeneralSearch_EDT, 1);
  GeneralSearch_EDT.OnChange = [this] {
    const bool given = !GeneralSearch_EDT.Text().empty();
    if (GeneralSearch_CHK.Checked() != given) {
      GeneralSearch_CHK.SetChecked(given);  // its own click brings the criterion up to date
    } else if (!ControlsChanged() && given) {
      Search.NotifyChange();
    }
  };
}

void TGeneral_Search_Frame::Clear() {
  GeneralSearch_EDT.Clear();
  GeneralSearch_CHK.SetChecked(false);
  GeneralSearch_CMB.SetItemIndex(0);
  GeneralSearch_Reverst_CHK.SetChecked(false);
}

// The kind of input follows the chosen field, so that a search among numbers cannot hold a text.
void TGeneral_Search_Frame::FillSearch() {
  switch (Search.Kind) {
    case DataKind::Text:
      GeneralSearch_EDT.SetKind(InputKind::Text);
      break;
    case DataKind::Number:
      GeneralSearch_EDT.SetKind(InputKind::Integer);
      break;
    case DataKind::Amount:
      GeneralSearch_EDT.SetKind(InputKind::Amount);
      break;
  }
  Search.Operator = Search.Kind == DataKind::Text ? SearchOperator::Contains : SearchOperator::Equals;
  Search.Value = GeneralSearch_EDT.HoldsValue() ? GeneralSearch_EDT.Text() : std::string();
}

}  // namespace goods
