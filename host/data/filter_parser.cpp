#include <array>
#include <utility>

#include "host/data/filter.h"
#include "host/data/filter_lexer.h"

namespace goods {
namespace {

class FilterParser {
 public:
  explicit FilterParser(std::string_view text) : lexer_(text) {}

  FilterNode Parse() {
    if (lexer_.Current().kind == FilterTokenKind::End) return {};
    FilterNode node = Any();
    if (lexer_.Current().kind != FilterTokenKind::End) lexer_.Fail("پس از شرط جز AND و OR نمی آید");
    return node;
  }

 private:
  FilterNode Any() {
    return Joined(FilterNode::Kind::Or, "OR", [this] { return All(); });
  }

  FilterNode All() {
    return Joined(FilterNode::Kind::And, "AND", [this] { return Single(); });
  }

  template <typename Part>
  FilterNode Joined(FilterNode::Kind kind, std::string_view word, Part part) {
    FilterNode first = part();
    if (!lexer_.IsWord(word)) return first;
    FilterNode joined;
    joined.kind = kind;
    joined.children.push_back(std::move(first));
    while (lexer_.TakeWord(word)) joined.children.push_back(part());
    return joined;
  }

  FilterNode Single() {
    if (lexer_.IsWord("NOT")) {
      Deeper();
      lexer_.Advance();
      FilterNode negated;
      negated.kind = FilterNode::Kind::Not;
      negated.children.push_back(Single());
      --depth_;
      return negated;
    }
    if (lexer_.IsSymbol("(")) {
      Deeper();
      lexer_.Advance();
      FilterNode inner = Any();
      if (!lexer_.TakeSymbol(")")) lexer_.Fail("پرانتز بسته نشده است");
      --depth_;
      return inner;
    }
    FilterNode node;
    node.kind = FilterNode::Kind::Test;
    node.test = Test();
    return node;
  }

  FilterTest Test() {
    FilterTest test;
    test.fieldPlace = lexer_.Current().place;
    test.field = FieldName();
    if (lexer_.TakeWord("IS")) {
      test.op = lexer_.TakeWord("NOT") ? FilterOperator::IsNotNull : FilterOperator::IsNull;
      if (!lexer_.TakeWord("NULL")) lexer_.Fail("پس از IS باید NULL یا NOT NULL بیاید");
      return test;
    }
    const bool negated = lexer_.TakeWord("NOT");
    if (lexer_.TakeWord("LIKE")) {
      test.op = negated ? FilterOperator::NotLike : FilterOperator::Like;
      if (lexer_.Current().kind != FilterTokenKind::Text) lexer_.Fail("پس از LIKE باید متن بیاید");
      TakeValue(test);
      return test;
    }
    if (negated) lexer_.Fail("پس از نام فیلد و NOT باید LIKE بیاید");
    test.op = Operator();
    if (lexer_.IsWord("NULL")) {
      NullTest(test);
    } else {
      TakeValue(test);
    }
    return test;
  }

  std::string FieldName() {
    static constexpr std::array<std::string_view, 6> kKeywords = {"AND", "OR", "NOT", "LIKE", "IS", "NULL"};
    const FilterToken token = lexer_.Current();
    const bool named = token.kind == FilterTokenKind::Word || token.kind == FilterTokenKind::Field;
    if (!named || token.text.empty()) lexer_.Fail("اینجا باید نام فیلد بیاید");
    for (const std::string_view keyword : kKeywords) {
      if (lexer_.IsWord(keyword)) lexer_.Fail("اینجا باید نام فیلد بیاید");
    }
    lexer_.Advance();
    return token.text;
  }

  FilterOperator Operator() {
    static constexpr std::array<std::pair<std::string_view, FilterOperator>, 6> kOperators = {{
        {"=", FilterOperator::Equal},
        {"<>", FilterOperator::NotEqual},
        {"<", FilterOperator::Less},
        {"<=", FilterOperator::LessEqual},
        {">", FilterOperator::Greater},
        {">=", FilterOperator::GreaterEqual},
    }};
    for (const auto& [symbol, op] : kOperators) {
      if (lexer_.TakeSymbol(symbol)) return op;
    }
    lexer_.Fail("پس از نام فیلد باید عملگر مقایسه بیاید");
  }

  void NullTest(FilterTest& test) {
    if (test.op != FilterOperator::Equal && test.op != FilterOperator::NotEqual) {
      lexer_.Fail("NULL را تنها با = و <> می توان سنجید");
    }
    test.op = test.op == FilterOperator::Equal ? FilterOperator::IsNull : FilterOperator::IsNotNull;
    lexer_.Advance();
  }

  void TakeValue(FilterTest& test) {
    const FilterToken& token = lexer_.Current();
    if (token.kind != FilterTokenKind::Number && token.kind != FilterTokenKind::Text) {
      lexer_.Fail("اینجا باید عدد، متن یا NULL بیاید");
    }
    test.number = token.kind == FilterTokenKind::Number;
    test.value = token.text;
    test.valuePlace = token.place;
    lexer_.Advance();
  }

  void Deeper() {
    if (++depth_ > kDeepestFilter) lexer_.Fail("شرط ها بیش از اندازه تو در تو هستند");
  }

  FilterLexer lexer_;
  int depth_ = 0;
};

}  // namespace

FilterNode ParseFilter(std::string_view text) { return FilterParser(text).Parse(); }

void CollectFields(const FilterNode& node, std::vector<std::string>& fields) {
  if (node.kind == FilterNode::Kind::Test) fields.push_back(node.test.field);
  for (const FilterNode& child : node.children) CollectFields(child, fields);
}

}  // namespace goods
