// The tables and views that a SELECT may name, with their columns' types as the schema declares them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "company/embedded/sqlite.h"
#include "host/data/value.h"

namespace goods {

struct CatalogColumn {
  std::string name;
  ColumnType type = ColumnType::Text;
  bool quantity = false;  // a decimal that always stands as an INTEGER cell
};

struct CatalogTable {
  std::string name;
  std::string sql;  // what a FROM reads: the quoted name, or a SELECT in parentheses
  std::vector<CatalogColumn> columns;
  // Null when there is no such column; letter case of A to Z apart.
  const CatalogColumn* Find(std::string_view column) const;
};

class Catalog {
 public:
  explicit Catalog(Database& db);
  // Null when there is no such table, or it is not for statements (users and rights are not).
  const CatalogTable* Find(std::string_view table) const;

 private:
  std::vector<CatalogTable> tables_;
};

}  // namespace goods
