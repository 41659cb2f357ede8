// Signals: how a component tells those who watch it that its state changed.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace goods {

// A subscription keeps its listener connected; destroying it disconnects. It may outlive the signal.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::shared_ptr<void> token) : token_(std::move(token)) {}
  void Disconnect() { token_.reset(); }

 private:
  std::shared_ptr<void> token_;
};

// Listeners are called in the order of connecting. A listener may connect or disconnect any listener, or
// destroy the signal, while it is being called; one connected during a call is first called at the next one.
template <typename... Args>
class Signal {
 public:
  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  [[nodiscard]] Subscription Connect(std::function<void(Args...)> listener) {
    auto slot = std::make_shared<std::function<void(Args...)>>(std::move(listener));
    slots_.push_back(slot);
    return Subscription(std::move(slot));
  }

  bool HasListeners() const {
    for (const auto& slot : slots_)
      if (!slot.expired()) return true;
    return false;
  }

  void operator()(Args... args) {
    if (slots_.empty()) return;
    const std::vector<std::weak_ptr<std::function<void(Args...)>>> calling = slots_;
    bool anyGone = false;
    const std::weak_ptr<int> alive = alive_;
    for (const auto& weak : calling) {
      if (const auto slot = weak.lock()) {
        (*slot)(args...);
        if (alive.expired()) return;
      } else {
        anyGone = true;
      }
    }
    if (anyGone) std::erase_if(slots_, [](const auto& weak) { return weak.expired(); });
  }

 private:
  std::vector<std::weak_ptr<std::function<void(Args...)>>> slots_;
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);
};

}  // namespace goods
