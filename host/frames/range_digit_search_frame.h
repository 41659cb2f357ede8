// TRange_Digit_Search_Frame and TRange_Cost_Search_Frame: the criterion "from this number to that one".
#pragma once

#include <string>

#include "host/components/edit.h"
#include "host/frames/search_frame.h"

namespace goods {

// Both ends included; an end that is empty or half typed is open. A criterion is in use while the box is
// ticked and an end is given; two ends that are open or "0" ask for nothing, while "0" beside another value
// is a bound. A number that is typed ticks the box, two emptied edits untick it. A field whose kind is Amount
// takes decimals and thousands separators.
class TRange_Digit_Search_Frame : public TSearchFrame {
 public:
  TRange_Digit_Search_Frame(TComponent* owner, std::string name, std::string caption,
                            InputKind kind = InputKind::Integer);

  void SetRange(std::string_view from, std::string_view to);
  // The ends as statements take them (TEdit::Value): empty where open, and both where the range asks for
  // nothing.
  std::string FromValue() const;
  std::string ToValue() const;
  // Ticked, and asks for something.
  bool InUse() const;
  void Clear() override;

  TCheckBox RangeDigit_CHK;
  TComboBox RangeDigit_CMB{this, "RangeDigit_CMB"};
  TLabel RangeDigit_From_LBL{this, "RangeDigit_From_LBL", "از :"};
  TEdit RangeDigit_From_EDT;
  TLabel RangeDigit_To_LBL{this, "RangeDigit_To_LBL", "تا :"};
  TEdit RangeDigit_To_EDT;
  TCheckBox RangeDigit_Reverst_CHK{this, "RangeDigit_Reverst_CHK", "به جز"};

 protected:
  void FillSearch() override;

 private:
  bool AsksForNothing() const;

  InputKind kind_;
};

// The same over amounts and quantities: decimals and thousands separators may be typed, and are sent without
// separators.
class TRange_Cost_Search_Frame : public TRange_Digit_Search_Frame {
 public:
  TRange_Cost_Search_Frame(TComponent* owner, std::string name, std::string caption)
      : TRange_Digit_Search_Frame(owner, std::move(name), std::move(caption), InputKind::Amount) {}
};

}  // namespace goods
