#include "interchange_fixture.h"

#include <filesystem>

namespace goods {

void TestFolder::Take(const std::string& path) {
  for (const auto& entry : std::filesystem::directory_iterator(path)) {
    files_[entry.path().filename().string()] = ReadFile(entry.path().string());
  }
}

std::string TestFolder::Write() const {
  std::filesystem::remove_all(folder_.Path());
  std::filesystem::create_directories(folder_.Path());
  for (const auto& [name, text] : files_) WriteFile(folder_.Path() + "/" + name, text);
  return folder_.Path();
}

std::vector<std::string> Dump(const std::string& company, const std::string& sql) {
  Database db(company, SQLITE_OPEN_READONLY);
  Statement rows = db.Prepare(sql);
  std::vector<std::string> dumped;
  while (rows.Step()) {
    std::string row;
    for (int column = 0; column < rows.Columns(); ++column) row += std::string(rows.Text(column)) + "|";
    dumped.push_back(row);
  }
  return dumped;
}

std::string Differences(const std::string& company) {
  std::string found;
  CheckOptions options;
  options.difference = [&](const std::string& text) { found += text + "\n"; };
  CheckCompany(company, options);
  return found;
}

std::vector<std::string> ImportProblemsOf(const std::string& from, ImportOptions options) {
  const TestFile company("refused.company");
  std::vector<std::string> problems;
  try {
    ImportCompany(company.Path(), from, options);
    return {"accepted"};
  } catch (const ImportRefused& refused) {
    for (const ImportProblem& problem : refused.Problems()) {
      problems.push_back(problem.file + ":" + std::to_string(problem.line) + ": " + problem.reason);
    }
  }
  EXPECT_FALSE(std::filesystem::exists(company.Path()));
  const std::filesystem::path path(company.Path());
  for (const auto& entry : std::filesystem::directory_iterator(path.parent_path())) {
    EXPECT_FALSE(entry.path().filename().string().starts_with("." + path.filename().string()))
        << entry.path();
    EXPECT_FALSE(entry.path().filename().string().starts_with(path.filename().string())) << entry.path();
  }
  return problems;
}

}  // namespace goods
