#include "company/embedded/statement_parser.h"

#include <utility>

#include "host/core/text.h"

namespace goods {

namespace {

// Words that end a name where a name could also stand.
constexpr std::string_view kReserved[] = {"select", "from",  "where",  "order",  "by",     "union", "all",
                                          "as",     "on",    "join",   "inner",  "and",    "or",    "not",
                                          "in",     "is",    "null",   "like",   "top",    "for",   "group",
                                          "having", "exec",  "insert", "update", "delete", "drop",  "into",
                                          "create", "alter", "with",   "left",   "right",  "full",  "cross"};
constexpr int kDeepest = 64;

class Parser {
 public:
  explicit Parser(std::string_view statement) : statement_(statement), tokens_(Tokenize(statement)) {}

  ParsedStatement Run() {
    if (IsWord("exec") || IsWord("execute")) {
      ++at_;
      ExecStatement exec = Exec();
      ExpectEnd();
      return exec;
    }
    if (IsWord("select")) {
      QueryStatement query = Query();
      ExpectEnd();
      return query;
    }
    if (Now().kind == TokenKind::End) Fail("دستور خالی است");
    Fail("دستور باید با EXEC یا SELECT آغاز شود");
  }

 private:
  const Token& Now() const { return tokens_[at_]; }
  const Token& Ahead() const { return tokens_[at_ + 1 < tokens_.size() ? at_ + 1 : at_]; }
  bool IsWord(std::string_view word) const {
    return Now().kind == TokenKind::Word && !Now().bracketed && SameText(Now().text, word);
  }
  bool IsSymbol(std::string_view symbol) const {
    return Now().kind == TokenKind::Symbol && Now().text == symbol;
  }
  bool TakeWord(std::string_view word) {
    if (!IsWord(word)) return false;
    ++at_;
    return true;
  }
  bool TakeSymbol(std::string_view symbol) {
    if (!IsSymbol(symbol)) return false;
    ++at_;
    return true;
  }
  [[noreturn]] void Fail(const std::string& reason) const {
    throw StatementError(reason, statement_, Now().offset);
  }
  void ExpectWord(std::string_view word) {
    if (!TakeWord(word)) Fail("در این جا " + LowerAscii(word) + " لازم است");
  }
  void ExpectSymbol(std::string_view symbol) {
    if (!TakeSymbol(symbol)) Fail("در این جا «" + std::string(symbol) + "» لازم است");
  }
  void ExpectDbo(std::string_view schema, std::size_t offset) const {
    if (!SameText(schema, "dbo")) throw StatementError("نام پیش از نقطه باید dbo باشد", statement_, offset);
  }
  void ExpectEnd() const {
    if (Now().kind != TokenKind::End) Fail("پس از پایان دستور چیزی افزوده است: «" + Now().text + "»");
  }

  bool IsName() const {
    if (Now().kind != TokenKind::Word) return false;
    if (Now().bracketed) return true;
    for (const std::string_view word : kReserved) {
      if (SameText(word, Now().text)) return false;
    }
    return true;
  }
  std::string Name(const char* what) {
    if (!IsName()) Fail(std::string("در این جا ") + what + " لازم است");
    return tokens_[at_++].text;
  }

  ExecStatement Exec() {
    ExecStatement exec;
    exec.offset = Now().offset;
    exec.procedure = Name("نام روال");
    if (TakeSymbol(".")) {
      ExpectDbo(exec.procedure, exec.offset);
      exec.offset = Now().offset;
      exec.procedure = Name("نام روال");
    }
    if (Now().kind == TokenKind::End) return exec;
    do {
      exec.arguments.push_back(OneArgument());
    } while (TakeSymbol(","));
    return exec;
  }

  Argument OneArgument() {
    Argument argument;
    argument.offset = Now().offset;
    if (Now().kind == TokenKind::Parameter) {
      argument.name = tokens_[at_++].text;
      ExpectSymbol("=");
      // An end of a range that was left empty comes out so.
      if (IsSymbol(",") || Now().kind == TokenKind::End) {
        Fail("برای " + argument.name + " مقداری داده نشده است");
      }
    }
    argument.value = Value();
    return argument;
  }

