// Kardex_Proc against cards that are added up row by row, averages by long division on decimal digits.
#include <algorithm>
#include <map>
#include <random>

#include "company/writer/company_writer.h"
#include "company/writer/moving_average.h"
#include "company_fixture.h"

namespace goods {
namespace {

struct Row {
  std::string date;
  std::int64_t good = 0;
  std::int64_t store = 0;
  int type = 0;
  Decimal quantity;
  std::optional<Decimal> price;
  std::int64_t radif = 0;
};

// A random company of one card, written in random order of dates.
std::vector<Row> WriteRandomCompany(const std::string& path, unsigned seed, bool large) {
  std::mt19937 random(seed);
  const auto below = [&](unsigned count) { return static_cast<std::int64_t>(random() % count); };
  CompanyWriter writer(path, false);
  writer.Tables().Run(
      "INSERT INTO Units VALUES(0, ''), (1, 'عدد'); INSERT INTO GoodGrps VALUES(1, 'گروه');"
      "INSERT INTO Stores(Code, Name) VALUES(1, 'یک'), (2, 'دو'), (3, 'سه');"
      "INSERT INTO Persons(Code, Name) VALUES(7, 'مریم');"
      "INSERT INTO GoodInf(GrpCode, Code, Name, Unit, Meghdar_Formool) VALUES(1, 1, 'الف', 1, 12000000000),"
      " (1, 2, 'ب', 1, NULL)");
  constexpr int kTypes[] = {2, 1, 3, 4, 7, 6, 22, 5, 13};
  std::vector<Row> rows;
  for (int i = 0; i < 400; ++i) {
    Row row;
    row.date = "1402/0" + std::to_string(1 + below(3)) + "/1" + std::to_string(below(10));
    row.good = 1 + below(2);
    row.store = 1 + below(3);
    row.type = kTypes[below(9)];
    Int128 units = 1 + below(50'000'000);
    units = units * (large ? 40'000'000 : 1'000) + below(1'000);
    row.quantity = Decimal::FromUnits(below(2) == 0 ? units : -units);
    if (below(4) != 0) {
      Int128 price = below(1'000'000'000);
      if (large) price = price * 900'000'000'000'000;
      row.price = Decimal::FromUnits(price);
    }
    Movement movement;
    movement.date = row.date;
    movement.good = row.good;
    movement.store = row.store;
    movement.person = i % 5 == 0 ? 0 : 7;
    movement.type = row.type;
    movement.quantity = row.quantity;
    movement.price = row.price;
    movement.document = i + 1;
    row.radif = writer.Add(movement);
    rows.push_back(row);
  }
  writer.Finish();
  return rows;
}

// (a * b + c * d) / e in whole numbers of any size, half up; by long division over decimal digits.
std::string DigitsTimes(const std::string& a, const std::string& b) {
  std::string product(a.size() + b.size(), 0);
  for (std::size_t i = a.size(); i-- > 0;) {
    int carry = 0;
    for (std::size_t j = b.size(); j-- > 0;) {
      const int sum = product[i + j + 1] + (a[i] - '0') * (b[j] - '0') + carry;
      product[i + j + 1] = static_cast<char>(sum % 10);
      carry = sum / 10;
    }
    product[i] = static_cast<char>(product[i] + carry);
  }
  for (char& digit : product) digit = static_cast<char>(digit + '0');
  return product;
}

std::string DigitsPlus(std::string a, std::string b) {
  const std::size_t length = std::max(a.size(), b.size()) + 1;
  a.insert(0, length - a.size(), '0');
  b.insert(0, length - b.size(), '0');
  int carry = 0;
  for (std::size_t i = length; i-- > 0;) {
    const int sum = a[i] + b[i] - 2 * '0' + carry;
    a[i] = static_cast<char>('0' + sum % 10);
    carry = sum / 10;
  }
  return a;
}

std::string UnitsText(Decimal value) {
  Int128 units = value.Units();
  std::string text;
  for (; units > 0; units /= 10)
    text.insert(text.begin(), static_cast<char>('0' + static_cast<int>(units % 10)));
  return text.empty() ? "0" : text;
}

Decimal AverageByLongDivision(Decimal stock, Decimal average, Decimal quantity, Decimal price) {
  if (stock <= Decimal()) return price;
  const std::string dividend = DigitsPlus(DigitsTimes(UnitsText(stock), UnitsText(average)),
                                          DigitsTimes(UnitsText(quantity), UnitsText(price)));
  const Int128 divisor = (stock + quantity).Units();
  Int128 quotient = 0;
  Int128 rest = 0;
  for (const char digit : dividend) {
    rest = rest * 10 + (digit - '0');
    quotient = quotient * 10 + rest / divisor;
    rest %= divisor;
  }
  return Decimal::FromUnits(quotient + (rest * 2 >= divisor ? 1 : 0));
}

bool PriceIsCost(int type) { return type == 2 || type == 3 || type == 22; }

void CompareCard(IConnection& connection, std::vector<Row> rows, std::int64_t good) {
  std::erase_if(rows, [&](const Row& row) { return row.good != good; });
  std::sort(rows.begin(), rows.end(),
            [](const Row& a, const Row& b) { return std::tie(a.date, a.radif) < std::tie(b.date, b.radif); });
  const RowStore card = AskRows(connection, "Exec Kardex_Proc " + std::to_string(good));
  ASSERT_EQ(card.Count(), rows.size());
  Decimal stock;
  Decimal average;
  std::map<std::int64_t, Decimal> inStore;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Row& row = rows[i];
    const auto number = [&](const char* name) { return card.Cell(i, *card.FindColumn(name)).AsDecimal(); };
    const auto whole = [&](const char* name) { return card.Cell(i, *card.FindColumn(name)).AsInteger(); };
    Decimal cost = average;
    if (row.quantity > Decimal() && row.price && PriceIsCost(row.type)) {
      cost = *row.price;
      average = AverageByLongDivision(stock, average, row.quantity, *row.price);
    }
    stock += row.quantity;
    inStore[row.store] += row.quantity;
    const Decimal incoming = row.quantity > Decimal() ? row.quantity : Decimal();
    const Decimal outgoing = incoming - row.quantity;
    SCOPED_TRACE(testing::Message() << "row " << i << " radif " << row.radif);
    ASSERT_EQ(card.Cell(i, 0).AsText(), row.date);
    ASSERT_EQ(whole("Radif"), row.radif);
    ASSERT_EQ(whole("Anbar"), row.store);
    ASSERT_EQ(whole("Type"), row.type);
    ASSERT_EQ(number("Tedad_Varde"), incoming);
    ASSERT_EQ(number("Tedad_Sadere"), outgoing);
    ASSERT_EQ(number("Bagh"), stock);
    ASSERT_EQ(number("RemainInAnbar"), inStore[row.store]);
    ASSERT_EQ(number("Miangin"), average);
    ASSERT_EQ(number("Gheymat_Varede"), incoming.IsZero() ? Decimal() : cost);
    ASSERT_EQ(number("Gheymat_Sadere"), outgoing.IsZero() ? Decimal() : cost);
    ASSERT_EQ(number("Foroosh"), row.quantity.Abs() * row.price.value_or(cost));
    ASSERT_EQ(number("Mab_Bagh"), stock * average);
    ASSERT_EQ(number("Mab_RemainInAnbar"), inStore[row.store] * average);
    ASSERT_EQ(number("Meghdar2"), good == 1 ? row.quantity / Decimal(12) : Decimal());
    ASSERT_EQ(card.Cell(i, *card.FindColumn("PerName")).IsNull(), whole("PerCode") == 0);
  }
}

TEST(StockCard, RunningFiguresAgreeWithAddingUpRandomCompanies) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    const TestFile file("random.company");
    const std::vector<Row> rows = WriteRandomCompany(file.Path(), seed, false);
    const std::unique_ptr<IConnection> connection = OpenCompany(file.Path())->OpenConnection();
    CompareCard(*connection, rows, 1);
    CompareCard(*connection, rows, 2);
  }
}

