// GoodInf_sp against the list worked out from the tables, over random companies.
#include <algorithm>

#include <gtest/gtest.h>

#include "company/embedded/sqlite.h"
#include "turnover_fixture.h"

namespace goods {
namespace {

std::string Joined(const std::string& a, const std::string& b) {
  return a.empty() || b.empty() ? a + b : a + "," + b;
}

TEST_F(TurnoverTest, TheColumnsAreThoseOfTheListInItsOrder) {
  Open(1);
  const RowStore rows = AskRows(*connection_, "exec GoodInf_sp ");
  std::string columns;
  for (const ColumnInfo& column : rows.Columns()) {
    const char* types[] = {"integer", "decimal", "text"};
    const int type = column.type == ColumnType::Integer ? 0 : column.type == ColumnType::Decimal ? 1 : 2;
    columns += column.name + " " + types[type] + "\n";
  }
  EXPECT_EQ(
      columns,
      "GrpCode integer\nCode integer\nName text\nOperationDate text\nAbbName text\nPos text\nUnit integer\n"
      "AvaBgPrd decimal\nCostBgPrd decimal\nCurAva integer\nStatus integer\nvarede decimal\nsadere decimal\n"
      "gheymat_miangin decimal\nUnit2 integer\nAvaBgPrd2 decimal\nMogodi2 decimal\nMeghdar2 decimal\n"
      "kala_type text\nkala_index text\nkala_name text\nMeghdar_Formool decimal\nStore integer\nSMSCode "
      "text\n"
      "UnitName1 text\nUnitName2 text\nJam_Kol decimal\nPosition text\nJoz decimal\nMinAva decimal\n"
      "Mogodi decimal\nMogodi_Ava_Diff decimal\nSumStock decimal\nStock decimal\ncategory_code text\n"
      "Tags text\nt1 text\nt2 text\nt3 text\n");
}

TEST_F(TurnoverTest, WithoutParametersEveryGoodComesByItsCode) {
  for (unsigned seed = 1; seed <= 4; ++seed) {
    Open(seed, seed == 4);
    const Rows list = List("");
    EXPECT_EQ(list, Expected({}));
    EXPECT_EQ(list.size(), static_cast<std::size_t>(kTurnoverGoods));
    EXPECT_EQ(List("@GrpCode = 0,@GoodExistType = 0,@Inlist=0,@tags=',,',@category_code=''"), list);
  }
}

TEST_F(TurnoverTest, APeriodAndAStoreGiveTheFiguresOfTheirMovements) {
  for (unsigned seed = 11; seed <= 16; ++seed) {
    Open(seed, seed % 3 == 0);
    std::mt19937 random(seed);
    for (const TurnoverFigures& figures : EveryKindOfFigures(random)) {
      ASSERT_EQ(List(figures.Parameters()), Expected(figures)) << seed << ": " << figures.Parameters();
    }
  }
}

TEST_F(TurnoverTest, AnEmptyFirstDateCountsTheStockFromBeforeAndAGivenOneDoesNot) {
  Open(21);
  TurnoverFigures whole;
  whole.from = "";
  whole.to = "9999/99/99";
  EXPECT_EQ(List("@EffectiveDate1 = '', @EffectiveDate2 = '9999/99/99'"), Expected({}));
  TurnoverFigures late;
  late.from = "1402/04/01";
  late.to = "1402/06/31";
  EXPECT_EQ(List(late.Parameters()), Expected(late));
  EXPECT_NE(Expected(late), Expected(whole));
  for (const TurnoverRow& row : tables_->Rows(late)) EXPECT_EQ(row.stock, row.varede - row.sadere);
}

TEST_F(TurnoverTest, BeforeEveryMovementNothingIsThere) {
  Open(22);
  const RowStore rows =
      AskRows(*connection_, "exec GoodInf_sp @EffectiveDate1='',@EffectiveDate2='1400/01/01'");
  ASSERT_EQ(rows.Count(), static_cast<std::size_t>(kTurnoverGoods));
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    for (const char* column : {"varede", "sadere", "Mogodi", "gheymat_miangin"}) {
      EXPECT_EQ(rows.Cell(row, *rows.FindColumn(column)).AsText(), "0");
    }
    EXPECT_EQ(rows.Cell(row, *rows.FindColumn("OperationDate")).AsText(), "");
  }
}

TEST_F(TurnoverTest, WithoutAPeriodTheStoredFiguresStandAndWithOneTheMovements) {
  Open(23);
  Database(file_->Path(), SQLITE_OPEN_READWRITE)
      .Run(
          "UPDATE GoodStock SET Mogodi = 7000000000 WHERE Kala = 4;"
          "UPDATE GoodStoreStock SET Mogodi = 9000000000 WHERE Kala = 4 AND Anbar = 2");
  const auto stock = [&](const std::string& parameters) {
    const RowStore rows = AskRows(*connection_, "exec GoodInf_sp @Code=4" + parameters);
    return rows.Count() == 1 ? rows.Cell(0, *rows.FindColumn("Mogodi")).AsText() : "";
  };
  EXPECT_EQ(stock(""), "7");
  EXPECT_EQ(stock(",@StoreCode=0"), "7");
  EXPECT_EQ(stock(",@StoreCode=2"), "9");
  EXPECT_EQ(stock(",@EffectiveDate1=''"), tables_->Rows({})[3].stock.ToString());
}

TEST_F(TurnoverTest, AStoreThatIsNotThereLeavesEveryGoodWithZeros) {
  Open(24);
  for (const char* parameters : {"@StoreCode=77", "@StoreCode=77,@EffectiveDate1=''"}) {
    const RowStore rows = AskRows(*connection_, std::string("exec GoodInf_sp ") + parameters);
    ASSERT_EQ(rows.Count(), static_cast<std::size_t>(kTurnoverGoods)) << parameters;
    for (std::size_t row = 0; row < rows.Count(); ++row) {
      EXPECT_EQ(rows.Cell(row, *rows.FindColumn("Mogodi")).AsText(), "0");
      EXPECT_EQ(rows.Cell(row, *rows.FindColumn("OperationDate")).AsText(), "");
    }
  }
  EXPECT_EQ(List("@StoreCode=77,@NotStoreCode=1"), Expected({}));
}

TEST_F(TurnoverTest, EachTabListsTheGoodsWhoseShownStockItMeans) {
  const Holds kinds[] = {[](const TurnoverRow& row) { return row.stock > Decimal(); },
                         [](const TurnoverRow& row) { return row.stock < Decimal(); },
                         [](const TurnoverRow& row) { return row.operationDate.empty(); },
                         [](const TurnoverRow& row) { return row.stock.IsZero(); },
                         [](const TurnoverRow& row) { return row.stock < row.minimum; }};
  std::size_t found[5] = {};
  for (unsigned seed = 31; seed <= 33; ++seed) {
    Open(seed);
    std::mt19937 random(seed);
    for (const TurnoverFigures& figures : EveryKindOfFigures(random)) {
      for (std::size_t kind = 0; kind < 5; ++kind) {
        const Rows expected = Expected(figures, kinds[kind]);
        found[kind] += expected.size();
        const std::string tab = "@GoodExistType = " + std::to_string(kind + 1);
        ASSERT_EQ(List(Joined(tab, figures.Parameters())), expected) << tab << figures.Parameters();
      }
    }
    EXPECT_EQ(List("@GoodExistType = 3").size(), 1U);
    EXPECT_EQ(List("@GoodExistType = 4").size(), 2U) << "one that never moved, one that came and went";
    EXPECT_TRUE(List("@GoodExistType = 6").empty());
  }
  for (const std::size_t count : found) EXPECT_GT(count, 20U);
}

TEST_F(TurnoverTest, EachPriceBasisGivesItsPriceAndTheValueOfTheShownStock) {
  struct Basis {
    int basis, buyFlag, level;
  };
  constexpr Basis kBases[] = {{-1, -1, -1}, {1, 1, 1},  {2, 1, 2},   {3, 1, 3},   {11, 1, 11}, {12, 1, 12},
                              {13, 1, 13},  {5, 1, 1},  {5, 0, 1},   {5, 1, 2},   {5, 0, 2},   {5, 0, -100},
                              {5, 1, -100}, {5, 0, 77}, {3, -1, -1}, {13, -1, -1}};
  for (unsigned seed = 41; seed <= 43; ++seed) {
    Open(seed, seed == 43);
    Rows before;
    for (const Basis& basis : kBases) {
      connection_->Execute("Exec RialiStock_SP " + std::to_string(basis.basis) + " , " +
                           std::to_string(basis.buyFlag) + " , " + std::to_string(basis.level));
      TurnoverFigures figures;
      figures.basis = basis.basis;
      figures.buyFlag = basis.buyFlag;
      figures.level = basis.level;
      ASSERT_EQ(List(""), Expected(figures)) << basis.basis << " " << basis.buyFlag << " " << basis.level;
      figures.to = "1402/03/20";
      figures.store = 3;
      ASSERT_EQ(List(figures.Parameters()), Expected(figures)) << basis.basis;
    }
  }
}

TEST_F(TurnoverTest, WithoutAPreparedPriceTheValueIsZero) {
  Open(44);
  Database(file_->Path(), SQLITE_OPEN_READWRITE).Run("DELETE FROM RialiStock");
  const RowStore rows = AskRows(*connection_, "exec GoodInf_sp ");
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    EXPECT_EQ(rows.Cell(row, *rows.FindColumn("Stock")).AsText(), "0");
    EXPECT_EQ(rows.Cell(row, *rows.FindColumn("SumStock")).AsText(), "0");
  }
}

