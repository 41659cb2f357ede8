#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "host/base/base_dock.h"
#include "host/base/base_search.h"
#include "host/components/edit.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

class Report : public TBaseDock_FRM {
 public:
  explicit Report(THost& host, Variant parameter = {}) : TBaseDock_FRM(host, "Report_FRM", 1, parameter, "") {
    SetCaption("گزارش");
    Place(First_EDT);
    Place(Second_EDT);
    Place(Rows_GRD);
    Place(Print_BTN);
    Place(Exit_BTN);
    SetCommonControls(Rows_GRD, Print_BTN, Exit_BTN);
    Initialise();
  }
  void FormShow() override {
    events += "show ";
    if (failInShow) throw std::runtime_error("no");
  }
  void FormClose() override { events += "close "; }
  void OnCustomParameter(const CustomParameter& given) override {
    events += "parameter(" + given.Text(0) + ") ";
  }
  void PrintDBGridEhBeforePrint(std::vector<std::string>& lines) override { lines.push_back("بالای جدول"); }

  TEdit First_EDT{this, "First_EDT"};
  TEdit Second_EDT{this, "Second_EDT"};
  TSmartDBGrid_QRT Rows_GRD{this, "Rows_GRD"};
  TButton Print_BTN{this, "PrintList_BTN"};
  TButton Exit_BTN{this, "Exit_BTN"};
  std::string events;
  bool failInShow = false;
};

TEST(BaseDock, HandsOverTheParameterOfItsConstructorAndEveryOneAfterIt) {
  ScriptedHost host;
  Report report(host, Variant(std::string("5;6;")));
  report.SetCustomParameter(Variant(std::string("7")), "");
  EXPECT_EQ(report.events, "parameter(5) parameter(7) ");
}

TEST(BaseDock, ShowsItsEventsInOrderAndIsShowingInBetween) {
  ScriptedHost host;
  Report report(host);
  bool showing = false;
  host.Windows().OnIdle = [&] {
    TForm& form = *host.Windows().ActiveWindow();
    showing = form.Showing();
    form.Close();
    return true;
  };
  report.events.clear();
  EXPECT_FALSE(report.Showing());
  EXPECT_EQ(report.ShowModal(), kModalCancel);
  EXPECT_TRUE(showing);
  EXPECT_FALSE(report.Showing());
  EXPECT_EQ(report.events, "show close ");
}

TEST(BaseDock, AnErrorWhileShowingBecomesAMessageAndTheWindowIsShown) {
  ScriptedHost host;
  Report report(host);
  report.failInShow = true;
  bool ran = false;
  host.Windows().OnIdle = [&] {
    TForm& form = *host.Windows().ActiveWindow();
    ran = true;
    form.Close();
    return true;
  };
  report.ShowModal();
  EXPECT_TRUE(ran);
}

TEST(BaseDock, CannotBeShownTwiceAtATime) {
  ScriptedHost host;
  Report report(host);
  bool refused = false;
  host.Windows().OnIdle = [&] {
    TForm& form = *host.Windows().ActiveWindow();
    try {
      form.ShowModal();
    } catch (const std::logic_error&) {
      refused = true;
    }
    form.Close();
    return true;
  };
  report.ShowModal();
  EXPECT_TRUE(refused);
}

TEST(BaseDock, PrintsTheGridWithItsCaptionLinesAndOptionsFive) {
  ScriptedHost host;
  Report report(host);
  report.PrintOption.SoftwarePart = kPartStockCard;
  report.KeyDown(ParseKey("F9"));
  ASSERT_EQ(host.Printing().Jobs.size(), 1U);
  const PrintedReport& job = host.Printing().Jobs.front();
  EXPECT_EQ(job.title, "گزارش");
  EXPECT_EQ(job.options, 5);
  EXPECT_EQ(job.lines, std::vector<std::string>{"بالای جدول"});
}

TEST(BaseDock, WithoutThePrintRightNothingIsPrinted) {
  ScriptedHost host;
  Report report(host);
  report.PrintOption.SoftwarePart = kPartStockCard;
  host.Rights().Set(kPartStockCard, kPermissionPrintList, false);
  report.Print_BTN.Click();
  EXPECT_TRUE(host.Printing().Jobs.empty());
}

