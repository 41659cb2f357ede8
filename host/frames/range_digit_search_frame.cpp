#include "host/frames/range_digit_search_frame.h"

#include <utility>

namespace goods {
namespace {

constexpr std::string_view kNotGiven = "0";

}  // namespace

TRange_Digit_Search_Frame::TRange_Digit_Search_Frame(TComponent* owner, std::string name, std::string caption,
                                                     InputKind kind)
    : TSearchFrame(owner, std::move(name), RangeDigit_CHK, RangeDigit_CMB, RangeDigit_Reverst_CHK),
      RangeDigit_CHK(this, "RangeDigit_CHK", std::move(caption)),
      RangeDigit_From_EDT(this, "RangeDigit_From_EDT", kind),
      RangeDigit_To_EDT(this, "RangeDigit_To_EDT", kind),
      kind_(kind) {
  LayOut();
  RangeDigit_From_LBL.FocusControl = &RangeDigit_From_EDT;
  RangeDigit_To_LBL.FocusControl = &RangeDigit_To_EDT;
  RangeDigit_From_EDT.SetAccessibleName("از " + RangeDigit_CHK.AccessibleName());
  RangeDigit_To_EDT.SetAccessibleName("تا " + RangeDigit_CHK.AccessibleName());
  Place(RangeDigit_From_LBL);
  Place(RangeDigit_From_EDT, 1);
  Place(RangeDigit_To_LBL);
  Place(RangeDigit_To_EDT, 1);
  for (TEdit* edit : {&RangeDigit_From_EDT, &RangeDigit_To_EDT}) {
    edit->OnChange = [this] {
      const bool given = !RangeDigit_From_EDT.Text().empty() || !RangeDigit_To_EDT.Text().empty();
      if (RangeDigit_CHK.Checked() != given) {
        RangeDigit_CHK.SetChecked(given);
      } else {
        ControlsChanged();
      }
    };
  }
}

void TRange_Digit_Search_Frame::SetRange(std::string_view from, std::string_view to) {
  RangeDigit_From_EDT.SetText(from);
  RangeDigit_To_EDT.SetText(to);
}

bool TRange_Digit_Search_Frame::AsksForNothing() const {
  const auto open = [](const TEdit& edit) { return !edit.HoldsValue() || edit.Text() == kNotGiven; };
  return open(RangeDigit_From_EDT) && open(RangeDigit_To_EDT);
}

std::string TRange_Digit_Search_Frame::FromValue() const {
  return AsksForNothing() ? std::string() : RangeDigit_From_EDT.Value();
}

std::string TRange_Digit_Search_Frame::ToValue() const {
  return AsksForNothing() ? std::string() : RangeDigit_To_EDT.Value();
}

bool TRange_Digit_Search_Frame::InUse() const { return RangeDigit_CHK.Checked() && !AsksForNothing(); }

void TRange_Digit_Search_Frame::Clear() {
  SetRange("", "");
  RangeDigit_CHK.SetChecked(false);
  RangeDigit_CMB.SetItemIndex(0);
  RangeDigit_Reverst_CHK.SetChecked(false);
}

// A quantity among codes takes decimals.
void TRange_Digit_Search_Frame::FillSearch() {
  const InputKind kind = Search.Kind == DataKind::Amount ? InputKind::Amount : kind_;
  RangeDigit_From_EDT.SetKind(kind);
  RangeDigit_To_EDT.SetKind(kind);
  Search.Operator = SearchOperator::Range;
  // The reader's phrase keeps the separators.
  Search.From = FromValue().empty() ? std::string() : RangeDigit_From_EDT.Text();
  Search.To = ToValue().empty() ? std::string() : RangeDigit_To_EDT.Text();
}

}  // namespace goods