  Literal Value() {
    const bool minus = IsSymbol("-");
    if (minus || IsSymbol("+")) {
      ++at_;
      if (Now().kind != TokenKind::Number) Fail("پس از علامت باید عدد باشد");
    }
    if (Now().kind == TokenKind::Number) return NumberValue{(minus ? "-" : "") + tokens_[at_++].text};
    if (Now().kind == TokenKind::Text) return tokens_[at_++].text;
    if (TakeWord("null")) return NullValue{};
    Fail("در این جا عدد، متن یا NULL لازم است");
  }

  QueryStatement Query() {
    QueryStatement query;
    query.selects.push_back(Select());
    while (TakeWord("union")) {
      ExpectWord("all");
      query.selects.push_back(Select());
    }
    if (TakeWord("order")) {
      ExpectWord("by");
      do {
        OrderTerm term;
        term.expression = Additive();
        if (TakeWord("desc")) {
          term.descending = true;
        } else {
          TakeWord("asc");
        }
        query.order.push_back(std::move(term));
      } while (TakeSymbol(","));
    }
    return query;
  }

  SelectStatement Select() {
    SelectStatement select;
    select.offset = Now().offset;
    ExpectWord("select");
    if (TakeWord("top")) select.top = Top();
    do {
      select.items.push_back(Item());
    } while (TakeSymbol(","));
    if (TakeWord("from")) {
      select.tables.push_back(Table());
      while (IsWord("inner") || IsWord("join")) {
        TakeWord("inner");
        ExpectWord("join");
        TableReference table = Table();
        ExpectWord("on");
        table.on = Condition();
        select.tables.push_back(std::move(table));
      }
    }
    if (TakeWord("where")) select.where = Condition();
    return select;
  }

  std::int64_t Top() {
    const bool open = TakeSymbol("(");
    const std::optional<std::int64_t> count =
        Now().kind == TokenKind::Number ? ParseInteger(Now().text) : std::nullopt;
    if (!count) Fail("پس از TOP عدد درست لازم است");
    ++at_;
    if (open) ExpectSymbol(")");
    return *count;
  }

  SelectItem Item() {
    SelectItem item;
    item.offset = Now().offset;
    if (TakeSymbol("*")) {
      item.everything = true;
      return item;
    }
    if (IsName() && Ahead().kind == TokenKind::Symbol && Ahead().text == "=") {
      item.alias = Name("نام ستون");
      ExpectSymbol("=");
      item.expression = Additive();
      return item;
    }
    if (IsName() && at_ + 2 < tokens_.size() && Ahead().text == "." && tokens_[at_ + 2].text == "*" &&
        tokens_[at_ + 2].kind == TokenKind::Symbol) {
      item.everything = true;
      item.qualifier = Now().text;
      at_ += 3;
      return item;
    }
    item.expression = Additive();
    if (TakeWord("as") || IsName()) item.alias = Name("نام ستون");
    return item;
  }

  TableReference Table() {
    TableReference table;
    table.offset = Now().offset;
    table.name = Name("نام جدول");
    if (TakeSymbol(".")) {
      ExpectDbo(table.name, table.offset);
      table.offset = Now().offset;
      table.name = Name("نام جدول");
    }
    if (TakeWord("as") || IsName()) table.alias = Name("نام دوم جدول");
    return table;
  }

  // Nesting is bounded, so that no text can exhaust the stack.
  struct Depth {
    explicit Depth(Parser& owner) : parser(owner) {
      if (++parser.depth_ > kDeepest) parser.Fail("دستور بیش از اندازه تودرتو است");
    }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;
    ~Depth() { --parser.depth_; }
    Parser& parser;
  };

  static Expression Joined(std::string op, Expression left, Expression right, std::size_t offset) {
    Expression joined;
    joined.kind = ExpressionKind::Binary;
    joined.text = std::move(op);
    joined.offset = offset;
    joined.children.push_back(std::move(left));
    joined.children.push_back(std::move(right));
    return joined;
  }

  Expression Condition() {
    const Depth depth(*this);
    Expression left = AndCondition();
    while (IsWord("or")) {
      const std::size_t offset = tokens_[at_++].offset;
      left = Joined("OR", std::move(left), AndCondition(), offset);
    }
    return left;
  }

  Expression AndCondition() {
    Expression left = NotCondition();
    while (IsWord("and")) {
      const std::size_t offset = tokens_[at_++].offset;
      left = Joined("AND", std::move(left), NotCondition(), offset);
    }
    return left;
  }

  Expression NotCondition() {
    if (!IsWord("not")) return Comparison();
    const Depth depth(*this);
    Expression negation;
    negation.kind = ExpressionKind::Not;
    negation.offset = tokens_[at_++].offset;
    negation.children.push_back(NotCondition());
    return negation;
  }

