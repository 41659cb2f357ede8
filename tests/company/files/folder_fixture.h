// A folder of one's own for each test, and what tests of files ask of it.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

namespace goods {

class FolderTest : public testing::Test {
 protected:
  void SetUp() override {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::path(GOODS_TEST_FILES) /
              (std::string(test.test_suite_name()) + "." + test.name() + "." + std::to_string(getpid()));
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::string Path(std::string_view name) const { return (folder_ / name).string(); }
  std::string Contents(std::string_view name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void Put(std::string_view name, std::string_view contents) const {
    std::ofstream(folder_ / name, std::ios::binary) << contents;
  }
  // In order.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  using Listed = std::vector<std::string>;

  std::filesystem::path folder_;
};

}  // namespace goods
