// Every fault in turn: a call to the disk, an allocation, a kill at any moment. What was asked for is done or
// it is told why not, the file is whole, and the next attempt works. GOODS_CAMPAIGN=N in the environment
// tries N times as many.
#include "faults_fixture.h"

namespace goods {
namespace {

TEST_F(FaultsTest, ADiskThatFailsWhileACompanyIsRead) {
  EXPECT_GT(InTurn<FaultyDisk>([this] { Open(); }, 60), 20);
}

TEST_F(FaultsTest, ADiskThatFailsWhileFiguresAreRefreshed) {
  EXPECT_GT(InTurn<FaultyDisk>([this] { Refresh(); }, 60), 50);
  EXPECT_GT(InTurn<LastingFault>([this] { Refresh(); }, 30), 20);
}

TEST_F(FaultsTest, ADiskThatFailsWhileACompanyIsReplaced) {
  EXPECT_GT(InTurn<FaultyDisk>([this] { Replace(); }, 12), 10);
}

TEST_F(FaultsTest, ADiskThatFailsWhileACompanyIsBroughtUpToDate) {
  MakeOlder();
  // An older company answers once it has been brought up to date: the figures are the same before and after.
  const std::string figures = [this] {
    std::string now = Figures(file_.Path());
    Restore();
    return now;
  }();
  int calls = 0;
  {
    const FaultyDisk counting(0);
    OpenCompany(file_.Path());
    calls = FaultyDisk::Calls();
  }
  const int stride = std::max(1, calls / (60 * Campaign()));
  for (int at = 1; at <= calls; at += stride) {
    Restore();
    {
      const FaultyDisk fault(at);
      GotThrough([this] { OpenCompany(file_.Path()); });
    }
    EXPECT_EQ(Figures(file_.Path()), figures) << at;
  }
}

TEST_F(FaultsTest, MemoryThatRunsOutWhileACompanyIsRead) {
  EXPECT_GT(InTurn<FailingNew>([this] { Open(); }, 60), 50);
}

TEST_F(FaultsTest, MemoryThatRunsOutWhileFiguresAreRefreshed) {
  EXPECT_GT(InTurn<FailingNew>([this] { Refresh(); }, 60), 50);
}

TEST_F(FaultsTest, MemoryThatRunsOutWhileACompanyIsReplaced) {
  EXPECT_GT(InTurn<FailingNew>([this] { Replace(); }, 12), 10);
}

TEST_F(KillsTest, AKilledReplacementLeavesTheOldCompanyOrTheNewOne) {
  EXPECT_GT(AtRandom([this] { Replace(); }, 12), 0);
}

TEST_F(KillsTest, AKilledRefreshLeavesTheOldFiguresOrTheNewOnes) {
  AtRandom([this] { Refresh(); }, 12);
}

TEST_F(KillsTest, AKilledUpgradeLeavesACompanyThatOpens) {
  MakeOlder();
  AtRandom([this] { OpenCompany(file_.Path()); }, 12);
}

}  // namespace
}  // namespace goods
