// What the tests of files in and out of companies share.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "company/embedded/sqlite.h"
#include "company/interchange/export_company.h"
#include "company/interchange/import_company.h"
#include "company/upkeep/check_company.h"
#include "company_fixture.h"

namespace goods {

// A folder of files, each a text, that is written anew for every use.
class TestFolder {
 public:
  explicit TestFolder(const std::string& name) : folder_(name) {}
  std::string& operator[](const std::string& file) { return files_[file]; }
  void Remove(const std::string& file) { files_.erase(file); }
  // Reads the files of another folder.
  void Take(const std::string& path);
  // Writes them and gives the path.
  std::string Write() const;

 private:
  TestFile folder_;
  std::map<std::string, std::string> files_;
};

// All rows of a query, cells as SQLite gives their text, joined; one text a row.
std::vector<std::string> Dump(const std::string& company, const std::string& sql);

// The differences that a check finds, each a line.
std::string Differences(const std::string& company);

// The problems with which the import is refused, "file:line: reason" each; "accepted" when it is not. Nothing
// may be left behind.
std::vector<std::string> ImportProblemsOf(const std::string& from, ImportOptions options = {});

}  // namespace goods
