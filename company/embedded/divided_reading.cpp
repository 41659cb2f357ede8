#include "company/embedded/divided_reading.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "host/data/connection.h"

namespace goods {

namespace {

// So many for each thread, that one with a busy good in it does not leave the others idle.
constexpr std::size_t kRangesForThread = 8;
// How often a calling thread that waits for the others asks whether to go on.
constexpr std::chrono::milliseconds kUntilAsked{20};

struct Part {
  GoodRange goods;
  RowStore rows;
  std::exception_ptr failure;
  bool done = false;
};

// The ranges of one reading and who works on them. A range behind one that failed is not wanted any more;
// those before it are, since a single thread would have met their failures first.
class Parts {
 public:
  explicit Parts(const std::vector<GoodRange>& ranges) : parts_(ranges.size()), failed_(ranges.size()) {
    for (std::size_t i = 0; i < ranges.size(); ++i) parts_[i].goods = ranges[i];
  }

  // The next range to read; none when there is no more.
  std::optional<std::size_t> Take() {
    const std::lock_guard lock(mutex_);
    if (NoneLeft()) return std::nullopt;
    return next_++;
  }
  // What only the thread that took the range may use, until it is done.
  const GoodRange& Goods(std::size_t part) const { return parts_[part].goods; }
  RowStore& Rows(std::size_t part) { return parts_[part].rows; }

  void Done(std::size_t part, std::exception_ptr failure = nullptr) {
    {
      const std::lock_guard lock(mutex_);
      parts_[part].failure = std::move(failure);
      parts_[part].done = true;
      if (parts_[part].failure != nullptr && part < failed_) failed_ = part;
    }
    changed_.notify_all();
  }
  bool Wanted(std::size_t part) const { return !stopped_ && part <= failed_; }
  // Nothing is wanted any more.
  void Stop() {
    {
      const std::lock_guard lock(mutex_);
      next_ = parts_.size();
      stopped_ = true;
    }
    changed_.notify_all();
  }

  // Whether the reading still goes on when a thread may begin to help.
  bool WorthHelping(std::chrono::milliseconds patience) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, patience, [&] { return NoneLeft(); });
    return !NoneLeft();
  }

  enum class Next { Rows, Wait, End };
  // Whether the rows of a range can be put behind those before it.
  Next Look(std::size_t part) {
    const std::lock_guard lock(mutex_);
    if (part >= failed_) return Next::End;
    return parts_[part].done ? Next::Rows : Next::Wait;
  }
  void WaitForMore(std::size_t part) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, kUntilAsked, [&] { return part >= failed_ || parts_[part].done; });
  }
  // When all threads have ended.
  void RethrowFailure() const {
    if (failed_ < parts_.size()) std::rethrow_exception(parts_[failed_].failure);
  }

 private:
  bool NoneLeft() const { return next_ >= failed_; }

  std::vector<Part> parts_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t next_ = 0;
  // Read without the lock as well.
  std::atomic<std::size_t> failed_;  // the first range that failed
  std::atomic<bool> stopped_ = false;
};

// A thread that helps. It has no listener of its own: it only looks whether its range is still wanted.
class RangeProgress : public IStatementProgress {
 public:
  RangeProgress(const Parts& parts, std::size_t part) : parts_(parts), part_(part) {}
  bool Progress(std::size_t) override { return parts_.Wanted(part_); }

 private:
  const Parts& parts_;
  std::size_t part_;
};

constexpr char kLook[] = "SELECT 1 FROM sqlite_schema LIMIT 1";

void Help(Database& db, Parts& parts, const DividedReading::Work& work, std::chrono::milliseconds patience) {
  if (!parts.WorthHelping(patience)) return;
  Statement state;  // holds it, as the calling thread's does
  DividedReading::RangeReader read;
  try {
    state = db.Prepare(kLook);
    state.Step();
    read = work(db);
  } catch (const std::exception&) {
    return;  // somebody waits to write, or there is no memory: the others read it all
  }
  while (const std::optional<std::size_t> part = parts.Take()) {
    try {
      RangeProgress progress(parts, *part);
      ProgressWatch watch(db.Handle(), &progress);
      read(parts.Goods(*part), parts.Rows(*part), watch);
      parts.Rows(*part).Finish();
      parts.Done(*part);
    } catch (...) {
      parts.Done(*part, std::current_exception());
    }
  }
}

// Threads that are waited for, whatever happens.
class Helpers {
 public:
  explicit Helpers(Parts& parts) : parts_(parts) {}
  Helpers(const Helpers&) = delete;
  Helpers& operator=(const Helpers&) = delete;
  ~Helpers() {
    if (!ended_) parts_.Stop();
    Join();
  }
  template <typename Body>
  void Start(Body body) {
    try {
      threads_.emplace_back(std::move(body));
    } catch (const std::system_error&) {  // none to be had: the others do its work
    }
  }
  void End() {
    ended_ = true;
    Join();
  }

 private:
  void Join() {
    for (std::thread& thread : threads_) {
      if (thread.joinable()) thread.join();
    }
  }
  Parts& parts_;
  std::vector<std::thread> threads_;
  bool ended_ = false;
};

// Puts the rows of the ranges together, in order, as far as they are there.
class Joiner {
 public:
  Joiner(Parts& parts, std::size_t count, RowStore& into)
      : parts_(parts), read_(count, ReadBy::Helper), into_(into) {}

