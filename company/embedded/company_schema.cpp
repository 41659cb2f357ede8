#include "company/embedded/company_schema.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <sqlite3.h>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/embedded/embedded_sql.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::size_t kMostObjects = 1000;

struct SchemaColumn {
  std::string name;
  std::string type;
  std::int64_t key = 0;     // place in the primary key, from 1
  std::int64_t hidden = 0;  // not 0: computed
};

struct SchemaObject {
  std::string type;
  std::string name;
  std::string sql;  // empty for an index that a key brings along
};

using Columns = std::vector<SchemaColumn>;

struct Schema {
  std::map<std::string, SchemaObject> objects;
  std::map<std::string, Columns> tables;
};

[[noreturn]] void Refuse(const std::string& name) {
  throw CompanyError("این فایل چیزی جز جدول های یک شرکت در خود دارد و باز نشد: «" + name.substr(0, 100) +
                     "»");
}

[[noreturn]] void Incomplete(const std::string& name) {
  throw CompanyError("جدول های این فایل جدول های یک شرکت نیستند و باز نشد: «" + name.substr(0, 100) + "»");
}

std::vector<SchemaObject> Objects(Database& db) {
  std::vector<SchemaObject> objects;
  Statement rows = db.Prepare("SELECT type, name, ifnull(sql, '') FROM sqlite_schema");
  while (rows.Step()) {
    if (objects.size() == kMostObjects) Refuse(std::string(rows.Text(1)));
    objects.push_back({std::string(rows.Text(0)), std::string(rows.Text(1)), std::string(rows.Text(2))});
  }
  return objects;
}

Columns ColumnsOf(Database& db, const std::string& table) {
  Statement rows = db.Prepare("SELECT name, type, pk, hidden FROM pragma_table_xinfo(?1)");
  rows.Bind(1, std::string_view(table));
  Columns columns;
  while (rows.Step()) {
    columns.push_back(
        {std::string(rows.Text(0)), std::string(rows.Text(1)), rows.Integer(2), rows.Integer(3)});
  }
  return columns;
}

// The definitions of SchemaSql and IndexesSql by their texts, which SQLite keeps as they were given.
struct Definition {
  std::string_view type;
  std::string_view name;
};
using Definitions = std::map<std::string_view, Definition>;

void AddDefinitions(std::string_view sql, Definitions& to) {
  constexpr std::string_view kCreate = "CREATE ";
  for (std::size_t at = 0; (at = sql.find(kCreate, at)) != std::string_view::npos;) {
    std::size_t end = sql.find(';', at);
    // Those within a trigger do not end it.
    while (end < sql.size() && sqlite3_complete(std::string(sql.substr(at, end + 1 - at)).c_str()) == 0) {
      end = sql.find(';', end + 1);
    }
    const std::string_view text = sql.substr(at, end - at);
    at += text.size();
    Definition definition;
    const std::string_view type = text.substr(kCreate.size());
    for (const std::string_view known : {"TABLE", "INDEX", "VIEW", "TRIGGER"}) {
      if (type.starts_with(known)) definition.type = known;
    }
    const std::string_view name = type.substr(std::min(definition.type.size() + 1, type.size()));
    definition.name = name.substr(0, name.find_first_of("( \n"));
    to[text] = definition;
  }
}

const Definitions& Written() {
  static const Definitions written = [] {
    Definitions definitions;
    AddDefinitions(SchemaSql(), definitions);
    AddDefinitions(IndexesSql(), definitions);
    return definitions;
  }();
  return written;
}

bool AreAsWritten(const std::vector<SchemaObject>& objects) {
  std::set<std::string_view> found;
  for (const SchemaObject& object : objects) {
    if (object.sql.empty() && object.type == "index") continue;
    const auto written = Written().find(object.sql);
    if (written == Written().end() || !SameText(written->second.type, object.type) ||
        written->second.name != object.name || !found.insert(written->first).second) {
      return false;
    }
  }
  return found.size() == Written().size();
}

// What this program would write.
const Schema& Expected() {
  static const Schema expected = [] {
    Database db(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    CreateCompanySchema(db);
    CreateCompanyIndexes(db);
    Schema schema;
    for (SchemaObject& object : Objects(db)) {
      if (object.type == "table") schema.tables[object.name] = ColumnsOf(db, object.name);
      schema.objects[object.name] = std::move(object);
    }
    return schema;
  }();
  return expected;
}

// On columns, without an expression or a condition.
bool IsPlainIndex(std::string_view sql) {
  const bool named = sql.starts_with("CREATE INDEX ") || sql.starts_with("CREATE UNIQUE INDEX ");
  return named && std::count(sql.begin(), sql.end(), '(') == 1 && sql.ends_with(')');
}

bool HasComputedColumn(const Columns& columns) {
  return std::any_of(columns.begin(), columns.end(),
                     [](const SchemaColumn& column) { return column.hidden != 0; });
}

const SchemaColumn* Find(const Columns& columns, const std::string& name) {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const SchemaColumn& column) { return column.name == name; });
  return found == columns.end() ? nullptr : &*found;
}

void CheckTable(Database& db, const SchemaObject& table, bool current) {
  // SQLite stores these words just so; a virtual table's begin otherwise.
  if (!table.sql.starts_with("CREATE TABLE ")) Refuse(table.name);
  const auto known = Expected().tables.find(table.name);
  const Columns columns = ColumnsOf(db, table.name);
  if (HasComputedColumn(columns)) {
    const bool ours = known != Expected().tables.end() && table.sql == Expected().objects.at(table.name).sql;
    if (!ours) Refuse(table.name);
  }
  if (known == Expected().tables.end()) return;
  for (const SchemaColumn& wanted : known->second) {
    const SchemaColumn* there = Find(columns, wanted.name);
    if (there == nullptr && !current) continue;
    if (there == nullptr || std::tie(there->type, there->key) != std::tie(wanted.type, wanted.key)) {
      Incomplete(table.name);
    }
  }
}

}  // namespace

bool IsSchemaAsWritten(Database& db) { return AreAsWritten(Objects(db)); }

void CheckCompanySchema(Database& db, bool current) {
  const std::vector<SchemaObject> objects = Objects(db);
  if (current && AreAsWritten(objects)) return;
  std::size_t tables = 0;
  for (const SchemaObject& object : objects) {
    const auto known = Expected().objects.find(object.name);
    const bool ours = known != Expected().objects.end() && known->second.type == object.type;
    if (object.type == "table") {
      CheckTable(db, object, current);
      tables += ours ? 1 : 0;
    } else if (object.type == "index") {
      if (!object.sql.empty() && !IsPlainIndex(object.sql)) Refuse(object.name);
    } else if (!ours || known->second.sql != object.sql) {
      Refuse(object.name);
    }
  }
  // The view stands or falls with its tables; a table that is not there at all is noticed here.
  if (current && tables < Expected().tables.size()) {
    for (const auto& [name, columns] : Expected().tables) {
      if (ColumnsOf(db, name).empty()) Incomplete(name);
    }
  }
}

}  // namespace goods
