// The list of fields that a criteria frame can apply to, changed while one is chosen.
#include <gtest/gtest.h>

#include "host/frames/range_digit_search_frame.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

// A range of amounts on the second of three fields.
class SearchItems : public ::testing::Test {
 protected:
  SearchItems() {
    frame.SetItems({{"وارده", "Varede", DataKind::Amount},
                    {"صادره", "Sadere", DataKind::Amount},
                    {"مانده", "Mogodi", DataKind::Amount}});
    frame.RangeDigit_CMB.SetItemIndex(1);
    frame.SetRange("5", "");
    frame.Search.OnChange = [this] { ++changes; };
  }
  std::string Chosen() const { return frame.RangeDigit_CMB.Text(); }
  std::size_t Count() const { return frame.RangeDigit_CMB.Items().size(); }

  ScriptedHost host;
  TForm form{host, "Test_FRM"};
  TRange_Cost_Search_Frame frame{&form, "Amount_FRAME", "مقدار :"};
  int changes = 0;
};

TEST_F(SearchItems, AnItemBeforeOrBehindTheChosenOneLeavesTheChoice) {
  for (const std::size_t at : {std::size_t{0}, std::size_t{2}, std::size_t{5}, std::size_t{99}}) {
    frame.InsertItem(at, {"نو", "New", DataKind::Amount});
    EXPECT_EQ(Chosen(), "صادره") << at;
  }
  EXPECT_EQ(Count(), 7U);
  EXPECT_EQ(frame.Items().front().Title, "نو");
  EXPECT_EQ(frame.Items().back().Title, "نو") << "beyond the end it is the last";
  EXPECT_EQ(frame.Search.ProcParams(), "@FromSadere=5");
  EXPECT_EQ(changes, 0);
}

TEST_F(SearchItems, TheFirstItemOfAnEmptyListIsChosen) {
  frame.SetItems({});
  frame.InsertItem(0, {"تنها", "Only", DataKind::Amount});
  EXPECT_EQ(Chosen(), "تنها");
  EXPECT_FALSE(frame.RangeDigit_CMB.Visible());
  frame.InsertItem(0, {"دیگر", "Other", DataKind::Amount});
  EXPECT_TRUE(frame.RangeDigit_CMB.Visible());
  EXPECT_EQ(Chosen(), "تنها");
}

TEST_F(SearchItems, RemovingTheChosenItemChoosesTheFirstAndTells) {
  frame.RemoveItem(1);
  EXPECT_EQ(Chosen(), "وارده");
  EXPECT_EQ(frame.Search.ProcParams(), "@FromVarede=5");
  EXPECT_EQ(frame.Search.Title, "وارده");
  EXPECT_EQ(changes, 1);
}

TEST_F(SearchItems, RemovingAnotherItemLeavesTheChoice) {
  frame.RemoveItem(0);
  EXPECT_EQ(Chosen(), "صادره");
  frame.RemoveItem(1);
  EXPECT_EQ(Chosen(), "صادره");
  EXPECT_FALSE(frame.RangeDigit_CMB.Visible()) << "one item is no choice";
  frame.RemoveItem(7);
  EXPECT_EQ(Count(), 1U);
  EXPECT_EQ(frame.Search.ProcParams(), "@FromSadere=5");
  EXPECT_EQ(changes, 0);
}

TEST_F(SearchItems, RenamingKeepsTheChoiceAndTellsNobody) {
  frame.RenameItem(1, "خروجی");
  frame.RenameItem(0, "ورودی");
  frame.RenameItem(9, "هیچ");
  EXPECT_EQ(Chosen(), "خروجی");
  EXPECT_EQ(frame.RangeDigit_CMB.Items()[0].Text, "ورودی");
  EXPECT_EQ(frame.Search.Title, "خروجی");
  EXPECT_EQ(frame.Search.ProcParams(), "@FromSadere=5");
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace goods
