// Groups within groups: their order, lines and folding, and their totals beside plain sums over made-up rows.
#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host/base/base_dock.h"
#include "host/components/grid.h"
#include "host/components/grid_filter.h"
#include "host/components/grid_groups.h"
#include "host/data/persian.h"
#include "host/services/detailed_table.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

using NestedTexts = std::vector<std::string>;

class NestedGroups : public ::testing::Test {
 protected:
  NestedGroups() {
    grid.AddColumn("Name", "نام کالا");
    grid.AddColumn("Store", "انبار");
    grid.AddColumn("Group", "گروه کالا");
    grid.AddColumn("Date", "تاریخ").SetKind(CellKind::Date);
    grid.AddColumn("Fee", "فی").SetDisplayFormat("#,0.#;#,0.#-;0");
    grid.AddColumn("Amount", "مقدار").SetDisplayFormat(kQuantityFormat).SetFooter(FooterKind::Sum);
    grid.SetDataSource(&source);
  }
  using Cells = std::vector<std::vector<std::optional<std::string>>>;
  void Fill(Cells cells) {
    CannedRows answer{{{"Name", ColumnType::Text},
                       {"Store", ColumnType::Text},
                       {"Group", ColumnType::Text},
                       {"Date", ColumnType::Text},
                       {"Fee", ColumnType::Decimal},
                       {"Amount", ColumnType::Decimal},
                       {"UnitName1", ColumnType::Text}},
                      {}};
    for (auto& row : cells) answer.rows.emplace_back(row.begin(), row.end());
    host.Connection().Answer("rows", std::move(answer));
    query.SetSQL("rows");
    query.Open();
  }
  void FillFew() {
    Fill({{"پیچ", "مرکزی", "فلز", "1402/01/05", "1", "10", "عدد"},
          {"مهره", "شعبه", "فلز", "1402/01/20", "1", "2.5", "کیلو"},
          {"میخ", "مركزي", "فلز", "1402/02/01", "2", "4", "کیلو"},
          {"تخته", "مرکزی", "چوب", "1402/02/09", "3", "1", "متر"},
          {"واشر", "مرکزی", "فلز", "1402/01/01", "3", "-3", "عدد"}});
  }
  const TGridColumn& Column(const char* field) { return *grid.FindColumn(field); }
  NestedTexts Lines(const IReportTable& table) {
    NestedTexts lines;
    for (std::size_t row = 0; row < table.RowCount(); ++row)
      lines.push_back(std::string(LevelOf(table, row), '.') + table.CellText(row, 0) + "|" +
                      table.CellText(row, 5));
    return lines;
  }
  NestedTexts Lines() { return Lines(*grid.Table()); }

  ScriptedHost host;
  TADOQuery query{nullptr, "Rows_QRY", host.Connection()};
  TDataSource source{nullptr, "Rows_DS", &query};
  TSmartDBGrid_QRT grid{nullptr, "Rows_GRD"};
  GridGroups& groups = grid.Groups();
};

TEST_F(NestedGroups, AGroupWithinAnotherHasItsOwnTotals) {
  FillFew();
  groups.Set(&Column("Store"));
  ASSERT_TRUE(groups.Add(Column("Group")));
  EXPECT_EQ(groups.Caption(), "گروه‌بندی: انبار، سپس گروه کالا");
  EXPECT_EQ(grid.GetSort(), "Store TO 100000 ASC,Group ASC");
  EXPECT_EQ(Lines(),
            (NestedTexts{"شعبه (1)|2.5", ".فلز (1)|2.5", "مرکزی (4)|12", "واحد: متر|1", "واحد: عدد|7",
                         "واحد: کیلو|4", ".چوب (1)|1", ".فلز (3)|11", ".واحد: عدد|7", ".واحد: کیلو|4"}));
  groups.FoldAll(false);
  EXPECT_EQ(Lines().size(), 15U);
  EXPECT_EQ(Lines()[2], "..مهره|2.5");
  groups.OpenLevels(0);
  EXPECT_EQ(Lines(),
            (NestedTexts{"شعبه (1)|2.5", "مرکزی (4)|12", "واحد: متر|1", "واحد: عدد|7", "واحد: کیلو|4"}));
  groups.Remove(Column("Store"));
  EXPECT_EQ(groups.Caption(), "گروه‌بندی: گروه کالا");
  EXPECT_EQ(grid.GetSort(), "Group ASC");
  EXPECT_EQ(groups.GroupCount(), 2U);
}

