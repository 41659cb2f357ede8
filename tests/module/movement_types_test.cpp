#include "module/data/movement_types.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace goods {
namespace {

using enum MovementDirection;

TEST(MovementTypes, TheChoiceListHasFifteenTypesInTheirOrder) {
  const std::vector<MovementType> expected{
      {1, "فروش", Outgoing},
      {2, "خرید", Incoming},
      {3, "موجودی اول دوره", Incoming},
      {4, "برگشت از فروش", Incoming},
      {5, "برگشت از خرید", Outgoing},
      {6, "حواله از انبار", Outgoing},
      {7, "حواله به انبار", Incoming},
      {8, "کالای تولیدی در تولید آنالیز متغیر", Incoming},
      {9, "کالای مصرفی در تولید آنالیز متغیر", Outgoing},
      {11, "کالای هزینه شده", Outgoing},
      {21, "حواله خروج کالا", Outgoing},
      {22, "رسید ورود کالا", Incoming},
      {23, "کالای درآمد شده", Incoming},
      {24, "تقسیم خروج جزییات", Outgoing},
      {25, "تقسیم ورود جزییات", Incoming},
  };
  const auto offered = OfferedMovementTypes();
  ASSERT_EQ(offered.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(offered[i].code, expected[i].code);
    EXPECT_EQ(offered[i].label, expected[i].label);
    EXPECT_EQ(offered[i].direction, expected[i].direction) << offered[i].code;
  }
}

TEST(MovementTypes, TypesThatOccurOnRowsOnlyAreNotOffered) {
  for (const int code : {0, 10, 12, 13, 14, 15, 16, 17, 18, 19, 20, 26, -1}) {
    EXPECT_FALSE(FindOfferedMovementType(code)) << code;
  }
  ASSERT_TRUE(FindOfferedMovementType(23));
  EXPECT_EQ(FindOfferedMovementType(23)->label, "کالای درآمد شده");
}

TEST(MovementTypes, TheDirectionOfARowFollowsTheSignOfItsQuantity) {
  EXPECT_EQ(DirectionOf(Decimal(5)), Incoming);
  EXPECT_EQ(DirectionOf(*Decimal::Parse("-0.000000001")), Outgoing);
  EXPECT_FALSE(DirectionOf(Decimal(0)));
}

}  // namespace
}  // namespace goods
