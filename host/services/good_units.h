// The units of measure of goods, for hosts that know them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

namespace goods {

// The names of a good's two units; the second is empty where it has none.
struct TGoodUnits {
  std::string Unit;
  std::string Unit2;
};

// By the goods' codes.
using TUnitsOfGoods = std::unordered_map<std::int64_t, TGoodUnits>;

// A host's look-ups (ILookups) that are this, too, tell the units of goods to tables whose rows do not name
// them.
class IGoodUnits {
 public:
  virtual ~IGoodUnits();
  // Of every good of the company. Asked for by grids, when sums are wanted by unit; may be some minutes old.
  // Null where they are not known. Throws DatabaseError.
  virtual std::shared_ptr<const TUnitsOfGoods> UnitsOfGoods() = 0;
};

}  // namespace goods
