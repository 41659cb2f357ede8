// The SELECTs that reports send, on a company.
#include <map>

#include "company_fixture.h"
#include "host/data/decimal.h"

namespace goods {
namespace {

class SelectTest : public ::testing::Test {
 protected:
  std::unique_ptr<IConnection> connection_ = OpenCompany(SmallDemoPath())->OpenConnection();
};

using Rows = std::vector<std::vector<std::string>>;

TEST_F(SelectTest, TellsWhetherAGoodHasMovements) {
  EXPECT_EQ(Ask(*connection_, "Select top 1 Code From Kardex Where Kala=12").size(), 1U);
  EXPECT_EQ(Ask(*connection_, "Select top 1 Code From Kardex Where Kala=60").size(), 0U);
}

TEST_F(SelectTest, TellsWhetherAnyGoodIsDefinedWithItsPartQuantity) {
  const RowStore rows = AskRows(
      *connection_, "Select top 1 *,(Mogodi-Mogodi2*IsNull(Meghdar_Formool,0))As Joz From GoodInf_VW");
  ASSERT_EQ(rows.Count(), 1U);
  const auto number = [&](const char* name) { return rows.Cell(0, *rows.FindColumn(name)).AsDecimal(); };
  EXPECT_EQ(rows.Columns().back().name, "Joz");
  EXPECT_EQ(rows.Columns().back().type, ColumnType::Decimal);
  EXPECT_EQ(number("Joz"), number("Mogodi") - number("Mogodi2") * number("Meghdar_Formool"));
  EXPECT_NE(number("Mogodi"), Decimal());
}

TEST_F(SelectTest, ListsTheItemsOfADetailInTheirOrder) {
  const RowStore rows =
      AskRows(*connection_, "SELECT * FROM DetailTypesItems dti WHERE dti.DetailID = 2 ORDER BY dti.Row");
  ASSERT_EQ(rows.Count(), 4U);
  EXPECT_EQ(rows.Cell(0, *rows.FindColumn("Value")).AsText(), "S");
  EXPECT_EQ(rows.Cell(3, *rows.FindColumn("Value")).AsText(), "XL");
}

TEST_F(SelectTest, TellsTheTypeOfADetail) {
  const RowStore rows = AskRows(*connection_, "SELECT * FROM DetailTypes dt WHERE dt.ID = 5");
  ASSERT_EQ(rows.Count(), 1U);
  EXPECT_EQ(rows.Cell(0, *rows.FindColumn("DetailType")).AsInteger(), 5);
  EXPECT_EQ(rows.Cell(0, *rows.FindColumn("DateType")).AsInteger(), 1);
}

TEST_F(SelectTest, ListsTheDetailTypesByNumber) {
  const RowStore rows = AskRows(*connection_, "SELECT * FROM DetailTypes ORDER BY ID");
  ASSERT_EQ(rows.Count(), 6U);
  EXPECT_EQ(rows.Cell(5, *rows.FindColumn("Title")).AsText(), "شماره سریال");
}

TEST_F(SelectTest, ListsThePriceLevelsOfGoods) {
  EXPECT_EQ(Ask(*connection_, "select * from costlevel where code not in (-1,-2) AND CostType = 1"),
            (Rows{{"1", "عمده", "1"}, {"2", "همکار", "1"}, {"3", "خرده فروشی", "1"}}));
}

TEST_F(SelectTest, ListsThePriceLevelsWithTheConsumerPrice) {
  EXPECT_EQ(
      Ask(*connection_,
          "select Code, 'قیمت ' + Name As Name from costlevel where code not in (-1,-2) AND CostType = 1 "
          "UNION ALL SELECT  -100 AS code , 'فی مصرف کننده ' As Name"),
      (Rows{{"1", "قیمت عمده"}, {"2", "قیمت همکار"}, {"3", "قیمت خرده فروشی"}, {"-100", "فی مصرف کننده "}}));
}

TEST_F(SelectTest, GivesTheUnitsOfAGood) {
  EXPECT_EQ(
      Ask(*connection_,
          " SELECT g.Unit AS Unit1Code, u.Name AS Unit1Name, g.Unit2 AS Unit2Code, u2.Name AS Unit2Name   "
          "FROM "
          "GoodInf g JOIN Units u ON g.Unit = u.Code JOIN Units u2 ON g.Unit2 = u2.Code WHERE g.Code = 12"),
      (Rows{{"4", "لیتر", "6", "کارتن"}}));
}

TEST_F(SelectTest, GivesAnEmptySecondUnitToAGoodWithoutOne) {
  EXPECT_EQ(
      Ask(*connection_,
          " SELECT g.Unit AS Unit1Code, u.Name AS Unit1Name, g.Unit2 AS Unit2Code, u2.Name AS Unit2Name   "
          "FROM "
          "GoodInf g JOIN Units u ON g.Unit = u.Code JOIN Units u2 ON g.Unit2 = u2.Code WHERE g.Code = 2"),
      (Rows{{"1", "عدد", "0", ""}}));
}

TEST_F(SelectTest, ListsTheStoresByCode) {
  const RowStore rows = AskRows(*connection_, "SELECT * FROM Stores ORDER BY Code");
  ASSERT_EQ(rows.Count(), 4U);
  EXPECT_EQ(rows.Cell(0, 0).AsInteger(), 1);
  EXPECT_EQ(rows.Cell(0, *rows.FindColumn("Name")).AsText(), "انبار مرکزی");
}

TEST_F(SelectTest, ListsTheGroupsWithTheRowOfAllGroups) {
  const Rows rows = Ask(*connection_, "Select * From GoodGrps");
  ASSERT_EQ(rows.size(), 9U);
  EXPECT_EQ(rows[0], (std::vector<std::string>{"0", "کلیه گروه ها"}));
}

TEST_F(SelectTest, JoinsTheNamesOfTags) {
  const std::string head =
      " SELECT TOP 1 TagName = STUFF(( SELECT ',' + NAME  FROM TagS ts WHERE ts.Code IN (";
  const std::string tail = ") FOR XML PATH('')),1,1,'') FROM TagS ts ";
  EXPECT_EQ(Ask(*connection_, head + "1,2" + tail), (Rows{{"پرفروش,فصلی"}}));
  EXPECT_EQ(Ask(*connection_, head + "6" + tail), (Rows{{"حراجی"}}));
  const RowStore none = AskRows(*connection_, head + "99" + tail);
  ASSERT_EQ(none.Count(), 1U);
  EXPECT_EQ(none.Columns()[0].name, "TagName");
  EXPECT_TRUE(none.Cell(0, 0).IsNull());
}

TEST_F(SelectTest, TellsHowASelectedListIsShown) {
  EXPECT_EQ(Ask(*connection_, "Select Code,DisplayType from SelectedLists where Type=0 and Code=2"),
            (Rows{{"2", "1"}}));
  EXPECT_EQ(Ask(*connection_, "Select Code,DisplayType from SelectedLists where Type=0 and Code=4"), Rows{});
}

TEST_F(SelectTest, ListsTheSelectedListsOfGoods) {
  const Rows rows =
      Ask(*connection_, "Select Code, Title, Enable, DisplayType FROM SelectedLists where Type = 0");
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0], (std::vector<std::string>{"1", "کالاهای ویترین", "0", "0"}));
}