TEST(BaseDock, AsksForNoRightWhereThePrintOptionHasNoPartAndPrintsNothingWhereItIsOff) {
  ScriptedHost host;
  Report report(host);
  host.Rights().SetAll(false);
  report.Print_BTN.Click();
  EXPECT_EQ(host.Printing().Jobs.size(), 1U);
  report.PrintOption.Enabled = false;
  report.Print_BTN.Click();
  EXPECT_EQ(host.Printing().Jobs.size(), 1U);
}

TEST(BaseDock, EscClosesThroughTheExitButton) {
  ScriptedHost host;
  Report report(host);
  report.Exit_BTN.SetEnabled(false);
  report.KeyDown(ParseKey("Esc"));
  EXPECT_EQ(report.ModalResult(), kModalNone);
  report.Exit_BTN.SetEnabled(true);
  report.KeyDown(ParseKey("Esc"));
  EXPECT_EQ(report.ModalResult(), kModalCancel);
}

TEST(BaseDock, KeepsAGridsLayoutInAFileOfTheReportAndTwoNumbers) {
  ScriptedHost host;
  host.Settings().Folder = ::testing::TempDir();
  Report report(host);
  report.Rows_GRD.AddColumn("Name", "نام").SetWidth(321);
  report.SaveGridSettings(report.Rows_GRD, "OneGoodDetailTransaction", 12, 3);
  std::ifstream file(::testing::TempDir() + "/OneGoodDetailTransaction_12_3.ini");
  EXPECT_TRUE(file.good());

  Report other(host);
  other.Rows_GRD.AddColumn("Name", "نام").SetWidth(50);
  other.LoadGridSettings(other.Rows_GRD, "OneGoodDetailTransaction", 12, 4);
  EXPECT_EQ(other.Rows_GRD.FindColumn("Name")->Width(), 50) << "a file that is not there changes nothing";
  other.LoadGridSettings(other.Rows_GRD, "OneGoodDetailTransaction", 12, 3);
  EXPECT_EQ(other.Rows_GRD.FindColumn("Name")->Width(), 321);
}

TEST(BaseDock, KeepsAGridsSortWithItsLayout) {
  ScriptedHost host;
  host.Settings().Folder = ::testing::TempDir();
  Report report(host);
  report.Rows_GRD.AddColumn("Name", "نام");
  report.Rows_GRD.AddColumn("Code", "کد");
  report.Rows_GRD.SetSortKeys({{"Code", true}, {"Name", false}});
  report.SaveGridSettings(report.Rows_GRD, "Sorted", 1, 0);

  Report same(host);
  same.Rows_GRD.AddColumn("Name", "نام");
  same.Rows_GRD.AddColumn("Code", "کد");
  same.LoadGridSettings(same.Rows_GRD, "Sorted", 1, 0);
  EXPECT_EQ(same.Rows_GRD.GetSort(), "Code DESC,Name ASC");

  Report without(host);
  without.Rows_GRD.AddColumn("Name", "نام");
  without.LoadGridSettings(without.Rows_GRD, "Sorted", 1, 0);
  EXPECT_EQ(without.Rows_GRD.GetSort(), "Name ASC") << "a column that is not there sorts nothing";

  host.Rights().SetSeesPrices(false);
  Report withheld(host);
  withheld.Rows_GRD.AddColumn("Name", "نام");
  withheld.Rows_GRD.AddColumn("Code", "فی").SetMoney();
  withheld.Place(withheld.Rows_GRD);
  withheld.LoadGridSettings(withheld.Rows_GRD, "Sorted", 1, 0);
  EXPECT_EQ(withheld.Rows_GRD.GetSort(), "Name ASC") << "nor one that this user does not see";

  report.Rows_GRD.SetSortKeys({});
  report.SaveGridSettings(report.Rows_GRD, "Sorted", 1, 0);
  Report unsorted(host);
  unsorted.Rows_GRD.AddColumn("Name", "نام");
  unsorted.LoadGridSettings(unsorted.Rows_GRD, "Sorted", 1, 0);
  EXPECT_EQ(unsorted.Rows_GRD.GetSort(), "");
}

