// The kinds of operation that move a good, as stock-card rows carry them in Type.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "host/data/decimal.h"

namespace goods {

enum class MovementDirection { Incoming, Outgoing };

struct MovementType {
  int code = 0;
  std::string_view label;  // without the two blanks that the lists put before it
  MovementDirection direction = MovementDirection::Incoming;  // the sign that the operation gives a quantity
};

// The fifteen types of the choice lists, in their order.
std::span<const MovementType> OfferedMovementTypes();
std::optional<MovementType> FindOfferedMovementType(std::int64_t code);

// The direction of a row follows from the sign of its quantity, not from its type; none for a quantity of
// zero.
std::optional<MovementDirection> DirectionOf(Decimal quantity);

}  // namespace goods
