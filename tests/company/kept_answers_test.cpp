// What a connection reads once though it is asked several times, and when it reads again.
#include "company/embedded/kept_answers.h"

#include "company/embedded/card_figures.h"
#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

// Counts the questions of a statement: one that was answered without reading asks none.
class Questions : public IStatementProgress {
 public:
  bool Progress(std::size_t /*rows*/) override {
    ++count;
    return true;
  }
  int count = 0;
};

constexpr const char* kHeavy = "Select sum(Tedad) as s, sum(Gheymat) as g from Kardex";
constexpr std::int64_t kBusyGood = 12;

std::string FiguresStatement(const std::string& condition) {
  return "Select isNull(Sum((Tedad+ABS(Tedad))/2),0)as Varede,isNull(Sum((Tedad-ABS(Tedad))/2),0)as Sadere "
         "from Kardex where  " +
         condition;
}

class KeptAnswersTest : public ::testing::Test {
 protected:
  KeptAnswersTest() {
    std::filesystem::create_directories(std::filesystem::path(file_.Path()).parent_path());
    std::filesystem::copy_file(SmallDemoPath(), file_.Path());
    company_ = OpenCompany(file_.Path());
    connection_ = company_->OpenConnection();
  }
  // How often the statement asked whether to go on.
  int QuestionsOf(const std::string& statement) {
    Questions questions;
    RowStore rows;
    connection_->Open(statement, rows, &questions);
    return questions.count;
  }
  void WriteElsewhere(const std::string& sql) { Database(file_.Path(), SQLITE_OPEN_READWRITE).Run(sql); }
  std::vector<std::vector<std::string>> AskAnew(const std::string& statement) {
    const std::unique_ptr<IConnection> connection = company_->OpenConnection();
    return Ask(*connection, statement);
  }

  TestFile file_{"kept.company"};
  std::unique_ptr<ICompany> company_;
  std::unique_ptr<IConnection> connection_;
};

TEST_F(KeptAnswersTest, TheSameQuestionIsAnsweredAlikeWithoutReadingAgain) {
  EXPECT_GT(QuestionsOf(kHeavy), 0);
  const auto first = AskAnew(kHeavy);
  EXPECT_EQ(QuestionsOf(kHeavy), 0);
  EXPECT_EQ(Ask(*connection_, kHeavy), first);
  EXPECT_GT(QuestionsOf(std::string(kHeavy) + " where Kala > 0"), 0);  // another one
}

TEST_F(KeptAnswersTest, WhatAnotherProgramWroteIsSeenByTheNextQuestion) {
  const auto before = Ask(*connection_, kHeavy);
  WriteElsewhere("UPDATE Kardex SET Tedad = Tedad * 2 WHERE Kala = 12");
  EXPECT_GT(QuestionsOf(kHeavy), 0);
  const auto after = Ask(*connection_, kHeavy);
  EXPECT_NE(after, before);
  EXPECT_EQ(after, AskAnew(kHeavy));
}

TEST_F(KeptAnswersTest, WhatTheConnectionItselfRefreshedIsSeenByTheNextQuestion) {
  const std::string asked = "Select sum(Mogodi) as m from GoodInf_VW";
  WriteElsewhere("UPDATE GoodStock SET Mogodi = 1");
  const auto spoilt = Ask(*connection_, asked);
  connection_->Execute("Exec UpdateMogodiKala 0");
  const auto refreshed = Ask(*connection_, asked);
  EXPECT_NE(refreshed, spoilt);
  EXPECT_EQ(refreshed, AskAnew(asked));
}

TEST_F(KeptAnswersTest, ManyRowsAreReadEachTime) {
  const std::string many = "Select Code, Name from GoodInf union all Select Radif, Date from Kardex";
  EXPECT_GT(AskRows(*connection_, many).Count(), KeptAnswers::kMostRows);
  EXPECT_GT(QuestionsOf(many), 0);
}

TEST_F(KeptAnswersTest, AFileThatWasMovedAwayAnswersNothing) {
  Ask(*connection_, kHeavy);
  std::filesystem::rename(file_.Path(), file_.Path() + ".moved");
  EXPECT_NE(Refusal(*connection_, kHeavy), "");
  std::filesystem::rename(file_.Path() + ".moved", file_.Path());
}

