#include "company/embedded/select_translator.h"

#include <algorithm>
#include <utility>

#include "company/embedded/select_terms.h"
#include "host/core/text.h"

namespace goods {

namespace {

ColumnType ColumnTypeOf(TermType type) {
  return type == TermType::Integer   ? ColumnType::Integer
         : type == TermType::Decimal ? ColumnType::Decimal
                                     : ColumnType::Text;
}

struct Source {
  std::string alias;
  const CatalogTable* table = nullptr;
};

struct OutputColumn {
  std::string name;
  Term term;
};

// One SELECT with its own names in scope.
class SelectTranslator {
 public:
  SelectTranslator(const Catalog& catalog, std::string_view statement)
      : catalog_(catalog), statement_(statement) {}

  void Read(const SelectStatement& select) {
    std::string from = From(select);
    for (const SelectItem& item : select.items) ReadItem(item, columns_.size());
    if (sawAggregate_ && sawBareColumn_) {
      Fail("ستون و حاصل جمع در یک سطر با هم نمی آیند", select.offset);
    }
    if (select.where) {
      from += " WHERE " + NoAggregates(*select.where, "WHERE").sql;
    }
    rest_ = std::move(from);
    top_ = select.top;
  }

  std::vector<OutputColumn>& Columns() { return columns_; }

  std::string Sql(const std::string& order) const {
    std::string sql = "SELECT ";
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      sql += (i > 0 ? ", " : "") + columns_[i].term.sql + " AS " + QuotedName(columns_[i].name);
    }
    sql += rest_ + order;
    if (top_) sql += " LIMIT " + std::to_string(*top_);
    return sql;
  }

  std::string Order(const std::vector<OrderTerm>& terms) {
    std::string order;
    for (const OrderTerm& term : terms) {
      order += (order.empty() ? " ORDER BY " : ", ") + OrderKey(term.expression);
      if (term.descending) order += " DESC";
    }
    return order;
  }

  // The rows of the one text item, joined without anything between them.
  std::string JoinedSql() const {
    const std::string rows = "SELECT " + columns_[0].term.sql + " AS item" + rest_ +
                             (top_ ? " LIMIT " + std::to_string(*top_) : std::string());
    return "(SELECT group_concat(item, '') FROM (" + rows + "))";
  }

 private:
  [[noreturn]] void Fail(const std::string& reason, std::size_t offset) const {
    throw StatementError(reason, statement_, offset);
  }

  std::string From(const SelectStatement& select) {
    std::string sql;
    for (const TableReference& reference : select.tables) {
      Source source;
      source.table = catalog_.Find(reference.name);
      if (source.table == nullptr) Fail("جدول «" + reference.name + "» شناخته نیست", reference.offset);
      source.alias = reference.alias.empty() ? reference.name : reference.alias;
      for (const Source& other : sources_) {
        if (SameText(other.alias, source.alias))
          Fail("نام «" + source.alias + "» دو بار آمده است", reference.offset);
      }
      sources_.push_back(source);
      sql += sql.empty() ? " FROM " : " JOIN ";
      sql += QuotedName(source.table->name) + " AS " + QuotedName(source.alias);
      if (reference.on) sql += " ON " + NoAggregates(*reference.on, "ON").sql;
    }
    return sql;
  }

  void ReadItem(const SelectItem& item, std::size_t index) {
    if (item.everything) {
      if (sources_.empty()) Fail("برای * جدولی نیامده است", item.offset);
      bool found = false;
      for (const Source& source : sources_) {
        if (!item.qualifier.empty() && !SameText(item.qualifier, source.alias)) continue;
        found = true;
        for (const CatalogColumn& column : source.table->columns) {
          columns_.push_back({column.name, ColumnTerm(source, column)});
        }
      }
      if (!found) Fail("نام «" + item.qualifier + "» شناخته نیست", item.offset);
      sawBareColumn_ = true;
      return;
    }
    OutputColumn column;
    column.term = Translate(*item.expression);
    if (column.term.type == TermType::Condition) Fail("شرط ستون نمی شود", item.offset);
    column.name = item.alias;
    if (column.name.empty() && item.expression->kind == ExpressionKind::Column)
      column.name = item.expression->text;
    if (column.name.empty()) column.name = "Column" + std::to_string(index + 1);
    columns_.push_back(std::move(column));
  }

