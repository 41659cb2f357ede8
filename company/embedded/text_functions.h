// fold_persian(text): the text as a Persian reader compares it; for searches.
#pragma once

#include <sqlite3.h>

namespace goods {

void RegisterTextFunctions(sqlite3* db);

}  // namespace goods
