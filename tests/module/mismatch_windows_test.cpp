// The mismatch windows: what is shown beside the list, the refresh from outside, before and after showing.
#include <functional>
#include <stdexcept>

#include "goods_transaction_qrt.h"
#include "module/reports/mismatch/good_detail_kardex_dismatch.h"
#include "module/reports/mismatch/good_detail_operation_dismatch.h"
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

constexpr const char* kGroups = "Select * From GoodGrps";
constexpr const char* kTotals = " EXEC DetailKardexAsset_Dismatch @StoreSeparation = 0";
constexpr const char* kSeparated = " EXEC DetailKardexAsset_Dismatch @StoreSeparation = 1";

class MismatchWindows : public DataModuleTest {
 protected:
  void SetUp() override {
    Give(kGroups, "Code Name", {{"0", "همه"}, {"3", "فلزات"}});
    Give(" EXEC DetailKardexAsset_Dismatch%",
         "StoreCode StoreTitle GoodCode GoodTitle DiffAsset KardexAsset DetailAsset",
         {{"1", "مرکزی", "12", "پیچ", "-0.5", "50", "50.5"},
          {"2", "شمال", "13", "مهره", "1200", "1200", "0"}});
    Give(" EXEC DetailOperation_Dismatch%", "OperationCode", {{"31"}});
  }

  // Shows the window; the action is what the user does in it, then it is closed.
  void Show(TForm& window, std::function<void()> action) {
    bool done = false;
    host.Windows().OnIdle = [&] {
      if (done) return false;
      done = true;
      action();
      return true;
    };
    window.ShowModal();
    host.Windows().OnIdle = nullptr;
  }
};

std::vector<std::string> Fields(const TGoodDetailKardexDismatch_FRM& window) {
  std::vector<std::string> texts;
  for (const TFieldList::Entry& entry : window.TListDetail_FRAME1.DetailFields_QRT1.Entries()) {
    texts.push_back(entry.Caption + " = " + entry.Text);
  }
  return texts;
}

// Remembers the messages that are posted to the window.
template <typename Window>
class Listening : public Window {
 public:
  using Window::Window;
  void WindowMessage(int code) override {
    messages.push_back(code);
    Window::WindowMessage(code);
  }
  std::vector<int> messages;
};

TEST_F(MismatchWindows, TypingInAnyEditOfTheStockCardMismatchPostsTheSameMessage) {
  Listening<TGoodDetailKardexDismatch_FRM> window(host, 1, "");
  Show(window, [&] {
    window.GoodDetailSearchAmount_CMB.SetItemIndex(1);
    for (TEdit* edit :
         {&window.Search_PNL.GoodDetailSearch_EDT, &window.FromAmount_EDT, &window.ToAmount_EDT}) {
      edit->TypeText("7");
    }
  });
  EXPECT_EQ(window.messages, (std::vector<int>{9037, 9037, 9037}));
}

TEST_F(MismatchWindows, TypingInTheOperationMismatchPostsTheSearchEditsMessage) {
  Listening<TGoodDetailOperationDismatch_FRM> window(host, 1, Variant(std::string("12;پیچ;4;کارتن;7;عدد;2;")),
                                                     "");
  Show(window, [&] { window.Search_PNL.GoodDetailSearch_EDT.TypeText("7"); });
  EXPECT_EQ(window.messages, std::vector<int>{9035});
}

TEST_F(MismatchWindows, TheCaretStaysWhereItWasInTheEditThatWasTypedIn) {
  TGoodDetailKardexDismatch_FRM window(host, 1, "");
  Show(window, [&] {
    window.GoodDetailSearchAmount_CMB.SetItemIndex(1);
    Sent();
    window.ToAmount_EDT.SetFocus();
    window.ToAmount_EDT.TypeText("1234");
    window.ToAmount_EDT.SetCaret(2);
    const Subscription onRows = window.GoodDetailKardexDismatch_GRD.DataSet()->Changed.Connect(
        [&] { window.ToAmount_EDT.SetCaret(0); });
    host.Windows().ProcessMessages([] { return false; });
    EXPECT_EQ(Sent(), Texts{std::string(kTotals) + ",@FromDiffAsset = 0,@ToDiffAsset = 1234"});
    EXPECT_EQ(window.ToAmount_EDT.Caret(), 2);
    EXPECT_TRUE(window.ToAmount_EDT.Focused());
  });
}

