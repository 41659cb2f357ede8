#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>

#include <sys/resource.h>

#include "desktop/app/services/company_lookups.h"
#include "host/core/color.h"
#include "host/data/row_store.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

using Services = DesktopTest;

TEST_F(Services, ALibraryThatIsMissingIsNoLibraryOrIsAnotherOneIsTold) {
  EXPECT_THROW(ModuleLibrary(Path("missing.so")), ModuleError);
  std::ofstream(Path("text.so")) << "no library";
  EXPECT_THROW(ModuleLibrary(Path("text.so")), ModuleError);
  EXPECT_THROW(ModuleLibrary(GOODS_HOST_FILE), ModuleError);
  EXPECT_THROW(ModuleLibrary::Find("", FromQt(folder_.path())), ModuleError);
}

TEST_F(Services, TheLibraryIsFoundBesideTheProgramAndInTheLibFolderNextToIt) {
  QDir(folder_.path()).mkpath("lib");
  const std::string inLib = Path("lib/libGoods_Transaction_QRT.so.1");
  std::ofstream(inLib) << "x";
  EXPECT_EQ(ModuleLibrary::Find("", FromQt(folder_.filePath("bin"))), inLib);
  EXPECT_EQ(ModuleLibrary::Find("given.so", FromQt(folder_.filePath("bin"))), "given.so");
}

TEST_F(Services, ASecondHostIsRefused) {
  DesktopHost& host = HostFor("admin");
  EXPECT_THROW(Module().Attach(host), ModuleError);
}

TEST_F(Services, ALogLineKeepsTheStatementOnOneLine) {
  {
    StatementLog log(Path("log"));
    log.Write("select 1\r\nUNION ALL\tselect 'a\\b'", 1.25, "rows 2");
  }
  EXPECT_EQ(Written(Path("log")), "1.250\trows 2\tselect 1\\r\\nUNION ALL\\tselect 'a\\\\b'\n");
  EXPECT_THROW(StatementLog(Path("no/such/folder/log")), std::runtime_error);
}

TEST_F(Services, ALogIsNeverACompany) {
  std::filesystem::copy_file(SmallCompany(), Path("company.goods"));
  const std::string before = Written(Path("company.goods"));
  EXPECT_THROW(StatementLog(Path("company.goods")), FileError);
  const StatementLog journal(Path("company.goods-journal"));
  EXPECT_THROW(journal.Forbid({Path("company.goods")}), FileError);
  EXPECT_EQ(Written(Path("company.goods")), before);
}

// While it lives, no file grows beyond so many bytes.
class FullDisk {
 public:
  explicit FullDisk(std::size_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit small = before_;
    small.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &small);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit before_{};
};

TEST_F(Services, SettingsThatCannotBeWrittenStayAsTheyWereAndSaySoOnce) {
  DesktopSettings settings(folder_.filePath("full"));
  settings.WriteSection("Turnover", "kept");
  const std::string before = Written(Path("full/goods-desktop.ini"));
  int told = 0;
  settings.OnFailure = [&](const QString&) { ++told; };
  {
    const FullDisk disk(10);
    settings.WriteSection("Turnover", "lost");
    settings.WriteSection("Turnover", "lost too");
  }
  EXPECT_EQ(told, 1);
  EXPECT_EQ(Written(Path("full/goods-desktop.ini")), before);
}

TEST_F(Services, ALogThatCannotBeWrittenSaysSoOnce) {
  StatementLog log(Path("log"));
  int told = 0;
  log.OnFailure = [&](const std::exception& error) {
    ++told;
    EXPECT_NE(std::string(error.what()).find("جای خالی دیسک"), std::string::npos);
  };
  log.Write("select 1", 1, "done");
  const std::string before = Written(Path("log"));
  {
    const FullDisk disk(before.size() + 3);
    log.Write("select 2", 1, "done");
    log.Write("select 3", 1, "done");
  }
  EXPECT_EQ(told, 1);
  EXPECT_EQ(Written(Path("log")), before);
  log.Write("select 4", 1, "done");
  EXPECT_EQ(Written(Path("log")), before + "1.000\tdone\tselect 4\n");
}

class LostConnection : public IConnection {
 public:
  void Open(std::string_view statement, RowStore&, IStatementProgress*) override {
    throw ConnectionLost("ارتباط قطع شد.", std::string(statement));
  }
  void Execute(std::string_view, IStatementProgress*) override {}
};

