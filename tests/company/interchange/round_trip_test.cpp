// A company exported and imported again answers every statement as before.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <regex>

#include "company/demo/random.h"
#include "host/core/text.h"
#include "interchange_fixture.h"

namespace goods {
namespace {

// The statements of the walk through all windows.
const std::vector<std::string>& WalkStatements() {
  static const std::vector<std::string> kStatements = [] {
    std::vector<std::string> statements;
    std::ifstream walk(GOODS_WALK);
    for (std::string line; std::getline(walk, line);) {
      const std::size_t begin = line.find_first_not_of(' ');
      if (begin != 4) continue;
      const std::string text = line.substr(begin);
      if (text.starts_with("Exec ") || text.starts_with("exec ") || text.starts_with("Select ") ||
          text.starts_with("select ") || text.starts_with("SELECT ") || text.starts_with("EXEC ")) {
        statements.push_back(ReplaceAll(ReplaceAll(text, "\\r", "\r"), "\\n", "\n"));
      }
    }
    return statements;
  }();
  return kStatements;
}

// Columns and rows, or the refusal.
std::string Answer(IConnection& connection, const std::string& statement) {
  RowStore rows;
  if (statement.starts_with("Exec RialiStock_SP") || statement.starts_with("exec RialiStock_SP")) {
    connection.Execute(statement);
    return "executed";
  }
  try {
    connection.Open(statement, rows);
  } catch (const std::exception& error) {
    return std::string("refused: ") + error.what();
  }
  std::string text;
  for (const ColumnInfo& column : rows.Columns()) text += column.name + "|";
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    text += "\n";
    for (std::size_t column = 0; column < rows.Columns().size(); ++column) {
      text += rows.Cell(row, column).AsText() + "|";
    }
  }
  return text;
}

// A statement of the walk with other goods, stores, dates and amounts in it, or a whole table.
std::string RandomStatement(Random& random) {
  constexpr const char* kTables[] = {"Kardex",
                                     "GoodInf",
                                     "GoodInf_VW",
                                     "GoodGrps",
                                     "Units",
                                     "Stores",
                                     "Persons",
                                     "TagS",
                                     "colors",
                                     "Categories",
                                     "costlevel",
                                     "DetailTypes",
                                     "DetailTypesItems",
                                     "GoodStock",
                                     "GoodDetails",
                                     "DetailValues",
                                     "DetailKardex",
                                     "SelectedLists",
                                     "RialiStock",
                                     "GoodStoreStock",
                                     "MovementTypes",
                                     "CostLevelPrices",
                                     "SelectedListGoods"};
  if (random.Percent(25)) return std::string("select * from ") + kTables[random.Below(std::size(kTables))];
  const std::vector<std::string>& walk = WalkStatements();
  std::string text = walk[static_cast<std::size_t>(random.Below(static_cast<std::int64_t>(walk.size())))];
  std::string changed;
  for (std::size_t i = 0; i < text.size();) {
    const bool begins =
        text[i] >= '0' && text[i] <= '9' && i > 0 &&
        (text[i - 1] == '=' || text[i - 1] == ' ' || text[i - 1] == '\'' || text[i - 1] == ',');
    if (!begins) {
      changed += text[i++];
      continue;
    }
    std::size_t end = text.find_first_not_of("0123456789/", i);
    end = std::min(end, text.size());
    const std::string number = text.substr(i, end - i);
    if (number.size() == 10 && number[4] == '/') {
      changed += std::to_string(random.Between(1400, 1404)) + number.substr(4);
    } else if (number.size() <= 3 && random.Percent(60)) {
      changed += std::to_string(random.Between(1, 12));
    } else {
      changed += number;
    }
    i = end;
  }
  return changed;
}

// What no generator would think of, where nothing is worked out from it.
void Disturb(const std::string& path, Random& random) {
  constexpr const char* kTexts[] = {
      "",    " با فاصله ", "یک,دو;سه", "نقل \" قول", "دو\nخط", "'تک' \t جدولبندی",
      "123", "=1+1",       "كاف عربي", "۱۲۳٫۵",      "a\r\nb", "\xe2\x80\x8cنیم‌فاصله"};
  Database db(path, SQLITE_OPEN_READWRITE);
  const auto set = [&](const char* table, const char* column, const char* key) {
    Statement update =
        db.Prepare(std::string("UPDATE ") + table + " SET " + column + " = ?1 WHERE " + key + " % ?2 = ?3");
    update.Bind(1, std::string_view(kTexts[random.Below(std::size(kTexts))]));
    update.Bind(2, random.Between(2, 7));
    update.Bind(3, random.Between(0, 2));
    update.Run();
  };
  for (int i = 0; i < 3; ++i) {
    set("Kardex", "Comment", "Radif");
    set("DetailKardex", "Comment", "Radif");
    set("Documents", "Comment", "Code");
    set("GoodInf", "AbbName", "Code");
    set("GoodInf", "Pos", "Code");
    set("GoodInf", "kala_index", "Code");
    set("GoodInf", "SMSCode", "Code");
    set("Persons", "Phone", "Code");
    set("Stores", "Address", "Code");
    set("DetailValues", "D1Value", "ID");
  }
  db.Run(
      "UPDATE GoodInf SET UnitKind = 1 + Code % 5, Status = Code % 3 WHERE Code % 4 = 1;"
      "UPDATE CostLevelPrices SET BuyPrice = 123456789 WHERE Kala % 3 = 1;"
      "DELETE FROM SelectedListGoods WHERE Kala % 7 = 1;"
      "UPDATE TagS SET color_code = 1 + Code % 3");
  // Places with gaps between them.
  if (random.Percent(50)) {
    const std::string factor = std::to_string(random.Between(2, 5));
    db.Run("UPDATE Kardex SET Radif = -Radif * " + factor +
           "; UPDATE Kardex SET Radif = -Radif;"
           "UPDATE DetailKardex SET Radif = -Radif * " +
           factor + "; UPDATE DetailKardex SET Radif = -Radif");
  }
}

class RoundTrip : public ::testing::Test {
 protected:
  // Exports and imports; the second company may differ in nothing that can be asked.
  void Go(const std::string& first) {
    ExportOptions out;
    out.replace = true;
    out.passwordHashes = true;
    ExportCompany(first, folder_.Path(), out);
    ImportOptions in;
    in.replace = true;
    ImportCompany(second_.Path(), folder_.Path(), in);
    const std::unique_ptr<ICompany> before = OpenCompany(first);
    const std::unique_ptr<ICompany> after = OpenCompany(second_.Path());
    EXPECT_EQ(after->Title(), before->Title());
    before_ = before->OpenConnection();
    after_ = after->OpenConnection();
  }

