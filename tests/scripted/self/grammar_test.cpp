// The grammar and its description stay together.
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "tests/scripted/engine/step_table.h"

namespace goods {
namespace {

TEST(Grammar, EveryPatternIsDescribed) {
  std::ifstream file(GOODS_TESTS_README);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  ASSERT_FALSE(text.empty());
  for (const std::string& pattern : AllSteps().Patterns()) {
    EXPECT_NE(text.find("`" + pattern + "`"), std::string::npos) << pattern;
  }
}

// The example is the beginning of a file that runs: each of its lines stands there too.
TEST(Grammar, TheExampleIsTakenFromAFileThatRuns) {
  const std::set<std::string> lines = [] {
    std::set<std::string> all;
    std::ifstream file(GOODS_EXAMPLE_CASE);
    for (std::string line; std::getline(file, line);) all.insert(line);
    return all;
  }();
  std::ifstream readme(GOODS_TESTS_README);
  std::string line;
  while (std::getline(readme, line) && !line.ends_with("This file runs:")) continue;
  int checked = 0;
  while (std::getline(readme, line) && !line.starts_with("- ")) {
    if (line.empty() || line.starts_with("    #")) continue;
    EXPECT_TRUE(lines.contains(line.substr(4))) << line;
    ++checked;
  }
  EXPECT_GT(checked, 8);
}

}  // namespace
}  // namespace goods
