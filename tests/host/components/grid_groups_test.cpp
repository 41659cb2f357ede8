// Groups of a table's rows, what they come to, and the table that print and files read.
#include "host/components/grid_groups.h"

#include <gtest/gtest.h>

#include "host/base/base_dock.h"
#include "host/components/grid_filter.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

using GroupTexts = std::vector<std::string>;

class GroupsOfRows : public ::testing::Test {
 protected:
  GroupsOfRows() {
    host.Connection().Answer("rows", {{{"Name", ColumnType::Text},
                                       {"Store", ColumnType::Text},
                                       {"Date", ColumnType::Text},
                                       {"Amount", ColumnType::Decimal},
                                       {"Price", ColumnType::Decimal},
                                       {"UnitName1", ColumnType::Text}},
                                      {{"پیچ", "مرکزی", "1402/01/05", "10", "1000", "عدد"},
                                       {"مهره", "شعبه", "1402/01/20", "2.5", "100", "کیلو"},
                                       {"میخ", "مركزي", "1402/02/01", "4", "10", "کیلو"},
                                       {"سیم", std::nullopt, "1402/02/09", "1", "1", "متر"},
                                       {"واشر", "مرکزی", "1403/01/01", "-3", "5", "عدد"}}});
    host.Connection().Answer("none", {{{"Other", ColumnType::Text}}, {{"x"}}});
    grid.AddColumn("Name", "نام کالا");
    grid.AddColumn("Store", "محل|انبار");
    grid.AddColumn("Date", "تاریخ").SetKind(CellKind::Date);
    grid.AddColumn("Amount", "مقدار").SetDisplayFormat(kQuantityFormat).SetFooter(FooterKind::Sum);
    grid.AddColumn("Price", "مبلغ").SetDisplayFormat(kAmountFormat).SetFooter(FooterKind::Sum).SetMoney();
    grid.SetDataSource(&source);
    query.SetSQL("rows");
    query.Open();
  }
  const TGridColumn& Column(const char* field) { return *grid.FindColumn(field); }
  // The lines as the table shows them: the text column and the amount.
  GroupTexts Lines() {
    GroupTexts lines;
    const auto table = grid.Table();
    for (std::size_t row = 0; row < table->RowCount(); ++row)
      lines.push_back(table->CellText(row, 0) + "|" + table->CellText(row, 3));
    return lines;
  }

  ScriptedHost host;
  TADOQuery query{nullptr, "Rows_QRY", host.Connection()};
  TDataSource source{nullptr, "Rows_DS", &query};
  TSmartDBGrid_QRT grid{nullptr, "Rows_GRD"};
  GridGroups& groups = grid.Groups();
};

TEST_F(GroupsOfRows, HeadsHaveTheirRowsTotalsAndSpellingsOfOneTextAreOneGroup) {
  groups.Set(&Column("Store"));
  EXPECT_EQ(groups.Caption(), "گروه‌بندی: محل / انبار");
  EXPECT_EQ(Lines(),
            (GroupTexts{"(خالی) (1)|1", "شعبه (1)|2.5", "مرکزی (3)|11", "واحد: عدد|7", "واحد: کیلو|4"}));
  groups.Fold(2, false);
  EXPECT_EQ(Lines().size(), 8U);
  EXPECT_EQ(Lines()[5], "پیچ|10");
  EXPECT_EQ(grid.RowCount(), 5U);  // the rows themselves are all there
  groups.Set(nullptr);
  EXPECT_EQ(Lines().front(), "پیچ|10");
}

TEST_F(GroupsOfRows, DatesGoByMonthOrByDay) {
  groups.Set(&Column("Date"), true);
  EXPECT_EQ(groups.Title(0), "فروردین 1402");
  EXPECT_EQ(groups.Title(2), "فروردین 1403");
  EXPECT_EQ(groups.GroupCount(), 3U);
  groups.Set(&Column("Date"));
  EXPECT_EQ(groups.GroupCount(), 5U);
  EXPECT_EQ(groups.Title(4), "1403/01/01");
}

TEST_F(GroupsOfRows, TheUsersOrderHoldsWithinGroupsAndTurnsThemRound) {
  groups.Set(&Column("Store"));
  groups.FoldAll(false);
  grid.SetSortKeys({{"Amount", true}});
  EXPECT_EQ(grid.GetSort(), "Store ASC,Amount DESC");
  const GridGroups::Line first = groups.LineAt(groups.LineOf(2));
  EXPECT_EQ(groups.GroupOf(2), 2U);
  EXPECT_EQ(grid.CellText(*first.row, Column("Name")), "پیچ");
  grid.SetSortKeys({{"Amount", false}, {"Store", true}});
  EXPECT_EQ(grid.GetSort(), "Store TO 100000 DESC,Amount ASC");
  EXPECT_EQ(groups.Title(1), "مرکزی");  // empty cells come first either way
}

