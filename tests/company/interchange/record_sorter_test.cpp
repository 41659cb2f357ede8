// Sorting more than memory holds.
#include "company/writer/record_sorter.h"

#include <algorithm>

#include "company/demo/random.h"
#include "company_fixture.h"

namespace goods {
namespace {

TEST(RecordSorter, RecordsComeInTheOrderOfTheirKeysWhateverMemoryThereIs) {
  for (const std::size_t memory : {std::size_t{100}, std::size_t{20'000}, RecordSorter::kMemory}) {
    const TestFile beside("sorted");
    RecordSorter sorter(beside.Path(), memory);
    Random random(7);
    std::vector<std::pair<RecordSorter::Key, std::string>> wanted;
    for (int i = 0; i < 3000; ++i) {
      const RecordSorter::Key key{random.Next() % 40, random.Next() % 10};
      std::string bytes = std::to_string(i) + std::string(static_cast<std::size_t>(random.Below(60)), 'x');
      sorter.Add(key, bytes);
      wanted.emplace_back(key, std::move(bytes));
    }
    std::stable_sort(wanted.begin(), wanted.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    // Runs have no names: nothing would be left of a killed program.
    const std::filesystem::path path(beside.Path());
    for (const auto& entry : std::filesystem::directory_iterator(path.parent_path())) {
      EXPECT_FALSE(entry.path().filename().string().starts_with(path.filename().string() + ".sort"));
    }
    sorter.Sort();
    for (const auto& [key, bytes] : wanted) {
      ASSERT_TRUE(sorter.Next());
      ASSERT_TRUE(sorter.CurrentKey() == key);
      ASSERT_EQ(sorter.Bytes(), bytes);
    }
    EXPECT_FALSE(sorter.Next());
    EXPECT_EQ(sorter.Count(), 3000);
  }
}

TEST(RecordSorter, WithoutRecordsThereIsNone) {
  RecordSorter sorter("nowhere");
  sorter.Sort();
  EXPECT_FALSE(sorter.Next());
}

}  // namespace
}  // namespace goods
