// The frames for tags, categories and unsaved vouchers.
#include <gtest/gtest.h>

#include "host/frames/category_frame.h"
#include "host/frames/tags_frame.h"
#include "host/frames/vouchers_warning_frame.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

class TagsFrames : public ::testing::Test {
 protected:
  TagsFrames() {
    host.Lookups().GiveTag({"3", "قرمز", 0xFF0000});
    host.Lookups().GiveTag({"7", "سبز", 0x00FF00});
    host.Lookups().GiveCategory({"1", "ابزار", ""});
    host.Lookups().GiveCategory({"12", "پیچ", "1"});
    for (TControl* control :
         {static_cast<TControl*>(&shown), static_cast<TControl*>(&search), static_cast<TControl*>(&category),
          static_cast<TControl*>(&warning), static_cast<TControl*>(&grid)}) {
      form.Place(*control);
    }
    shown.Grid = &grid;
    shown.OpenTags(host.Lookups());
    search.OpenTags(host.Lookups());
    search.OnChange = [this] { ++changes; };
    category.Open(host.Lookups());
    category.OnChange = [this] { ++changes; };
    host.Log.TakeAll();
  }
  // Opens the query of the shown tags on rows with these tags.
  void Rows(std::vector<std::vector<std::optional<std::string>>> rows) {
    host.Connection().Answer("%", {{{"tags", ColumnType::Text}}, std::move(rows)});
    shown.Tags_QRY.SetSQL("Select tags");
    shown.Tags_QRY.Open();
    shown.LoadTags();
  }

  ScriptedHost host;
  TForm form{host, "Test_FRM"};
  TTags shown{&form, "Tags_FRAME", host.Connection()};
  TTags_search_FRM search{&form, "Tags_search", "برچس&ب :"};
  TCategorysearchframe category{&form, "Category_FRAME", "دسته :"};
  TDontSavedVouchers_Frame warning{&form, "Vouchers_FRAME", "3"};
  TSmartDBGrid_QRT grid{&form, "Rows_GRD"};
  int changes = 0;
};

TEST(TagCodes, AreReadOneByOneWithoutBlanksAndEmptyParts) {
  EXPECT_EQ(TagCodesOf(",3, 7 ,,"), (std::vector<std::string>{"3", "7"}));
  EXPECT_EQ(TagCodesOf("12"), (std::vector<std::string>{"12"}));
  EXPECT_TRUE(TagCodesOf("").empty());
  EXPECT_TRUE(TagCodesOf(", ,").empty());
}

TEST_F(TagsFrames, TheTagsOfTheRowsAreShownOnceInTheOrderOfComing) {
  Rows({{",7,"}, {",7,3,"}, {std::nullopt}, {",55,"}});
  EXPECT_EQ(shown.Tags_EDT.Codes(), (std::vector<std::string>{"7", "3", "55"}));
  EXPECT_EQ(shown.Tags_EDT.Tokens()[0].Background, 0x00FF00U);
  shown.Rearrange();
  EXPECT_EQ(shown.Tags_EDT.Codes(), (std::vector<std::string>{"3", "7", "55"}))
      << "an unknown one stands behind";
  EXPECT_TRUE(shown.Tags_EDT.ReadOnly());
}

TEST_F(TagsFrames, WithoutARowWhatIsShownStaysAndARowWithoutTagsShowsNone) {
  Rows({{",7,"}});
  Rows({});
  EXPECT_EQ(shown.Tags_EDT.CodesText(), "7");
  Rows({{""}});
  EXPECT_EQ(shown.Tags_EDT.CodesText(), "");
}

TEST_F(TagsFrames, DownGoesToTheGridAndEnterStaysInTheTags) {
  shown.Tags_EDT.SetFocus();
  EXPECT_TRUE(form.KeyDown({Key::Enter, false, false, false}));
  EXPECT_TRUE(form.KeyDown({Key::Down, false, false, false}));
  EXPECT_TRUE(grid.Focused());
  shown.Grid = nullptr;
  shown.Tags_EDT.SetFocus();
  EXPECT_FALSE(form.KeyDown({Key::Down, false, false, false}));
}

