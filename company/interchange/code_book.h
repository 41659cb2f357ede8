// The codes of one kind of thing: numbers, and texts that stand for them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace goods {

class CodeBook {
 public:
  bool Has(std::int64_t code) const;
  // False when it is there already.
  bool Add(std::int64_t code);
  std::int64_t Largest() const { return largest_; }
  // A text that stands for a code as well. One that two codes share stands for none.
  void AddText(std::string_view text, std::int64_t code);
  // The code that a field names: a known number, or a text that stands for one.
  std::optional<std::int64_t> Find(std::string_view field) const;

 private:
  static constexpr std::int64_t kDense = 1 << 22;
  std::vector<bool> dense_;  // small codes
  std::unordered_set<std::int64_t> others_;
  std::unordered_map<std::string, std::int64_t> texts_;
  std::int64_t largest_ = 0;
};

}  // namespace goods