  Term NoAggregates(const Expression& condition, const char* where) {
    ++noAggregates_;
    Term term = Translate(condition);
    --noAggregates_;
    if (term.type != TermType::Condition)
      Fail(std::string("در این جای ") + where + " شرط لازم است", condition.offset);
    return term;
  }

  std::string OrderKey(const Expression& expression) {
    Term term;
    const auto named = [&](const OutputColumn& column) { return SameText(column.name, expression.text); };
    const auto column = std::find_if(columns_.begin(), columns_.end(), named);
    if (expression.kind == ExpressionKind::Column && expression.qualifier.empty() &&
        column != columns_.end()) {
      term = column->term;
    } else {
      ++noAggregates_;
      term = Translate(expression);
      --noAggregates_;
    }
    if (term.type == TermType::Condition || term.number) Fail("ترتیب باید با ستون باشد", expression.offset);
    return term.type == TermType::Decimal && !term.narrow ? "dec_key(" + term.sql + ")" : term.sql;
  }

  static Term ColumnTerm(const Source& source, const CatalogColumn& column) {
    Term term;
    term.sql = QuotedName(source.alias) + "." + QuotedName(column.name);
    term.type = column.type == ColumnType::Integer   ? TermType::Integer
                : column.type == ColumnType::Decimal ? TermType::Decimal
                                                     : TermType::Text;
    term.narrow = term.small = column.quantity;
    return term;
  }

