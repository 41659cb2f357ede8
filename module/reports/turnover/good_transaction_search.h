// TGoodTransactionSearch_FRM: the criteria dialog of the goods turnover list.
#pragma once

#include <string>

#include "host/base/base_search.h"
#include "host/components/stored_properties.h"
#include "host/frames/category_frame.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/range_digit_search_frame.h"
#include "host/frames/select_entity_search_frame.h"
#include "host/frames/tags_frame.h"
#include "module/data/list_data.h"
#include "module/framework/period_panel.h"
#include "module/reports/turnover/goods_list_criteria.h"

namespace goods {

// Belongs to its list, which reads the criteria after each showing and runs them itself: the dialog's search
// manager holds the items and runs nothing. The boxes, the
// choice of columns and the ranges are kept in the host's settings between runs of the program.
class TGoodTransactionSearch_FRM : public TBaseSearch_FRM {
 public:
  // reportKind is that of the list, 501 or 502; the right to selected lists and the amount range depend on
  // it. data must outlive the dialog.
  TGoodTransactionSearch_FRM(THost& host, SelectedListData& data, int reportKind);
  ~TGoodTransactionSearch_FRM() override;

  GoodsListDialogCriteria Criteria() const;
  // Whether any criterion is in use.
  bool HaveAdvFilter() const;
  // Whether the user may choose selected lists; asked once, when the dialog is created.
  bool HaveSelectedListPermission() const { return selectedListPermission_; }
  // The selected lists as they were filled in.
  const TSelectedListFill& SelectedLists() const { return selectedLists_; }
  void SelectedListEnable(bool enabled);
  // The price basis gives its name to the price's range.
  void NamePriceRange(std::string title) { CostRangeSearch_FRAME.RenameItem(0, std::move(title)); }

  void FormCreate() override;
  void FormShow() override;
  void FormClose() override;
  void FormKeyDown(TKey& key) override;
  void Del_BTNClick() override;

  void QeratSearchManager1CustomFilter_Proc(std::string& text);
  void SelectedList_CMBChange();
  // Of the hidden button. What it stood for, parameters by their position, has no reader.
  void Go_BTNClick() {}
  void TCategorySearchFrame1Change();

  TRange_Digit_Search_Frame Code_Frame{this, "Code_Frame", "&کد :"};
  TRange_Cost_Search_Frame CostRangeSearch_FRAME{this, "CostRangeSearch_FRAME", "م&بلغ :"};
  TRange_Date_Search_Frame Date_Frame{this, "Date_Frame", "&تاريخ :"};
  TSelectEntity_Search_Frame Store_Frame{this, "Store_Frame", "ا&نبار :"};
  TCategorysearchframe TCategorySearchFrame1{this, "TCategorySearchFrame1", "&دسته :"};
  TTags_search_FRM TTags_search_FRM1{this, "TTags_search_FRM1", "برچس&ب :"};
  TPanel SelectedList_PNL{this, "SelectedList_PNL", Flow::Row};
  TLabel SelectedList_LBL{this, "SelectedList_LBL", "&لیست انتخابی :"};
  TComboBox SelectedList_CMB{this, "SelectedList_CMB"};
  TCheckBox DisplayType_CHK{this, "DisplayType_CHK", "کالاهای  لیست نمایش داده نشوند"};
  TLabel DisplayType_LBL{this, "DisplayType_LBL", "کالاهای  لیست نمایش داده نشوند"};
  TPeriodPanel Period_PNL{this, "Period_PNL", BeforePeriodBox::KeepsItsState};
  TButton Go_BTN{this, "Go_BTN"};

 private:
  void DeclareForm();
  void AddItems();
  bool ShowsAmounts() const;
  std::int64_t SelectedListCode() const;

  SelectedListData& data_;
  int reportKind_;
  bool selectedListPermission_ = false;
  TSelectedListFill selectedLists_;
  TQeratSearch categorySearch_{this, "CategorySearch"};
  TStoredProperties boxes_{this, "Boxes", "ptt2"};
  TStoredProperties ranges_{this, "Ranges", "Ptt1"};
};

}  // namespace goods
