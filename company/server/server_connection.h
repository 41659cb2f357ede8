// Statements on a database server.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "host/data/connection.h"

namespace goods {

// How long things may take, in seconds; 0 waits for ever.
struct ServerTimeouts {
  int login = 15;
  int statement = 600;
  // Waiting for what another session has locked.
  int lock = 30;
};

// What the sessions of one company have prepared: on a server the unit prices of the money reports belong to
// a session, and one that takes the place of another has to prepare them again.
class PreparedPrices {
 public:
  void Keep(std::string_view statement);
  // The statement that prepared the last ones; empty: none were prepared.
  std::string Statement() const;

 private:
  mutable std::mutex mutex_;
  std::string statement_;
};

// The statement text goes to the server as it is, over ODBC; rows come in blocks. The driver blocks, so a
// statement with a listener runs on a thread of its own (host/data/blocking_work.h); cancelling is the
// driver's SQLCancel, and where the driver is deaf to it the connection is left behind and a new one made for
// the next statement. When the server is gone every statement throws ConnectionLost: the host makes a new
// connection at the user's next action. What the server says reaches the user in its own words. What Open
// reads is of one committed state where the database allows snapshots (deploy sees to it), so that a report
// of several statements adds up while others write.
class ServerConnection : public IConnection {
 public:
  // connectionString: of ODBC. prices, shared with the connections that came before, are prepared anew; null:
  // there were none. Connects at once; throws DatabaseError.
  explicit ServerConnection(std::string connectionString, ServerTimeouts timeouts = {},
                            std::shared_ptr<PreparedPrices> prices = nullptr);
  ~ServerConnection() override;
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress = nullptr) override;
  void Execute(std::string_view statement, IStatementProgress* progress = nullptr) override;

  struct Session;

 private:
  void Connect();
  void PreparePrices();
  // into null: rows are dropped.
  void Run(std::string_view statement, RowStore* into, IStatementProgress* progress);

  std::string connectionString_;
  ServerTimeouts timeouts_;
  std::shared_ptr<PreparedPrices> prices_;
  std::shared_ptr<Session> session_;
  bool lost_ = false;
};

}  // namespace goods