TEST_F(NestedGroups, MonthsHaveWholeGroupsWithinThemAndStayInTheOrderOfTheirDays) {
  FillFew();
  groups.Set(&Column("Date"), true);
  groups.Add(Column("Store"));
  groups.FoldAll(false);
  EXPECT_EQ(grid.GetSort(), "Date TO 7 ASC,Store ASC,Date ASC");
  ASSERT_EQ(groups.GroupCount(), 5U);  // two months, with two stores and one
  EXPECT_EQ(groups.Title(0), "فروردین 1402");
  EXPECT_EQ(groups.Title(2), "مرکزی");
  EXPECT_EQ(grid.CellText(groups.FirstRow(2), Column("Name")), "واشر");
  grid.SetSortKeys({{"Date", true}});
  EXPECT_EQ(grid.GetSort(), "Date TO 7 DESC,Store ASC,Date DESC");
  EXPECT_EQ(groups.Title(0), "اردیبهشت 1402");
}

TEST_F(NestedGroups, NoMoreLevelsThanThreeAndEachColumnOnce) {
  FillFew();
  groups.Set(&Column("Store"));
  EXPECT_TRUE(groups.Add(Column("Group")));
  EXPECT_TRUE(groups.Add(Column("Date"), true));
  EXPECT_FALSE(groups.Add(Column("Fee")));
  EXPECT_TRUE(groups.Add(Column("Date")));  // by day now, in its place
  ASSERT_EQ(groups.Levels().size(), 3U);
  EXPECT_FALSE(groups.Levels()[2].byMonth);
  groups.SetLevels({{"Group", false}, {"Group", true}, {"", false}, {"Nothing", false}, {"Store", false}});
  EXPECT_EQ(groups.Levels().size(), 3U);
  EXPECT_EQ(groups.Columns().size(), 2U) << "a column that is not there groups nothing";
  EXPECT_EQ(groups.Caption(), "گروه‌بندی: گروه کالا، سپس انبار");
}

TEST_F(NestedGroups, FoldingIsByPathAndOutlivesOtherRows) {
  FillFew();
  groups.SetLevels({{"Store", false}, {"Group", false}});
  groups.OpenLevels(1);
  ASSERT_EQ(groups.Title(1), "فلز");  // of the branch
  groups.Fold(1, false);
  AddCondition(grid, ConditionOn(Column("Amount"), ConditionKind::From, {Value(0)}));
  EXPECT_FALSE(groups.Folded(1));
  ASSERT_EQ(groups.Title(4), "فلز");  // of the same name, of the main store
  EXPECT_TRUE(groups.Folded(4));
  groups.Fold(2, true);
  EXPECT_TRUE(groups.FoldedAway(4));
  EXPECT_EQ(groups.HeadLine(4), std::nullopt);
  groups.Reveal(groups.FirstRow(4));
  EXPECT_TRUE(groups.InView(groups.FirstRow(4)));
  EXPECT_FALSE(groups.Folded(2));
}

