// What the good-detail windows do that a case cannot see: messages to themselves, carets, what a dialog tells
// its report, and that nothing is built before they are shown.
#include <deque>
#include <functional>

#include "module/reports/detail/all_good_detail_transaction.h"
#include "module/reports/detail/good_detail_transaction.h"
#include "module/reports/detail/one_good_detail_transaction.h"
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

using Texts = std::vector<std::string>;

// Keeps the messages that it posted to itself.
class WatchedWindow : public TAllGoodDetailTransaction_FRM {
 public:
  explicit WatchedWindow(THost& host) : TAllGoodDetailTransaction_FRM(host, 1, "") {}
  void WindowMessage(int code) override {
    codes.push_back(code);
    TAllGoodDetailTransaction_FRM::WindowMessage(code);
  }
  std::vector<int> codes;
};

class DetailWindows : public DataModuleTest {
 protected:
  void SetUp() override {
    Give("Select Code, Title, Enable, DisplayType%", "Code Title Enable DisplayType", {});
    Give("SELECT * FROM DetailTypes ORDER BY ID", "ID Title",
         {{"7", "رنگ"}, {"8", "سریال"}, {"9", "ضخامت"}, {"12", "شماره بهر"}});
    for (const auto& [id, type] : {std::pair{"7", "1"}, {"8", "2"}, {"9", "3"}, {"12", "6"}}) {
      Give(std::string("SELECT * FROM DetailTypes dt WHERE dt.ID = ") + id, "ID DetailType DateType",
           {{id, type, "0"}});
    }
    Give("SELECT * FROM DetailTypesItems%", "Value", {{"قرمز"}});
    Give("Select * From GoodGrps", "Code Name", {{"0", "کلیه گروه ها"}});
    Give(" EXEC AllGoodDetailTransaction%", "OperationDate", {{"1402/01/05"}});
    Give(" EXEC GoodDetailTransaction%", "Code", {{"12"}});
    Give(" EXEC OneGoodDetailTransaction%", "Date", {{"1402/01/05"}});
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
  }

  std::deque<std::function<void()>> actions;  // what the user does while the window is shown
};

TEST_F(DetailWindows, EachTypedControlPostsItsOwnMessage) {
  WatchedWindow window(host);
  TComboBox& details = window.DetailRow1.GoodDetailSelectSearch_CMB;
  Do([&] { window.Search_PNL.GoodDetailSearch_EDT.TypeText("a"); });
  Wait(500);
  Do([&] {
    details.SetItemIndex(2);
    window.DetailRow1.GoodDetail_CMB.SetText("b");
  });
  Wait(500);
  Do([&] {
    details.SetItemIndex(3);
    window.DetailRow1.FromGoodDetail_EDT.TypeText("1");
  });
  Wait(500);
  Do([&] { window.DetailRow1.ToGoodDetail_EDT.TypeText("2"); });
  Wait(500);
  window.ShowModal();
  EXPECT_EQ(window.codes, (std::vector<int>{9035, 9036, 9037, 9038}));
}

TEST_F(DetailWindows, WhatTheWindowItselfChangesPostsNothing) {
  WatchedWindow window(host);
  Do([&] { window.Search_PNL.GoodDetailSearch_EDT.TypeText("a"); });
  Wait(500);
  Do([&] {
    window.codes.clear();
    window.Search_PNL.GoodDetailSearch_CMB.SetItemIndex(3);
    for (const int item : {2, 3, 4, 1, 0}) {
      window.DetailRow1.GoodDetailSelectSearch_CMB.SetItemIndex(item);
    }
  });
  Wait(1000);
  window.ShowModal();
  EXPECT_EQ(window.codes, std::vector<int>{});
}

