// The same while files go into a company and out of it, but for memory that runs out: the standard library
// reads a folder in functions that may not throw.
#include "company/interchange/export_company.h"
#include "company/interchange/import_company.h"
#include "faults_fixture.h"

namespace goods {
namespace {

class InterchangeFaultsTest : public KillsTest {
 protected:
  void Import() {
    ImportOptions options;
    options.replace = true;
    options.firstPassword = "first password";
    ImportCompany(file_.Path(), GOODS_IMPORT_EXAMPLE, options);
  }
  // What is added fits the company that the example makes.
  void BeginWithTheExample() {
    ImportOptions options;
    options.replace = true;
    options.firstPassword = "first password";
    ImportCompany(sound_.Path(), GOODS_IMPORT_EXAMPLE, options);
    Restore();
    std::filesystem::create_directories(addition_.Path());
    WriteFile(addition_.Path() + "/movements.csv",
              "date,good,store,person,movement type,quantity,unit price,document number,comment\n"
              "1403/05/01,1,1,1,purchase,20,1300000,7,\n1403/05/02,2,1,2,sale,-1,3000000,8,\n");
  }
  void Add() { AddToCompany(file_.Path(), addition_.Path()); }

  TestFile addition_{"addition"};
};

TEST_F(InterchangeFaultsTest, ADiskThatFailsWhileFilesAreImported) {
  EXPECT_GT(InTurn<FaultyDisk>([this] { Import(); }, 12), 10);
}

TEST_F(InterchangeFaultsTest, ADiskThatFailsWhileFilesAreAdded) {
  BeginWithTheExample();
  EXPECT_GT(InTurn<FaultyDisk>([this] { Add(); }, 60), 30);
  EXPECT_GT(InTurn<LastingFault>([this] { Add(); }, 30), 20);
}

TEST_F(InterchangeFaultsTest, AKilledImportLeavesTheOldCompanyOrTheNewOne) {
  EXPECT_GT(AtRandom([this] { Import(); }, 12), 0);
}

TEST_F(InterchangeFaultsTest, AKilledAdditionLeavesTheCompanyAsItWasOrAsItIsAfter) {
  BeginWithTheExample();
  EXPECT_GT(AtRandom([this] { Add(); }, 12), 0);
}

// Each file of an export is whole: what was killed can be exported over, and then imports as the same
// company.
TEST_F(InterchangeFaultsTest, AKilledExportIsDoneAgain) {
  const TestFile folder("killed-export");
  ExportOptions options;
  options.replace = true;
  const auto work = [&] { ExportCompany(file_.Path(), folder.Path(), options); };
  const std::string before = Figures(file_.Path());
  EXPECT_GT(AtRandom(work, 12), 0);
  ImportOptions import;
  import.replace = true;
  import.firstPassword = "first password";
  ImportCompany(sound_.Path(), folder.Path(), import);
  EXPECT_EQ(Figures(sound_.Path()), before);
}

}  // namespace
}  // namespace goods
