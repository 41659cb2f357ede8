#include "company/embedded/company_schema.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "company/company.h"
#include "company/embedded/company_file.h"

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

void CheckCompanySchema(Database& db, bool current) {
  std::size_t tables = 0;
  for (const SchemaObject& object : Objects(db)) {
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
