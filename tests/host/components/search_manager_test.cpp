#include "host/components/search_manager.h"

#include <utility>

#include <gtest/gtest.h>

#include "host/services/public_methods.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

TEST(Search, SaysNothingWhileItIsOffOrEmpty) {
  TQeratSearch search(nullptr, "Search");
  search.FieldName = "Anbar";
  search.Kind = DataKind::Number;
  search.Value = "3";
  EXPECT_EQ(search.DataSetCondition(), "");
  search.Active = true;
  EXPECT_EQ(search.DataSetCondition(), "(Anbar = 3)");
  EXPECT_EQ(search.ProcParams(), "@Anbar=3");
  search.Value = "";
  EXPECT_EQ(search.DataSetCondition(), "");
  EXPECT_EQ(search.ProcParams(), "");
}

TEST(Search, ExcludingTurnsTheConditionRound) {
  TQeratSearch search(nullptr, "Search");
  search.FieldName = "Anbar";
  search.Kind = DataKind::Number;
  search.Value = "3";
  search.Active = search.Exclude = true;
  EXPECT_EQ(search.DataSetCondition(), "NOT (Anbar = 3)");
  EXPECT_EQ(search.ProcParams(), "@Anbar=3,@NotAnbar=1");
}

TEST(Search, ARangeLeavesAnOpenEndOut) {
  TQeratSearch search(nullptr, "Search");
  search.FieldName = "Date";
  search.Operator = SearchOperator::Range;
  search.Active = true;
  search.From = "1401/01/01";
  EXPECT_EQ(search.DataSetCondition(), "(Date >= '1401/01/01')");
  EXPECT_EQ(search.ProcParams(), "@FromDate='1401/01/01'");
  search.To = "1401/12/29";
  EXPECT_EQ(search.DataSetCondition(), "(Date >= '1401/01/01' AND Date <= '1401/12/29')");
  EXPECT_EQ(search.ProcParams(), "@FromDate='1401/01/01',@ToDate='1401/12/29'");
  search.From = "";
  EXPECT_EQ(search.DataSetCondition(), "(Date <= '1401/12/29')");
  search.Exclude = true;
  EXPECT_EQ(search.DataSetCondition(), "NOT (Date <= '1401/12/29')");
  EXPECT_EQ(search.ProcParams(), "@ToDate='1401/12/29',@NotRangeDate=1");
}

TEST(Search, AFieldByValueAndByRangeIsExcludedByParametersOfTwoNames) {
  TQeratSearch value(nullptr, "Value");
  TQeratSearch range(nullptr, "Range");
  for (TQeratSearch* search : {&value, &range}) {
    search->FieldName = "Code";
    search->Kind = DataKind::Number;
    search->Active = search->Exclude = true;
  }
  value.Value = "5";
  range.Operator = SearchOperator::Range;
  range.From = "1";
  range.To = "9";
  TQeratSearchManager manager(nullptr, "Manager");
  manager.AddItem(value);
  manager.AddItem(range);
  EXPECT_EQ(manager.ProcFilter(), "@Code=5,@NotCode=1,@FromCode=1,@ToCode=9,@NotRangeCode=1");
}

TEST(Search, ATextCannotBreakOutOfItsQuotes) {
  TQeratSearch search(nullptr, "Search");
  search.FieldName = "KalaName";
  search.Operator = SearchOperator::Contains;
  search.Active = true;
  search.Value = "x' OR 1=1 --";
  EXPECT_EQ(search.DataSetCondition(), "(KalaName LIKE '%x'' OR 1=1 --%')");
  EXPECT_EQ(search.ProcParams(), "@KalaName='x'' OR 1=1 --'");
}

TEST(Search, ANumberThatIsNoneIsLeftOut) {
  TQeratSearch search(nullptr, "Search");
  search.FieldName = "Varede";
  search.Kind = DataKind::Amount;
  search.Operator = SearchOperator::Range;
  search.Active = true;
  search.From = "1,250.50";
  search.To = "5; DROP TABLE Kardex";
  EXPECT_EQ(search.ProcParams(), "@FromVarede=1250.5");
}

