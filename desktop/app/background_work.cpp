#include "desktop/app/background_work.h"

#include <utility>

namespace goods {
namespace {

constexpr int kLookInterval = 40;  // milliseconds

}  // namespace

BackgroundWork::BackgroundWork(QObject* parent) : QObject(parent) {
  connect(&timer_, &QTimer::timeout, this, &BackgroundWork::Look);
}

BackgroundWork::~BackgroundWork() {
  stop_ = true;
  if (thread_.joinable()) thread_.join();
}

void BackgroundWork::Start(Body body, std::function<void(const State&)> told, Ended ended) {
  stop_ = false;
  done_ = false;
  failure_ = nullptr;
  state_ = {};
  told_ = std::move(told);
  ended_ = std::move(ended);
  thread_ = std::thread([this, body = std::move(body)] {
    try {
      body([this](const WorkProgress& progress) {
        const std::lock_guard lock(mutex_);
        state_ = {std::string(progress.stage), progress.done, progress.total};
        return !stop_;
      });
    } catch (...) {
      failure_ = std::current_exception();
    }
    done_ = true;
  });
  timer_.start(kLookInterval);
}

BackgroundWork::State BackgroundWork::Now() const {
  const std::lock_guard lock(mutex_);
  return state_;
}

void BackgroundWork::Look() {
  told_(Now());
  if (!done_) return;
  timer_.stop();
  thread_.join();
  // The end may begin the next work.
  const Ended ended = std::exchange(ended_, nullptr);
  ended(std::exchange(failure_, nullptr));
}

}  // namespace goods
