#include "company/writer/record_sorter.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "company/files/file_error.h"
#include "company/files/file_layer.h"

namespace goods {

namespace {

constexpr std::size_t kBuffer = 1U << 20;
constexpr std::uint32_t kOwnerOnly = 0600;
constexpr int kAttempts = 1000;

struct Head {
  RecordSorter::Key key;
  std::uint64_t size = 0;
};

[[noreturn]] void Fail(const std::string& path, int error) { throw FileError(ProblemOf(error), path, error); }

}  // namespace

// One sorted file. It loses its name as soon as it is open for both writing and reading.
struct RecordSorter::Run {
  Run(const std::string& beside, std::size_t order) : place(order), path(beside) {
    FileLayer& layer = FileLayer::System();
    std::string name;
    int handle = -1;
    int error = EEXIST;
    for (int attempt = 0; error == EEXIST && attempt < kAttempts; ++attempt) {
      name = path + ".sort" + std::to_string(attempt);
      error = layer.Create(name, kOwnerOnly, handle);
    }
    if (error != 0) Fail(path, error);
    output = FileHandle(layer, handle);
    error = layer.OpenToRead(name, false, handle);
    layer.Remove(name);
    if (error != 0) Fail(path, error);
    input = FileHandle(layer, handle);
  }

  void Write(std::string_view more) {
    buffer += more;
    if (buffer.size() >= kBuffer) Flush();
  }

  void Flush() {
    for (std::string_view rest = buffer; !rest.empty();) {
      std::size_t written = 0;
      const int error = FileLayer::System().Write(output.Get(), rest, written);
      if (error != 0) Fail(path, error);
      rest.remove_prefix(written);
    }
    buffer.clear();
  }

  void EndWriting() {
    Flush();
    output.Close();
  }

  bool Fill(std::size_t wanted) {
    if (buffer.size() - at >= wanted) return true;
    buffer.erase(0, at);
    at = 0;
    while (buffer.size() < wanted) {
      const std::size_t had = buffer.size();
      buffer.resize(had + std::max(kBuffer, wanted));
      std::size_t got = 0;
      const int error = FileLayer::System().Read(input.Get(), buffer.data() + had, buffer.size() - had, got);
      buffer.resize(had + got);
      if (error != 0) Fail(path, error);
      if (got == 0) return false;
    }
    return true;
  }

  bool Next() {
    if (!Fill(sizeof(Head))) return false;
    std::memcpy(&head, buffer.data() + at, sizeof(Head));
    at += sizeof(Head);
    if (!Fill(head.size)) Fail(path, EIO);
    bytes = std::string_view(buffer).substr(at, head.size);
    at += head.size;
    return true;
  }

  static bool After(const Run* a, const Run* b) {
    return a->head.key != b->head.key ? a->head.key > b->head.key : a->place > b->place;
  }

  std::size_t place;
  std::string path;
  FileHandle output;
  FileHandle input;
  std::string buffer;
  std::size_t at = 0;
  Head head;
  std::string_view bytes;
};

RecordSorter::RecordSorter(std::string path, std::size_t memory) : path_(std::move(path)), memory_(memory) {}
RecordSorter::RecordSorter(RecordSorter&& other) noexcept = default;
RecordSorter& RecordSorter::operator=(RecordSorter&& other) noexcept = default;
RecordSorter::~RecordSorter() = default;

void RecordSorter::Add(Key key, std::string_view bytes) {
  if (!entries_.empty() && arena_.size() + bytes.size() + (entries_.size() + 1) * sizeof(Entry) > memory_) {
    Spill();
  }
  entries_.push_back({key, arena_.size(), static_cast<std::uint32_t>(bytes.size())});
  arena_ += bytes;
  ++count_;
}

void RecordSorter::SortEntries() {
  const auto before = [](const Entry& a, const Entry& b) {
    return a.key != b.key ? a.key < b.key : a.offset < b.offset;
  };
  if (!std::is_sorted(entries_.begin(), entries_.end(), before)) {
    std::sort(entries_.begin(), entries_.end(), before);
  }
}

void RecordSorter::Spill() {
  SortEntries();
  runs_.push_back(std::make_unique<Run>(path_, runs_.size()));
  Run& run = *runs_.back();
  for (const Entry& entry : entries_) {
    const Head head{entry.key, entry.size};
    run.Write({reinterpret_cast<const char*>(&head), sizeof(head)});
    run.Write(std::string_view(arena_).substr(entry.offset, entry.size));
  }
  run.EndWriting();
  entries_.clear();
  arena_.clear();
}

void RecordSorter::Sort() {
  if (runs_.empty()) {
    SortEntries();
    return;
  }
  Spill();
  std::vector<Entry>().swap(entries_);
  std::string().swap(arena_);
  for (const std::unique_ptr<Run>& run : runs_) {
    if (run->Next()) heap_.push_back(run.get());
  }
  taken_ = nullptr;
  std::make_heap(heap_.begin(), heap_.end(), &Run::After);
}

bool RecordSorter::Next() {
  if (!runs_.empty()) return NextOfRuns();
  if (next_ == entries_.size()) return false;
  const Entry& entry = entries_[next_++];
  key_ = entry.key;
  bytes_ = std::string_view(arena_).substr(entry.offset, entry.size);
  return true;
}

bool RecordSorter::NextOfRuns() {
  // The run that gave the last record moves on only now, since its bytes were still being looked at.
  if (taken_ != nullptr && taken_->Next()) {
    heap_.push_back(taken_);
    std::push_heap(heap_.begin(), heap_.end(), &Run::After);
  }
  taken_ = nullptr;
  if (heap_.empty()) return false;
  std::pop_heap(heap_.begin(), heap_.end(), &Run::After);
  taken_ = heap_.back();
  heap_.pop_back();
  key_ = taken_->head.key;
  bytes_ = taken_->bytes;
  return true;
}

}  // namespace goods