TEST_F(TurnoverTest, ASavedListLeavesItsGoodsOrTheOthers) {
  Open(51);
  const auto onList = [](const TurnoverRow& row) {
    return row.code == 1 || row.code == 3 || row.code == 5 || row.code == kNeverMoved;
  };
  const auto notOnList = [&](const TurnoverRow& row) { return !onList(row); };
  EXPECT_EQ(List("@Inlist=1, @SelectedCode=1"), Expected({}, onList));
  EXPECT_EQ(List("@invertList=0, @Inlist=1, @SelectedCode=1"), Expected({}, onList));
  EXPECT_EQ(List("@invertList=1,@Inlist=1, @SelectedCode=1"), Expected({}, notOnList));
  EXPECT_TRUE(List("@Inlist=1, @SelectedCode=2").empty());
  EXPECT_EQ(List("@invertList=1, @Inlist=1, @SelectedCode=2"), Expected({}));
}

TEST_F(TurnoverTest, NoListLeavesEveryGoodWhateverTheInversionSays) {
  Open(52);
  for (const char* parameters :
       {"@invertList=0, @Inlist=1, @SelectedCode=NULL", "@invertList=1, @Inlist=1, @SelectedCode=NULL",
        "@invertList=1, @Inlist=1, @SelectedCode=0", "@Inlist=0, @SelectedCode=1"}) {
    EXPECT_EQ(List(parameters), Expected({})) << parameters;
  }
}

