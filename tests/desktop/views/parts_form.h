// A window with the parts that lists of goods are made of: tabs, a drop-down of pages, tags, categories, a
// splitter, a warning, and tables as a list and with many columns.
#pragma once

#include <string>
#include <vector>

#include "host/components/drop_down.h"
#include "host/components/tabs.h"
#include "host/frames/category_frame.h"
#include "host/frames/tags_frame.h"
#include "host/frames/vouchers_warning_frame.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {

class TagLookups : public TestLookups {
 public:
  std::vector<TTag> Tags() override;
  std::vector<TCategory> Categories() override;
  std::optional<std::vector<std::string>> SelectCategories(TForm*,
                                                           const std::vector<std::string>& chosen) override;
};

class TParts_FRM : public TBaseDock_FRM {
 public:
  explicit TParts_FRM(THost& host);
  void FormKeyDown(TKey& key) override;

  // Gives the table that many amount columns in groups of four, after code and name.
  void AddAmountColumns(int count);

  TagLookups lookups;
  std::vector<Key> keys;  // those that reached the window

  TDontSavedVouchers_Frame Vouchers_FRM{this, "Vouchers_FRM", "3"};
  TPanel Top_PNL{this, "Top_PNL", Flow::Row};
  TLabel Level_LBL{this, "Level_LBL", "مب&نای قیمت :"};
  TDropDownCombo Level_CMB{this, "Level_CMB"};
  TPanel Level_PNL{this, "Level_PNL"};
  TPageControl Level_PGC{this, "Level_PGC"};
  TTabSheet Cost_TBS{this, "Cost_TBS", Flow::Column, "&بها"};
  TRadioButton Average_RDB{this, "Average_RDB", "میانگین &موزون"};
  TRadioButton LastBuy_RDB{this, "LastBuy_RDB", "آ&خرین خرید"};
  TRadioButton HighestBuy_RDB{this, "HighestBuy_RDB", "بالاترین خرید"};
  TTabSheet Levels_TBS{this, "Levels_TBS", Flow::Column, "&سطوح قیمت"};
  TEdit Level_EDT{this, "Level_EDT"};
  TComboBox Level_List_CMB{this, "Level_List_CMB"};
  TTabSheet History_TBS{this, "History_TBS", Flow::Column, "سا&بقه"};
  TLabel History_LBL{this, "History_LBL", "بدون سابقه"};
  TButton Accept_BTN{this, "Accept_BTN", "&تایید"};
  TEdit After_EDT{this, "After_EDT"};
  TTabControl Kala_TBC{this, "Kala_TBC"};
  TPanel Body_PNL{this, "Body_PNL", Flow::Row};
  TSmartDBGrid_QRT GoodGroup_DBG{this, "GoodGroup_DBG"};
  TSmartDBGrid_QRT Goods_GRD{this, "Goods_GRD"};
  TTags Tags_FRM;
  TTags_search_FRM TagSearch_FRM{this, "TagSearch_FRM", "بر&چسب :"};
  TCategorysearchframe Category_FRM{this, "Category_FRM", "&دسته :"};
  TADOQuery Goods_QRY;
  TDataSource Goods_DS{this, "Goods_DS", &Goods_QRY};
  TADOQuery Groups_QRY;
  TDataSource Groups_DS{this, "Groups_DS", &Groups_QRY};

 private:
  void LayOutTop();
  void LayOutBody();
};

}  // namespace goods::testing
