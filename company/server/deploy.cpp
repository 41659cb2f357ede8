#include "company/server/deploy.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "company/company.h"
#include "company/server/fill_company.h"
#include "company/server/server_scripts.h"
#include "company/server/server_session.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr const char* kDerivedTables[] = {"SessionPrices", "GoodStock", "GoodStoreStock"};

bool IsTableScript(const ServerScript& script) { return script.name == "10_tables"; }
bool IsTriggerScript(const ServerScript& script) { return script.name == "40_triggers"; }

ServerAddress InDatabase(ServerAddress server, std::string_view database) {
  server.Set("DATABASE", database);
  return server;
}

void MakeDatabase(const ServerAddress& server, const std::string& database) {
  ServerSession session(InDatabase(server, "master").ConnectionString());
  if (session.AskInteger("SELECT CASE WHEN DB_ID(" + ServerText(database) + ") IS NULL THEN 0 ELSE 1 END") !=
      0)
    return;
  session.Run("CREATE DATABASE " + ServerName(database));
}

// None for a database without a company.
std::optional<std::int64_t> VersionOf(ServerSession& session) {
  const std::string known =
      "SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = N'dbo' AND TABLE_NAME = N'";
  if (session.AskInteger(known + "Meta'") == 0) return std::nullopt;
  return ParseInteger(session.AskText("SELECT Value FROM dbo.Meta WHERE [Key] = N'SchemaVersion'"));
}

void RunScript(ServerSession& session, const ServerScript& script) {
  for (const std::string_view batch : BatchesOf(script.text)) {
    try {
      session.Run(batch);
    } catch (const CompanyError& error) {
      throw CompanyError(std::string(script.name) + ", " + ObjectOf(batch).name + ": " + error.what());
    }
  }
}

void Upgrade(ServerSession& session, std::int64_t version) {
  for (const ServerScript& step : UpgradeScripts()) {
    if (ParseInteger(step.name).value_or(0) > version) RunScript(session, step);
  }
}

// Names of tables, views, procedures, functions and triggers, in lower case.
std::set<std::string> ObjectsOf(ServerSession& session) {
  const RowStore rows = session.Ask("SELECT name FROM sys.objects");
  std::set<std::string> names;
  for (std::size_t row = 0; row < rows.Count(); ++row) names.insert(LowerAscii(rows.Cell(row, 0).AsText()));
  return names;
}

// Triggers before the functions that they call, views and procedures before all of them.
void DropMade(ServerSession& session) {
  constexpr const char* kOrder[] = {"TRIGGER", "PROCEDURE", "VIEW", "FUNCTION"};
  const std::set<std::string> there = ObjectsOf(session);
  const auto drop = [&](const ServerScript& script, std::string_view kind) {
    for (const std::string_view batch : BatchesOf(script.text)) {
      const MadeObject object = ObjectOf(batch);
      if (object.kind == kind && there.contains(LowerAscii(object.name))) {
        session.Run("DROP " + object.kind + " dbo." + object.name);
      }
    }
  };
  for (const char* kind : kOrder) {
    for (const ServerScript& script : SchemaScripts()) drop(script, kind);
    for (const ServerScript& script : ProcedureScripts()) drop(script, kind);
  }
}

// A text of code without its comment lines, blanks and line ends, which a server may keep otherwise.
std::string Words(std::string_view text) {
  std::string words;
  for (const std::string& line : Split(text, '\n')) {
    if (Trim(line).starts_with("--")) continue;
    for (const char c : line) {
      if (static_cast<unsigned char>(c) > ' ' && c != ';') words += c;
    }
  }
  return words;
}

// The code of views, functions, triggers and procedures as Words, by their names in lower case.
std::map<std::string, std::string> CodeOf(ServerSession& session) {
  const RowStore rows = session.Ask(
      "SELECT o.name, m.definition FROM sys.sql_modules m JOIN sys.objects o ON o.object_id = m.object_id");
  std::map<std::string, std::string> code;
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    code[LowerAscii(rows.Cell(row, 0).AsText())] = Words(rows.Cell(row, 1).AsText());
  }
  return code;
}

// Everything but the tables.
void MakeCode(ServerSession& session) {
  DropMade(session);
  for (const ServerScript& script : SchemaScripts()) {
    if (!IsTableScript(script)) RunScript(session, script);
  }
  for (const ServerScript& script : ProcedureScripts()) RunScript(session, script);
}

void KeepMeta(ServerSession& session, std::string_view key, std::string_view value) {
  session.Run("DELETE FROM dbo.Meta WHERE [Key] = " + ServerText(key));
  session.Run("INSERT INTO dbo.Meta([Key], Value) VALUES(" + ServerText(key) + ", " + ServerText(value) +
              ")");
}

