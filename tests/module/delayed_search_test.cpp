// Delayed search, with the test as the clock.
#include "module/framework/delayed_search.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "host/components/standard.h"
#include "module/framework/program_change.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

// A window with an edit whose typing runs something later.
class TypingWindow : public TForm {
 public:
  explicit TypingWindow(THost& host) : TForm(host, "Typing_FRM") {
    Place(Search_EDT);
    Search_EDT.OnChange = [this] { Search.Typed(kSearchEditTyped); };
  }
  void WindowMessage(int code) override { handled.push_back(Search.Handle(code, &Search_EDT)); }

  TEdit Search_EDT{this, "Search_EDT"};
  DelayedSearch Search{*this, [this] {
                         ++runs;
                         if (OnRun) OnRun();
                       }};
  std::function<void()> OnRun;
  int runs = 0;
  std::vector<bool> handled;
};

class DelayedSearchTest : public testing::Test {
 protected:
  using Action = std::function<void()>;

  // Shows the window and takes the actions one after the other, each when all is quiet; then closes it.
  void While(std::deque<Action> actions) {
    host.Windows().OnIdle = [&actions] {
      if (actions.empty()) return false;
      const Action action = std::move(actions.front());
      actions.pop_front();
      action();
      return true;
    };
    window.ShowModal();
    host.Windows().OnIdle = nullptr;
  }
  Action Pass(std::uint64_t milliseconds) {
    return [this, milliseconds] { host.Windows().LetTimePass(milliseconds); };
  }
  Action Runs(int expected) {
    return [this, expected] { EXPECT_EQ(window.runs, expected); };
  }
  // A key that many milliseconds from now.
  Action Type(std::uint64_t after, const std::string& text) {
    return Later(after, [this, text] { window.Search_EDT.TypeText(text); });
  }
  Action Later(std::uint64_t after, Action action) {
    return [this, after, action] { host.Windows().QueueInput(after, action); };
  }

  ScriptedHost host;
  TypingWindow window{host};
};

TEST_F(DelayedSearchTest, ABurstOfKeysRunsOnceAfterTheQuietTime) {
  While({Type(0, "a"), Pass(100), Type(0, "ab"), Pass(250), Type(0, "abc"), Pass(380), Runs(0),
         [this] { EXPECT_TRUE(window.Search.Pending()); }, Pass(40), Runs(1),
         [this] { EXPECT_FALSE(window.Search.Pending()); }, Pass(2000), Runs(1)});
}

TEST_F(DelayedSearchTest, TwoBurstsRunTwice) {
  While({Type(0, "a"), Pass(500), Runs(1), Type(0, "ab"), Pass(500), Runs(2)});
}

TEST_F(DelayedSearchTest, KeysInOtherControlsShareTheWait) {
  const auto key = [this](int message) { return Action([this, message] { window.Search.Typed(message); }); };
  While({Type(0, "a"), Pass(300), key(kValueComboTyped), Pass(300), key(kLowerEditTyped), Pass(300),
         key(kUpperEditTyped), Pass(380), Runs(0), Pass(1000), Runs(1)});
}

TEST_F(DelayedSearchTest, AKeyDuringARunRunsOnceMoreAndNeverInsideIt) {
  int depth = 0;
  int deepest = 0;
  window.OnRun = [&] {
    deepest = std::max(deepest, ++depth);
    if (window.runs == 1) {
      window.Search_EDT.TypeText("ab");
      host.Windows().ProcessMessages([&] { return host.Windows().TickCount() % 50 == 0; });
    }
    --depth;
  };
  While({Type(0, "a"), Pass(3000), Runs(2)});
  EXPECT_EQ(deepest, 1);
}

// A host that delivers messages during a statement, for longer than the quiet time.
TEST_F(DelayedSearchTest, AHostThatPumpsDuringARunCannotNestAnother) {
  int depth = 0;
  int deepest = 0;
  window.OnRun = [&] {
    deepest = std::max(deepest, ++depth);
    if (window.runs == 1) {
      window.Search_EDT.TypeText("ab");
      const std::uint64_t end = host.Windows().TickCount() + 1000;
      host.Windows().LetTimePass(1000);
      host.Windows().ProcessMessages([&] { return host.Windows().TickCount() >= end; });
    }
    --depth;
  };
  While({Type(0, "a"), Pass(3000), Runs(2), [this] { EXPECT_FALSE(window.Search.Pending()); }});
  EXPECT_EQ(deepest, 1);
}

