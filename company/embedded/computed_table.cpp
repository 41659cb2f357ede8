#include "company/embedded/computed_table.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "company/embedded/sql_function.h"
#include "company/embedded/sqlite.h"

namespace goods {

namespace {

struct Table : sqlite3_vtab {
  sqlite3* db = nullptr;
  const ComputedTable* computed = nullptr;
};

struct Cursor : sqlite3_vtab_cursor {
  std::unique_ptr<ComputedRows> rows;
  std::int64_t place = 0;
  bool atEnd = true;
};

Table& TableOf(sqlite3_vtab* table) { return static_cast<Table&>(*table); }
Cursor& CursorOf(sqlite3_vtab_cursor* cursor) { return static_cast<Cursor&>(*cursor); }

// Nothing may be thrown through SQLite.
template <typename Body>
int Guarded(sqlite3_vtab* table, Body body) {
  try {
    body();
    return SQLITE_OK;
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  } catch (const SqliteError& error) {
    table->zErrMsg = sqlite3_mprintf("%s", error.what());
    return error.Code();
  } catch (const std::exception&) {
    table->zErrMsg = sqlite3_mprintf("%s", kTooLargeMessage);
    return SQLITE_ERROR;
  }
}

int Connect(sqlite3* db, void* computed, int, const char* const*, sqlite3_vtab** result, char**) {
  const auto* definition = static_cast<const ComputedTable*>(computed);
  const int code = sqlite3_declare_vtab(db, definition->columns);
  if (code != SQLITE_OK) return code;
  auto* table = new (std::nothrow) Table();
  if (table == nullptr) return SQLITE_NOMEM;
  table->db = db;
  table->computed = definition;
  *result = table;
  return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* table) {
  delete &TableOf(table);
  return SQLITE_OK;
}

// Arguments must all be there: they come from the call, or from a table that stands before this one. Without
// arguments one good may be asked for; SQLite then holds the rows against it once more. False: this order of
// the tables lacks one.
bool Plan(const ComputedTable& computed, sqlite3_index_info* plan) {
  const int most = std::max(computed.arguments, 1);
  std::vector<bool> given(static_cast<std::size_t>(most), false);
  for (int i = 0; i < plan->nConstraint; ++i) {
    const auto& constraint = plan->aConstraint[i];
    if (constraint.iColumn < 0 || constraint.iColumn >= most) continue;
    if (constraint.op != SQLITE_INDEX_CONSTRAINT_EQ || constraint.usable == 0) continue;
    const auto column = static_cast<std::size_t>(constraint.iColumn);
    if (given[column]) continue;
    given[column] = true;
    plan->aConstraintUsage[i].argvIndex = constraint.iColumn + 1;
    plan->aConstraintUsage[i].omit = computed.arguments > 0 ? 1 : 0;
  }
  if (computed.arguments > 0) {
    if (std::find(given.begin(), given.end(), false) != given.end()) return false;
    plan->estimatedCost = 10;
    plan->estimatedRows = 1;
  } else {
    plan->estimatedCost = given[0] ? 1e3 : 1e6;
    plan->estimatedRows = given[0] ? 10 : 10'000;
  }
  bool inOrder = plan->nOrderBy <= computed.ordered;
  for (int i = 0; i < plan->nOrderBy && inOrder; ++i) {
    inOrder = plan->aOrderBy[i].iColumn == i && plan->aOrderBy[i].desc == 0;
  }
  plan->orderByConsumed = inOrder ? 1 : 0;
  return true;
}

int BestIndex(sqlite3_vtab* table, sqlite3_index_info* plan) {
  bool possible = false;
  const int code = Guarded(table, [&] { possible = Plan(*TableOf(table).computed, plan); });
  return code == SQLITE_OK && !possible ? SQLITE_CONSTRAINT : code;
}

int OpenCursor(sqlite3_vtab*, sqlite3_vtab_cursor** result) {
  auto* cursor = new (std::nothrow) Cursor();
  if (cursor == nullptr) return SQLITE_NOMEM;
  *result = cursor;
  return SQLITE_OK;
}

int CloseCursor(sqlite3_vtab_cursor* cursor) {
  delete &CursorOf(cursor);
  return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* base, int, const char*, int count, sqlite3_value** values) {
  return Guarded(base->pVtab, [&] {
    Cursor& cursor = CursorOf(base);
    const Table& table = TableOf(base->pVtab);
    cursor.place = 0;
    cursor.atEnd = true;
    const std::span<sqlite3_value* const> given(values, static_cast<std::size_t>(count));
    const bool oneGood = table.computed->arguments == 0 && !given.empty();
    if (oneGood && sqlite3_value_type(given[0]) != SQLITE_INTEGER) return;
    if (!cursor.rows) cursor.rows = table.computed->make(table.db);
    cursor.rows->Start(given);
    cursor.atEnd = !cursor.rows->Next();
  });
}

int Next(sqlite3_vtab_cursor* base) {
  return Guarded(base->pVtab, [&] {
    Cursor& cursor = CursorOf(base);
    ++cursor.place;
    cursor.atEnd = !cursor.rows->Next();
  });
}

int AtEnd(sqlite3_vtab_cursor* base) { return CursorOf(base).atEnd ? 1 : 0; }

int ReadColumn(sqlite3_vtab_cursor* base, sqlite3_context* context, int column) {
  if (column < TableOf(base->pVtab).computed->arguments) return SQLITE_OK;
  return Guarded(base->pVtab, [&] { CursorOf(base).rows->Cell(context, column); });
}

int Rowid(sqlite3_vtab_cursor* base, sqlite3_int64* rowid) {
  *rowid = CursorOf(base).place;
  return SQLITE_OK;
}

const sqlite3_module& Module() {
  static const sqlite3_module module = [] {
    sqlite3_module made{};
    made.xConnect = Connect;
    made.xBestIndex = BestIndex;
    made.xDisconnect = Disconnect;
    made.xDestroy = Disconnect;
    made.xOpen = OpenCursor;
    made.xClose = CloseCursor;
    made.xFilter = Filter;
    made.xNext = Next;
    made.xEof = AtEnd;
    made.xColumn = ReadColumn;
    made.xRowid = Rowid;
    return made;
  }();
  return module;
}

}  // namespace

ComputedRows::~ComputedRows() = default;

// Without xCreate no other table of the kind can be made. Its first use declares it for the life of the
// handle; that happens here, since a handle that may only read could not declare it later.
void RegisterComputedTable(sqlite3* db, const ComputedTable& table) {
  sqlite3_create_module_v2(db, table.name, &Module(), const_cast<ComputedTable*>(&table), nullptr);
  std::string first = std::string("SELECT 1 FROM ") + table.name;
  for (int i = 0; i < table.arguments; ++i) first += i == 0 ? "(NULL" : ", NULL";
  if (table.arguments > 0) first += ")";
  const Statement declares(db, first);
}

}  // namespace goods
