// Companies from a user's own files.
#include <map>

#include "company/embedded/sqlite.h"
#include "company/interchange/import_company.h"
#include "company/interchange/import_fields.h"
#include "company_fixture.h"

namespace goods {
namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr char kPassword[] = "کلید-انبار-7";

// The example's files, to be spoiled one at a time.
class ImportTest : public ::testing::Test {
 protected:
  ImportTest() {
    for (const char* name : {"goods.csv", "stores.csv", "persons.csv", "movements.csv"}) {
      files_[name] = ReadFile(std::string(GOODS_IMPORT_EXAMPLE) + "/" + name);
    }
  }

  ImportCounts Import(ImportOptions options = {}) {
    options.firstPassword = kPassword;
    std::filesystem::create_directories(folder_.Path());
    for (const auto& [name, text] : files_) WriteFile(folder_.Path() + "/" + name, text);
    return ImportCompany(company_.Path(), folder_.Path(), options);
  }

  // The one problem that the import finds, as "file:line: reason"; nothing may be left behind.
  std::string Problem() {
    try {
      Import();
    } catch (const ImportRefused& refused) {
      EXPECT_FALSE(std::filesystem::exists(company_.Path()));
      EXPECT_EQ(refused.Total(), 1U) << refused.what();
      const ImportProblem& problem = refused.Problems().at(0);
      EXPECT_NE(std::string(refused.what()).find(problem.reason), std::string::npos);
      return problem.file + ":" + std::to_string(problem.line) + ": " + problem.reason;
    }
    return "accepted";
  }

  // Row 4 of the movements, with one field replaced.
  std::string MovementProblem(const std::string& row) {
    const std::string original = "1403/02/10,3,1,1,purchase,240,150000,1,";
    std::string& text = files_["movements.csv"];
    text.replace(text.find(original), original.size(), row);
    return Problem();
  }

