// TGoodDetailTransaction_FRM: the stock of goods at each combination of their detail values.
#pragma once

#include <string>
#include <vector>

#include "host/frames/tab_search_frame.h"
#include "module/framework/groups_panel.h"
#include "module/reports/detail/detail_report.h"

namespace goods {

// Custom parameter: 0 form mode (1 by the user, 2 from another report), 1 good, 2 store given, 3 store, 4
// dates given, 5 from, 6 to, 7 tags given, 8 tags, 9 category given, 10 category. What is given is preset in
// the criteria dialog and ticks the advanced search; a given store separates the stores as well. From another
// report the rows are limited to the good. Each showing begins with every movement kind; each parameter with
// totalled stores and without a good, store, dates, tags and category of the last one.
class TGoodDetailTransaction_FRM : public TDetailReport_FRM {
 public:
  TGoodDetailTransaction_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  ~TGoodDetailTransaction_FRM() override;

  void FormCreate() override;
  void FormShow() override;
  void FormKeyDown(TKey& key) override;
  void StoresTotals_RDBClick();
  void GoodDetailTabChange();
  void OpenInfo_BTNClick();

  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TRadioButton StoresTotals_RDB{this, "StoresTotals_RDB", "تج&میع انبارها"};
  TRadioButton StoresSeparations_RDB{this, "StoresSeparations_RDB", "ت&فکیک انبارها"};
  TPanel Stores_PNL{this, "Stores_PNL", Flow::Row};
  TPanel Body_PNL{this, "Body_PNL", Flow::Row};
  TGroupsPanel Groups_PNL{this, "Groups_PNL", "GoodGroup_GRD", dataModule_.GoodGroup.Source};
  TPanel List_PNL{this, "List_PNL"};
  TTab_Search_Frame TTab_Search_Frame1{this, "TTab_Search_Frame1"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton OpenInfo_BTN{this, "OpenInfo_BTN", "گردش جزئیات F2"};
  TButton SearchInDetail_BTN{this, "SearchInDetail_BTN", "جستجو در گردش جزئیات F3"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};

 protected:
  void OnCustomParameter(const CustomParameter& parameter) override;
  void ReadOwnCriteria(DetailListCriteria& criteria) const override;
  void ResetCriteria() override;
  void Fetch(const std::string& parameters, Waiting waiting) override;
  TQueryWithSource& Rows() override { return dataModule_.GoodDetailTransaction; }
  std::string RowCondition() const override;

 private:
  void DeclareForm();
  void DeclareColumns();
  void ApplyStoreSeparation();
  void PresetTags();

  std::vector<std::string> presetTags_;
};

}  // namespace goods
