// A connection that answers from a script and keeps every statement that reaches it.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/data/connection.h"
#include "host/data/row_store.h"
#include "tests/scripted/call_log.h"

namespace goods {

// The answer to a statement: columns with their types, and rows of cell texts; none is null.
struct CannedRows {
  std::vector<ColumnInfo> columns;
  std::vector<std::vector<std::optional<std::string>>> rows;
};

// Why canned rows cannot be: a cell that is not of its column's type, or a row of another length; empty when
// nothing is wrong.
std::string ProblemOf(const CannedRows& rows);

// True when the text is the pattern, where "%" stands for any text.
bool MatchesPattern(std::string_view text, std::string_view pattern);

class ScriptedConnection : public IConnection {
 public:
  // log must outlive the connection.
  explicit ScriptedConnection(CallLog& log) : log_(log) {}

  // Statements go on to this connection, which must outlive its use; canned answers are not used then.
  void SetReal(IConnection* real) { real_ = real; }

  // The answer to statements that match the pattern. Of several that match, the one given last counts.
  void Answer(std::string pattern, CannedRows rows);
  // The next statement that matches fails with the message, once.
  void FailNext(std::string pattern, std::string message);
  // The n-th statement from the beginning on fails with the message, once.
  void FailAt(std::size_t number, std::string message) {
    failAt_ = number;
    failAtMessage_ = std::move(message);
  }
  // The next statement is stopped by the user.
  void CancelNext() { cancelNext_ = true; }
  // Something was said about a next statement, and it never came.
  bool StillWaits() const { return cancelNext_ || !failures_.empty(); }
  // From the statement after the next count ones on, the connection is lost.
  void LoseAfter(std::size_t count) { left_ = count; }
  void Reconnect() { left_.reset(); }

  std::size_t SentCount() const { return sent_; }

  // Statements that asked for rows and had no answer; they failed.
  const std::vector<std::string>& Unanswered() const { return unanswered_; }

  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress = nullptr) override;
  void Execute(std::string_view statement, IStatementProgress* progress = nullptr) override;

 private:
  void Before(std::string_view how, std::string_view statement);

  struct CannedAnswer {
    std::string pattern;
    CannedRows rows;
  };
  struct Failure {
    std::string pattern;
    std::string message;
  };

  CallLog& log_;
  IConnection* real_ = nullptr;
  std::deque<CannedAnswer> answers_;
  std::deque<Failure> failures_;
  bool cancelNext_ = false;
  std::size_t sent_ = 0;
  std::size_t failAt_ = 0;
  std::string failAtMessage_;
  std::optional<std::size_t> left_;  // statements until the connection is lost
  std::vector<std::string> unanswered_;
};

}  // namespace goods
