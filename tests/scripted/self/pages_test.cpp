// Steps and expectations on tabs, drop-down panels, tokens, and what the host keeps and answers for them.
#include <string>

#include <gtest/gtest.h>

#include "tests/scripted/self/run_text.h"

namespace goods {
namespace {

constexpr const char* kGiven =
    "  given tags\n    | Code | Name | Colour |\n    | 3 | قرمز | FF0000 |\n    | 7 | سبز | |\n"
    "  given categories\n    | Code | Name | Parent |\n    | 1 | ابزار | |\n    | 12 | پیچ | 1 |\n";

// One case in which the window with pages is open, form mode 1; the step stands in line 16.
Outcome RunPages(const std::string& steps) {
  return RunText("1. A case.\n" + std::string(kGiven) + "  open TPages_FRM\n  forget lookups\n" +
                 "  expect window Pages_FRM\n\n\n\n" + steps);
}

TEST(Pages, ATabIsChosenByItsTextOrItsNumber) {
  ExpectPass(
      RunPages("  expect tabs of Kind_TAB\n    | Caption | Index | Chosen |\n"
               "    | همه | 0 | yes |\n    | کالا | 1 | no |\n"
               "  choose tab \"کالا\" in Kind_TAB\n  expect Kind_TAB tab 1\n  expect Kind_TAB tab \"کالا\"\n"
               "  expect Kind_TAB focused\n"
               "  choose tab 0 in Kind_TAB\n  expect Kind_TAB tab 0\n"));
  ExpectFailure(RunPages("  choose tab \"انبار\" in Kind_TAB\n"), "Kind_TAB has no tab \"انبار\"; it has");
  ExpectFailure(RunPages("  choose tab 2 in Kind_TAB\n"), "Kind_TAB has no tab 2");
  ExpectFailure(RunPages("  choose tab 0 in All_CHK\n"), "All_CHK has no tabs");
  ExpectFailure(RunPages("  expect Kind_TAB tab 1\n"), "sample.case:16: Kind_TAB tab is another");
  ExpectFailure(RunPages("  expect Kind_TAB tab \"کالا\"\n"), "sample.case:16: Kind_TAB tab is another");
  ExpectFailure(RunPages("  expect tabs of Kind_TAB\n    | Caption |\n    | همه |\n"), "has other tabs");
  ExpectFailure(RunPages("  expect tabs of Kind_TAB\n    | Width |\n"), "Width is none of Caption Index");
  ExpectFailure(RunPages("  expect tabs of All_CHK\n    | Caption |\n"), "All_CHK has no tabs");
}

TEST(Pages, APageWithoutATabIsNeitherSeenNorChosen) {
  ExpectPass(
      RunPages("  expect tabs of Page_PGC\n    | Caption | Index | Chosen | Enabled |\n"
               "    | شرایط | 0 | yes | yes |\n    | سایر | 2 | no | yes |\n    | غیرفعال | 3 | no | no |\n"
               "  choose tab \"سایر\" in Page_PGC\n  expect Page_PGC tab 2\n"));
  ExpectFailure(RunPages("  choose tab 1 in Page_PGC\n"), "Page_PGC has no tab 1");
  ExpectFailure(RunPages("  choose tab 3 in Page_PGC\n"), "the tab 3 is disabled");
}

TEST(Pages, OnlyTheShownPageIsReached) {
  ExpectPass(
      RunPages("  expect Other_BTN not reachable\n  expect All_CHK reachable\n"
               "  choose tab \"سایر\" in Page_PGC\n  click Other_BTN\n  expect All_CHK not reachable\n"));
  ExpectFailure(RunPages("  click Other_BTN\n"), "Other_BTN: it is on a page that is not shown");
  ExpectFailure(RunPages("  expect Other_BTN reachable\n"), "Other_BTN is not reachable");
}

TEST(Pages, CtrlTabTurnsThePageAndDoesNotMoveTheFocusBesides) {
  ExpectPass(RunPages("  focus Page_PGC\n  press Ctrl+Tab\n  expect Page_PGC tab 2\n"));
  ExpectPass(RunPages("  focus Kind_TAB\n  press Ctrl+Tab\n  expect Kind_TAB focused\n"));
}

TEST(Pages, ADropDownPanelIsReachedWhileItHangsOpen) {
  ExpectPass(
      RunPages("  expect Period_DDC not dropped\n  drop down Period_DDC\n  expect Period_DDC dropped\n"
               "  expect Month_RBT focused\n  click Year_RBT\n  expect Year_RBT checked\n"
               "  expect Month_RBT unchecked\n  expect Period_DDC text \"سال\"\n"
               "  close up Period_DDC\n  expect Period_DDC focused\n  expect Year_RBT not reachable\n"));
  ExpectFailure(RunPages("  click Year_RBT\n"), "Year_RBT: it is in a closed drop-down");
  ExpectFailure(RunPages("  close up Period_DDC\n"), "Period_DDC is closed already");
  ExpectFailure(RunPages("  drop down Period_DDC\n  drop down Period_DDC\n"), "Period_DDC is open already");
  ExpectFailure(RunPages("  drop down Empty_DDC\n"), "Empty_DDC has no panel");
  ExpectFailure(RunPages("  drop down All_CHK\n"), "All_CHK does not drop down");
  ExpectFailure(RunPages("  expect Period_DDC dropped\n"), "Period_DDC is not dropped");
  ExpectFailure(RunPages("  expect Period_DDC text \"سال\"\n"), "Period_DDC text is another");
  ExpectFailure(RunPages("  drop down Period_DDC\n  expect Year_RBT checked\n"), "Year_RBT is not checked");
}

TEST(Pages, TokensAreAddedAndRemovedByTextOrCode) {
  ExpectPass(
      RunPages("  add token \"سبز\" to Tags_search.Tags_EDT\n  add token \"3\" to Tags_search.Tags_EDT\n"
               "  expect Tags_search.Tags_EDT tokens \"7,3\"\n"
               "  expect tokens of Tags_search.Tags_EDT\n    | Code | Text | Colour |\n"
               "    | 7 | سبز | FFFFFF |\n    | 3 | قرمز | FF0000 |\n"
               "  remove token \"7\" from Tags_search.Tags_EDT\n"
               "  remove token \"قرمز\" from Tags_search.Tags_EDT\n"
               "  expect tokens of Tags_search.Tags_EDT\n    | Code |\n"));
  const std::string editor = "Tags_search.Tags_EDT";
  ExpectFailure(RunPages("  add token \"آبی\" to " + editor + "\n"), "offers no token \"آبی\"");
  ExpectFailure(RunPages("  add token \"3\" to " + editor + "\n  add token \"3\" to " + editor + "\n"),
                "offers no token \"3\"");
  ExpectFailure(RunPages("  remove token \"3\" from " + editor + "\n"), "holds no token \"3\"");
  ExpectFailure(RunPages("  add token \"3\" to Tags_FRAME.Tags_EDT\n"), "only shows its tokens");
  ExpectFailure(RunPages("  add token \"3\" to All_CHK\n"), "All_CHK is no token editor");
  ExpectFailure(RunPages("  expect " + editor + " tokens \"3\"\n"), "tokens is another");
  ExpectFailure(RunPages("  expect tokens of " + editor + "\n    | Code |\n    | 3 |\n"), "has other tokens");
  ExpectFailure(RunPages("  expect tokens of " + editor + "\n    | Name |\n"), "Name is none of Code Text");
}

TEST(Pages, TokensAreTyped) {
  ExpectPass(
      RunPages("  type \"قر\" into Tags_search.Tags_EDT\n  expect Tags_search.Tags_EDT text \"قر\"\n"
               "  expect matches of Tags_search.Tags_EDT\n    | Text |\n    | قرمز |\n"
               "  press Enter\n  expect Tags_search.Tags_EDT tokens \"3\"\n"
               "  expect Tags_search.Tags_EDT text \"\"\n  press Backspace\n"
               "  expect Tags_search.Tags_EDT tokens \"\"\n"
               "  set Category_FRAME.Category_EDT text \"پیچ\"\n"
               "  expect Category_FRAME.Category_EDT tokens \"12\"\n"));
  ExpectPass(
      RunPages("  type \"آبی\" into Tags_search.Tags_EDT\n  press Plus\n"
               "  expect Tags_search.Tags_EDT problem \"موردی با این نام وجود ندارد.\"\n"
               "  expect Tags_search.Tags_EDT not sound\n  type \"س\" into Tags_search.Tags_EDT\n"
               "  expect Tags_search.Tags_EDT sound\n"));
  ExpectFailure(RunPages("  set Tags_search.Tags_EDT text \"آبی\"\n"), "does not take \"آبی\"");
  ExpectFailure(RunPages("  type \"آبی\" into Tags_FRAME.Tags_EDT\n"), "nothing can be typed");
  ExpectFailure(RunPages("  expect matches of Tags_search.Tags_EDT\n    | Text |\n"), "has other matches");
}

TEST(Pages, TheCategoryTreeAnswersWhatWasSaid) {
  ExpectPass(
      RunPages("  next category tree chooses \"1,12\"\n  click Category_FRAME.select_BTN\n"
               "  expect lookups\n    SelectCategories(Pages_FRM, \"\")\n"
               "  expect Category_FRAME.Category_EDT tokens \"1,12\"\n"
               "  next category tree gives up\n  press F4 in Category_FRAME.Category_EDT\n"
               "  expect lookups\n    SelectCategories(Pages_FRM, \"1,12\")\n"
               "  next category tree chooses \"\"\n  click Category_FRAME.select_BTN\n"
               "  expect Category_FRAME.Category_EDT tokens \"\"\n"));
  ExpectFailure(RunPages("  click Category_FRAME.select_BTN\n"), "the category tree opens, and nothing says");
  ExpectFailure(RunPages("  next category tree gives up\n"), "that nothing came for");
}

TEST(Pages, TagsAndCategoriesAreGivenInTables) {
  ExpectPass(RunText("1. A case.\n" + std::string(kGiven) +
                     "  open TPages_FRM\n  expect lookups\n    Tags()\n    Categories()\n"
                     "    DontSavedVouchers(\"3\")\n"));
  ExpectPass(
      RunText("1. A case.\n  next lookup fails \"no\"\n  open TPages_FRM\n"
              "  expect lookups\n    Tags()\n  expect messages\n    ShowError(\"no\")\n"));
  ExpectFailure(RunPages("  given tags\n    | Code | Colour |\n    | 3 | red |\n"),
                "a colour is written as RRGGBB");
  ExpectFailure(RunPages("  given tags\n    | Code | Parent |\n    | 3 | 1 |\n"), "Parent is none of");
  ExpectFailure(RunPages("  given categories\n    | Name |\n    | پیچ |\n"), "a row has no Code");
}

TEST(Pages, VouchersWaitUntilTheyAreSaved) {
  ExpectPass(RunPages(
      "  expect Vouchers_FRAME hidden\n  close window\n"
      "  vouchers \"3\" unsaved\n  open TPages_FRM\n  expect Vouchers_FRAME visible\n"
      "  vouchers \"3\" saved\n  click Vouchers_FRAME.Refresh_BTN\n  expect Vouchers_FRAME hidden\n"));
  ExpectPass(
      RunText("1. A case.\n  vouchers \"4\" unsaved\n  open TPages_FRM\n  expect Vouchers_FRAME hidden\n"));
}

TEST(Pages, ASectionIsKeptFromOneShowingToTheNext) {
  ExpectPass(
      RunText("1. A case.\n  given section \"Pages\"\n    \"All_CHK.Checked=1\"\n"
              "  open TPages_FRM\n  expect All_CHK checked\n  expect no setting\n"
              "  uncheck All_CHK\n  close window\n"
              "  expect settings\n    WriteSection(\"Pages\", \"All_CHK.Checked=0\\n\")\n"
              "  expect section \"Pages\"\n    \"All_CHK.Checked=0\"\n"
              "  open TPages_FRM\n  expect All_CHK unchecked\n"));
  ExpectFailure(RunPages("  expect section \"Pages\"\n    \"All_CHK.Checked=1\"\n"), "(no such section)");
  ExpectFailure(RunPages("  close window\n  expect section \"Pages\"\n    \"All_CHK.Checked=1\"\n"),
                "+ \"All_CHK.Checked=0\"");
}

TEST(Pages, AWindowIsOpenedWithAnotherFormModeAndParameter) {
  ExpectPass(
      RunText("1. A case.\n  open TPages_FRM mode 2 with \"502;7\"\n  expect window caption \"2 502\"\n"
              "  close window\n  open TPages_FRM mode 3 with 9\n  expect window caption \"3 9\"\n"
              "  close window\n  open TPages_FRM mode 4\n  expect window caption \"4 \"\n"));
  ExpectFailure(RunText("1. A case.\n  open TPages_FRM mode 2\n  expect window caption \"1 \"\n"),
                "the caption of the window is another");
}

TEST(Pages, AWindowIsClosedWithAResult) {
  ExpectPass(RunPages("  close window with result 1\n  expect no window\n"));
  ExpectFailure(RunPages("  close window with result 0\n"), "the result 0 closes no window");
  ExpectFailure(RunPages("  close window with result 1\n  expect window result 1\n"),
                "no closed window is kept");
}

TEST(Pages, ColumnsOfTheChooserAreListedHiddenOnesAmongThem) {
  ExpectPass(RunPages(
      "  expect customizable columns\n    | Caption | Visible |\n    | نام | yes |\n    | مبلغ | no |\n"
      "  expect columns\n    | Caption |\n    | کد |\n    | نام |\n"));
  ExpectFailure(RunPages("  expect customizable columns in Rows_GRD\n    | Caption |\n    | نام |\n"),
                "other customizable columns");
}

}  // namespace
}  // namespace goods
