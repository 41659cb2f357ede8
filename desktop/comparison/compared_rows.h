// The rows of two periods side by side, with their differences.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/data/connection.h"
#include "host/data/query.h"

namespace goods {

// The fields that the joined rows have of one figure.
struct ComparedFields {
  explicit ComparedFields(const std::string& field)
      : own(field), other(field + "_Other"), difference(field + "_Difference"), percent(field + "_Percent") {}
  std::string own;
  std::string other;
  std::string difference;  // own less other; a period without the row counts as zero
  std::string percent;     // of the other period's size; null where that is zero
};

struct Comparison {
  std::string key;                   // the field by which rows belong together
  std::vector<std::string> labels;   // fields that say what a row is about; the key may be among them
  std::vector<std::string> figures;  // fields of numbers that are compared
};

// All rows that were read of both queries: first those of own in the order read, then what only other has.
// Figures that a period lacks are null. Fields that a query does not have are null in its rows; several rows
// of one key belong together in the order read.
RowStore JoinPeriods(const TADOQuery& own, const TADOQuery& other, const Comparison& comparison);

// A connection whose every statement gives rows that are there already, once.
class JoinedRows : public IConnection {
 public:
  explicit JoinedRows(RowStore rows) : rows_(std::move(rows)) {}
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress = nullptr) override;
  void Execute(std::string_view statement, IStatementProgress* progress = nullptr) override;

 private:
  RowStore rows_;
};

}  // namespace goods
