#include "host/data/value.h"

#include <limits>

#include <gtest/gtest.h>

namespace goods {
namespace {

TEST(Values, NullIsZeroAndTheEmptyText) {
  const Value null;
  EXPECT_TRUE(null.IsNull());
  EXPECT_EQ(null.AsInteger(), 0);
  EXPECT_EQ(null.AsDecimal(), Decimal());
  EXPECT_EQ(null.AsText(), "");
  EXPECT_FALSE(null.AsBoolean());
}

TEST(Values, ATextThatIsNotANumberIsZero) {
  EXPECT_EQ(Value("abc").AsInteger(), 0);
  EXPECT_EQ(Value("").AsDecimal(), Decimal());
  EXPECT_EQ(Value("12abc").AsInteger(), 0);
  EXPECT_EQ(Value(" 12 ").AsInteger(), 12);
  EXPECT_EQ(Value("-7.9").AsInteger(), -7);
}

TEST(Values, ADecimalAsAnIntegerDropsItsDecimals) {
  EXPECT_EQ(Value(Decimal::Parse("3.999").value()).AsInteger(), 3);
  EXPECT_EQ(Value(Decimal::Parse("-3.999").value()).AsInteger(), -3);
}

TEST(Values, ADecimalBeyondAnIntegerGivesTheNearestOne) {
  EXPECT_EQ(Value(Decimal::Parse("99999999999999999999").value()).AsInteger(),
            std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(Value(Decimal::Parse("-99999999999999999999").value()).AsInteger(),
            std::numeric_limits<std::int64_t>::min());
}

TEST(Values, NumbersAreTextsInTheirShortestForm) {
  EXPECT_EQ(Value(-5).AsText(), "-5");
  EXPECT_EQ(Value(Decimal::Parse("2.50").value()).AsText(), "2.5");
}

TEST(Values, NullEqualsNullOnly) {
  EXPECT_EQ(Value(), Value());
  EXPECT_NE(Value(), Value(0));
  EXPECT_NE(Value(), Value(""));
}

TEST(Values, AnIntegerAndADecimalOfEqualAmountAreEqual) {
  EXPECT_EQ(Value(5), Value(Decimal(5)));
  EXPECT_NE(Value(5), Value(Decimal::Parse("5.1").value()));
  EXPECT_NE(Value(5), Value("5"));
  EXPECT_EQ(Value("ab"), Value("ab"));
  EXPECT_NE(Value("ab"), Value("AB"));
}

}  // namespace
}  // namespace goods