TEST(Search, AnAmountCountsAsItWasTyped) {
  TQeratSearch search(nullptr, "Search");
  search.FieldName = "Varede";
  search.Kind = DataKind::Amount;
  search.Active = true;
  const std::pair<const char*, const char*> amounts[] = {{".5", "@Varede=0.5"},
                                                         {"-.5", "@Varede=-0.5"},
                                                         {"5.", "@Varede=5"},
                                                         {"1,250", "@Varede=1250"},
                                                         {"0", "@Varede=0"},
                                                         {"-", ""},
                                                         {".", ""},
                                                         {"-.", ""},
                                                         {"", ""}};
  for (const auto& [typed, parameters] : amounts) {
    search.Value = typed;
    EXPECT_EQ(search.ProcParams(), parameters) << typed;
  }
}

TEST(Search, ATextCannotLeaveItsQuotes) {
  TQeratSearch search(nullptr, "Search");
  search.FieldName = "KalaName";
  search.Operator = SearchOperator::Contains;
  search.Active = true;
  search.Value = "a'; DROP TABLE Kardex; --";
  EXPECT_EQ(search.ProcParams(), "@KalaName='a''; DROP TABLE Kardex; --'");
  search.Value = "'";
  EXPECT_EQ(search.ProcParams(), "@KalaName=''''");
  search.Value = " ";
  EXPECT_EQ(search.ProcParams(), "@KalaName=' '");
}

class SearchManager : public ::testing::Test {
 protected:
  SearchManager() {
    host.Connection().Answer("Exec Rows%", {{{"Anbar", ColumnType::Integer}}, {{"1"}, {"2"}, {"2"}}});
    store.FieldName = "Anbar";
    store.Kind = DataKind::Number;
    store.Active = true;
    store.Value = "2";
    manager.SetDataSource(&source);
    manager.AddItem(store);
    manager.OnAfterExecute = [this] { events += "after "; };
    manager.OnAfterExecute_DataSet = [this] { events += "dataset "; };
    manager.OnAfterExecute_PROC = [this] { events += "proc "; };
  }

  ScriptedHost host;
  TADOQuery query{nullptr, "Rows_QRY", host.Connection()};
  TDataSource source{nullptr, "Rows_DS", &query};
  TQeratSearch store{nullptr, "Store"};
  TQeratSearchManager manager{nullptr, "QeratSearchManager1"};
  std::string events;
};

TEST_F(SearchManager, FiltersTheRowsAndLetsTheWindowAddToTheFilter) {
  query.SetSQL("Exec Rows");
  query.Open();
  manager.OnCustomFilter_DataSet = [](std::string& filter) { filter = AddFilter(filter, "(Anbar < 9)"); };
  manager.ExecuteFilter_DataSet();
  EXPECT_EQ(query.Filter(), "(Anbar = 2) And (Anbar < 9)");
  EXPECT_EQ(query.RecordCount(), 2U);
  EXPECT_EQ(events, "after dataset ");
}

TEST_F(SearchManager, LeavesAClosedQueryAlone) {
  manager.ExecuteFilter_DataSet();
  EXPECT_EQ(query.Filter(), "");
  EXPECT_EQ(events, "");
}

TEST_F(SearchManager, RunsTheScriptWithTheParametersOfAllItems) {
  manager.Script = "Exec Rows";
  manager.SetEXtraAdvFilter("@FromDate='1401/01/01'");
  manager.OnCustomFilter_Proc = [](std::string& parameters) { parameters = ADDParam("@Last=1", parameters); };
  manager.ExecuteFilter_PROC();
  EXPECT_EQ(query.SQL(), "Exec Rows @FromDate='1401/01/01',@Anbar=2,@Last=1");
  EXPECT_TRUE(query.Active());
  EXPECT_EQ(events, "after proc ");
}

TEST_F(SearchManager, RunsTheScriptAloneWithoutParameters) {
  store.Active = false;
  manager.Script = "Exec Rows";
  manager.ExecuteFilter_PROC();
  EXPECT_EQ(query.SQL(), "Exec Rows");
}

TEST_F(SearchManager, AScriptWithArgumentsOfItsOwnIsFollowedByAComma) {
  manager.Script = "Exec Rows '','','7'";
  manager.ExecuteFilter_PROC();
  EXPECT_EQ(query.SQL(), "Exec Rows '','','7',@Anbar=2");
}

TEST_F(SearchManager, TellsTheWindowOfAnItemsChange) {
  int changes = 0;
  manager.OnSearchItems_Changed = [&] { ++changes; };
  store.NotifyChange();
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace goods
