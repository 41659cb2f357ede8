// srKardex and srKardex_Negative against a filter of their own, over random companies.
#include <map>
#include <random>

#include "company/embedded/conditional_lines.h"
#include "company/embedded/procedures.h"
#include "company/embedded/sqlite.h"
#include "company/embedded/statement_parser.h"
#include "company_fixture.h"
#include "search_company.h"

namespace goods {
namespace {

constexpr int kSearchedMovements = 250;

using Rows = std::vector<std::vector<std::string>>;

class SearchTest : public ::testing::Test {
 protected:
  void Open(unsigned seed) {
    file_.emplace("search-" + std::to_string(seed) + ".company");
    WriteSearchCompany(file_->Path(), seed, kSearchedMovements);
    connection_ = OpenCompany(file_->Path())->OpenConnection();
    rows_ = RowsOfTables(*connection_);
    ASSERT_EQ(rows_.size(), static_cast<std::size_t>(kSearchedMovements));
  }
  Rows Expected(const std::vector<SearchCriterion>& criteria) const { return Meeting(rows_, criteria); }
  static Rows Meeting(const std::vector<FoundRow>& rows, const std::vector<SearchCriterion>& criteria) {
    Rows expected;
    for (const FoundRow& row : rows) {
      bool holds = true;
      for (const SearchCriterion& criterion : criteria) holds = holds && criterion.holds(row);
      if (holds) expected.push_back(row.Cells());
    }
    return expected;
  }
  static std::string Joined(const std::vector<SearchCriterion>& criteria) {
    std::string joined;
    for (const SearchCriterion& criterion : criteria) {
      joined += (joined.empty() ? "" : ",") + criterion.parameters;
    }
    return joined;
  }
  // The rows after which a store holds less than nothing, within the dates; an empty end is open.
  std::vector<FoundRow> Negative(const std::string& from, const std::string& to) const {
    std::map<std::pair<std::int64_t, std::int64_t>, Decimal> held;
    std::vector<FoundRow> negative;
    for (const FoundRow& row : rows_) {
      Decimal& inStore = held[{row.good, row.store}];
      inStore += row.tedad;
      if (row.tedad < Decimal() && inStore < Decimal() && row.date >= from &&
          (to.empty() || row.date <= to)) {
        negative.push_back(row);
      }
    }
    return negative;
  }

