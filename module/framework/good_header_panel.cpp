#include "module/framework/good_header_panel.h"

#include <utility>

namespace goods {

void ApplyUnitCaptions(const TSettings& settings, TLabel& unitCaption, TLabel& unit2Caption, TLabel& unit2) {
  unitCaption.SetCaption(settings.SecondUnitIsLarger ? "واحد جزء :" : "واحد :");
  unit2Caption.SetCaption(settings.SecondUnitIsLarger ? "واحد کل :" : "واحد 2 :");
  unit2Caption.SetVisible(settings.SecondUnit);
  unit2.SetVisible(settings.SecondUnit);
}

TGoodHeaderPanel::TGoodHeaderPanel(TComponent* window, std::string name)
    : TPanel(window, std::move(name), Flow::Row) {
  Framed = true;
  for (TLabel* value : {&GoodCode_LBL, &GoodName_LBL, &Unit_LBL, &Unit2_LBL}) value->Emphasis = true;
  Place(GoodCode_Cap_LBL);
  Place(GoodCode_LBL);
  Place(GoodName_Cap_LBL);
  Place(GoodName_LBL, 1);
  for (TLabel* label : {&Unit_Cap_LBL, &Unit_LBL, &Unit2_Cap_LBL, &Unit2_LBL}) Place(*label);
}

void TGoodHeaderPanel::Show(const TSettings& settings, std::int64_t code, const std::string& name,
                            const std::string& unit, const std::string& unit2) {
  ApplyUnitCaptions(settings, Unit_Cap_LBL, Unit2_Cap_LBL, Unit2_LBL);
  GoodCode_LBL.SetCaption(std::to_string(code));
  GoodName_LBL.SetCaption(name);
  Unit_LBL.SetCaption(unit);
  Unit2_LBL.SetCaption(unit2);
}

}  // namespace goods
