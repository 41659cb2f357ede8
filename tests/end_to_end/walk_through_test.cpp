// All fourteen exports in the real desktop on a demo company: what the user did and which statements reached
// the connection, held to walk_through.txt. "walk_through_test --update" writes that file anew.
#include <QApplication>
#include <fstream>
#include <iterator>
#include <map>

#include <dlfcn.h>

#include "desktop/app/main_window.h"
#include "goods_transaction_qrt.h"
#include "host/components/drop_down.h"
#include "host/components/tabs.h"
#include "tests/end_to_end/walk.h"

namespace goods {
namespace {

bool updateTheList = false;

class WalkThrough : public Walk {
 protected:
  void SetUp() override {
    Walk::SetUp();
    Settings().Settings().GoodsDetail = true;
    good_ = BusiestGood(Company());
    RowStore rows;
    Company().OpenConnection()->Open("select Kala from DetailKardex order by Kala", rows);
    std::map<std::int64_t, int> movements;
    for (std::size_t row = 0; row < rows.Count(); ++row) {
      const std::int64_t good = rows.Cell(row, 0).AsInteger();
      if (++movements[good] > movements[detailGood_]) detailGood_ = good;
    }
  }

  void Plain(const char* name, const Steps& steps) {
    Export(name, [&] { Inside([&] { Reports().Call(name); }, steps); });
  }

  // The criteria of a stock card, its rows, a document, paper.
  void UseCard(QWidget& card) {
    PressKey(card, Qt::Key_2, Qt::AltModifier);
    Enter(card, "Store_SESF.TSelect_Entity_Frame1.Code_EDT", "1");
    Did("limits it to a store");
    Enter(card, "Date_RDSF.RangeDate_From_EDT", "14020101");
    Enter(card, "Date_RDSF.RangeDate_To_EDT", "14031230");
    Did("limits it to two years");
    SortBy(card, "Kardex_GRD", "Tedad_Varde");
    OpenDocument(card, "Kardex_GRD", "Type");
    Print(card);
  }

  void UseRowSearch(QWidget& search) {
    TypeAndWait(search, "SearchComment_Frame.GeneralSearch_EDT", "ا");
    SortBy(search, "KardexSearch_GRD", "Varede");
    OpenCard(search);
    Print(search);
  }

  // What both lists of goods have; open is the export that shows them.
  void UseList(QWidget& list, const std::function<void()>& open) {
    PressKey(list, Qt::Key_1, Qt::ControlModifier);
    Did("shows what is in stock");
    PressKey(list, Qt::Key_6, Qt::ControlModifier);
    Did("shows every good");
    ClickRow(list, "GoodGroup_DBG", 1);
    Did("chooses a group");
    ClickRow(list, "GoodGroup_DBG", 0);
    Did("chooses all groups");
    TypeAndWait(list, "GeneralSearch_FRAME.GeneralSearch_EDT", "1");
    Clear(list, "GeneralSearch_FRAME.GeneralSearch_EDT");
    Inside([&] { PressKey(list, Qt::Key_F10, Qt::ControlModifier); },
           [&](QWidget& dialog) {
             Enter(dialog, "Store_Frame.TSelect_Entity_Frame1.Code_EDT", "1");
             Tick(dialog, "Period_PNL.Date_CHK");
             Enter(dialog, "Period_PNL.Date1_EDT", "14020101");
             Enter(dialog, "Period_PNL.Date2_EDT", "14031230");
             Did("gives a store and a period");
             PressKey(dialog, Qt::Key_F3);
           });
    SortBy(list, "GoodTransactin_List_GRD", "Mogodi");
    GoTo(list, "GoodTransactin_List_GRD", "Code", good_);
    OpenCard(list);
    GoTo(list, "GoodTransactin_List_GRD", "Code", detailGood_);
    Inside([&] { PressKey(list, Qt::Key_F2, Qt::ControlModifier); },
           [&](QWidget& details) {
             OpenOneGood(details);
             Leave(details);
           });
    Print(list);
    CalledAgain(open);
    Leave(list);
  }

  // From a row of the detail stock to the movements of its combination, and on to a document.
  void OpenOneGood(QWidget& details) {
    Inside([&] { PressKey(details, Qt::Key_F2); },
           [&](QWidget& one) {
             EXPECT_GT(RowCount(one), 0U);
             OpenDocument(one, "GoodDetailTransaction_GRD", "OperationType");
             Print(one);
             Leave(one);
           });
  }

  void WalkStockCards();
  void WalkRowSearches();
  void WalkLists();
  void WalkOverall();
  void WalkStores();
  void WalkDetails();
  void WalkMismatch();

