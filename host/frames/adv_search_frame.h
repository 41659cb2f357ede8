// TADVSearch_Fram: the button that opens a window's criteria dialog, and the box that puts its criteria to
// use.
#pragma once

#include <string>

#include "host/components/standard.h"

namespace goods {

// The window sets OnClick of the button and of the box; a click on the label toggles the box.
class TADVSearch_Fram : public TPanel {
 public:
  TADVSearch_Fram(TComponent* owner, std::string name);

  TCheckBox ADVSearch_CHK{this, "ADVSearch_CHK"};
  TLabel ADVSearch_LBL{this, "ADVSearch_LBL", "جستجوی پیشرفته"};
  TButton ADVSearch_BTN{this, "ADVSearch_BTN", "..."};
};

}  // namespace goods
