#include "company/embedded/stock_figures.h"

#include <cstdint>
#include <exception>
#include <new>
#include <string>
#include <string_view>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/sqlite.h"

namespace goods {

namespace {

constexpr char kColumns[] =
    "CREATE TABLE x(varede, sadere, Mogodi, gheymat_miangin, OperationDate,"
    " good HIDDEN, fromDate HIDDEN, toDate HIDDEN, store HIDDEN, others HIDDEN)";
enum ColumnIndex : int { kVarede, kSadere, kMogodi, kAverage, kOperationDate, kFirstArgument };
constexpr int kArguments = 5;

constexpr char kStored[] =
    "SELECT varede, sadere, Mogodi, gheymat_miangin, OperationDate FROM GoodStock WHERE Kala = ?1";
constexpr char kStoredInStore[] =
    "SELECT varede, sadere, Mogodi, OperationDate FROM GoodStoreStock WHERE Kala = ?1 AND Anbar = ?2";
constexpr char kStoredInOthers[] =
    "SELECT varede, sadere, Mogodi, OperationDate FROM GoodStoreStock WHERE Kala = ?1 AND Anbar <> ?2";
// The last movement first: it has the average and the date.
constexpr char kMoved[] =
    "SELECT Tedad, Anbar, Date, Miangin FROM Kardex WHERE Kala = ?1 AND Date >= ?2 AND Date <= ?3"
    " ORDER BY Date DESC, Radif DESC";
constexpr char kLastUpTo[] =
    "SELECT Miangin FROM Kardex WHERE Kala = ?1 AND Date <= ?2 ORDER BY Date DESC, Radif DESC LIMIT 1";
constexpr std::string_view kAfterEveryDate = "~";

struct Figures {
  Decimal varede;
  Decimal sadere;
  Decimal stock;
  Decimal average;
  std::string operationDate;
};

// Which stores are counted.
struct StoreChoice {
  std::int64_t store = 0;
  bool others = false;
  bool All() const { return store == 0; }
  bool Holds(std::int64_t code) const { return All() || (code == store) != others; }
};

struct Table : sqlite3_vtab {
  sqlite3* db = nullptr;
};

struct Cursor : sqlite3_vtab_cursor {
  Statement stored;
  Statement storedInStore;
  Statement storedInOthers;
  Statement moved;
  Statement lastUpTo;
  std::int64_t good = 0;
  Figures figures;
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

// A statement of the cursor, made on its first use, ready for a good. Reset at the end of the scope, so that
// no read is left open.
class Asked {
 public:
  Asked(Cursor& cursor, Statement& statement, const char* sql) : statement_(statement) {
    if (statement_.Handle() == nullptr) statement_ = Statement(TableOf(cursor.pVtab).db, sql);
    statement_.Bind(1, cursor.good);
  }
  Asked(const Asked&) = delete;
  Asked& operator=(const Asked&) = delete;
  ~Asked() { statement_.Reset(); }
  Statement* operator->() { return &statement_; }