TEST_F(SelectTest, ListsThePriceHistoryKinds) {
  EXPECT_EQ(Ask(*connection_,
                "select 1 AS Code, 'بيشترين قيمت خريد ' As Name\r\nUNION ALL select 2 AS Code, 'کمترين قيمت "
                "خريد' As "
                "Name\r\nUNION ALL select 3, 'آخرین قيمت خريد'\r\nUNION ALL select 11 , 'بيشترين قيمت فروش'"),
            (Rows{{"1", "بيشترين قيمت خريد "},
                  {"2", "کمترين قيمت خريد"},
                  {"3", "آخرین قيمت خريد"},
                  {"11", "بيشترين قيمت فروش"}}));
}

TEST_F(SelectTest, GivesATagWithItsColour) {
  EXPECT_EQ(Ask(*connection_,
                "select tags.code, TagS.color_code, TagS.Name, [H-img] from  TagS inner join colors on "
                "TagS.color_code = colors.code  where tags.code = 1"),
            (Rows{{"1", "1", "پرفروش", "#FF0000"}}));
}

TEST_F(SelectTest, GivesTheTagsOfSomeGoods) {
  const Rows rows = Ask(*connection_, "select code,tags from goodinf where code in(1,2,6)");
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0][0], "1");
  EXPECT_EQ(rows[0][1].front(), ',');
  EXPECT_EQ(rows[1][1], "");
}

// The figures before a date, added up by hand from the good's rows.
struct Before {
  Decimal incoming;
  Decimal outgoing;
  Decimal average;
};

