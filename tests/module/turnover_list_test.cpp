// What the turnover list offers to those who use its window as an object: flags, results, rights.
#include <algorithm>
#include <deque>
#include <functional>

#include "module/reports/turnover/good_transaction.h"
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

class TurnoverList : public DataModuleTest {
 protected:
  void SetUp() override {
    Give("exec GoodInf_sp%", "Code Name varede sadere Mogodi",
         {{"7", "پیچ", "10", "4", "6"}, {"9", "واشر", "2", "5", "-3"}});
    Give("Select * From GoodGrps", "Code Name", {{"0", "کلیه گروه ها"}, {"3", "فلزات"}});
    Give("Select Code, Title, Enable, DisplayType%", "Code Title Enable DisplayType", {});
    Give("select Code, 'قیمت ' + Name%", "Code Name", {{"4", "قیمت عمده"}});
    Give("select 1 AS Code%", "Code Name", {{"1", "بيشترين قيمت خريد "}});
    host.Windows().OnIdle = [this] {
      if (actions.empty()) return false;
      const auto action = actions.front();
      actions.pop_front();
      action();
      return true;
    };
  }

  TGoodTransaction_FRM Window(const std::string& kind, int formMode = 1) {
    return {host, formMode, Variant(kind), ""};
  }

  Texts Waited() { return host.Log.Take(CallKind::Waiting); }

  std::deque<std::function<void()>> actions;  // what the user does while the window is shown
};

TEST_F(TurnoverList, SendsNothingBeforeItIsShown) {
  TGoodTransaction_FRM window = Window("501");
  window.SetCustomParameter(Variant(std::string("501")), "");
  window.Kala_TBC.SetTabIndex(1);
  window.GeneralSearch_FRAME.SetText("پیچ");
  window.RefreshList();
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(window.ReportKind(), 501);
}

TEST_F(TurnoverList, ReadsItsKindFromTheLastParameter) {
  TGoodTransaction_FRM window = Window("501");
  window.SetCustomParameter(Variant(std::string("502")), "");
  EXPECT_EQ(window.ReportKind(), 502);
  EXPECT_EQ(window.PrintOption.SoftwarePart, 502);
  window.ShowModal();
  EXPECT_EQ(window.Caption(), " موجودي ريالي ");
}

TEST_F(TurnoverList, ARefreshShowsTheWaitingIndicatorOnlyWhereTheFlagAsksForIt) {
  TGoodTransaction_FRM window = Window("501");
  Texts without;
  Texts with;
  actions.push_back([&] {
    Waited();
    window.SetIsShowWaitting(false);
    window.RefreshList();
    without = Waited();
    window.SetIsShowWaitting(true);
    window.RefreshList();
    with = Waited();
  });
  window.ShowModal();
  EXPECT_EQ(without, Texts{});
  EXPECT_EQ(with, (Texts{"ShowWaitting(GoodTransaction_FRM, \"در حال به روز رسانی گزارش\")",
                         "HideWaitting(GoodTransaction_FRM, 0)"}));
}

TEST_F(TurnoverList, ARefreshReadsTheStatementAgain) {
  TGoodTransaction_FRM window = Window("501");
  std::size_t rows = 0;
  actions.push_back([&] {
    Sent();
    Give("exec GoodInf_sp%", "Code Name varede sadere Mogodi", {{"7", "پیچ", "10", "4", "6"}});
    window.RefreshList();
    rows = window.ListDataSet().RecordCount();
  });
  window.ShowModal();
  EXPECT_EQ(Sent(), Texts{"exec GoodInf_sp "});
  EXPECT_EQ(rows, 1u);
}

TEST_F(TurnoverList, ARefreshAfterClosingReadsNothing) {
  TGoodTransaction_FRM window = Window("501");
  window.ShowModal();
  Sent();
  window.RefreshList();
  EXPECT_TRUE(Sent().empty());
}

TEST_F(TurnoverList, SavedVouchersRefreshTheListOnlyWhereThatIsAllowed) {
  for (const bool allowed : {true, false}) {
    TGoodTransaction_FRM window = Window("502");
    window.SetAutomaticRefresh(allowed);
    host.Documents().UnsavedVouchers.insert("3");
    actions.push_back([&] {
      Sent();
      host.Documents().UnsavedVouchers.clear();
      window.DontSavedVouchers_FRAME.Refresh_BTN.Click();
    });
    window.ShowModal();
    EXPECT_EQ(Sent(), allowed ? Texts{"exec GoodInf_sp "} : Texts{});
  }
}

