// Documents as their viewers show them.
#pragma once

#include <cstdint>
#include <optional>

#include "company/company.h"
#include "company/embedded/sqlite.h"

namespace goods {

std::optional<DocumentView> ReadDocument(Database& db, DocumentKind kind, std::int64_t code);

}  // namespace goods