TEST_F(NestedGroups, ATableTellsWhatIsFoldedAwayAndHasItUnfolded) {
  FillFew();
  groups.SetLevels({{"Store", false}, {"Group", false}});
  groups.Fold(2, false);
  const auto table = grid.Table();
  ASSERT_NE(DetailsOf(table.get()), nullptr);
  const IDetailedTable& details = *DetailsOf(table.get());
  EXPECT_EQ(details.GroupLevels(), 2U);
  const auto whole = details.Unfolded();
  ASSERT_NE(whole, nullptr);
  EXPECT_EQ(whole->RowCount(), 15U);
  EXPECT_EQ(whole->Unfolded(), nullptr);
  NestedTexts shown;
  const NestedTexts all = Lines(*whole);
  for (std::size_t row = 0; row < whole->RowCount(); ++row)
    if (!whole->Hidden(row)) shown.push_back(all[row]);
  EXPECT_EQ(shown, Lines());
  EXPECT_TRUE(whole->Folded(0));
  groups.FoldAll(false);
  const auto open = grid.Table();
  EXPECT_EQ(DetailsOf(open.get())->Unfolded(), nullptr);
}

// --- Made-up rows
// --------------------------------------------------------------------------------------------

// What a row belongs to on a level, by another road than the component's.
std::string KeyOf(const TADOQuery& query, std::size_t row, const GridGroups::GroupedBy& by) {
  const Value value = query.Cell(row, *query.FindField(by.column->FieldName()));
  if (by.byMonth) return value.AsText().substr(0, 7);
  return by.column->IsNumber() ? by.column->Format().Format(value) : PersianSortKey(value.AsText());
}

struct PlainGroup {
  std::size_t rows = 0;
  Decimal sum;
  std::map<std::string, Decimal> units;
};

