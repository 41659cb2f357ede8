// What a detail row asks for: "this detail of the good has that value".
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace goods {

// A row as its controls hold it. What is no value yet is empty.
struct DetailValue {
  std::int64_t detail = 0;  // 0: none
  std::string title;
  std::int64_t type = 0;  // a DetailTypeCode, 0: unknown
  int listItem = -1;      // of the list of values; the first stands for none, -1 for a text of its own
  std::string value;      // of the list
  std::string from;
  std::string to;
  std::string fromDate;
  std::string toDate;
};

// What goes out and is told: a range, whose ends are equal for a single value.
struct DetailCondition {
  std::string from;
  std::string to;
  std::string caption;
};

// None where no detail is chosen, and where its value is not given. Dates are always given.
std::optional<DetailCondition> ConditionOf(const DetailValue& value);

}  // namespace goods
