#include "progress_line.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <string>

#include "company/system/program.h"

namespace goods {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kTerminalPause{200};
constexpr std::chrono::seconds kLinePause{5};
constexpr int kBarWidth = 24;

volatile std::sig_atomic_t stopAsked = 0;
bool lineOpen = false;

void AskToStop(int signal) {
  stopAsked = 1;
  std::signal(signal, SIG_DFL);
}

std::string Minutes(std::int64_t seconds) {
  const std::string rest = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + ":" + (rest.size() < 2 ? "0" : "") + rest;
}

std::string Share(const WorkProgress& progress, Clock::time_point began) {
  if (progress.total <= 0) return progress.done > 0 ? std::to_string(progress.done) : "";
  const std::int64_t percent = progress.done * 100 / progress.total;
  std::string text = std::to_string(progress.done) + "/" + std::to_string(progress.total) + "  " +
                     std::to_string(percent) + "%";
  const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - began).count();
  if (progress.done > 0 && passed > 1000) {
    text += "  " + Minutes(passed * (progress.total - progress.done) / progress.done / 1000);
  }
  return text;
}

std::string Bar(const WorkProgress& progress) {
  if (progress.total <= 0) return "";
  const auto filled = static_cast<int>(progress.done * kBarWidth / progress.total);
  std::string bar = "[";
  for (int i = 0; i < kBarWidth; ++i) bar += i < filled ? '#' : '.';
  return bar + "]  ";
}

class ProgressLine {
 public:
  explicit ProgressLine(bool silent) : silent_(silent), terminal_(ErrorsAreTerminal()) {}

  void Show(const WorkProgress& progress) {
    if (silent_) return;
    const Clock::time_point now = Clock::now();
    const bool newStage = stage_ != progress.stage || progress.done < done_;
    if (newStage) {
      stage_ = progress.stage;
      began_ = now;
    }
    done_ = progress.done;
    const bool due = terminal_ ? now - shown_ >= kTerminalPause : now - shown_ >= kLinePause;
    if (!due && !(newStage && terminal_)) return;
    shown_ = now;
    if (terminal_) {
      const std::string text = stage_ + "  " + Bar(progress) + Share(progress, began_);
      std::fprintf(stderr, "\r\033[K%s", text.c_str());
      std::fflush(stderr);
      lineOpen = true;
    } else {
      std::fprintf(stderr, "%s  %s\n", stage_.c_str(), Share(progress, began_).c_str());
    }
  }

 private:
  bool silent_;
  bool terminal_;
  std::string stage_;
  std::int64_t done_ = 0;
  Clock::time_point began_ = Clock::now();
  Clock::time_point shown_ = Clock::now();
};

}  // namespace

WorkWatcher MakeProgressLine(bool silent) {
  for (const int signal : StopSignals()) std::signal(signal, AskToStop);
  return [line = ProgressLine(silent)](const WorkProgress& progress) mutable {
    line.Show(progress);
    return stopAsked == 0;
  };
}

void EndProgressLine() {
  if (!lineOpen) return;
  std::fprintf(stderr, "\r\033[K");
  std::fflush(stderr);
  lineOpen = false;
}

}  // namespace goods
