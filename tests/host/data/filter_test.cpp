#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "decimal_of.h"
#include "fake_connection.h"
#include "host/data/query.h"

namespace goods {
namespace {

using test::Of;

class FilterLanguage : public ::testing::Test {
 protected:
  FilterLanguage() {
    connection.columns = {{"Id", ColumnType::Integer},  {"Anbar", ColumnType::Integer},
                          {"Mab", ColumnType::Decimal}, {"Date", ColumnType::Text},
                          {"Name", ColumnType::Text},   {"B0-1 [x]", ColumnType::Integer}};
    connection.rows = {{0, 3, Of("10.5"), "1401/01/01", "علي رضايي", 1},
                       {1, 3, Of("-2"), "1402/06/31", "کارخانه", 2},
                       {2, 4, Value(), "1402/07/01", "O'Neil 100%", 3},
                       {3, Value(), Of("0"), Value(), Value(), Value()},
                       {4, -7, Of("10.500000001"), "", "كارگاه abc", 5}};
    query.SetSQL("Exec Kardex_Proc 1");
    query.Open();
  }

  // The Ids of the rows that the filter shows, such as "0 2".
  std::string Shown(const std::string& filter) {
    query.SetFilter(filter);
    std::string ids;
    for (std::size_t i = 0; i < query.RecordCount(); ++i) {
      ids += (i == 0 ? "" : " ") + query.Cell(i, 0).AsText();
    }
    return ids;
  }

  std::string ErrorOf(const std::string& filter) {
    try {
      query.SetFilter(filter);
    } catch (const FilterError& error) {
      return error.what();
    }
    return "no error";
  }

