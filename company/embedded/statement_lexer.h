// The words of a statement text.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// A statement text that is not accepted. The message is Persian and ends with the place, as a character
// counted from 1.
class StatementError : public std::runtime_error {
 public:
  // offset: byte offset into statement.
  StatementError(const std::string& reason, std::string_view statement, std::size_t offset);
  ~StatementError() override;
};

enum class TokenKind { Word, Parameter, Number, Text, Symbol, End };

// text: a word without its [ ], a parameter with its "@", a number as written, a text with its quotes undone,
// a symbol. bracketed words are never keywords.
struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;
  std::size_t offset = 0;
  bool bracketed = false;
};

// Cuts a statement into tokens; the last one is End. Comments, ";" and unknown characters are refused.
std::vector<Token> Tokenize(std::string_view statement);

}  // namespace goods