TEST_F(TurnoverTest, EachCriterionAloneAndExcludedLeavesTheGoodsThatMeetIt) {
  std::size_t found[kTurnoverCriteria] = {};
  std::size_t asked = 0;
  for (unsigned seed = 61; seed <= 63; ++seed) {
    Open(seed, seed == 63);
    std::mt19937 random(seed);
    const std::vector<TurnoverRow> rows = tables_->Rows({});
    for (int i = 0; i < 12; ++i, ++asked) {
      for (int kind = 0; kind < kTurnoverCriteria; ++kind) {
        const TurnoverCriterion criterion = RandomTurnoverCriterion(kind, rows, random, i % 2 == 1);
        const Rows expected = Expected({}, criterion.holds);
        found[kind] += expected.size();
        ASSERT_EQ(List(criterion.parameters), expected) << criterion.parameters;
      }
    }
  }
  for (int kind = 0; kind < kTurnoverCriteria; ++kind) {
    EXPECT_GT(found[kind], 0U) << "criteria of kind " << kind << " meet nothing";
    EXPECT_LT(found[kind], asked * kTurnoverGoods) << "criteria of kind " << kind << " meet everything";
  }
}

TEST_F(TurnoverTest, CriteriaTogetherAskForTheFiguresThatAreShown) {
  std::size_t found = 0;
  for (unsigned seed = 71; seed <= 74; ++seed) {
    Open(seed, seed == 74);
    std::mt19937 random(seed);
    for (const TurnoverFigures& figures : EveryKindOfFigures(random)) {
      const std::vector<TurnoverRow> rows = tables_->Rows(figures);
      for (int i = 0; i < 6; ++i) {
        std::string parameters = figures.Parameters();
        std::vector<Holds> all;
        const std::int64_t group = 1 + static_cast<std::int64_t>(random() % 3);
        if (random() % 3 == 0) {
          parameters = Joined("@GrpCode = " + std::to_string(group), parameters);
          all.push_back([group](const TurnoverRow& row) { return row.group == group; });
        }
        for (int kind = 0; kind < kTurnoverCriteria; ++kind) {
          if (random() % 8 != 0) continue;
          const TurnoverCriterion criterion = RandomTurnoverCriterion(kind, rows, random, random() % 2 == 0);
          parameters = Joined(parameters, criterion.parameters);
          all.push_back(criterion.holds);
        }
        const Rows expected = Expected(figures, [&](const TurnoverRow& row) {
          return std::all_of(all.begin(), all.end(), [&](const Holds& holds) { return holds(row); });
        });
        found += expected.size();
        ASSERT_EQ(List(parameters), expected) << parameters;
      }
    }
  }
  EXPECT_GT(found, 1000U);
}

