#include "module/data/stock_data.h"

#include <utility>

#include "module/data/lookup.h"
#include "module/data/price_history.h"
#include "module/framework/told_once.h"

namespace goods {
namespace {

// While the rows are exchanged the grid shows nothing half done.
void Refill(TADOQuery& query, std::string statement) {
  ToldOnce(query, [&] {
    query.SetSQL(std::move(statement));
    query.Open();
  });
}

std::string PriceHistoryStatement() {
  std::string statement;
  for (const PriceHistoryKind& kind : PriceHistoryKinds()) {
    if (!statement.empty()) statement += "UNION ALL ";
    statement +=
        "select " + std::to_string(kind.code) + " AS Code, '" + std::string(kind.name) + "' As Name\r\n";
  }
  return statement;
}

}  // namespace

bool MovementData::Good_HasGardesh(std::int64_t good) { return ExistGoodTransaction(std::to_string(good)); }

bool MovementData::ExistGoodTransaction(std::string_view good) {
  return !Lookup(module_, "Select top 1 Code From Kardex Where Kala=" + std::string(good)).IsEmpty();
}

void GoodGroupData::GoodAsset_GetGroup() {
  GoodGroup.Query.SetSQL("Select * From GoodGrps");
  GoodGroup.Query.Open();
}

bool GoodListData::ExistGood() {
  return !Lookup(module_, "Select top 1 *,(Mogodi-Mogodi2*IsNull(Meghdar_Formool,0))As Joz From GoodInf_VW")
              .IsEmpty();
}

void GoodListData::GoodAsset_GetAll(bool useSelectedList, bool invert, std::int64_t selectedListCode) {
  std::string statement = "exec GoodInf_sp ";
  if (useSelectedList) {
    if (invert) statement += "@invertList=1,";
    statement += "@Inlist=1, @SelectedCode=" + std::to_string(selectedListCode);
  }
  GoodTransaction.Query.Close();
  GoodTransaction.Query.SetSQL(statement);
}

std::string OverallTurnoverData::AmountStatement(std::string_view parameters) {
  return "Exec GoodKardex_Overall_Money " + std::string(parameters);
}

std::string OverallTurnoverData::QuantityStatement(std::string_view parameters) {
  return "Exec GoodKardex_Overall_Tedad " + std::string(parameters);
}

void OverallTurnoverData::GoodStockAllProc(std::string_view amountParameters,
                                           std::string_view quantityParameters) {
  Refill(Kardex_Overall_Money.Query, AmountStatement(amountParameters));
  Refill(Kardex_Overall_Tedad.Query, QuantityStatement(quantityParameters));
}

void OverallTurnoverData::GoodStockProc(std::string_view parameters) {
  module_.Execute("Exec UpdateMogodiKala " + std::string(parameters));
}

std::string StoreStockData::StockStatement(std::string_view parameters) {
  return "exec GoodsAsset_Store_SP " + std::string(parameters);
}

void StoreStockData::GoodAsset_Store_Fill(std::string_view parameters) {
  GoodAsset_Store.Query.Close();
  GoodAsset_Store.Query.SetSQL(StockStatement(parameters));
  GoodAsset_Store.Query.Open();
}

std::vector<TComboItem> StoreStockData::Get_StoresTitles_SortedByCode() {
  std::vector<TComboItem> stores;
  Lookup lookup(module_, "SELECT * FROM Stores ORDER BY Code");
  lookup.ForEachRow([&](const Lookup& row) {
    stores.push_back({row.Field("Name").AsText(), row.Field("Code").AsInteger(), ""});
  });
  return stores;
}

void StoreStockData::CallDefineRemainInStore(std::int64_t first, std::int64_t second) {
  module_.Execute("Exec dbo.DefineRemainInStore " + std::to_string(first) + ", " + std::to_string(second));
}

void PriceData::FillStock(int priceBasis, int buyOrSell, int priceLevelCode) {
  module_.Execute("Exec RialiStock_SP " + std::to_string(priceBasis) + " , " + std::to_string(buyOrSell) +
                  " , " + std::to_string(priceLevelCode));
}

TADOQuery& PriceData::CostLevelGet(CostLevelList list) {
  CostLevel.Query.SetSQL(list == CostLevelList::Plain
                             ? "select * from costlevel where code not in (-1,-2) AND CostType = 1"
                             : "select Code, 'قیمت ' + Name As Name from costlevel where code not in (-1,-2) "
                               "AND CostType = 1 UNION ALL "
                               "SELECT  -100 AS code , 'فی مصرف کننده ' As Name");
  CostLevel.Query.Open();
  return CostLevel.Query;
}

void PriceData::RialHistory_Fill() {
  RialHistory.Query.SetSQL(PriceHistoryStatement());
  RialHistory.Query.Open();
}

void PriceData::RialHistory_Fill(TComboBox& combo) {
  RialHistory_Fill();
  TADOQuery& query = RialHistory.Query;
  std::vector<TComboItem> items;
  for (std::size_t position = 0; position < query.RecordCount(); ++position) {
    query.MoveTo(position);
    items.push_back({query.FieldByName("Name").AsText(), query.FieldByName("Code").AsInteger(), ""});
  }
  query.First();
  combo.SetItems(std::move(items));
}

}  // namespace goods
