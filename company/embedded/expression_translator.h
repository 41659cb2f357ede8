// Expressions of a SELECT as SQL of the company file, with the tables that they may name in scope.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "company/embedded/catalog.h"
#include "company/embedded/select_terms.h"
#include "company/embedded/statement_parser.h"

namespace goods {

// A table in scope, under the name that expressions call it by.
struct Source {
  std::string alias;
  const CatalogTable* table = nullptr;
};

// What does not go together or is not known throws StatementError with its place in the statement.
class ExpressionTranslator {
 protected:
  explicit ExpressionTranslator(std::string_view statement) : statement_(statement) {}
  ExpressionTranslator(const ExpressionTranslator&) = default;
  ~ExpressionTranslator() = default;

  [[noreturn]] void Fail(const std::string& reason, std::size_t offset) const {
    throw StatementError(reason, statement_, offset);
  }

  Term Translate(const Expression& expression);
  // Where aggregates do not stand: a condition behind the word where.
  Term NoAggregates(const Expression& condition, const char* where);
  static Term ColumnTerm(const Source& source, const CatalogColumn& column);
  // The rows of a SELECT of its own, joined into one text.
  virtual Term JoinedRows(const Expression& expression) = 0;

  std::string_view statement_;
  std::vector<Source> sources_;
  int noAggregates_ = 0;
  bool sawAggregate_ = false;
  bool sawBareColumn_ = false;

 private:
  Term Column(const Expression& expression);
  Term Constant(const Expression& expression) const;
  Term Binary(const Expression& expression);
  Term Negation(const Expression& expression);
  Term NotCondition(const Expression& expression);
  Term InList(const Expression& expression);
  Term NullTest(const Expression& expression);
  Term Function(const Expression& call);
  Term IfNull(const Expression& call);
  Term Absolute(const Expression& call);
  Term Stuff(const Expression& call);
  Term CharIndex(const Expression& call);
  Term Aggregate(const std::string& name, const Expression& call);

  int insideAggregate_ = 0;
};

}  // namespace goods