  // Where the calling thread writes the rows of a range: behind the others at once where all of them are
  // there.
  RowStore& RowsOf(std::size_t part, ProgressWatch& watch) {
    Join(watch);
    read_[part] = part == next_ ? ReadBy::CallerInPlace : ReadBy::Caller;
    return part == next_ ? into_ : parts_.Rows(part);
  }
  // False at the end, or at a range that failed.
  bool Join(ProgressWatch& watch) {
    for (; next_ < read_.size(); ++next_) {
      const Parts::Next found = parts_.Look(next_);
      if (found != Parts::Next::Rows) return found == Parts::Next::Wait;
      if (read_[next_] == ReadBy::CallerInPlace) continue;
      RowStore rows = std::move(parts_.Rows(next_));
      if (into_.Columns().empty()) into_.Define(rows.Columns());
      into_.Append(rows);
      if (read_[next_] == ReadBy::Helper) watch.RowsReadElsewhere(rows.Count());
    }
    return false;
  }
  std::size_t Awaited() const { return next_; }

 private:
  enum class ReadBy : unsigned char { Helper, Caller, CallerInPlace };
  Parts& parts_;
  std::vector<ReadBy> read_;
  RowStore& into_;
  std::size_t next_ = 0;
};

void ReadAll(const DividedReading::RangeReader& read, RowStore& into, ProgressWatch& watch) {
  read({}, into, watch);
  into.Finish();
}

// The company's file itself, below SQLite's pages; none for what is in memory.
sqlite3_file* FileOf(Database& db) {
  sqlite3_file* file = nullptr;
  const int asked = sqlite3_file_control(db.Handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  return asked == SQLITE_OK && file != nullptr && file->pMethods != nullptr ? file : nullptr;
}

// In its write-ahead log a file goes on while it is read, so that no lock holds its state for all handles.
bool KeepsLog(Database& db) {
  constexpr sqlite3_int64 kReadVersion = 19;
  sqlite3_file* file = FileOf(db);
  unsigned char version = 0;
  return file == nullptr || file->pMethods->xRead(file, &version, 1, kReadVersion) != SQLITE_OK ||
         version != 1;
}

std::int64_t Bytes(Database& db) {
  sqlite3_file* file = FileOf(db);
  sqlite3_int64 bytes = 0;
  return file != nullptr && file->pMethods->xFileSize(file, &bytes) == SQLITE_OK ? bytes : 0;
}

}  // namespace

DividedReading::DividedReading(Database& own, std::string path, Division division)
    : own_(own),
      path_(std::move(path)),
      threads_(division.threads > 0
                   ? division.threads
                   : std::clamp(std::thread::hardware_concurrency(), 1U, Division::kMostThreads)),
      division_(division) {}

void DividedReading::Read(const Work& work, RowStore& into, ProgressWatch& watch) {
  const RangeReader read = work(own_);
  if (threads_ <= 1) return ReadAll(read, into, watch);
  Statement state = own_.Prepare(kLook);
  state.Step();  // and is not reset before the end
  const std::vector<GoodRange>& ranges = Ranges();
  if (ranges.size() > 1) OpenHandles();
  if (ranges.size() <= 1 || handles_.empty()) return ReadAll(read, into, watch);

  Parts parts(ranges);
  Joiner joiner(parts, ranges.size(), into);
  Helpers helpers(parts);
  for (Database& handle : handles_) {
    helpers.Start([&] { Help(handle, parts, work, division_.patience); });
  }
  while (const std::optional<std::size_t> part = parts.Take()) {
    try {
      RowStore& rows = joiner.RowsOf(*part, watch);
      read(parts.Goods(*part), rows, watch);
      if (&rows != &into) rows.Finish();
      parts.Done(*part);
    } catch (const Cancelled&) {
      throw;
    } catch (const SqliteError&) {
      watch.Rethrow();
      parts.Done(*part, std::current_exception());
    } catch (...) {
      parts.Done(*part, std::current_exception());
    }
  }
  while (joiner.Join(watch)) {
    parts.WaitForMore(joiner.Awaited());
    watch.Tell();
  }
  helpers.End();
  parts.RethrowFailure();
  into.Finish();
}

const std::vector<GoodRange>& DividedReading::Ranges() {
  const std::uint32_t state = own_.DataVersion();
  if (!ranges_.empty() && state == rangesState_) return ranges_;
  std::vector<std::int64_t> goods;
  Statement codes = own_.Prepare("SELECT Code FROM GoodInf ORDER BY Code");
  while (codes.Step()) goods.push_back(codes.Integer(0));
  ranges_.assign(1, GoodRange());
  rangesState_ = state;
  if (goods.size() < 2 || (goods.size() < division_.fewestGoods && Bytes(own_) < division_.largeFile))
    return ranges_;
  const std::size_t count = std::min(goods.size(), threads_ * kRangesForThread);
  for (std::size_t i = 1; i < count; ++i) {
    const std::int64_t first = goods[goods.size() * i / count];
    ranges_.back().last = first - 1;
    ranges_.push_back({first, GoodRange().last});
  }
  return ranges_;
}

void DividedReading::OpenHandles() {
  if (std::exchange(opened_, true) || KeepsLog(own_)) return;
  try {
    while (handles_.size() + 1 < threads_) {
      handles_.push_back(OpenCompanyDatabase(path_, SQLITE_OPEN_READONLY, Access::Read));
    }
  } catch (const CompanyError&) {  // as many as there are
  }
  // Another file may have come to the path meanwhile.
  if (own_.WasMoved()) handles_.clear();
}

}  // namespace goods
