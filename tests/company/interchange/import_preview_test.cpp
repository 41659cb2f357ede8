// What is shown of files before they are imported, and beside their problems.
#include "company/interchange/import_preview.h"

#include "interchange_fixture.h"

namespace goods {
namespace {

class ImportPreviewTest : public ::testing::Test {
 protected:
  ImportPreviewTest() {
    folder_["goods.csv"] = "code,name,group,unit\nG-1,یک,الف,عدد\nG-2,دو,الف,عدد\n";
    folder_["movements.csv"] =
        "date,good,store,type,quantity\n2024-03-20,G-1,S1,purchase,10\n2024-03-21,G-1,S1,sale,4\n";
  }

  ImportPreview Preview() { return PreviewImport(folder_.Write(), names_); }
  static std::optional<std::size_t> PlaceOf(const ImportPreview& preview, const char* table,
                                            const char* column) {
    for (const ColumnPreview& each : preview.Find(table)->columns) {
      if (each.name == column) return each.place;
    }
    ADD_FAILURE() << column;
    return std::nullopt;
  }

  TestFolder folder_{"preview"};
  NameMap names_;
};

TEST_F(ImportPreviewTest, FilesAreFoundAndTheirColumnsMatchedWithTenRowsAtMost) {
  for (int i = 3; i < 30; ++i) folder_["goods.csv"] += "G-" + std::to_string(i) + ",کالا,الف,عدد\n";
  folder_["other.txt"] = "a\tb\n";
  folder_["note.pdf"] = "no table";
  const ImportPreview preview = Preview();
  EXPECT_EQ(preview.files, (std::vector<std::string>{"goods.csv", "movements.csv", "other.txt"}));
  const TablePreview& goods = *preview.Find("goods");
  EXPECT_TRUE(goods.required);
  EXPECT_EQ(goods.file, "goods.csv");
  EXPECT_EQ(goods.header, (std::vector<std::string>{"code", "name", "group", "unit"}));
  ASSERT_EQ(goods.rows.size(), 10U);
  EXPECT_EQ(goods.rows[0], (std::vector<std::string>{"G-1", "یک", "الف", "عدد"}));
  EXPECT_EQ(PlaceOf(preview, "goods", "unit"), 3U);
  EXPECT_EQ(PlaceOf(preview, "goods", "position"), std::nullopt);
  EXPECT_EQ(PlaceOf(preview, "movements", "movement type"), 3U);
  EXPECT_EQ(preview.Find("stores")->file, "");
  EXPECT_EQ(MissingForImport(preview), std::vector<std::string>());
}

TEST_F(ImportPreviewTest, WhatIsMatchedByHandCountsAlsoThatThereIsNoSuchColumn) {
  folder_.Remove("goods.csv");
  folder_["artikel.csv"] = "Nr,Bez,group,unit\n1,یک,الف,عدد\n";
  EXPECT_EQ(MissingForImport(Preview()).size(), 1U);
  names_.SetFile("goods", "artikel.csv");
  EXPECT_EQ(MissingForImport(Preview()).size(), 2U);
  names_.SetColumn("goods", "code", "Nr");
  names_.SetColumn("goods", "name", "Bez");
  EXPECT_EQ(PlaceOf(Preview(), "goods", "name"), 1U);
  EXPECT_EQ(MissingForImport(Preview()), std::vector<std::string>());
  names_.SetColumn("goods", "unit", "");
  EXPECT_EQ(PlaceOf(Preview(), "goods", "unit"), std::nullopt);
  EXPECT_EQ(MissingForImport(Preview()).size(), 1U);
  names_.SetFile("goods", "");
  EXPECT_EQ(Preview().Find("goods")->file, "");
}

TEST_F(ImportPreviewTest, TypesThatNobodyKnowsAreListedOnceAndQuantitiesWithoutASignAreNoticed) {
  EXPECT_TRUE(Preview().unsignedQuantities);
  EXPECT_EQ(Preview().unknownTypes, std::vector<std::string>());
  for (int i = 0; i < 20; ++i)
    folder_["movements.csv"] += "2024-03-22,G-1,S1,Verkauf,1\n2024-03-22,G-1,S1,Abgang,1\n";
  EXPECT_EQ(Preview().unknownTypes, (std::vector<std::string>{"Verkauf", "Abgang"}));
  names_.SetMovementType("Verkauf", "1");
  EXPECT_EQ(Preview().unknownTypes, std::vector<std::string>{"Abgang"});
  folder_["movements.csv"] += "2024-03-23,G-1,S1,sale,-1\n";
  EXPECT_FALSE(Preview().unsignedQuantities);
}

TEST_F(ImportPreviewTest, TheRowsOfProblemsAreReadAgain) {
  folder_["movements.csv"] += "2024-13-45,G-9,S1,sale,1\n2024-03-23,\"G\n-1\",S1,sale,x\n";
  const std::string from = folder_.Write();
  std::vector<ImportProblem> problems;
  try {
    ImportCompany(from + "/never.goods", from);
    FAIL();
  } catch (const ImportRefused& refused) {
    problems = refused.Problems();
  }
  problems.push_back({"goods.csv", 0, "the file as a whole"});
  problems.push_back({"goods.csv", 2, "a row"});
  const std::vector<std::string> rows = ReadProblemRows(from, names_, problems);
  ASSERT_EQ(rows.size(), problems.size());
  EXPECT_EQ(rows.front(), "2024-13-45 | G-9 | S1 | sale | 1");
  EXPECT_EQ(rows[rows.size() - 2], "");
  EXPECT_EQ(rows.back(), "G-1 | یک | الف | عدد");
}

TEST_F(ImportPreviewTest, AFileThatCannotBeReadFurtherSaysSo) {
  folder_["goods.csv"] = "code,name,group,unit\n1,\"یک,الف,عدد\n";
  EXPECT_NE(Preview().Find("goods")->problem, "");
  folder_["goods.csv"] = "";
  EXPECT_NE(Preview().Find("goods")->problem, "");
  EXPECT_FALSE(MissingForImport(Preview()).empty());
}

TEST_F(ImportPreviewTest, LookingCanBeStopped) {
  for (int i = 0; i < 5'000; ++i) folder_["movements.csv"] += "2024-03-22,G-1,S1,sale,1\n";
  EXPECT_THROW(PreviewImport(folder_.Write(), names_, [](const WorkProgress&) { return false; }),
               WorkStopped);
}

}  // namespace
}  // namespace goods
