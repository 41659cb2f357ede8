#include "company/embedded/select_translator.h"

#include <algorithm>
#include <utility>

#include "company/embedded/expression_translator.h"
#include "host/core/text.h"

namespace goods {

namespace {

ColumnType ColumnTypeOf(TermType type) {
  return type == TermType::Integer   ? ColumnType::Integer
         : type == TermType::Decimal ? ColumnType::Decimal
                                     : ColumnType::Text;
}

struct OutputColumn {
  std::string name;
  Term term;
};

// One SELECT with its own names in scope.
class SelectTranslator final : public ExpressionTranslator {
 public:
  SelectTranslator(const Catalog& catalog, std::string_view statement)
      : ExpressionTranslator(statement), catalog_(catalog) {}

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
      sql += source.table->sql + " AS " + QuotedName(source.alias);
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

  Term JoinedRows(const Expression& expression) override {
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

  const Catalog& catalog_;
  std::vector<OutputColumn> columns_;
  std::string rest_;
  std::optional<std::int64_t> top_;
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
