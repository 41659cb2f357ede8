// TGoodsAsset_Store_FRM: the stock of each good in every store, side by side, in quantity and in money.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/period_report.h"
#include "host/frames/general_search_frame.h"
#include "module/data/stock_data.h"
#include "module/framework/period_panel.h"
#include "module/framework/report_engine.h"
#include "module/reports/asset/store_stock_criteria.h"
#include "module/reports/pricing/price_basis_panel.h"

namespace goods {

// The columns of the stores are made once, while the window is first shown; those that are visible when the
// user runs the report say which stores are asked for. Only the report button runs it. The custom parameter
// says nothing.
class TGoodsAsset_Store_FRM : public TReportOf<StoreStockCriteria>, public IPeriodReport {
 public:
  TGoodsAsset_Store_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  ~TGoodsAsset_Store_FRM() override;

  void FormCreate() override;
  void FormShow() override;
  void FormResize() override;
  void FormKeyDown(TKey& key) override;
  bool PreparePrint() override;

  std::optional<ReportPeriod> PeriodOfRows() const override;
  std::string_view KeyField(const TSmartDBGrid_QRT& grid) const override;
  void ReadPeriod(const TSmartDBGrid_QRT& grid, const ReportPeriod& period, TADOQuery& into) override;

  void Search_BTNClick();
  void btnShow_BTNClick();
  void AvalDore_CHKClick();
  void Date1_EDTExit();
  void AdvShapeButton1Click();

 private:
  DataModuleOf<StoreStockData, PriceData, MovementData> dataModule_;

 public:
  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TGeneral_Search_Frame GeneralSearch_FRAME{this, "GeneralSearch_FRAME", "&جستجو :"};
  TPeriodPanel Period_PNL{this, "Period_PNL", BeforePeriodBox::IsUnticked};
  TPriceBasisPanel pnlReport_PNL;
  TPanel Report_PNL{this, "Report_PNL", Flow::Row};
  TLabel Help_LBL{this, "Help_LBL"};
  TButton Search_BTN{this, "Search_BTN", "تـهـیـه گــزارش Ctrl+F2"};
  TSmartDBGrid_QRT GoodsAsset_Store_GRD{this, "GoodsAsset_Store_GRD"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton btnShow_BTN{this, "btnShow_BTN", "نمایش گردش F2"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton AdvShapeButton1{this, "AdvShapeButton1", "هشدار چاپ"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};

 private:
  void DeclareForm();

  // Columns (goods_asset_store_columns.cpp)
  void DeclareColumns();
  void DeclareGroup(const std::string& prefix, const std::string& title);
  void ApplyUnitSettings();
  void BuildStoreColumns();
  std::size_t AddStore(std::size_t at, std::size_t number, const TComboItem& store);
  TGridColumn& AddStoreColumn(std::size_t at, const std::string& field, const std::string& caption,
                              std::string_view like, std::int64_t store);
  void WholeAndPartFirst(const std::string& prefix);
  std::size_t PositionOf(std::string_view field) const;
  void NameBeforePeriod();
  void FitGoodName();
  std::vector<std::int64_t> VisibleStores() const;

  StoreStockCriteria ReadCriteria() const override;
  void Fetch(const std::string& parameters, Waiting waiting) override;
  void PlaceRow() override;
  std::vector<std::string> PrintDescription() const;

  bool reportPrepared_ = false;
  Subscription columns_;
  std::optional<std::vector<TComboItem>> stores_;  // by code; none until they were read
};

}  // namespace goods
