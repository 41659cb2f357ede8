// RowCondition: what a user asks of the rows that were read, beside the filter of the report.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/data/row_store.h"
#include "host/data/value.h"

namespace goods {

enum class ConditionKind { Equal, NotEqual, Contains, From, To, OneOf };

// A condition on one field. A null cell and an empty text are the same to it: Equal, NotEqual and OneOf find
// them by a null among the values; From, To and Contains never let them through. Texts are compared exactly
// by Equal, NotEqual and OneOf, folded (FoldPersian) by Contains, and in the order of the Persian alphabet,
// which is also that of dates, by From and To; both ends belong to the range. Numbers are compared as
// numbers.
struct RowCondition {
  std::string field;
  ConditionKind kind = ConditionKind::Equal;
  // One value; any number of them for OneOf. Contains takes the text of its value.
  std::vector<Value> values;
  // Numbers are rounded to so many decimals before they are compared, so that what looks equal is equal; -1
  // compares them as they are.
  int decimals = -1;

  friend bool operator==(const RowCondition&, const RowCondition&) = default;
};

// Sets the bits of the rows that meet the condition: bit i % 64 of word i / 64. Never throws for a value that
// does not fit the column: a text meets a condition on numbers by its shortest text, and the other way round.
std::vector<std::uint64_t> EvaluateCondition(const RowCondition& condition, const Column& column,
                                             std::size_t rowCount);

}  // namespace goods
