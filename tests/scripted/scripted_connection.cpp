#include "tests/scripted/scripted_connection.h"

#include <algorithm>
#include <utility>

#include "host/core/text.h"

namespace goods {
namespace {

bool FitsType(ColumnType type, std::string_view cell) {
  if (type == ColumnType::Integer) return ParseInteger(cell).has_value();
  return type == ColumnType::Text || Decimal::Parse(cell).has_value();
}

void AppendCell(Column& column, const std::optional<std::string>& cell) {
  if (!cell) {
    column.AppendNull();
  } else if (column.Type() == ColumnType::Integer) {
    column.AppendInteger(*ParseInteger(*cell));
  } else if (column.Type() == ColumnType::Decimal) {
    column.AppendDecimal(*Decimal::Parse(*cell));
  } else {
    column.AppendText(*cell);
  }
}

}  // namespace

std::string ProblemOf(const CannedRows& rows) {
  for (const auto& row : rows.rows) {
    if (row.size() != rows.columns.size()) {
      return "a row has " + std::to_string(row.size()) + " cells, the heading " +
             std::to_string(rows.columns.size());
    }
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (row[i] && !FitsType(rows.columns[i].type, *row[i])) {
        return InQuotes(*row[i]) + " is no value of the column " + rows.columns[i].name;
      }
    }
  }
  return {};
}

bool MatchesPattern(std::string_view text, std::string_view pattern) {
  const std::size_t percent = pattern.find('%');
  if (percent == std::string_view::npos) return text == pattern;
  if (!text.starts_with(pattern.substr(0, percent))) return false;
  const std::string_view rest = pattern.substr(percent + 1);
  for (std::size_t from = percent; from <= text.size(); ++from) {
    if (MatchesPattern(text.substr(from), rest)) return true;
  }
  return false;
}

void ScriptedConnection::Answer(std::string pattern, CannedRows rows) {
  answers_.push_front({std::move(pattern), std::move(rows)});
}

void ScriptedConnection::FailNext(std::string pattern, std::string message) {
  failures_.push_back({std::move(pattern), std::move(message)});
}

void ScriptedConnection::Before(std::string_view how, std::string_view statement) {
  ++sent_;
  log_.AddStatement(how, statement);
  if (sent_ == failAt_) throw DatabaseError(failAtMessage_, std::string(statement));
  if (left_ && *left_ == 0) throw ConnectionLost("the connection is lost", std::string(statement));
  if (left_) --*left_;
  if (std::exchange(cancelNext_, false)) throw StatementCancelled("stopped", std::string(statement));
  const auto failure = std::find_if(failures_.begin(), failures_.end(), [&](const Failure& each) {
    return MatchesPattern(statement, each.pattern);
  });
  if (failure == failures_.end()) return;
  const std::string message = failure->message;
  failures_.erase(failure);
  throw DatabaseError(message, std::string(statement));
}

void ScriptedConnection::Open(std::string_view statement, RowStore& into, IStatementProgress* progress) {
  Before("Open", statement);
  if (real_ != nullptr) {
    real_->Open(statement, into, progress);
    return;
  }
  const auto answer = std::find_if(answers_.begin(), answers_.end(), [&](const CannedAnswer& each) {
    return MatchesPattern(statement, each.pattern);
  });
  if (answer == answers_.end()) {
    unanswered_.emplace_back(statement);
    throw DatabaseError("no rows are given for this statement", std::string(statement));
  }
  into.Define(answer->rows.columns);
  for (const auto& row : answer->rows.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) AppendCell(into.ColumnAt(i), row[i]);
    into.EndRow();
  }
  into.Finish();
}

void ScriptedConnection::Execute(std::string_view statement, IStatementProgress* progress) {
  Before("Execute", statement);
  if (real_ != nullptr) real_->Execute(statement, progress);
}

}  // namespace goods
