// BackgroundWork: long work on a thread of its own, while the window that began it stays alive.
#pragma once

#include <QObject>
#include <QTimer>
#include <atomic>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "company/writer/work_progress.h"

namespace goods {

// One work at a time. Everything but the body runs on the thread that made the object.
class BackgroundWork : public QObject {
 public:
  // watcher must be handed to what is done; it tells how far the work is and whether it was stopped.
  using Body = std::function<void(const WorkWatcher& watcher)>;
  // failure: what the body threw; null when it ended well.
  using Ended = std::function<void(std::exception_ptr failure)>;

  struct State {
    std::string stage;
    std::int64_t done = 0;
    std::int64_t total = 0;
  };

  explicit BackgroundWork(QObject* parent);
  // Stops the work and waits for it; ended is not called then.
  ~BackgroundWork() override;

  // While nothing runs. told is called now and then with how far the work is.
  void Start(Body body, std::function<void(const State&)> told, Ended ended);
  bool Running() const { return thread_.joinable(); }
  // Asks for it; ended hears of it, as a rule with WorkStopped.
  void Stop() { stop_ = true; }

 private:
  void Look();
  State Now() const;

  QTimer timer_;
  std::thread thread_;
  std::atomic<bool> stop_{false};
  std::atomic<bool> done_{false};
  std::exception_ptr failure_;
  mutable std::mutex mutex_;
  State state_;
  std::function<void(const State&)> told_;
  Ended ended_;
};

}  // namespace goods
