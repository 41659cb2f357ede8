// The SQL functions over details, lines that stand in some calls only, and the ways that the good-detail
// reports take through the tables.
#include <stdexcept>

#include "company/embedded/conditional_lines.h"
#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

class DetailFunctions : public ::testing::Test {
 protected:
  bool Between(const std::string& arguments) {
    return db_.AskInteger("SELECT detail_between(" + arguments + ")") == 1;
  }
  Database db_{":memory:", SQLITE_OPEN_READWRITE};
};

TEST_F(DetailFunctions, TheTextOfARowsValuesNamesThoseThatAreThere) {
  EXPECT_EQ(db_.AskText("SELECT detail_text('رنگ', 'آبی', 'سایز', '', 'وزن', '2.5')"), "رنگ: آبی - وزن: 2.5");
  EXPECT_EQ(db_.AskText("SELECT detail_text(NULL, 'آبی', 'سایز', NULL)"), "آبی");
  EXPECT_EQ(db_.AskText("SELECT detail_text('رنگ', '')"), "");
}

TEST_F(DetailFunctions, NumbersLieBetweenNumbersWhateverTheirDigits) {
  for (const char* type : {"3", "4"}) {
    const std::string start = std::string(type) + ", ";
    EXPECT_TRUE(Between(start + "'10', '9', '11'"));
    EXPECT_TRUE(Between(start + "' ۱۰.50 ', '10.5', '10.5'"));
    EXPECT_FALSE(Between(start + "'10', '11', '9'"));
    EXPECT_FALSE(Between(start + "'abc', '-1', '9'"));
    EXPECT_FALSE(Between(start + "'10', 'abc', '99'"));
    EXPECT_FALSE(Between(start + "'10', '', '99'"));
    EXPECT_TRUE(Between(start + "'10', NULL, '99'"));
    EXPECT_FALSE(Between(start + "NULL, NULL, NULL"));
  }
}

TEST_F(DetailFunctions, NumbersMayBeTypedWithThousandsSeparators) {
  EXPECT_EQ(db_.AskInteger("SELECT dec_try('1,000')"), 1'000'000'000'000);
  EXPECT_EQ(db_.AskInteger("SELECT dec_try(' -۱,۲۳۴.۵ ')"), -1'234'500'000'000);
  EXPECT_TRUE(Between("3, '1000', '1,000', '1,000'"));
  EXPECT_TRUE(Between("4, '1,500', '1,000.5', '2000'"));
  EXPECT_FALSE(Between("3, '999', '1,000', '2,000'"));
}

TEST_F(DetailFunctions, DatesLieBetweenDatesAndAnEmptyEndIsOpen) {
  EXPECT_TRUE(Between("5, '1402/2/9', '1402/02/09', '1402/02/09'"));
  EXPECT_TRUE(Between("5, '1402/10/01', '1402/9/30', ''"));
  EXPECT_TRUE(Between("5, '1402/10/01', '    /  /  ', '9999/99/99'"));
  EXPECT_TRUE(Between("5, '۱۴۰۲/۱۰/۰۱', '0000/00/00', NULL"));
  EXPECT_FALSE(Between("5, '1402/10/01', '1402/10/02', ''"));
  EXPECT_FALSE(Between("5, '', '', ''"));
  EXPECT_FALSE(Between("5, '1402/10', '', ''"));
  EXPECT_FALSE(Between("5, '1402/10/01', '12', ''"));
}

TEST_F(DetailFunctions, OtherValuesLieBetweenTextsAsTheAlphabetGoes) {
  for (const char* type : {"1", "2", "6"}) {
    const std::string start = std::string(type) + ", ";
    EXPECT_TRUE(Between(start + "'كوچك', 'کوچک ', 'کوچک '"));
    EXPECT_FALSE(Between(start + "'کوچک', 'کوچ', 'کوچ'"));
    EXPECT_TRUE(Between(start + "'پارچه', 'ب', 'ت'"));
    EXPECT_FALSE(Between(start + "'ژاکت', 'ب', 'ت'"));
    EXPECT_TRUE(Between(start + "'SN10', 'sn1', 'sn2'"));
    EXPECT_TRUE(Between(start + "'x', NULL, NULL"));
  }
}