TEST_F(MismatchWindows, TheCurrentRowsFiguresStandUnderTheList) {
  TGoodDetailKardexDismatch_FRM window(host, 1, "");
  EXPECT_TRUE(Fields(window).empty());
  Show(window, [&] {
    EXPECT_EQ(Fields(window), (Texts{"کد کالا = 12", "نام کالا = پیچ", "انبار = مرکزی", "موجودی کاردکس = 50",
                                     "موجودی جزئیات = 50.5", "اختلاف موجودی = 0.5-"}));
    window.GoodDetailKardexDismatch_GRD.MoveTo(1);
    EXPECT_EQ(Fields(window), (Texts{"کد کالا = 13", "نام کالا = مهره", "انبار = شمال",
                                     "موجودی کاردکس = 1200", "موجودی جزئیات = 0", "اختلاف موجودی = 1200"}));
  });
}

TEST_F(MismatchWindows, ResettingTotalsTheStoresReadsTheGroupsAndRunsOnce) {
  TGoodDetailKardexDismatch_FRM window(host, 1, "");
  Show(window, [&] {
    window.StoresSeparations_RDB.SetChecked(true);
    window.Groups_PNL.Groups_GRD.MoveTo(1);
    Sent();
    host.Log.TakeAll();
    window.Reset();
    EXPECT_EQ(Sent(), (Texts{kGroups, kTotals}));
    EXPECT_TRUE(window.StoresTotals_RDB.Checked());
    EXPECT_FALSE(window.GoodDetailKardexDismatch_GRD.FindColumn("StoreTitle")->Visible());
    EXPECT_EQ(window.Groups_PNL.Code(), 0);
  });
}

TEST_F(MismatchWindows, ResettingKeepsTheSearchTextAndTellsWhatItRan) {
  TGoodDetailKardexDismatch_FRM window(host, 1, "");
  Show(window, [&] {
    window.Search_PNL.Preset(1, "پیچ");
    window.StoresSeparations_RDB.SetChecked(true);
    EXPECT_EQ(window.FilterDescription(), "(نام کالا : پیچ)");
    Sent();
    window.Reset();
    EXPECT_EQ(Sent(), (Texts{kGroups, std::string(kTotals) + ",@GoodName = 'پیچ'"}));
    EXPECT_EQ(window.FilterDescription(), "(نام کالا : پیچ)");
  });
}

TEST_F(MismatchWindows, TheRunIsKeptWithItsRowsAndGoesWithThem) {
  TGoodDetailKardexDismatch_FRM window(host, 1, "");
  EXPECT_EQ(window.LastRun(), nullptr);
  Show(window, [&] {
    const ReportRun* run = window.LastRun();
    ASSERT_NE(run, nullptr);
    EXPECT_EQ(run->parameters, "@StoreSeparation = 0");
    EXPECT_EQ(run->rows, 2U);
    EXPECT_EQ(run->tick, host.Windows().TickCount());
    host.Connection().FailNext(" EXEC%", "deadlock");
    EXPECT_THROW(window.StoresSeparations_RDB.SetChecked(true), DatabaseError);
    EXPECT_EQ(window.LastRun(), nullptr);
    EXPECT_FALSE(window.CriteriaChanged_LBL.Visible());
    window.StoresTotals_RDB.SetChecked(true);
    EXPECT_NE(window.LastRun(), nullptr);
  });
  EXPECT_EQ(window.LastRun(), nullptr);
}

TEST_F(MismatchWindows, AnOrderThatWasSetWhileNothingWasOpenCountsForTheNextRows) {
  TGoodDetailKardexDismatch_FRM window(host, 1, "");
  window.GoodDetailKardexDismatch_GRD.TitleClick(*window.GoodDetailKardexDismatch_GRD.FindColumn("GoodCode"));
  window.GoodDetailKardexDismatch_GRD.TitleClick(*window.GoodDetailKardexDismatch_GRD.FindColumn("GoodCode"));
  Show(window, [&] {
    EXPECT_EQ(window.GoodDetailKardexDismatch_GRD.DataSet()->Sort(), "GoodCode DESC");
    EXPECT_EQ(window.GoodDetailKardexDismatch_GRD.DataSet()->FieldByName("GoodCode").AsText(), "13");
  });
}

TEST_F(MismatchWindows, AFailedResetLeavesAWindowThatRunsAgain) {
  TGoodDetailKardexDismatch_FRM window(host, 1, "");
  Show(window, [&] {
    host.Connection().FailNext(kGroups, "no groups");
    EXPECT_THROW(window.Reset(), DatabaseError);
    Sent();
    window.StoresSeparations_RDB.SetChecked(true);
    EXPECT_EQ(Sent(), Texts{kSeparated});
  });
}

