#include "desktop/app/category_picker.h"

#include <QLineEdit>
#include <QStandardItem>
#include <QTreeView>
#include <set>

#include "desktop/views/check_tree.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

using Categories = DesktopTest;

// The parent of "2" has a larger code than its own; "7" is in a ring with "8"; the parent of "9" is not
// there.
const std::vector<TCategory> kTree{{"1", "خوراکی", ""}, {"2", "شیر", "5"},     {"5", "لبنیات", "1"},
                                   {"6", "شوینده", ""}, {"7", "حلقه یک", "8"}, {"8", "حلقه دو", "7"},
                                   {"9", "یتیم", "404"}};

CheckTree& Tree(QWidget& window) {
  auto* tree = window.findChild<CheckTree*>();
  if (tree == nullptr) throw std::runtime_error("no tree");
  return *tree;
}

TEST_F(Categories, TheTreeIsByParentAndEveryCategoryStandsForItself) {
  CategoryPicker picker(kTree, {"6"}, nullptr);
  WhileModal([](QWidget& window) {
    CheckTree& tree = Tree(window);
    ASSERT_NE(tree.Item("2"), nullptr);
    EXPECT_EQ(tree.Item("2")->parent(), tree.Item("5"));
    EXPECT_EQ(tree.Item("5")->parent(), tree.Item("1"));
    EXPECT_EQ(tree.Item("9")->parent(), nullptr);
    for (const char* each : {"7", "8"}) EXPECT_NE(tree.Item(each), nullptr);
    tree.Item("1")->setCheckState(Qt::Checked);
    EXPECT_EQ(tree.Item("5")->checkState(), Qt::Unchecked);
    PressKey(window, Qt::Key_Return);
  });
  EXPECT_EQ(picker.Choose(), (std::vector<std::string>{"6", "1"}));
}

TEST_F(Categories, ASearchFindsAndSpaceTicksByKeyboardAlone) {
  CategoryPicker picker(kTree, {}, nullptr);
  WhileModal([](QWidget& window) {
    TypeText(window, "Search_EDT", "شير");
    PressKey(window, Qt::Key_Down);
    PressKey(window, Qt::Key_End);
    PressKey(window, Qt::Key_Space);
    PressKey(window, Qt::Key_Return);
  });
  EXPECT_EQ(picker.Choose(), std::vector<std::string>{"2"});
}

TEST_F(Categories, EscapeGivesUp) {
  CategoryPicker picker(kTree, {"1"}, nullptr);
  WhileModal([](QWidget& window) { PressKey(window, Qt::Key_Escape); });
  EXPECT_EQ(picker.Choose(), std::nullopt);
}

TEST_F(Categories, TheHostsTreeOffersThoseOfTheCompany) {
  DesktopHost& host = HostFor("admin");
  std::vector<std::string> all;
  for (const TCategory& category : host.Lookups().Categories()) all.push_back(category.Code);
  ASSERT_FALSE(all.empty());
  WhileModal([&](QWidget& window) {
    for (const std::string& code : all) EXPECT_NE(Tree(window).Item(ToQt(code)), nullptr) << code;
    Tree(window).CheckShown(true);
    PressKey(window, Qt::Key_Return);
  });
  const auto chosen = host.Lookups().SelectCategories(nullptr, {});
  ASSERT_TRUE(chosen);
  EXPECT_EQ(std::set<std::string>(chosen->begin(), chosen->end()),
            std::set<std::string>(all.begin(), all.end()));
}

}  // namespace
}  // namespace goods
