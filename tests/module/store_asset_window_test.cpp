// The stock per store: what cases cannot set, such as a width that the user has dragged.
#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>

#include "module/reports/asset/goods_asset_store.h"
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

class StoreAssetWindow : public DataModuleTest {
 protected:
  void SetUp() override {
    Give("select 1 AS Code%", "Code Name", {{"1", "بيشترين قيمت خريد "}});
    Give("select * from costlevel%", "Code Name", {{"4", "عمده"}});
    Give("SELECT * FROM Stores ORDER BY Code", "Code Name", {{"7", "مرکزی"}});
    Give("exec GoodsAsset_Store_SP %", "GoodCode GoodName S1-1 S1-Cost A0-1 A0-Cost",
         {{"12", "پیچ", "5", "50", "5", "50"}});
    window.ShowModal();
  }
  // Shows the window again; the user does that and closes it.
  void WhileShown(const std::function<void()>& action) {
    bool done = false;
    host.Windows().OnIdle = [&] {
      if (std::exchange(done, true)) return false;
      action();
      return true;
    };
    window.ShowModal();
    host.Windows().OnIdle = nullptr;
  }
  TGridColumn& Name() { return *window.GoodsAsset_Store_GRD.FindColumn("GoodName"); }

  TGoodsAsset_Store_FRM window{host, 1, Variant(std::string("0")), ""};
};

TEST_F(StoreAssetWindow, TheNameColumnTakesTheRoomThatIsLeftOver) {
  EXPECT_TRUE(Name().AutoFit());
  EXPECT_EQ(Name().Width(), 200);
}

TEST_F(StoreAssetWindow, ANameColumnDraggedBelow200GetsAWidthOfItsOwn) {
  const std::function<void()> causes[] = {
      [this] { window.FormResize(); },
      [this] { window.Search_BTNClick(); },
      [this] { window.Period_PNL.AvalDore_CHK.SetChecked(!window.Period_PNL.AvalDore_CHK.Checked()); },
  };
  for (const auto& cause : causes) {
    WhileShown([&] {
      Name().SetAutoFit(false).SetWidth(120);
      cause();
      EXPECT_EQ(Name().Width(), 200);
      EXPECT_FALSE(Name().AutoFit());
    });
  }
}

TEST_F(StoreAssetWindow, AWiderNameColumnFitsAgain) {
  Name().SetAutoFit(false).SetWidth(320);
  window.FormResize();
  EXPECT_EQ(Name().Width(), 320);
  EXPECT_TRUE(Name().AutoFit());
}

TEST_F(StoreAssetWindow, ShowingItAgainReadsTheStoresOnceAndKeepsTheColumns) {
  const std::size_t columns = window.GoodsAsset_Store_GRD.Columns().size();
  Sent();
  window.ShowModal();
  EXPECT_EQ(window.GoodsAsset_Store_GRD.Columns().size(), columns);
  for (const std::string& statement : Sent()) EXPECT_EQ(statement.find("Stores"), std::string::npos);
}

TEST_F(StoreAssetWindow, ThePrintButtonIsReadyOnShowOnlyAfterAReport) {
  EXPECT_FALSE(window.PrintList_BTN.Enabled());
  WhileShown([this] { window.Search_BTNClick(); });
  bool ready = false;
  WhileShown([&] { ready = window.PrintList_BTN.Enabled(); });
  EXPECT_TRUE(ready);
}

TEST_F(StoreAssetWindow, AStoreColumnTakesFormatFooterAndFittingFromTheTotal) {
  const auto& grid = window.GoodsAsset_Store_GRD;
  const TGridColumn& amount = *grid.FindColumn("S1-Cost");
  const TGridColumn& total = *grid.FindColumn("A0-Cost");
  EXPECT_EQ(amount.DisplayFormatText(), total.DisplayFormatText());
  EXPECT_EQ(amount.Footer(), total.Footer());
  EXPECT_EQ(amount.AutoFit(), total.AutoFit());
  EXPECT_EQ(amount.FooterFormat().Format(*Decimal::Parse("-1234.5")),
            total.FooterFormat().Format(*Decimal::Parse("-1234.5")));
}

TEST_F(StoreAssetWindow, EachWindowHasItsOwnRows) {
  TGoodsAsset_Store_FRM other(host, 1, Variant(std::string("0")), "");
  EXPECT_NE(window.GoodsAsset_Store_GRD.DataSet(), other.GoodsAsset_Store_GRD.DataSet());
}

// The stores' fields are numbered by their order, which a new store changes.
TEST_F(StoreAssetWindow, AStoreThatWasHiddenIsTheHiddenOneAlsoBehindANewOne) {
  host.Settings().Folder = testing::TempDir() + "store_layouts";
  std::filesystem::create_directories(host.Settings().Folder);
  Give("SELECT * FROM Stores ORDER BY Code", "Code Name", {{"7", "مرکزی"}, {"9", "شمال"}});
  const auto seenIn = [this](const std::function<void(TGoodsAsset_Store_FRM&)>& action) {
    TGoodsAsset_Store_FRM shown(host, 1, Variant(std::string("0")), "");
    std::string seen;
    host.Windows().OnIdle = [&] {
      if (!seen.empty()) return false;
      action(shown);
      for (const TGridColumn* column : shown.GoodsAsset_Store_GRD.VisibleColumns())
        if (column->FieldName().starts_with('S')) seen += column->Caption() + ";";
      return true;
    };
    shown.ShowModal();
    host.Windows().OnIdle = nullptr;
    return seen;
  };
  const auto hide = [](TGoodsAsset_Store_FRM& shown) {
    for (const char* field : {"S1-1", "S1-Cost", "B0-1"})
      shown.GoodsAsset_Store_GRD.FindColumn(field)->SetVisible(std::string(field) == "B0-1");
  };
  EXPECT_EQ(seenIn(hide), "شمال|مقدار;شمال|مبلغ;");
  Give("SELECT * FROM Stores ORDER BY Code", "Code Name", {{"3", "جنوب"}, {"7", "مرکزی"}, {"9", "شمال"}});
  const auto look = [](TGoodsAsset_Store_FRM& shown) {
    EXPECT_FALSE(shown.GoodsAsset_Store_GRD.FindColumn("B0-1")->Visible()) << "that is the box's to say";
    shown.Search_BTNClick();
  };
  Sent();
  EXPECT_EQ(seenIn(look), "جنوب|مقدار;جنوب|مبلغ;شمال|مقدار;شمال|مبلغ;");
  const Texts sent = Sent();
  EXPECT_TRUE(std::any_of(sent.begin(), sent.end(), [](const std::string& statement) {
    return statement.find("@StoreCodes ='-1,0,3,3,9,9,'") != std::string::npos;
  }));
  std::filesystem::remove_all(host.Settings().Folder);
}

}  // namespace
}  // namespace goods
