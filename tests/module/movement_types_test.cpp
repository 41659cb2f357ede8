#include "module/framework/movement_types.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "module/framework/document_opening.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

TEST(MovementTypes, TheChoiceListHasFifteenTypesInTheirOrder) {
  const std::vector<std::pair<int, std::string>> expected{
      {1, "فروش"},
      {2, "خرید"},
      {3, "موجودی اول دوره"},
      {4, "برگشت از فروش"},
      {5, "برگشت از خرید"},
      {6, "حواله از انبار"},
      {7, "حواله به انبار"},
      {8, "کالای تولیدی در تولید آنالیز متغیر"},
      {9, "کالای مصرفی در تولید آنالیز متغیر"},
      {11, "کالای هزینه شده"},
      {21, "حواله خروج کالا"},
      {22, "رسید ورود کالا"},
      {23, "کالای درآمد شده"},
      {24, "تقسیم خروج جزییات"},
      {25, "تقسیم ورود جزییات"},
  };
  std::vector<std::pair<int, std::string>> offered;
  for (const MovementTypeRow& row : kMovementTypes) {
    if (!row.label.empty()) offered.emplace_back(static_cast<int>(row.type), row.label);
  }
  EXPECT_EQ(offered, expected);
}

TEST(MovementTypes, ARowWithoutATypeOrWithAnUnknownCodeHasNone) {
  EXPECT_FALSE(MovementTypeOf(Value()));
  EXPECT_FALSE(MovementTypeOf(Value(-1)));
  EXPECT_FALSE(MovementTypeOf(Value(26)));
  EXPECT_EQ(MovementTypeOf(Value(0)), MovementType::FixedProductionOut);
  EXPECT_EQ(MovementTypeOf(Value("25")), MovementType::DetailSplitIn);
}

TEST(DocumentOpening, ARowWithoutATypeOpensNothingAndAsksNobody) {
  ScriptedHost host;
  EXPECT_EQ(OpenDocument(host, Value(), 55), DocumentOutcome::NotOpened);
  EXPECT_EQ(OpenDocument(host, Value(99), 55), DocumentOutcome::NotOpened);
  EXPECT_FALSE(ChangesStockCard(Value()));
  EXPECT_TRUE(host.Log.Calls().empty());
  EXPECT_EQ(OpenDocument(host, Value(0), 55), DocumentOutcome::Opened);
}

}  // namespace
}  // namespace goods
