// TGoodTrans_Overall_FRM: what came in and went out of each good, by operation; the stock card in short.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/period_report.h"
#include "host/components/search_manager.h"
#include "host/components/tabs.h"
#include "host/frames/general_search_frame.h"
#include "host/frames/select_entity_search_frame.h"
#include "module/data/stock_data.h"
#include "module/framework/period_panel.h"
#include "module/framework/report_engine.h"
#include "module/reports/turnover/overall_criteria.h"

namespace goods {

// Amounts and quantities on two tabs, read together when the user asks. The custom parameter says nothing.
// Operation columns that the user hides flow into the columns of other operations at the next run.
class TGoodTrans_Overall_FRM : public TReportOf<OverallCriteria>, public IPeriodReport {
 public:
  TGoodTrans_Overall_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  ~TGoodTrans_Overall_FRM() override;

  void FormCreate() override;
  void FormShow() override;
  void FormKeyDown(TKey& key) override;
  bool PreparePrint() override;

  std::optional<ReportPeriod> PeriodOfRows() const override;
  std::string_view KeyField(const TSmartDBGrid_QRT& grid) const override;
  void ReadPeriod(const TSmartDBGrid_QRT& grid, const ReportPeriod& period, TADOQuery& into) override;

  void Search_BTNClick();
  void AvalDore_CHKClick();
  void Date_CHKClick();
  void btnShow_BTNClick();
  void AdvShapeButton1Click();
  void Mojodi_PGCChange();
  // Narrows what the shown tab shows to rows like the current amount row, by the item that is chosen in the
  // general search. Runs when the manager's data-set filter is executed; nothing in the window does so. The
  // next search shows every row again.
  void QeratSearchManager1CustomFilter_DataSet(std::string& filter) const;

 private:
  DataModuleOf<OverallTurnoverData, MovementData> dataModule_;

 public:
  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TGeneral_Search_Frame GeneralSearch_FRAME{this, "GeneralSearch_FRAME", "&جستجو :"};
  TSelectEntity_Search_Frame Store_SESF{this, "Store_SESF", "ا&نبار :"};
  TPanel Report_PNL{this, "Report_PNL", Flow::Row};
  TPeriodPanel Period_PNL{this, "Period_PNL", BeforePeriodBox::IsUnticked};
  TButton Go_BTN{this, "Go_BTN"};
  TButton Search_BTN{this, "Search_BTN", "تـهـیـه گــزارش Ctrl+F2"};
  TPageControl Mojodi_PGC{this, "Mojodi_PGC"};
  TTabSheet ReialyTab{this, "ReialyTab", Flow::Column, "موجودی ریالی"};
  TTabSheet TedadyTab{this, "TedadyTab", Flow::Column, "موجودی مقداری"};
  TSmartDBGrid_QRT money_Overall_List_GRD{this, "money_Overall_List_GRD"};
  TSmartDBGrid_QRT tedad_Overall_List_GRD{this, "tedad_Overall_List_GRD"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton btnShow_BTN{this, "btnShow_BTN", "نمایش گردش F2"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton AdvShapeButton1{this, "AdvShapeButton1", "هشدار چاپ"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};
  TQeratSearchManager QeratSearchManager1{this, "QeratSearchManager1"};

 private:
  void DeclareForm();
  static void DeclareColumns(TSmartDBGrid_QRT& grid, std::string_view format, int width,
                             const char* remained);

  TSmartDBGrid_QRT& ShownGrid();
  bool ShowsQuantities() const { return Mojodi_PGC.ActivePage() == &TedadyTab; }
  // While the store box is ticked without a store it cannot be run.
  bool MayRun() override;
  OverallCriteria ReadCriteria() const override;
  void Fetch(const std::string& parameters, Waiting waiting) override;
  std::vector<std::string> PrintParameters();

  std::vector<Subscription> columns_;
};

}  // namespace goods
