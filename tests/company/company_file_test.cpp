// Files that are no good company: a clear message, and the file as it was.
#include "company/embedded/company_file.h"

#include <future>
#include <string>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "company/embedded/company_schema.h"
#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

namespace fs = std::filesystem;

class CompanyFileTest : public ::testing::Test {
 protected:
  CompanyFileTest() {
    const std::string& demo = SmallDemoPath();
    fs::copy_file(demo, file_.Path(), fs::copy_options::overwrite_existing);
  }
  ~CompanyFileTest() override {
    std::error_code error;
    fs::permissions(file_.Path(), fs::perms::owner_all, error);
  }

  // What opening says; the file must be as it was.
  std::string OpeningFails() {
    const std::string before = ReadFile(file_.Path());
    std::string message = "opened";
    try {
      OpenCompany(file_.Path());
    } catch (const CompanyError& error) {
      message = error.what();
    }
    EXPECT_TRUE(ReadFile(file_.Path()) == before) << "the file was changed";
    return message;
  }
  bool Says(const char* words) { return OpeningFails().find(words) != std::string::npos; }

  TestFile file_{"faulty.company"};
};

TEST_F(CompanyFileTest, AMissingFileIsNamed) {
  try {
    OpenCompany(file_.Path() + ".none");
    FAIL();
  } catch (const CompanyError& error) {
    EXPECT_NE(std::string(error.what()).find("پیدا نشد"), std::string::npos);
  }
  EXPECT_FALSE(fs::exists(file_.Path() + ".none"));
}

TEST_F(CompanyFileTest, AFolderIsNoCompany) {
  EXPECT_THROW(OpenCompany(fs::path(file_.Path()).parent_path().string()), CompanyError);
}

TEST_F(CompanyFileTest, AnotherKindOfFileIsNoCompany) {
  WriteFile(file_.Path(),
            "یک متن ساده که شرکت نیست، هر چند که از صد نویسه بلندتر است تا سرآغاز آن خوانده شود.");
  EXPECT_TRUE(Says("یک شرکت نیست"));
  WriteFile(file_.Path(), "");
  EXPECT_TRUE(Says("یک شرکت نیست"));
}

