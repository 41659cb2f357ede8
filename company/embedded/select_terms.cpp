#include "company/embedded/select_terms.h"

#include <utility>

#include "company/embedded/decimal_cell.h"
#include "host/core/text.h"

namespace goods {

namespace {

// A number as a literal cell. The least 64-bit integer has no literal of its own in SQL, so it goes as a sum.
std::string CellLiteral(Int128 units) {
  if (FitsCell64(units)) {
    const auto value = static_cast<std::int64_t>(units);
    if (value == std::numeric_limits<std::int64_t>::min()) return "(-9223372036854775807 - 1)";
    return std::to_string(value);
  }
  constexpr char kDigits[] = "0123456789abcdef";
  std::string literal = "x'";
  for (const unsigned char byte : ToWideCell(units)) {
    literal += kDigits[byte >> 4];
    literal += kDigits[byte & 15];
  }
  return literal + "'";
}

std::string Call(const char* function, const std::string& first, const std::string& second) {
  return std::string(function) + "(" + first + ", " + second + ")";
}

Term DecimalResult(std::string sql) {
  Term term;
  term.sql = std::move(sql);
  term.type = TermType::Decimal;
  return term;
}

// A text constant beside a number means the number that it spells.
void ReadAsNumber(Term& term, const Term& other) {
  if (!term.text || !IsNumber(other)) return;
  const std::optional<Decimal> number = Decimal::Parse(Trim(*term.text));
  if (number) term = NumberTerm(*number, number->Rounded(0) == *number);
}

}  // namespace

Term NumberTerm(Decimal number, bool whole) {
  Term term;
  term.number = number;
  term.type = whole ? TermType::Integer : TermType::Decimal;
  term.sql = whole ? CellLiteral(number.Units() / Decimal::kOne) : CellLiteral(number.Units());
  term.narrow = !whole && FitsCell64(number.Units());
  return term;
}

Term TextTerm(std::string text) {
  Term term;
  term.sql = QuotedStr(text);
  term.type = TermType::Text;
  term.text = std::move(text);
  return term;
}

Term AsDecimal(Term term) {
  if (term.type != TermType::Integer) return term;
  if (term.number) return NumberTerm(*term.number, false);
  return DecimalResult("dec_of(" + term.sql + ")");
}

bool IsNumber(const Term& term) { return term.type == TermType::Integer || term.type == TermType::Decimal; }

std::string QuotedName(std::string_view name) { return "\"" + ReplaceAll(name, "\"", "\"\"") + "\""; }

std::optional<Term> Arithmetic(std::string_view op, const Term& left, const Term& right) {
  if (left.type == TermType::Null || right.type == TermType::Null)
    return Term{"NULL", TermType::Null, {}, {}};
  if (op == "+" && left.type == TermType::Text && right.type == TermType::Text) {
    Term joined;
    joined.sql = "(" + left.sql + " || " + right.sql + ")";
    joined.type = TermType::Text;
    return joined;
  }
  if (!IsNumber(left) || !IsNumber(right)) return std::nullopt;
  if (left.type == TermType::Integer && right.type == TermType::Integer) {
    Term whole;
    whole.sql = "(" + left.sql + " " + std::string(op) + " " + right.sql + ")";
    whole.type = TermType::Integer;
    return whole;
  }
  if ((op == "+" || op == "-") && left.small && right.small) {
    Term sum = DecimalResult("(" + left.sql + " " + std::string(op) + " " + right.sql + ")");
    sum.narrow = true;
    return sum;
  }
  const std::string first = AsDecimal(left).sql;
  const std::string second = AsDecimal(right).sql;
  const char* function = op == "+" ? "dec_add" : op == "-" ? "dec_sub" : op == "*" ? "dec_mul" : "dec_div";
  return DecimalResult(Call(function, first, second));
}

std::optional<Term> Comparison(std::string_view op, Term left, Term right) {
  ReadAsNumber(left, right);
  ReadAsNumber(right, left);
  if (!Unify(left, right)) return std::nullopt;
  Term test;
  test.type = TermType::Condition;
  const std::string sign = " " + std::string(op) + " ";
  const bool direct = left.type != TermType::Decimal || (left.narrow && right.narrow);
  test.sql = direct ? "(" + left.sql + sign + right.sql + ")"
                    : "(" + Call("dec_cmp", left.sql, right.sql) + sign + "0)";
  return test;
}

bool Unify(Term& left, Term& right) {
  if (left.type == TermType::Condition || right.type == TermType::Condition) return false;
  if (left.type == TermType::Null || right.type == TermType::Null) return true;
  if (IsNumber(left) && IsNumber(right)) {
    if (left.type != right.type) {
      left = AsDecimal(std::move(left));
      right = AsDecimal(std::move(right));
    }
    return true;
  }
  return left.type == right.type;
}

}  // namespace goods
