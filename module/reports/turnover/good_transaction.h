// TGoodTransaction_FRM: the goods with their turnover and stock, in quantity and in money.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/components/search_manager.h"
#include "host/components/tabs.h"
#include "host/frames/general_search_frame.h"
#include "host/frames/tags_frame.h"
#include "host/frames/vouchers_warning_frame.h"
#include "module/data/stock_data.h"
#include "module/framework/groups_panel.h"
#include "module/framework/report_engine.h"
#include "module/reports/pricing/price_basis_panel.h"
#include "module/reports/stockcard/kardex.h"
#include "module/reports/turnover/good_transaction_search.h"
#include "module/reports/turnover/goods_list_criteria.h"

namespace goods {

// The window stands among others, or lets the user choose a good: it closes with kModalOk on the chosen row.
inline constexpr int kFormModeChoose = 5;

// Custom parameter: 0 the report kind, 501 quantities or 502 quantities with money, which is also the
// software part whose rights are asked for. The list is read once while the window is being shown, and again
// at each change of group, tab or criteria. Of a showing nothing is kept but the tab, the column of the
// search and the user's sort; the dialog is made anew, with what the user's settings keep of it.
class TGoodTransaction_FRM : public TReportOf<GoodsListCriteria> {
 public:
  TGoodTransaction_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  ~TGoodTransaction_FRM() override;

  int ReportKind() const { return reportKind_; }
  // The good of the current row; 0 without one.
  std::int64_t CurrentGood() const;

  // The two refresh flags: whether a refresh shows the waiting indicator, and whether the list refreshes
  // itself when the host's vouchers have been saved.
  void SetIsShowWaitting(bool show) { showWaitting_ = show; }
  void SetAutomaticRefresh(bool allowed) { automaticRefresh_ = allowed; }
  void RefreshList();
  // What hangs under the list grid that is shown.
  TADOQuery& ListDataSet() { return dataModule_.GoodTransaction.Query; }

  void FormCreate() override;
  void FormShow() override;
  void FormClose() override;
  void FormKeyDown(TKey& key) override;

  void QeratSearchManager1CustomFilter_Proc(std::string& parameters);
  void QeratSearchManager1AfterExecute_PROC();
  void ADVSearch_Fram1ADVSearch_BTNClick();
  void ADVSearch_Fram1ADVSearch_CHKClick();
  void Kala_TBCChange();
  void GoodGroup_DBGRowChange();
  void Stock_CHKClick();
  void PriceBasisChosen();
  void Tags_btnClick();
  void GoodTransactionRowChange();
  void GoodTransactin_List_GRDDrawColumnCell(std::size_t position, const TGridColumn& column,
                                             TCellStyle& style) const;
  void Gar_BTNClick();
  void DetailList_BTNClick();
  void Select_BTNClick();

 private:
  DataModuleOf<GoodListData, GoodGroupData, PriceData, MovementData, SelectedListData> dataModule_;

 public:
  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TGeneral_Search_Frame GeneralSearch_FRAME{this, "GeneralSearch_FRAME", "&جستجو :"};
  TADVSearch_Fram ADVSearch_Fram1{this, "ADVSearch_Fram1"};
  TButton Tags_btn{this, "Tags_btn", "&برچسب ها"};
  TPriceBasisPanel pnlReport_PNL;
  TDontSavedVouchers_Frame DontSavedVouchers_FRAME{this, "DontSavedVouchers_FRAME", "3"};
  TPanel Body_PNL{this, "Body_PNL", Flow::Row};
  TGroupsPanel Groups_PNL{this, "Groups_PNL", "GoodGroup_DBG", dataModule_.GoodGroup.Source};
  TPanel List_PNL{this, "List_PNL"};
  TTabControl Kala_TBC{this, "Kala_TBC"};
  TSmartDBGrid_QRT GoodTransactin_List_GRD{this, "GoodTransactin_List_GRD"};
  TSmartDBGrid_QRT GoodTransactinDetail_List_GRD{this, "GoodTransactinDetail_List_GRD"};
  TPanel Tags_pnl{this, "Tags_pnl"};
  TTags TTags1;
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton Gar_BTN{this, "Gar_BTN", "گردش کالا F2"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton DetailList_BTN{this, "DetailList_BTN", "جزئیات موجود Ctrl+F2"};
  TButton Select_BTN{this, "Select_BTN", "انتخاب Enter"};
  TButton EXit_BTN{this, "EXit_BTN", "خروج Esc"};
  TQeratSearchManager QeratSearchManager1{this, "QeratSearchManager1"};

 protected:
  void OnCustomParameter(const CustomParameter& parameter) override;
  bool MayRun() override;
  GoodsListCriteria ReadCriteria() const override;
  void Fetch(const std::string& parameters, Waiting waiting) override;
  void RowsCame() override { QeratSearchManager1AfterExecute_PROC(); }
  // The last row.
  void PlaceRow() override;

 private:
  void DeclareForm();
  void DeclareColumns(TSmartDBGrid_QRT& grid, bool wholeAndPart);

  bool IsMoney() const { return reportKind_ == kPartCashAsset; }
  TSmartDBGrid_QRT& ShownGrid();
  std::vector<TSmartDBGrid_QRT*> BothGrids();
  void FillWindow();
  void Open();
  void ApplyColumnSet();
  void ApplyFooterRights();
  void ApplySecondUnitItem(bool secondUnit);
  void ShowPriceColumns();
  void NamePriceColumns();
  void PrepareDialog();
  void ApplyListRight(bool mayChoose);
  void KeepCriteria();
  bool AdvSearchOn() const { return ADVSearch_Fram1.ADVSearch_CHK.Checked(); }
  void ShowTags(const std::string& field, const std::string& codes);
  void ShowStockCard(std::int64_t good);

  int reportKind_ = kPartAmountAsset;
  bool formShowing_ = false;  // during FormShow and FormClose: changes of the controls run nothing
  bool showWaitting_ = false;
  bool automaticRefresh_ = true;
  bool stockValues_ = false;   // permission 24 of part 502
  bool boundToLists_ = false;  // permission 34 is missing: nothing is read without the saved lists
  std::optional<GoodsListDialogCriteria> kept_;  // what the dialog held when it was closed last
  std::unique_ptr<TGoodTransactionSearch_FRM> search_;
  std::unique_ptr<TKardex_FRM> kardex_;
};

}  // namespace goods
