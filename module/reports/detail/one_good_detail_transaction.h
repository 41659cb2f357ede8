// TOneGoodDetailTransaction_FRM: the movements of one good at one combination of detail values.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "host/frames/adv_search_frame.h"
#include "module/data/good_transactions_dm.h"
#include "module/framework/good_header_panel.h"
#include "module/framework/report_engine.h"
#include "module/framework/title_search_panel.h"
#include "module/reports/detail/one_good_criteria.h"
#include "module/reports/detail/one_good_detail_transaction_search.h"

namespace goods {

// Custom parameter: 0 good, 1 its name, 2 unit 1, 3 name of unit 2, 4 unit 2, 5 name of unit 1, 6 store, 7 to
// 11 the detail values, 12 the combination, 13 dates given, 14 from, 15 to, 16 store given. The titles of the
// details and the unit kind are the good's own. Every change of a criterion runs the report. Each showing
// begins with the parameter's dates and store alone.
class TOneGoodDetailTransaction_FRM : public TReportOf<OneGoodDetailCriteria> {
 public:
  TOneGoodDetailTransaction_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  ~TOneGoodDetailTransaction_FRM() override;

  void FormCreate() override;
  void FormShow() override;
  void FormClose() override;
  void FormKeyDown(TKey& key) override;
  void OpenInfo_BTNClick();

 private:
  TGoodTransactions_DM dataModule_;

 public:
  TGoodHeaderPanel Header_PNL{this, "Header_PNL"};
  TPanel Details_PNL{this, "Details_PNL", Flow::Row};
  TLabel Detail1_Cap_LBL{this, "Detail1_Cap_LBL"};
  TLabel Detail1_LBL{this, "Detail1_LBL"};
  TLabel Detail2_Cap_LBL{this, "Detail2_Cap_LBL"};
  TLabel Detail2_LBL{this, "Detail2_LBL"};
  TLabel Detail3_Cap_LBL{this, "Detail3_Cap_LBL"};
  TLabel Detail3_LBL{this, "Detail3_LBL"};
  TLabel Detail4_Cap_LBL{this, "Detail4_Cap_LBL"};
  TLabel Detail4_LBL{this, "Detail4_LBL"};
  TLabel Detail5_Cap_LBL{this, "Detail5_Cap_LBL"};
  TLabel Detail5_LBL{this, "Detail5_LBL"};
  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TSmartDBGrid_QRT GoodDetailTransaction_GRD{this, "GoodDetailTransaction_GRD"};
  TTitleSearchPanel Search_PNL{this, "Search_PNL", delayedSearch_, GoodDetailTransaction_GRD};
  TADVSearch_Fram ADVSearch_Fram1{this, "ADVSearch_Fram1"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton OpenInfo_BTN{this, "OpenInfo_BTN", "نمایش سند F2"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};
  TOneGoodDetailTransactionSearch_FRM Search_FRM;

 protected:
  void OnCustomParameter(const CustomParameter& parameter) override;
  OneGoodDetailCriteria ReadCriteria() const override;
  void Fetch(const std::string& parameters, Waiting waiting) override;
  void AddPrintLines(std::vector<std::string>& lines) override;

 private:
  struct Opened {
    std::int64_t good = 0;
    std::string name;
    std::string unit;
    std::string unit2;
    std::int64_t store = 0;
    std::array<std::string, 5> values;
    std::int64_t detailValue = 0;
    bool datesGiven = false;
    std::string from;
    std::string to;
    bool storeGiven = false;
  };

  void DeclareForm();
  void DeclareColumns();
  void ReadGood();
  void ApplyUnitKind();
  void ShowHeader();
  void PresetCriteria();

  Opened opened_;
  std::int64_t unitKind_ = 2;
  std::array<std::string, 5> titles_;
};

}  // namespace goods
