// TGoodsWithoutPrice_FRM: the goods that have no price.
#pragma once

#include <string>

#include "host/data/query.h"
#include "host/frames/range_digit_search_frame.h"
#include "module/framework/report_engine.h"
#include "module/framework/title_search_panel.h"
#include "tests/module/new_report/goods_without_price_criteria.h"

namespace goods {

// Takes no custom parameter. Every change of a criterion runs the report. Each showing begins without
// criteria; the column that is searched is kept.
class TGoodsWithoutPrice_FRM : public TReportOf<GoodsWithoutPriceCriteria> {
 public:
  TGoodsWithoutPrice_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  ~TGoodsWithoutPrice_FRM() override;

  void FormCreate() override;
  void FormShow() override;
  void FormKeyDown(TKey& key) override;
  void OpenKardex_BTNClick();

  TADOQuery GoodsWithoutPrice_QRY;
  TDataSource GoodsWithoutPrice_DS{this, "GoodsWithoutPrice_DS", &GoodsWithoutPrice_QRY};
  TSmartDBGrid_QRT GoodsWithoutPrice_GRD{this, "GoodsWithoutPrice_GRD"};
  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row};
  TTitleSearchPanel Search_PNL{this, "Search_PNL", delayedSearch_, GoodsWithoutPrice_GRD};
  TCheckBox WithStock_CHK{this, "WithStock_CHK", "فقط کالاهای دارای &موجودی"};
  TRange_Digit_Search_Frame Codes_FRAME{this, "Codes_FRAME", "&کد کالا :"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton OpenKardex_BTN{this, "OpenKardex_BTN", "کاردکس کالا F2"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};

 protected:
  GoodsWithoutPriceCriteria ReadCriteria() const override;
  void Fetch(const std::string& parameters, Waiting waiting) override;

 private:
  void DeclareForm();
};

}  // namespace goods
