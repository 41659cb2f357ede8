// The statements that a company understands, as trees.
//
//   statement  := exec | query
//   exec       := (EXEC | EXECUTE) [schema "."] name [argument ("," argument)*]
//   argument   := ["@"name "="] value
//   value      := ["+" | "-"] number | text | NULL
//   query      := select (UNION ALL select)* [ORDER BY term ("," term)*]
//   select     := SELECT [TOP n | TOP "(" n ")"] item ("," item)* [FROM table (join)*] [WHERE condition]
//   item       := "*" | name "." "*" | alias "=" expression | expression [[AS] alias]
//   table      := ["dbo" "."] name [[AS] alias];   join := [INNER] JOIN table ON condition
//   condition  := comparison joined with AND, OR, NOT and parentheses
//   comparison := e (= | <> | < | <= | > | >=) e | e [NOT] LIKE e | e [NOT] IN "(" e ("," e)* ")"
//                 | e IS [NOT] NULL
//   expression := numbers, texts, NULL, columns, functions, + - * /, parentheses,
//                 "(" select FOR XML PATH "(" '' ")" ")"
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "company/embedded/statement_lexer.h"

namespace goods {

struct NullValue {};
// A number keeps its text: its kind is known only where it is used.
struct NumberValue {
  std::string text;
};
using Literal = std::variant<NullValue, NumberValue, std::string>;

struct Argument {
  std::string name;  // with its "@"; empty for a positional one
  Literal value;
  std::size_t offset = 0;
};

struct ExecStatement {
  std::string procedure;
  std::size_t offset = 0;
  std::vector<Argument> arguments;
};

enum class ExpressionKind { Constant, Column, Function, Binary, Negate, Not, In, IsNull, JoinedRows };

struct SelectStatement;

// text: the operator, the function's name, or the column's name. negated: NOT IN, NOT LIKE, IS NOT NULL.
struct Expression {
  ExpressionKind kind = ExpressionKind::Constant;
  std::string text;
  std::string qualifier;
  Literal literal;
  bool negated = false;
  std::vector<Expression> children;
  std::shared_ptr<SelectStatement> rows;  // of JoinedRows
  std::size_t offset = 0;
};

struct SelectItem {
  bool everything = false;
  std::string qualifier;  // of "name.*"
  std::optional<Expression> expression;
  std::string alias;
  std::size_t offset = 0;
};

struct TableReference {
  std::string name;
  std::string alias;
  std::optional<Expression> on;
  std::size_t offset = 0;
};

struct OrderTerm {
  Expression expression;
  bool descending = false;
};

struct SelectStatement {
  std::optional<std::int64_t> top;
  std::vector<SelectItem> items;
  std::vector<TableReference> tables;
  std::optional<Expression> where;
  std::size_t offset = 0;
};

struct QueryStatement {
  std::vector<SelectStatement> selects;
  std::vector<OrderTerm> order;
};

using ParsedStatement = std::variant<ExecStatement, QueryStatement>;

// Throws StatementError.
ParsedStatement ParseStatement(std::string_view statement);

}  // namespace goods