TEST_F(Services, AfterALossTheNextStatementConnectsAgain) {
  int connected = 0;
  LoggingConnection connection(
      [&]() -> std::unique_ptr<IConnection> {
        if (++connected == 1) return std::make_unique<LostConnection>();
        return Company().OpenConnection();
      },
      nullptr);
  RowStore lost;
  EXPECT_THROW(connection.Open("SELECT * FROM Stores ORDER BY Code", lost, nullptr), ConnectionLost);
  RowStore rows;
  connection.Open("SELECT * FROM Stores ORDER BY Code", rows, nullptr);
  EXPECT_EQ(rows.Count(), 3U);
  EXPECT_EQ(connected, 2);
}

TEST_F(Services, LookUpsGiveTheFieldsInTheOrderAskedFor) {
  CompanyLookups lookups(Company());
  const auto good = Company().FindEntity(EntityKind::Good, 1);
  ASSERT_TRUE(good);
  EXPECT_EQ(lookups.LookupDBs(EntityType::Good, 1, "Unit;Name"),
            (std::vector<std::string>{good->unit, good->name}));
  EXPECT_EQ(lookups.LookupDBs(EntityType::Good, 987654, "Name"), std::nullopt);
  EXPECT_THROW(lookups.LookupDBs(EntityType::Store, 1, "NoSuchField"), DatabaseError);
}

TEST_F(Services, SettingsOutOfRangeAndOfTheWrongKindCountAsNotSet) {
  const QString folder = folder_.filePath("odd");
  QDir().mkpath(folder);
  std::ofstream(FromQt(folder + "/goods-desktop.ini"))
      << "[Settings]\nQuantityDecimals=77\nAmountDecimals=many\nSecondUnit=true\n";
  DesktopSettings settings(folder);
  EXPECT_EQ(settings.Settings().QuantityDecimals, 4);
  EXPECT_EQ(settings.Settings().AmountDecimals, 2);
  EXPECT_TRUE(settings.Settings().SecondUnit);
}

TEST_F(Services, TheReportFolderIsMadeAndTheSettingsRecordIsKeptWithAnItem) {
  EXPECT_TRUE(QDir(ToQt(Settings().GetSettingFilePath())).exists());
  Settings().Settings().PriceBasis = 3;
  Settings().SaveSettingItem(531, 27, true, 3, "آخرین قیمت خرید");
  EXPECT_EQ(DesktopSettings(folder_.filePath("settings")).Settings().PriceBasis, 3);
}

TEST_F(Services, TagsCarryTheirColoursAndCategoriesTheirParents) {
  CompanyLookups lookups(Company());
  const std::vector<TagRecord> tags = Company().Tags();
  ASSERT_FALSE(tags.empty());
  const std::vector<TTag> given = lookups.Tags();
  ASSERT_EQ(given.size(), tags.size());
  for (std::size_t i = 0; i < tags.size(); ++i) {
    EXPECT_EQ(given[i].Code, std::to_string(tags[i].code));
    EXPECT_EQ(given[i].Name, tags[i].name);
    EXPECT_EQ(given[i].Background, ParseColor(tags[i].background));
  }
  std::set<std::string> codes;
  std::size_t below = 0;
  for (const TCategory& category : lookups.Categories()) {
    EXPECT_EQ(category.Name, lookups.ReturnCategoryName(category.Code));
    codes.insert(category.Code);
    if (category.ParentCode.empty()) continue;
    ++below;
    EXPECT_TRUE(codes.contains(category.ParentCode));
  }
  EXPECT_GT(codes.size(), 1U);
  EXPECT_GT(below, 0U);
  EXPECT_EQ(lookups.SelectCategories(nullptr, {"1"}), std::nullopt);
}

TEST_F(Services, SectionsOfWindowsAreKeptInTheSettingsFile) {
  const std::string text = "Stock_CHK.Checked=1\nNote=\"الف\" ; / \\ =\n";
  EXPECT_EQ(Settings().ReadSection("TGoodTransaction_FRM/501"), "");
  Settings().WriteSection("TGoodTransaction_FRM/501", text);
  Settings().WriteSection("Another", "x=1");
  const DesktopSettings again(folder_.filePath("settings"));
  EXPECT_EQ(again.ReadSection("TGoodTransaction_FRM/501"), text);
  EXPECT_EQ(again.ReadSection("Another"), "x=1");
}

}  // namespace
}  // namespace goods
