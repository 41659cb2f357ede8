// TGoodTransactions_DM: every query and operation of the reports in one module.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/components/edit.h"
#include "module/data/detail_data.h"
#include "module/data/list_data.h"
#include "module/data/stock_data.h"
#include "module/data/stockcard_data.h"

namespace goods {

// The whole of the parts, under the published name. A window of this library makes a DataModuleOf the parts
// that it uses instead. Codes are those of the company; dates are Jalali text.
class TGoodTransactions_DM
    : public DataModuleOf<StockCardData, RowSearchData, MovementData, GoodGroupData, GoodListData,
                          OverallTurnoverData, StoreStockData, PriceData, SelectedListData, TagData,
                          DetailData, StockByDetailsData, SearchInDetailsData, OneGoodDetailsData,
                          DetailMismatchData, OperationMismatchData> {
 public:
  // owner may be null; host must outlive the module.
  TGoodTransactions_DM(THost& host, TComponent* owner);
  ~TGoodTransactions_DM() override;

  // An edit for serial numbers and bar codes is typed in English.
  void SerialBarcode_EDTOnEnter(TEdit& edit);
  void SerialBarcode_EDTOnExit(TEdit& edit);
  // Puts a condition in parentheses behind the filter caption. Nothing joins the two: the condition brings
  // its own word.
  static std::string ADDFarsiFilter(std::string_view condition, std::string_view filter);
  // The conditions added one after the other.
  static std::string FarsiFilterOf(const std::vector<std::string>& conditions);
};

}  // namespace goods
