// TKardexSearch_FRM: the search among stock-card rows of all goods, and the negative stock card.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/components/search_manager.h"
#include "host/frames/adv_search_frame.h"
#include "host/frames/general_search_frame.h"
#include "module/data/stockcard_data.h"
#include "module/framework/report_engine.h"
#include "module/reports/stockcard/kardex_search_adv_search.h"
#include "module/reports/stockcard/row_search_criteria.h"

namespace goods {

// Custom parameter: 0 mode ("1": the negative stock card), 1 and 2 the two values of srKardex_Negative, the
// text "0" for not given. Without one, and with any other mode, the ordinary search. Outside the negative
// mode nothing runs until the user asks; the negative card runs once, on receiving its parameter.
class TKardexSearch_FRM : public TReportOf<RowSearchCriteria> {
 public:
  TKardexSearch_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  TKardexSearch_FRM(THost& host, int formMode, std::string settingsName);
  ~TKardexSearch_FRM() override;

  void FormCreate() override;
  void FormShow() override;
  void FormClose() override;
  void FormKeyDown(TKey& key) override;

  void Report_BTNClick();
  void ADVSearch_Fram1ADVSearch_BTNClick();
  void ADVSearch_Fram1ADVSearch_CHKClick();
  void QeratSearchManager1SearchItems_Changed();
  void QeratSearchManager1CustomFilter_Proc(std::string& parameters);
  void QeratSearchManager1AfterExecute_PROC();
  void KardexSearch_GRDDblClick();

 private:
  DataModuleOf<RowSearchData> dataModule_;

 public:
  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TGeneral_Search_Frame SearchComment_Frame{this, "SearchComment_Frame", "&جستجو :"};
  TADVSearch_Fram ADVSearch_Fram1{this, "ADVSearch_Fram1"};
  TPanel Report_PNL{this, "Report_PNL", Flow::Row};
  TLabel Help_LBL{this, "Help_LBL", "پس از تعیین شرایط جستجو، دکمه تهیه گزارش را بزنید."};
  TButton Report_BTN{this, "Report_BTN", "تهیه گزارش Ctrl+F2"};
  TSmartDBGrid_QRT KardexSearch_GRD{this, "KardexSearch_GRD"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton OpenKardex_BTN{this, "OpenKardex_BTN", "کاردکس کالا F2"};
  TButton PrintReportList_BTN{this, "PrintReportList_BTN", "پیش نمایش ليست F9"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};
  TQeratSearchManager QeratSearchManager1{this, "QeratSearchManager1"};

 protected:
  void OnCustomParameter(const CustomParameter& parameter) override;
  RowSearchCriteria ReadCriteria() const override;
  void Fetch(const std::string& parameters, Waiting waiting) override;
  void RowsCame() override { QeratSearchManager1AfterExecute_PROC(); }
  void PlaceRow() override;

 private:
  // The dialog; typed: a search that waited for the end of typing waits again when the dialog is left.
  void SearchByDialog(bool typed);

  void DeclareForm();
  void DeclareColumns();
  void LoadNegativeLayout();
  bool AdvSearchInUse() const;

  std::unique_ptr<TKardexSearch_AdvSearch_FRM> advSearch_;
  std::optional<std::string> negativeLayout_;  // as the negative card's was loaded; none in the row search
  bool advSearchInProgress_ = false;
  bool readByDialog_ = false;                        // the run is that of the dialog, whose rows have come
  std::optional<RowSearchDialogCriteria> advanced_;  // of the dialog that was accepted last
};

}  // namespace goods
