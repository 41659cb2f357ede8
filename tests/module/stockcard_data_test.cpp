// The figures before a date, and the negative-stock search.
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

class PreTimeData : public DataModuleTest {
 protected:
  void GiveFigures(const std::string& incoming, const std::string& outgoing, std::vector<Row> averages) {
    Give("Select isNull(Sum%", "Varede Sadere", {{incoming, outgoing}});
    Give("Select Top 1 Miangin%", "Miangin", std::move(averages));
  }
  static Texts All(const TPreTimeData& data) {
    return {data.Incoming, data.Outgoing, data.Remainder, data.LastAverage, data.RemainderAmount};
  }
};

constexpr const char* kSums =
    "Select isNull(Sum((Tedad+ABS(Tedad))/2),0)as Varede,isNull(Sum((Tedad-ABS(Tedad))/2),0)as Sadere from "
    "Kardex "
    "where ";

TEST_F(PreTimeData, AsksForTheSumsAndThenForTheLastAverage) {
  GiveFigures("0", "0", {});
  dm.GetPreTimeData("12", "1401/02/01", "", "");
  EXPECT_EQ(Sent(),
            (Texts{std::string(kSums) + " Kala=12 And Date<'1401/02/01'",
                   "Select Top 1 Miangin from Kardex where  Kala=12 And Date<'1401/02/01' order by Date "
                   "DESC,Radif DESC"}));
}

TEST_F(PreTimeData, AddsThePersonFirstAndThenTheStore) {
  GiveFigures("0", "0", {});
  dm.GetPreTimeData("12", "1401/02/01", "3", "7");
  const std::string condition = " Kala=12 And Date<'1401/02/01' And Percode=7 And Anbar=3";
  EXPECT_EQ(Sent(), (Texts{kSums + condition, "Select Top 1 Miangin from Kardex where " + condition +
                                                  " order by Date DESC,Radif DESC"}));
}

TEST_F(PreTimeData, AddsTheStoreAlone) {
  GiveFigures("0", "0", {});
  dm.GetPreTimeData("12", "1401/02/01", "3", "");
  EXPECT_EQ(Sent().front(), std::string(kSums) + " Kala=12 And Date<'1401/02/01' And Anbar=3");
}

TEST_F(PreTimeData, QuotesTheDateSoThatItCannotLeaveItsQuotes) {
  GiveFigures("0", "0", {});
  dm.GetPreTimeData("12", "1401' or '1'='1", "", "");
  EXPECT_EQ(Sent().front(), std::string(kSums) + " Kala=12 And Date<'1401'' or ''1''=''1'");
}

TEST_F(PreTimeData, TurnsTheOutgoingSumPositiveAndWorksOutRemainderAndAmount) {
  GiveFigures("1250.5", "-250.25", {{"1000.1"}});
  EXPECT_EQ(All(dm.GetPreTimeData("12", "1401/02/01", "", "")),
            (Texts{"1,250.5", "250.25", "1,000.25", "1,000.1", "1,000,350.025"}));
}

TEST_F(PreTimeData, WithoutRowsBeforeTheDateEveryFigureIsZero) {
  GiveFigures("0", "0", {});
  EXPECT_EQ(All(dm.GetPreTimeData("12", "1401/02/01", "", "")), (Texts{"0", "0", "0", "0", "0"}));
}

TEST_F(PreTimeData, ANullAverageCountsAsZero) {
  GiveFigures("10", "-4", {{std::nullopt}});
  EXPECT_EQ(All(dm.GetPreTimeData("12", "1401/02/01", "", "")), (Texts{"10", "4", "6", "0", "0"}));
}

TEST_F(PreTimeData, TakesTheFirstOfTheOrderedRows) {
  GiveFigures("1", "0", {{"70"}, {"50"}});
  EXPECT_EQ(dm.GetPreTimeData("12", "1401/02/01", "", "").LastAverage, "70");
}

TEST_F(PreTimeData, ARemainderBelowZeroHasItsMinusBehind) {
  GiveFigures("0", "-2", {{"1500"}});
  EXPECT_EQ(All(dm.GetPreTimeData("12", "1401/02/01", "", "")), (Texts{"0", "2", "2-", "1,500", "3,000-"}));
}

TEST_F(PreTimeData, AnErrorGoesToTheCallerAndTheNextCallWorks) {
  GiveFigures("1", "0", {{"70"}});
  for (const char* pattern : {"Select isNull%", "Select Top 1%"}) {
    host.Connection().FailNext(pattern, "timeout");
    EXPECT_THROW(dm.GetPreTimeData("12", "1401/02/01", "", ""), DatabaseError) << pattern;
    EXPECT_EQ(dm.GetPreTimeData("12", "1401/02/01", "", "").LastAverage, "70") << pattern;
  }
}