  std::map<std::string, std::string> files_;
  TestFile folder_{"folder"};
  TestFile company_{"imported.company"};
};

TEST_F(ImportTest, TheExampleBecomesACompanyWithItsAveragesWorkedOut) {
  const ImportCounts counts = Import();
  EXPECT_EQ(counts.goods, 3U);
  EXPECT_EQ(counts.stores, 2U);
  EXPECT_EQ(counts.persons, 2U);
  EXPECT_EQ(counts.movements, 11U);
  const std::unique_ptr<ICompany> company = OpenCompany(company_.Path());
  const std::unique_ptr<IConnection> connection = company->OpenConnection();
  // 100 at 900,000 and 50 at 1,200,000 make 1,000,000 on the average; nothing after that moves it.
  EXPECT_EQ(Ask(*connection, "select Date, Tedad, Gheymat, Fi, Miangin, Meghdar2 from Kardex where Kala = 1"),
            (Rows{{"1403/01/01", "100", "900000", "900000", "900000", "10"},
                  {"1403/02/10", "50", "1200000", "1200000", "1000000", "5"},
                  {"1403/03/10", "-30", "1000000", "1500000", "1000000", "-3"},
                  {"1403/03/12", "-20", "1000000", "1000000", "1000000", "-2"},
                  {"1403/03/12", "20", "1000000", "1000000", "1000000", "2"},
                  {"1403/03/20", "-15.25", "1000000", "1550000", "1000000", "-1.525"},
                  {"1403/03/25", "2", "1000000", "1550000", "1000000", "0.2"}}));
  EXPECT_EQ(Ask(*connection, "select Mogodi, Mogodi2, Jam_Kol from GoodInf_VW where Code = 1"),
            (Rows{{"106.75", "10", "106750000"}}));
  EXPECT_EQ(Ask(*connection, "select Name from GoodInf where Code = 2"), (Rows{{"چای \"قلم\", ممتاز"}}));
  EXPECT_TRUE(company->SignIn("admin", kPassword).has_value());
}

TEST_F(ImportTest, WithoutAPasswordTheFirstUserGetsARandomOneThatIsTold) {
  ImportOptions options;
  options.firstPassword = "";
  std::filesystem::create_directories(folder_.Path());
  for (const auto& [name, text] : files_) WriteFile(folder_.Path() + "/" + name, text);
  const ImportCounts counts = ImportCompany(company_.Path(), folder_.Path(), options);
  EXPECT_EQ(counts.firstLogin, "admin");
  EXPECT_EQ(counts.firstPassword.size(), 19U);
  const std::unique_ptr<ICompany> company = OpenCompany(company_.Path());
  EXPECT_TRUE(company->SignIn("admin", counts.firstPassword));
  EXPECT_FALSE(company->SignIn("admin", "admin"));
}

TEST_F(ImportTest, RowsOfOneDocumentAreNumberedAndItsHeaderIsThatOfTheFirst) {
  Import();
  const std::unique_ptr<ICompany> company = OpenCompany(company_.Path());
  const std::optional<DocumentView> purchase = company->Document(DocumentKind::PurchaseInvoice, 1);
  ASSERT_TRUE(purchase.has_value());
  ASSERT_EQ(purchase->rows.size(), 2U);
  EXPECT_EQ(purchase->rows[0][0], "1");
  EXPECT_EQ(purchase->rows[1][0], "2");
  const std::optional<DocumentView> transfer = company->Document(DocumentKind::Transfer, 1);
  ASSERT_TRUE(transfer.has_value());
  EXPECT_EQ(transfer->rows.size(), 1U);
  const auto line = [&](const std::string& caption) {
    for (const auto& [name, text, money] : transfer->header) {
      if (name == caption) return text;
    }
    return std::string();
  };
  EXPECT_EQ(line("از انبار :"), "انبار مرکزی");
  EXPECT_EQ(line("به انبار :"), "فروشگاه");
}

TEST_F(ImportTest, ExtraColumnsAnotherOrderByteOrderMarkAndCrLfAreAccepted) {
  files_["stores.csv"] = "\xef\xbb\xbfName,City,CODE\r\nمرکزی,تهران,1\r\n\"دو\r\nخطی\",یزد,2\r\n";
  Import();
  EXPECT_EQ(OpenCompany(company_.Path())->FindEntity(EntityKind::Store, 2)->name, "دو\r\nخطی");
}

TEST_F(ImportTest, AnExistingFileIsKeptUnlessItIsToBeReplaced) {
  WriteFile(company_.Path(), "precious");
  EXPECT_THROW(Import(), CompanyError);
  EXPECT_EQ(ReadFile(company_.Path()), "precious");
  ImportOptions options;
  options.replace = true;
  options.title = "داده من";
  Import(options);
  EXPECT_EQ(OpenCompany(company_.Path())->Title(), "داده من");
}

TEST_F(ImportTest, ARefusedFolderLeavesAnExistingFileAlone) {
  WriteFile(company_.Path(), "precious");
  files_["stores.csv"] = "code,name\n1,\n2,b\n";
  ImportOptions options;
  options.replace = true;
  EXPECT_THROW(Import(options), ImportRefused);
  EXPECT_EQ(ReadFile(company_.Path()), "precious");
}

TEST_F(ImportTest, AMissingFileIsNamed) {
  files_.erase("movements.csv");
  try {
    Import();
    FAIL();
  } catch (const ImportRefused& refused) {
    EXPECT_EQ(refused.Problems().at(0).file, "movements.csv");
    EXPECT_EQ(refused.Problems().at(0).line, 0U);
  }
}

TEST_F(ImportTest, AMissingFolderIsRefused) {
  EXPECT_THROW(ImportCompany(company_.Path(), folder_.Path() + "/none"), CompanyError);
}

TEST_F(ImportTest, AMissingColumnIsNamed) {
  files_["goods.csv"] = "code,name,group,minimum stock\n";
  files_["movements.csv"] = files_["movements.csv"].substr(0, files_["movements.csv"].find('\n') + 1);
  EXPECT_EQ(Problem(), "goods.csv:1: ستون unit در سرستون نیست");
}

TEST_F(ImportTest, AnEmptyFileIsRefused) {
  files_["movements.csv"] = "";
  EXPECT_EQ(Problem(), "movements.csv:1: فایل خالی است و سرستون ندارد");
}

TEST_F(ImportTest, ARepeatedGoodCodeIsRefused) {
  files_["goods.csv"] += "2,دیگر,گروه,عدد,0,,\n";
  EXPECT_EQ(Problem(), "goods.csv:5: کد 2 تکراری است");
}

TEST_F(ImportTest, AGoodCodeOfZeroIsRefused) {
  files_["goods.csv"] += "0,دیگر,گروه,عدد,0,,\n";
  EXPECT_EQ(Problem(), "goods.csv:5: کد «0» عددی از 1 تا 2147483647 نیست");
}

TEST_F(ImportTest, AGoodWithoutANameIsRefused) {
  files_["goods.csv"] += "9, ,گروه,عدد,0,,\n";
  EXPECT_EQ(Problem(), "goods.csv:5: نام کالا خالی است");
}

TEST_F(ImportTest, ASecondUnitWithoutARatioIsRefused) {
  files_["goods.csv"] += "9,دیگر,گروه,عدد,0,کارتن,\n";
  EXPECT_EQ(Problem(), "goods.csv:5: واحد دوم و نسبت آن باید با هم بیایند");
}

TEST_F(ImportTest, ARatioOfZeroIsRefused) {
  files_["goods.csv"] += "9,دیگر,گروه,عدد,0,کارتن,0\n";
  EXPECT_EQ(Problem(), "goods.csv:5: نسبت واحد دوم «0» عددی بزرگتر از صفر نیست");
}

TEST_F(ImportTest, ARepeatedStoreCodeIsRefused) {
  files_["stores.csv"] += "1,دیگر\n";
  EXPECT_EQ(Problem(), "stores.csv:4: کد 1 تکراری است");
}

TEST_F(ImportTest, AStoreCodeBeyondItsColumnIsKeptAsAText) {
  files_["stores.csv"] += "40000,دیگر\n";
  files_["movements.csv"] += "1403/02/10,3,40000,1,purchase,1,150000,9,\n";
  Import();
  Database db(company_.Path(), SQLITE_OPEN_READONLY);
  EXPECT_EQ(db.AskText(
                "SELECT s.AbbName FROM Kardex k JOIN Stores s ON s.Code = k.Anbar WHERE k.OperationCode = 9"),
            "40000");
}

TEST_F(ImportTest, AnImpossibleDateIsRefused) {
  EXPECT_EQ(MovementProblem("1403/07/31,3,1,1,purchase,240,150000,1,"),
            "movements.csv:5: تاریخ «1403/07/31» درست نیست");
}

TEST_F(ImportTest, AnUnknownGoodIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,77,1,1,purchase,240,150000,1,"),
            "movements.csv:5: کالا «77» تعریف نشده است");
}

