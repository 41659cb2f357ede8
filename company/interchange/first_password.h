// No company begins with a password that everybody knows.
#pragma once

#include <string>

#include "company/embedded/sqlite.h"
#include "company/interchange/import_company.h"

namespace goods {

// Gives the first user with every right who has no password the given one, or a random one when it is empty,
// and notes in counts whose it is. Makes the user admin where nobody has every right.
void SetFirstPassword(Database& db, const std::string& password, ImportCounts& counts);

}  // namespace goods
