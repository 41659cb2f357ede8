#include "tests/scripted/random_user/statement_shape.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace goods {
namespace {

enum class TokenKind { Word, Variable, Number, Text, Sign };

struct SqlToken {
  TokenKind kind;
  std::string text;
};

bool IsWordStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '#'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsWordPart(char c) { return IsWordStart(c) || IsDigit(c) || c == '$'; }

class SqlReader {
 public:
  explicit SqlReader(std::string_view text) : text_(text) {}

  // Reads everything; false when it cannot, and then Problem says why.
  bool Read() {
    while (at_ < text_.size()) {
      if (!ReadOne()) return false;
    }
    return true;
  }

  std::vector<SqlToken> Tokens;
  std::string Problem;

 private:
  char Next(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }

  bool Refuse(const std::string& why) {
    Problem = why + " at " + std::to_string(at_);
    return false;
  }

  template <typename Part>
  std::string Take(Part part) {
    const std::size_t from = at_;
    while (at_ < text_.size() && part(text_[at_])) ++at_;
    return std::string(text_.substr(from, at_ - from));
  }

  // A text in quotes, or a name in brackets; the end is doubled where it stands inside.
  bool ReadQuoted(char end, TokenKind kind) {
    std::string content;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '\0') return Refuse("a NUL in a text");
      if (text_[at_] == end) {
        if (Next(1) != end) {
          ++at_;
          Tokens.push_back({kind, content});
          return true;
        }
        ++at_;
      }
      content += text_[at_];
    }
    return Refuse(std::string("no end of what begins with ") + (end == ']' ? '[' : end));
  }

  bool ReadNumber() {
    std::string number = Take(IsDigit);
    if (Next() == '.') {
      ++at_;
      number += "." + Take(IsDigit);
    }
    if (IsWordStart(Next())) return Refuse("a number with letters behind it");
    if (number == ".") return Refuse("a point without digits");
    Tokens.push_back({TokenKind::Number, number});
    return true;
  }

  bool ReadOne() {
    const char c = Next();
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
      ++at_;
      return true;
    }
    if (c == '\'') return ReadQuoted('\'', TokenKind::Text);
    if (c == 'N' && Next(1) == '\'') {
      ++at_;
      return ReadQuoted('\'', TokenKind::Text);
    }
    if (c == '[') return ReadQuoted(']', TokenKind::Word);
    if (c == '-' && Next(1) == '-') return Refuse("a comment");
    if (c == '/' && Next(1) == '*') return Refuse("a comment");
    if (c == ';') return Refuse("a second statement");
    if (IsDigit(c) || (c == '.' && IsDigit(Next(1)))) return ReadNumber();
    if (c == '@') {
      ++at_;
      std::string name = Take(IsWordPart);
      if (name.empty()) return Refuse("a parameter without a name");
      Tokens.push_back({TokenKind::Variable, name});
      return true;
    }
    if (IsWordStart(c)) {
      Tokens.push_back({TokenKind::Word, Take(IsWordPart)});
      return true;
    }
    if (std::string_view("=<>!+-*/%,.()").find(c) != std::string_view::npos) {
      ++at_;
      Tokens.push_back({TokenKind::Sign, std::string(1, c)});
      return true;
    }
    return Refuse(std::string("a character that no statement has, ") +
                  std::to_string(static_cast<unsigned char>(c)));
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

bool IsWord(const SqlToken& token, std::string_view lower) {
  return token.kind == TokenKind::Word &&
         std::equal(token.text.begin(), token.text.end(), lower.begin(), lower.end(),
                    [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; });
}

bool IsSign(const SqlToken& token, char sign) {
  return token.kind == TokenKind::Sign && token.text.front() == sign;
}

// The parameters of a call: values between commas, named or not; a value is one text, number, NULL or
// default, a number with a sign before it.
std::string ProblemOfParameters(const std::vector<SqlToken>& tokens, std::size_t at) {
  bool named = false;
  while (at < tokens.size()) {
    const bool hasName = tokens[at].kind == TokenKind::Variable;
    if (hasName) {
      if (at + 1 >= tokens.size() || !IsSign(tokens[at + 1], '='))
        return "@" + tokens[at].text + " has no value";
      at += 2;
    } else if (named) {
      return "a parameter without a name behind one with a name";
    }
    named = named || hasName;
    const bool negative = at < tokens.size() && IsSign(tokens[at], '-');
    if (negative) ++at;
    if (at >= tokens.size()) return "a value is missing at the end";
    const SqlToken& value = tokens[at++];
    const bool isValue = value.kind == TokenKind::Number ||
                         (!negative && (value.kind == TokenKind::Text || IsWord(value, "null")));
    if (!isValue) return "no value: " + value.text;
    if (at == tokens.size()) return {};
    if (!IsSign(tokens[at], ',')) return "no comma before " + tokens[at].text;
    if (++at == tokens.size()) return "a comma at the end";
  }
  return {};
}

std::string ProblemOfQuery(const std::vector<SqlToken>& tokens) {
  int depth = 0;
  for (const SqlToken& token : tokens) {
    if (IsSign(token, '(')) ++depth;
    if (IsSign(token, ')') && --depth < 0) return "a bracket that nothing opened";
    for (const char* word : {"insert", "update", "delete", "drop", "alter", "create", "exec", "execute",
                             "into", "truncate", "grant", "waitfor", "declare", "begin", "shutdown"}) {
      if (IsWord(token, word)) return std::string("the word ") + word + " in a query";
    }
  }
  return depth == 0 ? "" : "a bracket that nothing closes";
}

}  // namespace

std::string ProblemOfStatement(std::string_view statement) {
  SqlReader reader(statement);
  if (!reader.Read()) return reader.Problem;
  const std::vector<SqlToken>& tokens = reader.Tokens;
  if (tokens.size() < 2) return "no statement";
  if (IsWord(tokens[0], "select")) return ProblemOfQuery(tokens);
  if (!IsWord(tokens[0], "exec")) return "begins with " + tokens[0].text;
  if (tokens[1].kind != TokenKind::Word) return "calls no procedure";
  return ProblemOfParameters(tokens, 2);
}

}  // namespace goods
