// Random companies for the reports with one row a good, and their movements as the tables hold them.
#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "company_fixture.h"

namespace goods {

struct AssetCompanyShape {
  unsigned seed = 1;
  int stores = 7;
  int movements = 600;
  bool large = false;  // quantities and prices whose amounts leave 64 bits
};

// Stores have the codes 10, 13, 16 and so on; movements stand in them and in stores that the company does not
// have. Types are drawn from all of them, whatever the sign. Names hold both spellings of yeh and kaf, quotes
// and percent signs. Some goods have a second unit; the last has no movements.
void WriteAssetCompany(const std::string& path, const AssetCompanyShape& shape);

std::int64_t StoreCode(int position);  // from 0

struct AssetGood {
  std::int64_t code = 0;
  std::string name;
  std::string abbName;
  Decimal ratio;
};
std::vector<AssetGood> GoodsOfTables(IConnection& connection);

struct MovedRow {
  std::int64_t good = 0;
  std::string date;
  std::int64_t radif = 0;
  std::int64_t store = 0;
  std::int64_t type = 0;
  Decimal quantity;
  Decimal cost;     // of one unit
  Decimal price;    // of one unit on the document
  Decimal average;  // after the row
};
// By good, date and row number.
std::vector<MovedRow> MovementsOfTables(IConnection& connection);

// What a report calls its search parameters; abbName is empty where it has none.
struct SearchNames {
  std::string code, name, abbName, reverse;
};
// A search: its parameters in a statement, each with a comma behind it, and whether a good meets it.
struct DrawnSearch {
  std::string parameters;
  std::function<bool(const AssetGood&)> holds;
};
DrawnSearch RandomGoodSearch(std::mt19937& random, const SearchNames& names);

// A date of the companies, or an odd text now and then.
std::string RandomBound(std::mt19937& random);

}  // namespace goods
