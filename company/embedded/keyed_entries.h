// Entries by key. Keys are few (stores) and come in runs, so the last one is tried first.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "host/data/decimal.h"

namespace goods {

template <typename Entry>
class KeyedEntries {
 public:
  // The key's entry, made when it is not there yet. Entries move when one is made.
  Entry& Of(std::int64_t key) {
    if (last_ >= entries_.size() || entries_[last_].first != key) {
      for (last_ = 0; last_ < entries_.size() && entries_[last_].first != key; ++last_) {
      }
      if (last_ == entries_.size()) entries_.emplace_back(key, Entry());
    }
    return entries_[last_].second;
  }

  std::size_t Size() const { return entries_.size(); }
  std::int64_t Key(std::size_t place) const { return entries_[place].first; }
  const Entry& At(std::size_t place) const { return entries_[place].second; }

  // Places then follow the keys.
  void Sort() {
    std::sort(entries_.begin(), entries_.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    last_ = 0;
  }
  void Clear() { entries_.clear(); }

 private:
  std::vector<std::pair<std::int64_t, Entry>> entries_;
  std::size_t last_ = 0;
};

using KeyedSums = KeyedEntries<Decimal>;

}  // namespace goods