  test::FakeConnection connection;
  TADOQuery query{nullptr, "Kardex_QRY", connection};
};

TEST_F(FilterLanguage, AnEmptyTextShowsEveryRow) {
  EXPECT_EQ(Shown("Id=1"), "1");
  EXPECT_EQ(Shown(""), "0 1 2 3 4");
  EXPECT_EQ(Shown("  \t\r\n "), "0 1 2 3 4");
}

TEST_F(FilterLanguage, EveryOperatorComparesIntegers) {
  EXPECT_EQ(Shown("Anbar = 3"), "0 1");
  EXPECT_EQ(Shown("Anbar <> 3"), "2 4");
  EXPECT_EQ(Shown("Anbar < 3"), "4");
  EXPECT_EQ(Shown("Anbar <= 3"), "0 1 4");
  EXPECT_EQ(Shown("Anbar > 3"), "2");
  EXPECT_EQ(Shown("Anbar >= 3"), "0 1 2");
}

TEST_F(FilterLanguage, EveryOperatorComparesDecimals) {
  EXPECT_EQ(Shown("Mab = 10.5"), "0");
  EXPECT_EQ(Shown("Mab <> 10.5"), "1 3 4");
  EXPECT_EQ(Shown("Mab < 10.5"), "1 3");
  EXPECT_EQ(Shown("Mab <= 10.5"), "0 1 3");
  EXPECT_EQ(Shown("Mab > 10.5"), "4");
  EXPECT_EQ(Shown("Mab >= 10.5"), "0 4");
  EXPECT_EQ(Shown("Mab=0"), "3");
}

TEST_F(FilterLanguage, EveryOperatorComparesTexts) {
  EXPECT_EQ(Shown("Date = '1401/01/01'"), "0");
  EXPECT_EQ(Shown("Date <> '1401/01/01'"), "1 2 4");
  EXPECT_EQ(Shown("Date < '1402/06/31'"), "0 4");
  EXPECT_EQ(Shown("Date <= '1402/06/31'"), "0 1 4");
  EXPECT_EQ(Shown("Date > '1401/01/01'"), "1 2");
  EXPECT_EQ(Shown("Date >= '1401/01/01'"), "0 1 2");
}

TEST_F(FilterLanguage, ANumberBetweenTwoIntegersComparesExactly) {
  EXPECT_EQ(Shown("Anbar > 3.5"), "2");
  EXPECT_EQ(Shown("Anbar >= 3.5"), "2");
  EXPECT_EQ(Shown("Anbar < 3.5"), "0 1 4");
  EXPECT_EQ(Shown("Anbar <= 3.5"), "0 1 4");
  EXPECT_EQ(Shown("Anbar = 3.5"), "");
  EXPECT_EQ(Shown("Anbar <> 3.5"), "0 1 2 4");
  EXPECT_EQ(Shown("Anbar > -7.5"), "0 1 2 4");
  EXPECT_EQ(Shown("Anbar < -6.5"), "4");
  EXPECT_EQ(Shown("Anbar <= -7.5"), "");
}

TEST_F(FilterLanguage, NumbersBeyondTheCellsAreStillCompared) {
  EXPECT_EQ(Shown("Anbar < 99999999999999999999"), "0 1 2 4");
  EXPECT_EQ(Shown("Anbar > 99999999999999999999"), "");
  EXPECT_EQ(Shown("Anbar > -99999999999999999999"), "0 1 2 4");
  EXPECT_EQ(Shown("Anbar <> 99999999999999999999"), "0 1 2 4");
  EXPECT_EQ(Shown("Anbar = 99999999999999999999"), "");
}

TEST_F(FilterLanguage, SignedNumbersAreOneValue) {
  EXPECT_EQ(Shown("Anbar=-7"), "4");
  EXPECT_EQ(Shown("Anbar=+3"), "0 1");
}

TEST_F(FilterLanguage, NullIsTestedInFourForms) {
  EXPECT_EQ(Shown("Name IS NULL"), "3");
  EXPECT_EQ(Shown("Name IS NOT NULL"), "0 1 2 4");
  EXPECT_EQ(Shown("Name = NULL"), "3");
  EXPECT_EQ(Shown("Name <> NULL"), "0 1 2 4");
  EXPECT_EQ(Shown("Mab is null"), "2");
  EXPECT_EQ(Shown("Anbar Is Not Null"), "0 1 2 4");
}

TEST_F(FilterLanguage, AComparisonWithANullCellIsFalseAndItsNegationTrue) {
  EXPECT_EQ(Shown("Mab < 0 OR Mab >= 0"), "0 1 3 4");
  EXPECT_EQ(Shown("NOT Mab = 10.5"), "1 2 3 4");
  EXPECT_EQ(Shown("Name NOT LIKE '%abc%'"), "0 1 2");
  EXPECT_EQ(Shown("NOT Name LIKE '%abc%'"), "0 1 2 3");
}

TEST_F(FilterLanguage, AnEmptyTextIsNotNull) {
  EXPECT_EQ(Shown("Date = ''"), "4");
  EXPECT_EQ(Shown("Date <> ''"), "0 1 2");
}

TEST_F(FilterLanguage, NotBindsCloserThanAnd) {
  EXPECT_EQ(Shown("NOT Id = 0 AND Anbar = 3"), "1");
  EXPECT_EQ(Shown("NOT (Id = 0 AND Anbar = 3)"), "1 2 3 4");
}

TEST_F(FilterLanguage, AndBindsCloserThanOr) {
  EXPECT_EQ(Shown("Id = 4 OR Id = 0 AND Anbar = 4"), "4");
  EXPECT_EQ(Shown("(Id = 4 OR Id = 2) AND Anbar = 4"), "2");
  EXPECT_EQ(Shown("Id = 0 AND Anbar = 3 OR Id = 2 AND Anbar = 4 OR Id = 3"), "0 2 3");
}

TEST_F(FilterLanguage, DoubleNegationChangesNothing) { EXPECT_EQ(Shown("NOT NOT Anbar = 3"), "0 1"); }

TEST_F(FilterLanguage, KeywordsAndFieldsStandInAnyLetterCase) {
  EXPECT_EQ(Shown("anbar = 3 and nOt ID = 0"), "1");
  EXPECT_EQ(Shown("ANBAR = 4 oR id = 0"), "0 2");
  EXPECT_EQ(Shown("NAME like '%ABC'"), "4");
}

TEST_F(FilterLanguage, BracketsHoldFieldsWithOddCharacters) {
  EXPECT_EQ(Shown("[Anbar] = 4"), "2");
  EXPECT_EQ(Shown("[B0-1 [x]]] >= 3"), "2 4");
}

TEST_F(FilterLanguage, BlanksAreNotNeededAroundOperators) {
  EXPECT_EQ(Shown("(Anbar=3)AND(Date>='1401/01/01'AND Date<='1402/06/31')"), "0 1");
}

TEST_F(FilterLanguage, NationalTextsMeanTheSame) {
  EXPECT_EQ(Shown("Name = N'کارخانه'"), "1");
  EXPECT_EQ(Shown("Name = n'کارخانه'"), "1");
}

TEST_F(FilterLanguage, AQuoteInATextIsDoubled) {
  EXPECT_EQ(Shown("Name = 'O''Neil 100%'"), "2");
  EXPECT_EQ(Shown("Name LIKE '%''%'"), "2");
  EXPECT_EQ(Shown("Name = ''''"), "");
}

TEST_F(FilterLanguage, PercentStandsForAnyCharactersAtEveryPlace) {
  EXPECT_EQ(Shown("Name LIKE 'کار%'"), "1 4");
  EXPECT_EQ(Shown("Name LIKE '%خانه'"), "1");
  EXPECT_EQ(Shown("Name LIKE '%رگ%'"), "4");
  EXPECT_EQ(Shown("Name LIKE 'O%e%l%'"), "2");
  EXPECT_EQ(Shown("Name LIKE 'O%l%e%'"), "");
  EXPECT_EQ(Shown("Name LIKE '%'"), "0 1 2 4");
  EXPECT_EQ(Shown("Name LIKE '%%'"), "0 1 2 4");
  EXPECT_EQ(Shown("Name LIKE 'کارخانه'"), "1");
  EXPECT_EQ(Shown("Name LIKE 'کارخانه%کارخانه'"), "");
  EXPECT_EQ(Shown("Date LIKE ''"), "4");
}

TEST_F(FilterLanguage, UnderscoreAndStarAreOrdinaryInLike) {
  EXPECT_EQ(Shown("Name LIKE '_ارخانه'"), "");
  EXPECT_EQ(Shown("Name LIKE 'کار*'"), "");
}

TEST_F(FilterLanguage, LikeReadsYehAndKafInEitherSpelling) {
  EXPECT_EQ(Shown("Name LIKE '%علی%'"), "0");
  EXPECT_EQ(Shown("Name LIKE '%رضایی'"), "0");
  EXPECT_EQ(Shown("Name LIKE 'كار%'"), "1 4");
  EXPECT_EQ(Shown("Name = 'علی رضایی'"), "");
}

TEST_F(FilterLanguage, LikeOnANumberFieldLooksAtItsShortestText) {
  EXPECT_EQ(Shown("Mab LIKE '10.5%'"), "0 4");
  EXPECT_EQ(Shown("Anbar LIKE '-%'"), "4");
  EXPECT_EQ(Shown("Mab NOT LIKE '10%'"), "1 3");
}

TEST_F(FilterLanguage, TheFieldDecidesHowToCompare) {
  EXPECT_EQ(Shown("Anbar = '3'"), "0 1");
  EXPECT_EQ(Shown("Mab > '9'"), "0 4");
  EXPECT_EQ(Shown("Date > 1402"), "1 2");
  EXPECT_NE(ErrorOf("Anbar = 'x'"), "no error");
  EXPECT_NE(ErrorOf("Anbar = ''"), "no error");
}

TEST_F(FilterLanguage, AnUnknownFieldIsNamedWithItsPlace) {
  const std::string error = ErrorOf("Anbar = 3 AND کد = 4");
  EXPECT_NE(error.find("کد"), std::string::npos) << error;
  EXPECT_NE(error.find("15"), std::string::npos) << error;
}

TEST_F(FilterLanguage, AnErrorCountsCharactersNotBytes) {
  const std::string error = ErrorOf("Name = 'کالا' foo");
  EXPECT_NE(error.find("نویسه 15"), std::string::npos) << error;
  EXPECT_NE(error.find("«foo»"), std::string::npos) << error;
}

TEST_F(FilterLanguage, GarbageIsRefusedAndChangesNothing) {
  const std::string before = Shown("Anbar = 3");
  for (const char* garbage : {"Anbar",
                              "Anbar =",
                              "= 3",
                              "Anbar = = 3",
                              "Anbar == 3",
                              "Anbar 3",
                              "(Anbar = 3",
                              "Anbar = 3)",
                              "()",
                              "AND",
                              "Anbar = 3 AND",
                              "OR Anbar = 3",
                              "Anbar = 3 Id = 1",
                              "NOT",
                              "Anbar NOT = 3",
                              "Anbar LIKE 3",
                              "Anbar LIKE",
                              "Anbar IS 3",
                              "Anbar IS NOT",
                              "Anbar < NULL",
                              "Anbar LIKE NULL",
                              "Name = 'abc",
                              "Name = N'abc",
                              "[Anbar = 3",
                              "[] = 3",
                              "Anbar = 3;",
                              "Anbar != 3",
                              "Anbar = 3a",
                              "Anbar = 3.",
                              "Anbar = --3",
                              "Anbar = Id",
                              "3 = Anbar",
                              "Anbar = 3 -- x",
                              "Name = \"abc\"",
                              "NULL = 3",
                              "LIKE = 3",
                              "Anbar = 999999999999999999999999999999999",
                              "Anbar = 3 XOR Id = 1",
                              "Anbar >< 3",
                              "Anbar => 3",
                              "{}",
                              "\x01\x02?",
                              "\xFF\xFE"}) {
    EXPECT_NE(ErrorOf(garbage), "no error") << garbage;
    EXPECT_EQ(query.Filter(), "Anbar = 3") << garbage;
    EXPECT_EQ(query.RecordCount(), 2U) << garbage;
  }
}

TEST_F(FilterLanguage, DeepNestingIsRefusedWithoutACrash) {
  const auto nested = [](std::size_t depth) {
    return std::string(depth, '(') + "Anbar=3" + std::string(depth, ')');
  };
  EXPECT_EQ(Shown(nested(100)), "0 1");
  EXPECT_NE(ErrorOf(nested(101)), "no error");
  EXPECT_NE(ErrorOf(nested(1000000)), "no error");
  std::string nots;
  for (int i = 0; i < 200000; ++i) nots += "NOT ";
  EXPECT_NE(ErrorOf(nots + "Anbar=3"), "no error");
}

TEST_F(FilterLanguage, ALongChainIsNoNesting) {
  std::string chain = "Id=-1";
  for (int i = 0; i < 20000; ++i) chain += " OR Id=" + std::to_string(i % 3);
  EXPECT_EQ(Shown(chain), "0 1 2");
}

TEST_F(FilterLanguage, ComputedColumnsCanBeFiltered) {
  query.AddComputed({"Twice", ColumnType::Decimal}, [](std::size_t row, const RowStore& rows) {
    const Value mab = rows.Cell(row, 2);
    return mab.IsNull() ? Value() : Value(mab.AsDecimal() * Decimal(2));
  });
  EXPECT_EQ(Shown("Twice = 21"), "0");
  EXPECT_EQ(Shown("twice < 0 OR Twice IS NULL"), "1 2");
}

TEST(LargeFilters, CrossChunkBordersInEveryColumnKind) {
  test::FakeConnection connection;
  connection.columns = {{"I", ColumnType::Integer}, {"D", ColumnType::Decimal}, {"T", ColumnType::Text}};
  for (int i = 0; i < 140000; ++i) {
    const Decimal wide = i == 100000 ? Of("99999999999999999999999.000000001") : Decimal(i % 10);
    connection.rows.push_back({i, wide, "t" + std::to_string(i)});
  }
  TADOQuery query(nullptr, "Q", connection);
  query.Open();
  query.SetFilter("I >= 65535 AND I <= 65537");
  EXPECT_EQ(query.RecordCount(), 3U);
  query.SetFilter("D > 9");
  ASSERT_EQ(query.RecordCount(), 1U);
  EXPECT_EQ(query.Cell(0, 0), Value(100000));
  query.SetFilter("D <= 9 AND NOT I < 99999 AND I <= 100001");
  EXPECT_EQ(query.RecordCount(), 2U);
  query.SetFilter("T = 't139999' OR T LIKE '%65536'");
  EXPECT_EQ(query.RecordCount(), 2U);
  query.SetFilter("NOT I < 0");
  EXPECT_EQ(query.RecordCount(), 140000U);
}

}  // namespace
}  // namespace goods
