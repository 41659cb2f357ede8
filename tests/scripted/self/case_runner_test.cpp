// The case runner passes what is right and fails what is wrong.
#include "tests/scripted/engine/case_runner.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/scripted/self/run_text.h"

namespace goods {
namespace {

// One case in which the sample window is open, its own statement looked at; the step stands in line 10.
Outcome RunInside(const std::string& steps) {
  return RunSteps("  call Open_Sample\n  expect statements\n    \"Exec Sample\"\n" + steps);
}

TEST(CaseRunner, PassesACaseInWhichEverythingIsAsExpected) {
  ExpectPass(
      RunInside("  expect window Sample_FRM\n"
                "  expect rows\n    | نام | مبلغ    |\n    | الف | 1,000.5 |\n    | ب | |\n"
                "  expect footers\n    | مبلغ |\n    | 1,000.5 |\n"
                "  press Esc\n  expect no window\n"));
}

TEST(CaseRunner, FailsOnAnotherStatementWithPlaceAndDiff) {
  const Outcome outcome = RunSteps("  call Open_Sample\n  expect statements\n    \"Exec Sample \"\n");
  ExpectFailure(outcome, "sample.case:8: the statements are others");
  EXPECT_TRUE(outcome.Says("  - \"Exec Sample \"\n  + \"Exec Sample\"")) << outcome.output;
}

TEST(CaseRunner, FailsOnAStatementThatNothingExpects) {
  ExpectFailure(RunInside("  click Execute_BTN\n"), "statements that nothing expects");
  ExpectFailure(RunInside("  click Execute_BTN\n  expect no statement\n"), "+ \"Exec Clicked\"");
}

TEST(CaseRunner, FailsOnAMessageAnErrorOrADocumentThatNothingExpects) {
  ExpectFailure(RunInside("  click Message_BTN\n"), "messages that nothing expects");
  ExpectFailure(RunInside("  click Throw_BTN\n"), "ShowError(\"broken\")");
  ExpectFailure(RunInside("  click Document_BTN\n"), "Call_SaleInvoice(55, 1)");
}

TEST(CaseRunner, FailsOnAPreviewThatNothingExpects) {
  ExpectFailure(RunInside("  press F9\n"), "a preview that nothing expects");
}

TEST(CaseRunner, RefusesAnExpectationWithoutItsBlock) {
  for (const char* step : {"  expect statements\n", "  expect messages\n", "  expect rows\n",
                           "  expect columns\n", "  expect print\n", "  expect footers\n"}) {
    ExpectFailure(RunSteps("  call Open_Sample\n" + std::string(step)), "below this line");
  }
}

TEST(CaseRunner, RefusesNamesThatDoNotExist) {
  ExpectFailure(RunInside("  click Nothing_BTN\n"),
                "sample.case:10: Sample_FRM has no component Nothing_BTN");
  ExpectFailure(RunInside("  expect All_CHK colour \"red\"\n"), "All_CHK has no property colour");
  ExpectFailure(RunInside("  expect Search_EDT checked\n"), "Search_EDT has no property checked");
  ExpectFailure(RunInside("  press F99\n"), "there is no key F99");
  ExpectFailure(RunInside("  expect statments\n"), "no step reads like this");
  ExpectFailure(RunInside("  dance\n"), "no step reads like this");
  ExpectFailure(RunInside("  sort by \"ستون\"\n"), "shows no column");
  ExpectFailure(RunInside("  go to row 3\n"), "there is no row 3 among 2");
  ExpectFailure(RunInside("  choose \"چیز\" in Kind_CMB\n"), "has no item");
  ExpectFailure(RunSteps("  call Open_Nothing\n  expect no window\n"), "there is no export Open_Nothing");
  ExpectFailure(RunSteps("  open TNothing_FRM\n  expect no window\n"), "there is no window TNothing_FRM");
  ExpectFailure(RunSteps("  setting Colour on\n  expect no window\n"), "Colour is none of");
  ExpectFailure(RunSteps("  module Cars busy\n  expect no window\n"), "Cars is none of");
  ExpectFailure(RunSteps("  flag IsCarShow on\n  expect no window\n"), "IsCarShow is none of");
}

TEST(CaseRunner, RefusesAWrongNumberOfArguments) {
  ExpectFailure(RunSteps("  call Open_Sample 5\n  expect no window\n"), "sample.case:7: too many arguments");
}

TEST(CaseRunner, RefusesFilesThatSayNothing) {
  ExpectFailure(RunText("1. A case.\n  call Open_Sample\n"), "sample.case:1: this case expects nothing");
  ExpectFailure(RunText("# nothing\n"), "no case in this file");
  std::ostringstream out;
  EXPECT_EQ(RunCaseFile(SampleEnvironment(), "/nowhere/none.case", std::nullopt, out).failed, 1);
  EXPECT_NE(out.str().find("cannot be read"), std::string::npos);
}

TEST(CaseRunner, RefusesFilesThatCannotBeUnderstood) {
  ExpectFailure(RunText("2. Two.\n  expect no window\n1. One.\n  expect no window\n"), "does not rise");
  ExpectFailure(RunText("  expect no window\n"), "a step outside");
  ExpectFailure(RunText("Something\n"), "neither");
  ExpectFailure(RunText("1. One.\n\texpect no window\n"), "a tab");
  ExpectFailure(RunText("1. One.\n   expect no window\n"), "two blanks in");
  ExpectFailure(RunText("1. One.\n    | a |\n"), "a block without a step");
  ExpectFailure(RunText("1. One.\n  expect filter \"a\n"), "a quote that is not closed");
  ExpectFailure(RunText("1. One.\n  expect filter \"\\q\"\n"), "stands for nothing");
  ExpectFailure(RunText("include nothing.inc\n"), "cannot include");
}

TEST(CaseRunner, RefusesTablesThatDoNotHold) {
  ExpectFailure(RunText("1. One.\n  given rows for \"a\"\n    | a | b |\n    | 1 |\n  expect no window\n"),
                "1 cells, but the heading has 2");
  ExpectFailure(
      RunText("1. One.\n  given rows for \"a\"\n    | a:integer |\n    | x |\n  expect no window\n"),
      "is no value of the column a");
  ExpectFailure(RunText("1. One.\n  given rows for \"a\"\n    | a:number |\n  expect no window\n"),
                "number is none of");
  ExpectFailure(RunText("1. One.\n  given rows for \"a\" from b\n  expect no window\n"),
                "there is no table b");
}

TEST(CaseRunner, FailsWhenAStatementHasNoAnswer) {
  ExpectFailure(
      RunText("1. One.\n  call Open_Sample\n  forget statements\n  forget messages\n  expect no window\n"),
      "no rows are given for \"Exec Sample\"");
}

TEST(CaseRunner, FailsWhenWhatWasToHappenNextNeverCame) {
  ExpectFailure(RunInside("  next statement fails \"no\"\n"), "that nothing came for");
  ExpectFailure(RunInside("  next picker chooses 3\n"), "that nothing came for");
  ExpectFailure(RunInside("  next document stays open\n"), "that nothing came for");
}

TEST(CaseRunner, FailsWhenTheWaitingIndicatorStaysUp) {
  ExpectFailure(RunInside("  click StayWaiting_BTN\n"), "the waiting indicator is still shown");
  ExpectPass(RunInside("  click StayWaiting_BTN\n  expect waiting shown \"صبر\"\n"));
}

TEST(CaseRunner, FailsOnMisuseOfTheHost) {
  ExpectFailure(RunInside("  click HideTwice_BTN\n"), "while it is not shown");
  ExpectFailure(RunSteps("  open TEarly_FRM\n  forget statements\n  expect window Sample_FRM\n"),
                "a statement is sent before Sample_FRM is shown");
  ExpectFailure(RunInside("  set Good_SEF code 5\n  click Good_SEF.Select_BTN\n"), "a picker opens");
}

TEST(CaseRunner, DoesNotLetAUserReachWhatIsNotThere) {
  ExpectFailure(RunInside("  click Disabled_BTN\n"), "a user cannot reach Disabled_BTN: it is disabled");
  ExpectFailure(RunInside("  fold Criteria_PNL\n  set Code_EDT text \"5\"\n"), "is in a folded panel");
  ExpectFailure(RunInside("  uncheck All_CHK\n"), "All_CHK is unchecked already");
  ExpectFailure(RunInside("  set Code_EDT text \"abc\"\n"), "Code_EDT does not take \"abc\"");
  ExpectFailure(RunInside("  close document\n"), "nothing is held open");
  ExpectFailure(RunSteps("  click All_CHK\n  expect no window\n"), "no window is open");
}

TEST(CaseRunner, TypesKeyByKeyAndDropsWhatAnEditRefuses) {
  ExpectPass(RunInside("  type \"1a2\" into Code_EDT\n  expect Code_EDT text \"12\"\n"));
}

TEST(CaseRunner, LetsTypedTextRestBeforeTheReportRuns) {
  ExpectPass(
      RunInside("  type \"abc\" into Search_EDT every 100 ms\n"
                "  expect Search_EDT text \"abc\"\n"
                "  wait 390 ms\n  expect no statement\n"
                "  wait 10 ms\n  expect statements\n    \"Exec Sample @Search='abc'\"\n"));
}

TEST(CaseRunner, StepsReachTheInnermostWindow) {
  ExpectPass(
      RunInside("  click Another_BTN\n  expect 2 open windows\n  expect window instance 2\n"
                "  expect statements\n    \"Exec Sample\"\n"
                "  check All_CHK\n  press Esc\n"
                "  expect window instance 1\n  expect All_CHK unchecked\n"));
}

TEST(CaseRunner, StepsGoOnWhileADocumentIsOpen) {
  ExpectPass(
      RunInside("  next document stays open\n  click Document_BTN\n"
                "  expect documents\n    Call_SaleInvoice(55, 1)\n"
                "  check All_CHK\n  close document\n  expect All_CHK checked\n"));
}

TEST(CaseRunner, CasesDoNotKnowOfEachOther) {
  const Outcome outcome = RunText(std::string(kSetup) +
                                  "1. Fails.\n  all rights refused\n  click Nothing_BTN\n  expect no window\n"
                                  "2. Passes.\n  call Open_Sample\n  expect statements\n    \"Exec Sample\"\n"
                                  "  press F9\n  expect print\n    title \"نمونه\"\n    options 5\n");
  EXPECT_EQ(outcome.failed, 1) << outcome.output;
  EXPECT_EQ(outcome.passed, 1) << outcome.output;
}

TEST(CaseRunner, RunsACaseForEachRowOfItsTable) {
  const std::string steps =
      "  for each\n    | Text | Code |\n    | 12 | 12 |\n    | a7 | 7 |\n    | 5 | 6 |\n"
      "  call Open_Sample\n  forget statements\n"
      "  type \"{Text}\" into Code_EDT\n  expect Code_EDT text \"{Code}\"\n";
  const Outcome outcome = RunText(std::string(kSetup) + "1. Typing {Text} gives {Code}.\n" + steps);
  EXPECT_EQ(outcome.passed, 2) << outcome.output;
  EXPECT_EQ(outcome.failed, 1) << outcome.output;
  EXPECT_TRUE(outcome.Says("FAILED 1. Typing 5 gives 6.")) << outcome.output;
}

TEST(CaseRunner, RefusesATableOfACaseThatDoesNotFitIt) {
  const std::string call = "  call Open_Sample\n  expect statements\n    \"Exec Sample\"\n";
  ExpectFailure(RunSteps("  for each\n    | A |\n" + call), "has no rows");
  ExpectFailure(RunSteps("  for each\n    | A |\n    | 1 |\n" + call), "nothing in this case uses {A}");
  ExpectFailure(RunSteps("  for each\n    | A |\n    | 1 |\n  wait {B} ms\n" + call), "{B} is no heading");
  ExpectFailure(RunSteps(call + "  for each\n    | A |\n    | 1 |\n"), "no step reads like this");
}

TEST(CaseRunner, ComparesThePrintJob) {
  const std::string print = "  press F9\n  expect print\n    title \"نمونه\"\n    options 5\n";
  ExpectPass(RunInside(print +
                       "    | نام | مبلغ |\n    | الف | 1,000.5 |\n    | ب | |\n    footer | | 1,000.5 |\n"));
  ExpectFailure(RunInside(print + "    line \"x\"\n"), "another print job");
  ExpectFailure(RunInside(print + "    | نام | مبلغ |\n    | الف | 1 |\n"), "another printed table");
  ExpectFailure(RunInside(print + "    footer | | 2 |\n"), "another printed footer");
  ExpectFailure(RunInside("  expect print\n    title \"نمونه\"\n    options 5\n"), "nothing is printed");
}

TEST(CaseRunner, FailsOnEveryKindOfWrongExpectation) {
  for (const char* step :
       {"expect no window",         "expect window Other_FRM",      "expect window caption \"x\"",
        "expect window instance 2", "expect 2 open windows",        "expect row count 1",
        "expect current row 2",     "expect no current row",        "expect filter \"x\"",
        "expect sort \"x\"",        "expect data set closed",       "expect selection \"1\"",
        "expect All_CHK checked",   "expect All_CHK not unchecked", "expect All_CHK caption \"x\"",
        "expect All_CHK height 5",  "expect Search_EDT text \"x\"", "expect Kind_CMB item 1",
        "expect Kind_CMB code 6",   "expect Criteria_PNL folded",   "expect Disabled_BTN enabled",
        "expect Sample_GRD hidden", "expect waiting shown \"x\"",   "expect no window shown"}) {
    const Outcome outcome = RunInside("  " + std::string(step) + "\n");
    EXPECT_EQ(outcome.failed, 1) << step;
    EXPECT_TRUE(outcome.Says("sample.case:10:")) << step << "\n" << outcome.output;
  }
  ExpectFailure(RunInside("  expect columns\n    | Caption |\n    | نام |\n"), "other visible columns");
  ExpectFailure(RunInside("  expect rows\n    | نام |\n    | الف |\n"), "other rows");
  ExpectFailure(RunInside("  expect footers\n    | مبلغ |\n    | 1 |\n"), "other footers");
  ExpectFailure(RunInside("  expect brushes\n    | مبلغ |\n"), "other brushes");
  ExpectFailure(RunInside("  expect items of Kind_CMB\n    | Text |\n"), "has other items");
  ExpectFailure(RunInside("  expect calls\n    Open(\"x\")\n"), "other calls");
  ExpectFailure(RunInside("  expect settings file \"a.ini\"\n    \"x\"\n"), "holds something else");
}

}  // namespace
}  // namespace goods
