// A criterion as a value: a field, how it is compared, and with what; and what that is as a filter, as
// parameters, and in Persian.
#pragma once

#include <string>

namespace goods {

enum class DataKind { Text, Number, Amount };
enum class SearchOperator { Equals, Contains, Range };

// As a filter over rows: (F = 3), (F LIKE '%text%'), (F >= 'a' AND F <= 'b'), each behind NOT when excluding.
// As procedure parameters, the one rule for every report: @F=value for Equals and Contains, then @NotF=1 when
// excluding; @FromF=value and @ToF=value for Range, then @NotRangeF=1, so that a field may stand in a
// statement by value and by range at once. Values are written by the data kind: numbers bare, texts quoted; a
// value that is not of its kind, and an open bound, is left out. A criterion without any value is as good as
// unticked.
struct SearchCriterion {
  std::string Title{};  // of the field, for the reader
  std::string FieldName{};
  DataKind Kind = DataKind::Text;
  SearchOperator Operator = SearchOperator::Equals;
  bool Active = false;
  bool Exclude = false;
  std::string Value{};  // Equals and Contains
  std::string From{};   // Range; empty: open
  std::string To{};

  // Empty when the criterion says nothing.
  std::string DataSetCondition() const;
  std::string ProcParams() const;
  // The criterion in Persian, as it stands above a printed list: "نام کالا: پیچ", "کد کالا به جز از: 3 تا:
  // 7".
  std::string FarsiText() const;
};

}  // namespace goods
