// TKardex_FRM: the stock card of one good.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/components/search_manager.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/select_entity_frame.h"
#include "host/frames/select_entity_search_frame.h"
#include "module/data/stockcard_data.h"
#include "module/framework/report_engine.h"
#include "module/reports/stockcard/stock_card_criteria.h"

namespace goods {

// Custom parameter: 0 form mode (1: the user chooses the good), 1 good, 2 store, 3 start date, 4 end date; 0
// and the empty text are none. It is applied when the window is shown, and each showing begins from it alone.
//
// The card of a good is read once; store, person and dates narrow its rows where they are, without a run.
class TKardex_FRM : public TReportOf<StockCardCriteria> {
 public:
  TKardex_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  ~TKardex_FRM() override;

  void FormCreate() override;
  void FormShow() override;
  void FormKeyDown(TKey& key) override;

  void Good_SEFCodeChange();
  void Date_RDSFCheckClick();
  void QeratSearchManager1SearchItems_Changed();
  void QeratSearchManager1AfterExecute();
  void QeratSearchManager1AfterExecute_DataSet();
  void OpenInfo_BTNClick();

 private:
  DataModuleOf<StockCardData> dataModule_;

 public:
  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Column, "شرایط گزارش (Alt+2)"};
  TPanel Good_PNL{this, "Good_PNL", Flow::Row};
  TLabel Good_LBL{this, "Good_LBL", "&کالا :"};
  TSelect_Entity_Frame Good_SEF{this, "Good_SEF"};
  TLabel Unit_Cap_LBL{this, "Unit_Cap_LBL"};
  TLabel Unit_LBL{this, "Unit_LBL", kNoName};
  TLabel Unit2_Cap_LBL{this, "Unit2_Cap_LBL"};
  TLabel Unit2_LBL{this, "Unit2_LBL", kNoName};
  TPanel Filters_PNL{this, "Filters_PNL", Flow::Row};
  TSelectEntity_Search_Frame Store_SESF{this, "Store_SESF", "ا&نبار :"};
  TSelectEntity_Search_Frame Person_SESF{this, "Person_SESF", "&شخص :"};
  TRange_Date_Search_Frame Date_RDSF{this, "Date_RDSF", "&تاریخ :"};
  TPanel PreTime_PNL{this, "PreTime_PNL", Flow::Row};
  TLabel PreTime_LBL{this, "PreTime_LBL", "[ پیش از بازه زمانی ]"};
  TLabel PreVarede_Cap_LBL{this, "PreVarede_Cap_LBL", "وارده :"};
  TLabel PreVarede_LBL{this, "PreVarede_LBL", "0"};
  TLabel PreSadere_Cap_LBL{this, "PreSadere_Cap_LBL", "صادره :"};
  TLabel PreSadere_LBL{this, "PreSadere_LBL", "0"};
  TLabel PreBagh_Cap_LBL{this, "PreBagh_Cap_LBL", "باقیمانده :"};
  TLabel PreBagh_LBL{this, "PreBagh_LBL", "0"};
  TLabel PreMiangin_Cap_LBL{this, "PreMiangin_Cap_LBL", "آخرین قیمت میانگین :"};
  TLabel PreMiangin_LBL{this, "PreMiangin_LBL", "0"};
  TLabel PreMablagh_Cap_LBL{this, "PreMablagh_Cap_LBL", "مبلغ باقیمانده :"};
  TLabel PreMablagh_LBL{this, "PreMablagh_LBL", "0"};
  TSmartDBGrid_QRT Kardex_GRD{this, "Kardex_GRD"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton OpenInfo_BTN{this, "OpenInfo_BTN", "بازکردن اطلاعات F2"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};
  TQeratSearchManager QeratSearchManager1{this, "QeratSearchManager1"};

 protected:
  void OnCustomParameter(const CustomParameter& parameter) override;
  StockCardCriteria ReadCriteria() const override;
  void Fetch(const std::string& parameters, Waiting waiting) override;
  void RowsCame() override;
  void AddPrintLines(std::vector<std::string>& lines) override;

 private:
  // The tree of components: captions, columns, order, layout (kardex_form.cpp).
  void DeclareForm();
  void DeclareColumns();

  void ApplyParameter();
  void ApplySettings();
  // Sets the code; false, after telling the user, and the frame is empty, where it cannot be looked up.
  template <typename Frame>
  bool Preset(Frame& frame, std::int64_t code);
  void FillCard();
  enum class CurrentAfter { TheSame, Last };
  void ApplyFilter(CurrentAfter current);
  void ShowGood();
  void ShowRemainderColumns();
  void ShowPreTimeData();
  void SetPreTimeCaptions(const TPreTimeData& data);

  bool GoodChosen() const { return Good_SEF.Exists(); }
  // The current row of the store's own numbering, which a filter or sort does not change.
  std::optional<std::uint32_t> CurrentRow() const;

  CustomParameter parameter_;
  // The running figures: over all stores, or within the one store that the criteria leave.
  TGridColumn* remainder_ = nullptr;
  TGridColumn* remainderAmount_ = nullptr;
};

}  // namespace goods