  std::int64_t good_ = 0;
  std::int64_t detailGood_ = 0;  // of those that keep details, the busiest
};

void WalkThrough::WalkStockCards() {
  Plain("Open_GoodKardex", [&](QWidget& card) {
    TypeGood(card, good_);
    Did("types the busiest good");
    UseCard(card);
    CalledAgain([&] { Reports().Call("Open_GoodKardex"); });
    Leave(card);
  });
  const auto open = [&] { Reports().OpenKardex(good_, 2, "1401/01/01", "1401/12/29"); };
  Export("Open_Kardex(good, 2, 1401/01/01, 1401/12/29)", [&] {
    Inside(open, [&](QWidget& card) {
      UseCard(card);
      CalledAgain(open);
      Leave(card);
    });
  });
}

void WalkThrough::WalkRowSearches() {
  Plain("Open_KardexSearch", [&](QWidget& search) {
    PressKey(search, Qt::Key_F2, Qt::ControlModifier);
    Did("runs it without criteria");
    Inside([&] { PressKey(search, Qt::Key_F10, Qt::ControlModifier); },
           [&](QWidget& dialog) {
             Enter(dialog, "SearchRangeDate_FRAME.RangeDate_From_EDT", "14020101");
             Enter(dialog, "SearchRangeDate_FRAME.RangeDate_To_EDT", "14021229");
             PressKey(dialog, Qt::Key_F3);
           });
    UseRowSearch(search);
    Leave(search);
  });
  Export("Open_KardexNegativ(1, 0, 0)", [&] {
    Inside([&] { Reports().OpenKardexNegativ("1", "0", "0"); },
           [&](QWidget& search) {
             UseRowSearch(search);
             Leave(search);
           });
  });
}

void WalkThrough::WalkLists() {
  void* library = dlopen(Reports().Path().c_str(), RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(library, nullptr);
  const auto openGarKala = reinterpret_cast<decltype(&Open_GarKala)>(dlsym(library, "Open_GarKala"));
  ASSERT_NE(openGarKala, nullptr);
  Export("Open_GarKala(501)", [&] {
    Inside([&] { openGarKala(501); }, [&](QWidget& list) { UseList(list, [&] { openGarKala(501); }); });
  });
  Export("Open_GarKala(503)", [&] { openGarKala(503); });
  Did("sees nothing");
  dlclose(library);
  Plain("Open_GoodAmountAsset",
        [&](QWidget& list) { UseList(list, [&] { Reports().Call("Open_GoodAmountAsset"); }); });
  Plain("Open_GoodCashAsset", [&](QWidget& list) {
    Tick(list, "pnlReport_PNL.Stock_CHK");
    ByProgram(list, [&] {
      Component<TDropDownCombo>(list, "pnlReport_PNL.Report_CMB").SetDroppedDown(true);
      Component<TPageControl>(list, "pnlReport_PNL.CostLevelType_PGC").SetActivePageIndex(2);
      auto& prices = Component<TSmartDBGrid_QRT>(list, "pnlReport_PNL.RialsHistory_GRD");
      prices.MoveTo(2);
      prices.DoubleClick();
    });
    Did("values the stock at a price of its history");
    UseList(list, [&] { Reports().Call("Open_GoodCashAsset"); });
  });
}

void WalkThrough::WalkOverall() {
  Plain("Open_GoodTrans_Overall", [&](QWidget& overall) {
    PressKey(overall, Qt::Key_F2, Qt::ControlModifier);
    Did("runs it");
    Enter(overall, "Store_SESF.TSelect_Entity_Frame1.Code_EDT", "1");
    Tick(overall, "Period_PNL.Date_CHK");
    Enter(overall, "Period_PNL.Date1_EDT", "14020101");
    Enter(overall, "Period_PNL.Date2_EDT", "14031230");
    Tick(overall, "Period_PNL.AvalDore_CHK");
    PressKey(overall, Qt::Key_F2, Qt::ControlModifier);
    Did("runs it for a store and a period with the stock before");
    SortBy(overall, "money_Overall_List_GRD", "Buy");
    GoTo(overall, "money_Overall_List_GRD", "KalaCode", good_);
    OpenCard(overall);
    Print(overall);
    ByProgram(overall, [&] { Component<TPageControl>(overall, "Mojodi_PGC").SetActivePageIndex(1); });
    SortBy(overall, "tedad_Overall_List_GRD", "Buy");
    GoTo(overall, "tedad_Overall_List_GRD", "KalaCode", good_);
    OpenCard(overall);
    Print(overall);
    Leave(overall);
  });
}

void WalkThrough::WalkStores() {
  Plain("Open_GoodsAsset_Store", [&](QWidget& stores) {
    PressKey(stores, Qt::Key_F2, Qt::ControlModifier);
    Did("runs it");
    Tick(stores, "Period_PNL.Date_CHK");
    Enter(stores, "Period_PNL.Date1_EDT", "14020101");
    Enter(stores, "Period_PNL.Date2_EDT", "14031230");
    PressKey(stores, Qt::Key_F2, Qt::ControlModifier);
    Did("runs it for a period");
    SortBy(stores, "GoodsAsset_Store_GRD", "A0-1");
    GoTo(stores, "GoodsAsset_Store_GRD", "GoodCode", good_);
    OpenCard(stores);
    Print(stores);
    Leave(stores);
  });
}

void WalkThrough::WalkDetails() {
  const auto use = [&](QWidget& details) {
    Click(details, "StoresSeparations_RDB");
    Did("separates the stores");
    ByProgram(details,
              [&] { Component<TTabControl>(details, "TTab_Search_Frame1.Search_TBC").SetTabIndex(1); });
    Did("shows purchases");
    ByProgram(details,
              [&] { Component<TTabControl>(details, "TTab_Search_Frame1.Search_TBC").SetTabIndex(0); });
    Did("shows everything");
    SortBy(details, "GoodDetailTrans_List_GRD", "SumDetailKardex");
    OpenOneGood(details);
    Print(details);
  };
  Plain("Open_DetailTransactions", [&](QWidget& details) {
    TypeAndWait(details, "GoodDetailSearch_EDT", "ا");
    Clear(details, "GoodDetailSearch_EDT");
    use(details);
    CalledAgain([&] { Reports().Call("Open_DetailTransactions"); });
    Leave(details);
  });
  Export("Open_GoodDetailTransactions(good, store 1, 1401/01/01 to 1403/12/30)", [&] {
    Inside(
        [&] {
          Reports().OpenGoodDetailTransactions(detailGood_, true, 1, true, "1401/01/01", "1403/12/30", false,
                                               "", false, "");
        },
        [&](QWidget& details) {
          Click(details, "StoresTotals_RDB");
          Did("totals the stores");
          use(details);
          Leave(details);
        });
  });
  Plain("Open_SearchInDetailTransactions", [&](QWidget& search) {
    ByProgram(search, [&] { Component<TComboBox>(search, "OperationsType_CMB").SetItemIndex(1); });
    Did("chooses a kind of operation");
    ByProgram(search, [&] { Component<TComboBox>(search, "OperationsType_CMB").SetItemIndex(0); });
    Did("chooses all kinds");
    TypeAndWait(search, "GoodDetailSearch_EDT", "ا");
    Inside([&] { PressKey(search, Qt::Key_F10, Qt::ControlModifier); },
           [&](QWidget& dialog) {
             Enter(dialog, "Store_SESF.TSelect_Entity_Frame1.Code_EDT", "1");
             PressKey(dialog, Qt::Key_F3);
           });
    SortBy(search, "AllGoodDetailTrans_List_GRD", "Varede");
    Print(search);
    CalledAgain([&] { Reports().Call("Open_SearchInDetailTransactions"); });
    Leave(search);
  });
}

void WalkThrough::WalkMismatch() {
  Plain("Open_DetailKardexAsset_Dismatch", [&](QWidget& goods) {
    Click(goods, "StoresSeparations_RDB");
    Did("separates the stores");
    SortBy(goods, "GoodDetailKardexDismatch_GRD", "DiffAsset");
    Inside([&] { PressKey(goods, Qt::Key_F2); },
           [&](QWidget& rows) {
             Clear(rows, "GoodDetailSearch_EDT");
             SortBy(rows, "GoodDetailOperationDismatch_GRD", "OperationAmount");
             OpenDocument(rows, "GoodDetailOperationDismatch_GRD", "OperationType");
             Print(rows);
             Leave(rows);
           });
    Print(goods);
    CalledAgain([&] { Reports().Call("Open_DetailKardexAsset_Dismatch"); });
    Leave(goods);
  });
}

TEST_F(WalkThrough, EveryExportOpensNarrowsRunsSortsDrillsDownPrintsAndClosesWithTheStatementsOfTheList) {
  WalkStockCards();
  WalkRowSearches();
  WalkLists();
  WalkOverall();
  WalkStores();
  WalkDetails();
  WalkMismatch();
  Export("Open_StoreExistance", [&] { Reports().Call("Open_StoreExistance"); });
  Did("sees nothing");

  EXPECT_EQ(Account().find("-> error"), std::string::npos);
  EXPECT_EQ(Account().find("-> cancelled"), std::string::npos);
  if (updateTheList) {
    std::ofstream(GOODS_WALK_LIST, std::ios::binary | std::ios::trunc) << Account();
    return;
  }
  std::ifstream file(GOODS_WALK_LIST, std::ios::binary);
  const std::string expected(std::istreambuf_iterator<char>(file), {});
  EXPECT_EQ(Account(), expected)
      << "A wanted change: run walk_through_test --update and review the difference.";
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  goods::UseOffscreenScreen(QSize(1920, 1080));
  testing::InitGoogleTest(&argc, argv);
  goods::updateTheList = argc > 1 && std::string_view(argv[1]) == "--update";
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  goods::ApplyLook({});
  return RUN_ALL_TESTS();
}
