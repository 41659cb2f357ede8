// Every exported function is called by a case.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include <gtest/gtest.h>

namespace goods {
namespace {

std::string ReadAll(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(CaseCoverage, EveryExportIsCalledByACase) {
  std::string cases;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(GOODS_SOURCES "/tests/reports")) {
    if (entry.path().extension() == ".case") cases += ReadAll(entry.path());
  }
  const std::string header = ReadAll(GOODS_SOURCES "/include/goods_transaction_qrt.h");
  const std::regex exported("GOODS_EXPORT void (Open_[A-Za-z_]+)\\(");
  int count = 0;
  for (std::sregex_iterator each(header.begin(), header.end(), exported), end; each != end; ++each, ++count) {
    EXPECT_NE(cases.find("\n  call " + each->str(1)), std::string::npos) << each->str(1);
  }
  EXPECT_GE(count, 3);
}

}  // namespace
}  // namespace goods
