// Windows that cannot be made, and hosts that fail at the end of a wait.
#include <stdexcept>

#include <gtest/gtest.h>

#include "host/components/standard.h"
#include "host/services/waiting.h"

namespace goods {
namespace {

// A panel whose making fails before its label has been placed.
class UnmadePanel : public TPanel {
 public:
  explicit UnmadePanel(TComponent* owner) : TPanel(owner, "Unmade") { throw std::runtime_error("no memory"); }
  TLabel Label{this, "Label", "text"};
};

TEST(FailingWindow, AControlThatWasNeverPlacedGoesWithTheWindowThatCouldNotBeMade) {
  EXPECT_THROW(UnmadePanel(nullptr), std::runtime_error);
}

class FailingWaiting : public IWaiting {
 public:
  void ShowWaitting(TForm*, std::string_view) override {}
  void HideWaitting(TForm*, int) override {
    ++Hidden;
    throw std::runtime_error("no indicator");
  }
  int Hidden = 0;
};

TEST(FailingWindow, AnIndicatorThatCannotBeHiddenLeavesTheFirstErrorAsItIs) {
  FailingWaiting waiting;
  try {
    const WaitingScope scope(waiting, nullptr, "");
    throw std::domain_error("the first");
  } catch (const std::exception& error) {
    EXPECT_STREQ(error.what(), "the first");
  }
  EXPECT_EQ(waiting.Hidden, 1);
}

}  // namespace
}  // namespace goods