class NegativeSearch : public DataModuleTest {
 protected:
  void SetUp() override { Give("Exec srKardex%", "Type Tedad", {{"1", "-5"}, {"2", "7"}, {"1", "0"}}); }
};

TEST_F(NegativeSearch, WithoutBothValuesRunsWithoutParameters) {
  dm.KardexSearch_Fill_2("0", "0");
  EXPECT_EQ(Sent(), Texts{"Exec srKardex_Negative"});
  EXPECT_EQ(dm.KardexSearch.Query.RecordCount(), 3u);
}

TEST_F(NegativeSearch, WithTheSecondValueAloneSendsItQuoted) {
  dm.KardexSearch_Fill_2("0", "7");
  EXPECT_EQ(Sent(), Texts{"Exec srKardex_Negative '','','7'"});
}

TEST_F(NegativeSearch, WithBothValuesSendsBothQuoted) {
  dm.KardexSearch_Fill_2("5", "7");
  EXPECT_EQ(Sent(), Texts{"Exec srKardex_Negative '' , '5' , '7'"});
}

TEST_F(NegativeSearch, AFirstValueWithoutASecondIsIgnored) {
  dm.KardexSearch_Fill_2("5", "0");
  EXPECT_EQ(Sent(), Texts{"Exec srKardex_Negative"});
}

TEST_F(NegativeSearch, AnEmptyValueIsAGivenOne) {
  dm.KardexSearch_Fill_2("0", "");
  dm.KardexSearch_Fill_2("", "7");
  dm.KardexSearch_Fill_2("", "0");
  EXPECT_EQ(Sent(), (Texts{"Exec srKardex_Negative '','',''", "Exec srKardex_Negative '' , '' , '7'",
                           "Exec srKardex_Negative"}));
}

TEST_F(NegativeSearch, AQuoteInAValueIsDoubled) {
  dm.KardexSearch_Fill_2("a'b", "c''d");
  EXPECT_EQ(Sent(), Texts{"Exec srKardex_Negative '' , 'a''b' , 'c''''d'"});
}

TEST_F(NegativeSearch, TheRowSearchOnlySetsTheTextOfItsQuery) {
  dm.KardexSearch_Fill_1();
  EXPECT_EQ(dm.KardexSearch.Query.SQL(), "Exec srKardex");
  EXPECT_TRUE(Sent().empty());
  EXPECT_FALSE(dm.KardexSearch.Query.Active());
}

TEST_F(NegativeSearch, RadifNumbersTheRowsFromOneWithoutASign) {
  dm.KardexSearch_Fill_2("0", "0");
  TADOQuery& query = dm.KardexSearch.Query;
  const auto field = query.FindField("Radif");
  ASSERT_TRUE(field);
  for (std::size_t position = 0; position < 3; ++position) {
    EXPECT_EQ(query.Cell(position, *field).AsInteger(), static_cast<std::int64_t>(position) + 1);
  }
}

TEST_F(NegativeSearch, RadifIsTheWindowsOwnNumberAlsoWhereTheProcedureHasSuchAColumn) {
  Give("Exec srKardex_Negative", "Radif Code", {{"7", "12"}, {"9", "13"}});
  dm.KardexSearch_Fill_2("0", "0");
  TADOQuery& query = dm.KardexSearch.Query;
  EXPECT_EQ(query.FieldByName("Radif").AsInteger(), 1);
  query.SetSort("Radif DESC");
  EXPECT_EQ(query.Cell(0, *query.FindField("Code")).AsText(), "13");
  EXPECT_EQ(query.Sum("Radif"), Decimal(3));
}

// A window's module has the queries of its parts and no other.
TEST_F(NegativeSearch, AModuleOfOnePartHasThatPartsQueriesAlone) {
  const DataModuleOf<StockCardData> part(host, nullptr);
  EXPECT_NE(part.FindComponent("Kardex_QRY"), nullptr);
  EXPECT_EQ(part.FindComponent("CostLevel_QRY"), nullptr);
  EXPECT_EQ(part.Components().size(), 3U);  // query, source, general query
  for (const char* stem : {"Kardex", "KardexSearch", "GoodTransaction", "GoodGroup", "Kardex_Overall_Money",
                           "Kardex_Overall_Tedad", "GoodAsset_Store", "CostLevel", "RialHistory",
                           "AllGoodDetailTransaction", "OneGoodDetailTransaction", "GoodDetailTransaction",
                           "GoodDetailKardexDismatch", "GoodDetailOperationDismatch"}) {
    EXPECT_NE(dm.FindComponent(std::string(stem) + "_QRY"), nullptr) << stem;
    EXPECT_NE(dm.FindComponent(std::string(stem) + "_DS"), nullptr) << stem;
  }
}

}  // namespace
}  // namespace goods
