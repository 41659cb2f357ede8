#include "tests/module/criteria/criteria_check.h"

#include <algorithm>

namespace goods {

std::string Dice::Text() {
  std::string text;
  for (int words = 1 + Roll(3); words > 0; --words) {
    text += One<const char*>({"پیچ", "مهره شش", "O'Brien", "''", "1,250", "a;b", " ", "--", ",,", "0", "كيف",
                              "'); DROP TABLE GoodInf --", "[x]", "%", "\t", "@Title = 1"});
  }
  return text;
}

std::string Dice::MaybeDigits() {
  if (Chance(20)) return {};
  return Chance(15) ? "0" : One<const char*>({"", "-", "00"}) + std::to_string(Roll(1000000));
}

std::string Dice::MaybeAmount() {
  if (Chance(20)) return {};
  if (Chance(15)) return "0";
  std::string text = One<const char*>({"", "-"}) + std::to_string(1 + Roll(999));
  if (Chance(40)) text += ",250";
  if (Chance(40)) text += "." + std::to_string(Roll(10000));
  return text;
}

std::string Dice::MaybeDate() {
  return Chance(30) ? std::string() : One<const char*>({"1401/01/01", "1402/12/29", "1403/12/30"});
}

std::string ExpectedText::Parameters() const {
  std::string all;
  for (const std::string& piece : pieces_) {
    if (!all.empty()) all += ',';
    all += piece;
  }
  return all;
}

std::string ExpectedText::Caption() const {
  std::string all;
  for (const std::string& phrase : phrases_) {
    if (!all.empty()) all += ' ';
    all += '(';
    all += phrase;
    all += ')';
  }
  return all;
}

std::string ExpectedText::Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? "''" : std::string(1, c);
  return quoted + "'";
}

std::string ExpectedText::WithoutCommas(const std::string& text) {
  std::string plain = text;
  plain.erase(std::remove(plain.begin(), plain.end(), ','), plain.end());
  return plain;
}

bool ExpectedText::Asks(const CriteriaRange& range) {
  if (!range.inUse) return false;
  const bool from = range.from != "" && range.from != "0";
  const bool to = range.to != "" && range.to != "0";
  return from || to;
}

void ExpectedText::Ends(const std::string& from, const std::string& to, const CriteriaRange& range) {
  if (range.from != "") Piece(from, WithoutCommas(range.from));
  if (range.to != "") Piece(to, WithoutCommas(range.to));
}

}  // namespace goods