  void Compare(const std::string& statement) {
    const std::string wanted = Answer(*before_, statement);
    ASSERT_EQ(Answer(*after_, statement), wanted) << statement;
    if (!wanted.starts_with("refused")) ++answered_;
  }

  TestFile folder_{"exported"};
  TestFile second_{"second.company"};
  std::unique_ptr<IConnection> before_;
  std::unique_ptr<IConnection> after_;
  int answered_ = 0;
};

TEST_F(RoundTrip, TheDemoCompanyAnswersEveryStatementOfTheWalkAlike) {
  // A company of its own: statements change the valuation that is stored.
  const TestFile demo("walked.company");
  WriteFile(demo.Path(), ReadFile(SmallDemoPath()));
  Database(demo.Path(), SQLITE_OPEN_READWRITE)
      .Run(
          "UPDATE RialiStock SET Stock = (SELECT s.gheymat_miangin FROM GoodStock s WHERE s.Kala = "
          "RialiStock.Kala)");
  Go(demo.Path());
  ASSERT_GT(WalkStatements().size(), 100U);
  for (const std::string& statement : WalkStatements()) Compare(statement);
  EXPECT_EQ(answered_, static_cast<int>(WalkStatements().size()));
  EXPECT_EQ(Differences(second_.Path()), "");
  for (const char* table : {"Documents ORDER BY 1, 2", "Users ORDER BY 1", "UserRights ORDER BY 1, 2, 3",
                            "DetailKardex ORDER BY 1, 2, 3, 4", "GoodStoreStock ORDER BY 1, 2"}) {
    const std::string sql = std::string("SELECT * FROM ") + table;
    EXPECT_EQ(Dump(second_.Path(), sql), Dump(SmallDemoPath(), sql)) << table;
  }
  EXPECT_TRUE(OpenCompany(second_.Path())->SignIn("anbar", "anbar").has_value());
}

// GOODS_CAMPAIGN=N in the environment: N times as many companies.
TEST_F(RoundTrip, RandomCompaniesAnswerRandomStatementsAlike) {
  const char* times = std::getenv("GOODS_CAMPAIGN");
  const int companies = 12 * std::max(1, times == nullptr ? 1 : std::atoi(times));
  constexpr int kStatements = 40;  // of each
  Random random(20240722);
  int statements = 0;
  for (int company = 0; company < companies; ++company) {
    const TestFile first("first.company");
    DemoOptions options;
    options.goods = random.Between(1, 40);
    options.stores = random.Between(1, 5);
    options.movements = random.Between(0, 300);
    options.seed = random.Next();
    MakeDemoCompany(first.Path(), options);
    Disturb(first.Path(), random);
    ASSERT_NO_FATAL_FAILURE(Go(first.Path())) << "company " << company;
    for (int i = 0; i < kStatements; ++i, ++statements) {
      ASSERT_NO_FATAL_FAILURE(Compare(RandomStatement(random))) << "company " << company;
    }
    const std::string walked = WalkStatements()[static_cast<std::size_t>(company) % WalkStatements().size()];
    ASSERT_NO_FATAL_FAILURE(Compare(walked)) << "company " << company;
    const std::string documents = "SELECT * FROM Documents ORDER BY Kind, Code";
    ASSERT_EQ(Dump(second_.Path(), documents), Dump(first.Path(), documents)) << "company " << company;
  }
  EXPECT_EQ(statements, companies * kStatements);
  EXPECT_GT(answered_, statements - statements / 20);
}

TEST_F(RoundTrip, HashesOfPasswordsAreExportedOnlyWhenAskedFor) {
  ExportCompany(SmallDemoPath(), folder_.Path());
  EXPECT_EQ(ReadFile(folder_.Path() + "/users.csv").find("argon2"), std::string::npos);
  const ImportCounts counts = ImportCompany(second_.Path(), folder_.Path());
  EXPECT_EQ(counts.firstLogin, "admin");
  EXPECT_EQ(counts.firstPassword.size(), 19U);
  EXPECT_EQ(counts.withoutPassword, (std::vector<std::string>{"anbar", "guest"}));
  const std::unique_ptr<ICompany> company = OpenCompany(second_.Path());
  EXPECT_TRUE(company->SignIn("admin", counts.firstPassword).has_value());
  EXPECT_FALSE(company->SignIn("admin", "admin").has_value());
  EXPECT_FALSE(company->SignIn("anbar", "").has_value());
  const std::optional<UserRecord> admin = company->SignIn("admin", counts.firstPassword);
  EXPECT_TRUE(company->HasRight(*admin, 502, 6));
}

TEST_F(RoundTrip, FilesThatAreThereAreKeptUnlessTheyAreToBeReplaced) {
  ExportCompany(SmallDemoPath(), folder_.Path());
  WriteFile(folder_.Path() + "/rights.csv", "precious");
  EXPECT_ANY_THROW(ExportCompany(SmallDemoPath(), folder_.Path()));
  EXPECT_EQ(ReadFile(folder_.Path() + "/rights.csv"), "precious");
}

TEST_F(RoundTrip, AStoppedExportLeavesNothing) {
  ExportOptions options;
  int calls = 0;
  options.watcher = [&](const WorkProgress&) { return ++calls < 24; };
  EXPECT_THROW(ExportCompany(SmallDemoPath(), folder_.Path(), options), WorkStopped);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path()));
}

TEST_F(RoundTrip, AStoppedImportLeavesNothing) {
  ExportCompany(SmallDemoPath(), folder_.Path());
  std::vector<std::string> stages;
  ImportOptions options;
  options.replace = true;
  options.watcher = [&](const WorkProgress& progress) {
    if (stages.empty() || stages.back() != progress.stage) stages.emplace_back(progress.stage);
    return true;
  };
  ImportCompany(second_.Path(), folder_.Path(), options);
  std::filesystem::remove(second_.Path());
  ASSERT_GT(stages.size(), 3U);
  // How often a stage asks depends on the clock; that it asks at all does not.
  for (const std::string& stop : {stages.front(), stages[stages.size() / 2], stages.back()}) {
    options.watcher = [&](const WorkProgress& progress) { return progress.stage != stop; };
    EXPECT_THROW(ImportCompany(second_.Path(), folder_.Path(), options), WorkStopped) << stop;
    EXPECT_FALSE(std::filesystem::exists(second_.Path())) << stop;
  }
}

}  // namespace
}  // namespace goods