TEST_F(TurnoverList, OpenedForChoosingItEndsWithOkOnTheChosenGood) {
  TGoodTransaction_FRM window = Window("501", kFormModeChoose);
  std::int64_t chosen = 0;
  actions.push_back([&] {
    window.GoodTransactin_List_GRD.MoveTo(0);
    chosen = window.CurrentGood();
    window.Select_BTN.Click();
  });
  EXPECT_EQ(window.ShowModal(), kModalOk);
  EXPECT_EQ(chosen, 7);
  EXPECT_TRUE(Waited().empty());
}

TEST_F(TurnoverList, OpenedForChoosingItEndsWithoutOkWhenLeft) {
  TGoodTransaction_FRM window = Window("501", kFormModeChoose);
  actions.push_back([&] { window.EXit_BTN.Click(); });
  EXPECT_EQ(window.ShowModal(), kModalCancel);
}

TEST_F(TurnoverList, WithoutARowNoGoodIsCurrentAndNoneCanBeChosen) {
  Give("exec GoodInf_sp%", "Code Name varede sadere Mogodi", {});
  TGoodTransaction_FRM window = Window("501", kFormModeChoose);
  actions.push_back([&] {
    EXPECT_EQ(window.CurrentGood(), 0);
    window.Select_BTNClick();
    EXPECT_EQ(window.ModalResult(), kModalNone);
  });
  EXPECT_EQ(window.ShowModal(), kModalCancel);
}

TEST_F(TurnoverList, TheAmountRightIsAskedForTheMoneyListAlone) {
  for (const std::string kind : {"501", "502"}) {
    host.Log.TakeAll();
    TGoodTransaction_FRM window = Window(kind);
    window.ShowModal();
    const Texts asked = host.Log.Take(CallKind::Right);
    const auto times =
        std::count(asked.begin(), asked.end(), "HavePermission(1, 502, 5021, false, false, \"\")");
    EXPECT_EQ(times, kind == "502" ? 1 : 0) << kind;
  }
}

TEST_F(TurnoverList, TheRowsAreToldOnceForARun) {
  TGoodTransaction_FRM window = Window("501");
  int told = 0;
  actions.push_back([&] {
    const Subscription changed = window.ListDataSet().Changed.Connect([&] { ++told; });
    window.Kala_TBC.SetTabIndex(0);
  });
  window.ShowModal();
  EXPECT_EQ(told, 1);
}

TEST_F(TurnoverList, ItsControlsAreEnabledOnceShownHoweverOftenTheyWereDisabledBefore) {
  TGoodTransaction_FRM window = Window("501");
  window.ListDataSet().DisableControls();
  window.ListDataSet().DisableControls();
  bool disabled = true;
  actions.push_back([&] { disabled = window.ListDataSet().ControlsDisabled(); });
  window.ShowModal();
  EXPECT_FALSE(disabled);
}

TEST_F(TurnoverList, ItsControlsAreEnabledAgainAfterARunThatFailed) {
  TGoodTransaction_FRM window = Window("501");
  bool disabled = true;
  actions.push_back([&] {
    host.Connection().FailNext("exec GoodInf_sp%", "deadlock");
    EXPECT_THROW(window.Kala_TBC.SetTabIndex(0), DatabaseError);
    disabled = window.ListDataSet().ControlsDisabled();
  });
  window.ShowModal();
  EXPECT_FALSE(disabled);
  EXPECT_FALSE(Waited().empty());
}

TEST_F(TurnoverList, WhileTheStockCardsButtonIsDisabledNothingOpensIt) {
  TGoodTransaction_FRM window = Window("501");
  actions.push_back([&] {
    host.Log.TakeAll();
    window.Gar_BTN.SetEnabled(false);
    window.KeyDown(TKey{Key::F2});
    window.GoodTransactin_List_GRD.DoubleClick();
    EXPECT_EQ(host.Log.TakeAll(), Texts{});
  });
  window.ShowModal();
}

TEST_F(TurnoverList, ATagEditorWithoutAGridKeepsTheFocus) {
  TGoodTransaction_FRM window = Window("501");
  actions.push_back([&] {
    window.Tags_btnClick();
    window.TTags1.Grid = nullptr;
    window.TTags1.Tags_EDT.SetFocus();
    window.KeyDown(TKey{Key::Down});
    EXPECT_TRUE(window.TTags1.Tags_EDT.Focused());
  });
  Give("select code,tags%", "code tags", {});
  window.ShowModal();
}

}  // namespace
}  // namespace goods
