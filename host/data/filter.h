// The filter language inside the data kit: a text becomes a tree, the tree a bit per row.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/data/decimal.h"
#include "host/data/row_store.h"

namespace goods {

enum class FilterOperator {
  Equal,
  NotEqual,
  Less,
  LessEqual,
  Greater,
  GreaterEqual,
  Like,
  NotLike,
  IsNull,
  IsNotNull
};

// One comparison of a field with a value.
struct FilterTest {
  std::string field;
  FilterOperator op = FilterOperator::Equal;
  bool number = false;  // value is a number as written, else a text
  std::string value;
  // Of the field and of the value in the filter text, in characters from 1.
  std::size_t fieldPlace = 0;
  std::size_t valuePlace = 0;
};

struct FilterNode {
  enum class Kind { All, And, Or, Not, Test };
  Kind kind = Kind::All;
  std::vector<FilterNode> children;  // one of a Not, two or more of And and Or
  FilterTest test;
};

// Brackets and NOTs within each other, at most; more is refused.
inline constexpr int kDeepestFilter = 100;

// Throws FilterError. An empty text is All.
FilterNode ParseFilter(std::string_view text);

// The fields that the tree names, in any order.
void CollectFields(const FilterNode& node, std::vector<std::string>& fields);

// The column of a field, null when there is none. The column must live as long as the evaluation.
using ColumnOfField = std::function<const Column*(std::string_view field)>;

// Sets the bits of the rows that the tree lets through: bit i % 64 of word i / 64. Bits beyond rowCount are
// 0. Throws FilterError when a field does not exist or a value does not fit its kind.
std::vector<std::uint64_t> EvaluateFilter(const FilterNode& node, const ColumnOfField& columnOf,
                                          std::size_t rowCount);

}  // namespace goods