TEST_F(MismatchWindows, BeforeShowingNothingIsBuiltOrRun) {
  TGoodDetailKardexDismatch_FRM window(host, 1, "");
  window.StoresSeparations_RDB.SetChecked(true);
  window.GoodDetailSearchAmount_CMB.SetItemIndex(1);
  window.ToAmount_EDT.SetText("5");
  window.Search_PNL.GoodDetailSearch_CMB.SetItemIndex(0);
  window.Reset();
  std::string parameters = "x";
  window.SetProcParams(parameters);
  EXPECT_EQ(parameters, "");
  EXPECT_EQ(window.FilterDescription(), "");
  EXPECT_TRUE(Sent().empty());
  EXPECT_TRUE(host.Log.Take(CallKind::Waiting).empty());
}

TEST_F(MismatchWindows, AfterClosingNothingIsBuiltOrRun) {
  TGoodDetailKardexDismatch_FRM window(host, 1, "");
  window.ShowModal();
  EXPECT_EQ(Sent(), (Texts{kGroups, kTotals}));
  window.StoresSeparations_RDB.SetChecked(true);
  window.Search_PNL.GoodDetailSearch_CMB.SetItemIndex(0);
  EXPECT_TRUE(Sent().empty());
  EXPECT_FALSE(window.GoodDetailKardexDismatch_GRD.DataSet()->Active());
}

TEST_F(MismatchWindows, TheOperationsRunNothingBeforeShowing) {
  TGoodDetailOperationDismatch_FRM window(host, 1, Variant(std::string("12;پیچ;4;کارتن;7;عدد;2;")), "");
  window.OperationsType_CMB.SetItemIndex(3);
  window.ADVSearch_Fram1.ADVSearch_CHK.SetChecked(true);
  window.Search_PNL.GoodDetailSearch_CMB.SetItemIndex(4);
  std::string parameters = "x";
  window.SetProcParams(parameters);
  EXPECT_EQ(parameters, "");
  EXPECT_EQ(window.FilterCaption(), "");
  EXPECT_TRUE(Sent().empty());
}

TEST_F(MismatchWindows, TheStorePresetsEveryShowingAnewWithTheParameterHandedOverLast) {
  TGoodDetailOperationDismatch_FRM window(host, 1, Variant(std::string("12;پیچ;4;کارتن;7;عدد;2;")), "");
  Show(window, [&] {
    EXPECT_EQ(Sent(), Texts{" EXEC DetailOperation_Dismatch @GoodCode = 12,@Store = 2"});
    window.Search_PNL.GoodDetailSearch_CMB.SetItemIndex(3);
    Sent();
  });
  window.SetCustomParameter(Variant(std::string("13;مهره;4;کارتن;7;عدد;0;")), "");
  Show(window, [&] {
    EXPECT_EQ(Sent(), Texts{" EXEC DetailOperation_Dismatch @GoodCode = 13"});
    EXPECT_EQ(window.Search_PNL.ItemIndex(), 3);
    EXPECT_EQ(window.Good_PNL.GoodName_LBL.Caption(), "مهره");
  });
}

// A host whose message loop breaks while a window is shown.
TEST(GuardedWindow, AnErrorOutOfItsShowingFreesItAndTheNextCallMakesAnother) {
  ScriptedHost host;
  ASSERT_EQ(Goods_AttachHost(GOODS_HOST_VERSION, reinterpret_cast<goods_host*>(static_cast<THost*>(&host))),
            1);
  host.Windows().OnIdle = []() -> bool { throw std::runtime_error("the loop is broken"); };
  Open_DetailKardexAsset_Dismatch();
  EXPECT_EQ(host.Log.Take(CallKind::Message).back(), "ShowError(\"the loop is broken\")");
  EXPECT_EQ(host.Windows().ActiveWindow(), nullptr);
  host.Windows().OnIdle = nullptr;
  host.Log.TakeAll();
  Open_DetailKardexAsset_Dismatch();
  EXPECT_EQ(host.Log.Take(CallKind::Window),
            std::vector<std::string>{"RunModal(GoodDetailKardexDismatch_FRM)"});
  EXPECT_EQ(host.Windows().ClosedLast(), nullptr);
  EXPECT_EQ(Goods_DetachHost(), 1);
}

}  // namespace
}  // namespace goods
