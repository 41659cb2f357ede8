// Documents as their viewers show them.
#pragma once

#include <cstdint>
#include <optional>

#include "company/company.h"

namespace goods {

class LookUps;

// None when there is no such document. Throws DatabaseError.
std::optional<DocumentView> ReadDocument(LookUps& lookUps, DocumentKind kind, std::int64_t code);

}  // namespace goods
