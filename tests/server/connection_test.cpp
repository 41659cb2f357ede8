// What a connection to a server promises: cells as they are, messages as they are said, stopping, faults.
#include <chrono>
#include <functional>
#include <utility>
#include <vector>

#include "company/server/server_session.h"
#include "host/data/decimal.h"
#include "server_fixture.h"

namespace goods {
namespace {

// A database of its own, without a company, and a connection to it.
class ServerConnectionTest : public testing::Test {
 protected:
  void SetUp() override {
    GOODS_NEEDS_SERVER();
    ServerAddress server = TheServer();
    server.Set("DATABASE", "master");
    connection_ = std::make_unique<ServerConnection>(server.ConnectionString());
  }
  std::string Refusal(const std::string& statement) {
    try {
      AskServer(*connection_, statement);
      return "";
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Statement(), statement);
      return error.what();
    }
  }
  std::unique_ptr<ServerConnection> connection_;
};

TEST_F(ServerConnectionTest, DecimalsAreExactToNinePlaces) {
  const RowStore rows =
      AskServer(*connection_,
                "SELECT CAST(0.000000001 AS decimal(28,9)) AS a, CAST(-1234567890123456789.123456789 AS "
                "decimal(28,9)) AS b, "
                "CAST(12.5 AS decimal(10,2)) AS c, CAST(99999999999999999999999999999.999999999 AS "
                "decimal(38,9)) AS d, "
                "CAST(1.0000000005 AS decimal(20,10)) AS e, CAST(NULL AS decimal(9,2)) AS f");
  ASSERT_EQ(rows.Count(), 1U);
  EXPECT_EQ(rows.Cell(0, 0).AsText(), "0.000000001");
  EXPECT_EQ(rows.Cell(0, 1).AsText(), "-1234567890123456789.123456789");
  EXPECT_EQ(rows.Cell(0, 2).AsText(), "12.5");
  EXPECT_EQ(rows.Cell(0, 3).AsText(), "99999999999999999999999999999.999999999");
  EXPECT_EQ(rows.Cell(0, 4).AsText(), "1.000000001");
  EXPECT_TRUE(rows.Cell(0, 5).IsNull());
}

TEST_F(ServerConnectionTest, TextsOfAnyLengthArriveWhole) {
  const RowStore rows = AskServer(*connection_,
                                  "SELECT N'' AS a, N'گزارش کاردکس كتاب يک' AS b, REPLICATE(CAST(N'پیچ ' AS "
                                  "nvarchar(max)), 30000) AS c, NULL AS d");
  ASSERT_EQ(rows.Count(), 1U);
  EXPECT_EQ(rows.Cell(0, 0).AsText(), "");
  EXPECT_FALSE(rows.Cell(0, 0).IsNull());
  EXPECT_EQ(rows.Cell(0, 1).AsText(), "گزارش کاردکس كتاب يک");
  EXPECT_EQ(rows.Cell(0, 2).AsText().size(), 30000U * std::string("پیچ ").size());
  EXPECT_TRUE(rows.Cell(0, 3).IsNull());
}

TEST_F(ServerConnectionTest, NumbersDatesAndFlagsHaveTheirTypes) {
  const RowStore rows =
      AskServer(*connection_,
                "SELECT CAST(9223372036854775807 AS bigint) AS a, CAST(-5 AS smallint) AS b, CAST(1 AS "
                "bit) AS c, CAST('2026-03-21' AS date) AS d, CAST(2.5 AS float) AS e");
  EXPECT_EQ(rows.Cell(0, 0).AsText(), "9223372036854775807");
  EXPECT_EQ(rows.Columns()[0].type, ColumnType::Integer);
  EXPECT_EQ(rows.Cell(0, 1).AsInteger(), -5);
  EXPECT_EQ(rows.Cell(0, 2).AsInteger(), 1);
  EXPECT_EQ(rows.Cell(0, 3).AsText().substr(0, 10), "2026-03-21");
  EXPECT_EQ(rows.Cell(0, 4).AsDecimal().ToString(), "2.5");
}

TEST_F(ServerConnectionTest, ManyRowsKeepTheirOrderAcrossBlocks) {
  const RowStore rows =
      AskServer(*connection_,
                "WITH d AS (SELECT 0 AS n UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 UNION ALL "
                "SELECT 4 UNION ALL "
                "SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL SELECT 8 UNION ALL SELECT 9) "
                "SELECT a.n + 10 * b.n + 100 * c.n + 1000 * d.n AS i FROM d a, d b, d c, d d ORDER BY 1");
  ASSERT_EQ(rows.Count(), 10000U);
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    ASSERT_EQ(rows.Cell(row, 0).AsInteger(), static_cast<std::int64_t>(row));
  }
}