class MadeUpGroups : public NestedGroups {
 protected:
  std::size_t Below(std::size_t count) { return random() % count; }
  template <typename List>
  auto OneOf(const List& list) {
    return list[Below(std::size(list))];
  }
  void FillAtRandom(std::size_t count) {
    using Text = std::optional<std::string>;
    const std::vector<Text> stores{"مرکزی", "مركزي", "شعبه", "", std::nullopt, "انبار ۲", "انبار 2"};
    const std::vector<Text> kinds{"فلز", "چوب", std::nullopt, "", "شیشه"};
    const std::vector<Text> units{"عدد", "کیلو", std::nullopt, "متر"};
    Cells cells;
    for (std::size_t i = 0; i < count; ++i) {
      const std::string day = std::to_string(10 + Below(19));
      const std::string month = "0" + std::to_string(1 + Below(3));
      const Text date =
          Below(20) == 0 ? Text() : Text("140" + std::to_string(2 + Below(2)) + "/" + month + "/" + day);
      const Text fee =
          Below(9) == 0 ? Text() : Text(std::to_string(Below(3)) + "." + std::to_string(Below(100)));
      const Text amount =
          Below(9) == 0 ? Text() : Text(std::to_string(Below(2000)) + "." + std::to_string(Below(1000)));
      cells.push_back({"کالا " + std::to_string(Below(9)), OneOf(stores), OneOf(kinds), date, fee,
                       amount && Below(3) == 0 ? Text("-" + *amount) : amount, OneOf(units)});
    }
    Fill(std::move(cells));
  }
  void GroupAtRandom() {
    std::vector<GridGroups::Level> levels;
    std::vector<std::string> columns{"Name", "Store", "Group", "Date", "Fee"};
    std::shuffle(columns.begin(), columns.end(), random);
    for (std::size_t i = 0; i < 1 + Below(GridGroups::kMostLevels); ++i)
      levels.push_back({columns[i], columns[i] == "Date" && Below(2) == 0});
    groups.SetLevels(levels);
    std::vector<TSortKey> keys;
    for (std::size_t i = 0; i < Below(3); ++i)
      keys.push_back({columns[columns.size() - 1 - i], Below(2) == 0});
    if (Below(3) == 0) keys.push_back({columns[0], true});
    grid.SetSortKeys(keys);
  }
  std::map<std::vector<std::string>, PlainGroup> PlainSums() {
    std::map<std::vector<std::string>, PlainGroup> sums;
    for (std::size_t row = 0; row < query.RecordCount(); ++row) {
      std::vector<std::string> path;
      const Decimal amount = query.Cell(row, *query.FindField("Amount")).AsDecimal();
      const std::string unit = query.Cell(row, *query.FindField("UnitName1")).AsText();
      for (const GridGroups::GroupedBy& by : groups.Columns()) {
        path.push_back(KeyOf(query, row, by));
        PlainGroup& group = sums[path];
        ++group.rows;
        group.sum += amount;
        group.units[unit] += amount;
      }
    }
    return sums;
  }
  void ExpectPlainSums() {
    auto plain = PlainSums();
    ASSERT_EQ(groups.GroupCount(), plain.size()) << grid.GetSort();
    const auto columns = groups.Columns();
    for (std::size_t group = 0; group < groups.GroupCount(); ++group) {
      std::vector<std::string> path;
      for (std::size_t level = 0; level <= groups.LevelOf(group); ++level)
        path.push_back(KeyOf(query, groups.FirstRow(group), columns[level]));
      ASSERT_TRUE(plain.contains(path));
      const PlainGroup& sums = plain[path];
      EXPECT_EQ(groups.RowCount(group), sums.rows);
      EXPECT_EQ(groups.Total({group, {}, {}}, Column("Amount")).AsDecimal(), sums.sum);
      const auto units = groups.Units(group);
      EXPECT_EQ(units.size(), sums.units.size() > 1 ? sums.units.size() : 0);
      for (std::size_t unit = 0; unit < units.size(); ++unit)
        EXPECT_EQ(groups.Total({group, {}, unit}, Column("Amount")).AsDecimal(), sums.units.at(units[unit]));
    }
  }
  void ExpectLinesAgree() {
    std::size_t rows = 0;
    for (std::size_t line = 0; line < groups.LineCount(); ++line) {
      const GridGroups::Line at = groups.LineAt(line);
      ASSERT_FALSE(groups.FoldedAway(at.group));
      if (at.IsHead()) {
        EXPECT_EQ(groups.HeadLine(at.group), line);
      }
      if (!at.row) continue;
      ++rows;
      EXPECT_EQ(groups.LineOf(*at.row), line);
      EXPECT_EQ(groups.GroupOf(*at.row), at.group);
      EXPECT_TRUE(groups.InView(*at.row));
    }
    std::size_t inView = 0;
    for (std::size_t row = 0; row < grid.RowCount(); ++row) {
      inView += groups.InView(row) ? 1U : 0U;
      const GridGroups::Line at = groups.LineAt(groups.LineOf(row));
      EXPECT_EQ(at.row.has_value(), groups.InView(row));
      if (!at.row) {
        EXPECT_EQ(at.group, groups.ShownGroupOf(row));
      }
    }
    EXPECT_EQ(rows, inView);
    std::size_t all = 0;
    for (std::size_t line = 0; line < groups.LineCount(GridGroups::Lines::All); ++line)
      all += groups.LineAt(line, GridGroups::Lines::All).row ? 1U : 0U;
    EXPECT_EQ(all, grid.RowCount());
  }

  std::mt19937 random{20'241'122};
};

TEST_F(MadeUpGroups, SubtotalsOnEveryLevelArePlainSums) {
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    FillAtRandom(round == 0 ? 0 : Below(120));
    GroupAtRandom();
    SCOPED_TRACE(grid.GetSort());
    ExpectPlainSums();
    AddCondition(grid, ConditionOn(Column("Amount"), ConditionKind::From, {Value(0)}));
    ExpectPlainSums();
    groups.OpenLevels(Below(4));
    for (int i = 0; i < 5 && groups.GroupCount() > 0; ++i)
      groups.Fold(Below(groups.GroupCount()), Below(2) == 0);
    ExpectLinesAgree();
    if (grid.RowCount() > 0) {
      const std::size_t row = Below(grid.RowCount());
      groups.Reveal(row);
      EXPECT_TRUE(groups.InView(row));
    }
    RemoveConditions(grid);
    ExpectLinesAgree();
  }
}

}  // namespace
}  // namespace goods
