// The words of filter and sort texts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace goods {

enum class FilterTokenKind { End, Word, Field, Number, Text, Symbol };

struct FilterToken {
  FilterTokenKind kind = FilterTokenKind::End;
  // A word or symbol as written, a field without its brackets, a number as written, a text without its
  // quotes.
  std::string text;
  // As written, for messages.
  std::string_view raw;
  // In characters from the text's beginning, from 1.
  std::size_t place = 1;
};

// Takes a text apart: words, [fields], numbers, 'texts' and N'texts', and = <> < <= > >= ( ) , as symbols.
class FilterLexer {
 public:
  // The text must outlive the lexer and its tokens.
  explicit FilterLexer(std::string_view text) : text_(text) { Advance(); }
  const FilterToken& Current() const { return current_; }
  void Advance();
  // The current token is that word, whatever its letter case, or that symbol.
  bool IsWord(std::string_view word) const;
  bool IsSymbol(std::string_view symbol) const;
  // Steps over it if it is.
  bool TakeWord(std::string_view word);
  bool TakeSymbol(std::string_view symbol);

  // Throws FilterError: the reason, the place of the current token and the token.
  [[noreturn]] void Fail(std::string_view reason) const;

 private:
  void Become(FilterTokenKind kind, std::string text, std::size_t length);
  void TakeQuoted(FilterTokenKind kind, std::size_t opening, char closing);
  std::size_t NumberLength() const;

  std::string_view text_;
  std::size_t at_ = 0;
  FilterToken current_;
};

// Throws FilterError with the reason, the place in characters from 1, and the word.
[[noreturn]] void ThrowFilterError(std::string_view reason, std::size_t place, std::string_view word);

}  // namespace goods