TEST_F(CompanyFileTest, AForeignDatabaseIsNoCompany) {
  fs::remove(file_.Path());
  Database(file_.Path(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE).Run("CREATE TABLE Kardex(x)");
  EXPECT_TRUE(Says("یک شرکت نیست"));
}

TEST_F(CompanyFileTest, AFileCutShortIsToldAtAnyLength) {
  const std::uintmax_t whole = fs::file_size(file_.Path());
  for (const std::uintmax_t length :
       {whole - 1, whole - 4096, whole / 2, std::uintmax_t{4096}, std::uintmax_t{100}}) {
    fs::resize_file(file_.Path(), length);
    EXPECT_TRUE(Says("ناقص")) << length;
  }
  fs::resize_file(file_.Path(), 99);
  EXPECT_TRUE(Says("یک شرکت نیست"));
}

TEST_F(CompanyFileTest, ADamagedFileIsTold) {
  std::string bytes = ReadFile(file_.Path());
  for (std::size_t i = 100; i < 4096; ++i) bytes[i] = static_cast<char>(i * 7);
  WriteFile(file_.Path(), bytes);
  EXPECT_TRUE(Says("آسیب دیده"));
}

TEST_F(CompanyFileTest, DamageFoundWhileReadingIsToldByTheStatement) {
  std::string bytes = ReadFile(file_.Path());
  for (std::size_t i = bytes.size() / 4; i < bytes.size() / 4 * 3; ++i) bytes[i] = '\xff';
  WriteFile(file_.Path(), bytes);
  try {
    const std::unique_ptr<IConnection> connection = OpenCompany(file_.Path())->OpenConnection();
    EXPECT_NE(Refusal(*connection, "Select * from Kardex").find("آسیب دیده"), std::string::npos);
  } catch (const CompanyError& error) {
    EXPECT_NE(std::string(error.what()).find("آسیب دیده"), std::string::npos);
  }
}

// So opening one need not compare it with a schema that it makes for that.
TEST_F(CompanyFileTest, AWrittenSchemaIsKnownByItsText) {
  Database fresh(file_.Path(), SQLITE_OPEN_READONLY);
  EXPECT_TRUE(IsSchemaAsWritten(fresh));
  for (const char* change :
       {"CREATE INDEX Kardex_ByPerson ON Kardex(Percode)", "DROP INDEX Kardex_ByDocument",
        "CREATE INDEX Kardex_ByDocument ON Kardex(Type, OperationCode, OperationRow)",
        "CREATE VIEW Shown AS SELECT 1", "ALTER TABLE Units ADD COLUMN Note TEXT"}) {
    Database db(file_.Path(), SQLITE_OPEN_READWRITE);
    db.Run(change);
    EXPECT_FALSE(IsSchemaAsWritten(db)) << change;
  }
}

TEST_F(CompanyFileTest, ANewerCompanyIsRefused) {
  Database(file_.Path(), SQLITE_OPEN_READWRITE)
      .Run("PRAGMA user_version = " + std::to_string(kCompanySchemaVersion + 1));
  EXPECT_TRUE(Says("تازه تری"));
}

TEST_F(CompanyFileTest, AnOlderCompanyIsBroughtUpToDate) {
  constexpr char kInStores[] =
      "select Kala, Anbar, Mogodi, varede, sadere, OperationDate from GoodStoreStock";
  const auto inStores = Ask(*OpenCompany(file_.Path())->OpenConnection(), kInStores);
  Database(file_.Path(), SQLITE_OPEN_READWRITE).Run(kMakeOlder);
  const std::unique_ptr<ICompany> company = OpenCompany(file_.Path());
  const std::unique_ptr<IConnection> connection = company->OpenConnection();
  EXPECT_EQ(Ask(*connection, kInStores), inStores);
  EXPECT_GT(inStores.size(), 50U);
  EXPECT_EQ(Ask(*connection, "select ConsumerPrice from GoodInf where Code = 12")[0][0], "0");
  EXPECT_FALSE(AskRows(*connection, "Exec Kardex_Proc 12").Count() == 0);
  Database db(file_.Path(), SQLITE_OPEN_READONLY);
  EXPECT_EQ(db.AskInteger("PRAGMA user_version"), kCompanySchemaVersion);
  EXPECT_EQ(db.AskInteger("SELECT count(*) FROM sqlite_master WHERE name = 'Kardex_ByDocument'"), 1);
}

// The one that comes second finds it up to date, or is told that it is in use.
TEST_F(CompanyFileTest, AnOlderCompanyThatTwoOpenAtOnceIsBroughtUpToDateOnce) {
  for (int round = 0; round < 5; ++round) {
    Database(file_.Path(), SQLITE_OPEN_READWRITE).Run(kMakeOlder);
    const auto open = [this] {
      try {
        OpenCompany(file_.Path());
        return std::string();
      } catch (const CompanyError& error) {
        return std::string(error.what());
      }
    };
    std::future<std::string> other = std::async(std::launch::async, open);
    for (const std::string& refusal : {open(), other.get()})
      EXPECT_TRUE(refusal.empty() || refusal.find("قفل شده است") != std::string::npos) << refusal;
    EXPECT_EQ(Database(file_.Path(), SQLITE_OPEN_READONLY).AskInteger("PRAGMA user_version"),
              kCompanySchemaVersion);
  }
}

TEST_F(CompanyFileTest, AnUpgradeThatFailsLeavesTheOlderCompany) {
  Database(file_.Path(), SQLITE_OPEN_READWRITE)
      .Run(std::string(kMakeOlder) + "; CREATE INDEX DetailKardex_ByDocument ON DetailKardex(Type)");
  EXPECT_TRUE(Says("پایگاه داده"));
  EXPECT_EQ(Database(file_.Path(), SQLITE_OPEN_READONLY).AskInteger("PRAGMA user_version"), 1);
}

TEST_F(CompanyFileTest, AnOlderCompanyThatIsReadOnlyIsRefused) {
  Database(file_.Path(), SQLITE_OPEN_READWRITE).Run(kMakeOlder);
  fs::permissions(file_.Path(), fs::perms::owner_read);
  EXPECT_TRUE(Says("فقط خواندنی"));
}

TEST_F(CompanyFileTest, AReadOnlyCompanyIsReadButNotRefreshed) {
  fs::permissions(file_.Path(), fs::perms::owner_read);
  const std::string before = ReadFile(file_.Path());
  const std::unique_ptr<IConnection> connection = OpenCompany(file_.Path())->OpenConnection();
  EXPECT_GT(AskRows(*connection, "Exec Kardex_Proc 12").Count(), 0U);
  try {
    connection->Execute("Exec UpdateMogodiKala 0");
    FAIL();
  } catch (const DatabaseError& error) {
    EXPECT_NE(std::string(error.what()).find("فقط خواندنی"), std::string::npos);
  }
  EXPECT_TRUE(ReadFile(file_.Path()) == before);
}

// Another process that holds the file for writing until it is told to go.
class LockedByAnotherProcess {
 public:
  explicit LockedByAnotherProcess(const std::string& path) {
    int ready[2];
    EXPECT_EQ(pipe(ready), 0);
    EXPECT_EQ(pipe(leave_), 0);
    child_ = fork();
    if (child_ == 0) {
      Database db(path, SQLITE_OPEN_READWRITE);
      db.Run("BEGIN EXCLUSIVE");
      char byte = 'r';
      if (write(ready[1], &byte, 1) == 1 && read(leave_[0], &byte, 1) == 1) db.Run("ROLLBACK");
      _exit(0);
    }
    char byte = 0;
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    close(ready[0]);
    close(ready[1]);
  }
  LockedByAnotherProcess(const LockedByAnotherProcess&) = delete;
  LockedByAnotherProcess& operator=(const LockedByAnotherProcess&) = delete;
  ~LockedByAnotherProcess() {
    const char byte = 'x';
    EXPECT_EQ(write(leave_[1], &byte, 1), 1);
    waitpid(child_, nullptr, 0);
    close(leave_[0]);
    close(leave_[1]);
  }

 private:
  int leave_[2];
  pid_t child_ = 0;
};

TEST_F(CompanyFileTest, ALockedCompanyIsToldOnOpening) {
  const LockedByAnotherProcess lock(file_.Path());
  EXPECT_TRUE(Says("قفل شده"));
}

TEST_F(CompanyFileTest, ACompanyLockedLaterIsToldByTheStatementAndUsableAfterwards) {
  const std::unique_ptr<IConnection> connection = OpenCompany(file_.Path())->OpenConnection();
  {
    const LockedByAnotherProcess lock(file_.Path());
    EXPECT_NE(Refusal(*connection, "Exec Kardex_Proc 12").find("قفل شده"), std::string::npos);
    EXPECT_THROW(connection->Execute("Exec UpdateMogodiKala 0"), DatabaseError);
  }
  EXPECT_GT(AskRows(*connection, "Exec Kardex_Proc 12").Count(), 0U);
  connection->Execute("Exec UpdateMogodiKala 0");
}

}  // namespace
}  // namespace goods
