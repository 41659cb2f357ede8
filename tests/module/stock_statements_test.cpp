// Each operation of the data module on turnover, stock and prices sends its statement text to the letter.
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

using StockStatements = DataModuleTest;

TEST_F(StockStatements, FillDataKardexTransactOpensTheCardAndMovesToItsLastRow) {
  Give("Exec Kardex_Proc 12", "Date Type", {{"1401/01/01", "3"}, {"1401/01/02", "1"}, {"1401/01/03", "2"}});
  dm.FillDataKardexTransact(12);
  EXPECT_EQ(Sent(), Texts{"Exec Kardex_Proc 12"});
  EXPECT_EQ(dm.Kardex.Query.SQL(), "Exec Kardex_Proc 12");
  EXPECT_EQ(dm.Kardex.Query.RecordCount(), 3u);
  EXPECT_EQ(dm.Kardex.Query.RecNo(), 2u);
}

TEST_F(StockStatements, FillDataKardexTransactWithoutRowsHasNoCurrentRow) {
  Give("Exec Kardex_Proc 7", "Date", {});
  dm.FillDataKardexTransact(7);
  EXPECT_EQ(Sent(), Texts{"Exec Kardex_Proc 7"});
  EXPECT_TRUE(dm.Kardex.Query.Active());
  EXPECT_FALSE(dm.Kardex.Query.RecNo());
}

TEST_F(StockStatements, AFailedCardLeavesTheQueryClosedAndTheErrorGoesToTheCaller) {
  Give("Exec Kardex_Proc 12", "Date", {{"1401/01/01"}});
  dm.FillDataKardexTransact(12);
  host.Connection().FailNext("%", "deadlock");
  EXPECT_THROW(dm.FillDataKardexTransact(12), DatabaseError);
  EXPECT_FALSE(dm.Kardex.Query.Active());
  EXPECT_TRUE(host.Log.NotLooked(CallKind::Message).empty());
}

TEST_F(StockStatements, EveryQueryHasASourceOfTheSameStem) {
  EXPECT_EQ(dm.FindComponent("Kardex_QRY"), &dm.Kardex.Query);
  EXPECT_EQ(dm.FindComponent("Kardex_DS"), &dm.Kardex.Source);
  EXPECT_EQ(dm.FindComponent("KardexSearch_QRY"), &dm.KardexSearch.Query);
  EXPECT_EQ(dm.FindComponent("GoodTransaction_QRY"), &dm.GoodTransaction.Query);
  EXPECT_EQ(dm.FindComponent("Kardex_Overall_Money_QRY"), &dm.Kardex_Overall_Money.Query);
  for (const char* stem : {"Kardex", "KardexSearch", "GoodTransaction", "Kardex_Overall_Money"}) {
    auto* query = dynamic_cast<TADOQuery*>(dm.FindComponent(std::string(stem) + "_QRY"));
    auto* source = dynamic_cast<TDataSource*>(dm.FindComponent(std::string(stem) + "_DS"));
    ASSERT_TRUE(query != nullptr && source != nullptr) << stem;
    EXPECT_EQ(source->DataSet(), query) << stem;
  }
}

TEST_F(StockStatements, GoodStockAllProcOpensTheMoneyThenTheQuantityQuery) {
  Give("Exec GoodKardex_Overall%", "Kala", {{"1"}});
  dm.GoodStockAllProc("@FromDate='0000/00/00'", "@A=1,@B=2");
  EXPECT_EQ(Sent(), (Texts{"Exec GoodKardex_Overall_Money @FromDate='0000/00/00'",
                           "Exec GoodKardex_Overall_Tedad @A=1,@B=2"}));
  EXPECT_TRUE(dm.Kardex_Overall_Money.Query.Active());
  EXPECT_TRUE(dm.Kardex_Overall_Tedad.Query.Active());
  EXPECT_FALSE(dm.Kardex_Overall_Money.Query.ControlsDisabled());
  EXPECT_FALSE(dm.Kardex_Overall_Tedad.Query.ControlsDisabled());
}

