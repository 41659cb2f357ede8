// The boundary of the library: attaching, detaching, and what never leaves an export.
#include <deque>
#include <functional>
#include <stdexcept>

#include <gtest/gtest.h>

#include "goods_transaction_qrt.h"
#include "host/components/edit.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

goods_host* Address(THost& host) { return reinterpret_cast<goods_host*>(&host); }

class Exports : public testing::Test {
 protected:
  void SetUp() override {
    host.Windows().OnIdle = [this] {
      if (actions.empty()) return false;
      const auto action = actions.front();
      actions.pop_front();
      action();
      return true;
    };
    ASSERT_EQ(Goods_AttachHost(GOODS_HOST_VERSION, Address(host)), 1);
  }
  void TearDown() override { Goods_DetachHost(); }

  ScriptedHost host;
  std::deque<std::function<void()>> actions;  // what the user does while a window is shown
};

TEST(Attaching, RefusesAnotherVersionNoHostAndASecondHost) {
  ScriptedHost host;
  EXPECT_EQ(Goods_AttachHost(GOODS_HOST_VERSION + 1, Address(host)), 0);
  EXPECT_NE(std::string(Goods_AttachProblem()).find("هر دو را از یک نسخه بسازید"), std::string::npos);
  EXPECT_EQ(Goods_AttachHost(GOODS_HOST_VERSION, nullptr), 0);
  EXPECT_STREQ(Goods_AttachProblem(), "میزبانی داده نشده است.");
  EXPECT_EQ(Goods_AttachHost(GOODS_HOST_VERSION, Address(host)), 1);
  EXPECT_STREQ(Goods_AttachProblem(), "");
  ScriptedHost other;
  EXPECT_EQ(Goods_AttachHost(GOODS_HOST_VERSION, Address(other)), 0);
  EXPECT_TRUE(host.Log.Calls().empty());
  EXPECT_EQ(Goods_DetachHost(), 1);
  EXPECT_EQ(Goods_DetachHost(), 0);
}

TEST(Attaching, WithoutAHostEveryExportDoesNothing) {
  Open_GoodKardex();
  Open_Kardex(12, 0, u"", u"");
  Open_StoreExistance();
  EXPECT_EQ(Goods_DetachHost(), 0);
}

TEST(Attaching, AHostMayGoAndAnotherMayCome) {
  for (int round = 0; round < 3; ++round) {
    ScriptedHost host;
    ASSERT_EQ(Goods_AttachHost(GOODS_HOST_VERSION, Address(host)), 1);
    Open_GoodKardex();
    EXPECT_EQ(host.Log.Take(CallKind::Window), std::vector<std::string>{"RunModal(Kardex_FRM)"});
    EXPECT_EQ(Goods_DetachHost(), 1);
  }
}

TEST_F(Exports, TheHostCannotBeDetachedWhileAReportIsShown) {
  int whileShown = -1;
  actions.push_back([&] { whileShown = Goods_DetachHost(); });
  Open_GoodKardex();
  EXPECT_EQ(whileShown, 0);
  EXPECT_EQ(Goods_DetachHost(), 1);
}

TEST_F(Exports, DetachingFreesTheKeptWindows) {
  Open_GoodKardex();
  ASSERT_NE(host.Windows().ClosedLast(), nullptr);
  EXPECT_EQ(Goods_DetachHost(), 1);
  EXPECT_EQ(host.Windows().ClosedLast(), nullptr);
}

TEST_F(Exports, ANullTextIsTheEmptyOne) {
  bool empty = false;
  actions.push_back([&] {
    const auto* from = host.Windows().ActiveWindow()->FindComponent("Date_RDSF.RangeDate_From_EDT");
    empty = dynamic_cast<const TEdit&>(*from).Text().empty();
  });
  Open_Kardex(0, 0, nullptr, nullptr);
  EXPECT_TRUE(empty);
}

TEST_F(Exports, OpenStoreExistanceAsksTheHostForNothing) {
  Open_StoreExistance();
  EXPECT_TRUE(host.Log.Calls().empty());
}

// A host whose message loop breaks.
class BrokenLoopHost : public ScriptedHost {
 public:
  BrokenLoopHost() {
    Windows().OnIdle = []() -> bool { throw std::runtime_error("the loop is broken"); };
  }
};

TEST(ExportErrors, WhatEscapesIsShownByTheHostAndTheWindowCanBeOpenedAgain) {
  BrokenLoopHost host;
  ASSERT_EQ(Goods_AttachHost(GOODS_HOST_VERSION, Address(host)), 1);
  Open_GoodKardex();
  EXPECT_EQ(host.Log.Take(CallKind::Message), std::vector<std::string>{"ShowError(\"the loop is broken\")"});
  host.Windows().OnIdle = nullptr;
  Open_GoodKardex();
  EXPECT_TRUE(host.Log.Take(CallKind::Message).empty());
  EXPECT_EQ(Goods_DetachHost(), 1);
}

}  // namespace
}  // namespace goods
