// Criteria against a second way of putting their text together: random structs, and what has to come of each,
// written down piece by piece.
//
// A report's test is one file: it makes a random struct, lists the pieces and phrases that it expects, and
// names every parameter of the report, each of which has to turn up often enough to have been tested.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "module/framework/criteria_text.h"

namespace goods {

// What a user may have typed and chosen; the same in every run of the tests.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}

  // One of 0 to sides - 1.
  int Roll(int sides) { return std::uniform_int_distribution<int>(0, sides - 1)(engine_); }
  bool Chance(int percent) { return Roll(100) < percent; }
  template <typename T>
  T One(std::initializer_list<T> choices) {
    return *(choices.begin() + Roll(static_cast<int>(choices.size())));
  }
  std::int64_t Code() { return Chance(30) ? 0 : 1 + Roll(100000); }
  // Words with all that could harm a statement or a caption.
  std::string Text();
  // The same, or nothing.
  std::string MaybeText() { return Chance(30) ? std::string() : Text(); }
  // A whole number, an amount with separators and decimals: as an edit of that kind holds it, or nothing.
  std::string MaybeDigits();
  std::string MaybeAmount();
  std::string MaybeDate();
  CriteriaRange Digits() { return {Chance(70), MaybeDigits(), MaybeDigits()}; }
  CriteriaRange Amounts() { return {Chance(70), MaybeAmount(), MaybeAmount()}; }
  CriteriaRange Dates() { return {Chance(70), MaybeDate(), MaybeDate()}; }

 private:
  std::mt19937_64 engine_;
};

// What is expected of one struct: pieces between commas, phrases in parentheses between blanks.
class ExpectedText {
 public:
  void Piece(const std::string& name, const std::string& value) { pieces_.push_back(name + " = " + value); }
  void Verbatim(const std::string& piece) { pieces_.push_back(piece); }
  void Phrase(const std::string& phrase) { phrases_.push_back(phrase); }
  const std::vector<std::string>& Pieces() const { return pieces_; }
  std::string Parameters() const;
  std::string Caption() const;

  // As an SQL text: in single quotes, those inside doubled.
  static std::string Quoted(const std::string& text);
  static std::string WithoutCommas(const std::string& text);
  // A numeric range asks for nothing when it is not ticked or both its ends are empty or "0".
  static bool Asks(const CriteriaRange& range);
  // The pieces of a numeric range: an end that is empty is open.
  void Ends(const std::string& from, const std::string& to, const CriteriaRange& range);

 private:
  std::vector<std::string> pieces_;
  std::vector<std::string> phrases_;
};

inline constexpr int kRandomCriteria = 10000;

// make(dice) gives a struct, expect(struct) an ExpectedText; names are all parameters of the report, in any
// order.
template <typename Make, typename Expect>
void HoldOverRandomCriteria(std::uint64_t seed, Make&& make, Expect&& expect,
                            const std::vector<std::string>& names) {
  Dice dice(seed);
  std::map<std::string, int> seen;
  for (int i = 0; i < kRandomCriteria; ++i) {
    const auto criteria = make(dice);
    const CriteriaText text = TextOf(criteria);
    const ExpectedText expected = expect(criteria);
    ASSERT_EQ(text.parameters, expected.Parameters()) << "struct " << i;
    ASSERT_EQ(text.caption, expected.Caption()) << "struct " << i << ": " << text.parameters;
    for (const std::string& piece : expected.Pieces()) ++seen[piece.substr(0, piece.find_first_of(" ="))];
  }
  for (const std::string& name : names) EXPECT_GE(seen[name], 100) << name;
  EXPECT_EQ(seen.size(), names.size()) << "a parameter that the list of names does not have";
}

}  // namespace goods
