#include "host/data/connection.h"

#include <utility>

#include "host/data/row_store.h"

namespace goods {

DatabaseError::DatabaseError(const std::string& message, std::string statement)
    : std::runtime_error(message), statement_(std::move(statement)) {}
DatabaseError::~DatabaseError() = default;

ConnectionLost::~ConnectionLost() = default;
StatementCancelled::~StatementCancelled() = default;

IStatementProgress::~IStatementProgress() = default;
std::size_t IStatementProgress::FirstRowsWanted(std::size_t /*rows*/) { return 0; }
void IStatementProgress::FirstRows(RowStore /*rows*/) {}

IConnection::~IConnection() = default;

}  // namespace goods