TEST_F(StockStatements, GoodStockAllProcTellsViewsOncePerQuery) {
  Give("Exec GoodKardex_Overall%", "Kala", {{"1"}});
  int changes = 0;
  const Subscription watch = dm.Kardex_Overall_Money.Query.Changed.Connect([&] { ++changes; });
  dm.GoodStockAllProc("1", "2");
  EXPECT_EQ(changes, 1);
}

TEST_F(StockStatements, GoodStockAllProcThatFailsLeavesTheControlsEnabled) {
  Give("Exec GoodKardex_Overall%", "Kala", {{"1"}});
  host.Connection().FailNext("Exec GoodKardex_Overall_Tedad%", "timeout");
  EXPECT_THROW(dm.GoodStockAllProc("1", "2"), DatabaseError);
  EXPECT_FALSE(dm.Kardex_Overall_Money.Query.ControlsDisabled());
  EXPECT_FALSE(dm.Kardex_Overall_Tedad.Query.ControlsDisabled());
}

TEST_F(StockStatements, GoodStockProcIsExecutedWithoutRows) {
  dm.GoodStockProc("1,2");
  EXPECT_EQ(SentCalls(), Texts{"Execute(\"Exec UpdateMogodiKala 1,2\")"});
}

TEST_F(StockStatements, GoodStockProcWithoutParametersKeepsTheBlankBehindItsHead) {
  dm.GoodStockProc("");
  EXPECT_EQ(SentCalls(), Texts{"Execute(\"Exec UpdateMogodiKala \")"});
}

TEST_F(StockStatements, GoodHasGardeshAsksForOneMovement) {
  Give("Select top 1 Code From Kardex Where Kala=12", "Code", {{"5"}});
  Give("Select top 1 Code From Kardex Where Kala=13", "Code", {});
  EXPECT_TRUE(dm.Good_HasGardesh(12));
  EXPECT_FALSE(dm.Good_HasGardesh(13));
  EXPECT_EQ(Sent(), (Texts{"Select top 1 Code From Kardex Where Kala=12",
                           "Select top 1 Code From Kardex Where Kala=13"}));
}

TEST_F(StockStatements, ExistGoodTransactionAsksForOneMovement) {
  Give("Select top 1 Code From Kardex Where Kala=12", "Code", {{"5"}});
  Give("Select top 1 Code From Kardex Where Kala=13", "Code", {});
  EXPECT_TRUE(dm.ExistGoodTransaction("12"));
  EXPECT_FALSE(dm.ExistGoodTransaction("13"));
  EXPECT_EQ(Sent(), (Texts{"Select top 1 Code From Kardex Where Kala=12",
                           "Select top 1 Code From Kardex Where Kala=13"}));
}

TEST_F(StockStatements, ExistGoodAsksForOneGood) {
  const std::string statement =
      "Select top 1 *,(Mogodi-Mogodi2*IsNull(Meghdar_Formool,0))As Joz From GoodInf_VW";
  Give(statement, "Code Joz", {{"1", "0"}});
  EXPECT_TRUE(dm.ExistGood());
  Give(statement, "Code Joz", {});
  EXPECT_FALSE(dm.ExistGood());
  EXPECT_EQ(Sent(), (Texts{statement, statement}));
}

TEST_F(StockStatements, GoodAssetGetGroupOpensTheGroups) {
  Give("Select * From GoodGrps", "Code Name", {{"1", "ابزار"}});
  dm.GoodAsset_GetGroup();
  EXPECT_EQ(Sent(), Texts{"Select * From GoodGrps"});
  EXPECT_EQ(dm.GoodGroup.Query.FieldByName("Name").AsText(), "ابزار");
}

TEST_F(StockStatements, GoodAssetStoreFillOpensTheProcedure) {
  Give("exec GoodsAsset_Store_SP%", "Code", {{"1"}});
  dm.GoodAsset_Store_Fill("@StoreCodes ='-1,0,',@FromDate=''");
  EXPECT_EQ(Sent(), Texts{"exec GoodsAsset_Store_SP @StoreCodes ='-1,0,',@FromDate=''"});
  EXPECT_TRUE(dm.GoodAsset_Store.Query.Active());
}