TEST_F(GroupsOfRows, LinesAndRowsFindEachOther) {
  groups.Set(&Column("Store"));
  groups.FoldAll(false);
  for (const bool folded : {false, true}) {
    groups.Fold(1, folded);
    for (std::size_t line = 0; line < groups.LineCount(); ++line) {
      const GridGroups::Line at = groups.LineAt(line);
      if (!at.row) continue;
      EXPECT_EQ(groups.LineOf(*at.row), line);
      EXPECT_EQ(groups.GroupOf(*at.row), at.group);
    }
  }
  EXPECT_TRUE(groups.LineAt(groups.LineOf(1)).IsHead());
  groups.Reveal(1);
  EXPECT_EQ(groups.LineAt(groups.LineOf(1)).row, 1U);
}

TEST_F(GroupsOfRows, FoldingOutlivesOtherRowsAndTotalsFollowThem) {
  groups.Set(&Column("Store"));
  groups.Fold(2, false);
  AddCondition(grid, ConditionOn(Column("Amount"), ConditionKind::From, {Value(0)}));
  ASSERT_EQ(groups.GroupCount(), 3U);
  EXPECT_FALSE(groups.Folded(2));
  EXPECT_TRUE(groups.Folded(1));
  EXPECT_EQ(groups.TotalText({2, {}, {}}, Column("Amount")), "14");
  query.SetFilter("Amount > 100");
  EXPECT_EQ(groups.LineCount(), 0U);
  query.SetSQL("none");
  query.Open();
  EXPECT_FALSE(groups.Active());
  EXPECT_EQ(groups.Caption(), "");
  query.SetSQL("rows");
  query.SetFilter("");
  query.Open();
  EXPECT_EQ(groups.GroupCount(), 3U);
}

TEST_F(GroupsOfRows, MoneyHasNoTotalInOneUnitAndAWithheldColumnGroupsNothing) {
  groups.Set(&Column("Store"));
  EXPECT_EQ(groups.TotalText({2, {}, {}}, Column("Price")), "1,015");
  EXPECT_TRUE(groups.Total({2, {}, 0}, Column("Price")).IsNull());
  EXPECT_TRUE(groups.Total({2, {}, {}}, Column("Name")).IsNull());
}

TEST_F(GroupsOfRows, ATableWithGroupsSaysWhatItsRowsAre) {
  groups.Set(&Column("Store"));
  groups.Fold(1, false);
  const auto table = grid.Table();
  ASSERT_TRUE(table->HasGroups());
  EXPECT_EQ(table->Role(1), RowRole::GroupHead);
  EXPECT_EQ(table->Role(2), RowRole::Row);
  EXPECT_EQ(table->Role(4), RowRole::UnitTotal);
  EXPECT_EQ(table->RowNumber(2), 2U);
  EXPECT_EQ(table->RowNumber(1), std::nullopt);
  EXPECT_EQ(table->Cell(1, 3), Value(*Decimal::Parse("2.5")));
  EXPECT_TRUE(table->Cell(1, 1).IsNull());
  EXPECT_EQ(table->FooterText(3), "14.5");
  EXPECT_FALSE(grid.RowsTable()->HasGroups());
}

TEST_F(GroupsOfRows, EveryUnitOfAGroupHasALineHoweverManyThereAre) {
  constexpr int kUnits = 45;
  CannedRows many{
      {{"Store", ColumnType::Text}, {"Amount", ColumnType::Decimal}, {"UnitName1", ColumnType::Text}}, {}};
  for (int row = 0; row < 3 * kUnits; ++row)
    many.rows.push_back(
        {row % 2 == 0 ? "مرکزی" : "شعبه", std::to_string(row), "واحد " + std::to_string(row % kUnits)});
  host.Connection().Answer("many", std::move(many));
  query.SetSQL("many");
  query.Open();
  groups.Set(&Column("Store"));
  ASSERT_EQ(groups.GroupCount(), 2U);
  for (std::size_t group = 0; group < 2; ++group) {
    ASSERT_EQ(groups.Units(group).size(), static_cast<std::size_t>(kUnits));
    Decimal sum;
    for (std::size_t unit = 0; unit < kUnits; ++unit) {
      EXPECT_EQ(groups.HeadText({group, {}, unit}), "واحد: " + groups.Units(group)[unit]);
      sum = sum + groups.Total({group, {}, unit}, Column("Amount")).AsDecimal();
    }
    EXPECT_EQ(sum, groups.Total({group, {}, {}}, Column("Amount")).AsDecimal());
  }
  EXPECT_EQ(groups.LineCount(), 2U * (1 + kUnits));
}

}  // namespace
}  // namespace goods
