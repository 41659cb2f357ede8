// TAllGoodDetailTransaction_FRM: the movements of all goods by their detail values.
#pragma once

#include <string>

#include "host/components/stored_properties.h"
#include "host/frames/list_detail_frame.h"
#include "module/reports/detail/detail_report.h"

namespace goods {

// Takes no custom parameter. Each showing begins with every kind of operation.
class TAllGoodDetailTransaction_FRM : public TDetailReport_FRM {
 public:
  TAllGoodDetailTransaction_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  TAllGoodDetailTransaction_FRM(THost& host, int formMode, std::string settingsName);
  ~TAllGoodDetailTransaction_FRM() override;

  void FormCreate() override;
  void FormClose() override;
  void OperationsType_CMBChange();

  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TPanel Details_PNL{this, "Details_PNL", Flow::Row};
  TLabel OperationsType_LBL{this, "OperationsType_LBL", "نوع &عملیات :"};
  TComboBox OperationsType_CMB{this, "OperationsType_CMB"};
  TPanel Body_PNL{this, "Body_PNL"};
  TListDetail_FRAME TListDetail_FRAME1{this, "TListDetail_FRAME1"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};

 protected:
  void ReadOwnCriteria(DetailListCriteria& criteria) const override;
  void ResetCriteria() override;
  void Fetch(const std::string& parameters, Waiting waiting) override;
  TQueryWithSource& Rows() override { return dataModule_.AllGoodDetailTransaction; }

 private:
  void DeclareForm();
  void DeclareColumns();
  void SetUpDialog();

  TStoredProperties stored_{this, "Stored", "AllGoodDetailTransaction"};
};

}  // namespace goods
