// TGoodDetailOperationDismatch_FRM: the document rows of one good whose quantity differs from that of the
// good's details.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/base/base_dock.h"
#include "host/frames/adv_search_frame.h"
#include "module/data/good_transactions_dm.h"
#include "module/framework/delayed_search.h"
#include "module/framework/good_header_panel.h"
#include "module/framework/title_search_panel.h"
#include "module/reports/mismatch/good_detail_operation_dismatch_search.h"

namespace goods {

// Custom parameter: 0 good, 1 its name, 2 unit 1's code, 3 unit 2's name, 4 unit 2's code, 5 unit 1's name,
// 6 store; a store above 0 is searched for in the first run of each showing. Every change of a criterion
// builds the parameters anew and runs the procedure; typing does so once it has paused. Nothing runs before
// the window is shown.
class TGoodDetailOperationDismatch_FRM : public TBaseDock_FRM {
 public:
  TGoodDetailOperationDismatch_FRM(THost& host, int formMode, Variant customParameter,
                                   std::string settingsName);
  ~TGoodDetailOperationDismatch_FRM() override;

  // The criteria as parameters, and in Persian; both empty until the window is shown.
  void SetProcParams(std::string& parameters);
  const std::string& FilterCaption() const { return filterCaption_; }

  void FormCreate() override;
  void FormShow() override;
  void FormClose() override;
  void FormKeyDown(TKey& key) override;
  void WindowMessage(int code) override;
  void PrintDBGridEhBeforePrint(std::vector<std::string>& lines) override;

  void GoodDetailSearch_CMBChange();
  void OperationsType_CMBChange();
  void ADVSearch_Fram1ADVSearch_BTNClick();
  void ADVSearch_Fram1ADVSearch_CHKClick();
  void GoodDetailOperationDismatch_GRDSortChanged();
  void OpenInfo_BTNClick();

 private:
  TGoodTransactions_DM dataModule_;
  DelayedSearch delayedSearch_;

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

 private:
  void DeclareForm();
  void DeclareColumns();
  void AddTitle(CriteriaText& criteria) const;
  void RunReport(int mode);

  std::int64_t goodCode_ = 0;
  std::string goodName_;
  std::string unit1Name_;
  std::string unit2Name_;
  std::int64_t storeCode_ = 0;
  bool shown_ = false;
  std::string filterCaption_;
};

}  // namespace goods
