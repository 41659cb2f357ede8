#include "company/embedded/expression_translator.h"

#include <utility>

#include "host/core/text.h"

namespace goods {

Term ExpressionTranslator::NoAggregates(const Expression& condition, const char* where) {
  ++noAggregates_;
  Term term = Translate(condition);
  --noAggregates_;
  if (term.type != TermType::Condition)
    Fail(std::string("در این جای ") + where + " شرط لازم است", condition.offset);
  return term;
}

Term ExpressionTranslator::ColumnTerm(const Source& source, const CatalogColumn& column) {
  Term term;
  term.sql = QuotedName(source.alias) + "." + QuotedName(column.name);
  term.type = column.type == ColumnType::Integer   ? TermType::Integer
              : column.type == ColumnType::Decimal ? TermType::Decimal
                                                   : TermType::Text;
  term.narrow = term.small = column.quantity;
  return term;
}

Term ExpressionTranslator::Column(const Expression& expression) {
  const Source* found = nullptr;
  const CatalogColumn* column = nullptr;
  for (const Source& source : sources_) {
    if (!expression.qualifier.empty() && !SameText(expression.qualifier, source.alias)) continue;
    const CatalogColumn* candidate = source.table->Find(expression.text);
    if (candidate == nullptr) continue;
    if (column != nullptr) Fail("ستون «" + expression.text + "» در بیش از یک جدول است", expression.offset);
    found = &source;
    column = candidate;
  }
  if (column == nullptr) Fail("ستون «" + expression.text + "» شناخته نیست", expression.offset);
  if (insideAggregate_ == 0 && noAggregates_ == 0) sawBareColumn_ = true;
  return ColumnTerm(*found, *column);
}

Term ExpressionTranslator::Translate(const Expression& expression) {
  switch (expression.kind) {
    case ExpressionKind::Constant:
      return Constant(expression);
    case ExpressionKind::Column:
      return Column(expression);
    case ExpressionKind::Function:
      return Function(expression);
    case ExpressionKind::Binary:
      return Binary(expression);
    case ExpressionKind::Negate:
      return Negation(expression);
    case ExpressionKind::Not:
      return NotCondition(expression);
    case ExpressionKind::In:
      return InList(expression);
    case ExpressionKind::IsNull:
      return NullTest(expression);
    case ExpressionKind::JoinedRows:
      return JoinedRows(expression);
  }
  Fail("عبارت ناشناخته", expression.offset);
}

Term ExpressionTranslator::Constant(const Expression& expression) const {
  if (const auto* text = std::get_if<std::string>(&expression.literal)) return TextTerm(*text);
  if (const auto* number = std::get_if<NumberValue>(&expression.literal)) {
    const bool whole = number->text.find('.') == std::string::npos;
    const std::optional<Decimal> value = Decimal::Parse(number->text);
    if (!value || (whole && !ParseInteger(number->text)))
      Fail("عدد بیش از اندازه بزرگ است", expression.offset);
    return NumberTerm(*value, whole);
  }
  return Term{"NULL", TermType::Null, {}, {}};
}

Term ExpressionTranslator::Binary(const Expression& expression) {
  const std::string& op = expression.text;
  Term left = Translate(expression.children[0]);
  Term right = Translate(expression.children[1]);
  if (op == "AND" || op == "OR") {
    if (left.type != TermType::Condition || right.type != TermType::Condition) {
      Fail("دو سوی " + op + " باید شرط باشد", expression.offset);
    }
    left.sql = "(" + left.sql + " " + op + " " + right.sql + ")";
    return left;
  }
  if (op == "LIKE") {
    if (left.type != TermType::Text || right.type != TermType::Text) {
      Fail("LIKE تنها برای متن است", expression.offset);
    }
    Term test;
    test.type = TermType::Condition;
    test.sql = "(fold_persian(" + left.sql + ")" + (expression.negated ? " NOT" : "") +
               " LIKE fold_persian(" + right.sql + "))";
    return test;
  }
  const bool arithmetic = op == "+" || op == "-" || op == "*" || op == "/";
  std::optional<Term> result = arithmetic ? Arithmetic(op, left, right) : Comparison(op, left, right);
  if (!result) Fail("نوع دو سوی «" + op + "» با هم نمی خواند", expression.offset);
  return *std::move(result);
}

Term ExpressionTranslator::Negation(const Expression& expression) {
  Term term = Translate(expression.children[0]);
  if (!IsNumber(term)) Fail("منفی تنها برای عدد است", expression.offset);
  term.sql =
      term.type == TermType::Decimal && !term.small ? "dec_neg(" + term.sql + ")" : "(-" + term.sql + ")";
  return term;
}

Term ExpressionTranslator::NotCondition(const Expression& expression) {
  Term term = Translate(expression.children[0]);
  if (term.type != TermType::Condition) Fail("پس از NOT باید شرط باشد", expression.offset);
  term.sql = "(NOT " + term.sql + ")";
  return term;
}

Term ExpressionTranslator::InList(const Expression& expression) {
  Term test;
  test.type = TermType::Condition;
  for (std::size_t i = 1; i < expression.children.size(); ++i) {
    const std::optional<Term> equal =
        Comparison("=", Translate(expression.children[0]), Translate(expression.children[i]));
    if (!equal) Fail("نوع فهرست IN با ستون نمی خواند", expression.children[i].offset);
    test.sql += (i > 1 ? " OR " : "") + equal->sql;
  }
  test.sql = (expression.negated ? "(NOT (" : "((") + test.sql + "))";
  return test;
}

Term ExpressionTranslator::NullTest(const Expression& expression) {
  Term operand = Translate(expression.children[0]);
  if (operand.type == TermType::Condition) Fail("IS NULL برای شرط نیست", expression.offset);
  Term test;
  test.type = TermType::Condition;
  test.sql = "(" + operand.sql + (expression.negated ? " IS NOT NULL)" : " IS NULL)");
  return test;
}

Term ExpressionTranslator::Function(const Expression& call) {
  const std::string name = LowerAscii(call.text);
  const std::size_t count = call.children.size();
  if (name == "isnull" && count == 2) return IfNull(call);
  if (name == "abs" && count == 1) return Absolute(call);
  if (name == "stuff" && count == 4) return Stuff(call);
  if (name == "charindex" && count == 2) return CharIndex(call);
  if (count == 1 && (name == "sum" || name == "min" || name == "max")) return Aggregate(name, call);
  if (name == "isnull" || name == "abs" || name == "stuff" || name == "charindex" || name == "sum" ||
      name == "min" || name == "max") {
    Fail("شمار ورودی های «" + call.text + "» درست نیست", call.offset);
  }
  Fail("تابع «" + call.text + "» شناخته نیست", call.offset);
}

Term ExpressionTranslator::IfNull(const Expression& call) {
  Term value = Translate(call.children[0]);
  Term other = Translate(call.children[1]);
  if (!Unify(value, other)) Fail("نوع دو ورودی «" + call.text + "» با هم نمی خواند", call.offset);
  Term term;
  term.type = value.type == TermType::Null ? other.type : value.type;
  term.narrow = value.narrow && other.narrow;
  term.sql = "ifnull(" + value.sql + ", " + other.sql + ")";
  return term;
}

Term ExpressionTranslator::Absolute(const Expression& call) {
  Term term = Translate(call.children[0]);
  if (!IsNumber(term)) Fail("«" + call.text + "» تنها برای عدد است", call.offset);
  term.number.reset();
  const bool direct = term.type == TermType::Integer || term.small;
  term.sql = (direct ? "abs(" : "dec_abs(") + term.sql + ")";
  return term;
}

Term ExpressionTranslator::Stuff(const Expression& call) {
  const Term text = Translate(call.children[0]);
  const Term start = Translate(call.children[1]);
  const Term length = Translate(call.children[2]);
  const Term with = Translate(call.children[3]);
  if (text.type != TermType::Text || start.type != TermType::Integer || length.type != TermType::Integer ||
      with.type != TermType::Text) {
    Fail("نوع ورودی های «" + call.text + "» درست نیست", call.offset);
  }
  Term term;
  term.type = TermType::Text;
  term.sql = "(substr(" + text.sql + ", 1, " + start.sql + " - 1) || " + with.sql + " || substr(" + text.sql +
             ", " + start.sql + " + " + length.sql + "))";
  return term;
}

// The empty text is nowhere.
Term ExpressionTranslator::CharIndex(const Expression& call) {
  const Term sought = Translate(call.children[0]);
  const Term text = Translate(call.children[1]);
  if (sought.type != TermType::Text || text.type != TermType::Text) {
    Fail("«" + call.text + "» تنها برای متن است", call.offset);
  }
  Term term;
  term.type = TermType::Integer;
  term.sql = "iif(" + sought.sql + " = '', 0, instr(fold_persian(" + text.sql + "), fold_persian(" +
             sought.sql + ")))";
  return term;
}

Term ExpressionTranslator::Aggregate(const std::string& name, const Expression& call) {
  if (insideAggregate_ > 0 || noAggregates_ > 0) Fail("«" + call.text + "» در این جا نمی آید", call.offset);
  sawAggregate_ = true;
  ++insideAggregate_;
  Term operand = Translate(call.children[0]);
  --insideAggregate_;
  if (operand.type == TermType::Condition || (name == "sum" && !IsNumber(operand))) {
    Fail("«" + call.text + "» تنها برای عدد است", call.offset);
  }
  Term term;
  term.type = operand.type;
  term.sql = (operand.type == TermType::Decimal ? "dec_" : "") + name + "(" + operand.sql + ")";
  return term;
}

}  // namespace goods