// What is there is known by its key in Meta: servers keep names of indexes each in their own way.
void MakeOption(ServerSession& session, const std::string& name) {
  for (const ServerScript& script : OptionScripts()) {
    if (script.name != name) continue;
    const std::string key = "Option." + name;
    if (!session.AskText("SELECT Value FROM dbo.Meta WHERE [Key] = " + ServerText(key)).empty()) return;
    RunScript(session, script);
    KeepMeta(session, key, "1");
    return;
  }
  std::string known;
  for (const ServerScript& script : OptionScripts()) known += " " + std::string(script.name);
  throw CompanyError("این گزینه شناخته نیست: " + name + ". گزینه ها:" + known);
}

// Reading everything that reports read. Of writing only the figures that are worked out from the rest: a
// server whose procedures do not write with their owner's rights needs these, and they give a user nothing
// that the refresh does not.
void GrantReading(ServerSession& session) {
  const std::string role = kReaderRole;
  if (session.AskInteger("SELECT COUNT(*) FROM sys.database_principals WHERE name = " + ServerText(role)) ==
      0) {
    session.Run("CREATE ROLE " + role);
  }
  for (const ServerScript& script : SchemaScripts()) {
    for (const std::string_view batch : BatchesOf(script.text)) {
      const MadeObject object = ObjectOf(batch);
      const bool users =
          object.name == "Users" || object.name == "UserRights" || object.name == "SessionPrices";
      if ((object.kind == "TABLE" && !users) || object.kind == "VIEW") {
        session.Run("GRANT SELECT ON dbo." + object.name + " TO " + role);
      }
      if (object.kind == "FUNCTION") session.Run("GRANT EXECUTE ON dbo." + object.name + " TO " + role);
    }
  }
  for (const char* table : kDerivedTables) {
    session.Run(std::string("GRANT SELECT, INSERT, UPDATE, DELETE ON dbo.") + table + " TO " + role);
  }
  session.Run("GRANT UPDATE ON dbo.GoodInf(CurAva) TO " + role);
  for (const ServerScript& script : ProcedureScripts()) {
    session.Run("GRANT EXECUTE ON dbo." + std::string(script.name) + " TO " + role);
  }
}

// "missing: Table.Column" for what a table has not.
void CompareColumns(ServerSession& session, const std::string& table, std::string_view batch,
                    std::vector<std::string>& differences) {
  const RowStore rows = session.Ask(
      "SELECT COLUMN_NAME FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_SCHEMA = N'dbo' AND TABLE_NAME = " +
      ServerText(table));
  std::set<std::string> there;
  for (std::size_t row = 0; row < rows.Count(); ++row) there.insert(LowerAscii(rows.Cell(row, 0).AsText()));
  for (const std::string& column : ColumnsOfTable(batch)) {
    if (!there.contains(LowerAscii(column))) differences.push_back("missing: " + table + "." + column);
  }
}

// Readers then see one committed state and wait for no writer. A server that has no such settings reads so by
// itself.
void ReadSnapshots(ServerSession& session, const std::string& database) {
  for (const char* setting :
       {"READ_COMMITTED_SNAPSHOT ON WITH ROLLBACK IMMEDIATE", "ALLOW_SNAPSHOT_ISOLATION ON"}) {
    try {
      session.Run("ALTER DATABASE " + ServerName(database) + " SET " + setting);
    } catch (const CompanyError&) {
    }
  }
}

}  // namespace

void DeployCompany(const DeployOptions& options) {
  MakeDatabase(options.server, options.database);
  ServerSession session(InDatabase(options.server, options.database).ConnectionString());
  const std::optional<std::int64_t> version = VersionOf(session);
  if (version && *version > kServerSchemaVersion) {
    throw CompanyError("این پایگاه داده با نسخه تازه تری از برنامه ساخته شده است: " + options.database);
  }
  if (!version &&
      session.AskInteger("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = N'dbo'") != 0) {
    throw CompanyError("این پایگاه داده جدول های چیز دیگری دارد و به آن دست زده نشد: " + options.database);
  }
  if (version && !options.from.empty() && session.AskInteger("SELECT COUNT(*) FROM dbo.GoodInf") != 0) {
    throw CompanyError("این پایگاه داده کالا دارد و دوباره پر نمی شود: " + options.database);
  }
  ReadSnapshots(session, options.database);
  ServerTransaction transaction(session);
  if (version) {
    Upgrade(session, *version);
  } else {
    for (const ServerScript& script : SchemaScripts()) {
      if (IsTableScript(script)) RunScript(session, script);
    }
  }
  if (!options.from.empty()) {
    for (const ServerScript& script : SchemaScripts()) {
      if (!version || !IsTriggerScript(script)) continue;
      for (const std::string_view batch : BatchesOf(script.text))
        session.Run("DROP TRIGGER dbo." + ObjectOf(batch).name);
    }
    FillFromFile(session, options.from, options.told);
  }
  MakeCode(session);
  for (const std::string& option : options.with) MakeOption(session, option);
  GrantReading(session);
  KeepMeta(session, "SchemaVersion", std::to_string(kServerSchemaVersion));
  transaction.Commit();
  // What a server would find out only later: how many rows there are, by which it plans.
  if (!options.from.empty()) session.Run("EXEC sp_updatestats");
}