 private:
  Statement& statement_;
};

void ReadStored(Cursor& cursor) {
  Asked row(cursor, cursor.stored, kStored);
  if (!row->Step()) return;
  Figures& figures = cursor.figures;
  figures = {row->Number(kVarede), row->Number(kSadere), row->Number(kMogodi), row->Number(kAverage), {}};
  figures.operationDate = row->Text(kOperationDate);
}

void ReadStoredInStores(Cursor& cursor, const StoreChoice& stores) {
  ReadStored(cursor);
  Figures& figures = cursor.figures;
  figures = {{}, {}, {}, figures.average, {}};
  Asked row = stores.others ? Asked(cursor, cursor.storedInOthers, kStoredInOthers)
                            : Asked(cursor, cursor.storedInStore, kStoredInStore);
  row->Bind(2, stores.store);
  while (row->Step()) {
    figures.varede += row->Number(kVarede);
    figures.sadere += row->Number(kSadere);
    figures.stock += row->Number(kMogodi);
    const std::string_view date = row->Text(3);
    if (figures.operationDate < date) figures.operationDate = date;
  }
}

void AddUpMovements(Cursor& cursor, std::string_view from, std::string_view to, const StoreChoice& stores) {
  if (to.empty()) to = kAfterEveryDate;
  Figures& figures = cursor.figures;
  Int128 incoming = 0;
  Int128 outgoing = 0;
  bool averageKnown = false;
  {
    Asked row(cursor, cursor.moved, kMoved);
    row->Bind(2, from);
    row->Bind(3, to);
    while (row->Step()) {
      if (!averageKnown) figures.average = row->Number(3);
      averageKnown = true;
      if (!stores.All() && !stores.Holds(row->Integer(1))) continue;
      const std::int64_t quantity = row->Integer(0);
      (quantity > 0 ? incoming : outgoing) += quantity;
      if (figures.operationDate.empty()) figures.operationDate = row->Text(2);
    }
  }
  figures.varede = Decimal::FromUnits(incoming);
  figures.sadere = Decimal::FromUnits(-outgoing);
  figures.stock = Decimal::FromUnits(incoming + outgoing);
  if (averageKnown || from.empty()) return;
  Asked row(cursor, cursor.lastUpTo, kLastUpTo);
  row->Bind(2, to);
  if (row->Step()) figures.average = row->Number(0);
}

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
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

// All arguments must be there: the good comes from a table that stands before this one.
int BestIndex(sqlite3_vtab*, sqlite3_index_info* plan) {
  int given = 0;
  for (int i = 0; i < plan->nConstraint; ++i) {
    const auto& constraint = plan->aConstraint[i];
    if (constraint.iColumn < kFirstArgument || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) continue;
    if (constraint.usable == 0) return SQLITE_CONSTRAINT;
    plan->aConstraintUsage[i].argvIndex = constraint.iColumn - kFirstArgument + 1;
    plan->aConstraintUsage[i].omit = 1;
    ++given;
  }
  if (given != kArguments) return SQLITE_CONSTRAINT;
  plan->estimatedCost = 10;
  plan->estimatedRows = 1;
  plan->idxFlags = SQLITE_INDEX_SCAN_UNIQUE;
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

int Filter(sqlite3_vtab_cursor* base, int, const char*, int, sqlite3_value** arguments) {
  return Guarded(base->pVtab, [&] {
    Cursor& cursor = CursorOf(base);
    cursor.atEnd = false;
    cursor.good = sqlite3_value_int64(arguments[0]);
    cursor.figures = {};
    const StoreChoice stores{sqlite3_value_int64(arguments[3]), sqlite3_value_int64(arguments[4]) == 1};
    const bool period =
        sqlite3_value_type(arguments[1]) != SQLITE_NULL || sqlite3_value_type(arguments[2]) != SQLITE_NULL;
    if (period) {
      AddUpMovements(cursor, TextOf(arguments[1]), TextOf(arguments[2]), stores);
    } else if (stores.All()) {
      ReadStored(cursor);
    } else {
      ReadStoredInStores(cursor, stores);
    }
  });
}

int Next(sqlite3_vtab_cursor* base) {
  CursorOf(base).atEnd = true;
  return SQLITE_OK;
}

int AtEnd(sqlite3_vtab_cursor* base) { return CursorOf(base).atEnd ? 1 : 0; }

void ReturnDecimal(sqlite3_context* context, Decimal value) {
  if (FitsCell64(value.Units())) {
    sqlite3_result_int64(context, static_cast<std::int64_t>(value.Units()));
  } else {
    const WideCell cell = ToWideCell(value.Units());
    sqlite3_result_blob(context, cell.data(), static_cast<int>(cell.size()), SQLITE_TRANSIENT);
  }
}

int ReadColumn(sqlite3_vtab_cursor* base, sqlite3_context* context, int column) {
  const Figures& figures = CursorOf(base).figures;
  switch (column) {
    case kVarede:
      ReturnDecimal(context, figures.varede);
      break;
    case kSadere:
      ReturnDecimal(context, figures.sadere);
      break;
    case kMogodi:
      ReturnDecimal(context, figures.stock);
      break;
    case kAverage:
      ReturnDecimal(context, figures.average);
      break;
    case kOperationDate:
      sqlite3_result_text(context, figures.operationDate.data(),
                          static_cast<int>(figures.operationDate.size()), SQLITE_TRANSIENT);
      break;
    default:
      break;
  }
  return SQLITE_OK;
}

int Rowid(sqlite3_vtab_cursor* base, sqlite3_int64* rowid) {
  *rowid = CursorOf(base).good;
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

void RegisterStockFigures(sqlite3* db) {
  sqlite3_create_module_v2(db, "stock_figures", &Module(), nullptr, nullptr);
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, "SELECT 1 FROM stock_figures(1, NULL, NULL, NULL, NULL)", -1, &statement, nullptr);
  sqlite3_finalize(statement);
}

}  // namespace goods