  Expression Comparison() {
    Expression left = Additive();
    const std::size_t offset = Now().offset;
    for (const std::string_view op : {"=", "<>", "<=", ">=", "<", ">"}) {
      if (TakeSymbol(op)) return Joined(std::string(op), std::move(left), Additive(), offset);
    }
    if (TakeWord("is")) return IsNull(std::move(left), offset);
    const bool negated = TakeWord("not");
    if (TakeWord("like")) {
      Expression like = Joined("LIKE", std::move(left), Additive(), offset);
      like.negated = negated;
      return like;
    }
    if (TakeWord("in")) return InList(std::move(left), negated, offset);
    if (negated) Fail("پس از NOT باید IN یا LIKE باشد");
    return left;
  }

  Expression IsNull(Expression operand, std::size_t offset) {
    Expression test;
    test.kind = ExpressionKind::IsNull;
    test.offset = offset;
    test.negated = TakeWord("not");
    ExpectWord("null");
    test.children.push_back(std::move(operand));
    return test;
  }

  Expression InList(Expression operand, bool negated, std::size_t offset) {
    Expression test;
    test.kind = ExpressionKind::In;
    test.offset = offset;
    test.negated = negated;
    test.children.push_back(std::move(operand));
    ExpectSymbol("(");
    do {
      test.children.push_back(Additive());
    } while (TakeSymbol(","));
    ExpectSymbol(")");
    return test;
  }

  Expression Additive() {
    const Depth depth(*this);
    Expression left = Multiplicative();
    while (IsSymbol("+") || IsSymbol("-")) {
      const Token op = tokens_[at_++];
      left = Joined(op.text, std::move(left), Multiplicative(), op.offset);
    }
    return left;
  }

  Expression Multiplicative() {
    Expression left = Unary();
    while (IsSymbol("*") || IsSymbol("/")) {
      const Token op = tokens_[at_++];
      left = Joined(op.text, std::move(left), Unary(), op.offset);
    }
    return left;
  }

  Expression Unary() {
    if (TakeSymbol("+")) {
      const Depth depth(*this);
      return Unary();
    }
    if (!IsSymbol("-")) return Primary();
    const Depth depth(*this);
    const std::size_t offset = tokens_[at_++].offset;
    Expression operand = Unary();
    if (operand.kind == ExpressionKind::Constant) {
      if (auto* number = std::get_if<NumberValue>(&operand.literal)) {
        const bool negative = number->text.front() == '-';
        number->text = negative ? number->text.substr(1) : "-" + number->text;
        return operand;
      }
    }
    Expression negation;
    negation.kind = ExpressionKind::Negate;
    negation.offset = offset;
    negation.children.push_back(std::move(operand));
    return negation;
  }

  Expression Primary() {
    Expression result;
    result.offset = Now().offset;
    if (Now().kind == TokenKind::Number || Now().kind == TokenKind::Text || IsWord("null")) {
      result.literal = Value();
      return result;
    }
    if (TakeSymbol("(")) {
      result = IsWord("select") ? JoinedRows() : Condition();
      ExpectSymbol(")");
      return result;
    }
    result.text = Name("عبارت");
    if (TakeSymbol("(")) return Function(std::move(result));
    result.kind = ExpressionKind::Column;
    if (TakeSymbol(".")) {
      result.qualifier = std::move(result.text);
      result.text = Name("نام ستون");
    }
    return result;
  }

  Expression Function(Expression call) {
    call.kind = ExpressionKind::Function;
    if (TakeSymbol(")")) return call;
    do {
      call.children.push_back(Additive());
    } while (TakeSymbol(","));
    ExpectSymbol(")");
    return call;
  }

  Expression JoinedRows() {
    Expression rows;
    rows.kind = ExpressionKind::JoinedRows;
    rows.offset = Now().offset;
    rows.rows = std::make_shared<SelectStatement>(Select());
    ExpectWord("for");
    ExpectWord("xml");
    ExpectWord("path");
    ExpectSymbol("(");
    if (Now().kind != TokenKind::Text || !Now().text.empty()) Fail("PATH باید متن خالی داشته باشد");
    ++at_;
    ExpectSymbol(")");
    return rows;
  }

  std::string_view statement_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

}  // namespace

ParsedStatement ParseStatement(std::string_view statement) { return Parser(statement).Run(); }

}  // namespace goods
