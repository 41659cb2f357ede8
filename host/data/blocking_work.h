// BlockingWork: how a connection whose driver blocks keeps the thread contract of connection.h.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>

namespace goods {

class IStatementProgress;

// Ended: the work came to its end, whether or not it was asked to stop. Stopped: it was asked to stop, and
// then ended in time. Abandoned: it was asked to stop and did not end in time; it goes on by itself, and what
// it works with must not be used any more.
enum class WorkOutcome { Ended, Stopped, Abandoned };

class BlockingWork {
 public:
  static constexpr std::chrono::milliseconds kBetweenQuestions{25};
  // How long work that was asked to stop is waited for.
  static constexpr std::chrono::milliseconds kPatience{100};

  // Counts the rows that the work has read; shared, since abandoned work goes on counting.
  using Rows = std::shared_ptr<std::atomic<std::size_t>>;

  // Runs work on a thread of its own. Meanwhile the calling thread asks progress at least every 50 ms,
  // however long the work blocks; when progress says stop, stop is called once, on the calling thread, while
  // the work may still run. Everything that work uses must be owned by it, since it may outlive the call.
  // progress null: the work runs on the calling thread. What work throws comes out, unless it was asked to
  // stop; what progress throws comes out after the work was asked to stop, and tells nothing of how it ended:
  // outcome then says it.
  static WorkOutcome Run(IStatementProgress* progress, const Rows& rows, std::function<void()> work,
                         const std::function<void()>& stop, WorkOutcome* outcome = nullptr);
};

}  // namespace goods
