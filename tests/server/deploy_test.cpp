// Deploying, verifying, and what the reading role may do.
#include <algorithm>
#include <fstream>
#include <iterator>

#include "company/server/server_company.h"
#include "company/server/server_scripts.h"
#include "company/server/server_session.h"
#include "server_fixture.h"

namespace goods {
namespace {

void MakeEmpty(const TestDatabase& database) {
  ServerAddress server = TheServer();
  server.Set("DATABASE", "master");
  ServerSession(server.ConnectionString()).Run("CREATE DATABASE " + ServerName(database.Name()));
}

ServerSession SessionIn(const TestDatabase& database) {
  return ServerSession(database.Address().ConnectionString());
}

std::vector<std::string> Verified(const TestDatabase& database) {
  return VerifyCompany(TheServer(), database.Name());
}

// A test on a company without goods, deployed once for all of them.
class DeployedTest : public testing::Test {
 protected:
  static void TearDownTestSuite() { deployed = nullptr; }
  void SetUp() override {
    GOODS_NEEDS_SERVER();
    if (deployed != nullptr) return;
    deployed = std::make_unique<TestDatabase>();
    deployed->Deploy();
  }
  static inline std::unique_ptr<TestDatabase> deployed;
};

class DeployTest : public testing::Test {
 protected:
  void SetUp() override { GOODS_NEEDS_SERVER(); }
};

TEST_F(DeployedTest, NothingIsToldOfItAndWhatIsChangedOrDroppedIsToldAndDeployedAnew) {
  EXPECT_EQ(Verified(*deployed), std::vector<std::string>());
  {
    ServerSession session = SessionIn(*deployed);
    session.Run("DROP PROCEDURE dbo.srKardex");
    session.Run("ALTER PROCEDURE dbo.Kardex_Proc @GoodCode bigint AS SELECT 1 AS Date");
    session.Run("DROP VIEW dbo.TagLookUp_VW");
    session.Run("CREATE VIEW dbo.TagLookUp_VW AS SELECT t.Code, t.Name, N'' AS Background FROM dbo.TagS t");
  }
  const std::vector<std::string> told = Verified(*deployed);
  EXPECT_NE(std::find(told.begin(), told.end(), "missing: srKardex"), told.end());
  EXPECT_NE(std::find(told.begin(), told.end(), "changed: Kardex_Proc"), told.end());
  EXPECT_NE(std::find(told.begin(), told.end(), "changed: TagLookUp_VW"), told.end());
  EXPECT_EQ(told.size(), 3U);
  EXPECT_THROW(deployed->Deploy({}, {"no_such_option"}), CompanyError);
  deployed->Deploy({}, {"period_indexes"});
  EXPECT_EQ(Verified(*deployed), std::vector<std::string>());
}

TEST_F(DeployedTest, StoredFiguresThatAreNotThoseOfTheMovementsAreTold) {
  ServerSession session = SessionIn(*deployed);
  session.Run("INSERT INTO dbo.Units(Code, Name) VALUES(0, N''), (1, N'عدد')");
  session.Run("INSERT INTO dbo.GoodGrps(Code, Name) VALUES(1, N'گروه')");
  session.Run("INSERT INTO dbo.GoodInf(GrpCode, Code, Name, Unit) VALUES(1, 12, N'پیچ', 1)");
  EXPECT_EQ(Verified(*deployed), std::vector<std::string>());
  session.Run(
      "INSERT INTO dbo.Kardex(Kala, Date, Radif, Anbar, Tedad, Gheymat, Fi, Miangin, Type, OperationCode, "
      "OperationRow, Comment) VALUES(12, N'1402/01/01', 1, 1, 5, 10, 10, 10, 2, 1, 1, N'خريد علي')");
  EXPECT_EQ(session.AskText("SELECT CommentSearch FROM dbo.Kardex"), "خرید علی");
  EXPECT_EQ(session.AskText("SELECT Name FROM dbo.SearchNames WHERE Kind = 6"), "پیچ");
  session.Run("UPDATE dbo.GoodInf SET Name = N'كتاب' WHERE Code = 12");
  EXPECT_EQ(session.AskText("SELECT Name FROM dbo.SearchNames WHERE Kind = 6"), "کتاب");
  EXPECT_FALSE(Verified(*deployed).empty());
  session.Run("EXEC dbo.UpdateMogodiKala");
  session.Run("INSERT INTO dbo.Stores(Code, Name) VALUES(1, N'انبار')");
  session.Run("EXEC dbo.DefineRemainInStore");
  EXPECT_EQ(Verified(*deployed), std::vector<std::string>());
}

// Beside the kinds of the price history, as the reports ask for them.
TEST_F(DeployedTest, ACollationInWhichCaptionsDoNotArriveIsWarnedOf) {
  ServerSession session = SessionIn(*deployed);
  const bool whole = session.AskText("select 'آخرين قيمت خريد پک' As Name") == "آخرين قيمت خريد پک";
  EXPECT_EQ(CollationWarning(TheServer(), deployed->Name()).empty(), whole);
}

TEST_F(DeployTest, ANewerDatabaseAndAForeignOneAreRefusedAndNotTouched) {
  const TestDatabase database;
  MakeEmpty(database);
  ServerSession session = SessionIn(database);
  session.Run(
      "CREATE TABLE dbo.Meta([Key] nvarchar(100) NOT NULL PRIMARY KEY, Value nvarchar(4000) NOT NULL)");
  session.Run("INSERT INTO dbo.Meta([Key], Value) VALUES(N'SchemaVersion', N'99')");
  EXPECT_THROW(database.Deploy(), CompanyError);
  EXPECT_THROW(OpenServerCompany(database.Address().ConnectionString(), ""), CompanyError);
  EXPECT_EQ(session.AskText("SELECT Value FROM dbo.Meta WHERE [Key] = N'SchemaVersion'"), "99");
  session.Run("DROP TABLE dbo.Meta");
  session.Run("CREATE TABLE dbo.Invoices(Code bigint NOT NULL)");
  EXPECT_THROW(database.Deploy(), CompanyError);
  EXPECT_EQ(session.AskInteger("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = N'dbo'"),
            1);
}

TEST_F(DeployTest, ADatabaseOfTheFirstVersionIsBroughtUpToDateWithWhatItHolds) {
  const TestDatabase database;
  MakeEmpty(database);
  {
    // As the first version made it: its tables, and nothing else yet.
    ServerSession session = SessionIn(database);
    std::ifstream file(GOODS_TEST_SOURCES "/server/tables_of_version_1.sql");
    const std::string script((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    for (const std::string_view batch : BatchesOf(script)) session.Run(batch);
    session.Run("INSERT INTO dbo.Meta([Key], Value) VALUES(N'SchemaVersion', N'1')");
    session.Run(
        "INSERT INTO dbo.Users(Code, Login, Name, PasswordHash) VALUES(5, N'anbar', N'x', N'y'), (6, "
        "N'hesab', N'x', N'y')");
    session.Run("INSERT INTO dbo.UserRights(UserCode, Part, Permission) VALUES(5, 509, 6), (6, 500, 24)");
    session.Run("INSERT INTO dbo.Stores(Code, Name) VALUES(7, N'انبار قدیمی')");
    session.Run("INSERT INTO dbo.SearchNames(Kind, Code, Name, Abb) VALUES(1, 7, N'انبار قدیمی', N'')");
  }
  EXPECT_THROW(OpenServerCompany(database.Address().ConnectionString(), ""), CompanyError);
  const std::vector<std::string> told = Verified(database);
  EXPECT_NE(std::find(told.begin(), told.end(), "missing: Stores.AbbName"), told.end());
  EXPECT_NE(std::find(told.begin(), told.end(), "missing: Batches"), told.end());
  database.Deploy();
  EXPECT_EQ(Verified(database), std::vector<std::string>());
  SessionIn(database).Run("UPDATE dbo.Stores SET AbbName = N'ANB-7' WHERE Code = 7");
  EXPECT_EQ(SessionIn(database).AskInteger("SELECT SeesPrices FROM dbo.Users WHERE Code = 5"), 0);
  EXPECT_EQ(SessionIn(database).AskInteger("SELECT SeesPrices FROM dbo.Users WHERE Code = 6"), 1);
  const auto company = OpenServerCompany(database.Address().ConnectionString(), "");
  ASSERT_EQ(company->SearchEntities(EntityType::Store, "anb-7", 5).size(), 1U);
  EXPECT_EQ(company->SearchEntities(EntityType::Store, "قديمي", 5).at(0).code, 7);
}

TEST_F(DeployTest, AFailedDeploymentLeavesNothing) {
  const TestDatabase database;
  EXPECT_THROW(database.Deploy("/no/such/file"), CompanyError);
  EXPECT_EQ(SessionIn(database).AskInteger(
                "SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = N'dbo'"),
            0);
}

TEST_F(DeployedTest, TheReadingRoleRunsReportsAndWritesNothing) {
  const std::string login = deployed->Name();
  {
    ServerAddress server = TheServer();
    server.Set("DATABASE", "master");
    ServerSession(server.ConnectionString()).Run("CREATE LOGIN " + login + " WITH PASSWORD = N'Reader-1'");
    ServerSession session = SessionIn(*deployed);
    session.Run("CREATE USER " + login + " FOR LOGIN " + login);
    session.Run("ALTER ROLE goods_reader ADD MEMBER " + login);
  }
  {
    ServerAddress reader = deployed->Address();
    reader.Set("UID", login);
    reader.Set("PWD", "Reader-1");
    ServerConnection connection(reader.ConnectionString());
    AskServer(connection, "Exec Kardex_Proc 12");
    AskServer(connection, "exec GoodInf_sp");
    AskServer(connection, "Exec GoodsAsset_Store_SP");
    connection.Execute("Exec RialiStock_SP -1");
    connection.Execute("Exec UpdateMogodiKala");
    AskServer(connection, "Select * From GoodGrps");
    int tables = 0;
    for (const ServerScript& script : SchemaScripts()) {
      for (const std::string_view batch : BatchesOf(script.text)) {
        const MadeObject object = ObjectOf(batch);
        const bool derived =
            object.name == "SessionPrices" || object.name == "GoodStock" || object.name == "GoodStoreStock";
        if (object.kind != "TABLE" || derived) continue;
        ++tables;
        EXPECT_THROW(connection.Execute("DELETE FROM dbo." + object.name), DatabaseError) << object.name;
      }
    }
    EXPECT_GT(tables, 20);
    EXPECT_THROW(connection.Execute("UPDATE dbo.GoodInf SET Name = N'x'"), DatabaseError);
    EXPECT_THROW(AskServer(connection, "SELECT PasswordHash FROM dbo.Users"), DatabaseError);
  }
  SessionIn(*deployed).Run("DROP USER " + login);
  ServerAddress server = TheServer();
  server.Set("DATABASE", "master");
  ServerSession(server.ConnectionString()).Run("DROP LOGIN " + login);
}

}  // namespace
}  // namespace goods
