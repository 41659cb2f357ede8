// Typed pieces of the SQL that a SELECT is translated into.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/data/decimal.h"
#include "host/data/value.h"

namespace goods {

enum class TermType { Null, Integer, Decimal, Text, Condition };

struct Term {
  std::string sql;
  TermType type = TermType::Null;
  std::optional<Decimal> number;    // of a number constant
  std::optional<std::string> text;  // of a text constant
  // How a decimal stands: always an INTEGER cell; and small enough that two of them add up in 64 bits.
  bool narrow = false;
  bool small = false;
};

Term NumberTerm(Decimal number, bool whole);
Term TextTerm(std::string text);
// The same amount as a decimal cell; the term must be an integer, a decimal or null.
Term AsDecimal(Term term);
bool IsNumber(const Term& term);
std::string QuotedName(std::string_view name);

// left op right for + - * /; none when the types do not go together. Adding texts joins them.
std::optional<Term> Arithmetic(std::string_view op, const Term& left, const Term& right);
// left op right for = <> < <= > >=; none when the types do not go together.
std::optional<Term> Comparison(std::string_view op, Term left, Term right);
// Makes two terms the same type, as the branches of one value must be; false when that cannot be.
bool Unify(Term& left, Term& right);

}  // namespace goods
