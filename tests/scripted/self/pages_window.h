// A small report window with tabs, pages, a drop-down panel and tokens, on which the steps for them are
// tested.
#pragma once

#include <string>

#include "host/base/base_dock.h"
#include "host/components/drop_down.h"
#include "host/components/stored_properties.h"
#include "host/components/tabs.h"
#include "host/frames/category_frame.h"
#include "host/frames/tags_frame.h"
#include "host/frames/vouchers_warning_frame.h"

namespace goods {

// Keeps All_CHK in the section "Pages" between its showings. Its caption tells form mode and custom
// parameter.
class TPages_FRM : public TBaseDock_FRM {
 public:
  TPages_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  void FormShow() override;
  void FormClose() override;
  void OnCustomParameter(const CustomParameter& parameter) override;

  TTabControl Kind_TAB{this, "Kind_TAB"};
  TPageControl Page_PGC{this, "Page_PGC"};
  TTabSheet Criteria_TSH{this, "Criteria_TSH", Flow::Column, "&شرایط"};
  TTabSheet Hidden_TSH{this, "Hidden_TSH", Flow::Column, "پنهان"};
  TTabSheet Other_TSH{this, "Other_TSH", Flow::Column, "سایر"};
  TTabSheet Disabled_TSH{this, "Disabled_TSH", Flow::Column, "غیرفعال"};
  TButton Other_BTN{this, "Other_BTN"};
  TCheckBox All_CHK{this, "All_CHK", "همه"};
  TDropDownCombo Period_DDC{this, "Period_DDC"};
  TDropDownCombo Empty_DDC{this, "Empty_DDC"};
  TPanel Period_PNL{this, "Period_PNL"};
  TRadioButton Month_RBT{this, "Month_RBT", "ماه"};
  TRadioButton Year_RBT{this, "Year_RBT", "سال"};
  TTags Tags_FRAME;
  TTags_search_FRM Tags_search{this, "Tags_search", "برچسب :"};
  TCategorysearchframe Category_FRAME{this, "Category_FRAME", "دسته :"};
  TDontSavedVouchers_Frame Vouchers_FRAME{this, "Vouchers_FRAME", "3"};
  TStoredProperties Stored_PRP{this, "Stored_PRP", "Pages"};
  TSmartDBGrid_QRT Rows_GRD{this, "Rows_GRD"};
};

}  // namespace goods