TEST_F(StockStatements, GoodAssetGetAllSetsTheTextAndOpensNothing) {
  Give("exec GoodInf_sp%", "Code", {{"1"}});
  dm.GoodAsset_GetAll(false, false, 5);
  EXPECT_EQ(dm.GoodTransaction.Query.SQL(), "exec GoodInf_sp ");
  dm.GoodAsset_GetAll(true, false, 5);
  EXPECT_EQ(dm.GoodTransaction.Query.SQL(), "exec GoodInf_sp @Inlist=1, @SelectedCode=5");
  dm.GoodAsset_GetAll(true, true, 5);
  EXPECT_EQ(dm.GoodTransaction.Query.SQL(), "exec GoodInf_sp @invertList=1,@Inlist=1, @SelectedCode=5");
  EXPECT_TRUE(Sent().empty());
  dm.GoodTransaction.Query.Open();
  dm.GoodAsset_GetAll(false, false, 0);
  EXPECT_FALSE(dm.GoodTransaction.Query.Active());
}

TEST_F(StockStatements, FillStockSendsBasisFlagAndLevelInThisOrder) {
  dm.FillStock(2, 1, -100);
  EXPECT_EQ(SentCalls(), Texts{"Execute(\"Exec RialiStock_SP 2 , 1 , -100\")"});
}

TEST_F(StockStatements, CallDefineRemainInStoreSendsBothParameters) {
  dm.CallDefineRemainInStore(3, 12);
  EXPECT_EQ(SentCalls(), Texts{"Execute(\"Exec dbo.DefineRemainInStore 3, 12\")"});
}

TEST_F(StockStatements, CostLevelGetHasAPlainListAndOneWithTheConsumerPrice) {
  const std::string plain = "select * from costlevel where code not in (-1,-2) AND CostType = 1";
  const std::string withConsumerPrice =
      "select Code, 'قیمت ' + Name As Name from costlevel where code not in (-1,-2) AND CostType = 1 UNION "
      "ALL "
      "SELECT  -100 AS code , 'فی مصرف کننده ' As Name";
  Give("select%", "Code Name", {{"1", "عمده"}});
  EXPECT_EQ(dm.CostLevelGet(CostLevelList::Plain).FieldByName("Name").AsText(), "عمده");
  dm.CostLevelGet(CostLevelList::WithConsumerPrice);
  EXPECT_EQ(Sent(), (Texts{plain, withConsumerPrice}));
}

TEST_F(StockStatements, RialHistoryFillSendsSixRowsOneALine) {
  Give("select 1 AS Code%", "Code Name",
       {{"1", "بيشترين قيمت خريد "}, {"2", "کمترين قيمت خريد"}, {"13", "آخرین قيمت فروش"}});
  TComboBox combo(nullptr, "History_CMB");
  dm.RialHistory_Fill(combo);
  EXPECT_EQ(Sent(), Texts{"select 1 AS Code, 'بيشترين قيمت خريد ' As Name\r\n"
                          "UNION ALL select 2 AS Code, 'کمترين قيمت خريد' As Name\r\n"
                          "UNION ALL select 3 AS Code, 'آخرین قيمت خريد' As Name\r\n"
                          "UNION ALL select 11 AS Code, 'بيشترين قيمت فروش' As Name\r\n"
                          "UNION ALL select 12 AS Code, 'کمترين قيمت فروش' As Name\r\n"
                          "UNION ALL select 13 AS Code, 'آخرین قيمت فروش' As Name\r\n"});
  ASSERT_EQ(combo.Items().size(), 3u);
  EXPECT_EQ(combo.Items()[0].Text, "بيشترين قيمت خريد ");
  EXPECT_EQ(combo.Items()[0].Object, 1);
  EXPECT_EQ(combo.Items()[2].Object, 13);
}

}  // namespace
}  // namespace goods
