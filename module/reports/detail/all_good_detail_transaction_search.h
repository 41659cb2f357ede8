// TAllGoodDetailTransactionSearch_FRM: the criteria dialog of the good-detail reports.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "host/base/base_search.h"
#include "host/components/stored_properties.h"
#include "host/frames/category_frame.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/range_digit_search_frame.h"
#include "host/frames/select_entity_search_frame.h"
#include "host/frames/tags_frame.h"
#include "module/data/good_transactions_dm.h"
#include "module/reports/detail/detail_criteria.h"
#include "module/reports/detail/detail_row.h"

namespace goods {

// Which good or group, and which codes, the dialog asks for is its report's to say. It runs nothing: the
// report reads it after it was accepted. What it holds stays while its report lives.
class TAllGoodDetailTransactionSearch_FRM : public TBaseSearch_FRM {
 public:
  explicit TAllGoodDetailTransactionSearch_FRM(THost& host);
  ~TAllGoodDetailTransactionSearch_FRM() override;

  // The software part under which the right to selected lists is asked for: that of the money list, and of
  // the quantity list for any other.
  int SoftwarePart = kPartAmountAsset;
  bool HaveSelectedListPermission() const;
  // Whether tags or a category are chosen. For who opens the dialog; its reports look at its box alone.
  bool HaveAdvFilter() const;
  // What stands in it. A store that cannot be seen, because stores are totalled, is not asked for.
  DetailDialogCriteria Criteria() const;
  // The dialog's settings in their section: read when the report has set it up, and saved from then on as it
  // closes. A report that does not call it leaves the section alone.
  void LoadStoredProperties();

  void FormCreate() override;
  void FormShow() override;
  void FormClose() override;
  void FormKeyDown(TKey& key) override;
  void Del_BTNClick() override;
  void SelectedList_CMBEditValueChange();

 private:
  TGoodTransactions_DM data_;

 public:
  TTags_search_FRM TTags_search_FRM1{this, "TTags_search_FRM1", "برچس&ب :"};
  TCategorysearchframe TCategorySearchFrame1{this, "TCategorySearchFrame1", "&دسته :"};
  TDetailRow DetailRow2{this, 2, "جزئیات &2 از نوع :"};
  TDetailRow DetailRow3{this, 3, "جزئیات &3 از نوع :"};
  TDetailRow DetailRow4{this, 4, "جزئیات &4 از نوع :"};
  TDetailRow DetailRow5{this, 5, "جزئیات &5 از نوع :"};
  TPanel SelectedList_PNL{this, "SelectedList_PNL", Flow::Row};
  TLabel SelectedList_LBL{this, "SelectedList_LBL", "&لیست انتخابی :"};
  TComboBox SelectedList_CMB{this, "SelectedList_CMB"};
  TCheckBox DisplayType_CHK{this, "DisplayType_CHK", "کالاهای  لیست نمایش داده نشوند"};
  TLabel DisplayType_LBL{this, "DisplayType_LBL", "کالاهای  لیست نمایش داده نشوند"};
  TSelectEntity_Search_Frame Good_SESF{this, "Good_SESF", "&کالا :"};
  TRange_Digit_Search_Frame SearchGoodCode_FRAME{this, "SearchGoodCode_FRAME", "کدها :"};
  TSelectEntity_Search_Frame Store_SESF{this, "Store_SESF", "ا&نبار :"};
  TRange_Date_Search_Frame DateRangeSearch_Frame{this, "DateRangeSearch_Frame", "&تاریخ عملیات :"};

  std::array<TDetailRow*, 4> DetailRows() { return {&DetailRow2, &DetailRow3, &DetailRow4, &DetailRow5}; }
  std::array<const TDetailRow*, 4> DetailRows() const {
    return {&DetailRow2, &DetailRow3, &DetailRow4, &DetailRow5};
  }

 private:
  void DeclareForm();
  void FillSelectedList();
  void KeepProperties();

  TStoredProperties stored_{this, "Stored", "AllGoodDetailTransactionSearch"};
  bool keepsSettings_ = false;
};

}  // namespace goods
