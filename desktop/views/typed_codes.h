// Who wants to know which codes a user types; the look-ups of a host may.
#pragma once

#include <cstdint>

#include "host/services/lookups.h"

namespace goods {

class TForm;

class ITypedCodes {
 public:
  virtual ~ITypedCodes();
  // That code stands in an edit now by the user's keys, not accepted yet; 0 for none.
  virtual void CodeTyped(TForm& form, EntityType type, std::int64_t code) = 0;
};

}  // namespace goods
