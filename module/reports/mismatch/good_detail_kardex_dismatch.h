// TGoodDetailKardexDismatch_FRM: the goods whose stock on the stock card differs from that of their details.
#pragma once

#include <string>

#include "host/components/stored_properties.h"
#include "host/frames/list_detail_frame.h"
#include "module/data/good_transactions_dm.h"
#include "module/framework/groups_panel.h"
#include "module/framework/report_engine.h"
#include "module/framework/title_search_panel.h"
#include "module/reports/mismatch/card_mismatch_criteria.h"

namespace goods {

// All criteria stand on the window; every change of one runs the report. Each showing begins with the stores
// totalled, no search text and no range of the difference; the column that is searched is kept.
class TGoodDetailKardexDismatch_FRM : public TReportOf<KardexDismatchCriteria> {
 public:
  TGoodDetailKardexDismatch_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  TGoodDetailKardexDismatch_FRM(THost& host, int formMode, std::string settingsName);
  ~TGoodDetailKardexDismatch_FRM() override;

  // The criteria of the run in Persian; empty without one.
  std::string FilterDescription() const { return FilterCaption(); }
  // A refresh from outside: stores are totalled, the groups are read again, and the report runs once. What is
  // searched for stays.
  void Reset();

  void FormCreate() override;
  void FormShow() override;
  void FormClose() override;
  void FormKeyDown(TKey& key) override;

  void GoodGrp_DSDataChange();
  void StoresTotals_RDBClick();
  void StoresTotals_LBLClick() { ChooseStores(StoresTotals_RDB); }
  void StoresSeparations_LBLClick() { ChooseStores(StoresSeparations_RDB); }
  void GoodDetailSearch_CMBChange();
  void GoodDetailSearchAmount_CMBChange();
  void OpenInfo_BTNClick();

 private:
  TGoodTransactions_DM dataModule_;

 public:
  TPanel Body_PNL{this, "Body_PNL", Flow::Row};
  TGroupsPanel Groups_PNL{this, "Groups_PNL", "GoodGroup_GRD", dataModule_.GoodGroup.Source};
  TPanel List_PNL{this, "List_PNL"};
  TSmartDBGrid_QRT GoodDetailKardexDismatch_GRD{this, "GoodDetailKardexDismatch_GRD"};
  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TTitleSearchPanel Search_PNL{this, "Search_PNL", delayedSearch_, GoodDetailKardexDismatch_GRD,
                               kLowerEditTyped};
  TPanel Stores_PNL{this, "Stores_PNL", Flow::Row};
  TRadioButton StoresTotals_RDB{this, "StoresTotals_RDB"};
  TLabel StoresTotals_LBL{this, "StoresTotals_LBL", "تج&میع انبارها"};
  TRadioButton StoresSeparations_RDB{this, "StoresSeparations_RDB"};
  TLabel StoresSeparations_LBL{this, "StoresSeparations_LBL", "ت&فکیک انبارها"};
  TPanel Amount_PNL{this, "Amount_PNL", Flow::Row};
  TLabel GoodDetailSearchAmount_LBL{this, "GoodDetailSearchAmount_LBL", "فیلتر از &نوع :"};
  TComboBox GoodDetailSearchAmount_CMB{this, "GoodDetailSearchAmount_CMB"};
  TLabel FromAmount_LBL{this, "FromAmount_LBL", "از :"};
  TEdit FromAmount_EDT{this, "FromAmount_EDT", InputKind::Amount};
  TLabel ToAmount_LBL{this, "ToAmount_LBL", "تا :"};
  TEdit ToAmount_EDT{this, "ToAmount_EDT", InputKind::Amount};
  TListDetail_FRAME TListDetail_FRAME1{this, "TListDetail_FRAME1"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton OpenInfo_BTN{this, "OpenInfo_BTN", "نمایش ریز اطلاعات مغایرت F2"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};

 protected:
  KardexDismatchCriteria ReadCriteria() const override;
  void Fetch(const std::string& parameters, Waiting waiting) override;

 private:
  void DeclareForm();
  void DeclareColumns();
  void KeepSettings();
  void ResetCriteria();
  void ChooseStores(TRadioButton& choice);
  void ShowStoreColumns();
  void ShowDifference();

  TStoredProperties kept_{this, "Kept", "GoodDetailKardexDismatch"};
  bool resetting_ = false;
};

}  // namespace goods
