#include "module/framework/movement_types.h"

namespace goods {

std::optional<MovementType> MovementTypeOf(const Value& code) {
  if (code.IsNull()) return std::nullopt;
  const std::int64_t number = code.AsInteger();
  if (number < 0 || number >= static_cast<std::int64_t>(kMovementTypes.size())) return std::nullopt;
  return static_cast<MovementType>(number);
}

}  // namespace goods
