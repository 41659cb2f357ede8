// Sorting more records than memory holds.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// Records are byte strings with a key of 128 bits. They are kept in memory up to a limit and then in sorted
// runs in files without a name in a folder, so that nothing is left behind even when the program is killed.
// Equal keys keep the order in which they came. Throws FileError when the disk is full.
class RecordSorter {
 public:
  struct Key {
    std::uint64_t high = 0;
    std::uint64_t low = 0;
    auto operator<=>(const Key&) const = default;
  };

  static constexpr std::size_t kMemory = 128U << 20;

  // path: a file beside which the runs lie. memory in bytes.
  explicit RecordSorter(std::string path, std::size_t memory = kMemory);
  RecordSorter(RecordSorter&& other) noexcept;
  RecordSorter& operator=(RecordSorter&& other) noexcept;
  ~RecordSorter();

  void Add(Key key, std::string_view bytes);
  std::int64_t Count() const { return count_; }

  // No Add from here on. Then Next moves to the first record, and on; false at the end. The bytes live until
  // the next call.
  void Sort();
  bool Next();
  const Key& CurrentKey() const { return key_; }
  std::string_view Bytes() const { return bytes_; }

 private:
  struct Entry {
    Key key;
    std::uint64_t offset = 0;
    std::uint32_t size = 0;
  };
  struct Run;

  void SortEntries();
  void Spill();
  bool NextOfRuns();

  std::string path_;
  std::size_t memory_;
  std::string arena_;
  std::vector<Entry> entries_;
  std::size_t next_ = 0;
  std::vector<std::unique_ptr<Run>> runs_;
  std::vector<Run*> heap_;  // the least one in front
  Run* taken_ = nullptr;
  std::int64_t count_ = 0;
  Key key_;
  std::string_view bytes_;
};

}  // namespace goods