TEST_F(DetailFunctions, ATriedNumberIsNullWhenThereIsNone) {
  EXPECT_EQ(db_.AskInteger("SELECT dec_try(' -۲.۵ ')"), -2'500'000'000);
  for (const char* text : {"''", "'abc'", "','", "'1.000,5'", "NULL"}) {
    EXPECT_EQ(db_.AskInteger("SELECT dec_try(" + std::string(text) + ") IS NULL"), 1) << text;
  }
}

class ConditionalLines : public ::testing::Test {
 protected:
  static std::string Body(const std::string& lines, std::vector<Literal> values) {
    const Procedure procedure = ReadProcedure(
        "p",
        "-- parameter @A integer default null\n-- parameter @B text default null\n-- column C integer\n" +
            lines);
    const std::string body = BodyOf({&procedure, std::move(values)});
    return body.substr(body.find("-- column C integer\n") + 20);
  }
  static Literal Whole(const char* text) { return NumberValue{text}; }
  static inline const Literal kNull = NullValue{};
};

TEST_F(ConditionalLines, StandWhenAParameterIsGivenOrHasItsValue) {
  constexpr char kLines[] = "SELECT 1 -- when @a\nSELECT 2 -- when @A = 2 or @B\nSELECT 3\n";
  EXPECT_EQ(Body(kLines, {kNull, kNull}), "SELECT 3\n");
  EXPECT_EQ(Body(kLines, {Whole("1"), kNull}), "SELECT 1 -- when @a\nSELECT 3\n");
  EXPECT_EQ(Body(kLines, {Whole("2"), kNull}), kLines);
  EXPECT_EQ(Body(kLines, {kNull, Literal("x")}), "SELECT 2 -- when @A = 2 or @B\nSELECT 3\n");
}

TEST_F(ConditionalLines, StandUnlessAParameterIsGiven) {
  constexpr char kLines[] = "1 -- unless @A or @B\n2 -- when @A unless @B\n";
  EXPECT_EQ(Body(kLines, {kNull, kNull}), "1 -- unless @A or @B\n");
  EXPECT_EQ(Body(kLines, {Whole("0"), kNull}), "2 -- when @A unless @B\n");
  EXPECT_EQ(Body(kLines, {Whole("0"), Literal("")}), "");
}

TEST_F(ConditionalLines, AConditionOnAnUnknownParameterIsBroken) {
  EXPECT_THROW(Body("1 -- when @C\n", {kNull, kNull}), std::logic_error);
  EXPECT_THROW(Body("1 -- when @A = x\n", {Whole("1"), kNull}), std::logic_error);
}

TEST_F(ConditionalLines, ConditionsMayHaveANameThatLinesShare) {
  constexpr char kLines[] =
      "-- condition either @A = 2 or @B\n1 -- when either\n2 -- unless either\n3 -- when @A or either\n";
  const auto lines = [&](std::vector<Literal> values) {
    const std::string body = Body(kLines, std::move(values));
    return body.substr(body.find('\n') + 1);
  };
  EXPECT_EQ(lines({kNull, kNull}), "2 -- unless either\n");
  EXPECT_EQ(lines({Whole("1"), kNull}), "2 -- unless either\n3 -- when @A or either\n");
  EXPECT_EQ(lines({Whole("2"), kNull}), "1 -- when either\n3 -- when @A or either\n");
  EXPECT_THROW(Body("1 -- when neither\n", {kNull, kNull}), std::logic_error);
  EXPECT_THROW(ReadProcedure("p", "-- condition either\nSELECT 1"), std::logic_error);
}

TEST(ProcedureParts, StandInPlaceOfTheLineThatIncludesThem) {
  const Procedure procedure =
      ReadProcedure("p", "-- parameter @TitleID integer\n-- include GoodDetailParameters\nSELECT 1\n");
  ASSERT_GT(procedure.parameters.size(), 2U);
  EXPECT_EQ(procedure.parameters[1].name, "@DetailID1");
  EXPECT_EQ(procedure.parameters.back().name, "@ToGoodCode");
  EXPECT_EQ(procedure.body.find("-- include"), std::string::npos);
  EXPECT_TRUE(procedure.body.ends_with("SELECT 1\n"));
  EXPECT_THROW(ReadProcedure("p", "-- include Nothing\nSELECT 1"), std::logic_error);
}

// How SQLite goes through the detail movements for a call, and whether it sorts.
class DetailPlan : public ::testing::Test {
 protected:
  std::string Of(const std::string& statement) {
    const ParsedStatement parsed = ParseStatement(statement);
    const ProcedureCall call = MatchProcedure(std::get<ExecStatement>(parsed), statement);
    Statement plan = db_.Prepare("EXPLAIN QUERY PLAN " + BodyOf(call));
    std::string way;
    while (plan.Step()) {
      const std::string line(plan.Text(3));
      if (line.starts_with("SEARCH d ") || line.starts_with("SCAN d")) way += line + ";";
      if (line.starts_with("USE TEMP B-TREE FOR ORDER") || line.starts_with("USE TEMP B-TREE FOR GROUP"))
        way += "sort;";
    }
    return way;
  }
  Database db_{SmallDemoPath(), SQLITE_OPEN_READONLY};
};

TEST_F(DetailPlan, AllMovementsAreReadInTheirOwnOrder) {
  EXPECT_EQ(Of("EXEC AllGoodDetailTransaction"), "SEARCH d USING PRIMARY KEY (Kala=?);");
  EXPECT_EQ(Of("EXEC AllGoodDetailTransaction @GoodCode = 4,@OperationType = 1"),
            "SEARCH d USING PRIMARY KEY (Kala=?);");
}

TEST_F(DetailPlan, DatesAreARangeOfEachGoodsMovements) {
  EXPECT_EQ(Of("EXEC AllGoodDetailTransaction @FromDate = '1402/01/01',@ToDate = '1402/01/31',@Anbar = 1"),
            "SEARCH d USING PRIMARY KEY (Kala=? AND Date>? AND Date<?);");
  EXPECT_EQ(Of("EXEC GoodDetailTransaction @FromDate = '1402/01/01',@ToDate = '1402/01/31'"),
            "SEARCH d USING PRIMARY KEY (Kala=? AND Date>? AND Date<?);sort;sort;");
}

TEST_F(DetailPlan, AValueLeadsToItsCombinationsAndTheyToTheirMovements) {
  EXPECT_EQ(Of("EXEC AllGoodDetailTransaction @DetailID3 = 6,@Detail3Value1 = 'a',@Detail3Value2 = 'a'"),
            "SEARCH d USING INDEX DetailKardex_ByValue (DetailValueID=?);");
  EXPECT_EQ(Of("EXEC OneGoodDetailTransaction @GoodCode = 4,@DetailValueID = 1"),
            "SEARCH d USING INDEX DetailKardex_ByValue (DetailValueID=?);sort;");
}

TEST_F(DetailPlan, StockOfCombinationsIsAddedUpOutOfTheirIndexAlone) {
  EXPECT_EQ(Of("EXEC GoodDetailTransaction @StoreSeparation = 1"),
            "SEARCH d USING COVERING INDEX DetailKardex_ByValue (DetailValueID=?);sort;");
}

}  // namespace
}  // namespace goods
