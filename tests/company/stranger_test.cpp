// A stranger's file is data: nothing that it defines runs, and what is no company is refused at little cost.
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "company/embedded/company_file.h"
#include "company/embedded/password.h"
#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

namespace fs = std::filesystem;

#if defined(GOODS_SANITIZED)
constexpr rlim_t kMostSeconds = 20;
constexpr long kMostMemory = 0;  // not looked at
#else
constexpr rlim_t kMostSeconds = 2;
constexpr long kMostMemory = 100 * 1024;  // KiB
#endif

// A line of /proc/self/status, in KiB.
long StatusOf(const std::string& name) {
  std::ifstream status("/proc/self/status");
  std::string word;
  long value = 0;
  while (status >> word) {
    if (word == name && status >> value) return value;
  }
  return 0;
}

// Runs body in a process of its own, which may take two seconds of the processor. Returns what body returned,
// and how the process ended when it did not.
std::string Confined(const std::function<std::string()>& body) {
  int ends[2];
  if (pipe(ends) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    const rlimit seconds{kMostSeconds, kMostSeconds};
    setrlimit(RLIMIT_CPU, &seconds);
    const long before = StatusOf("VmRSS:");
    std::string said = body();
    if (kMostMemory != 0 && StatusOf("VmHWM:") - before > kMostMemory) said = "took too much memory";
    const ssize_t written = write(ends[1], said.data(), said.size());
    _exit(written == static_cast<ssize_t>(said.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string said;
  char block[4096];
  for (ssize_t got = 0; (got = read(ends[0], block, sizeof block)) > 0;)
    said.append(block, static_cast<std::size_t>(got));
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFSIGNALED(status)) return "ended by signal " + std::to_string(WTERMSIG(status));
  return said;
}

constexpr char kEndless[] = "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n) SELECT";

class StrangerTest : public ::testing::Test {
 protected:
  StrangerTest() { fs::copy_file(SmallDemoPath(), file_.Path(), fs::copy_options::overwrite_existing); }

  // As another program would, with everything allowed.
  void Change(const std::string& sql) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(file_.Path().c_str(), &db), SQLITE_OK);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message), SQLITE_OK) << message;
    sqlite3_free(message);
    sqlite3_close(db);
  }
  // Takes a table away whole.
  static std::string Drop(const std::string& table) { return "DROP TABLE " + table + ";"; }

  // What opening says, or "opened".
  std::string Opening() {
    return Confined([this]() -> std::string {
      try {
        OpenCompany(file_.Path());
      } catch (const CompanyError& error) {
        return error.what();
      }
      return "opened";
    });
  }
  void IsRefused(const char* words) {
    const std::string before = ReadFile(file_.Path());
    const std::string said = Opening();
    EXPECT_NE(said.find(words), std::string::npos) << said;
    EXPECT_TRUE(ReadFile(file_.Path()) == before) << "the file was changed";
  }

  TestFile file_{"stranger.company"};
};

constexpr char kForeign[] = "چیزی جز";

TEST_F(StrangerTest, AnHonestCompanyIsOpened) { EXPECT_EQ(Opening(), "opened"); }

TEST_F(StrangerTest, TablesAndPlainIndexesOfOthersAreLetBe) {
  Change("CREATE TABLE Notes(Good INTEGER, Text TEXT); CREATE INDEX Notes_ByGood ON Notes(Good); ANALYZE");
  EXPECT_EQ(Opening(), "opened");
}

TEST_F(StrangerTest, AnEndlessViewInThePlaceOfATableIsRefused) {
  for (const char* table : {"Meta", "Persons", "Users"}) {
    fs::copy_file(SmallDemoPath(), file_.Path(), fs::copy_options::overwrite_existing);
    Change(Drop(table) + "CREATE VIEW " + table +
           "(Key, Value, Code, Name, Login, PasswordHash, EveryRight) AS " + kEndless +
           " x, x, x, x, x, x, x FROM n");
    IsRefused(kForeign);
  }
}

TEST_F(StrangerTest, AnotherViewOfTheGoodsIsRefused) {
  Change(std::string("DROP VIEW GoodInf_VW; CREATE VIEW GoodInf_VW AS ") + kEndless + " x AS Code FROM n");
  IsRefused(kForeign);
}

TEST_F(StrangerTest, TriggersAreRefused) {
  Change("CREATE TRIGGER Gift AFTER DELETE ON GoodStock BEGIN UPDATE Users SET EveryRight = 1; END");
  IsRefused(kForeign);
}

