// Movements added to a company that is there.
#include <chrono>
#include <csignal>
#include <set>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include "company/demo/random.h"
#include "host/core/text.h"
#include "interchange_fixture.h"

namespace goods {
namespace {

constexpr const char* kTables[] = {
    "SELECT Kala, Date, Radif, Anbar, Percode, dec_text(Tedad), dec_text(Meghdar2), dec_text(Gheymat), "
    "dec_text(Fi),"
    " dec_text(Miangin), Type, OperationCode, OperationRow, Comment FROM Kardex ORDER BY 1, 2, 3",
    "SELECT * FROM Documents ORDER BY 1, 2",
    "SELECT Kala, dec_text(varede), dec_text(sadere), dec_text(Mogodi), dec_text(Mogodi2), "
    "dec_text(gheymat_miangin),"
    " dec_text(Jam_Kol), OperationDate FROM GoodStock ORDER BY 1",
    "SELECT Kala, Anbar, dec_text(Mogodi), dec_text(varede), dec_text(sadere), OperationDate"
    " FROM GoodStoreStock ORDER BY 1, 2",
    "SELECT Code, Name, CurAva, dec_text(AvaBgPrd), dec_text(CostBgPrd), dec_text(AvaBgPrd2) FROM GoodInf"
    " ORDER BY 1",
    "SELECT Kala, dec_text(Stock) FROM RialiStock ORDER BY 1"};

void ExpectAlike(const std::string& first, const std::string& second) {
  for (const char* sql : kTables) EXPECT_EQ(Dump(first, sql), Dump(second, sql)) << sql;
}

// A company's movements in two heaps: those of some dates, and the rest.
class AddTest : public ::testing::Test {
 protected:
  void Split(std::uint64_t seed) {
    const TestFile demo("split.company");
    const TestFile exported("split");
    DemoOptions options;
    options.goods = 20;
    options.stores = 3;
    options.movements = 600;
    options.seed = seed;
    MakeDemoCompany(demo.Path(), options);
    ExportCompany(demo.Path(), exported.Path());
    base_.Take(exported.Path());
    for (const char* file : {"detail_movements.csv", "documents.csv", "users.csv", "rights.csv"})
      base_.Remove(file);
    const std::vector<std::string> lines = goods::Split(base_["movements.csv"], '\n');
    Random random(seed);
    std::map<std::string, bool> added;
    std::string kept;
    std::string batch;
    for (const std::string& line : lines) {
      if (line.empty()) continue;
      // Without the order: what is added comes behind.
      std::string row = line.substr(line.find(',') + 1);
      if (&line == &lines.front()) {
        header_ = row + "\n";
        continue;
      }
      std::vector<std::string> cells = goods::Split(row, ',');
      if (cells[4] == "transfer_out" || cells[4] == "transfer_in" || cells[4] == "issue") cells[6].clear();
      row.clear();
      for (const std::string& cell : cells) row += (&cell == &cells.front() ? "" : ",") + cell;
      const auto [place, fresh] = added.try_emplace(cells[0], random.Percent(25));
      (place->second ? batch : kept) += row + "\n";
      ++(place->second ? added_ : kept_);
    }
    base_["movements.csv"] = header_ + kept;
    batch_["movements.csv"] = header_ + batch;
    whole_ = header_ + kept + batch;
  }

  void ImportBase() {
    ImportOptions options;
    options.firstPassword = "a password";
    options.replace = true;
    ImportCompany(company_.Path(), base_.Write(), options);
  }

  std::int64_t Movements() {
    return Database(company_.Path(), SQLITE_OPEN_READONLY).AskInteger("SELECT count(*) FROM Kardex");
  }

