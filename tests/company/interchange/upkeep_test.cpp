// Checking, describing and copying companies.
#include "company/upkeep/company_backup.h"
#include "company/upkeep/company_info.h"
#include "interchange_fixture.h"

namespace goods {
namespace {

class UpkeepTest : public ::testing::Test {
 protected:
  UpkeepTest() { WriteFile(file_.Path(), ReadFile(SmallDemoPath())); }
  void Spoil(const char* sql) { Database(file_.Path(), SQLITE_OPEN_READWRITE).Run(sql); }
  // What the check tells once the company was spoiled.
  std::string After(const char* sql) {
    Spoil(sql);
    return Differences(file_.Path());
  }
  TestFile file_{"checked.company"};
  TestFile copy_{"copy.company"};
};

TEST_F(UpkeepTest, TheDemoCompanyHoldsTogether) { EXPECT_EQ(Differences(SmallDemoPath()), ""); }

TEST_F(UpkeepTest, AWrongAverageIsTold) {
  const std::string told = After(
      "UPDATE Kardex SET Miangin = Miangin + 1000000000 WHERE (Kala, Date, Radif) ="
      " (SELECT Kala, Date, Radif FROM Kardex WHERE Kala = 12 ORDER BY Date, Radif LIMIT 1 OFFSET 40)");
  EXPECT_NE(told.find("کالای 12"), std::string::npos);
  EXPECT_NE(told.find("میانگین"), std::string::npos);
}

TEST_F(UpkeepTest, AWrongStoredFigureIsToldWithTheRightOne) {
  const std::string right = Database(file_.Path(), SQLITE_OPEN_READONLY)
                                .AskText("SELECT dec_text(Mogodi) FROM GoodStock WHERE Kala = 3");
  EXPECT_EQ(After("UPDATE GoodStock SET Mogodi = 7000000000 WHERE Kala = 3"),
            "کالای 3: موجودی 7 است و باید " + right + " باشد\n");
}

TEST_F(UpkeepTest, AWrongFigureInAStoreIsTold) {
  const std::string told =
      After("UPDATE GoodStoreStock SET varede = varede + 1000000000 WHERE Kala = 12 AND Anbar = 1");
  EXPECT_TRUE(told.starts_with("کالای 12 در انبار 1: وارده")) << told;
}

TEST_F(UpkeepTest, PackedMovementsThatAreNotThoseOfTheCardAreTold) {
  const std::string told = "گردش های فشرده کالای 3 با کاردکس آن یکی نیست\n";
  const std::string of3 = "Place BETWEEN 3 * 64 AND 3 * 64 + 63";
  EXPECT_EQ(After(("UPDATE PackedMovements SET Data = (SELECT Data FROM PackedMovements WHERE Place = 4 * "
                   "64) WHERE " +
                   of3)
                      .c_str()),
            told);
  EXPECT_EQ(After(("DELETE FROM PackedMovements WHERE " + of3).c_str()), told);
}

TEST_F(UpkeepTest, AMissingFigureOfAStoreIsTold) {
  EXPECT_EQ(After("DELETE FROM GoodStoreStock WHERE Kala = 12 AND Anbar = 1"),
            "موجودی کالای 12 در انبار 1 ثبت نشده است\n");
}

TEST_F(UpkeepTest, AStoreThatIsNotThereIsTold) {
  EXPECT_NE(After("DELETE FROM Stores WHERE Code = 4").find("در انبار 4 است که تعریف نشده است"),
            std::string::npos);
}

TEST_F(UpkeepTest, ADocumentWithoutAHeaderIsTold) {
  EXPECT_EQ(After("DELETE FROM Documents WHERE Kind = 2 AND Code = 1"), "سند 1 از نوع 2 سربرگ ندارد\n");
}

TEST_F(UpkeepTest, AHeaderWithoutRowsIsTold) {
  EXPECT_EQ(After("INSERT INTO Documents VALUES(3, 987654, '1401/01/01', 0, 1, 0, '')"),
            "سند 987654 از نوع 3 سطری ندارد\n");
}

TEST_F(UpkeepTest, DetailsWithoutTheirMovementAreTold) {
  EXPECT_NE(
      After(
          "UPDATE DetailKardex SET Radif = Radif + 100000 WHERE (Kala, Date, Radif, DetailValueID) = (SELECT"
          " Kala, Date, Radif, DetailValueID FROM DetailKardex LIMIT 1)")
          .find("گردشی ندارد"),
      std::string::npos);
}

TEST_F(UpkeepTest, AnUnknownTagOfAGoodIsTold) {
  EXPECT_EQ(After("UPDATE GoodInf SET Tags = ',99,' WHERE Code = 2"), "برچسب 99 کالای 2 تعریف نشده است\n");
}

TEST_F(UpkeepTest, ABrokenPageIsTold) {
  std::string bytes = ReadFile(file_.Path());
  bytes.replace(bytes.size() / 2 / 4096 * 4096, 64, std::string(64, '\xff'));
  WriteFile(file_.Path(), bytes);
  std::string told;
  try {
    told = Differences(file_.Path());
  } catch (const CompanyError& error) {
    told = error.what();
  }
  EXPECT_NE(told, "");
}

TEST_F(UpkeepTest, InfoTellsWhatTheCompanyHolds) {
  const CompanyInfo info = ReadCompanyInfo(SmallDemoPath());
  EXPECT_EQ(info.goods, 60);
  EXPECT_EQ(info.movements, 4000);
  EXPECT_EQ(info.users.size(), 3U);
  EXPECT_GT(info.users[1].rights, 10);
  const std::string text = CompanyInfoText(info);
  EXPECT_NE(text.find("شرکت نمونه"), std::string::npos);
  EXPECT_NE(text.find("1400/01/01 تا 1404/12/"), std::string::npos) << text;
  EXPECT_NE(text.find("admin"), std::string::npos);
}

TEST_F(UpkeepTest, ACopyIsWholeWhileOthersReadAndOwnedByItsOwner) {
  Database reader(file_.Path(), SQLITE_OPEN_READONLY);
  reader.Run("BEGIN; SELECT count(*) FROM Kardex");
  BackUpCompany(file_.Path(), copy_.Path());
  EXPECT_EQ(Dump(copy_.Path(), "SELECT * FROM Kardex"), Dump(file_.Path(), "SELECT * FROM Kardex"));
  EXPECT_EQ(OpenCompany(copy_.Path())->Title(), "شرکت نمونه");
  const auto permissions = std::filesystem::status(copy_.Path()).permissions();
  EXPECT_EQ(permissions & (std::filesystem::perms::group_all | std::filesystem::perms::others_all),
            std::filesystem::perms::none);
}

TEST_F(UpkeepTest, ACopyNeverReplacesUnlessAskedToNorTheCompanyItself) {
  WriteFile(copy_.Path(), "precious");
  EXPECT_ANY_THROW(BackUpCompany(file_.Path(), copy_.Path()));
  EXPECT_EQ(ReadFile(copy_.Path()), "precious");
  BackupOptions options;
  options.replace = true;
  EXPECT_ANY_THROW(BackUpCompany(file_.Path(), file_.Path(), options));
  BackUpCompany(file_.Path(), copy_.Path(), options);
  EXPECT_EQ(Differences(copy_.Path()), "");
}

TEST_F(UpkeepTest, AStoppedCopyLeavesNothing) {
  BackupOptions options;
  options.watcher = [](const WorkProgress&) { return false; };
  EXPECT_THROW(BackUpCompany(file_.Path(), copy_.Path(), options), WorkStopped);
  EXPECT_FALSE(std::filesystem::exists(copy_.Path()));
}

}  // namespace
}  // namespace goods
