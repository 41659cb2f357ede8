// The company file as a file: its identity, its version, and opening it without harm.
#pragma once

#include <cstdint>
#include <string>

#include "company/embedded/sqlite.h"

namespace goods {

// "QRTC": marks a SQLite file as a company.
inline constexpr std::int32_t kCompanyApplicationId = 0x51525443;
// The schema that this program writes. Kept in the file's user_version.
inline constexpr int kCompanySchemaVersion = 5;

// Writes an empty company's schema into a new database. No transaction of its own.
void CreateCompanySchema(Database& db);
// The indexes; made last, once the tables are filled.
void CreateCompanyIndexes(Database& db);

// Looks at the file without changing it, and brings an older one up to date in one transaction. Throws
// CompanyError with a Persian message when the file cannot be used; it is then as it was.
// Returns whether the file may be written: a file marked read-only may not.
bool PrepareCompanyFile(const std::string& path);

}  // namespace goods
