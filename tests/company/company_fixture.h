// What the company's tests share: files that vanish, rows as texts, and a demo company made once.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "company/company.h"
#include "company/demo/demo_company.h"
#include "host/data/connection.h"
#include "host/data/row_store.h"

namespace goods {

// A path in the build tree that is free; the file is removed at the end.
class TestFile {
 public:
  explicit TestFile(const std::string& name) : path_(std::filesystem::path(GOODS_TEST_FILES) / Unique(name)) {
    std::filesystem::create_directories(path_.parent_path());
    Remove();
  }
  TestFile(const TestFile&) = delete;
  TestFile& operator=(const TestFile&) = delete;
  ~TestFile() { Remove(); }
  std::string Path() const { return path_.string(); }

 private:
  // CTest runs the tests of one program in processes of their own.
  static std::string Unique(const std::string& name);
  void Remove() const {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
    std::filesystem::remove(path_.string() + "-journal", error);
  }
  std::filesystem::path path_;
};

// The path of a demo company of 60 goods, 4 stores and 4,000 movements, made once. Only for reading.
const std::string& SmallDemoPath();

// The rows of a statement, cells as texts.
std::vector<std::vector<std::string>> Ask(IConnection& connection, std::string_view statement);
RowStore AskRows(IConnection& connection, std::string_view statement);
// The message with which the statement fails; "" when it does not.
std::string Refusal(IConnection& connection, std::string_view statement);

// Makes a company what the first version of the schema would have written: takes away what that one lacked.
inline constexpr char kMakeOlder[] =
    "DROP INDEX Kardex_ByDocument; DROP INDEX DetailKardex_ByDocument; DROP INDEX DetailKardex_ByValue;"
    "ALTER TABLE GoodInf DROP COLUMN ConsumerPrice;"
    "ALTER TABLE GoodStoreStock DROP COLUMN varede; ALTER TABLE GoodStoreStock DROP COLUMN sadere;"
    "ALTER TABLE GoodStoreStock DROP COLUMN OperationDate; ALTER TABLE Stores DROP COLUMN AbbName;"
    "ALTER TABLE Persons DROP COLUMN AbbName; DROP TABLE Batches;"
    "ALTER TABLE Users DROP COLUMN SeesPrices; DROP TABLE SignInFailures; DROP TABLE PackedMovements;"
    "PRAGMA user_version = 1";

// How many names in the folder of path begin with its name, or with a point and its name: what is left behind
// beside it. The file itself is not counted.
std::size_t NamesBeside(const std::string& path);

std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, std::string_view bytes);

}  // namespace goods
