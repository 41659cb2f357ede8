#include "host/services/detailed_table.h"

#include "host/services/good_units.h"

namespace goods {

IGoodUnits::~IGoodUnits() = default;
IDetailedTable::~IDetailedTable() = default;

std::vector<UnitSum> IDetailedTable::UnitSums(std::size_t /*column*/) const { return {}; }
std::size_t IDetailedTable::GroupLevels() const { return 0; }
std::size_t IDetailedTable::Level(std::size_t /*row*/) const { return 0; }
bool IDetailedTable::Folded(std::size_t /*row*/) const { return false; }
std::unique_ptr<IDetailedTable> IDetailedTable::Unfolded() const { return nullptr; }
bool IDetailedTable::Hidden(std::size_t /*row*/) const { return false; }

const IDetailedTable* DetailsOf(const IReportTable* table) {
  return dynamic_cast<const IDetailedTable*>(table);
}

std::size_t LevelOf(const IReportTable& table, std::size_t row) {
  const IDetailedTable* details = DetailsOf(&table);
  return details == nullptr ? 0 : details->Level(row);
}

}  // namespace goods