  TestFolder base_{"base"};
  TestFolder batch_{"batch"};
  TestFile company_{"added.company"};
  std::string header_;
  std::string whole_;
  std::int64_t kept_ = 0;
  std::int64_t added_ = 0;
};

TEST_F(AddTest, AddingABatchGivesWhatImportingAllAtOnceGives) {
  for (const std::uint64_t seed : {1U, 2U, 3U}) {
    Split(seed);
    ImportBase();
    const ImportCounts counts = AddToCompany(company_.Path(), batch_.Write());
    EXPECT_GT(counts.movements, 50U);
    EXPECT_EQ(Differences(company_.Path()), "");
    base_["movements.csv"] = whole_;
    const TestFile all("all.company");
    ImportOptions options;
    options.firstPassword = "a password";
    ImportCompany(all.Path(), base_.Write(), options);
    ExpectAlike(company_.Path(), all.Path());
  }
}

TEST_F(AddTest, TheSameBatchIsRefusedTheSecondTimeHoweverItIsWritten) {
  Split(4);
  ImportBase();
  AddToCompany(company_.Path(), batch_.Write());
  const std::int64_t after = Movements();
  batch_["movements.csv"] = ReplaceAll(batch_["movements.csv"], ",", ";");
  try {
    AddToCompany(company_.Path(), batch_.Write());
    FAIL();
  } catch (const CompanyError& refused) {
    EXPECT_NE(std::string(refused.what()).find("همین گردش ها"), std::string::npos) << refused.what();
  }
  EXPECT_EQ(Movements(), after);
}

TEST_F(AddTest, TheFilesOfTheImportAreRefusedAsABatch) {
  Split(5);
  ImportBase();
  EXPECT_THROW(AddToCompany(company_.Path(), base_.Write()), CompanyError);
  EXPECT_EQ(Movements(), kept_);
}

TEST_F(AddTest, RowsOfADocumentThatIsThereAreRefused) {
  Split(6);
  ImportBase();
  const std::string before = ReadFile(company_.Path());
  const std::string good = Dump(company_.Path(), "SELECT Code FROM Documents WHERE Kind = 2 LIMIT 1")[0];
  batch_["movements.csv"] =
      header_ + "1404/01/01,1,1,,sale,-1,5," + good.substr(0, good.size() - 1) + ",1,\n";
  try {
    AddToCompany(company_.Path(), batch_.Write());
    FAIL();
  } catch (const ImportRefused& refused) {
    EXPECT_NE(refused.Problems().at(0).reason.find("از پیش در شرکت هست"), std::string::npos);
  }
  EXPECT_TRUE(ReadFile(company_.Path()) == before);
}

TEST_F(AddTest, ChangedMasterDataAndNewGoodsComeWithTheirSecondQuantities) {
  Split(7);
  ImportBase();
  batch_.Remove("movements.csv");
  batch_["stores.csv"] = "code,name\n1,انبار تازه\n9,نهم\n";
  batch_["goods.csv"] =
      "code,name,group,unit,second unit,second unit ratio\n1,نو,گروه نو,عدد,جعبه,4\n500,پانصد,گروه "
      "نو,عدد,,\n";
  AddToCompany(company_.Path(), batch_.Write());
  EXPECT_EQ(Dump(company_.Path(), "SELECT Name FROM Stores WHERE Code IN (1, 9) ORDER BY Code"),
            (std::vector<std::string>{"انبار تازه|", "نهم|"}));
  EXPECT_EQ(Dump(company_.Path(),
                 "SELECT count(*) FROM Kardex WHERE Kala = 1 AND Meghdar2 <> dec_div(Tedad, 4000000000)"),
            (std::vector<std::string>{"0|"}));
  EXPECT_EQ(Dump(company_.Path(), "SELECT Name FROM GoodInf WHERE Code IN (1, 500) ORDER BY Code"),
            (std::vector<std::string>{"نو|", "پانصد|"}));
  EXPECT_EQ(Differences(company_.Path()), "");
}

TEST_F(AddTest, AStoppedAdditionChangesNothing) {
  Split(8);
  ImportBase();
  const std::vector<std::string> before = Dump(company_.Path(), kTables[0]);
  const std::string pristine = ReadFile(company_.Path());
  AddOptions options;
  int all = 0;
  options.watcher = [&](const WorkProgress&) { return ++all > 0; };
  AddToCompany(company_.Path(), batch_.Write(), options);
  for (const int stop : {1, all / 2, all}) {
    WriteFile(company_.Path(), pristine);
    int calls = 0;
    options.watcher = [&](const WorkProgress&) { return ++calls < stop; };
    EXPECT_THROW(AddToCompany(company_.Path(), batch_.Write(), options), WorkStopped) << stop;
    EXPECT_EQ(Dump(company_.Path(), kTables[0]), before) << stop;
  }
}

TEST_F(AddTest, KilledAtAnyMomentTheCompanyIsAsBeforeOrAsAfter) {
  Split(9);
  ImportBase();
  const std::string pristine = ReadFile(company_.Path());
  const std::string folder = batch_.Write();
  int before = 0;
  int after = 0;
  for (int delay = 0; delay < 24; ++delay) {
    WriteFile(company_.Path(), pristine);
    std::filesystem::remove(company_.Path() + "-journal");
    const pid_t child = fork();
    if (child == 0) {
      try {
        AddToCompany(company_.Path(), folder);
      } catch (...) {
      }
      _exit(0);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(delay * 12));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    // Opening takes the journal of the killed program back.
    OpenCompany(company_.Path());
    const std::int64_t movements = Movements();
    ASSERT_TRUE(movements == kept_ || movements == kept_ + added_) << movements;
    ++(movements == kept_ ? before : after);
    ASSERT_EQ(Differences(company_.Path()), "");
  }
  EXPECT_GT(before, 0);
}

}  // namespace
}  // namespace goods