TEST_F(DetailWindows, ARunPutsTheCaretOfTheTypedEditBack) {
  TAllGoodDetailTransaction_FRM window(host, 1, "");
  std::vector<int> carets;
  const auto typeInside = [&](TEdit& edit) {
    Do([&edit] {
      edit.TypeText("1234");
      edit.SetCaret(2);
    });
    Wait(1000);
    Do([&] { carets.push_back(edit.Caret()); });
  };
  typeInside(window.Search_PNL.GoodDetailSearch_EDT);
  Do([&] { window.DetailRow1.GoodDetailSelectSearch_CMB.SetItemIndex(3); });
  typeInside(window.DetailRow1.FromGoodDetail_EDT);
  typeInside(window.DetailRow1.ToGoodDetail_EDT);
  window.ShowModal();
  EXPECT_EQ(carets, (std::vector<int>{2, 2, 2}));
}

TEST_F(DetailWindows, KeysThatArriveDuringTheWaitRestartItAndMakeOneRun) {
  TAllGoodDetailTransaction_FRM window(host, 1, "");
  TEdit& edit = window.Search_PNL.GoodDetailSearch_EDT;
  Do([&] {
    Sent();
    for (const char* text : {"a", "ab", "abc"}) edit.TypeText(text);
    host.Windows().QueueInput(100, [&] { edit.TypeText("abcd"); });
    host.Windows().QueueInput(450, [&] { edit.TypeText("abcde"); });
  });
  Wait(390);
  Texts before;
  Do([&] { before = Sent(); });
  Wait(20);
  Texts after;
  Do([&] { after = Sent(); });
  window.ShowModal();
  EXPECT_EQ(before, Texts{});
  EXPECT_EQ(after, Texts{" EXEC AllGoodDetailTransaction @TitleID = 2,@Title = 'abcde'"});
}

TEST_F(DetailWindows, BuildNothingAndRunNothingBeforeTheyAreShown) {
  TAllGoodDetailTransaction_FRM all(host, 1, "");
  TGoodDetailTransaction_FRM stock(host, 1, Variant(std::string("1")), "");
  TOneGoodDetailTransaction_FRM one(host, 1, Variant(std::string("12;x;1;;0;y;0;;;;;;31;0;;;0;")), "");
  Sent();
  std::string parameters = "left over";
  all.OperationsType_CMB.SetItemIndex(2);
  all.Search_PNL.GoodDetailSearch_CMB.SetItemIndex(4);
  all.Search_PNL.GoodDetailSearch_EDT.SetText("a");
  all.ADVSearch_Fram1.ADVSearch_CHK.SetChecked(true);
  all.SetProcParams(parameters);
  EXPECT_EQ(parameters, "");
  EXPECT_EQ(all.FilterCaption(), "");
  parameters = "left over";
  stock.StoresSeparations_RDB.SetChecked(true);
  stock.TTab_Search_Frame1.Search_TBC.SetTabIndex(3);
  stock.SetProcParams(parameters);
  EXPECT_EQ(parameters, "");
  parameters = "left over";
  one.ADVSearch_Fram1.ADVSearch_CHK.SetChecked(true);
  one.SetProcParams(parameters);
  EXPECT_EQ(parameters, "");
  EXPECT_EQ(Sent(), Texts{});
}

TEST_F(DetailWindows, TheListAndTheCaptionAreBuiltAnewEachTime) {
  TAllGoodDetailTransaction_FRM window(host, 1, "");
  std::string first;
  std::string second;
  Texts captions;
  Do([&] {
    window.OperationsType_CMB.SetItemIndex(1);
    window.SetProcParams(first);
    captions.push_back(window.FilterCaption());
    window.OperationsType_CMB.SetItemIndex(0);
    second = "left over";
    window.SetProcParams(second);
    captions.push_back(window.FilterCaption());
  });
  window.ShowModal();
  EXPECT_EQ(first, "@OperationType = 1");
  EXPECT_EQ(second, "");
  EXPECT_EQ(captions, (Texts{"(نوع عملیات :  فروش)", ""}));
}

TEST_F(DetailWindows, TheListsGiveTheCommonKeysAndMenuToTheWindowAndOneGoodsDetailsToTheGrid) {
  TAllGoodDetailTransaction_FRM all(host, 1, "");
  TOneGoodDetailTransaction_FRM one(host, 1, Variant(std::string("12;x;1;;0;y;0;;;;;;31;0;;;0;")), "");
  EXPECT_FALSE(all.HasShortCut(all));
  all.ShowModal();
  one.ShowModal();
  EXPECT_TRUE(all.HasShortCut(all));
  EXPECT_TRUE(all.HasPopMenu(all));
  EXPECT_TRUE(one.HasShortCut(one.GoodDetailTransaction_GRD));
  EXPECT_TRUE(one.HasPopMenu(one.GoodDetailTransaction_GRD));
}