std::string CollationWarning(ServerAddress server, const std::string& database) {
  ServerSession session(InDatabase(std::move(server), database).ConnectionString());
  // As it arrives: some servers keep more within a statement than they send.
  if (session.AskText("SELECT 'پک' AS Name") == "پک") return {};
  return "ترتیب حروف (collation) این پایگاه داده متن فارسی بدون N را نگه نمی دارد؛ عنوان های تاریخچه قیمت در "
         "آن ناخوانا "
         "می شود. docs/server.md می گوید کدام ترتیب حروف مناسب است.";
}

std::vector<std::string> VerifyCompany(ServerAddress server, const std::string& database) {
  ServerSession session(InDatabase(std::move(server), database).ConnectionString());
  std::vector<std::string> differences;
  const std::optional<std::int64_t> version = VersionOf(session);
  if (!version) throw CompanyError("در این پایگاه داده شرکتی نیست: " + database);
  if (*version != kServerSchemaVersion) {
    differences.push_back("schema version " + std::to_string(*version) + ", this program deploys " +
                          std::to_string(kServerSchemaVersion));
  }
  const std::set<std::string> there = ObjectsOf(session);
  std::map<std::string, std::string> code = CodeOf(session);
  const auto look = [&](const ServerScript& script) {
    for (const std::string_view batch : BatchesOf(script.text)) {
      const MadeObject object = ObjectOf(batch);
      if (object.kind.empty() || object.kind == "INDEX") continue;
      if (!there.contains(LowerAscii(object.name))) {
        differences.push_back("missing: " + object.name);
      } else if (object.kind == "TABLE") {
        CompareColumns(session, object.name, batch, differences);
      } else if (code[LowerAscii(object.name)] != Words(batch)) {
        differences.push_back("changed: " + object.name);
      }
    }
  };
  for (const ServerScript& script : SchemaScripts()) look(script);
  for (const ServerScript& script : ProcedureScripts()) look(script);

  struct Figure {
    const char* what;
    const char* count;
  };
  constexpr Figure kFigures[] = {
      {"GoodStock",
       "SELECT COUNT(*) FROM dbo.GoodInf g LEFT JOIN dbo.GoodStock s ON s.Kala = g.Code LEFT JOIN (SELECT "
       "k.Kala, "
       "SUM(CASE WHEN k.Tedad > 0 THEN k.Tedad ELSE 0 END) AS varede, SUM(CASE WHEN k.Tedad < 0 THEN "
       "-k.Tedad ELSE 0 END) "
       "AS sadere, MAX(k.Date) AS LastDate FROM dbo.Kardex k GROUP BY k.Kala) m ON m.Kala = g.Code WHERE "
       "s.Kala IS NULL OR "
       "s.varede <> ISNULL(m.varede, 0) OR s.sadere <> ISNULL(m.sadere, 0) OR s.Mogodi <> s.varede - "
       "s.sadere OR "
       "s.OperationDate <> ISNULL(m.LastDate, N'')"},
      {"GoodStoreStock",
       "SELECT COUNT(*) FROM (SELECT k.Kala, k.Anbar, SUM(k.Tedad) AS Mogodi FROM dbo.Kardex k GROUP BY "
       "k.Kala, k.Anbar) m "
       "FULL JOIN dbo.GoodStoreStock s ON s.Kala = m.Kala AND s.Anbar = m.Anbar WHERE s.Kala IS NULL OR "
       "m.Kala IS NULL OR "
       "s.Mogodi <> m.Mogodi"},
      {"SearchNames",
       "SELECT COUNT(*) FROM dbo.GoodInf g LEFT JOIN dbo.SearchNames n ON n.Kind = 6 AND n.Code = g.Code "
       "WHERE n.Code IS NULL OR n.Name <> dbo.FoldPersian(g.Name)"}};
  // Figures can be told from what they are worked out with only where all of it is there.
  const bool complete =
      std::none_of(differences.begin(), differences.end(),
                   [](const std::string& difference) { return difference.starts_with("missing"); });
  if (!complete) return differences;
  for (const Figure& figure : kFigures) {
    const std::int64_t count = session.AskInteger(figure.count);
    if (count != 0)
      differences.push_back(std::string(figure.what) + ": " + std::to_string(count) + " rows differ");
  }
  return differences;
}

}  // namespace goods