TEST_F(ServerConnectionTest, TheFirstRowsComeWhileTheOthersAreStillRead) {
  class Wanting : public IStatementProgress {
   public:
    bool Progress(std::size_t) override { return true; }
    std::size_t FirstRowsWanted(std::size_t rows) override { return rows > 0 && given.empty() ? 100 : 0; }
    void FirstRows(RowStore rows) override { given.push_back(std::move(rows)); }
    std::vector<RowStore> given;
  } listener;
  RowStore rows;
  connection_->Open(
      "WITH d AS (SELECT 0 AS n UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 UNION ALL SELECT 4 "
      "UNION "
      "ALL SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL SELECT 8 UNION ALL SELECT 9) "
      "SELECT 7 AS i, N'ردیف' AS t FROM d a, d b, d c, d d, d e, d f",
      rows, &listener);
  EXPECT_EQ(rows.Count(), 1000000U);
  ASSERT_EQ(listener.given.size(), 1U);
  const RowStore& first = listener.given.front();
  ASSERT_GT(first.Count(), 0U);
  EXPECT_LE(first.Count(), 128U);
  EXPECT_EQ(first.Cell(first.Count() - 1, 0).AsInteger(), 7);
  EXPECT_EQ(first.Cell(first.Count() - 1, 1).AsText(), "ردیف");
}

TEST_F(ServerConnectionTest, TheServersOwnMessageReachesTheUser) {
  EXPECT_NE(Refusal("SELECT * FROM NoSuchTable_42").find("nosuchtable_42"), std::string::npos);
  EXPECT_NE(Refusal("RAISERROR(N'موجودی منفی است', 16, 1)").find("موجودی منفی است"), std::string::npos);
  EXPECT_EQ(AskServer(*connection_, "SELECT 1 AS a").Count(), 1U);
}

class StopAt : public IStatementProgress {
 public:
  explicit StopAt(int at) : left_(at) {}
  bool Progress(std::size_t) override {
    ++calls;
    return --left_ > 0;
  }
  int calls = 0;

 private:
  int left_;
};

const char* const kSlow = "DECLARE @i int = 0; WHILE @i < 4000000 SET @i = @i + 1; SELECT @i AS i";

TEST_F(ServerConnectionTest, ARunningStatementIsStoppedAtOnceAndTheNextOneWorks) {
  StopAt stop(4);
  RowStore rows;
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THROW(connection_->Open(kSlow, rows, &stop), StatementCancelled);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  EXPECT_EQ(stop.calls, 4);
  EXPECT_EQ(AskServer(*connection_, "SELECT 7 AS a").Cell(0, 0).AsInteger(), 7);
}

TEST_F(ServerConnectionTest, AStatementThatLastsTooLongIsToldSo) {
  ServerAddress server = TheServer();
  server.Set("DATABASE", "master");
  ServerConnection impatient(server.ConnectionString(), {.login = 5, .statement = 1, .lock = 5});
  RowStore rows;
  try {
    impatient.Open(kSlow, rows);
    FAIL() << "it ended";
  } catch (const DatabaseError& error) {
    EXPECT_NE(std::string(error.what()).find("پاسخ سرور در زمان تعیین شده نرسید"), std::string::npos)
        << error.what();
  }
}

// Calls once, as soon as it is asked.
class Once : public IStatementProgress {
 public:
  explicit Once(std::function<void()> act) : act_(std::move(act)) {}
  bool Progress(std::size_t) override {
    if (act_) std::exchange(act_, nullptr)();
    return true;
  }

 private:
  std::function<void()> act_;
};

TEST_F(ServerConnectionTest, AKilledConnectionIsToldUntilTheHostConnectsAnew) {
  ServerAddress server = TheServer();
  server.Set("DATABASE", "master");
  ServerSession killer(server.ConnectionString());
  const std::int64_t session = AskServer(*connection_, "SELECT @@SPID AS s").Cell(0, 0).AsInteger();
  Once kill([&] { killer.Run("KILL " + std::to_string(session)); });
  RowStore rows;
  EXPECT_THROW(connection_->Open(kSlow, rows, &kill), ConnectionLost);
  EXPECT_THROW(AskServer(*connection_, "SELECT 1 AS a"), ConnectionLost);
  EXPECT_EQ(
      AskServer(*std::make_unique<ServerConnection>(server.ConnectionString()), "SELECT 1 AS a").Count(), 1U);
}

