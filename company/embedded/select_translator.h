// Turns a parsed SELECT into SQLite's own SQL.
//
// Names are looked up in the catalog and written quoted; texts and numbers are written anew from their
// values, never copied. Arithmetic with decimals goes through the exact decimal functions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "company/embedded/catalog.h"
#include "company/embedded/statement_parser.h"
#include "host/data/row_store.h"

namespace goods {

struct TranslatedQuery {
  std::string sql;
  std::vector<ColumnInfo> columns;
};

// Throws StatementError for a name, a function or a combination of types that is not accepted.
TranslatedQuery TranslateQuery(const QueryStatement& query, const Catalog& catalog,
                               std::string_view statement);

}  // namespace goods
