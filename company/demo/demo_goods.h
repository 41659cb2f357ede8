// The demo company's goods and the small tables around them.
#pragma once

#include <cstdint>
#include <vector>

#include "company/demo/demo_company.h"
#include "company/demo/random.h"
#include "company/writer/company_writer.h"

namespace goods {

// What the movements need to know of a good. Quantities here are in thousandths of a unit.
struct DemoGood {
  std::int64_t price = 0;  // rials a unit, in the first year
  std::int64_t ratio = 0;  // first units in a second one; 0 for none
  int unitKind = 2;
  bool fractional = false;  // sold in parts of a unit
  bool mayGoNegative = false;
  std::int64_t firstDetailValue = 0;  // ids of its combinations of detail values; 0 when it keeps none
  std::int64_t detailValues = 0;
};

struct DemoPeople {
  std::int64_t suppliers = 0;  // codes 1 to suppliers
  std::int64_t persons = 0;    // codes suppliers + 1 to persons are customers
};

// The good with the given place has code place + 1.
std::vector<DemoGood> WriteDemoGoods(CompanyWriter& writer, const DemoOptions& options, Random& random);
DemoPeople WriteDemoPeople(CompanyWriter& writer, const DemoOptions& options);
void WriteDemoStores(CompanyWriter& writer, const DemoOptions& options);
// Tags, colours, categories, detail types, price levels and saved lists. Goods first.
void WriteDemoTables(CompanyWriter& writer);

}  // namespace goods
