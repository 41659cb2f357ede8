#include "host/data/text_pool.h"

#include <cstring>
#include <limits>
#include <stdexcept>

#include "host/data/wide_integer.h"

namespace goods {
namespace {

constexpr std::size_t kFirstTable = 256;
// Fewer distinct texts than this are always worth sharing.
constexpr std::size_t kFewTexts = 4096;

template <typename Word>
std::uint64_t Load(const char* from) {
  Word word = 0;
  std::memcpy(&word, from, sizeof word);
  return word;
}

std::uint64_t Mix(std::uint64_t value) {
  const UInt128 product = static_cast<UInt128>(value) * 0x9E3779B97F4A7C15U;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
}

std::uint64_t HashOf(std::string_view text) {
  std::uint64_t hash = Mix(text.size() + 0x51ED270B7F3C9A15U);
  const char* at = text.data();
  std::size_t left = text.size();
  for (; left >= 8; at += 8, left -= 8) hash = Mix(hash ^ Load<std::uint64_t>(at));
  if (left >= 4) {
    hash ^= (Load<std::uint32_t>(at) << 32U) | Load<std::uint32_t>(at + left - 4);
  } else if (left > 0) {
    hash ^= Load<std::uint8_t>(at) | (Load<std::uint8_t>(at + left / 2) << 8U) |
            (Load<std::uint8_t>(at + left - 1) << 16U);
  }
  return Mix(hash);
}

}  // namespace

std::uint32_t TextPool::Add(std::string_view text) {
  ++added_;
  if (!sharing_) return Append(text);
  if (last_.data() != nullptr && last_ == text) return lastId_;
  lastId_ = FindOrAppend(text);
  last_ = View(lastId_);
  return lastId_;
}

std::uint32_t TextPool::FindOrAppend(std::string_view text) {
  if ((count_ + 1) * 2 > table_.size()) {
    if (count_ >= kFewTexts && count_ * 2 > added_) {
      sharing_ = false;
      table_ = {};
      return Append(text);
    }
    GrowTable();
  }
  constexpr std::uint64_t kHashPart = ~std::uint64_t{0} << 32U;
  const std::uint64_t hash = HashOf(text) & kHashPart;
  const std::size_t mask = table_.size() - 1;
  std::size_t slot = static_cast<std::size_t>(hash >> 32U) & mask;
  for (; table_[slot] != 0; slot = (slot + 1) & mask) {
    if ((table_[slot] & kHashPart) != hash) continue;
    const auto id = static_cast<std::uint32_t>(table_[slot]) - 1;
    if (View(id) == text) return id;
  }
  const std::uint32_t id = Append(text);
  table_[slot] = hash | (id + 1);
  return id;
}

void TextPool::GrowTable() {
  const std::vector<std::uint64_t> old = std::move(table_);
  table_.assign(old.empty() ? kFirstTable : old.size() * 2, 0);
  const std::size_t mask = table_.size() - 1;
  for (const std::uint64_t entry : old) {
    if (entry == 0) continue;
    std::size_t slot = static_cast<std::size_t>(entry >> 32U) & mask;
    while (table_[slot] != 0) slot = (slot + 1) & mask;
    table_[slot] = entry;
  }
}

std::uint32_t TextPool::Append(std::string_view text) {
  if (count_ % kGroupTexts == 0) {
    const std::size_t before = groups_.empty() ? 0 : groups_.back().bytes.size();
    if (!groups_.empty()) groups_.back().bytes.shrink_to_fit();
    Group& group = groups_.emplace_back();
    if (before > 0) {
      group.bytes.reserve(before + before / 8);
      group.starts.reserve(kGroupTexts + 1);
    }
  }
  Group& group = groups_.back();
  constexpr std::size_t kMost = std::numeric_limits<std::uint32_t>::max();
  if (count_ >= kMost || text.size() > kMost - group.bytes.size()) throw std::length_error("text column");
  group.bytes.append(text);
  group.starts.push_back(static_cast<std::uint32_t>(group.bytes.size()));
  return static_cast<std::uint32_t>(count_++);
}

void TextPool::Finish() {
  table_ = {};
  last_ = {};
  if (groups_.empty()) return;
  groups_.back().bytes.shrink_to_fit();
  groups_.back().starts.shrink_to_fit();
  groups_.shrink_to_fit();
}

std::size_t TextPool::MemoryBytes() const {
  std::size_t bytes = groups_.capacity() * sizeof(Group) + table_.capacity() * sizeof(std::uint64_t);
  for (const Group& group : groups_) {
    bytes += group.bytes.capacity() + group.starts.capacity() * sizeof(std::uint32_t);
  }
  return bytes;
}

}  // namespace goods
