// TListDetail_FRAME: the panel under a grid that shows the current row's fields.
#pragma once

#include <string>

#include "host/components/field_list.h"
#include "host/components/standard.h"

namespace goods {

// The user chooses how many fields stand beside each other; a window that keeps its settings keeps the item
// of View_CMB.
class TListDetail_FRAME : public TPanel {
 public:
  TListDetail_FRAME(TComponent* owner, std::string name);

  // The choice, for the window to place at the end of a row of buttons.
  TPanel View_PNL{this, "View_PNL", Flow::Row};
  TLabel View_LBL{this, "View_LBL", "نمایش مشخصات :"};
  TComboBox View_CMB{this, "View_CMB"};
  TFieldList DetailFields_QRT1{this, "DetailFields_QRT1"};

 private:
  TPanel Rest_PNL{this, "Rest_PNL"};  // keeps the choice away from the buttons
};

}  // namespace goods
