// The host's small functions that statements and captions are put together with, and the custom parameter.
#include "host/services/public_methods.h"

#include <gtest/gtest.h>

#include "host/base/custom_parameter.h"
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

TEST(ADDParam, PutsTheFirstBehindTheSecond) {
  EXPECT_EQ(ADDParam("@B=2", "@A=1"), "@A=1,@B=2");
  EXPECT_EQ(ADDParam("@A=1", ""), "@A=1");
  EXPECT_EQ(ADDParam("", "@A=1"), "@A=1");
  EXPECT_EQ(ADDParam("", ""), "");
}

TEST(ADDParam, ReadsInTheOrderAddedOrNewestFirst) {
  std::string added;
  std::string newestFirst;
  for (const char* piece : {"@A=1", "@B=2", "@C=3"}) {
    added = ADDParam(piece, added);
    newestFirst = ADDParam(newestFirst, piece);
  }
  EXPECT_EQ(added, "@A=1,@B=2,@C=3");
  EXPECT_EQ(newestFirst, "@C=3,@B=2,@A=1");
}

TEST(DeleteParam, TakesTheParameterWithItsComma) {
  EXPECT_EQ(DeleteParam("@A=1,@B=2,@C=3", "@B"), "@A=1,@C=3");
  EXPECT_EQ(DeleteParam("@A=1,@B=2", "@A"), "@B=2");
  EXPECT_EQ(DeleteParam("@A=1,@B=2", "@B"), "@A=1");
  EXPECT_EQ(DeleteParam("@A=1", "@A"), "");
}

TEST(DeleteParam, LeavesOtherParametersAlone) {
  EXPECT_EQ(DeleteParam("@GrpCode=1,@GrpCode2=2", "@GrpCode"), "@GrpCode2=2");
  EXPECT_EQ(DeleteParam("@Name='a,@B=5',@B = 2", "@b"), "@Name='a,@B=5'");
  EXPECT_EQ(DeleteParam("@Name='it''s, @B=1',@B=2", "@B"), "@Name='it''s, @B=1'");
  EXPECT_EQ(DeleteParam("@A=1", "@B"), "@A=1");
  EXPECT_EQ(DeleteParam("", "@B"), "");
}

TEST(AddFilter, JoinsWithAnd) {
  EXPECT_EQ(AddFilter("A = 1", "B = 2"), "A = 1 And B = 2");
  EXPECT_EQ(AddFilter("", "B = 2"), "B = 2");
  EXPECT_EQ(AddFilter("A = 1", ""), "A = 1");
}

TEST(CurrencyFormat, GroupsThousandsAndPutsTheMinusBehind) {
  EXPECT_EQ(SetCurrencyFormat("1234567.5"), "1,234,567.5");
  EXPECT_EQ(SetCurrencyFormat("-1234.25"), "1,234.25-");
  EXPECT_EQ(SetCurrencyFormat("0"), "0");
  EXPECT_EQ(SetCurrencyFormat("-0.00001"), "0");
  EXPECT_EQ(SetCurrencyFormat("none"), "none");
}

using ResetDatasetTest = DataModuleTest;

TEST_F(ResetDatasetTest, ReadsTheQueryAgain) {
  Give("Exec Kardex_Proc 12", "Date", {{"1401/01/01"}});
  dm.FillDataKardexTransact(12);
  Give("Exec Kardex_Proc 12", "Date", {{"1401/01/01"}, {"1401/01/02"}});
  ResetDataset(dm.Kardex.Query);
  EXPECT_EQ(Sent(), (Texts{"Exec Kardex_Proc 12", "Exec Kardex_Proc 12"}));
  EXPECT_EQ(dm.Kardex.Query.RecordCount(), 2u);
}

TEST(CustomParameterForms, AreReadByPosition) {
  const CustomParameter parameter(Variant(std::string("0;12;3;1401/01/01;1401/02/01;")));
  EXPECT_EQ(parameter.Count(), 5u);
  EXPECT_EQ(parameter.Integer(0), 0);
  EXPECT_EQ(parameter.Integer(1), 12);
  EXPECT_EQ(parameter.Integer(2), 3);
  EXPECT_EQ(parameter.Text(3), "1401/01/01");
  EXPECT_EQ(parameter.Text(4), "1401/02/01");
}

TEST(CustomParameterForms, TheEmptyStockCardHasFivePositions) {
  const CustomParameter parameter(Variant(std::string("0;0;0;;;")));
  EXPECT_EQ(parameter.Count(), 5u);
  EXPECT_EQ(parameter.Text(3), "");
  EXPECT_EQ(parameter.Text(4), "");
}

TEST(CustomParameterForms, WhatIsNotThereOrNoNumberReadsAsNone) {
  const CustomParameter parameter(Variant(std::string("x;;99999999999999999999;12 ; 7")));
  EXPECT_EQ(parameter.Integer(0), 0);
  EXPECT_EQ(parameter.Text(0), "x");
  EXPECT_EQ(parameter.Integer(1), 0);
  EXPECT_EQ(parameter.Integer(2), 0);
  EXPECT_EQ(parameter.Integer(3), 12);
  EXPECT_EQ(parameter.Integer(4), 7);
  EXPECT_EQ(parameter.Integer(50), 0);
  EXPECT_EQ(parameter.Text(50), "");
}

TEST(CustomParameterForms, ANumberIsItsOwnOnlyPosition) {
  const CustomParameter parameter(Variant(std::int64_t{501}));
  EXPECT_EQ(parameter.Count(), 1u);
  EXPECT_EQ(parameter.Integer(0), 501);
}

}  // namespace
}  // namespace goods