class WritesOnAndOn : public IStatementProgress {
 public:
  explicit WritesOnAndOn(ServerSession& session) : session_(session) {}
  bool Progress(std::size_t) override {
    session_.Run("INSERT INTO dbo.Written(N) VALUES(2)");
    return true;
  }

 private:
  ServerSession& session_;
};

// As the reports that work out figures first and join the masters to them afterwards.
TEST_F(ServerConnectionTest, AProcedureOfSeveralStatementsReadsOneState) {
  const TestDatabase database;
  {
    ServerAddress server = TheServer();
    server.Set("DATABASE", "master");
    ServerSession(server.ConnectionString()).Run("CREATE DATABASE " + ServerName(database.Name()));
  }
  ServerSession writer(database.Address().ConnectionString());
  // By this table a database is known to be one that deploy made.
  writer.Run("CREATE TABLE dbo.SessionPrices(Session int NOT NULL)");
  writer.Run("CREATE TABLE dbo.Written(N int NOT NULL)");
  writer.Run("INSERT INTO dbo.Written(N) VALUES(1)");
  writer.Run(
      "CREATE PROCEDURE dbo.ReadTwice AS BEGIN DECLARE @first int = (SELECT COUNT(*) FROM dbo.Written), @i "
      "int "
      "= 0; WHILE @i < 2000000 SET @i = @i + 1; SELECT @first AS A, (SELECT COUNT(*) FROM dbo.Written) AS B "
      "END");
  ServerConnection reader(database.Address().ConnectionString());
  WritesOnAndOn others(writer);
  RowStore rows;
  reader.Open("Exec ReadTwice", rows, &others);
  EXPECT_EQ(rows.Cell(0, 0).AsInteger(), rows.Cell(0, 1).AsInteger());
  const std::int64_t all = writer.AskInteger("SELECT COUNT(*) FROM dbo.Written");
  EXPECT_GT(all, rows.Cell(0, 1).AsInteger()) << "nobody wrote meanwhile";
  EXPECT_EQ(AskServer(reader, "SELECT COUNT(*) AS C FROM Written").Cell(0, 0).AsInteger(), all);
  // A statement that fails leaves no transaction behind.
  EXPECT_THROW(AskServer(reader, "SELECT * FROM NoSuchTable_42"), DatabaseError);
  reader.Execute("INSERT INTO dbo.Written(N) VALUES(3)");
  EXPECT_EQ(writer.AskInteger("SELECT COUNT(*) FROM dbo.Written"), all + 1);
}

TEST_F(ServerConnectionTest, WhatAnotherSessionHasLockedIsWaitedForAndThenTold) {
  const TestDatabase database;
  {
    ServerAddress server = TheServer();
    server.Set("DATABASE", "master");
    ServerSession(server.ConnectionString()).Run("CREATE DATABASE " + ServerName(database.Name()));
  }
  ServerSession holder(database.Address().ConnectionString());
  holder.Run("CREATE TABLE dbo.Units(Code bigint NOT NULL PRIMARY KEY, Name nvarchar(400) NOT NULL)");
  holder.Run("INSERT INTO dbo.Units(Code, Name) VALUES(0, N'')");
  ServerConnection waiting(database.Address().ConnectionString(), {.login = 5, .statement = 60, .lock = 1});
  {
    const ServerTransaction held(holder);
    holder.Run("UPDATE dbo.Units SET Name = N'x' WHERE Code = 0");
    try {
      waiting.Execute("UPDATE dbo.Units SET Name = N'y' WHERE Code = 0");
      ADD_FAILURE() << "it did not wait";
    } catch (const DatabaseError& error) {
      EXPECT_TRUE(std::string(error.what()).starts_with("داده ها در دست کاربر دیگری است")) << error.what();
    }
  }
  waiting.Execute("UPDATE dbo.Units SET Name = N'z' WHERE Code = 0");
  EXPECT_EQ(AskServer(waiting, "SELECT Name FROM Units").Cell(0, 0).AsText(), "z");
}

}  // namespace
}  // namespace goods
