#include "host/data/blocking_work.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

#include "host/data/connection.h"

namespace goods {

namespace {

// Shared by the two threads; the work's may outlive the call.
struct Job {
  std::mutex mutex;
  std::condition_variable ended;
  bool done = false;
  std::exception_ptr thrown;
};

void DoWork(const std::shared_ptr<Job>& job, const std::function<void()>& work) {
  std::exception_ptr thrown;
  try {
    work();
  } catch (...) {
    thrown = std::current_exception();
  }
  const std::lock_guard lock(job->mutex);
  job->thrown = thrown;
  job->done = true;
  job->ended.notify_all();
}

bool EndedWithin(Job& job, std::chrono::milliseconds time) {
  std::unique_lock lock(job.mutex);
  return job.ended.wait_for(lock, time, [&] { return job.done; });
}

}  // namespace

WorkOutcome BlockingWork::Run(IStatementProgress* progress, const Rows& rows, std::function<void()> work,
                              const std::function<void()>& stop, WorkOutcome* outcome) {
  WorkOutcome ignored = WorkOutcome::Ended;
  WorkOutcome& told = outcome != nullptr ? *outcome : ignored;
  told = WorkOutcome::Ended;
  if (progress == nullptr) {
    work();
    return told;
  }
  const auto job = std::make_shared<Job>();
  std::thread thread([job, work = std::move(work)]() mutable {
    DoWork(job, work);
    work = nullptr;
  });
  std::exception_ptr thrown;
  bool goOn = true;
  while (goOn && !EndedWithin(*job, kBetweenQuestions)) {
    try {
      goOn = progress->Progress(rows->load());
    } catch (...) {
      thrown = std::current_exception();
      goOn = false;
    }
  }
  if (!goOn) {
    stop();
    told = EndedWithin(*job, kPatience) ? WorkOutcome::Stopped : WorkOutcome::Abandoned;
  }
  if (told == WorkOutcome::Abandoned) {
    thread.detach();
  } else {
    thread.join();
  }
  if (thrown != nullptr) std::rethrow_exception(thrown);
  if (told == WorkOutcome::Ended && job->thrown != nullptr) std::rethrow_exception(job->thrown);
  return told;
}

}  // namespace goods
