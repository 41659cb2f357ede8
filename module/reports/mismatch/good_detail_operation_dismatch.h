// TGoodDetailOperationDismatch_FRM: the document rows of one good whose quantity differs from that of the
// good's details.
#pragma once

#include <cstdint>
#include <string>

#include "host/frames/adv_search_frame.h"
#include "module/data/good_transactions_dm.h"
#include "module/framework/good_header_panel.h"
#include "module/framework/report_engine.h"
#include "module/framework/title_search_panel.h"
#include "module/reports/mismatch/good_detail_operation_dismatch_search.h"
#include "module/reports/mismatch/operation_mismatch_criteria.h"

namespace goods {

// Custom parameter: 0 good, 1 its name, 2 unit 1's code, 3 unit 2's name, 4 unit 2's code, 5 unit 1's name,
// 6 store; a store above 0 is searched for in the first run of each showing. Every change of a criterion runs
// the report. Each showing begins without a search text, without a kind of operation and with an empty
// dialog; the column that is searched is kept.
class TGoodDetailOperationDismatch_FRM : public TReportOf<OperationDismatchCriteria> {
 public:
  TGoodDetailOperationDismatch_FRM(THost& host, int formMode, Variant customParameter,
                                   std::string settingsName);
  ~TGoodDetailOperationDismatch_FRM() override;

  void FormCreate() override;
  void FormShow() override;
  void FormKeyDown(TKey& key) override;

  void GoodDetailSearch_CMBChange();
  void OperationsType_CMBChange();
  void OpenInfo_BTNClick();

 private:
  TGoodTransactions_DM dataModule_;

 public:
  TGoodHeaderPanel Good_PNL{this, "Good_PNL"};
  TSmartDBGrid_QRT GoodDetailOperationDismatch_GRD{this, "GoodDetailOperationDismatch_GRD"};
  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TTitleSearchPanel Search_PNL{this, "Search_PNL", delayedSearch_, GoodDetailOperationDismatch_GRD};
  TLabel OperationsType_LBL{this, "OperationsType_LBL", "&نوع عملیات :"};
  TComboBox OperationsType_CMB{this, "OperationsType_CMB"};
  TADVSearch_Fram ADVSearch_Fram1{this, "ADVSearch_Fram1"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton OpenInfo_BTN{this, "OpenInfo_BTN", "بازکردن اطلاعات F2"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};
  TGoodDetailOperationDismatchSearch_FRM Search_FRM;

 protected:
  void OnCustomParameter(const CustomParameter& parameter) override;
  OperationDismatchCriteria ReadCriteria() const override;
  void Fetch(const std::string& parameters, Waiting waiting) override;

 private:
  void DeclareForm();
  void DeclareColumns();
  void ResetCriteria();

  std::int64_t goodCode_ = 0;
  std::string goodName_;
  std::string unit1Name_;
  std::string unit2Name_;
  std::int64_t storeCode_ = 0;
};

}  // namespace goods
