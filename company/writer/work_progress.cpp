#include "company/writer/work_progress.h"

namespace goods {

namespace {

constexpr std::chrono::milliseconds kPause{50};
constexpr int kInstructions = 100'000;  // of SQLite's machine, between two questions

}  // namespace

WorkStopped::WorkStopped() : CompanyError("کار به خواست کاربر نیمه کاره رها شد و چیزی تغییر نکرد.") {}
WorkStopped::~WorkStopped() = default;

WorkMeter::WorkMeter(const WorkWatcher& watcher, std::string_view stage, std::int64_t total)
    : watcher_(watcher), progress_{stage, 0, total}, asked_(std::chrono::steady_clock::now()) {
  if (watcher_ && !watcher_(progress_)) throw WorkStopped();
}

void WorkMeter::Reach(std::int64_t done) {
  done_ = done;
  Ask();
}

void WorkMeter::End() {
  progress_.done = progress_.total > 0 ? progress_.total : done_;
  if (watcher_ && !watcher_(progress_)) throw WorkStopped();
}

void WorkMeter::Ask() {
  if (!watcher_) return;
  const auto now = std::chrono::steady_clock::now();
  if (now - asked_ < kPause) return;
  asked_ = now;
  progress_.done = done_;
  if (!watcher_(progress_)) throw WorkStopped();
}

WatchedStatements::WatchedStatements(Database& db, const WorkWatcher& watcher, std::string_view stage)
    : db_(db), watcher_(watcher), progress_{stage, 0, 0}, asked_(std::chrono::steady_clock::now()) {
  if (!watcher_) return;
  if (!watcher_(progress_)) throw WorkStopped();
  sqlite3_progress_handler(db_.Handle(), kInstructions, &WatchedStatements::Ask, this);
}

WatchedStatements::~WatchedStatements() {
  if (watcher_) sqlite3_progress_handler(db_.Handle(), 0, nullptr, nullptr);
}

int WatchedStatements::Ask(void* self) {
  auto* watched = static_cast<WatchedStatements*>(self);
  const auto now = std::chrono::steady_clock::now();
  if (now - watched->asked_ < kPause) return 0;
  watched->asked_ = now;
  try {
    return watched->watcher_(watched->progress_) ? 0 : 1;
  } catch (...) {  // nothing may be thrown through SQLite: a watcher that fails stops the work
    return 1;
  }
}

}  // namespace goods
