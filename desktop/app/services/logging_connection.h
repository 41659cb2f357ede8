// LoggingConnection: the connection that reports are given. It logs each statement, and connects again after
// the connection was lost.
#pragma once

#include <functional>
#include <memory>

#include "desktop/app/services/statement_log.h"
#include "host/data/connection.h"

namespace goods {

class LoggingConnection : public IConnection {
 public:
  using Connect = std::function<std::unique_ptr<IConnection>()>;

  // Connects at once; connect may throw. log may be null and must outlive the connection.
  LoggingConnection(Connect connect, StatementLog* log);
  ~LoggingConnection() override;

  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override;
  void Execute(std::string_view statement, IStatementProgress* progress) override;

 private:
  template <typename Run>
  void Logged(std::string_view statement, Run&& run);

  Connect connect_;
  std::unique_ptr<IConnection> inner_;  // null after the connection was lost
  StatementLog* log_;
};

}  // namespace goods
