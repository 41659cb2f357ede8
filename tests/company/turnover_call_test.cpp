// Calls of GoodInf_sp: how they may be written, stopped, and what they cost.
#include "company/embedded/conditional_lines.h"
#include "company/embedded/sqlite.h"
#include "turnover_fixture.h"

namespace goods {
namespace {

using TurnoverCall = TurnoverTest;

TEST_F(TurnoverCall, NamesOfParametersMayBeWrittenInAnyCase) {
  Open(82);
  EXPECT_EQ(List("@GRPCODE = 2,@goodexisttype = 1,@TAGS=',1,2,',@abbname='b1'"),
            Expected({}, [](const TurnoverRow& row) {
              return row.group == 2 && row.stock > Decimal() && (row.HasTag(1) || row.HasTag(2)) &&
                     row.abbName.starts_with("B1");
            }));
}

TEST_F(TurnoverCall, NoTextGetsOutOfItsQuotes) {
  Open(84);
  const Rows all = List("");
  for (const char* text : {"x''; DELETE FROM Kardex; --", "'' OR ''1''=''1", "%'' OR 1=1 --"}) {
    EXPECT_TRUE(List("@Name='" + std::string(text) + "'").empty()) << text;
    EXPECT_TRUE(List("@tags='" + std::string(text) + "'").empty() ||
                std::string(text).find('1') != std::string::npos)
        << text;
  }
  EXPECT_EQ(List("@EffectiveDate1='',@EffectiveDate2='x'' OR ''1''=''1'").size(), all.size());
  for (const char* statement :
       {"exec GoodInf_sp; DROP TABLE Kardex", "exec GoodInf_sp @Code='1 OR 1=1'", "exec GoodInf_sp @Code=5.5",
        "exec GoodInf_sp @Mogodi='x'", "exec GoodInf_sp @Nobody=1"}) {
    EXPECT_NE(Refusal(*connection_, statement), "") << statement;
  }
  EXPECT_EQ(List(""), all);
}

TEST_F(TurnoverCall, AListThatIsStoppedWhileItAddsUpIsCancelled) {
  struct Stop : IStatementProgress {
    bool Progress(std::size_t) override { return false; }
  } stop;
  const std::unique_ptr<IConnection> connection = OpenCompany(SmallDemoPath())->OpenConnection();
  RowStore rows;
  EXPECT_THROW(connection->Open("exec GoodInf_sp @EffectiveDate1=''", rows, &stop), StatementCancelled);
  EXPECT_EQ(AskRows(*connection, "exec GoodInf_sp @EffectiveDate1=''").Count(), 60U);
}

TEST_F(TurnoverCall, TheListIsOneScanOfTheGoodsWithoutASort) {
  Open(88);
  Database db(file_->Path(), SQLITE_OPEN_READONLY);
  for (const std::string parameters :
       {"", "@StoreCode=2", "@EffectiveDate1='',@EffectiveDate2='1402/03/01'"}) {
    const std::string text = "exec GoodInf_sp " + parameters;
    const ParsedStatement parsed = ParseStatement(text);
    const ProcedureCall call = MatchProcedure(std::get<ExecStatement>(parsed), text);
    Statement plan = db.Prepare("EXPLAIN QUERY PLAN " + BodyOf(call));
    int scans = 0;
    while (plan.Step()) {
      const std::string_view line = plan.Text(3);
      EXPECT_EQ(line.find("TEMP B-TREE"), std::string_view::npos) << line;
      EXPECT_EQ(line.find("AUTOMATIC"), std::string_view::npos) << line;
      if (line.starts_with("SCAN") && line.find("VIRTUAL TABLE") == std::string_view::npos) ++scans;
    }
    EXPECT_EQ(scans, 1) << text;
  }
}

}  // namespace
}  // namespace goods