TEST_F(TurnoverTest, AValueAndARangeOfOneFieldAreExcludedEachByItsOwnFlag) {
  Open(81);
  EXPECT_EQ(List("@Code=5,@NotCode=1,@FromCode=4,@ToCode=6"),
            Expected({}, [](const TurnoverRow& row) { return row.code == 4 || row.code == 6; }));
  EXPECT_EQ(List("@Code=5,@FromCode=6,@ToCode=9,@NotRangeCode=1"),
            Expected({}, [](const TurnoverRow& row) { return row.code == 5; }));
  EXPECT_NE(Refusal(*connection_, "exec GoodInf_sp @NotCode=1,@Code=5,@notcode=1").find("دو بار"),
            std::string::npos);
}

TEST_F(TurnoverTest, AnUnknownGroupHasNoGoods) {
  Open(83);
  EXPECT_TRUE(List("@GrpCode = 99").empty());
  EXPECT_TRUE(List("@GrpCode = 99,@EffectiveDate1 = ''").empty());
}

TEST_F(TurnoverTest, ColoursAreThoseOfTheFirstThreeTagsInTheirPlaces) {
  Open(85);
  Database(file_->Path(), SQLITE_OPEN_READWRITE)
      .Run(
          "UPDATE GoodInf SET Tags = ',2,9,1,3,' WHERE Code = 1; UPDATE GoodInf SET Tags = '1' WHERE Code = "
          "2;"
          "UPDATE GoodInf SET Tags = '' WHERE Code = 3");
  const RowStore rows = AskRows(*connection_, "exec GoodInf_sp @ToCode=3");
  ASSERT_EQ(rows.Count(), 3U);
  const auto color = [&](std::size_t row, const char* column) {
    const auto cell = rows.Cell(row, *rows.FindColumn(column));
    return cell.IsNull() ? "null" : cell.AsText();
  };
  EXPECT_EQ(color(0, "t1"), "$000000FF");
  EXPECT_EQ(color(0, "t2"), "null") << "a tag that no longer is";
  EXPECT_EQ(color(0, "t3"), "$00FF0000");
  EXPECT_EQ(color(1, "t1"), "$00FF0000");
  EXPECT_EQ(color(1, "t2"), "null");
  EXPECT_EQ(color(2, "t1"), "null");
}

TEST_F(TurnoverTest, WholeUnitsGoTowardsZeroAndThePartIsWhatTheyLeaveExactly) {
  Open(86);
  Database(file_->Path(), SQLITE_OPEN_READWRITE)
      .Run(
          "UPDATE GoodInf SET Unit2 = 3, Meghdar_Formool = 3000000000 WHERE Code IN (1, 2);"
          "UPDATE GoodInf SET Unit2 = 0, Meghdar_Formool = NULL WHERE Code = 3;"
          "UPDATE GoodStock SET Mogodi = 2999999999 WHERE Kala = 1;"
          "UPDATE GoodStock SET Mogodi = -7500000000 WHERE Kala IN (2, 3)");
  const RowStore rows = AskRows(*connection_, "exec GoodInf_sp @ToCode=3");
  const auto cell = [&](std::size_t row, const char* column) {
    return rows.Cell(row, *rows.FindColumn(column)).AsText();
  };
  EXPECT_EQ(cell(0, "Mogodi2"), "0");
  EXPECT_EQ(cell(0, "Joz"), "2.999999999");
  EXPECT_EQ(cell(1, "Mogodi2"), "-2");
  EXPECT_EQ(cell(1, "Joz"), "-1.5");
  EXPECT_EQ(cell(2, "Mogodi2"), "0");
  EXPECT_EQ(cell(2, "Joz"), "-7.5");
}

}  // namespace
}  // namespace goods
