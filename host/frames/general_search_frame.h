// TGeneral_Search_Frame: the criterion "this field contains that text".
#pragma once

#include <string>

#include "host/components/edit.h"
#include "host/frames/search_frame.h"

namespace goods {

// A text that is typed ticks the box, an emptied edit unticks it. Every key of it notifies, whether or not it
// changes what is asked (a point behind a number, a separator): a window that runs a statement waits for the
// typing to end. A number that is half typed asks for nothing.
class TGeneral_Search_Frame : public TSearchFrame {
 public:
  TGeneral_Search_Frame(TComponent* owner, std::string name, std::string caption);

  void SetText(std::string_view text) { GeneralSearch_EDT.SetText(text); }
  void Clear() override;

  TCheckBox GeneralSearch_CHK;
  TComboBox GeneralSearch_CMB{this, "GeneralSearch_CMB"};
  TEdit GeneralSearch_EDT{this, "GeneralSearch_EDT"};
  TCheckBox GeneralSearch_Reverst_CHK{this, "GeneralSearch_Reverst_CHK", "به جز"};

 protected:
  void FillSearch() override;
};

}  // namespace goods
