#include "company/embedded/negative_stock.h"

#include <cstdint>
#include <exception>
#include <new>
#include <utility>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/derived_columns.h"
#include "company/embedded/sqlite.h"

namespace goods {

namespace {

constexpr char kColumns[] = "CREATE TABLE x(Kala, Date, Radif, Anbar, Percode, Tedad, Gheymat, Comment)";
constexpr char kStockCard[] =
    "SELECT Kala, Date, Radif, Anbar, Percode, Tedad, Gheymat, Comment FROM Kardex ORDER BY Kala, Date, "
    "Radif";
enum ColumnIndex : int { kKala = 0, kRadif = 2, kAnbar = 3, kTedad = 5 };

struct Table : sqlite3_vtab {
  sqlite3* db = nullptr;
};

struct Cursor : sqlite3_vtab_cursor {
  Statement card;
  std::int64_t good = 0;
  KeyedSums inStore;
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
    table->zErrMsg = sqlite3_mprintf("%s", "حاصل از اندازه یک عدد بزرگتر است");
    return SQLITE_ERROR;
  }
}

void ToNextNegative(Cursor& cursor) {
  sqlite3_stmt* card = cursor.card.Handle();
  while (cursor.card.Step()) {
    const std::int64_t good = cursor.card.Integer(kKala);
    if (good != cursor.good) {
      cursor.good = good;
      cursor.inStore = KeyedSums();
    }
    const Int128 quantity = ColumnUnits(card, kTedad);
    const Decimal left = cursor.inStore.Add(cursor.card.Integer(kAnbar), Decimal::FromUnits(quantity));
    if (quantity < 0 && left < Decimal()) return;
  }
  cursor.atEnd = true;
}

int Connect(sqlite3* db, void*, int, const char* const*, sqlite3_vtab** result, char**) {
  const int code = sqlite3_declare_vtab(db, kColumns);
  if (code != SQLITE_OK) return code;
  auto* table = new (std::nothrow) Table();
  if (table == nullptr) return SQLITE_NOMEM;
  table->db = db;
  *result = table;
  return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* table) {
  delete &TableOf(table);
  return SQLITE_OK;
}

// The rows come in one order, whatever is asked.
int BestIndex(sqlite3_vtab*, sqlite3_index_info* plan) {
  bool inOrder = plan->nOrderBy <= kRadif + 1;
  for (int i = 0; i < plan->nOrderBy && inOrder; ++i) {
    inOrder = plan->aOrderBy[i].iColumn == i && plan->aOrderBy[i].desc == 0;
  }
  plan->orderByConsumed = inOrder ? 1 : 0;
  plan->estimatedCost = 1e6;
  plan->estimatedRows = 1000;
  return SQLITE_OK;
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

int Filter(sqlite3_vtab_cursor* base, int, const char*, int, sqlite3_value**) {
  return Guarded(base->pVtab, [&] {
    Cursor& cursor = CursorOf(base);
    cursor.card = Statement(TableOf(base->pVtab).db, kStockCard);
    cursor.inStore = KeyedSums();
    cursor.atEnd = false;
    ToNextNegative(cursor);
  });
}

int Next(sqlite3_vtab_cursor* base) {
  return Guarded(base->pVtab, [&] { ToNextNegative(CursorOf(base)); });
}

int AtEnd(sqlite3_vtab_cursor* base) { return CursorOf(base).atEnd ? 1 : 0; }

int ReadColumn(sqlite3_vtab_cursor* base, sqlite3_context* context, int column) {
  sqlite3_result_value(context, sqlite3_column_value(CursorOf(base).card.Handle(), column));
  return SQLITE_OK;
}

// Radif is the stock card's own unique number.
int Rowid(sqlite3_vtab_cursor* base, sqlite3_int64* rowid) {
  *rowid = CursorOf(base).card.Integer(kRadif);
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

// Without xCreate the table is there under its name alone, and none can be made. Its first use declares it
// for the life of the handle; that happens here, since a handle that may only read could not declare it
// later.
void RegisterNegativeStock(sqlite3* db) {
  sqlite3_create_module_v2(db, "negative_stock", &Module(), nullptr, nullptr);
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, "SELECT 1 FROM negative_stock", -1, &statement, nullptr);
  sqlite3_finalize(statement);
}

}  // namespace goods