TEST_F(ImportTest, AnUnknownStoreIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,9,1,purchase,240,150000,1,"),
            "movements.csv:5: انبار «9» تعریف نشده است");
}

TEST_F(ImportTest, AnUnknownPersonIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1,8,purchase,240,150000,1,"),
            "movements.csv:5: شخص «8» تعریف نشده است");
}

TEST_F(ImportTest, AnUnknownMovementTypeIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1,1,26,240,150000,1,"),
            "movements.csv:5: نوع گردش «26» شناخته نیست");
}

TEST_F(ImportTest, AQuantityOfZeroIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1,1,purchase,0.0,150000,1,"), "movements.csv:5: مقدار صفر است");
}

TEST_F(ImportTest, AQuantityBeyondTheColumnIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1,1,purchase,4600000001,150000,1,"),
            "movements.csv:5: مقدار «4600000001» عددی تا 4600000000 با حداکثر 9 رقم اعشار نیست");
}

TEST_F(ImportTest, AQuantityFinerThanTheColumnIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1,1,purchase,1.0000000001,150000,1,"),
            "movements.csv:5: مقدار «1.0000000001» عددی تا 4600000000 با حداکثر 9 رقم اعشار نیست");
}

TEST_F(ImportTest, ANegativePriceIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1,1,purchase,240,-5,1,"),
            "movements.csv:5: قیمت «-5» عددی از 0 تا 1000000000000000 با حداکثر 9 رقم اعشار نیست");
}