TEST_F(TagsFrames, ChosenTagsAreACriterionUntilTheLastIsTakenAway) {
  EXPECT_EQ(search.Tags(), ",,");
  EXPECT_EQ(search.Search.ProcParams(), "");
  search.Tags_EDT.Add("7");
  search.Tags_EDT.Add("3");
  EXPECT_EQ(search.Tags(), ",7,3,");
  EXPECT_EQ(search.Search.ProcParams(), "@tags=',7,3,'");
  search.Tags_Reverst_CHK.SetChecked(true);
  EXPECT_EQ(search.Search.ProcParams(), "@tags=',7,3,',@Nottags=1");
  EXPECT_EQ(search.Search.Title, "برچسب");
  search.Tags_EDT.Remove("7");
  search.Tags_EDT.Remove("3");
  EXPECT_FALSE(search.HasTags());
  EXPECT_EQ(search.Search.ProcParams(), "");
  EXPECT_EQ(changes, 5);
}

TEST_F(TagsFrames, ClearingTheTagsEmptiesTheBoxToo) {
  search.Tags_EDT.Add("7");
  search.Tags_Reverst_CHK.SetChecked(true);
  search.Clear();
  EXPECT_FALSE(search.HasTags() || search.Tags_Reverst_CHK.Checked());
  EXPECT_FALSE(search.Search.Active);
}

TEST_F(TagsFrames, CategoriesAreTypedOrChosenInTheTree) {
  EXPECT_TRUE(category.IsEmpty());
  category.Category_EDT.TypeText("پیچ");
  category.AddTyped();
  EXPECT_EQ(category.Values(), (std::vector<std::string>{"12"}));
  host.Lookups().AnswerCategoryTree(std::vector<std::string>{"12", "1"});
  category.select_BTN.Click();
  EXPECT_EQ(category.Values(), (std::vector<std::string>{"12", "1"}));
  host.Lookups().AnswerCategoryTree(std::nullopt);
  category.Category_EDT.SetFocus();
  EXPECT_TRUE(form.KeyDown({Key::F4, false, false, false}));
  EXPECT_EQ(category.Values().size(), 2U) << "giving up leaves the choice";
  EXPECT_EQ(host.Log.Take(CallKind::Lookup),
            (std::vector<std::string>{"SelectCategories(Test_FRM, \"12\")",
                                      "SelectCategories(Test_FRM, \"12,1\")"}));
  category.Clear();
  EXPECT_TRUE(category.IsEmpty());
  EXPECT_EQ(changes, 3);
}

TEST(CategoryFrame, TakesNothingBeforeItsCategoriesAreReadAndOpensNoTreeOutsideAWindow) {
  TCategorysearchframe frame(nullptr, "Category_FRAME", "دسته :");
  frame.Category_EDT.TypeText("پیچ");
  frame.AddTyped();
  EXPECT_TRUE(frame.IsEmpty());
  frame.select_BTNClick();
  EXPECT_TRUE(frame.IsEmpty());
}

TEST_F(TagsFrames, TheWarningIsSeenWhileVouchersOfItsKindWait) {
  EXPECT_FALSE(warning.Visible());
  host.Documents().UnsavedVouchers = {"4"};
  warning.CheckRefresh(host.Documents());
  EXPECT_FALSE(warning.Visible());
  host.Documents().UnsavedVouchers = {"3"};
  warning.CheckRefresh(host.Documents());
  EXPECT_TRUE(warning.Visible());
  host.Documents().UnsavedVouchers.clear();
  warning.Refresh_BTN.Click();
  EXPECT_FALSE(warning.Visible());
}

}  // namespace
}  // namespace goods