  std::optional<TestFile> file_;
  std::unique_ptr<IConnection> connection_;
  std::vector<FoundRow> rows_;
};

TEST_F(SearchTest, WithoutCriteriaEveryRowComesByGoodDateAndNumber) {
  for (unsigned seed = 1; seed <= 3; ++seed) {
    Open(seed);
    EXPECT_EQ(Ask(*connection_, "Exec srKardex"), Expected({}));
  }
}

TEST_F(SearchTest, EachCriterionAloneAndExcludedLeavesTheRowsThatMeetIt) {
  Open(11);
  std::mt19937 random(5);
  for (int kind = 0; kind < kCriteria; ++kind) {
    std::size_t found = 0;
    for (int i = 0; i < 24; ++i) {
      const SearchCriterion criterion = RandomCriterion(kind, random, i % 2 == 1);
      const Rows expected = Expected({criterion});
      found += expected.size();
      ASSERT_EQ(Ask(*connection_, "Exec srKardex " + criterion.parameters), expected) << criterion.parameters;
    }
    EXPECT_GT(found, 0U) << "criteria of kind " << kind << " meet nothing";
    EXPECT_LT(found, 24U * kSearchedMovements) << "criteria of kind " << kind << " meet everything";
  }
}

TEST_F(SearchTest, CriteriaTogetherLeaveTheRowsThatMeetThemAll) {
  std::size_t found = 0;
  for (unsigned seed = 21; seed <= 23; ++seed) {
    Open(seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 60; ++i) {
      std::vector<SearchCriterion> criteria;
      for (int kind = 0; kind < kCriteria; ++kind) {
        if (random() % 4 == 0) criteria.push_back(RandomCriterion(kind, random, random() % 2 == 0));
      }
      const std::string parameters = Joined(criteria);
      const Rows expected = Expected(criteria);
      found += expected.size();
      ASSERT_EQ(Ask(*connection_, "Exec srKardex " + parameters), expected) << parameters;
    }
  }
  EXPECT_GT(found, 500U);
}

TEST_F(SearchTest, YehAndKafInEitherSpellingAndJoinersMakeNoDifference) {
  Open(31);
  const Rows written = Ask(*connection_, "Exec srKardex @KalaName='کابل'");
  EXPECT_FALSE(written.empty());
  EXPECT_EQ(Ask(*connection_, "Exec srKardex @KalaName='كابل'"), written);
  EXPECT_EQ(Ask(*connection_, "Exec srKardex @Comment='می\u200cشود'"),
            Ask(*connection_, "Exec srKardex @Comment='ميشود'"));
  EXPECT_FALSE(Ask(*connection_, "Exec srKardex @PerName='میسازیم'").empty());
  const Rows shown = Ask(*connection_, "Exec srKardex @AnbarName='مرکزی دوم'");
  ASSERT_FALSE(shown.empty());
  EXPECT_EQ(shown[0][5], "انبار مركزي دوم") << "the stored text is shown as it is";
}

TEST_F(SearchTest, PercentAndUnderscoreStandForThemselves) {
  Open(32);
  for (const auto& row : Ask(*connection_, "Exec srKardex @KalaName='%'")) EXPECT_EQ(row[1], "5");
  EXPECT_TRUE(Ask(*connection_, "Exec srKardex @KalaName='_'").empty());
}

TEST_F(SearchTest, NoTextGetsOutOfItsQuotes) {
  Open(33);
  const Rows all = Ask(*connection_, "Exec srKardex");
  for (const char* text : {"x''; DELETE FROM Kardex; --", "'' OR ''1''=''1", "%'' OR 1=1 --", "'');--"}) {
    EXPECT_TRUE(Ask(*connection_, "Exec srKardex @KalaName='" + std::string(text) + "'").empty()) << text;
  }
  for (const char* statement :
       {"Exec srKardex; DROP TABLE Kardex", "Exec srKardex @FromCode=1 OR 1=1",
        "Exec srKardex @FromCode='1 OR 1=1'", "Exec srKardex @KalaName=Name", "Exec srKardex @Nobody=1",
        "Exec srKardex @KalaName='a' 'b'", "Exec srKardex @NotRangeCode='x'",
        "Exec srKardex_Negative '','','7',@Second='8'", "Exec srKardex @FromVarede=(SELECT 1)"}) {
    EXPECT_NE(Refusal(*connection_, statement), "") << statement;
  }
  EXPECT_EQ(Ask(*connection_, "Exec srKardex"), all);
}

TEST_F(SearchTest, AParameterThatIsGivenTwiceIsRefusedByItsName) {
  Open(34);
  EXPECT_NE(Refusal(*connection_, "Exec srKardex @FromCode=1,@NotRangeCode=1,@ToCode=3,@notrangecode=1")
                .find("پارامتر «@NotRangeCode» دو بار آمده است"),
            std::string::npos);
  EXPECT_NE(Refusal(*connection_, "Exec srKardex_Negative '','','7',@Second='8'")
                .find("پارامتر «@Second» دو بار آمده است"),
            std::string::npos);
}

TEST_F(SearchTest, NegativeRowsAreTheOutgoingOnesThatLeaveLessThanNothingInTheirStore) {
  std::size_t found = 0;
  for (unsigned seed = 41; seed <= 46; ++seed) {
    Open(seed);
    const Rows expected = Meeting(Negative("", ""), {});
    found += expected.size();
    EXPECT_LT(expected.size(), rows_.size());
    EXPECT_EQ(Ask(*connection_, "Exec srKardex_Negative"), expected);
  }
  EXPECT_GT(found, 100U);
}

TEST_F(SearchTest, TheTwoValuesOfTheNegativeProcedureAreDatesThatIncludeTheirEnds) {
  Open(51);
  const std::string from = "1402/01/15";
  const std::string to = "1402/03/14";
  const std::string run = "Exec srKardex_Negative";
  EXPECT_EQ(Ask(*connection_, run + " '','','" + to + "'"), Meeting(Negative("", to), {}));
  EXPECT_EQ(Ask(*connection_, run + " '' , '" + from + "' , '" + to + "'"), Meeting(Negative(from, to), {}));
  EXPECT_EQ(Ask(*connection_, run + " '' , '" + from + "' , ''"), Meeting(Negative(from, ""), {}));
  EXPECT_EQ(Ask(*connection_, run + " '','',''"), Meeting(Negative("", ""), {}));
  EXPECT_GT(Negative(from, to).size(), 10U);
  EXPECT_LT(Negative(from, to).size(), Negative("", "").size());
  const std::string end = Negative(from, to).back().date;
  EXPECT_EQ(Ask(*connection_, run + " '' , '" + end + "' , '" + end + "'"), Meeting(Negative(end, end), {}));
}

TEST_F(SearchTest, TheNegativeProcedureTakesEveryCriterionOfTheSearch) {
  Open(61);
  std::mt19937 random(8);
  const std::vector<FoundRow> negative = Negative("", "1402/03/15");
  std::size_t found = 0;
  for (int kind = 0; kind < kCriteria; ++kind) {
    for (int i = 0; i < 8; ++i) {
      std::vector<SearchCriterion> criteria{RandomCriterion(kind, random, i % 2 == 0)};
      if (i >= 4 && kind != 1) criteria.push_back(RandomCriterion(1, random, true));
      const Rows expected = Meeting(negative, criteria);
      found += expected.size();
      ASSERT_EQ(Ask(*connection_, "Exec srKardex_Negative '','','1402/03/15'," + Joined(criteria)), expected)
          << Joined(criteria);
    }
  }
  EXPECT_GT(found, 500U);
}

TEST_F(SearchTest, AMovementWithoutItsGoodOrStoreIsFoundAllTheSame) {
  Open(71);
  Database(file_->Path(), SQLITE_OPEN_READWRITE)
      .Run("PRAGMA foreign_keys=OFF; DELETE FROM Stores WHERE Code = 3; DELETE FROM Persons WHERE Code = 7");
  rows_ = RowsOfTables(*connection_);
  EXPECT_EQ(Ask(*connection_, "Exec srKardex"), Expected({}));
}

// What SQLite does for a procedure: its plan, and the work that it counts while running.
class SearchPlanTest : public SearchTest {
 protected:
  struct Work {
    std::vector<std::string> plan;
    int scanned = 0;  // steps of full scans, those of statements inside included
    int sorts = 0;
    int rows = 0;
  };
  Work Run(const std::string& text) {
    Database db(file_->Path(), SQLITE_OPEN_READONLY);
    const ParsedStatement parsed = ParseStatement(text);
    const ProcedureCall call = MatchProcedure(std::get<ExecStatement>(parsed), text);
    Work work;
    Statement plan = db.Prepare("EXPLAIN QUERY PLAN " + BodyOf(call));
    while (plan.Step()) work.plan.emplace_back(plan.Text(3));
    Statement statement = db.Prepare(BodyOf(call));
    BindParameters(statement, call);
    const auto count = [&](sqlite3_stmt* handle) {
      work.scanned += sqlite3_stmt_status(handle, SQLITE_STMTSTATUS_FULLSCAN_STEP, 1);
      work.sorts += sqlite3_stmt_status(handle, SQLITE_STMTSTATUS_SORT, 1);
    };
    bool more = true;
    while (more) {
      more = statement.Step();
      work.rows += more ? 1 : 0;
      for (sqlite3_stmt* each = sqlite3_next_stmt(db.Handle(), nullptr); each != nullptr;
           each = sqlite3_next_stmt(db.Handle(), each)) {
        if (each != plan.Handle()) count(each);
      }
    }
    return work;
  }
  // One scan of the movements, a look at each name, no sort.
  static void ExpectOneScan(const Work& work) {
    int scansOfMovements = 0;
    for (const std::string& line : work.plan) {
      EXPECT_EQ(line.find("TEMP B-TREE"), std::string::npos) << line;
      if (line.starts_with("SCAN k")) ++scansOfMovements;
    }
    EXPECT_EQ(scansOfMovements, 1);
    EXPECT_EQ(work.sorts, 0);
    constexpr int kNames = 5 + 3 + 3;
    EXPECT_LE(work.scanned, kSearchedMovements + kNames);
    EXPECT_GT(work.scanned, kSearchedMovements / 2) << "the counting has missed the scan";
  }
};

TEST_F(SearchPlanTest, EverySearchIsOneScanOfTheMovementsInTheirOwnOrder) {
  Open(81);
  ExpectOneScan(Run("Exec srKardex"));
  const Work byName = Run("Exec srKardex @KalaName='پیچ'");
  ExpectOneScan(byName);
  EXPECT_GT(byName.rows, 10);
  const Work byDate = Run("Exec srKardex @FromDate='1402/02/01',@ToDate='1402/02/15'");
  ExpectOneScan(byDate);
  EXPECT_GT(byDate.rows, 10);
  ExpectOneScan(Run("Exec srKardex @PerName='علی',@AnbarName='شمال',@NotAnbarName=1,@Comment='خرید'"));
}

TEST_F(SearchPlanTest, TheNegativeReportIsOneScanOfTheMovements) {
  Open(82);
  const Work work = Run("Exec srKardex_Negative '','','1402/03/15'");
  ExpectOneScan(work);
  EXPECT_GT(work.rows, 10);
}

}  // namespace
}  // namespace goods
