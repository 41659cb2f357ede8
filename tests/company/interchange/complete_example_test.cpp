// The example with every file, and the page that tells of the files.
#include <algorithm>

#include "company/interchange/company_tables.h"
#include "company/interchange/import_fields.h"
#include "host/core/text.h"
#include "interchange_fixture.h"

namespace goods {
namespace {

TEST(CompleteExample, HasEveryFileAndBecomesACompanyThatHoldsTogether) {
  const TestFile file("complete.company");
  ImportOptions options;
  options.firstPassword = "a password";
  const ImportCounts counts = ImportCompany(file.Path(), GOODS_COMPLETE_EXAMPLE, options);
  EXPECT_EQ(counts.movements, 15U);
  EXPECT_EQ(counts.firstLogin, "modir");
  EXPECT_EQ(counts.withoutPassword, std::vector<std::string>{"anbardar"});
  EXPECT_EQ(Differences(file.Path()), "");
  for (const CompanyTable& table : CompanyTables()) {
    EXPECT_NE(Dump(file.Path(), "SELECT count(*) FROM \"" + std::string(table.table) + "\"")[0], "0|")
        << table.names;
  }
  EXPECT_EQ(Dump(file.Path(), "SELECT Comment FROM Documents WHERE Kind = 3 AND Code = 1")[0], "خرید فصل|");
  const std::unique_ptr<ICompany> company = OpenCompany(file.Path());
  EXPECT_EQ(company->Title(), "بازرگانی نمونه");
  EXPECT_TRUE(company->SignIn("modir", "a password").has_value());
  // An export has the same files and no other.
  const TestFile folder("complete");
  ExportCompany(file.Path(), folder.Path());
  const auto names = [](const std::string& path) {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(path))
      files.push_back(entry.path().filename());
    std::sort(files.begin(), files.end());
    return files;
  };
  EXPECT_EQ(names(folder.Path()), names(GOODS_COMPLETE_EXAMPLE));
}

TEST(CompleteExample, ThePageTellsOfEveryFileColumnAndName) {
  const std::string page = ReadFile(GOODS_IMPORT_PAGE);
  const auto told = [&](std::string_view text) {
    return page.find("`" + std::string(text) + "`") != std::string::npos;
  };
  for (const CompanyTable& table : CompanyTables()) {
    const std::string name = Split(table.names, '|')[0] + ".csv";
    EXPECT_NE(page.find(name), std::string::npos) << name;
    for (const TableField& field : table.fields) {
      const std::string title = Split(field.names, '|')[0];
      if (title.starts_with("value ")) continue;
      EXPECT_TRUE(told(title)) << title;
    }
  }
  for (int type = 0; type < 26; ++type) EXPECT_TRUE(told(MovementTypeName(type))) << type;
  for (std::int64_t kind = 1; kind <= 15; ++kind) {
    EXPECT_TRUE(DocumentKindName(kind) == "good_record" || told(DocumentKindName(kind))) << kind;
  }
  for (const auto& entry : std::filesystem::directory_iterator(GOODS_COMPLETE_EXAMPLE)) {
    const std::string header = ReadFile(entry.path().string());
    for (const std::string& title : Split(header.substr(0, header.find('\n')), ',')) {
      EXPECT_TRUE(title.starts_with("value ") || told(title)) << entry.path() << " " << title;
    }
  }
}

}  // namespace
}  // namespace goods