TEST_F(StrangerTest, ATriggerThatWaitsForTheUpgradeDoesNotRun) {
  Change(
      "DROP INDEX Kardex_ByDocument; DROP INDEX DetailKardex_ByDocument; DROP INDEX DetailKardex_ByValue;"
      "ALTER TABLE GoodInf DROP COLUMN ConsumerPrice;"
      "ALTER TABLE GoodStoreStock DROP COLUMN varede; ALTER TABLE GoodStoreStock DROP COLUMN sadere;"
      "ALTER TABLE GoodStoreStock DROP COLUMN OperationDate; ALTER TABLE Stores DROP COLUMN AbbName;"
      "ALTER TABLE Persons DROP COLUMN AbbName; DROP TABLE Batches; DROP TABLE PackedMovements;"
      "PRAGMA user_version = 1;"
      "CREATE TRIGGER Gift AFTER INSERT ON GoodStoreStock BEGIN UPDATE Users SET EveryRight = 1; END");
  IsRefused(kForeign);
}

TEST_F(StrangerTest, VirtualTablesAreRefused) {
  for (const char* module : {"fts5(Code, Name, Phone, City)", "fts4(Code, Name, Phone, City)", "dbstat"}) {
    fs::copy_file(SmallDemoPath(), file_.Path(), fs::copy_options::overwrite_existing);
    Change(Drop("Persons") + "CREATE VIRTUAL TABLE Persons USING " + module);
    IsRefused(kForeign);
  }
}

TEST_F(StrangerTest, AVirtualTableUnderAnotherSpellingIsRefused) {
  Change(
      "CREATE VIRTUAL TABLE Loot USING fts5(a); PRAGMA writable_schema = ON;"
      "UPDATE sqlite_schema SET sql = 'create/**/virtual table Loot USING fts5(a)' WHERE name = 'Loot'");
  EXPECT_NE(Opening(), "opened");
}

TEST_F(StrangerTest, ComputedColumnsAndIndexesOnExpressionsAreRefused) {
  Change(Drop("Persons") +
         "CREATE TABLE Persons(Code INTEGER PRIMARY KEY, Name TEXT AS (hex(zeroblob(1000000))), Phone TEXT, "
         "City TEXT)");
  IsRefused(kForeign);
  fs::copy_file(SmallDemoPath(), file_.Path(), fs::copy_options::overwrite_existing);
  Change("CREATE INDEX Slow ON Persons(length(Name))");
  IsRefused(kForeign);
  fs::copy_file(SmallDemoPath(), file_.Path(), fs::copy_options::overwrite_existing);
  Change("CREATE INDEX Slow ON Persons(Name) WHERE Name GLOB '*a*'");
  IsRefused(kForeign);
}

TEST_F(StrangerTest, TablesWithoutTheirColumnsOrKeysAreRefused) {
  for (const char* table : {"CREATE TABLE Persons(Code INTEGER PRIMARY KEY)",
                            "CREATE TABLE Persons(Code INTEGER, Name TEXT, Phone TEXT, City TEXT)",
                            "CREATE TABLE Other(Code INTEGER)"}) {
    fs::copy_file(SmallDemoPath(), file_.Path(), fs::copy_options::overwrite_existing);
    Change(Drop("Persons") + table);
    IsRefused("جدول های یک شرکت نیستند");
  }
}

TEST_F(StrangerTest, ASchemaWithoutEndIsRefused) {
  std::string views = "PRAGMA writable_schema = ON; BEGIN;";
  for (int i = 0; i < 4000; ++i) {
    const std::string name = "V" + std::to_string(i);
    views += "INSERT INTO sqlite_schema VALUES('view','" + name + "','" + name + "',0,'CREATE VIEW " + name +
             " AS SELECT " + std::to_string(i) + "');";
  }
  Change(views + "COMMIT");
  EXPECT_NE(Opening(), "opened");
}

TEST_F(StrangerTest, AnObjectWithoutMeasureIsRefused) {
  std::string list = "CREATE TABLE Loot(a CHECK(a IN (1";
  for (int i = 0; i < 1'000'000; ++i) list += ",1";
  Change(list + ")))");
  EXPECT_NE(Opening(), "opened");
}

TEST_F(StrangerTest, AHugeTitleIsNotRead) {
  Change("UPDATE Meta SET Value = CAST(zeroblob(40000000) AS TEXT) WHERE Key = 'Title'");
  IsRefused("بزرگتر از اندازه");
}

TEST_F(StrangerTest, ALongTitleIsShownShortened) {
  Change("UPDATE Meta SET Value = hex(zeroblob(100000)) WHERE Key = 'Title'");
  const std::string title = OpenCompany(file_.Path())->Title();
  EXPECT_EQ(title, std::string(199, '0') + "…");
}

TEST_F(StrangerTest, AHugeCellIsToldByTheStatement) {
  Change(
      "UPDATE Persons SET Name = CAST(zeroblob(40000000) AS TEXT) WHERE Code = (SELECT max(Code) FROM "
      "Persons)");
  const std::string said = Confined([this] {
    return Refusal(*OpenCompany(file_.Path())->OpenConnection(), "Select Code, Name from Persons");
  });
  EXPECT_NE(said.find("بزرگتر از اندازه"), std::string::npos) << said;
}

