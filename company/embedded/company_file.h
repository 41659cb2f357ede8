// The company file as a file: its identity, its version, and opening it without harm.
#pragma once

#include <cstdint>
#include <string>

#include "company/embedded/sqlite.h"

namespace goods {

class IStatementProgress;

// "QRTC": marks a SQLite file as a company.
inline constexpr std::int32_t kCompanyApplicationId = 0x51525443;
// The schema that this program writes. Kept in the file's user_version.
inline constexpr int kCompanySchemaVersion = 7;

// What every use of a company says once its file is no longer the one that was opened.
inline constexpr char kMovedMessage[] = "فایل شرکت جابجا، پاک یا جایگزین شده است. شرکت را دوباره باز کنید.";

// Writes an empty company's schema into a new database. No transaction of its own.
void CreateCompanySchema(Database& db);
// The indexes; made last, once the tables are filled.
void CreateCompanyIndexes(Database& db);

// Looks at the file without changing it, and brings an older one up to date in one transaction. Throws
// CompanyError with a Persian message when the file cannot be used, OpeningCancelled when progress says so;
// it is then as it was. progress may be null. Returns whether the file may be written: a file marked
// read-only may not.
bool PrepareCompanyFile(const std::string& path, IStatementProgress* progress = nullptr);

// A handle on a prepared company, its schema checked again: another file may have come to its place. flags:
// SQLITE_OPEN_...; access Read or Write. Throws CompanyError.
Database OpenCompanyDatabase(const std::string& path, int flags, Access access);

}  // namespace goods
