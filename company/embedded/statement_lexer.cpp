#include "company/embedded/statement_lexer.h"

#include "host/core/text.h"

namespace goods {

namespace {

bool IsWordStart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool IsWordPart(char c) { return IsWordStart(c) || IsDigit(c); }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

class Lexer {
 public:
  explicit Lexer(std::string_view statement) : statement_(statement) {}

  std::vector<Token> Run() {
    if (const std::size_t at = statement_.find('\0'); at != statement_.npos) Fail("نویسه تهی در دستور", at);
    std::vector<Token> tokens;
    for (;;) {
      while (at_ < statement_.size() && IsBlank(statement_[at_])) ++at_;
      tokens.push_back(Next());
      if (tokens.back().kind == TokenKind::End) return tokens;
    }
  }

 private:
  char Peek(std::size_t ahead = 0) const {
    return at_ + ahead < statement_.size() ? statement_[at_ + ahead] : '\0';
  }

  [[noreturn]] void Fail(const std::string& reason, std::size_t offset) const {
    throw StatementError(reason, statement_, offset);
  }

  Token Next() {
    const std::size_t start = at_;
    if (at_ >= statement_.size()) return {TokenKind::End, "", start, false};
    const char c = Peek();
    if ((c == 'N' || c == 'n') && Peek(1) == '\'') {
      ++at_;
      return {TokenKind::Text, Quoted(start), start, false};
    }
    if (c == '\'') return {TokenKind::Text, Quoted(start), start, false};
    if (c == '[') return {TokenKind::Word, Bracketed(), start, true};
    if (IsWordStart(c)) return {TokenKind::Word, WordFrom(start), start, false};
    if (c == '@') return Parameter();
    if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) return Number();
    return Symbol();
  }

  std::string WordFrom(std::size_t start) {
    while (IsWordPart(Peek())) ++at_;
    return std::string(statement_.substr(start, at_ - start));
  }

  Token Parameter() {
    const std::size_t start = at_++;
    if (!IsWordStart(Peek())) Fail("پس از @ نام پارامتر نیست", start);
    return {TokenKind::Parameter, WordFrom(start), start, false};
  }

  Token Number() {
    const std::size_t start = at_;
    while (IsDigit(Peek())) ++at_;
    if (Peek() == '.') {
      ++at_;
      while (IsDigit(Peek())) ++at_;
    }
    if (IsWordPart(Peek())) Fail("عدد درست نوشته نشده است", start);
    return {TokenKind::Number, std::string(statement_.substr(start, at_ - start)), start, false};
  }

  std::string Quoted(std::size_t start) {
    std::string text;
    for (++at_; at_ < statement_.size(); ++at_) {
      if (statement_[at_] == '\'') {
        if (Peek(1) != '\'') {
          ++at_;
          return text;
        }
        ++at_;
      }
      text += statement_[at_];
    }
    Fail("متن بسته نشده است", start);
  }

  std::string Bracketed() {
    const std::size_t start = at_;
    const std::size_t end = statement_.find(']', at_);
    if (end == std::string_view::npos || end == at_ + 1) Fail("نام میان [ ] بسته نشده یا خالی است", start);
    at_ = end + 1;
    return std::string(statement_.substr(start + 1, end - start - 1));
  }

  Token Symbol() {
    const std::size_t start = at_;
    const std::string_view two = statement_.substr(at_, 2);
    if (two == "--" || two == "/*") Fail("توضیح در دستور پذیرفته نیست", start);
    if (two == "<>" || two == "<=" || two == ">=" || two == "!=") {
      at_ += 2;
      return {TokenKind::Symbol, two == "!=" ? "<>" : std::string(two), start, false};
    }
    const char c = statement_[at_];
    if (c == ';') Fail("در هر بار تنها یک دستور پذیرفته است", start);
    if (std::string_view("(),.=<>+-*/").find(c) == std::string_view::npos) Fail("نویسه ناشناخته", start);
    ++at_;
    return {TokenKind::Symbol, std::string(1, c), start, false};
  }

  std::string_view statement_;
  std::size_t at_ = 0;
};

}  // namespace

StatementError::StatementError(const std::string& reason, std::string_view statement, std::size_t offset)
    : std::runtime_error("دستور پذیرفته نشد: " + reason + " (نویسه " +
                         std::to_string(CharCount(statement.substr(0, offset)) + 1) + ")") {}

StatementError::~StatementError() = default;

std::vector<Token> Tokenize(std::string_view statement) { return Lexer(statement).Run(); }

}  // namespace goods
