// What users meet when the server, the network or a right is missing: each is told in their language, and the
// next action works once it is back.
#include <chrono>
#include <functional>
#include <optional>

#include "company/server/server_company.h"
#include "company/server/server_session.h"
#include "cut_proxy.h"
#include "host/core/text.h"
#include "server_fixture.h"

namespace goods {
namespace {

constexpr const char* kLost = "ارتباط با سرور قطع شد";

class FaultsTest : public testing::Test {
 protected:
  void SetUp() override {
    GOODS_NEEDS_SERVER();
    const ServerAddress server = TheServer();
    const auto port = ParseInteger(server.Find("PORT").value_or("1433"));
    ASSERT_TRUE(server.Find("SERVER") && port) << "GOODS_SERVER needs SERVER and PORT for these";
    proxy_.emplace(*server.Find("SERVER"), static_cast<int>(*port));
  }
  ServerAddress Through() const {
    ServerAddress address = TheServer();
    address.Set("SERVER", "127.0.0.1");
    address.Set("PORT", std::to_string(proxy_->Port()));
    return address;
  }
  static std::string Told(const std::function<void()>& action) {
    try {
      action();
      return "";
    } catch (const DatabaseError& error) {
      return error.what();
    } catch (const CompanyError& error) {
      return error.what();
    }
  }
  static bool Holds(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
  }
  std::optional<CutProxy> proxy_;
};

TEST_F(FaultsTest, AServerThatStopsAtAnyStatementOfTheWalkIsToldAndIsFoundAgain) {
  const std::vector<std::string> statements = StatementsOfTheWalk();
  ASSERT_GT(statements.size(), 50U);
  for (const std::string& statement : statements) {
    proxy_->Forward();
    ServerConnection connection(Through().ConnectionString());
    ASSERT_EQ(AskServer(connection, "SELECT 1 AS a").Count(), 1U) << statement;
    proxy_->CutAtRequest();
    RowStore rows;
    try {
      connection.Open(statement, rows);
      ADD_FAILURE() << "answered: " << statement;
    } catch (const ConnectionLost& error) {
      EXPECT_TRUE(Holds(error.what(), kLost)) << error.what();
      EXPECT_EQ(error.Statement(), statement);
    }
    EXPECT_THROW(AskServer(connection, statement), ConnectionLost) << statement;
  }
}

TEST_F(FaultsTest, AConnectionThatBreaksWhileRowsArriveIsToldAndLeavesNoRows) {
  ServerConnection connection(Through().ConnectionString());
  proxy_->CutAfter(200'000);
  RowStore rows;
  EXPECT_THROW(
      connection.Open("WITH d AS (SELECT 0 AS n UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 "
                      "UNION ALL SELECT 4 UNION ALL SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL "
                      "SELECT 8 UNION ALL SELECT 9) SELECT a.n + 10 * b.n AS i, REPLICATE(N'پیچ ', 20) AS t "
                      "FROM d a, d b, d c, d e",
                      rows),
      ConnectionLost);
  EXPECT_EQ(rows.Count(), 0U);
}

class StopSoon : public IStatementProgress {
 public:
  bool Progress(std::size_t) override { return --left_ > 0; }

 private:
  int left_ = 3;
};

TEST_F(FaultsTest, AServerThatFallsSilentIsLeftWhenTheUserStopsAndTheNextStatementWorks) {
  ServerConnection connection(Through().ConnectionString());
  proxy_->FallSilent();
  StopSoon stop;
  RowStore rows;
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THROW(connection.Open("SELECT 1 AS a", rows, &stop), StatementCancelled);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  proxy_->Forward();
  EXPECT_EQ(AskServer(connection, "SELECT 2 AS a").Cell(0, 0).AsInteger(), 2);
}

// A database of another make, with one of the views that look-ups read.
TEST_F(FaultsTest, LookUpsFindTheServerAgainAndNeedNothingButTheirViews) {
  const TestDatabase database;
  {
    ServerAddress server = TheServer();
    server.Set("DATABASE", "master");
    ServerSession(server.ConnectionString()).Run("CREATE DATABASE " + ServerName(database.Name()));
    ServerSession session(database.Address().ConnectionString());
    session.Run(
        "CREATE VIEW dbo.BusyGoodLookUp_VW AS SELECT CAST(7 AS bigint) AS Code, N'پیچ' AS Name, CAST(3 AS "
        "bigint) AS Movements");
  }
  ServerAddress through = Through();
  through.Set("DATABASE", database.Name());
  const auto company = OpenServerCompany(through.ConnectionString(), "");
  EXPECT_EQ(company->Title(), database.Name());
  EXPECT_EQ(company->ListBusyGoods(5).at(0).name, "پیچ");
  proxy_->Refuse();
  EXPECT_TRUE(Holds(Told([&] { company->ListBusyGoods(5); }), kLost));
  EXPECT_TRUE(Holds(Told([&] { company->ListBusyGoods(5); }), "ارتباط با سرور برقرار نشد"));
  proxy_->Forward();
  EXPECT_EQ(company->ListBusyGoods(5).at(0).code, 7);
}

TEST_F(FaultsTest, AWrongPasswordAMissingDatabaseAndAMissingServerAreTold) {
  ServerAddress wrong = TheServer();
  wrong.Set("PWD", "wrong");
  EXPECT_TRUE(Holds(Told([&] { OpenServerCompany(wrong.ConnectionString(), ""); }),
                    "سرور نام کاربر یا گذرواژه را نپذیرفت"));
  ServerAddress missing = TheServer();
  missing.Set("DATABASE", "no_such_database_42");
  EXPECT_TRUE(Holds(Told([&] { OpenServerCompany(missing.ConnectionString(), ""); }),
                    "این پایگاه داده روی سرور نیست"));
  proxy_->Refuse();
  EXPECT_THROW(ServerConnection connection(Through().ConnectionString()), ConnectionLost);
}

// A server with a certificate is read encrypted; one without is refused, and never read in clear instead.
TEST_F(FaultsTest, WhatIsAskedToBeEncryptedNeverCrossesInClear) {
  const std::string marked = "SELECT N'crosses' AS a";
  std::string wide;
  for (const char c : marked) wide += {c, '\0'};
  ServerAddress encrypted = Through();
  encrypted.Set("encrypt", "yes");
  try {
    ServerConnection connection(encrypted.ConnectionString());
    EXPECT_EQ(AskServer(connection, marked).Cell(0, 0).AsText(), "crosses");
  } catch (const ConnectionLost& error) {
    EXPECT_TRUE(Holds(error.what(), "رمزگذاری خواسته شده است")) << error.what();
  }
  EXPECT_FALSE(proxy_->WasSent(wide));
  ServerConnection plain(Through().ConnectionString());
  EXPECT_EQ(AskServer(plain, marked).Count(), 1U);
  EXPECT_TRUE(proxy_->WasSent(wide));
}

TEST_F(FaultsTest, AMissingRightOnOneProcedureIsToldAndTheOthersRun) {
  const TestDatabase database;
  ServerAddress master = TheServer();
  master.Set("DATABASE", "master");
  const std::string login = database.Name();
  {
    ServerSession server(master.ConnectionString());
    server.Run("CREATE DATABASE " + ServerName(database.Name()));
    server.Run("CREATE LOGIN " + login + " WITH PASSWORD = N'Reader-1'");
    ServerSession session(database.Address().ConnectionString());
    session.Run("CREATE PROCEDURE dbo.Kardex_Proc @GoodCode bigint AS SELECT 1 AS Date");
    session.Run("CREATE PROCEDURE dbo.srKardex AS SELECT 2 AS Date");
    session.Run("CREATE USER " + login + " FOR LOGIN " + login);
    session.Run("GRANT EXECUTE ON dbo.srKardex TO " + login);
  }
  {
    ServerAddress reader = database.Address();
    reader.Set("UID", login);
    reader.Set("PWD", "Reader-1");
    ServerConnection connection(reader.ConnectionString());
    EXPECT_TRUE(Holds(Told([&] { AskServer(connection, "Exec Kardex_Proc 12"); }),
                      "این کاربر روی سرور حق این کار را ندارد"));
    EXPECT_EQ(AskServer(connection, "Exec srKardex").Count(), 1U);
  }
  ServerSession session(database.Address().ConnectionString());
  session.Run("REVOKE EXECUTE ON dbo.srKardex FROM " + login);
  session.Run("DROP USER " + login);
  ServerSession(master.ConnectionString()).Run("DROP LOGIN " + login);
}

}  // namespace
}  // namespace goods
