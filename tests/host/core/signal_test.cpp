#include "host/core/signal.h"

#include <memory>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace goods {
namespace {

TEST(Signals, CallListenersInTheOrderOfConnecting) {
  Signal<int> signal;
  std::string heard;
  const Subscription a = signal.Connect([&heard](int n) { heard += "a" + std::to_string(n); });
  const Subscription b = signal.Connect([&heard](int n) { heard += "b" + std::to_string(n); });
  signal(1);
  signal(2);
  EXPECT_EQ(heard, "a1b1a2b2");
}

TEST(Signals, ADestroyedSubscriptionIsHeardNoMore) {
  Signal<> signal;
  int calls = 0;
  {
    const Subscription subscription = signal.Connect([&calls] { ++calls; });
    signal();
  }
  signal();
  EXPECT_EQ(calls, 1);
}

TEST(Signals, ASubscriptionMayOutliveItsSignal) {
  auto signal = std::make_unique<Signal<>>();
  Subscription subscription = signal->Connect([] {});
  signal.reset();
  subscription.Disconnect();
  EXPECT_EQ(signal, nullptr);
}

TEST(Signals, AListenerMayDisconnectItselfAndOthersWhileCalled) {
  Signal<> signal;
  std::string heard;
  Subscription a;
  Subscription b;
  a = signal.Connect([&] {
    heard += 'a';
    a.Disconnect();
    b.Disconnect();
    heard += 'A';
  });
  b = signal.Connect([&] { heard += 'b'; });
  const Subscription c = signal.Connect([&] { heard += 'c'; });
  signal();
  signal();
  EXPECT_EQ(heard, "aAcc");
}

TEST(Signals, AListenerConnectedDuringACallIsFirstCalledAtTheNext) {
  Signal<> signal;
  std::string heard;
  Subscription late;
  const Subscription first = signal.Connect([&] {
    heard += 'f';
    if (heard.size() == 1) late = signal.Connect([&] { heard += 'l'; });
  });
  signal();
  EXPECT_EQ(heard, "f");
  signal();
  EXPECT_EQ(heard, "ffl");
}

TEST(Signals, AListenerMayFireTheSignalAgain) {
  Signal<int> signal;
  std::string heard;
  const Subscription a = signal.Connect([&](int depth) {
    heard += std::to_string(depth);
    if (depth < 3) signal(depth + 1);
  });
  signal(1);
  EXPECT_EQ(heard, "123");
}

TEST(Signals, AListenerMayDestroyTheSignal) {
  auto signal = std::make_unique<Signal<>>();
  int later = 0;
  const Subscription killer = signal->Connect([&signal] { signal.reset(); });
  const Subscription other = signal->Connect([&later] { ++later; });
  (*signal)();
  EXPECT_EQ(later, 0);
}

TEST(Signals, WhatAListenerThrowsReachesTheCallerAndTheSignalStaysUsable) {
  Signal<> signal;
  int calls = 0;
  Subscription bad = signal.Connect([] { throw std::runtime_error("listener"); });
  const Subscription good = signal.Connect([&calls] { ++calls; });
  EXPECT_THROW(signal(), std::runtime_error);
  bad.Disconnect();
  signal();
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace goods