TEST_F(DelayedSearchTest, KeysDuringARunOfAnotherKindWaitUntilItHasEnded) {
  While({[this] {
           const DelayedSearch::RunScope running(window.Search);
           window.Search_EDT.TypeText("a");
           const std::uint64_t end = host.Windows().TickCount() + 1000;
           host.Windows().LetTimePass(1000);
           host.Windows().ProcessMessages([&] { return host.Windows().TickCount() >= end; });
           EXPECT_EQ(window.runs, 0);
         },
         Runs(1)});
}

TEST_F(DelayedSearchTest, AHeldWaitGoesOnUntilItIsLetGoAndTellsOnce) {
  int told = 0;
  window.Search_EDT.SetKind(InputKind::Integer);
  window.Search.OnHeld = [&] { ++told; };
  While({[this] { window.Search_EDT.SetFocus(); }, Type(0, "-"), Pass(3000), Runs(0),
         [&] { EXPECT_EQ(told, 1); }, [this] { window.SetActiveControl(nullptr); }, Pass(10), Runs(1)});
}

TEST_F(DelayedSearchTest, AHeldWaitEndsWithItsWindow) {
  window.Search_EDT.SetKind(InputKind::Integer);
  While({[this] { window.Search_EDT.SetFocus(); }, Type(0, "-"), Pass(3000)});
  EXPECT_EQ(window.runs, 0);
}

TEST_F(DelayedSearchTest, CancellingEndsTheWaitWithoutARun) {
  While({Type(0, "a"), Pass(200), [this] { window.Search.Cancel(); }, Pass(2000), Runs(0), Type(0, "ab"),
         Pass(2000), Runs(1)});
}

TEST_F(DelayedSearchTest, AMessageThatComesAfterCancellingRunsNothing) {
  window.Search_EDT.TypeText("a");
  window.Search.Cancel();
  While({Pass(2000), Runs(0)});
  EXPECT_EQ(window.handled, std::vector<bool>{true});
}

TEST_F(DelayedSearchTest, AClosingWindowRunsNothing) {
  While({Type(0, "a"), Pass(200), [this] { window.Close(); }});
  EXPECT_EQ(window.runs, 0);
}

TEST_F(DelayedSearchTest, ARunThatFailsIsToldAndTheNextKeyWaitsAgain) {
  window.OnRun = [] { throw std::runtime_error("timeout"); };
  While({Type(0, "a"), Pass(1000), Runs(1), [this] { window.OnRun = nullptr; }, Type(0, "ab"), Pass(1000),
         Runs(2)});
  EXPECT_EQ(host.Log.Take(CallKind::Message), std::vector<std::string>{"ShowError(\"timeout\")"});
}

TEST_F(DelayedSearchTest, TheCaretIsWhereItWas) {
  window.OnRun = [this] { window.Search_EDT.SetCaret(0); };
  While({Type(0, "abcd"), [this] { window.Search_EDT.SetCaret(2); }, Pass(1000), Runs(1),
         [this] { EXPECT_EQ(window.Search_EDT.Caret(), 2); }});
}

TEST_F(DelayedSearchTest, OtherMessagesAreNotItsBusiness) {
  for (const int code : {0, kSearchEditTyped - 1, kUpperEditTyped + 1}) {
    EXPECT_FALSE(window.Search.Handle(code, nullptr)) << code;
  }
}

TEST(ProgramChangeTest, TheBoxCarriesTheTagForAScope) {
  TCheckBox box(nullptr, "Date_CHK");
  box.Tag = 5;
  long seen = 0;
  box.OnClick = [&] { seen = box.Tag; };
  {
    const ProgramChange change(box);
    box.SetChecked(true);
  }
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(box.Tag, 5);
}

TEST_F(DelayedSearchTest, AHalfTypedNumberIsWaitedForWhileItHasTheFocus) {
  window.Search_EDT.SetKind(InputKind::Integer);
  While({[this] { window.Search_EDT.SetFocus(); }, Type(0, "-"), Pass(3000), Runs(0), Type(0, "-5"),
         Pass(500), Runs(1), Type(0, "-"), Pass(1000), Runs(1), [this] { window.SetActiveControl(nullptr); },
         Pass(500), Runs(2)});
}

}  // namespace
}  // namespace goods
