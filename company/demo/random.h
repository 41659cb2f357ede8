// A small random number generator of our own, so that a seed gives the same company everywhere.
#pragma once

#include <cstdint>

namespace goods {

// SplitMix64: one 64-bit state, every seed is good.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  std::uint64_t Next() {
    state_ += 0x9e3779b97f4a7c15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebU;
    return mixed ^ (mixed >> 31);
  }
  // 0 to count - 1; count must be positive.
  std::int64_t Below(std::int64_t count) {
    return static_cast<std::int64_t>(Next() % static_cast<std::uint64_t>(count));
  }
  std::int64_t Between(std::int64_t low, std::int64_t high) { return low + Below(high - low + 1); }
  bool Percent(int chance) { return Below(100) < chance; }

 private:
  std::uint64_t state_;
};

}  // namespace goods
