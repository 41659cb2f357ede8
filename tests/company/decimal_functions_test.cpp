// The exact decimal functions in SQL against Decimal itself.
#include <random>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

class DecimalFunctions : public ::testing::Test {
 protected:
  // The result of a function of two numbers; none when SQLite reports an error.
  std::optional<Decimal> Call(const std::string& function, Decimal a, Decimal b) {
    Statement statement = db_.Prepare("SELECT " + function + "(?1, ?2)");
    statement.Bind(1, a);
    statement.Bind(2, b);
    return Result(statement);
  }
  static std::optional<Decimal> Result(Statement& statement) {
    try {
      statement.Step();
      const int type = sqlite3_column_type(statement.Handle(), 0);
      EXPECT_EQ(type, FitsCell64(statement.Number(0).Units()) ? SQLITE_INTEGER : SQLITE_BLOB)
          << "not the one form";
      return statement.Number(0);
    } catch (const SqliteError&) {
      return std::nullopt;
    }
  }
  // Numbers of every size, the edges of 64 bits among them.
  Decimal AnyNumber() {
    constexpr std::int64_t kEdges[] = {0, 1, -1, INT64_MAX, INT64_MIN, 1'000'000'000, -500'000'000};
    const auto kind = random_() % 4;
    if (kind == 0) return Decimal::FromUnits(kEdges[random_() % 7]);
    if (kind == 1)
      return Decimal::FromUnits(static_cast<std::int64_t>(random_() % 2'000'000'000'000) - 1'000'000'000'000);
    if (kind == 2) return Decimal::FromUnits(static_cast<std::int64_t>(random_()));
    return Decimal::FromUnits(static_cast<Int128>(static_cast<std::int64_t>(random_())) *
                              static_cast<std::int64_t>(random_() % 1'000'000'000));
  }
  Database db_{":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
  std::mt19937_64 random_{7};
};

template <typename Body>
std::optional<Decimal> Expected(Body body) {
  try {
    return body();
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

TEST_F(DecimalFunctions, WholeTimesAndTheirRestMakeTheNumberAgain) {
  int known = 0;
  for (int i = 0; i < 4000; ++i) {
    const Decimal a = AnyNumber();
    const Decimal b = AnyNumber();
    SCOPED_TRACE(a.ToString() + " by " + b.ToString());
    const std::optional<Decimal> whole = Call("dec_whole", a, b);
    const std::optional<Decimal> rest = Call("dec_rest", a, b);
    ASSERT_EQ(rest.has_value(), !b.IsZero());
    if (!rest) continue;
    ASSERT_LT(rest->Abs(), b.Abs());
    ASSERT_TRUE(rest->IsZero() || rest->IsNegative() == a.IsNegative());
    if (!whole) continue;
    ++known;
    ASSERT_EQ(*whole, whole->Rounded(0));
    ASSERT_EQ(whole->Units() / Decimal::kOne * b.Units() + rest->Units(), a.Units());
  }
  EXPECT_GT(known, 2000);
  EXPECT_EQ(Call("dec_whole", Decimal::FromUnits(2'999'999'999), Decimal(3)), Decimal());
}

TEST_F(DecimalFunctions, ArithmeticAgreesWithTheHostsDecimal) {
  for (int i = 0; i < 4000; ++i) {
    const Decimal a = AnyNumber();
    const Decimal b = AnyNumber();
    SCOPED_TRACE(a.ToString() + " and " + b.ToString());
    ASSERT_EQ(Call("dec_add", a, b), Expected([&] { return a + b; }));
    ASSERT_EQ(Call("dec_sub", a, b), Expected([&] { return a - b; }));
    ASSERT_EQ(Call("dec_mul", a, b), Expected([&] { return a * b; }));
    ASSERT_EQ(Call("dec_div", a, b), Expected([&] { return a / b; }));
    const std::optional<Decimal> order = Call("dec_cmp", a, b);
    ASSERT_EQ(order->Units(), a < b ? -1 : a > b ? 1 : 0);
  }
}

TEST_F(DecimalFunctions, KeysSortAsNumbersDo) {
  for (int i = 0; i < 1000; ++i) {
    const Decimal a = AnyNumber();
    const Decimal b = AnyNumber();
    Statement statement = db_.Prepare("SELECT dec_key(?1) < dec_key(?2)");
    statement.Bind(1, a);
    statement.Bind(2, b);
    ASSERT_TRUE(statement.Step());
    ASSERT_EQ(statement.Integer(0) != 0, a < b) << a.ToString() << " " << b.ToString();
  }
}

TEST_F(DecimalFunctions, TextsGoThereAndBack) {
  EXPECT_EQ(db_.AskText("SELECT dec_text(dec_parse('-12.5'))"), "-12.5");
  EXPECT_EQ(db_.AskText("SELECT dec_text(dec_parse('98765432109876543210.123456789'))"),
            "98765432109876543210.123456789");
  EXPECT_THROW(db_.AskText("SELECT dec_parse('12x')"), SqliteError);
}

TEST_F(DecimalFunctions, NullGivesNullAndARealNumberIsRefused) {
  EXPECT_EQ(db_.AskInteger(
                "SELECT dec_add(1, NULL) IS NULL AND dec_mul(NULL, 1) IS NULL AND dec_abs(NULL) IS NULL"),
            1);
  EXPECT_THROW(db_.AskInteger("SELECT dec_add(1.5, 1)"), SqliteError);
  EXPECT_THROW(db_.AskInteger("SELECT dec_add(x'00', 1)"), SqliteError);
  EXPECT_THROW(db_.AskInteger("SELECT dec_add('1', 1)"), SqliteError);
}

TEST_F(DecimalFunctions, AWholeNumberBecomesItsDecimal) {
  EXPECT_EQ(db_.AskText("SELECT dec_text(dec_of(9223372036854775807))"), "9223372036854775807");
  EXPECT_EQ(db_.AskText("SELECT dec_text(dec_trunc(dec_parse('-7.9')))"), "-7");
}

TEST_F(DecimalFunctions, SumsRunOverWindowsAndGroups) {
  db_.Run(
      "CREATE TABLE t(i INTEGER, store INTEGER, v); INSERT INTO t VALUES(1, 1, 5), (2, 2, 7), (3, 1, NULL),"
      " (4, 1, 9223372036854775807), (5, 2, -1), (6, 1, 9223372036854775807)");
  Statement rows = db_.Prepare(
      "SELECT dec_text(dec_sum(v) OVER w),"
      " dec_text(dec_sum(v) OVER (ORDER BY i ROWS BETWEEN 1 PRECEDING AND CURRENT ROW)) FROM t"
      " WINDOW w AS (ORDER BY i ROWS BETWEEN UNBOUNDED PRECEDING AND CURRENT ROW)");
  std::string seen;
  while (rows.Step()) seen += std::string(rows.Text(0)) + "/" + std::string(rows.Text(1)) + " ";
  EXPECT_EQ(seen,
            "0.000000005/0.000000005 0.000000012/0.000000012 0.000000012/0.000000007 "
            "9223372036.854775819/9223372036.854775807 9223372036.854775818/9223372036.854775806 "
            "18446744073.709551625/9223372036.854775806 ");
  EXPECT_EQ(db_.AskText("SELECT dec_text(dec_max(v)) || ' ' || dec_text(dec_min(v)) FROM t"),
            "9223372036.854775807 -0.000000001");
  EXPECT_EQ(db_.AskInteger("SELECT dec_sum(v) IS NULL FROM t WHERE i > 100"), 1);
}

}  // namespace
}  // namespace goods
