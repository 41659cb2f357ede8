#include "host/data/query.h"

#include <array>
#include <memory>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "decimal_of.h"
#include "fake_connection.h"

namespace goods {
namespace {

using test::Of;

class Query : public ::testing::Test {
 protected:
  Query() {
    connection.columns = {{"Code", ColumnType::Integer},
                          {"Name", ColumnType::Text},
                          {"Mab", ColumnType::Decimal},
                          {"Type", ColumnType::Integer}};
    connection.rows = {{10, "انبار", Of("1.5"), 1},
                       {20, "فروش", Of("2.25"), 2},
                       {30, "كارگاه", Value(), 1},
                       {40, Value(), Of("-4"), 2},
                       {50, "Abc", Of("0.000000001"), Value()}};
    query.SetSQL("Exec Kardex_Proc 7");
    changed = query.Changed.Connect([this] { ++changes; });
    scrolled = query.Scrolled.Connect([this] { ++scrolls; });
  }

  Value CurrentCode() { return query.FieldByName("Code"); }
  void Forget() { changes = scrolls = 0; }

  test::FakeConnection connection;
  TADOQuery query{nullptr, "Kardex_QRY", connection};
  int changes = 0;
  int scrolls = 0;
  Subscription changed;
  Subscription scrolled;
};

TEST_F(Query, OpensWithTheStatementByteForByteAndShowsTheFirstRow) {
  query.Open();
  EXPECT_EQ(connection.opened, std::vector<std::string>{"Exec Kardex_Proc 7"});
  EXPECT_EQ(connection.lastProgress, nullptr);
  EXPECT_TRUE(query.Active());
  EXPECT_EQ(query.TotalCount(), 5U);
  EXPECT_EQ(query.RecordCount(), 5U);
  EXPECT_EQ(query.RecNo(), 0U);
  EXPECT_EQ(CurrentCode(), Value(10));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(scrolls, 1);
}

TEST_F(Query, IsEmptyBeforeOpenAndAfterClose) {
  EXPECT_FALSE(query.Active());
  EXPECT_TRUE(query.IsEmpty());
  EXPECT_TRUE(CurrentCode().IsNull());
  query.Open();
  query.Close();
  EXPECT_FALSE(query.Active());
  EXPECT_EQ(query.RecordCount(), 0U);
  EXPECT_FALSE(query.RecNo().has_value());
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(scrolls, 2);
  query.Close();
  EXPECT_EQ(changes, 2);
}

TEST_F(Query, AStatementThatFailsLeavesTheQueryClosedAndEmpty) {
  query.Open();
  query.SetFilter("Type = 1");
  query.SetSort("Code DESC");
  Forget();
  connection.failing = true;
  EXPECT_THROW(query.Open(), DatabaseError);
  EXPECT_FALSE(query.Active());
  EXPECT_EQ(query.TotalCount(), 0U);
  EXPECT_EQ(query.RecordCount(), 0U);
  EXPECT_FALSE(query.RecNo().has_value());
  EXPECT_EQ(query.SQL(), "Exec Kardex_Proc 7");
  EXPECT_EQ(query.Filter(), "Type = 1");
  EXPECT_EQ(query.Sort(), "Code DESC");
  EXPECT_EQ(changes, 1);
  connection.failing = false;
  query.Open();
  EXPECT_EQ(query.RecordCount(), 2U);
  EXPECT_EQ(CurrentCode(), Value(30));
}

TEST_F(Query, AStatementThatTheUserStoppedIsToldApartFromOneThatFailed) {
  EXPECT_FALSE(query.Stopped());
  connection.duringOpen = [] { throw StatementCancelled("متوقف شد", ""); };
  EXPECT_THROW(query.Open(), StatementCancelled);
  EXPECT_TRUE(query.Stopped());
  query.Close();
  EXPECT_FALSE(query.Stopped());
  EXPECT_THROW(query.Open(), StatementCancelled);
  connection.duringOpen = nullptr;
  connection.failing = true;
  EXPECT_THROW(query.Open(), DatabaseError);
  EXPECT_FALSE(query.Stopped());
  connection.failing = false;
  query.Open();
  EXPECT_FALSE(query.Stopped());
}

TEST_F(Query, AFirstOpenThatFailsTellsNobody) {
  connection.failing = true;
  EXPECT_THROW(query.Open(), DatabaseError);
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(scrolls, 0);
}

TEST_F(Query, TheStatementsOwnFailureIsReportedEvenIfAListenerThrows) {
  query.Open();
  const Subscription bad = query.Changed.Connect([] { throw std::logic_error("listener"); });
  connection.failing = true;
  EXPECT_THROW(query.Open(), DatabaseError);
}

TEST_F(Query, ExecRunsForItsEffectAndKeepsTheRows) {
  query.Open();
  Forget();
  query.SetSQL("Exec UpdateMogodiKala 7");
  query.ExecSQL();
  EXPECT_EQ(connection.executed, std::vector<std::string>{"Exec UpdateMogodiKala 7"});
  EXPECT_EQ(query.RecordCount(), 5U);
  EXPECT_EQ(changes, 0);
  connection.failing = true;
  EXPECT_THROW(query.ExecSQL(), ConnectionLost);
  EXPECT_EQ(query.RecordCount(), 5U);
}

TEST_F(Query, FieldsAreFoundInAnyLetterCaseAndComputedOnesComeLast) {
  query.AddComputed({"Twice", ColumnType::Integer}, [](std::size_t row, const RowStore& rows) {
    return Value(rows.Cell(row, 0).AsInteger() * 2);
  });
  query.Open();
  EXPECT_EQ(query.Fields().size(), 5U);
  EXPECT_EQ(query.Fields().back().name, "Twice");
  EXPECT_EQ(query.FindField("NAME"), 1U);
  EXPECT_EQ(query.FindField("twice"), 4U);
  EXPECT_FALSE(query.FindField("Nothing").has_value());
  EXPECT_TRUE(query.FieldByName("Nothing").IsNull());
  EXPECT_EQ(query.Cell(1, 4), Value(40));
}

TEST_F(Query, CellsBeyondTheRowsAndFieldsAreNull) {
  query.Open();
  EXPECT_TRUE(query.Cell(5, 0).IsNull());
  EXPECT_TRUE(query.Cell(0, 4).IsNull());
}

TEST_F(Query, TheCursorStaysOnItsRowWhileThatIsVisible) {
  query.Open();
  query.MoveTo(2);
  Forget();
  query.SetFilter("Code >= 30");
  EXPECT_EQ(query.RecNo(), 0U);
  EXPECT_EQ(CurrentCode(), Value(30));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(scrolls, 0);
  query.SetSort("Code DESC");
  EXPECT_EQ(query.RecNo(), 2U);
  EXPECT_EQ(CurrentCode(), Value(30));
  EXPECT_EQ(scrolls, 0);
}

TEST_F(Query, TheFirstVisibleRowBecomesCurrentWhenTheCurrentOneGoes) {
  query.Open();
  query.MoveTo(4);
  Forget();
  query.SetFilter("Code < 30");
  EXPECT_EQ(CurrentCode(), Value(10));
  EXPECT_EQ(scrolls, 1);
  query.SetFilter("Code < 0");
  EXPECT_FALSE(query.RecNo().has_value());
  EXPECT_EQ(scrolls, 2);
  query.SetFilter("Code > 30");
  EXPECT_EQ(CurrentCode(), Value(40));
  EXPECT_EQ(scrolls, 3);
}

TEST_F(Query, MovingBeyondTheEndStopsAtTheLastRow) {
  query.Open();
  Forget();
  query.MoveTo(99);
  EXPECT_EQ(query.RecNo(), 4U);
  query.Last();
  EXPECT_EQ(scrolls, 1);
  query.First();
  EXPECT_EQ(query.RecNo(), 0U);
  EXPECT_EQ(scrolls, 2);
  EXPECT_EQ(changes, 0);
}

TEST_F(Query, MovingWithoutRowsDoesNothing) {
  query.MoveTo(3);
  query.Last();
  EXPECT_FALSE(query.RecNo().has_value());
  EXPECT_EQ(scrolls, 0);
}

TEST_F(Query, LocatesOnSeveralFieldsAmongTheVisibleRows) {
  query.Open();
  EXPECT_TRUE(query.Locate("Type;Code", std::array<Value, 2>{Value(2), Value(40)}));
  EXPECT_EQ(CurrentCode(), Value(40));
  EXPECT_FALSE(query.Locate("Type;Code", std::array<Value, 2>{Value(1), Value(40)}));
  EXPECT_EQ(CurrentCode(), Value(40));
  query.SetFilter("Code <> 10");
  EXPECT_TRUE(query.Locate("type", std::array<Value, 1>{Value(1)}));
  EXPECT_EQ(CurrentCode(), Value(30));
  EXPECT_FALSE(query.Locate("Code", std::array<Value, 1>{Value(10)}));
}

TEST_F(Query, LocatesTheFirstInTheSortsOrder) {
  query.Open();
  query.SetSort("Code DESC");
  EXPECT_TRUE(query.Locate("Type", std::array<Value, 1>{Value(2)}));
  EXPECT_EQ(CurrentCode(), Value(40));
}

TEST_F(Query, LocatesTextsNullsAndDecimals) {
  query.Open();
  EXPECT_TRUE(query.Locate("Name", std::array<Value, 1>{Value("فروش")}));
  EXPECT_EQ(CurrentCode(), Value(20));
  EXPECT_TRUE(query.Locate("Name", std::array<Value, 1>{Value()}));
  EXPECT_EQ(CurrentCode(), Value(40));
  EXPECT_TRUE(query.Locate("Mab", std::array<Value, 1>{Value(Of("2.25"))}));
  EXPECT_EQ(CurrentCode(), Value(20));
  EXPECT_TRUE(query.Locate("Code", std::array<Value, 1>{Value("50")}));
  EXPECT_EQ(CurrentCode(), Value(50));
  EXPECT_FALSE(query.Locate("Name", std::array<Value, 1>{Value("abc")}));
  EXPECT_FALSE(query.Locate("Code", std::array<Value, 1>{Value("not a number")}));
  EXPECT_FALSE(query.Locate("Nothing", std::array<Value, 1>{Value(1)}));
  EXPECT_THROW(query.Locate("Type;Code", std::array<Value, 1>{Value(1)}), std::invalid_argument);
}

TEST_F(Query, LocatesAPrefixInEitherLetterCaseAndSpelling) {
  query.Open();
  EXPECT_TRUE(query.LocatePrefix("Name", "aB"));
  EXPECT_EQ(CurrentCode(), Value(50));
  EXPECT_TRUE(query.LocatePrefix("Name", "کار"));
  EXPECT_EQ(CurrentCode(), Value(30));
  EXPECT_FALSE(query.LocatePrefix("Name", "روش"));
  EXPECT_FALSE(query.LocatePrefix("Nothing", "a"));
  EXPECT_EQ(CurrentCode(), Value(30));
}

TEST_F(Query, SumsTheVisibleRowsExactly) {
  query.Open();
  EXPECT_EQ(query.Sum("mab"), Of("-0.249999999"));
  EXPECT_EQ(query.Sum("Code"), Decimal(150));
  query.SetSort("Code DESC");
  query.SetFilter("Type = 2");
  EXPECT_EQ(query.Sum("Mab"), Of("-1.75"));
  query.SetFilter("Code < 0");
  EXPECT_EQ(query.Sum("Mab"), Decimal());
  EXPECT_EQ(query.Sum("Name"), Decimal());
  EXPECT_EQ(query.Sum("Nothing"), Decimal());
  query.Close();
  EXPECT_EQ(query.Sum("Mab"), Decimal());
}

TEST_F(Query, ComputedColumnsOutliveOpenAndAreSummed) {
  int factor = 2;
  query.AddComputed({"Times", ColumnType::Decimal}, [&factor](std::size_t row, const RowStore& rows) {
    return Value(rows.Cell(row, 2).AsDecimal() * Decimal(factor));
  });
  query.Open();
  query.Open();
  query.SetFilter("Type = 2");
  EXPECT_EQ(query.Sum("Times"), Of("-3.5"));
  EXPECT_EQ(query.FieldByName("Times"), Value(Of("4.5")));
  factor = 3;
  EXPECT_EQ(query.FieldByName("Times"), Value(Of("6.75")));
}

TEST_F(Query, SettingAFilterAgainReadsComputedColumnsAgain) {
  bool shown = true;
  query.AddComputed({"Shown", ColumnType::Integer},
                    [&shown](std::size_t, const RowStore&) { return Value(shown ? 1 : 0); });
  query.Open();
  query.SetFilter("Shown = 1");
  EXPECT_EQ(query.RecordCount(), 5U);
  shown = false;
  query.SetFilter("Shown = 1");
  EXPECT_EQ(query.RecordCount(), 0U);
}

TEST_F(Query, AddingAComputedNameAgainReplacesIt) {
  query.AddComputed({"X", ColumnType::Integer}, [](std::size_t, const RowStore&) { return Value(1); });
  query.AddComputed({"x", ColumnType::Integer}, [](std::size_t, const RowStore&) { return Value(2); });
  query.Open();
  EXPECT_EQ(query.Fields().size(), 5U);
  EXPECT_EQ(query.FieldByName("X"), Value(2));
}

TEST_F(Query, AComputedColumnThatThrowsChangesNothing) {
  query.AddComputed({"Bad", ColumnType::Integer},
                    [](std::size_t, const RowStore&) -> Value { throw std::runtime_error("bad"); });
  query.Open();
  query.SetFilter("Code > 10");
  EXPECT_THROW(query.SetFilter("Bad = 1"), std::runtime_error);
  EXPECT_THROW(query.SetSort("Bad"), std::runtime_error);
  EXPECT_EQ(query.Filter(), "Code > 10");
  EXPECT_EQ(query.Sort(), "");
  EXPECT_EQ(query.RecordCount(), 4U);
}

TEST_F(Query, FilterAndSortOutliveCloseAndAreAppliedByTheNextOpen) {
  query.Open();
  query.SetFilter("Type = 1");
  query.SetSort("Code DESC");
  query.Close();
  EXPECT_EQ(query.Filter(), "Type = 1");
  query.Open();
  EXPECT_EQ(query.RecordCount(), 2U);
  EXPECT_EQ(CurrentCode(), Value(30));
}

TEST_F(Query, FilterAndSortCanBeSetBeforeOpen) {
  query.SetFilter("Type = 2");
  query.SetSort("Code DESC");
  EXPECT_THROW(query.SetFilter("Type ="), FilterError);
  query.Open();
  EXPECT_EQ(query.RecordCount(), 2U);
  EXPECT_EQ(CurrentCode(), Value(40));
}

TEST_F(Query, WhatNoLongerFitsTheColumnsIsDropped) {
  query.Open();
  query.SetFilter("Type = 1");
  query.SetSort("Mab");
  connection.columns = {{"Code", ColumnType::Integer}};
  connection.rows = {{2}, {1}};
  query.Open();
  EXPECT_EQ(query.Filter(), "");
  EXPECT_EQ(query.Sort(), "");
  EXPECT_EQ(query.RecordCount(), 2U);
  EXPECT_EQ(CurrentCode(), Value(2));
}

TEST_F(Query, SettingTheSameFilterAndSortAgainTellsNobody) {
  query.Open();
  query.SetFilter("Type = 1");
  query.SetSort("Code DESC");
  Forget();
  query.SetFilter("Type = 1");
  query.SetSort("code desc");
  EXPECT_EQ(changes, 0);
}

TEST_F(Query, DisabledControlsTellOnceAtTheLastEnable) {
  query.Open();
  Forget();
  query.DisableControls();
  query.DisableControls();
  query.SetFilter("Type = 1");
  query.SetSort("Code DESC");
  query.First();
  query.EnableControls();
  EXPECT_TRUE(query.ControlsDisabled());
  EXPECT_EQ(changes + scrolls, 0);
  query.EnableControls();
  EXPECT_FALSE(query.ControlsDisabled());
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(scrolls, 1);
  query.EnableControls();
  query.DisableControls();
  query.EnableControls();
  EXPECT_EQ(changes, 1);
}

TEST_F(Query, AListenerMayChangeTheQueryAgain) {
  query.Open();
  bool once = true;
  const Subscription nested = query.Changed.Connect([&] {
    if (std::exchange(once, false)) query.SetFilter("Code = 40");
  });
  query.SetFilter("Type = 2");
  EXPECT_EQ(query.Filter(), "Code = 40");
  EXPECT_EQ(query.RecordCount(), 1U);
  EXPECT_EQ(CurrentCode(), Value(40));
}

TEST_F(Query, AListenerThatThrowsFindsTheChangeMade) {
  query.Open();
  Subscription bad = query.Changed.Connect([] { throw std::logic_error("listener"); });
  EXPECT_THROW(query.SetFilter("Type = 2"), std::logic_error);
  EXPECT_EQ(query.Filter(), "Type = 2");
  EXPECT_EQ(query.RecordCount(), 2U);
  bad.Disconnect();
  query.SetFilter("");
  EXPECT_EQ(query.RecordCount(), 5U);
}

TEST_F(Query, AListenerMayDestroyTheQuery) {
  auto other = std::make_unique<TADOQuery>(nullptr, "Other_QRY", connection);
  const Subscription killer = other->Changed.Connect([&other] { other.reset(); });
  other->Open();
  EXPECT_EQ(other, nullptr);
}

TEST_F(Query, OpeningAgainWhileAStatementRunsEndsWithTheOuterRows) {
  connection.duringOpen = [this] {
    connection.duringOpen = nullptr;
    query.Open();
    query.SetFilter("Type = 1");
  };
  query.Open();
  EXPECT_EQ(query.TotalCount(), 5U);
  EXPECT_EQ(query.RecordCount(), 2U);
}

TEST_F(Query, ChangingTheTextWhileItsStatementRunsIsSafe) {
  connection.duringOpen = [this] { query.SetSQL(std::string(1000, 'x')); };
  connection.failing = true;
  try {
    query.Open();
    FAIL();
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Statement(), "Exec Kardex_Proc 7");
  }
}

TEST_F(Query, AStatementWithANulNeverGoesOut) {
  query.Open();
  query.SetSQL(std::string("Exec P 'a\0b'", 13));
  EXPECT_THROW(query.Open(), DatabaseError);
  EXPECT_FALSE(query.Active());
  EXPECT_THROW(query.ExecSQL(), DatabaseError);
  EXPECT_EQ(connection.opened.size(), 1U);
  EXPECT_TRUE(connection.executed.empty());
}

TEST_F(Query, AnEmptyResultHasFieldsAndNoRow) {
  connection.rows.clear();
  query.SetFilter("Type = 1");
  query.Open();
  EXPECT_TRUE(query.Active());
  EXPECT_EQ(query.Fields().size(), 4U);
  EXPECT_TRUE(query.IsEmpty());
  EXPECT_FALSE(query.Locate("Code", std::array<Value, 1>{Value(1)}));
  query.SetSort("Code");
  query.SetFilter("");
  EXPECT_TRUE(query.IsEmpty());
}

class DataSource : public Query {
 protected:
  DataSource() {
    source.OnDataChange = [this] { ++dataChanges; };
  }
  TDataSource source{nullptr, "Kardex_DS"};
  int dataChanges = 0;
};

TEST_F(DataSource, PassesTheQuerysSignalsOnAndTellsEachChangeOnce) {
  int passed = 0;
  const Subscription one = source.Changed.Connect([&passed] { ++passed; });
  const Subscription two = source.Scrolled.Connect([&passed] { passed += 100; });
  source.SetDataSet(&query);
  EXPECT_EQ(passed, 101);
  EXPECT_EQ(dataChanges, 1);
  query.Open();
  EXPECT_EQ(passed, 202);
  EXPECT_EQ(dataChanges, 2);
  query.MoveTo(1);
  EXPECT_EQ(passed, 302);
  EXPECT_EQ(dataChanges, 3);
  query.SetFilter("Type = 2");
  EXPECT_EQ(passed, 303);
  EXPECT_EQ(dataChanges, 4);
}

TEST_F(DataSource, AReplacedQueryIsHeardNoMore) {
  source.SetDataSet(&query);
  source.SetDataSet(nullptr);
  EXPECT_EQ(dataChanges, 2);
  query.Open();
  EXPECT_EQ(dataChanges, 2);
  EXPECT_EQ(source.DataSet(), nullptr);
}

TEST_F(DataSource, SettingTheSameQueryAgainTellsNobody) {
  source.SetDataSet(&query);
  source.SetDataSet(&query);
  EXPECT_EQ(dataChanges, 1);
}

TEST_F(DataSource, MayOutliveItsQuery) {
  auto other = std::make_unique<TADOQuery>(nullptr, "Other_QRY", connection);
  source.SetDataSet(other.get());
  other.reset();
  source.SetDataSet(nullptr);
  EXPECT_EQ(source.DataSet(), nullptr);
}

}  // namespace
}  // namespace goods
