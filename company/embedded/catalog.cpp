#include "company/embedded/catalog.h"

#include "host/core/text.h"

namespace goods {

namespace {

constexpr const char* kReadable[] = {
    "Kardex",       "GoodInf",          "GoodInf_VW",        "GoodGrps",
    "Units",        "Stores",           "Persons",           "TagS",
    "colors",       "Categories",       "costlevel",         "CostLevelPrices",
    "DetailTypes",  "DetailTypesItems", "DetailValues",      "GoodDetails",
    "DetailKardex", "SelectedLists",    "SelectedListGoods", "MovementTypes",
    "GoodStock",    "GoodStoreStock",   "RialiStock",        "PlantedMismatches"};

}  // namespace

const CatalogColumn* CatalogTable::Find(std::string_view column) const {
  for (const CatalogColumn& candidate : columns) {
    if (SameText(candidate.name, column)) return &candidate;
  }
  return nullptr;
}

Catalog::Catalog(Database& db) {
  Statement columns = db.Prepare("SELECT name, type FROM pragma_table_xinfo(?1) ORDER BY cid");
  for (const char* name : kReadable) {
    CatalogTable table;
    table.name = name;
    columns.Bind(1, std::string_view(name));
    while (columns.Step()) {
      CatalogColumn column;
      column.name = columns.Text(0);
      const std::string_view type = columns.Text(1);
      column.quantity = type == "QUANTITY";
      column.type = column.quantity || type == "DECIMAL" ? ColumnType::Decimal
                    : type.starts_with("INTEGER")        ? ColumnType::Integer
                                                         : ColumnType::Text;
      table.columns.push_back(std::move(column));
    }
    columns.Reset();
    tables_.push_back(std::move(table));
  }
}

const CatalogTable* Catalog::Find(std::string_view table) const {
  for (const CatalogTable& candidate : tables_) {
    if (SameText(candidate.name, table)) return &candidate;
  }
  return nullptr;
}

}  // namespace goods