TEST_F(StrangerTest, APasswordHashThatAsksForTooMuchIsNotComputed) {
  const std::string own = HashPassword("admin");
  EXPECT_TRUE(VerifyPassword("admin", own));
  const std::string rest = own.substr(own.find(",p=1"));
  for (const char* costs :
       {"m=4194304,t=2", "m=65537,t=1", "m=8,t=5", "m=8,t=4294967295", "m=99999999999999999999,t=1"}) {
    Change("UPDATE Users SET PasswordHash = '$argon2id$v=19$" + std::string(costs) + rest +
           "' WHERE Login = 'admin'");
    const std::string said = Confined([this]() -> std::string {
      return OpenCompany(file_.Path())->SignIn("admin", "admin") ? "in" : "out";
    });
    EXPECT_EQ(said, "out") << costs;
  }
}

TEST_F(StrangerTest, HashesThatAreNoneAreNoPasswords) {
  for (const char* hash :
       {"", "admin", "$argon2id$v=19$m=", "$argon2id$v=19$m=65536,t=2,p=1",
        "$argon2id$v=19$m=65536,t=2,p=1$$", "$argon2i$v=19$m=65536,t=2,p=1$c2FsdHNhbHRzYWx0c2FsdA$AAAA"}) {
    EXPECT_FALSE(VerifyPassword("admin", hash)) << hash;
    EXPECT_FALSE(VerifyPassword("", hash)) << hash;
  }
}

// The listener of a long opening.
class Stop : public IStatementProgress {
 public:
  bool Progress(std::size_t) override {
    ++heard;
    return false;
  }
  int heard = 0;
};

TEST_F(StrangerTest, TheUpgradeOfALargeCompanyCanBeStopped) {
  Change(kMakeOlder);
  const std::string before = ReadFile(file_.Path());
  Stop stop;
  EXPECT_THROW(OpenCompany(file_.Path(), &stop), OpeningCancelled);
  EXPECT_EQ(stop.heard, 1);
  EXPECT_TRUE(ReadFile(file_.Path()) == before);
  EXPECT_EQ(Opening(), "opened");
}

TEST(DatabaseHandle, ReachesNoOtherFileAndLoadsNoCode) {
  Database db(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  for (const char* sql : {"ATTACH 'other.db' AS o", "SELECT load_extension('x')",
                          "CREATE VIRTUAL TABLE t USING fts5(a)", "VACUUM INTO 'other.db'"}) {
    EXPECT_THROW(db.Run(sql), SqliteError) << sql;
  }
  db.Run("CREATE TABLE t(a)");
  db.SetAccess(Access::Write);
  db.Run("INSERT INTO t VALUES(1); CREATE TEMP TABLE s AS SELECT * FROM t");
  EXPECT_THROW(db.Run("DROP TABLE t"), SqliteError);
  EXPECT_THROW(db.Run("CREATE TABLE u(a)"), SqliteError);
  EXPECT_THROW(db.Run("PRAGMA user_version = 3"), SqliteError);
  db.SetAccess(Access::Read);
  EXPECT_EQ(db.AskInteger("SELECT a FROM t"), 1);
  for (const char* sql :
       {"INSERT INTO t VALUES(1)", "DELETE FROM t", "BEGIN", "PRAGMA table_info(t)", "DROP TABLE s"}) {
    EXPECT_THROW(db.Run(sql), SqliteError) << sql;
  }
}

TEST(DatabaseHandle, TriggersRunOnlyWhereAskedFor) {
  Database db(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  db.Run(
      "CREATE TABLE t(a); CREATE TABLE u(a); CREATE TRIGGER r AFTER INSERT ON t BEGIN INSERT INTO u "
      "VALUES(1); END");
  db.Run("INSERT INTO t VALUES(1)");
  EXPECT_EQ(db.AskInteger("SELECT count(*) FROM u"), 0);
  db.RunTriggers();
  db.Run("INSERT INTO t VALUES(1)");
  EXPECT_EQ(db.AskInteger("SELECT count(*) FROM u"), 1);
}

TEST(DatabaseHandle, MessagesToAUserHoldNoneOfTheDatabasesOwnWords) {
  Database db(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  for (const char* sql : {"SELECT * FROM nowhere", "nonsense", "SELECT dec_add('a', 1)", "ATTACH 'a' AS b",
                          "CREATE TABLE t(a UNIQUE); INSERT INTO t VALUES(1), (1)"}) {
    try {
      db.Run(sql);
      ADD_FAILURE() << sql;
    } catch (const SqliteError& error) {
      const std::string message = PersianMessage(error);
      EXPECT_EQ(message.find_first_of("abcdefghijklmnopqrstuvwxyz"), std::string::npos) << message;
    }
  }
}

}  // namespace
}  // namespace goods
