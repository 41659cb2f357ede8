// What the measures of a detail row mean for a good, by its unit kind.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "module/framework/title_search_panel.h"

namespace goods {

// What statements send for a column.
enum TitleCode : std::int64_t {
  kPerson = 1,
  kComment = 2,
  kAmount1 = 3,
  kAmount2 = 4,
  kLength = 5,
  kWidth = 6,
  kAmount3 = 7,
  kUnitPrice = 8,
  kTotalPrice = 9,
};

// A measure that a unit kind uses: its field and the name that it has there.
struct UnitMeasure {
  std::string field;
  std::string caption;
};

// kind is 1 to 5, any other reads as 2; unit and unit2 are the names of the good's units.
std::vector<UnitMeasure> UnitMeasures(std::int64_t kind, const std::string& unit, const std::string& unit2);

// The columns that can be searched; an item's object is what statements send for it.
std::vector<TitleSearchItem> UnitSearchItems(std::int64_t kind, const std::string& unit,
                                             const std::string& unit2);

}  // namespace goods