TEST(BaseDock, KeepsTheOldLayoutWhereTheNewOneCannotBeWritten) {
  ScriptedHost host;
  host.Settings().Folder = ::testing::TempDir() + "layouts";
  std::filesystem::create_directories(host.Settings().Folder);
  Report report(host);
  report.Rows_GRD.AddColumn("Name", "نام").SetWidth(321);
  report.SaveGridSettings(report.Rows_GRD, "OneGoodDetailTransaction", 12, 3);
  // A folder in the place of the file that is written aside.
  const std::string path = host.Settings().Folder + "/OneGoodDetailTransaction_12_3.ini";
  std::filesystem::create_directories(path + ".new/in the way");
  report.Rows_GRD.FindColumn("Name")->SetWidth(50);
  report.SaveGridSettings(report.Rows_GRD, "OneGoodDetailTransaction", 12, 3);
  report.LoadGridSettings(report.Rows_GRD, "OneGoodDetailTransaction", 12, 3);
  EXPECT_EQ(report.Rows_GRD.FindColumn("Name")->Width(), 321);
  std::filesystem::remove_all(host.Settings().Folder);
}

TEST(Form, TheTabOrderGoesRoundOverWhatCanHaveTheFocus) {
  ScriptedHost host;
  Report report(host);
  report.First_EDT.SetFocus();
  report.Second_EDT.SetEnabled(false);
  report.FocusNext();
  EXPECT_TRUE(report.Rows_GRD.Focused());
  report.FocusNext(true);
  EXPECT_TRUE(report.First_EDT.Focused());
  report.FocusNext(true);
  EXPECT_TRUE(report.Exit_BTN.Focused());
}

TEST(Form, LeavingAnEditAcceptsItsText) {
  ScriptedHost host;
  Report report(host);
  int accepted = 0;
  report.First_EDT.OnAccept = [&] { ++accepted; };
  report.First_EDT.SetFocus();
  report.First_EDT.TypeText("x");
  report.Second_EDT.SetFocus();
  EXPECT_EQ(accepted, 1);
}

class Criteria : public TBaseSearch_FRM {
 public:
  explicit Criteria(THost& host) : TBaseSearch_FRM(host, "Criteria_FRM") {
    Place(First_EDT);
    Place(Second_EDT);
  }
  TEdit First_EDT{this, "First_EDT"};
  TEdit Second_EDT{this, "Second_EDT"};
};

TEST(BaseSearch, EnterMovesOnF3AcceptsAndEscCloses) {
  ScriptedHost host;
  Criteria dialog(host);
  dialog.First_EDT.SetFocus();
  EXPECT_TRUE(dialog.KeyDown(ParseKey("Enter")));
  EXPECT_TRUE(dialog.Second_EDT.Focused());
  EXPECT_TRUE(dialog.KeyDown(ParseKey("F3")));
  EXPECT_EQ(dialog.ModalResult(), kModalOk);
  EXPECT_TRUE(dialog.KeyDown(ParseKey("Esc")));
  EXPECT_EQ(dialog.ModalResult(), kModalOk) << "a dialog that was accepted cannot be given up any more";
  dialog.SetModalResult(kModalNone);
  EXPECT_TRUE(dialog.KeyDown(ParseKey("Esc")));
  EXPECT_EQ(dialog.ModalResult(), kModalCancel);
}

TEST(CustomParameter, IsReadByPosition) {
  const CustomParameter parameter(Variant(std::string("1;;abc;99999999999999999999;-4;1401/01/01;")));
  EXPECT_EQ(parameter.Count(), 6U);
  EXPECT_EQ(parameter.Integer(0), 1);
  EXPECT_EQ(parameter.Integer(1), 0);
  EXPECT_EQ(parameter.Integer(2), 0) << "not a number";
  EXPECT_EQ(parameter.Integer(3), 0) << "does not fit";
  EXPECT_EQ(parameter.Integer(4), -4);
  EXPECT_EQ(parameter.Text(5), "1401/01/01");
  EXPECT_EQ(parameter.Text(17), "");
  EXPECT_EQ(parameter.Integer(17), 0);
}

TEST(CustomParameter, NothingHasNoPositions) {
  EXPECT_EQ(CustomParameter(Variant()).Count(), 0U);
  EXPECT_EQ(CustomParameter(Variant(std::string())).Count(), 0U);
  EXPECT_EQ(CustomParameter(Variant(std::int64_t{7})).Integer(0), 7);
}

}  // namespace
}  // namespace goods
