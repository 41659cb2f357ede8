// The connection to the company database: the only road to it.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace goods {

class RowStore;

// What went wrong with a statement: the server's own message, and the statement that it was said of.
class DatabaseError : public std::runtime_error {
 public:
  DatabaseError(const std::string& message, std::string statement);
  ~DatabaseError() override;
  const std::string& Statement() const { return statement_; }

 private:
  std::string statement_;
};

// The server is gone: every further statement on this connection fails the same way until the host
// reconnects.
class ConnectionLost : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
  ~ConnectionLost() override;
};

// The user stopped a running statement. Nothing of its rows is kept.
class StatementCancelled : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
  ~StatementCancelled() override;
};

// Hears how a statement gets on. Called on the thread that asked for it, at least every 50 ms, also while a
// driver blocks, and every 4096 rows that this thread reads.
class IStatementProgress {
 public:
  virtual ~IStatementProgress();
  // rows: rows read so far. Returning false cancels the statement, which then throws StatementCancelled.
  virtual bool Progress(std::size_t rows) = 0;

  // For a listener that shows the first rows while the others are still being read. rows have been read so
  // far: how many of them would it be glad of now? 0, as here: of none. Asked before Progress, on the same
  // thread.
  virtual std::size_t FirstRowsWanted(std::size_t rows);
  // A copy of the first rows, finished; most often as many as were wanted. Comes behind that question or a
  // later one, on the same thread, and never from a connection that does not know its rows before the end.
  virtual void FirstRows(RowStore rows);
};

// A statement text reaches the database byte for byte. One statement a call.
//
// Threads: one thread at a time uses a connection. A connection may read on a thread of its own, but progress
// is always asked on the calling thread, within 50 ms of the last time even when the driver blocks for
// minutes, and a call that is told to stop comes back at once, whatever the driver does. The caller sees rows
// only when the call has returned, but for the copy of the first ones that its listener wants: first_rows.h
// hands them over. blocking_work.h is the way for drivers that block.
class IConnection {
 public:
  virtual ~IConnection();
  // Runs a statement that returns rows. into must be new: it gets the columns, then the rows, in blocks.
  // Throws DatabaseError; what into holds then is of no use. progress may be null.
  virtual void Open(std::string_view statement, RowStore& into, IStatementProgress* progress = nullptr) = 0;
  // Runs a statement for its effect; rows that it returns are dropped. Throws DatabaseError; the effect is
  // then undone.
  virtual void Execute(std::string_view statement, IStatementProgress* progress = nullptr) = 0;
};

}  // namespace goods
