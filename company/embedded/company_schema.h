// Whether a file's schema is a company's, before anything in it is read or run.
#pragma once

#include "company/embedded/sqlite.h"

namespace goods {

// Throws CompanyError when the schema holds what a company's does not: a virtual table, a view or trigger
// that is not this program's own, computed columns and indexes on expressions other than ours, or tables
// without the columns, types and keys that are relied on. Tables and plain indexes of others are let be.
// current: the schema is of this program's version, and must be complete; an older one may lack what the
// upgrade brings.
void CheckCompanySchema(Database& db, bool current);

// Whether the schema is, definition by definition, the very text that this program writes into a new company,
// with nothing missing and nothing added. Such a file, which never was upgraded, needs no further look.
bool IsSchemaAsWritten(Database& db);

}  // namespace goods
