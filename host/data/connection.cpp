#include "host/data/connection.h"

#include <utility>

namespace goods {

DatabaseError::DatabaseError(const std::string& message, std::string statement)
    : std::runtime_error(message), statement_(std::move(statement)) {}
DatabaseError::~DatabaseError() = default;

ConnectionLost::~ConnectionLost() = default;
StatementCancelled::~StatementCancelled() = default;

IStatementProgress::~IStatementProgress() = default;
IConnection::~IConnection() = default;

}  // namespace goods
