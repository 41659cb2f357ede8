// Search criteria that procedure files declare, and the functions over lists of codes.
#include "company/embedded/criteria.h"

#include "company/embedded/procedures.h"
#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

std::vector<std::string> ParametersOf(const std::string& declaration) {
  const Procedure procedure =
      ReadProcedure("P", "-- criterion " + declaration + "\nSELECT 1 WHERE {criteria}");
  std::vector<std::string> names;
  for (const ProcedureParameter& parameter : procedure.parameters) {
    const char* types[] = {"integer", "decimal", "text"};
    const int type = parameter.type == ColumnType::Integer   ? 0
                     : parameter.type == ColumnType::Decimal ? 1
                                                             : 2;
    names.push_back(parameter.name + " " + types[type]);
  }
  return names;
}

TEST(Criteria, EachKindDeclaresItsParameters) {
  using Names = std::vector<std::string>;
  EXPECT_EQ(ParametersOf("contains F on x"), (Names{"@F text", "@NotF integer"}));
  EXPECT_EQ(ParametersOf("name F of Stores on x"), (Names{"@F text", "@NotF integer"}));
  EXPECT_EQ(ParametersOf("equals F decimal on x"), (Names{"@F decimal", "@NotF integer"}));
  EXPECT_EQ(ParametersOf("codes F on x"), (Names{"@F text", "@NotF integer"}));
  EXPECT_EQ(ParametersOf("range F integer on x"),
            (Names{"@FromF integer", "@ToF integer", "@NotRangeF integer"}));
}

TEST(Criteria, ADeclarationThatSaysTooLittleIsRefused) {
  for (const char* declaration : {"contains F", "contains F on", "name F on x", "equals F on x",
                                  "like F on x", "range F whole on x", "equals F decimal x"}) {
    EXPECT_THROW(ParametersOf(declaration), std::logic_error) << declaration;
  }
  EXPECT_THROW(ReadProcedure("P", "-- criterion contains F on x\nSELECT 1"), std::logic_error)
      << "a body without a place for it";
}

// The rows 1, 2, null and 4 that meet a criterion on their value.
class CriterionOnRows : public ::testing::Test {
 protected:
  std::string Meeting(const std::string& declaration, const std::string& values) {
    const Procedure procedure = ReadProcedure(
        "P", "-- criterion " + declaration +
                 "\nSELECT x FROM (SELECT 1 AS x UNION ALL SELECT 2 UNION ALL SELECT NULL UNION ALL SELECT 4)"
                 " WHERE {criteria}");
    ProcedureCall call{&procedure, {}};
    for (const ProcedureParameter& parameter : procedure.parameters) call.values.push_back(parameter.value);
    std::size_t at = 0;
    for (const char value : values) {
      if (value != '-') call.values[at] = NumberValue{std::string(1, value)};
      ++at;
    }
    Statement statement = db_.Prepare(procedure.body);
    BindParameters(statement, call);
    std::string met;
    while (statement.Step()) {
      met += sqlite3_column_type(statement.Handle(), 0) == SQLITE_NULL ? "n" : std::string(statement.Text(0));
    }
    return met;
  }
  Database db_{":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
};

TEST_F(CriterionOnRows, ANullCellMeetsNoCriterionAndEveryExcludedOne) {
  EXPECT_EQ(Meeting("equals F integer on x", "2"), "2");
  EXPECT_EQ(Meeting("equals F integer on x", "21"), "1n4");
  EXPECT_EQ(Meeting("range F integer on x", "2-"), "24");
  EXPECT_EQ(Meeting("range F integer on x", "2-1"), "1n");
  EXPECT_EQ(Meeting("range F integer on x", "-2"), "12");
  EXPECT_EQ(Meeting("range F integer on x", "24"), "24");
  EXPECT_EQ(Meeting("range F integer on x", "241"), "1n");
}

TEST_F(CriterionOnRows, AParameterThatIsNullAsksNothingAndAFlagAloneNeither) {
  EXPECT_EQ(Meeting("equals F integer on x", "--"), "12n4");
  EXPECT_EQ(Meeting("equals F integer on x", "-1"), "12n4");
  EXPECT_EQ(Meeting("range F integer on x", "--1"), "12n4");
  EXPECT_EQ(Meeting("equals F integer on x", "20"), "2");
}

TEST(ListsOfCodes, GiveTheirCodesByPlaceAndShareThem) {
  Database db(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  const auto ask = [&](const std::string& call) { return db.AskText("SELECT ifnull(" + call + ", 'null')"); };
  EXPECT_EQ(ask("code_at(',5,12,', 1)"), "5");
  EXPECT_EQ(ask("code_at(',5,12,', 2)"), "12");
  EXPECT_EQ(ask("code_at(',5,12,', 3)"), "null");
  EXPECT_EQ(ask("code_at('', 1)"), "null");
  EXPECT_EQ(ask("code_at(NULL, 1)"), "null");
  EXPECT_EQ(ask("code_at(' 7 ,x,,8', 2)"), "8");
  EXPECT_EQ(ask("shares_code(',1,12,', ',2,12,')"), "1");
  EXPECT_EQ(ask("shares_code(',1,12,', '2')"), "0") << "a part of a code is another code";
  EXPECT_EQ(ask("shares_code('', ',,')"), "0");
  EXPECT_EQ(ask("shares_code(NULL, '1')"), "null");
}

}  // namespace
}  // namespace goods
