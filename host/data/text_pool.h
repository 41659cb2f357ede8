// TextPool: the texts of one column, each under a number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// Equal texts get one id as long as that pays. In a column whose texts hardly repeat it does not: looking
// each one up costs time and memory and finds nothing. From then on every text gets an id of its own.
class TextPool {
 public:
  std::uint32_t Add(std::string_view text);
  // A text that the caller knows the id of came once more.
  void AddAgain() { ++added_; }
  // No further text comes: what only adding needs is given back.
  void Finish();

  std::size_t Count() const { return count_; }
  std::string_view View(std::uint32_t id) const {
    const Group& group = groups_[id >> kGroupShift];
    const std::size_t slot = id & (kGroupTexts - 1);
    return std::string_view(group.bytes)
        .substr(group.starts[slot], group.starts[slot + 1] - group.starts[slot]);
  }
  std::size_t MemoryBytes() const;

 private:
  static constexpr std::size_t kGroupShift = 12;
  static constexpr std::size_t kGroupTexts = std::size_t{1} << kGroupShift;

  // Texts lie end to end; text i of the group runs from starts[i] to starts[i + 1].
  struct Group {
    std::string bytes;
    std::vector<std::uint32_t> starts{0};
  };

  std::uint32_t Append(std::string_view text);
  std::uint32_t FindOrAppend(std::string_view text);
  void GrowTable();

  std::vector<Group> groups_;
  std::size_t count_ = 0;
  // Open addressing: hash in the upper half, id + 1 in the lower, 0 for a free slot.
  std::vector<std::uint64_t> table_;
  std::size_t added_ = 0;
  bool sharing_ = true;
  // The text that came last, which is very often the next one too.
  std::string_view last_;
  std::uint32_t lastId_ = 0;
};

}  // namespace goods
