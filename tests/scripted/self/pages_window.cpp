#include "tests/scripted/self/pages_window.h"

#include <utility>

namespace goods {

TPages_FRM::TPages_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName)
    : TBaseDock_FRM(host, "Pages_FRM", formMode, std::move(customParameter), std::move(settingsName)),
      Tags_FRAME(this, "Tags_FRAME", host.Connection()) {
  Kind_TAB.SetTabs({"همه", "کالا"});
  Hidden_TSH.SetVisible(false);
  Disabled_TSH.SetEnabled(false);
  Place(Kind_TAB);
  Place(Page_PGC);
  for (TTabSheet* page : {&Criteria_TSH, &Hidden_TSH, &Other_TSH, &Disabled_TSH}) Page_PGC.Place(*page);
  for (TControl* control : {static_cast<TControl*>(&All_CHK), static_cast<TControl*>(&Period_DDC),
                            static_cast<TControl*>(&Empty_DDC), static_cast<TControl*>(&Tags_search),
                            static_cast<TControl*>(&Category_FRAME), static_cast<TControl*>(&Tags_FRAME)}) {
    Criteria_TSH.Place(*control);
  }
  Other_TSH.Place(Other_BTN);
  Period_PNL.Place(Month_RBT);
  Period_PNL.Place(Year_RBT);
  Period_DDC.SetPanel(Period_PNL);
  Period_DDC.OnDropDown = [this] { Month_RBT.SetFocus(); };
  for (TRadioButton* radio : {&Month_RBT, &Year_RBT}) {
    radio->OnClick = [this, radio] { Period_DDC.SetText(radio->Caption()); };
  }
  Place(Vouchers_FRAME);
  Place(Rows_GRD);
  Rows_GRD.AddColumn("Code", "کد").SetCustomizable(false);
  Rows_GRD.AddColumn("Name", "نام");
  Rows_GRD.AddColumn("Amount", "مبلغ").SetVisible(false);
  Stored_PRP.Keep(All_CHK);
  Initialise();
}

void TPages_FRM::FormShow() {
  Tags_search.OpenTags(Host().Lookups());
  Category_FRAME.Open(Host().Lookups());
  Vouchers_FRAME.CheckRefresh(Host().Documents());
  Stored_PRP.Load(Host().Settings());
}

void TPages_FRM::FormClose() { Stored_PRP.Save(Host().Settings()); }

void TPages_FRM::OnCustomParameter(const CustomParameter& parameter) {
  SetCaption(std::to_string(FormMode()) + " " + parameter.Text(0));
}

}  // namespace goods
