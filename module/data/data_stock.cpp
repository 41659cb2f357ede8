// The statements of turnover, stock and prices.
#include "module/data/good_transactions_dm.h"
#include "module/data/lookup.h"
#include "module/data/price_history.h"

namespace goods {
namespace {

// While the rows are exchanged the grid shows nothing half done.
class ControlsOff {
 public:
  explicit ControlsOff(TADOQuery& query) : query_(query) { query_.DisableControls(); }
  ControlsOff(const ControlsOff&) = delete;
  ControlsOff& operator=(const ControlsOff&) = delete;
  ~ControlsOff() { query_.EnableControls(); }

 private:
  TADOQuery& query_;
};

void Refill(TADOQuery& query, std::string statement) {
  const ControlsOff off(query);
  query.SetSQL(std::move(statement));
  query.Open();
}

std::string AnyMovement(std::string_view good) {
  return "Select top 1 Code From Kardex Where Kala=" + std::string(good);
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

void TGoodTransactions_DM::GoodStockAllProc(std::string_view amountParameters,
                                            std::string_view quantityParameters) {
  Refill(Kardex_Overall_Money.Query, "Exec GoodKardex_Overall_Money " + std::string(amountParameters));
  Refill(Kardex_Overall_Tedad.Query, "Exec GoodKardex_Overall_Tedad " + std::string(quantityParameters));
}

void TGoodTransactions_DM::GoodStockProc(std::string_view parameters) {
  general_.SetSQL("Exec UpdateMogodiKala " + std::string(parameters));
  general_.ExecSQL();
}

bool TGoodTransactions_DM::Good_HasGardesh(std::int64_t good) {
  return ExistGoodTransaction(std::to_string(good));
}

bool TGoodTransactions_DM::ExistGoodTransaction(std::string_view good) {
  return !Lookup(*this, AnyMovement(good)).IsEmpty();
}

bool TGoodTransactions_DM::ExistGood() {
  return !Lookup(*this, "Select top 1 *,(Mogodi-Mogodi2*IsNull(Meghdar_Formool,0))As Joz From GoodInf_VW")
              .IsEmpty();
}

void TGoodTransactions_DM::GoodAsset_GetGroup() {
  GoodGroup.Query.SetSQL("Select * From GoodGrps");
  GoodGroup.Query.Open();
}

void TGoodTransactions_DM::GoodAsset_Store_Fill(std::string_view parameters) {
  GoodAsset_Store.Query.Close();
  GoodAsset_Store.Query.SetSQL("exec GoodsAsset_Store_SP " + std::string(parameters));
  GoodAsset_Store.Query.Open();
}

void TGoodTransactions_DM::GoodAsset_GetAll(bool useSelectedList, bool invert,
                                            std::int64_t selectedListCode) {
  std::string statement = "exec GoodInf_sp ";
  if (useSelectedList) {
    if (invert) statement += "@invertList=1,";
    statement += "@Inlist=1, @SelectedCode=" + std::to_string(selectedListCode);
  }
  GoodTransaction.Query.Close();
  GoodTransaction.Query.SetSQL(statement);
}

void TGoodTransactions_DM::FillStock(int priceBasis, int buyOrSell, int priceLevelCode) {
  general_.SetSQL("Exec RialiStock_SP " + std::to_string(priceBasis) + " , " + std::to_string(buyOrSell) +
                  " , " + std::to_string(priceLevelCode));
  general_.ExecSQL();
}

void TGoodTransactions_DM::CallDefineRemainInStore(std::int64_t first, std::int64_t second) {
  general_.SetSQL("Exec dbo.DefineRemainInStore " + std::to_string(first) + ", " + std::to_string(second));
  general_.ExecSQL();
}

TADOQuery& TGoodTransactions_DM::CostLevelGet(CostLevelList list) {
  CostLevel.Query.SetSQL(list == CostLevelList::Plain
                             ? "select * from costlevel where code not in (-1,-2) AND CostType = 1"
                             : "select Code, 'قیمت ' + Name As Name from costlevel where code not in (-1,-2) "
                               "AND CostType = 1 UNION ALL "
                               "SELECT  -100 AS code , 'فی مصرف کننده ' As Name");
  CostLevel.Query.Open();
  return CostLevel.Query;
}

void TGoodTransactions_DM::RialHistory_Fill() {
  RialHistory.Query.SetSQL(PriceHistoryStatement());
  RialHistory.Query.Open();
}

void TGoodTransactions_DM::RialHistory_Fill(TComboBox& combo) {
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
