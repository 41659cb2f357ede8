// The user's conditions on the columns of a grid, and the distinct values of a column.
#include "host/components/grid_filter.h"

#include <gtest/gtest.h>

#include "host/base/base_dock.h"
#include "host/components/column_values.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

class GridFilter : public ::testing::Test {
 protected:
  GridFilter() {
    host.Connection().Answer("rows", {{{"Name", ColumnType::Text},
                                       {"Amount", ColumnType::Decimal},
                                       {"Store", ColumnType::Integer},
                                       {"Date", ColumnType::Text}},
                                      {{"پیچ", "1250.5", "1", "1402/01/05"},
                                       {"مهره", "-3", "2", "1402/03/01"},
                                       {"پيچ كوتاه", "0.001", "1", "1402/02/10"},
                                       {"", "1250.501", "3", "1403/01/01"},
                                       {"واشر", std::nullopt, "2", std::nullopt}}});
    grid.AddColumn("Name", "نام کالا").SetFooter(FooterKind::Count);
    grid.AddColumn("Amount", "مبلغ|جمع").SetDisplayFormat(kAmountFormat).SetFooter(FooterKind::Sum);
    grid.AddColumn("Store", "انبار");
    grid.AddColumn("Date", "تاریخ");
    grid.SetDataSource(&source);
    query.SetSQL("rows");
    query.Open();
  }

  const TGridColumn& Column(const char* field) { return *grid.FindColumn(field); }
  void Add(const char* field, ConditionKind kind, Value value) {
    AddCondition(grid, ConditionOn(Column(field), kind, {std::move(value)}));
  }
  // The places of the visible rows among those that were read.
  std::vector<std::uint32_t> Rows() { return {query.VisibleRows().begin(), query.VisibleRows().end()}; }
  using Places = std::vector<std::uint32_t>;

  ScriptedHost host;
  TADOQuery query{nullptr, "Rows_QRY", host.Connection()};
  TDataSource source{nullptr, "Rows_DS", &query};
  TSmartDBGrid_QRT grid{nullptr, "Rows_GRD"};
};

TEST_F(GridFilter, EachKindOfConditionNarrowsTheRows) {
  Add("Name", ConditionKind::Equal, "مهره");
  EXPECT_EQ(Rows(), (Places{1}));
  RemoveConditions(grid);
  Add("Name", ConditionKind::NotEqual, "مهره");
  EXPECT_EQ(Rows(), (Places{0, 2, 3, 4}));
  RemoveConditions(grid);
  Add("Name", ConditionKind::Contains, "پیچ ک");  // in the other spelling
  EXPECT_EQ(Rows(), (Places{2}));
  RemoveConditions(grid);
  Add("Date", ConditionKind::From, "1402/02/10");
  EXPECT_EQ(Rows(), (Places{1, 2, 3}));
  Add("Date", ConditionKind::To, "1402/12/29");
  EXPECT_EQ(Rows(), (Places{1, 2}));
  Add("Date", ConditionKind::From, "1402/03/01");  // in the place of the other From
  EXPECT_EQ(Rows(), (Places{1}));
  RemoveConditions(grid);
  Add("Amount", ConditionKind::From, Value(0));
  EXPECT_EQ(Rows(), (Places{0, 2, 3}));
  EXPECT_EQ(query.Filter(), "");
}

TEST_F(GridFilter, NumbersThatLookEqualAreEqual) {
  Add("Amount", ConditionKind::Equal, CellValue(grid, 0, Column("Amount")));
  EXPECT_EQ(Rows(), (Places{0, 3}));
  RemoveConditions(grid);
  Add("Amount", ConditionKind::To, Value(0));  // 0.001 is shown as 0
  EXPECT_EQ(Rows(), (Places{1, 2}));
}

TEST_F(GridFilter, EmptyCellsAreFoundAndLeftOutByTheirNull) {
  Add("Name", ConditionKind::Equal, Value());
  EXPECT_EQ(Rows(), (Places{3}));
  RemoveConditions(grid);
  Add("Amount", ConditionKind::NotEqual, Value());
  EXPECT_EQ(Rows(), (Places{0, 1, 2, 3}));
  EXPECT_EQ(ConditionText(grid, query.Narrowing().front()), "مبلغ / جمع: به جز (خالی)");
}

TEST_F(GridFilter, TheReportsFilterAndFootersGoTogetherWithIt) {
  query.SetFilter("Store < 3");
  Add("Name", ConditionKind::Contains, "پیچ");
  EXPECT_EQ(Rows(), (Places{0, 2}));
  EXPECT_EQ(grid.FooterText(Column("Name")), "2");
  EXPECT_EQ(grid.FooterValue(Column("Amount")), Value(*Decimal::Parse("1250.501")));
  query.SetFilter("");
  EXPECT_EQ(Rows(), (Places{0, 2}));
  query.SetSort("Date DESC");
  EXPECT_EQ(Rows(), (Places{2, 0}));
  RemoveCondition(grid, query.Narrowing().front());
  EXPECT_EQ(Rows().size(), 5U);
}

