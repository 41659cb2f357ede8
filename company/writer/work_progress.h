// How far a long work is, and stopping it.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string_view>

#include "company/company.h"
#include "company/embedded/sqlite.h"

namespace goods {

// stage is Persian and names what is being done; done and total count rows, bytes or steps of it. A total of
// 0 is not known.
struct WorkProgress {
  std::string_view stage;
  std::int64_t done = 0;
  std::int64_t total = 0;
};

// Called on the working thread, a few times a second at least; false asks for the work to be given up.
using WorkWatcher = std::function<bool(const WorkProgress&)>;

// The watcher asked for it. Nothing half is left behind.
class WorkStopped : public CompanyError {
 public:
  WorkStopped();
  ~WorkStopped() override;
};

// Counts through one stage and asks the watcher from time to time. Throws WorkStopped.
class WorkMeter {
 public:
  WorkMeter(const WorkWatcher& watcher, std::string_view stage, std::int64_t total);
  // Once for each row; cheap.
  void Step() {
    if ((++done_ & kMask) == 0) Ask();
  }
  // For work that is counted in something else than steps.
  void Reach(std::int64_t done);
  // The stage is over: tells the watcher its end.
  void End();

 private:
  static constexpr std::int64_t kMask = 0x3ff;
  void Ask();

  const WorkWatcher& watcher_;
  WorkProgress progress_;
  std::int64_t done_ = 0;
  std::chrono::steady_clock::time_point asked_;
};

// While it lives, long statements of the database ask the watcher too; a statement that is stopped so throws
// SqliteError with SQLITE_INTERRUPT. The database must outlive it.
class WatchedStatements {
 public:
  WatchedStatements(Database& db, const WorkWatcher& watcher, std::string_view stage);
  WatchedStatements(const WatchedStatements&) = delete;
  WatchedStatements& operator=(const WatchedStatements&) = delete;
  ~WatchedStatements();

 private:
  static int Ask(void* self);
  Database& db_;
  const WorkWatcher& watcher_;
  WorkProgress progress_;
  std::chrono::steady_clock::time_point asked_;
};

// Runs body; a statement that the watcher stopped becomes WorkStopped.
template <typename Body>
auto RunStoppable(Body body) -> decltype(body()) {
  try {
    return body();
  } catch (const SqliteError& error) {
    if (error.Code() == SQLITE_INTERRUPT) throw WorkStopped();
    throw;
  }
}

}  // namespace goods
