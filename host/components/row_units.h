// RowUnits: the units of measure that the rows of a table have their quantities in, and sums by unit.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/services/detailed_table.h"

namespace goods {

class TADOQuery;
class TGridColumn;
class TSmartDBGrid_QRT;

// In the place of a unit's name that a row does not have, and of a figure beyond the range of numbers.
inline constexpr const char* kNoUnit = "بدون واحد";
inline constexpr const char* kUnitTooLarge = "بیش از اندازه";

// Whether a column's quantities are in second units: where its own name ends with 2, or has one before an
// underscore, as beside another period.
bool InSecondUnit(const TGridColumn& column);

// Rows name the unit of their quantities in the field UnitName1, else UnitName, and that of their quantities
// in second units in UnitName2. Where they have no such field but the code of a good (KalaCode, GoodCode),
// the host is asked for the units of the goods; one that does not say, or cannot at the moment, leaves the
// rows without units.
class RowUnits {
 public:
  explicit RowUnits(const TSmartDBGrid_QRT& grid) : grid_(grid) {}

  struct Known {
    std::vector<std::string> names;     // an empty one for rows without a unit
    std::vector<std::uint32_t> ofRows;  // for each row of the store, an index into names
  };
  // Null where the rows name no unit. Worked out once, when it is first asked for.
  const Known* Of(bool second) const;

  // What the column's total comes to in each unit, as IDetailedTable::UnitSums has it.
  std::vector<UnitSum> Sums(const TGridColumn& column) const;

  // Called by the groups.
  void RowsChanged();

 private:
  Known Read(bool second) const;
  Known ReadNames(const TADOQuery& query, std::size_t field) const;
  Known ReadGoods(const TADOQuery& query, std::size_t field, bool second) const;

  const TSmartDBGrid_QRT& grid_;
  mutable std::optional<Known> known_[2];  // first, second; without names where rows name none
};

}  // namespace goods