TEST_F(GridFilter, ItOutlivesARunAndFallsWithItsField) {
  Add("Name", ConditionKind::Equal, "مهره");
  Add("Store", ConditionKind::Equal, Value(2));
  query.Close();
  EXPECT_TRUE(Rows().empty());
  query.Open();
  EXPECT_EQ(Rows(), (Places{1}));
  host.Connection().Answer("others", {{{"Name", ColumnType::Text}}, {{"مهره"}, {"پیچ"}}});
  query.SetSQL("others");
  query.Open();
  EXPECT_EQ(Rows(), (Places{0}));
  ASSERT_EQ(query.Narrowing().size(), 1U);
}

TEST_F(GridFilter, AColumnThatShowsAnotherFieldTakesItsConditionAlong) {
  Add("Store", ConditionKind::Equal, Value(2));
  grid.FindColumn("Store")->SetFieldName("Amount");
  ASSERT_EQ(query.Narrowing().size(), 1U);
  EXPECT_EQ(query.Narrowing().front().field, "Amount");
}

TEST_F(GridFilter, TheLineAboveAPrintedListNamesWhatIsInForce) {
  EXPECT_EQ(NarrowingLine(grid), "");
  Add("Name", ConditionKind::Contains, "پیچ");
  Add("Amount", ConditionKind::From, *Decimal::Parse("1000"));
  EXPECT_EQ(NarrowingLine(grid), "فیلتر جدول : نام کالا: شامل «پیچ» ؛ مبلغ / جمع: از «1,000»");
  TPrintDBGridEh print(nullptr, "Print");
  print.Grid = &grid;
  print.OnBeforePrint = [](std::vector<std::string>& lines) { lines.emplace_back("سطر گزارش"); };
  struct Printing : IPrinting {
    void Preview(const PrintJob& job) override { lines = job.lines; }
    std::vector<std::string> lines;
  } printing;
  print.Preview(printing);
  EXPECT_EQ(printing.lines, (std::vector<std::string>{"سطر گزارش", NarrowingLine(grid)}));
  AddCondition(grid, ConditionOn(Column("Date"), ConditionKind::OneOf, {"1", "2", "3", "4", "5", "6", "7"}));
  EXPECT_EQ(ConditionText(grid, query.Narrowing().back()), "تاریخ: «1»، «2»، «3»، «4»، «5» و 2 مقدار دیگر");
}

TEST_F(GridFilter, DistinctValuesAreCountedBesideTheOtherConditions) {
  Add("Store", ConditionKind::OneOf, Value(1));
  Add("Name", ConditionKind::Equal, "مهره");  // its own column's condition does not count
  ColumnValues names(grid, Column("Name"));
  while (names.Work(1)) {
  }
  ASSERT_EQ(names.Entries().size(), 2U);
  EXPECT_EQ(names.Entries()[0].text, "پیچ");
  EXPECT_EQ(names.Entries()[0].count, 1U);
  EXPECT_FALSE(names.More());
  RemoveConditions(grid);
  ColumnValues amounts(grid, Column("Amount"));
  while (amounts.Work(100)) {
  }
  ASSERT_EQ(amounts.Entries().size(), 4U);
  EXPECT_EQ(amounts.Entries()[0].text, "");
  EXPECT_EQ(amounts.Entries()[1].text, "3-");
  EXPECT_EQ(amounts.Entries()[3].text, "1,250.5");
  EXPECT_EQ(amounts.Entries()[3].count, 2U);
  AddCondition(grid, ConditionOn(Column("Amount"), ConditionKind::OneOf, amounts.Entries()[3].values));
  EXPECT_EQ(Rows(), (Places{0, 3}));
}

TEST_F(GridFilter, ASearchAmongTheValuesFoldsThem) {
  ColumnValues names(grid, Column("Name"), "پیچ کو");
  while (names.Work(100)) {
  }
  ASSERT_EQ(names.Entries().size(), 1U);
  EXPECT_EQ(names.Entries()[0].text, "پيچ كوتاه");
}

TEST_F(GridFilter, AMillionDifferentValuesAreListedUpToTheLimit) {
  CannedRows many{{{"Name", ColumnType::Text}}, {}};
  for (int i = 0; i < 3000; ++i) many.rows.push_back({"کالا " + std::to_string(i % 1500)});
  host.Connection().Answer("many", many);
  query.SetSQL("many");
  query.Open();
  ColumnValues names(grid, Column("Name"));
  while (names.Work(100)) {
  }
  EXPECT_EQ(names.Entries().size(), ColumnValues::kMostValues);
  EXPECT_TRUE(names.More());
  EXPECT_EQ(names.Entries()[0].count, 2U);
}

TEST_F(GridFilter, AWindowThatIsClosedLiftsItsConditions) {
  TBaseDock_FRM form(host, "Rows_FRM", 1, "");
  form.Place(grid);
  Add("Name", ConditionKind::Equal, "مهره");
  form.FormClose();
  EXPECT_TRUE(query.Narrowing().empty());
  EXPECT_EQ(Rows().size(), 5U);
}

}  // namespace
}  // namespace goods
