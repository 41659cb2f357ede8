// The statements of turnover, stock and prices.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "host/components/standard.h"
#include "module/data/data_module.h"

namespace goods {

// Whether a good has ever moved.
class MovementData {
 public:
  explicit MovementData(DataModule& module) : module_(module) {}
  bool Good_HasGardesh(std::int64_t good);
  bool ExistGoodTransaction(std::string_view good);

 private:
  DataModule& module_;
};

class GoodGroupData {
 public:
  explicit GoodGroupData(DataModule& module) : GoodGroup(&module, "GoodGroup", module.Connection()) {}
  void GoodAsset_GetGroup();

  TQueryWithSource GoodGroup;
};

class GoodListData {
 public:
  explicit GoodListData(DataModule& module) : module_(module) {}
  // Whether at least one good is defined.
  bool ExistGood();
  // Sets the text only; the window opens the query.
  void GoodAsset_GetAll(bool useSelectedList, bool invert, std::int64_t selectedListCode);

 private:
  DataModule& module_;

 public:
  TQueryWithSource GoodTransaction{&module_, "GoodTransaction", module_.Connection()};
};

class OverallTurnoverData {
 public:
  explicit OverallTurnoverData(DataModule& module) : module_(module) {}
  void GoodStockAllProc(std::string_view amountParameters, std::string_view quantityParameters);
  static std::string AmountStatement(std::string_view parameters);
  static std::string QuantityStatement(std::string_view parameters);
  // Refreshes the stored stock of goods; no rows.
  void GoodStockProc(std::string_view parameters);

 private:
  DataModule& module_;

 public:
  TQueryWithSource Kardex_Overall_Money{&module_, "Kardex_Overall_Money", module_.Connection()};
  TQueryWithSource Kardex_Overall_Tedad{&module_, "Kardex_Overall_Tedad", module_.Connection()};
};

class StoreStockData {
 public:
  explicit StoreStockData(DataModule& module) : module_(module) {}
  void GoodAsset_Store_Fill(std::string_view parameters);
  static std::string StockStatement(std::string_view parameters);
  // Each item's text is the store's name, its object the store's code.
  std::vector<TComboItem> Get_StoresTitles_SortedByCode();
  void CallDefineRemainInStore(std::int64_t first, std::int64_t second);

 private:
  DataModule& module_;

 public:
  TQueryWithSource GoodAsset_Store{&module_, "GoodAsset_Store", module_.Connection()};
};

enum class CostLevelList { Plain, WithConsumerPrice };

class PriceData {
 public:
  explicit PriceData(DataModule& module) : module_(module) {}
  // Prepares the valuation that the money reports read next; no rows.
  void FillStock(int priceBasis, int buyOrSell, int priceLevelCode);
  // Opens CostLevel and returns it.
  TADOQuery& CostLevelGet(CostLevelList list);
  // Opens RialHistory; the second form fills the combo from it.
  void RialHistory_Fill();
  void RialHistory_Fill(TComboBox& combo);

 private:
  DataModule& module_;

 public:
  TQueryWithSource CostLevel{&module_, "CostLevel", module_.Connection()};
  TQueryWithSource RialHistory{&module_, "RialHistory", module_.Connection()};
};

}  // namespace goods