TEST(StockCard, AmountsBeyond64BitsStayExact) {
  const TestFile file("large.company");
  const std::vector<Row> rows = WriteRandomCompany(file.Path(), 99, true);
  const std::unique_ptr<IConnection> connection = OpenCompany(file.Path())->OpenConnection();
  CompareCard(*connection, rows, 1);
  CompareCard(*connection, rows, 2);
}

TEST(StockCard, HasItsColumnsInTheirOrder) {
  const std::unique_ptr<IConnection> connection = OpenCompany(SmallDemoPath())->OpenConnection();
  std::string names;
  const RowStore card = AskRows(*connection, "Exec Kardex_Proc 12");
  for (const ColumnInfo& column : card.Columns()) names += column.name + " ";
  EXPECT_EQ(names,
            "Date PerName Comment Anbar Tedad_Varde Tedad_Sadere Meghdar2 Bagh RemainInAnbar Gheymat_Varede "
            "Gheymat_Sadere Foroosh Miangin Mab_Bagh Mab_RemainInAnbar Radif PerCode Type OperationCode ");
}

TEST(StockCard, AGoodThatDoesNotExistOrNeverMovedHasAnEmptyCard) {
  const std::unique_ptr<IConnection> connection = OpenCompany(SmallDemoPath())->OpenConnection();
  EXPECT_EQ(AskRows(*connection, "Exec Kardex_Proc 60").Count(), 0U);
  EXPECT_EQ(AskRows(*connection, "Exec Kardex_Proc -5").Count(), 0U);
  EXPECT_EQ(AskRows(*connection, "Exec Kardex_Proc NULL").Count(), 0U);
  EXPECT_EQ(AskRows(*connection, "Exec Kardex_Proc 60").Columns().size(), 19U);
}

TEST(MovingAveragePrice, BecomesThePriceWhenNothingIsInStock) {
  EXPECT_EQ(MovingAverage(Decimal(), Decimal(5), Decimal(2), Decimal(7)), Decimal(7));
  EXPECT_EQ(MovingAverage(Decimal(-3), Decimal(5), Decimal(2), Decimal(7)), Decimal(7));
}

TEST(MovingAveragePrice, IsRoundedOnceHalfAwayFromZero) {
  const auto units = [](std::int64_t billionths) { return Decimal::FromUnits(billionths); };
  EXPECT_EQ(MovingAverage(Decimal(1), units(2), Decimal(1), units(1)), units(2));
  EXPECT_EQ(MovingAverage(Decimal(1), units(1), Decimal(1), units(2)), units(2));
  EXPECT_EQ(MovingAverage(Decimal(2), units(0), Decimal(1), units(1)), units(0));
  EXPECT_EQ(MovingAverage(Decimal(1), units(0), Decimal(2), units(1)), units(1));
}

}  // namespace
}  // namespace goods
