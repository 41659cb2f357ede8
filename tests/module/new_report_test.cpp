// A report beside the eleven, as docs/new-report.md tells to write one: the goods without a price. It proves
// that a window has its run, order, footers, hint, delayed search and printed criteria from the engine.
#include <algorithm>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <regex>

#include "tests/module/data_module_fixture.h"
#include "tests/module/new_report/goods_without_price.h"

namespace goods {
namespace {

class NewReport : public DataModuleTest {
 protected:
  void SetUp() override {
    CannedRows goods;
    goods.columns = {
        {"GoodCode", ColumnType::Integer}, {"GoodName", ColumnType::Text}, {"Stock", ColumnType::Decimal}};
    goods.rows = {{"12", "پیچ", "2.5"}, {"7", "مهره", "10"}};
    host.Connection().Answer(" EXEC GoodsWithoutPrice%", std::move(goods));
    host.Windows().OnIdle = [this] {
      if (actions.empty()) return false;
      const auto action = actions.front();
      actions.pop_front();
      action();
      return true;
    };
  }
  void Do(std::function<void()> action) { actions.push_back(std::move(action)); }
  void Wait(std::uint64_t milliseconds) {
    Do([this, milliseconds] { host.Windows().LetTimePass(milliseconds); });
    Do([] {});
  }
  std::vector<std::string> PrintedLines() {
    std::vector<std::string> lines;
    window.PrintDBGridEhBeforePrint(lines);
    return lines;
  }

  std::deque<std::function<void()>> actions;  // what the user does while the window is shown
  TGoodsWithoutPrice_FRM window{host, 1, Variant(), ""};
};

TEST_F(NewReport, RunsOnceWhenItIsShownAndAfterEachCriterion) {
  EXPECT_TRUE(Sent().empty());
  Do([&] {
    EXPECT_EQ(Sent(), Texts{" EXEC GoodsWithoutPrice "});
    EXPECT_TRUE(window.Search_PNL.GoodDetailSearch_EDT.Focused());
    window.WithStock_CHK.Click();
    EXPECT_EQ(Sent(), Texts{" EXEC GoodsWithoutPrice @WithStock = 1"});
    EXPECT_EQ(PrintedLines(), Texts{"فیلترهای اعمال شده :: (کالاهای دارای موجودی)"});
  });
  window.ShowModal();
  EXPECT_FALSE(window.GoodsWithoutPrice_QRY.Active());
}

TEST_F(NewReport, WaitsForTheTypingToEndAndForARealNumber) {
  Do([&] {
    Sent();
    window.Search_PNL.GoodDetailSearch_EDT.TypeText("پ");
    window.Search_PNL.GoodDetailSearch_EDT.TypeText("پی");
  });
  Wait(1000);
  Do([&] {
    EXPECT_EQ(Sent(), Texts{" EXEC GoodsWithoutPrice @GoodName = 'پی'"});
    window.Codes_FRAME.RangeDigit_From_EDT.SetFocus();
    window.Codes_FRAME.RangeDigit_From_EDT.TypeText("-");
  });
  Wait(1000);
  Do([&] {
    EXPECT_TRUE(Sent().empty());
    window.Codes_FRAME.RangeDigit_From_EDT.TypeText("-5");
  });
  Wait(1000);
  Do([&] { EXPECT_EQ(Sent(), Texts{" EXEC GoodsWithoutPrice @GoodName = 'پی',@FromGoodCode = -5"}); });
  window.ShowModal();
}

TEST_F(NewReport, KeepsTheOrderOverARunAndSumsIt) {
  Do([&] {
    window.GoodsWithoutPrice_GRD.TitleClick(*window.GoodsWithoutPrice_GRD.FindColumn("GoodName"));
    window.WithStock_CHK.Click();
    EXPECT_EQ(window.GoodsWithoutPrice_QRY.Sort(), "GoodName ASC");
    EXPECT_EQ(window.GoodsWithoutPrice_GRD.FooterText(*window.GoodsWithoutPrice_GRD.FindColumn("Stock")),
              "12.5");
  });
  window.ShowModal();
}

TEST_F(NewReport, TellsWhenTheRowsAreNotUpToDate) {
  Do([&] {
    host.Connection().FailNext(" EXEC%", "deadlock");
    EXPECT_THROW(window.WithStock_CHK.Click(), DatabaseError);
    EXPECT_FALSE(window.CriteriaChanged_LBL.Visible());  // there are no rows
    window.WithStock_CHK.Click();
    EXPECT_FALSE(window.CriteriaChanged_LBL.Visible());
    window.Search_PNL.GoodDetailSearch_EDT.TypeText("پیچ");
    EXPECT_FALSE(window.CriteriaChanged_LBL.Visible());  // it will run by itself
  });
  window.ShowModal();
}

TEST_F(NewReport, TellsThatTheRowsAreOldWhileANumberIsHalfTyped) {
  Do([&] {
    window.Codes_FRAME.RangeDigit_From_EDT.SetText("5");
    window.Codes_FRAME.RangeDigit_From_EDT.SetFocus();
  });
  Wait(1000);
  Do([&] {
    EXPECT_FALSE(window.CriteriaChanged_LBL.Visible());
    window.Codes_FRAME.RangeDigit_From_EDT.TypeText("-");
  });
  Wait(1000);
  Do([&] {
    EXPECT_TRUE(window.CriteriaChanged_LBL.Visible());
    EXPECT_EQ(PrintedLines(), Texts{"فیلترهای اعمال شده :: (کالاها از: 5 تا: )"});
  });
  window.ShowModal();
}

TEST_F(NewReport, OpensTheStockCardOfItsRowAndBeginsEachShowingWithoutCriteria) {
  Do([&] {
    window.WithStock_CHK.Click();
    host.Log.TakeAll();
    TKey key{Key::F2};
    window.KeyDown(key);
    EXPECT_EQ(host.Log.Take(CallKind::Document), Texts{"Call_KardexKala(12, 0, \"\", \"\")"});
    window.Close();
  });
  window.ShowModal();
  Do([&] { EXPECT_EQ(Sent().back(), " EXEC GoodsWithoutPrice "); });
  window.ShowModal();
}

// docs/new-report.md names the files of this report and their lengths.
TEST(NewReportPage, TellsTheFilesAndLinesThatThereAre) {
  std::ifstream page(GOODS_SOURCES "/docs/new-report.md");
  const std::string text{std::istreambuf_iterator<char>(page), {}};
  const std::regex row("`(tests/module/new_report/[a-z_.]+)` \\| ([0-9]+) \\|");
  std::size_t files = 0;
  std::ptrdiff_t total = 0;
  for (std::sregex_iterator each(text.begin(), text.end(), row), end; each != end; ++each, ++files) {
    std::ifstream file(std::string(GOODS_SOURCES "/") + each->str(1));
    const auto lines = std::count(std::istreambuf_iterator<char>(file), {}, '\n');
    EXPECT_EQ(lines, std::stol(each->str(2))) << each->str(1);
    total += lines;
  }
  std::size_t there = 0;
  for (const auto& entry : std::filesystem::directory_iterator(GOODS_SOURCES "/tests/module/new_report")) {
    (void)entry;
    ++there;
  }
  EXPECT_EQ(files, there);
  EXPECT_LE(total, 250);
  EXPECT_NE(text.find(std::to_string(total) + " lines"), std::string::npos) << total;
}

}  // namespace
}  // namespace goods