TEST_F(DetailWindows, ThePanelOfTheRowTellsItsFieldsInOrder) {
  TAllGoodDetailTransaction_FRM window(host, 1, "");
  Texts fields;
  for (const TDetailField& field : window.TListDetail_FRAME1.DetailFields_QRT1.Fields()) {
    fields.push_back(field.FieldName + " " + field.Caption + " " + field.Format);
  }
  EXPECT_EQ(fields, (Texts{"OperationDate تاریخ ", "AnbarName انبار ", "Name نام کالا ", "Comment شرح ",
                           "Varede مقدار وارده #0.####;#0.####-;0", "Sadere مقدار صادره #0.####;#0.####-;0",
                           "fullname نام شخص ", "Amount مبلغ واحد #,0.##;#,0.##-;0",
                           "TotalAmount مبلغ کل #,0.##;#,0.##-;0", "D1Value جزئیات 1 ", "D2Value جزئیات 2 ",
                           "D3Value جزئیات 3 ", "D4Value جزئیات 4 ", "D5Value جزئیات 5 ",
                           "DetailValues جـــــزئیات "}));
}

TEST_F(DetailWindows, TheDialogTellsWhetherTagsOrACategoryAreChosen) {
  TAllGoodDetailTransactionSearch_FRM dialog(host);
  EXPECT_FALSE(dialog.HaveAdvFilter());
  dialog.TTags_search_FRM1.Tags_EDT.AddChoice({"1", "فوری", kWhite});
  dialog.TTags_search_FRM1.Tags_EDT.SetCodes({"1"});
  EXPECT_TRUE(dialog.HaveAdvFilter());
  dialog.Del_BTNClick();
  EXPECT_FALSE(dialog.HaveAdvFilter());
  dialog.TCategorySearchFrame1.Category_EDT.AddChoice({"7", "پیچ ها", kWhite});
  dialog.TCategorySearchFrame1.Category_EDT.SetCodes({"7"});
  EXPECT_TRUE(dialog.HaveAdvFilter());
  dialog.Store_SESF.SetCode(2);
  dialog.Del_BTNClick();
  dialog.Store_SESF.SetCode(2);
  EXPECT_FALSE(dialog.HaveAdvFilter());
}

TEST_F(DetailWindows, TheDialogAsksForTheRightToListsUnderItsOwnPart) {
  TAllGoodDetailTransactionSearch_FRM dialog(host);
  host.Log.Take(CallKind::Right);
  dialog.HaveSelectedListPermission();
  for (const int part : {501, 502, 513}) {
    dialog.SoftwarePart = part;
    dialog.HaveSelectedListPermission();
  }
  EXPECT_EQ(host.Log.Take(CallKind::Right), (Texts{"HavePermission(1, 501, 34, true, true, \"\")",
                                                   "HavePermission(1, 501, 34, true, true, \"\")",
                                                   "HavePermission(1, 502, 34, true, true, \"\")",
                                                   "HavePermission(1, 501, 34, true, true, \"\")"}));
}

TEST_F(DetailWindows, AStoreThatCannotBeLookedUpIsToldOfAndTheNextCriterionRuns) {
  TOneGoodDetailTransaction_FRM window(host, 1, Variant(std::string("12;x;1;;0;y;2;;;;;;31;0;;;1;")), "");
  host.Lookups().FailNext("no stores");
  Do([&] {
    Sent();
    window.ADVSearch_Fram1.ADVSearch_CHK.Click();
  });
  window.ShowModal();
  EXPECT_EQ(host.Log.Take(CallKind::Message), Texts{"ShowError(\"no stores\")"});
  EXPECT_EQ(Sent().size(), 1u);
}

}  // namespace
}  // namespace goods
