#include "host/data/filter_lexer.h"

#include <algorithm>

#include "host/core/text.h"
#include "host/data/query.h"

namespace goods {
namespace {

// Every character beyond ASCII can stand in a field's name.
bool StartsWord(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace

void ThrowFilterError(std::string_view reason, std::size_t place, std::string_view word) {
  std::string message(reason);
  message += " (نویسه " + std::to_string(place) + "، ";
  message += word.empty() ? "پایان متن)" : "«" + std::string(word) + "»)";
  throw FilterError(message);
}

void FilterLexer::Fail(std::string_view reason) const {
  ThrowFilterError(reason, current_.place, current_.raw);
}

// The next length bytes become the current token.
void FilterLexer::Become(FilterTokenKind kind, std::string text, std::size_t length) {
  current_.kind = kind;
  current_.text = std::move(text);
  current_.raw = text_.substr(at_, length);
  at_ += length;
}

// The closing character doubled stands for itself.
void FilterLexer::TakeQuoted(FilterTokenKind kind, std::size_t opening, char closing) {
  std::string content;
  for (std::size_t i = at_ + opening; i < text_.size(); ++i) {
    if (text_[i] == closing) {
      if (i + 1 == text_.size() || text_[i + 1] != closing) {
        Become(kind, std::move(content), i + 1 - at_);
        return;
      }
      ++i;
    }
    content.push_back(text_[i]);
  }
  Become(kind, {}, text_.size() - at_);
  Fail(kind == FilterTokenKind::Field ? "کروشه بسته نشده است" : "گیومه متن بسته نشده است");
}

std::size_t FilterLexer::NumberLength() const {
  std::size_t end = at_;
  const auto digits = [&] {
    const std::size_t from = end;
    while (end < text_.size() && IsDigit(text_[end])) ++end;
    return end > from;
  };
  if (text_[end] == '-' || text_[end] == '+') ++end;
  if (!digits()) return 0;
  if (end + 1 < text_.size() && text_[end] == '.' && IsDigit(text_[end + 1])) {
    ++end;
    digits();
  }
  return end - at_;
}

void FilterLexer::Advance() {
  const std::size_t blanks = at_;
  while (at_ < text_.size() && static_cast<unsigned char>(text_[at_]) <= ' ') ++at_;
  current_.place += CharCount(current_.raw) + (at_ - blanks);
  if (at_ == text_.size()) return Become(FilterTokenKind::End, {}, 0);
  const char c = text_[at_];
  const char following = at_ + 1 < text_.size() ? text_[at_ + 1] : '\0';
  if (c == '\'') {
    TakeQuoted(FilterTokenKind::Text, 1, '\'');
  } else if ((c == 'N' || c == 'n') && following == '\'') {
    TakeQuoted(FilterTokenKind::Text, 2, '\'');
  } else if (c == '[') {
    TakeQuoted(FilterTokenKind::Field, 1, ']');
  } else if (StartsWord(c)) {
    const auto end = std::find_if_not(text_.begin() + static_cast<std::ptrdiff_t>(at_), text_.end(),
                                      [](char each) { return StartsWord(each) || IsDigit(each); });
    const std::size_t length = static_cast<std::size_t>(end - text_.begin()) - at_;
    Become(FilterTokenKind::Word, std::string(text_.substr(at_, length)), length);
  } else if (const std::size_t length = NumberLength(); length > 0) {
    Become(FilterTokenKind::Number, std::string(text_.substr(at_, length)), length);
  } else if ((c == '<' && (following == '=' || following == '>')) || (c == '>' && following == '=')) {
    Become(FilterTokenKind::Symbol, {c, following}, 2);
  } else {
    Become(FilterTokenKind::Symbol, {c}, 1);
    if (std::string_view("=<>(),").find(c) == std::string_view::npos) Fail("این نشانه شناخته نشد");
  }
}

bool FilterLexer::IsWord(std::string_view word) const {
  return current_.kind == FilterTokenKind::Word && SameText(current_.text, word);
}

bool FilterLexer::IsSymbol(std::string_view symbol) const {
  return current_.kind == FilterTokenKind::Symbol && current_.text == symbol;
}

bool FilterLexer::TakeWord(std::string_view word) {
  const bool is = IsWord(word);
  if (is) Advance();
  return is;
}

bool FilterLexer::TakeSymbol(std::string_view symbol) {
  const bool is = IsSymbol(symbol);
  if (is) Advance();
  return is;
}

}  // namespace goods
