#include "desktop/app/services/logging_connection.h"

#include <chrono>
#include <string>
#include <utility>

#include "host/data/row_store.h"

namespace goods {

LoggingConnection::LoggingConnection(Connect connect, StatementLog* log)
    : connect_(std::move(connect)), inner_(connect_()), log_(log) {}

LoggingConnection::~LoggingConnection() = default;

template <typename Run>
void LoggingConnection::Logged(std::string_view statement, Run&& run) {
  const auto start = std::chrono::steady_clock::now();
  const auto write = [&](std::string_view outcome) {
    if (log_ == nullptr) return;
    const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
    log_->Write(statement, spent.count(), outcome);
  };
  try {
    if (inner_ == nullptr) inner_ = connect_();
    write(run(*inner_));
  } catch (const ConnectionLost& error) {
    inner_ = nullptr;
    write(std::string("error: ") + error.what());
    throw;
  } catch (const StatementCancelled&) {
    write("cancelled");
    throw;
  } catch (const std::exception& error) {
    write(std::string("error: ") + error.what());
    throw;
  }
}

void LoggingConnection::Open(std::string_view statement, RowStore& into, IStatementProgress* progress) {
  Logged(statement, [&](IConnection& inner) {
    inner.Open(statement, into, progress);
    return "rows " + std::to_string(into.Count());
  });
}

void LoggingConnection::Execute(std::string_view statement, IStatementProgress* progress) {
  Logged(statement, [&](IConnection& inner) {
    inner.Execute(statement, progress);
    return std::string("done");
  });
}

}  // namespace goods
