// The demo company.
#include "company/demo/demo_company.h"
#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

DemoOptions Small(std::uint64_t seed) {
  DemoOptions options;
  options.goods = 40;
  options.stores = 3;
  options.movements = 1500;
  options.seed = seed;
  return options;
}

TEST(DemoCompany, TheSameSeedGivesTheSameBytes) {
  const TestFile first("first.company");
  const TestFile second("second.company");
  MakeDemoCompany(first.Path(), Small(5));
  MakeDemoCompany(second.Path(), Small(5));
  EXPECT_TRUE(ReadFile(first.Path()) == ReadFile(second.Path()));
}

TEST(DemoCompany, AnotherSeedGivesAnotherCompany) {
  const TestFile first("first.company");
  const TestFile second("second.company");
  MakeDemoCompany(first.Path(), Small(5));
  MakeDemoCompany(second.Path(), Small(6));
  EXPECT_FALSE(ReadFile(first.Path()) == ReadFile(second.Path()));
}

TEST(DemoCompany, AnExistingFileIsKeptUnlessItIsToBeReplaced) {
  const TestFile file("kept.company");
  WriteFile(file.Path(), "precious");
  EXPECT_THROW(MakeDemoCompany(file.Path(), Small(1)), CompanyError);
  EXPECT_EQ(ReadFile(file.Path()), "precious");
  DemoOptions options = Small(1);
  options.replace = true;
  MakeDemoCompany(file.Path(), options);
  EXPECT_EQ(OpenCompany(file.Path())->Title(), "شرکت نمونه");
}

TEST(DemoCompany, OptionsOutOfRangeAndPathsThatCannotBeWrittenAreRefused) {
  const TestFile file("refused.company");
  for (const auto& spoil :
       {+[](DemoOptions& o) { o.goods = 0; }, +[](DemoOptions& o) { o.stores = 0; },
        +[](DemoOptions& o) { o.movements = -1; }, +[](DemoOptions& o) { o.movements = 100'000'001; }}) {
    DemoOptions options = Small(1);
    spoil(options);
    EXPECT_THROW(MakeDemoCompany(file.Path(), options), CompanyError);
    EXPECT_FALSE(std::filesystem::exists(file.Path()));
  }
  EXPECT_THROW(MakeDemoCompany(file.Path() + "/no/such/folder", Small(1)), CompanyError);
}

TEST(DemoCompany, TheSmallestCompaniesCanBeMade) {
  for (const std::int64_t movements : {0, 1, 7}) {
    const TestFile file("tiny.company");
    DemoOptions options;
    options.goods = 1;
    options.stores = 1;
    options.movements = movements;
    MakeDemoCompany(file.Path(), options);
    Database db(file.Path(), SQLITE_OPEN_READONLY);
    EXPECT_EQ(db.AskInteger("SELECT count(*) FROM Kardex"), movements);
  }
}

class DemoContents : public ::testing::Test {
 protected:
  std::int64_t Ask(const char* sql) { return db_.AskInteger(sql); }
  Database db_{SmallDemoPath(), SQLITE_OPEN_READONLY};
};

TEST_F(DemoContents, HoldsAsManyMovementsAsAskedOfEveryType) {
  EXPECT_EQ(Ask("SELECT count(*) FROM Kardex"), 4000);
  EXPECT_EQ(Ask("SELECT count(DISTINCT Type) FROM Kardex"), 26);
  EXPECT_EQ(Ask("SELECT count(*) FROM Kardex k JOIN MovementTypes m ON m.Type = k.Type WHERE sign(k.Tedad) "
                "<> m.Sign"),
            0);
  EXPECT_EQ(Ask("SELECT count(DISTINCT substr(Date, 1, 4)) FROM Kardex"), 5);
}

TEST_F(DemoContents, OnlyAFewGoodsGoNegative) {
  EXPECT_EQ(Ask("SELECT group_concat(DISTINCT Kala) FROM (SELECT Kala, sum(Tedad) OVER (PARTITION BY Kala, "
                "Anbar ORDER BY"
                " Date, Radif) AS Remain FROM Kardex) WHERE Remain < 0"),
            5);
}

TEST_F(DemoContents, TheLastGoodHasNoMovements) {
  EXPECT_EQ(Ask("SELECT group_concat(Code) FROM GoodInf WHERE Code NOT IN (SELECT Kala FROM Kardex)"), 60);
}

TEST_F(DemoContents, TransfersBalance) {
  EXPECT_EQ(Ask("SELECT sum(Tedad) FROM Kardex WHERE Type IN (6, 7)"), 0);
  EXPECT_EQ(Ask("SELECT sum(Tedad) FROM Kardex WHERE Type IN (24, 25)"), 0);
}

TEST_F(DemoContents, DetailsTellTheRowsQuantityExceptWhereAMismatchIsPlanted) {
  EXPECT_EQ(Ask("SELECT count(*) FROM PlantedMismatches"), 24);
  constexpr char kDiffering[] =
      "SELECT count(*) FROM (SELECT k.Radif, k.Tedad, ifnull((SELECT sum(d.Amount1) FROM DetailKardex d "
      "WHERE d.Kala ="
      " k.Kala AND d.Date = k.Date AND d.Radif = k.Radif), 0) AS Detailed FROM Kardex k WHERE k.Kala IN "
      "(SELECT "
      "Kala FROM"
      " GoodDetails)) t LEFT JOIN PlantedMismatches p ON p.Radif = t.Radif WHERE t.Detailed <> "
      "ifnull(p.DetailAmount, t.Tedad)"
      " OR (p.Radif IS NOT NULL AND (t.Detailed = t.Tedad OR p.OperationAmount <> t.Tedad))";
  EXPECT_EQ(Ask(kDiffering), 0);
  EXPECT_GT(Ask("SELECT count(DISTINCT DetailID) FROM GoodDetails"), 5);
  EXPECT_EQ(Ask("SELECT max(Position) FROM GoodDetails"), 5);
}

TEST_F(DemoContents, NoNumberIsADouble) {
  for (const char* table : {"Kardex", "DetailKardex", "GoodInf", "GoodStock", "GoodStoreStock", "RialiStock",
                            "CostLevelPrices"}) {
    Statement columns = db_.Prepare("SELECT name FROM pragma_table_info(?1)");
    columns.Bind(1, std::string_view(table));
    while (columns.Step()) {
      const std::string column(columns.Text(0));
      EXPECT_EQ(db_.AskInteger("SELECT count(*) FROM " + std::string(table) + " WHERE typeof(\"" + column +
                               "\") = 'real'"),
                0)
          << table << "." << column;
    }
  }
}

}  // namespace
}  // namespace goods
