// Work that blocks, watched from the thread that asked for it.
#include "host/data/blocking_work.h"

#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "host/data/connection.h"

namespace goods {
namespace {

using Clock = std::chrono::steady_clock;

BlockingWork::Rows NoRows() { return std::make_shared<std::atomic<std::size_t>>(0); }

// A driver that blocks until it is let go.
struct Gate {
  std::mutex mutex;
  std::condition_variable opened;
  bool open = false;
  void Open() {
    const std::lock_guard lock(mutex);
    open = true;
    opened.notify_all();
  }
  void Wait() {
    std::unique_lock lock(mutex);
    opened.wait(lock, [&] { return open; });
  }
};

class Listener : public IStatementProgress {
 public:
  bool Progress(std::size_t rows) override {
    EXPECT_EQ(std::this_thread::get_id(), caller_);
    heard.push_back(rows);
    if (OnProgress) OnProgress();
    if (throws) throw std::runtime_error("listener");
    return heard.size() < stopAt;
  }
  std::function<void()> OnProgress;
  std::vector<std::size_t> heard;
  std::size_t stopAt = SIZE_MAX;
  bool throws = false;

 private:
  std::thread::id caller_ = std::this_thread::get_id();
};

TEST(BlockingWork, TheCallerIsAskedOnItsOwnThreadWhileTheWorkBlocks) {
  const auto gate = std::make_shared<Gate>();
  const BlockingWork::Rows rows = NoRows();
  Listener listener;
  listener.OnProgress = [&] {
    rows->store(rows->load() + 10);
    if (listener.heard.size() == 4) gate->Open();
  };
  const WorkOutcome outcome = BlockingWork::Run(
      &listener, rows, [gate] { gate->Wait(); }, [] { FAIL() << "nobody asked to stop"; });
  EXPECT_EQ(outcome, WorkOutcome::Ended);
  ASSERT_GE(listener.heard.size(), 4U);
  EXPECT_EQ(listener.heard[3], 30U);
}

TEST(BlockingWork, WorkThatIsAskedToStopIsWaitedFor) {
  const auto gate = std::make_shared<Gate>();
  Listener listener;
  listener.stopAt = 2;
  int stops = 0;
  const WorkOutcome outcome = BlockingWork::Run(
      &listener, NoRows(), [gate] { gate->Wait(); },
      [&] {
        ++stops;
        gate->Open();
      });
  EXPECT_EQ(outcome, WorkOutcome::Stopped);
  EXPECT_EQ(stops, 1);
}

TEST(BlockingWork, WorkThatDoesNotStopIsLeftBehind) {
  const auto gate = std::make_shared<Gate>();
  const auto ended = std::make_shared<Gate>();
  Listener listener;
  listener.stopAt = 1;
  const WorkOutcome outcome = BlockingWork::Run(
      &listener, NoRows(),
      [gate, ended] {
        gate->Wait();
        ended->Open();
      },
      [] {});
  EXPECT_EQ(outcome, WorkOutcome::Abandoned);
  gate->Open();
  ended->Wait();
}

TEST(BlockingWork, WhatTheWorkThrowsComesOut) {
  Listener listener;
  EXPECT_THROW(BlockingWork::Run(
                   &listener, NoRows(), [] { throw std::out_of_range("work"); }, [] {}),
               std::out_of_range);
  EXPECT_THROW(BlockingWork::Run(
                   nullptr, NoRows(), [] { throw std::out_of_range("work"); }, [] {}),
               std::out_of_range);
}

TEST(BlockingWork, WhatTheListenerThrowsComesOutAfterTheWorkWasAskedToStop) {
  const auto gate = std::make_shared<Gate>();
  Listener listener;
  listener.throws = true;
  WorkOutcome outcome = WorkOutcome::Ended;
  EXPECT_THROW(BlockingWork::Run(
                   &listener, NoRows(), [gate] { gate->Wait(); }, [gate] { gate->Open(); }, &outcome),
               std::runtime_error);
  EXPECT_EQ(outcome, WorkOutcome::Stopped);
}

}  // namespace
}  // namespace goods
