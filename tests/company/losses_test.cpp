// What must not be lost when a company is written, replaced or taken away under those who use it.
#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "company/embedded/sqlite.h"
#include "company/writer/company_writer.h"
#include "company_fixture.h"

namespace goods {
namespace {

namespace fs = std::filesystem;

DemoOptions Demo(std::int64_t goods) {
  DemoOptions options;
  options.goods = goods;
  options.stores = 2;
  options.movements = 400;
  options.replace = true;
  return options;
}

std::size_t GoodsIn(const std::string& path) {
  return Ask(*OpenCompany(path)->OpenConnection(), "select Code from GoodInf").size();
}

std::string Refused(const std::function<void()>& body) {
  try {
    body();
  } catch (const CompanyError& error) {
    return error.what();
  }
  return "";
}

class LossesTest : public ::testing::Test {
 protected:
  LossesTest() { MakeDemoCompany(file_.Path(), Demo(20)); }

  // A program that is killed in the middle of a transaction, with pages already written into the file.
  void KillInTheMiddle(const char* prepare) {
    const pid_t child = fork();
    if (child == 0) {
      sqlite3* db = nullptr;
      sqlite3_open(file_.Path().c_str(), &db);
      sqlite3_exec(db, prepare, nullptr, nullptr, nullptr);
      raise(SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
  }
  static constexpr char kRollback[] =
      "PRAGMA cache_size = 1; BEGIN IMMEDIATE; UPDATE GoodInf SET Name = Name || hex(zeroblob(3000));"
      "UPDATE Kardex SET Comment = hex(zeroblob(200))";
  static constexpr char kLog[] =
      "PRAGMA journal_mode = WAL; BEGIN IMMEDIATE; DELETE FROM Kardex; DELETE FROM GoodInf WHERE Code > 3; "
      "COMMIT";

  TestFile file_{"losses.company"};
};

TEST_F(LossesTest, ASecondWriterIsRefusedAndTheFirstOneEnds) {
  CompanyWriter first(file_.Path(), true);
  EXPECT_NE(Refused([&] { CompanyWriter(file_.Path(), true); }).find("برنامه دیگری"), std::string::npos);
  first.Finish();
  EXPECT_EQ(GoodsIn(file_.Path()), 0U);
  EXPECT_EQ(NamesBeside(file_.Path()), 0U);
}

TEST_F(LossesTest, AJournalOfAKilledProgramIsNotPlayedIntoTheNewCompany) {
  KillInTheMiddle(kRollback);
  ASSERT_TRUE(fs::exists(file_.Path() + "-journal"));
  MakeDemoCompany(file_.Path(), Demo(30));
  EXPECT_EQ(NamesBeside(file_.Path()), 0U);
  EXPECT_EQ(GoodsIn(file_.Path()), 30U);
}

TEST_F(LossesTest, AWriteAheadLogOfAKilledProgramIsNotPlayedIntoTheNewCompany) {
  KillInTheMiddle(kLog);
  ASSERT_TRUE(fs::exists(file_.Path() + "-wal"));
  MakeDemoCompany(file_.Path(), Demo(30));
  EXPECT_EQ(NamesBeside(file_.Path()), 0U);
  EXPECT_EQ(GoodsIn(file_.Path()), 30U);
}

TEST_F(LossesTest, ALeftoverThatCannotBeUndoneIsToldAndNothingIsChanged) {
  const std::string journal = file_.Path() + "-journal";
  fs::create_directory(journal);
  WriteFile(journal + "/in the way", "x");
  const std::string bytes = ReadFile(file_.Path());
  EXPECT_NE(Refused([&] { MakeDemoCompany(file_.Path(), Demo(30)); }).find("نیمه تمام"), std::string::npos);
  EXPECT_TRUE(ReadFile(file_.Path()) == bytes);
  EXPECT_TRUE(fs::exists(journal + "/in the way"));
  fs::remove_all(journal);
}

TEST_F(LossesTest, AJournalWithNothingInItIsNoObstacle) {
  WriteFile(file_.Path() + "-journal", std::string(512, '\0'));
  MakeDemoCompany(file_.Path(), Demo(30));
  EXPECT_EQ(NamesBeside(file_.Path()), 0U);
  EXPECT_EQ(GoodsIn(file_.Path()), 30U);
}

TEST_F(LossesTest, ALeftoverWithoutItsCompanyIsToldUnlessReplacingIsAskedFor) {
  fs::remove(file_.Path());
  WriteFile(file_.Path() + "-journal", "old pages");
  DemoOptions options = Demo(30);
  options.replace = false;
  EXPECT_NE(Refused([&] { MakeDemoCompany(file_.Path(), options); }).find("نیمه تمام"), std::string::npos);
  EXPECT_FALSE(fs::exists(file_.Path()));
  options.replace = true;
  MakeDemoCompany(file_.Path(), options);
  EXPECT_EQ(GoodsIn(file_.Path()), 30U);
}

TEST_F(LossesTest, ACompanyThatSomebodyIsWritingIsNotReplaced) {
  Database other(file_.Path(), SQLITE_OPEN_READWRITE);
  const Transaction writing(other);
  EXPECT_NE(Refused([&] { MakeDemoCompany(file_.Path(), Demo(30)); }).find("قفل"), std::string::npos);
  EXPECT_EQ(GoodsIn(file_.Path()), 20U);
}

TEST_F(LossesTest, ADamagedFileMayBeReplaced) {
  WriteFile(file_.Path(), std::string("SQLite format 3") + '\0' + std::string(5000, 'x'));
  MakeDemoCompany(file_.Path(), Demo(30));
  EXPECT_EQ(GoodsIn(file_.Path()), 30U);
}

TEST_F(LossesTest, AReadOnlyCompanyIsNotReplaced) {
  fs::permissions(file_.Path(), fs::perms::owner_read);
  EXPECT_NE(Refused([&] { MakeDemoCompany(file_.Path(), Demo(30)); }).find("فقط خواندنی"), std::string::npos);
  EXPECT_EQ(GoodsIn(file_.Path()), 20U);
}

TEST_F(LossesTest, ALinkedCompanyIsReplacedWhereItLies) {
  const TestFile link("losses.link");
  fs::create_symlink(file_.Path(), link.Path());
  MakeDemoCompany(link.Path(), Demo(30));
  EXPECT_TRUE(fs::is_symlink(link.Path()));
  EXPECT_EQ(GoodsIn(file_.Path()), 30U);
}

TEST_F(LossesTest, APipeIsNoCompany) {
  fs::remove(file_.Path());
  ASSERT_EQ(mkfifo(file_.Path().c_str(), 0600), 0);
  EXPECT_NE(Refused([&] { OpenCompany(file_.Path()); }), "");
  EXPECT_NE(Refused([&] { MakeDemoCompany(file_.Path(), Demo(30)); }), "");
}

// In a folder of its own, since the names are relative.
TEST_F(LossesTest, ANameThatLooksLikeAnAddressIsAFilesName) {
  const TestFile folder("losses.folder");
  fs::create_directory(folder.Path());
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path());
  for (const char* name :
       {"file:demo?mode=memory&cache=shared", "file:demo", "demo?immutable=1", "%41.goods"}) {
    MakeDemoCompany(name, Demo(30));
    EXPECT_TRUE(fs::exists(fs::path(folder.Path()) / name)) << name;
    EXPECT_EQ(GoodsIn(std::string("file:") + name), 30U) << name;
  }
  fs::current_path(before);
}

class TakenAwayTest : public LossesTest {
 protected:
  TakenAwayTest() : company_(OpenCompany(file_.Path())), connection_(company_->OpenConnection()) {
    EXPECT_GT(AskRows(*connection_, "Select * from GoodInf").Count(), 0U);
  }
  void EverythingSaysSo() {
    for (const char* statement : {"Select * from GoodInf", "Exec Kardex_Proc 3", "Exec UpdateMogodiKala 0"}) {
      EXPECT_NE(Refusal(*connection_, statement).find("دوباره باز کنید"), std::string::npos) << statement;
    }
    EXPECT_NE(Refused([&] { company_->FindEntity(EntityKind::Good, 3); }), "");
    EXPECT_NE(Refused([&] { company_->SignIn("admin", "admin"); }), "");
    EXPECT_NE(Refused([&] { company_->OpenConnection(); }), "");
  }

  std::unique_ptr<ICompany> company_;
  std::unique_ptr<IConnection> connection_;
};

TEST_F(TakenAwayTest, AReplacedCompanyIsNoticedAtTheNextStatement) {
  MakeDemoCompany(file_.Path(), Demo(30));
  EverythingSaysSo();
  EXPECT_EQ(GoodsIn(file_.Path()), 30U);
}

TEST_F(TakenAwayTest, ADeletedCompanyIsNoticedAtTheNextStatement) {
  fs::remove(file_.Path());
  EverythingSaysSo();
  EXPECT_FALSE(fs::exists(file_.Path()));
}

TEST_F(TakenAwayTest, ARenamedCompanyIsNoticedAtTheNextStatement) {
  const TestFile other("losses.renamed");
  fs::rename(file_.Path(), other.Path());
  EverythingSaysSo();
}

}  // namespace
}  // namespace goods
