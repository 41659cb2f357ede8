// Deploying, verifying, and what the reading role may do.
#include <algorithm>

#include "company/server/server_scripts.h"
#include "company/server/server_session.h"
#include "server_fixture.h"

namespace goods {
namespace {

class DeployTest : public testing::Test {
 protected:
  void SetUp() override {
    GOODS_NEEDS_SERVER();
    database_.emplace();
  }
  ServerSession Session() const { return ServerSession(database_->Address().ConnectionString()); }
  std::vector<std::string> Verified() const { return VerifyCompany(TheServer(), database_->Name()); }
  std::optional<TestDatabase> database_;
};

TEST_F(DeployTest, ADeployedDatabaseHasNothingToTellAndDeployingAgainChangesNothing) {
  database_->Deploy();
  EXPECT_EQ(Verified(), std::vector<std::string>());
  database_->Deploy();
  EXPECT_EQ(Verified(), std::vector<std::string>());
}

TEST_F(DeployTest, WhatWasChangedOrDroppedIsToldAndDeployedAnew) {
  database_->Deploy();
  {
    ServerSession session = Session();
    session.Run("DROP PROCEDURE dbo.srKardex");
    session.Run("ALTER PROCEDURE dbo.Kardex_Proc @GoodCode bigint AS SELECT 1 AS Date");
  }
  const std::vector<std::string> told = Verified();
  EXPECT_NE(std::find(told.begin(), told.end(), "missing: srKardex"), told.end());
  EXPECT_NE(std::find(told.begin(), told.end(), "changed: Kardex_Proc"), told.end());
  database_->Deploy();
  EXPECT_EQ(Verified(), std::vector<std::string>());
}

TEST_F(DeployTest, StoredFiguresThatAreNotThoseOfTheMovementsAreTold) {
  database_->Deploy();
  ServerSession session = Session();
  session.Run("INSERT INTO dbo.Units(Code, Name) VALUES(0, N''), (1, N'عدد')");
  session.Run("INSERT INTO dbo.GoodGrps(Code, Name) VALUES(1, N'گروه')");
  session.Run("INSERT INTO dbo.GoodInf(GrpCode, Code, Name, Unit) VALUES(1, 12, N'پیچ', 1)");
  EXPECT_EQ(Verified(), std::vector<std::string>());
  session.Run(
      "INSERT INTO dbo.Kardex(Kala, Date, Radif, Anbar, Tedad, Gheymat, Fi, Miangin, Type, OperationCode, "
      "OperationRow, Comment) VALUES(12, N'1402/01/01', 1, 1, 5, 10, 10, 10, 2, 1, 1, N'خريد علي')");
  EXPECT_EQ(session.AskText("SELECT CommentSearch FROM dbo.Kardex"), "خرید علی");
  EXPECT_EQ(session.AskText("SELECT Name FROM dbo.SearchNames WHERE Kind = 6"), "پیچ");
  session.Run("UPDATE dbo.GoodInf SET Name = N'كتاب' WHERE Code = 12");
  EXPECT_EQ(session.AskText("SELECT Name FROM dbo.SearchNames WHERE Kind = 6"), "کتاب");
  EXPECT_FALSE(Verified().empty());
  session.Run("EXEC dbo.UpdateMogodiKala");
  session.Run("INSERT INTO dbo.Stores(Code, Name) VALUES(1, N'انبار')");
  session.Run("EXEC dbo.DefineRemainInStore");
  EXPECT_EQ(Verified(), std::vector<std::string>());
}

TEST_F(DeployTest, ANewerDatabaseAndAForeignOneAreRefusedAndNotTouched) {
  database_->Deploy();
  Session().Run("UPDATE dbo.Meta SET Value = N'99' WHERE [Key] = N'SchemaVersion'");
  EXPECT_THROW(database_->Deploy(), CompanyError);
  EXPECT_EQ(Session().AskText("SELECT Value FROM dbo.Meta WHERE [Key] = N'SchemaVersion'"), "99");
  Session().Run("DROP TABLE dbo.Meta");
  EXPECT_THROW(database_->Deploy(), CompanyError);
}

TEST_F(DeployTest, AFailedDeploymentLeavesNothing) {
  EXPECT_THROW(database_->Deploy("/no/such/file"), CompanyError);
  EXPECT_EQ(
      Session().AskInteger("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = N'dbo'"), 0);
}

TEST_F(DeployTest, TheReadingRoleRunsReportsAndWritesNothing) {
  database_->Deploy();
  const std::string login = database_->Name();
  {
    ServerAddress server = TheServer();
    server.Set("DATABASE", "master");
    ServerSession(server.ConnectionString()).Run("CREATE LOGIN " + login + " WITH PASSWORD = N'Reader-1'");
    ServerSession session = Session();
    session.Run("CREATE USER " + login + " FOR LOGIN " + login);
    session.Run("ALTER ROLE goods_reader ADD MEMBER " + login);
  }
  {
    ServerAddress reader = database_->Address();
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
        if (object.kind != "TABLE") continue;
        ++tables;
        EXPECT_THROW(connection.Execute("DELETE FROM dbo." + object.name), DatabaseError) << object.name;
      }
    }
    EXPECT_GT(tables, 20);
  }
  Session().Run("DROP USER " + login);
  ServerAddress server = TheServer();
  server.Set("DATABASE", "master");
  ServerSession(server.ConnectionString()).Run("DROP LOGIN " + login);
}

}  // namespace
}  // namespace goods
