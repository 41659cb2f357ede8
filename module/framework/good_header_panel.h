// TGoodHeaderPanel: the good that a window is about, with its two units.
#pragma once

#include <cstdint>
#include <string>

#include "host/components/standard.h"
#include "host/services/settings.h"

namespace goods {

// Captions and the second unit's showing follow the settings: which of two units is the larger one, and
// whether goods have a second unit at all.
void ApplyUnitCaptions(const TSettings& settings, TLabel& unitCaption, TLabel& unit2Caption, TLabel& unit2);

class TGoodHeaderPanel : public TPanel {
 public:
  TGoodHeaderPanel(TComponent* window, std::string name);

  void Show(const TSettings& settings, std::int64_t code, const std::string& name, const std::string& unit,
            const std::string& unit2);

  TLabel GoodCode_Cap_LBL{this, "GoodCode_Cap_LBL", "کد کالا :"};
  TLabel GoodCode_LBL{this, "GoodCode_LBL"};
  TLabel GoodName_Cap_LBL{this, "GoodName_Cap_LBL", "نام کالا :"};
  TLabel GoodName_LBL{this, "GoodName_LBL"};
  TLabel Unit_Cap_LBL{this, "Unit_Cap_LBL", "واحد :"};
  TLabel Unit_LBL{this, "Unit_LBL"};
  TLabel Unit2_Cap_LBL{this, "Unit2_Cap_LBL", "واحد 2 :"};
  TLabel Unit2_LBL{this, "Unit2_LBL"};
};

}  // namespace goods
