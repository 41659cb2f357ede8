// Where a company is on a server, as users write it. These need no server.
#include <gtest/gtest.h>

#include "company/company.h"
#include "company/server/deploy.h"
#include "company/server/server_address.h"
#include "company/server/server_scripts.h"

namespace goods {
namespace {

TEST(ServerAddressText, AHostAndADatabaseAreEnough) {
  const ServerAddress address("10.0.0.5:1500/Sherkat");
  EXPECT_EQ(address.ConnectionString(),
            "PORT=1500;SERVER=10.0.0.5;DATABASE=Sherkat;DRIVER=FreeTDS;TDS_Version=7.4;ClientCharset=UTF-8");
}

TEST(ServerAddressText, ShortKeywordsMeanThoseOfOdbc) {
  const ServerAddress address("host=srv; database=شرکت ما; user=anbar; password={a;b}");
  EXPECT_EQ(address.Find("SERVER"), "srv");
  EXPECT_EQ(address.Find("uid"), "anbar");
  EXPECT_EQ(address.Find("DATABASE"), "شرکت ما");
  EXPECT_EQ(address.Find("PWD"), "a;b");
}

TEST(ServerAddressText, AConnectionStringStaysAsItIs) {
  const ServerAddress address("DSN=company;UID=x;PWD={p;w}}d}");
  EXPECT_EQ(address.ConnectionString(), "DSN=company;UID=x;PWD={p;w}}d}");
  EXPECT_EQ(address.Find("PWD"), "p;w}d");
}

TEST(ServerAddressText, EncryptionIsAskedInTheDriversOwnWords) {
  EXPECT_EQ(ServerAddress("host=a;encrypt=yes").Find("Encryption"), "require");
  EXPECT_EQ(ServerAddress("driver=Other Driver;host=a;encrypt=yes").Find("encrypt"), "yes");
}

TEST(ServerAddressText, ThePasswordIsNotInTheDescription) {
  const ServerAddress address("host=a;user=u;password=secret");
  EXPECT_EQ(address.Description().find("secret"), std::string::npos);
  EXPECT_NE(address.ConnectionString().find("secret"), std::string::npos);
}

TEST(ServerAddressText, WhatIsNoAddressIsRefused) {
  for (const char* text : {"", "  ", "=x", "user=x", "a:99999", ":5"}) {
    EXPECT_THROW(ServerAddress address(text), CompanyError) << text;
  }
}

TEST(ServerScripts, EveryBatchMakesOneObjectAndEveryProcedureHasItsFile) {
  int objects = 0;
  for (const ServerScript& script : SchemaScripts()) {
    for (const std::string_view batch : BatchesOf(script.text)) {
      EXPECT_FALSE(ObjectOf(batch).name.empty()) << batch.substr(0, 60);
      ++objects;
    }
  }
  EXPECT_GT(objects, 60);
  EXPECT_EQ(ProcedureScripts().size(), 15U);
  for (const ServerScript& script : ProcedureScripts()) {
    ASSERT_EQ(BatchesOf(script.text).size(), 1U) << script.name;
    EXPECT_EQ(ObjectOf(BatchesOf(script.text)[0]).name, script.name);
    EXPECT_EQ(ObjectOf(BatchesOf(script.text)[0]).kind, "PROCEDURE");
  }
}

TEST(ServerScripts, ColumnsOfATableAreReadFromItsText) {
  EXPECT_EQ(ColumnsOfTable(
                "-- Why, (and what).\nCREATE TABLE dbo.T([Key] int NOT NULL,\n  A decimal(19,9) DEFAULT 0, "
                "B AS (A),\n  CONSTRAINT PK_T PRIMARY KEY([Key], A), PRIMARY KEY(A), FOREIGN KEY(B));"),
            (std::vector<std::string>{"Key", "A", "B"}));
  EXPECT_EQ(ColumnsOfTable("CREATE INDEX T_ByA ON dbo.T(A);"), std::vector<std::string>());
}

TEST(ServerScripts, EveryVersionButTheFirstHasItsUpgrade) {
  std::vector<std::string> names;
  for (const ServerScript& step : UpgradeScripts()) names.emplace_back(step.name);
  std::vector<std::string> versions;
  for (int version = 2; version <= kServerSchemaVersion; ++version) {
    versions.push_back((version < 10 ? "0" : "") + std::to_string(version));
  }
  EXPECT_EQ(names, versions);
}

TEST(ServerScripts, TextsAreUnicodeLiterals) {
  for (const auto scripts : {SchemaScripts(), ProcedureScripts(), UpgradeScripts()}) {
    for (const ServerScript& script : scripts) {
      for (std::size_t at = script.text.find('\''); at != std::string_view::npos;
           at = script.text.find('\'', at + 1)) {
        const std::size_t line = script.text.rfind('\n', at) + 1;
        if (script.text.substr(line, 2) == "--") continue;
        EXPECT_TRUE(at > 0 && (script.text[at - 1] == 'N'))
            << script.name << ": " << script.text.substr(line, at - line + 5);
        at = script.text.find('\'', at + 1);
        if (at == std::string_view::npos) break;
      }
    }
  }
}

}  // namespace
}  // namespace goods