Before ByHand(const RowStore& kardex, const std::string& date, std::int64_t person, std::int64_t store) {
  Before figures;
  std::pair<std::string, std::int64_t> last;
  for (std::size_t row = 0; row < kardex.Count(); ++row) {
    const auto cell = [&](const char* name) { return kardex.Cell(row, *kardex.FindColumn(name)); };
    if (cell("Date").AsText() >= date) continue;
    if (person != 0 && cell("Percode").AsInteger() != person) continue;
    if (store != 0 && cell("Anbar").AsInteger() != store) continue;
    const Decimal quantity = cell("Tedad").AsDecimal();
    (quantity.IsNegative() ? figures.outgoing : figures.incoming) += quantity;
    const std::pair<std::string, std::int64_t> place{cell("Date").AsText(), cell("Radif").AsInteger()};
    if (place > last) {
      last = place;
      figures.average = cell("Miangin").AsDecimal();
    }
  }
  return figures;
}

TEST_F(SelectTest, FiguresBeforeADateAgreeWithAddingUpTheRows) {
  const RowStore kardex = AskRows(*connection_, "Select * from Kardex where Kala=12");
  ASSERT_GT(kardex.Count(), 1000U);
  const std::string person = kardex.Cell(500, *kardex.FindColumn("Percode")).AsText();
  int compared = 0;
  for (const std::string date : {"1400/01/01", "1400/01/02", "1401/06/31", "1402/12/29", "1405/01/01"}) {
    for (const std::string store : {"", "2"}) {
      for (const std::string& who : {std::string(), person}) {
        std::string condition = " Kala=12 And Date<'" + date + "'";
        if (!who.empty()) condition += " And Percode=" + who;
        if (!store.empty()) condition = "(" + condition + ") And (Anbar=" + store + ")";
        const RowStore sums =
            AskRows(*connection_,
                    "Select isNull(Sum((Tedad+ABS(Tedad))/2),0)as "
                    "Varede,isNull(Sum((Tedad-ABS(Tedad))/2),0)as Sadere from Kardex where " +
                        condition);
        const RowStore last = AskRows(*connection_, "Select Top 1 Miangin from Kardex where " + condition +
                                                        " order by Date DESC,Radif DESC");
        const Before expected =
            ByHand(kardex, date, who.empty() ? 0 : std::stoll(who), store.empty() ? 0 : 2);
        ASSERT_EQ(sums.Count(), 1U);
        EXPECT_EQ(sums.Columns()[0].name, "Varede");
        EXPECT_EQ(sums.Cell(0, 0).AsDecimal(), expected.incoming) << condition;
        EXPECT_EQ(sums.Cell(0, 1).AsDecimal(), expected.outgoing) << condition;
        EXPECT_EQ(last.Count() == 0 ? Decimal() : last.Cell(0, 0).AsDecimal(), expected.average) << condition;
        ++compared;
      }
    }
  }
  EXPECT_EQ(compared, 20);
}

TEST_F(SelectTest, ABeforeDateQuestionWithoutRowsGivesZeros) {
  EXPECT_EQ(
      Ask(*connection_,
          "Select isNull(Sum((Tedad+ABS(Tedad))/2),0)as Varede,isNull(Sum((Tedad-ABS(Tedad))/2),0)as Sadere "
          "from Kardex where  Kala=60 And Date<'1401/01/01'"),
      (Rows{{"0", "0"}}));
}

TEST_F(SelectTest, LikeFindsEitherSpellingOfYehAndKaf) {
  const Rows persian =
      Ask(*connection_, "select Code from GoodInf where Name like '%کیلو%' or Name like N'%شیشه%'");
  const Rows arabic =
      Ask(*connection_, "select Code from GoodInf where Name like '%كيلو%' or Name like N'%شيشه%'");
  EXPECT_FALSE(persian.empty());
  EXPECT_EQ(persian, arabic);
}

TEST_F(SelectTest, DecimalsAreComparedAndOrderedExactly) {
  const RowStore rows = AskRows(
      *connection_,
      "select Jam_Kol from GoodInf_VW where Jam_Kol > 1500.5 and not Jam_Kol = 0 order by Jam_Kol desc");
  ASSERT_GT(rows.Count(), 10U);
  for (std::size_t row = 1; row < rows.Count(); ++row) {
    EXPECT_GE(rows.Cell(row - 1, 0).AsDecimal(), rows.Cell(row, 0).AsDecimal());
  }
  EXPECT_GT(rows.Cell(0, 0).AsDecimal(), Decimal(9'300'000'000)) << "no amount beyond 64 bits was compared";
}

}  // namespace
}  // namespace goods