TEST(KeptAnswerList, HoldsSoManyAnswersAndNoLargeOnes) {
  const auto answer = [](std::size_t rows) {
    RowStore store;
    store.Define({{"Code", ColumnType::Integer}});
    for (std::size_t row = 0; row < rows; ++row) {
      store.ColumnAt(0).AppendInteger(static_cast<std::int64_t>(row));
      store.EndRow();
    }
    store.Finish();
    return store;
  };
  KeptAnswers kept;
  kept.Keep("large", answer(KeptAnswers::kMostRows + 1));
  EXPECT_EQ(kept.Find("large"), nullptr);
  for (std::size_t i = 0; i < KeptAnswers::kMostAnswers; ++i) kept.Keep("q" + std::to_string(i), answer(i));
  ASSERT_NE(kept.Find("q7"), nullptr);
  EXPECT_EQ(kept.Find("q7")->Count(), 7U);
  kept.Keep("one more", answer(1));
  EXPECT_EQ(kept.Find("q7"), nullptr);
  ASSERT_NE(kept.Find("one more"), nullptr);
  kept.Forget();
  EXPECT_EQ(kept.Find("one more"), nullptr);
}

TEST_F(KeptAnswersTest, FiguresBeforeADateComeFromTheCardThatWasRead) {
  const RowStore card = AskRows(*connection_, "Exec Kardex_Proc 12");
  ASSERT_GE(card.Count(), CardFigures::kFewestRows);
  std::vector<std::string> dates = {"", "1300/01/01", "9999"};
  for (std::size_t row = 0; row < card.Count(); row += 251)
    dates.emplace_back(card.Cell(row, *card.FindColumn("Date")).AsText());
  const std::unique_ptr<IConnection> withoutCard = company_->OpenConnection();
  for (const std::string& date : dates) {
    for (const char* store : {"", " And Anbar=1", " And Anbar=3", " And Anbar=99"}) {
      const std::string asked = FiguresStatement("Kala=12 And Date<'" + date + "'" + store);
      EXPECT_EQ(QuestionsOf(asked), 0) << asked;
      ASSERT_EQ(Ask(*connection_, asked), Ask(*withoutCard, asked)) << asked;
    }
  }
}

TEST_F(KeptAnswersTest, FiguresOfAPersonAnotherGoodOrAnotherShapeAreRead) {
  AskRows(*connection_, "Exec Kardex_Proc 12");
  for (const std::string& asked :
       {FiguresStatement("Kala=12 And Date<'1400/01/01' And Percode=3"),
        FiguresStatement("Kala=5 And Date<'1400/01/01'"), FiguresStatement("Kala=12 And Date<='1400/01/01'"),
        FiguresStatement("Kala=12 Or Date<'1400/01/01'"),
        FiguresStatement("Kala=12 And Date<'1400/01/01' And Kala=5"), FiguresStatement("Kala=12"),
        FiguresStatement("Date<'1400/01/01'"),
        std::string(
            "Select Sum(Tedad) as s, Sum(Tedad) as t from Kardex where Kala=12 And Date<'1400/01/01'")}) {
    const ParsedStatement parsed = ParseStatement(asked);
    const auto question = AskedFigures(std::get<QueryStatement>(parsed));
    EXPECT_FALSE(question && question->good == kBusyGood) << asked;
    ASSERT_EQ(Ask(*connection_, asked), AskAnew(asked)) << asked;
  }
}

TEST_F(KeptAnswersTest, FiguresOfACardThatHasChangedAreRead) {
  AskRows(*connection_, "Exec Kardex_Proc 12");
  const std::string asked = FiguresStatement("Kala=12 And Date<'9999'");
  const auto before = Ask(*connection_, asked);
  WriteElsewhere("DELETE FROM Kardex WHERE Kala = 12 AND Radif % 3 = 0");
  const auto after = Ask(*connection_, asked);
  EXPECT_NE(after, before);
  EXPECT_EQ(after, AskAnew(asked));
}

}  // namespace
}  // namespace goods
