#include "company/embedded/catalog.h"

#include "company/embedded/look_up_views.h"
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

CatalogColumn ColumnDeclared(std::string_view declaration) {
  const std::vector<std::string> words = Split(Trim(declaration), ' ');
  CatalogColumn column;
  column.name = words.at(0);
  column.quantity = words.at(1) == "quantity";
  column.type = column.quantity || words[1] == "decimal" ? ColumnType::Decimal
                : words[1] == "integer"                  ? ColumnType::Integer
                                                         : ColumnType::Text;
  return column;
}

CatalogTable TableOf(const LookUpView& view) {
  CatalogTable table;
  table.name = view.name;
  table.sql = std::string("(") + view.select + ")";
  for (const std::string& declaration : Split(view.columns, ',')) {
    table.columns.push_back(ColumnDeclared(declaration));
  }
  return table;
}

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
    table.sql = std::string("\"") + name + "\"";
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
  for (const LookUpView& view : LookUpViews()) tables_.push_back(TableOf(view));
}

const CatalogTable* Catalog::Find(std::string_view table) const {
  for (const CatalogTable& candidate : tables_) {
    if (SameText(candidate.name, table)) return &candidate;
  }
  return nullptr;
}

}  // namespace goods