TEST_F(ImportTest, AMovementWithoutADocumentNumberIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1,1,purchase,240,150000,,"),
            "movements.csv:5: شماره سند «» عددی بزرگتر از صفر نیست");
}

TEST_F(ImportTest, ARowWithTooFewFieldsIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1"), "movements.csv:5: شمار خانه ها 3 است و باید 9 باشد");
}

TEST_F(ImportTest, AQuoteInTheMiddleOfAFieldIsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1,1,pur\"chase,240,150000,1,"),
            "movements.csv:5: گیومه در میان خانه بی گیومه");
}

TEST_F(ImportTest, AnOpenQuoteIsRefused) {
  files_["movements.csv"] += "1403/02/10,3,1,1,\"purchase,240,150000,1,\n";
  EXPECT_EQ(Problem(), "movements.csv:13: گیومه باز مانده است");
}

TEST_F(ImportTest, TextThatIsNotUtf8IsRefused) {
  EXPECT_EQ(MovementProblem("1403/02/10,3,1,1,purchase,240,150000,1,\xc7\xe4"),
            "movements.csv:5: نویسه ها UTF-8 نیستند");
}

TEST_F(ImportTest, TheFirstHundredProblemsAreListedAndTheRestCounted) {
  for (int i = 0; i < 150; ++i) files_["stores.csv"] += "0,x\n";
  try {
    Import();
    FAIL();
  } catch (const ImportRefused& refused) {
    EXPECT_EQ(refused.Problems().size(), 100U);
    EXPECT_EQ(refused.Total(), 150U);
    EXPECT_EQ(refused.Problems().back().line, 103U);
    EXPECT_NE(std::string(refused.what()).find("و 50 خطای دیگر"), std::string::npos);
  }
  EXPECT_FALSE(std::filesystem::exists(company_.Path()));
}

TEST(ImportFields, DatesOfEitherCalendarBecomeJalali) {
  EXPECT_EQ(ReadDate("1403/5/1"), "1403/05/01");
  EXPECT_EQ(ReadDate("1403-05-01"), "1403/05/01");
  EXPECT_EQ(ReadDate("۱۴۰۳/۰۵/۰۱"), "1403/05/01");
  EXPECT_EQ(ReadDate("2024-03-20"), "1403/01/01");
  EXPECT_EQ(ReadDate("2024-02-29"), "1402/12/10");
  for (const char* bad : {"", "1403", "1403/13/01", "2023-02-29", "1600/01/01", "1403/01/1x", "1199/01/01",
                          "1821-03-20", "9999-01-01", "0000/00/00"}) {
    EXPECT_EQ(ReadDate(bad), std::nullopt) << bad;
  }
}

TEST(ImportFields, MovementTypesAreNamedOrNumbered) {
  EXPECT_EQ(ReadMovementType("purchase"), 2);
  EXPECT_EQ(ReadMovementType("Transfer_Out"), 6);
  EXPECT_EQ(ReadMovementType("۲۵"), 25);
  EXPECT_EQ(ReadMovementType(""), std::nullopt);
  EXPECT_EQ(ReadMovementType("-1"), std::nullopt);
}

}  // namespace
}  // namespace goods