  Term Column(const Expression& expression) {
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

  Term Translate(const Expression& expression) {
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

  Term Constant(const Expression& expression) const {
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

  Term Binary(const Expression& expression) {
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

  Term Negation(const Expression& expression) {
    Term term = Translate(expression.children[0]);
    if (!IsNumber(term)) Fail("منفی تنها برای عدد است", expression.offset);
    term.sql =
        term.type == TermType::Decimal && !term.small ? "dec_neg(" + term.sql + ")" : "(-" + term.sql + ")";
    return term;
  }

  Term NotCondition(const Expression& expression) {
    Term term = Translate(expression.children[0]);
    if (term.type != TermType::Condition) Fail("پس از NOT باید شرط باشد", expression.offset);
    term.sql = "(NOT " + term.sql + ")";
    return term;
  }

  Term InList(const Expression& expression) {
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

  Term NullTest(const Expression& expression) {
    Term operand = Translate(expression.children[0]);
    if (operand.type == TermType::Condition) Fail("IS NULL برای شرط نیست", expression.offset);
    Term test;
    test.type = TermType::Condition;
    test.sql = "(" + operand.sql + (expression.negated ? " IS NOT NULL)" : " IS NULL)");
    return test;
  }

  Term JoinedRows(const Expression& expression) {
    SelectTranslator inner(catalog_, statement_);
    inner.Read(*expression.rows);
    if (inner.columns_.size() != 1 || inner.columns_[0].term.type != TermType::Text) {
      Fail("FOR XML PATH یک ستون متنی می خواهد", expression.offset);
    }
    Term term;
    term.type = TermType::Text;
    term.sql = inner.JoinedSql();
    return term;
  }

  Term Function(const Expression& call) {
    const std::string name = LowerAscii(call.text);
    const std::size_t count = call.children.size();
    if (name == "isnull" && count == 2) return IfNull(call);
    if (name == "abs" && count == 1) return Absolute(call);
    if (name == "stuff" && count == 4) return Stuff(call);
    if (count == 1 && (name == "sum" || name == "min" || name == "max")) return Aggregate(name, call);
    if (name == "isnull" || name == "abs" || name == "stuff" || name == "sum" || name == "min" ||
        name == "max") {
      Fail("شمار ورودی های «" + call.text + "» درست نیست", call.offset);
    }
    Fail("تابع «" + call.text + "» شناخته نیست", call.offset);
  }

  Term IfNull(const Expression& call) {
    Term value = Translate(call.children[0]);
    Term other = Translate(call.children[1]);
    if (!Unify(value, other)) Fail("نوع دو ورودی «" + call.text + "» با هم نمی خواند", call.offset);
    Term term;
    term.type = value.type == TermType::Null ? other.type : value.type;
    term.narrow = value.narrow && other.narrow;
    term.sql = "ifnull(" + value.sql + ", " + other.sql + ")";
    return term;
  }

  Term Absolute(const Expression& call) {
    Term term = Translate(call.children[0]);
    if (!IsNumber(term)) Fail("«" + call.text + "» تنها برای عدد است", call.offset);
    term.number.reset();
    const bool direct = term.type == TermType::Integer || term.small;
    term.sql = (direct ? "abs(" : "dec_abs(") + term.sql + ")";
    return term;
  }

  Term Stuff(const Expression& call) {
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
    term.sql = "(substr(" + text.sql + ", 1, " + start.sql + " - 1) || " + with.sql + " || substr(" +
               text.sql + ", " + start.sql + " + " + length.sql + "))";
    return term;
  }

  Term Aggregate(const std::string& name, const Expression& call) {
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

  const Catalog& catalog_;
  std::string_view statement_;
  std::vector<Source> sources_;
  std::vector<OutputColumn> columns_;
  std::string rest_;
  std::optional<std::int64_t> top_;
  int insideAggregate_ = 0;
  int noAggregates_ = 0;
  bool sawAggregate_ = false;
  bool sawBareColumn_ = false;
};

// The columns of a union take the types that all of its parts can have, and the names of the first.
void UnifyParts(std::vector<SelectTranslator>& parts, const QueryStatement& query,
                std::string_view statement) {
  std::vector<OutputColumn>& first = parts[0].Columns();
  for (int pass = 0; pass < 2; ++pass) {
    for (std::size_t p = 1; p < parts.size(); ++p) {
      std::vector<OutputColumn>& other = parts[p].Columns();
      const std::size_t offset = query.selects[p].offset;
      if (other.size() != first.size())
        throw StatementError("شمار ستون های UNION یکی نیست", statement, offset);
      for (std::size_t c = 0; c < first.size(); ++c) {
        if (!Unify(first[c].term, other[c].term)) {
          throw StatementError("نوع ستون های UNION با هم نمی خواند", statement, offset);
        }
      }
    }
  }
}

std::string UnionOrder(const std::vector<OrderTerm>& terms, const std::vector<OutputColumn>& columns,
                       std::string_view statement) {
  std::string order;
  for (const OrderTerm& term : terms) {
    const auto named = [&](const OutputColumn& column) {
      return SameText(column.name, term.expression.text);
    };
    const auto column = std::find_if(columns.begin(), columns.end(), named);
    if (term.expression.kind != ExpressionKind::Column || column == columns.end()) {
      throw StatementError("ترتیب UNION باید با نام ستون باشد", statement, term.expression.offset);
    }
    const std::string name = QuotedName(column->name);
    order += (order.empty() ? " ORDER BY " : ", ") +
             (column->term.type == TermType::Decimal ? "dec_key(" + name + ")" : name);
    if (term.descending) order += " DESC";
  }
  return order;
}

}  // namespace

TranslatedQuery TranslateQuery(const QueryStatement& query, const Catalog& catalog,
                               std::string_view statement) {
  std::vector<SelectTranslator> parts;
  for (const SelectStatement& select : query.selects) {
    parts.emplace_back(catalog, statement);
    parts.back().Read(select);
  }
  TranslatedQuery result;
  if (parts.size() == 1) {
    result.sql = parts[0].Sql(parts[0].Order(query.order));
  } else {
    UnifyParts(parts, query, statement);
    for (const SelectTranslator& part : parts) {
      result.sql +=
          (result.sql.empty() ? "SELECT * FROM (" : " UNION ALL SELECT * FROM (") + part.Sql("") + ")";
    }
    result.sql =
        "SELECT * FROM (" + result.sql + ")" + UnionOrder(query.order, parts[0].Columns(), statement);
  }
  for (const OutputColumn& column : parts[0].Columns()) {
    result.columns.push_back({column.name, ColumnTypeOf(column.term.type)});
  }
  return result;
}

}  // namespace goods
