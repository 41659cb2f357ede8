#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "decimal_of.h"
#include "fake_connection.h"
#include "host/data/persian.h"
#include "host/data/query.h"

namespace goods {
namespace {

using test::Of;

class Sorting : public ::testing::Test {
 protected:
  void Open(std::vector<ColumnInfo> columns, std::vector<test::Row> rows) {
    connection.columns = std::move(columns);
    connection.rows = std::move(rows);
    query.Open();
  }

  std::string Order(const std::string& sort) {
    query.SetSort(sort);
    std::string order;
    for (const std::uint32_t row : query.VisibleRows())
      order += (order.empty() ? "" : " ") + std::to_string(row);
    return order;
  }

  test::FakeConnection connection;
  TADOQuery query{nullptr, "Kardex_QRY", connection};
};

TEST_F(Sorting, EqualRowsKeepTheOrderReadInBothDirections) {
  Open({{"A", ColumnType::Integer}}, {{2}, {1}, {2}, {1}, {3}});
  EXPECT_EQ(Order("A"), "1 3 0 2 4");
  EXPECT_EQ(Order("A ASC"), "1 3 0 2 4");
  EXPECT_EQ(Order("A DESC"), "4 0 2 1 3");
  EXPECT_EQ(Order(""), "0 1 2 3 4");
}

TEST_F(Sorting, EarlierKeysCountMore) {
  Open({{"A", ColumnType::Integer}, {"B", ColumnType::Text}, {"C", ColumnType::Decimal}},
       {{1, "b", Of("1.5")}, {1, "a", Of("2")}, {0, "b", Of("3")}, {1, "a", Of("-1")}});
  EXPECT_EQ(Order("A, B, C"), "2 3 1 0");
  EXPECT_EQ(Order("A DESC,B desc,[C] asc"), "0 3 1 2");
  EXPECT_EQ(Order("b,a,c DESC"), "1 3 2 0");
}

TEST_F(Sorting, AKeyMayCompareTheBeginningOfTextsAndRoundedNumbers) {
  Open({{"T", ColumnType::Text}, {"D", ColumnType::Decimal}, {"N", ColumnType::Integer}},
       {{"1403/02/09", Of("1.26"), 3},
        {"1403/02/01", Of("1.34"), 2},
        {"1403/01/30", Of("1.349"), 1},
        {"", Of("-0.04"), 5},
        {Value(), Value(), 4}});
  EXPECT_EQ(Order("T TO 7"), "3 4 2 0 1") << "an empty text stands with the nulls, in the order read";
  EXPECT_EQ(Order("T TO 7 DESC"), "3 4 0 1 2");
  EXPECT_EQ(Order("T TO 7, N"), "4 3 2 1 0");
  EXPECT_EQ(Order("T"), "4 3 2 1 0");
  EXPECT_EQ(Order("D TO 1, N"), "4 3 2 1 0") << "1.26 is 1.3, as are the others";
  EXPECT_EQ(Order("D TO 1 DESC, N DESC"), "4 0 1 2 3");
  EXPECT_EQ(Order("D TO 2"), "4 3 0 1 2");
  for (const char* wrong : {"T TO", "T TO x", "T TO -1", "T TO 1.5", "T TO 99999999", "T DESC TO 7"})
    EXPECT_THROW(Order(wrong), FilterError) << wrong;
}

TEST_F(Sorting, NullsComeFirstInEitherDirection) {
  Open({{"A", ColumnType::Integer}, {"T", ColumnType::Text}, {"D", ColumnType::Decimal}},
       {{5, "x", Of("1")}, {Value(), Value(), Value()}, {-5, "", Of("-1")}, {0, "a", Of("0")}});
  EXPECT_EQ(Order("A"), "1 2 3 0");
  EXPECT_EQ(Order("A DESC"), "1 0 3 2");
  EXPECT_EQ(Order("T"), "1 2 3 0");
  EXPECT_EQ(Order("T DESC"), "1 0 3 2");
  EXPECT_EQ(Order("D"), "1 2 3 0");
  EXPECT_EQ(Order("D DESC"), "1 0 3 2");
}

TEST_F(Sorting, NumbersOfEverySizeSortByAmount) {
  Open({{"D", ColumnType::Decimal}}, {{Of("170141183460469231731687303715")},
                                      {Of("-170141183460469231731687303715")},
                                      {Of("0.000000001")},
                                      {Of("-0.000000001")},
                                      {Of("0")}});
  EXPECT_EQ(Order("D"), "1 3 4 2 0");
  EXPECT_EQ(Order("D DESC"), "0 2 4 3 1");
}

TEST_F(Sorting, TheTwoEndsOfTheRangeSort) {
  Open({{"D", ColumnType::Decimal}}, {{Of("170141183460469231731687303715.884105727")},
                                      {Value()},
                                      {Of("-170141183460469231731687303715.884105728")},
                                      {Of("7")}});
  EXPECT_EQ(Order("D"), "1 2 3 0");
  EXPECT_EQ(Order("D DESC"), "1 0 3 2");
}

TEST_F(Sorting, IntegersOfTheWholeRangeSort) {
  Open({{"A", ColumnType::Integer}},
       {{std::numeric_limits<std::int64_t>::max()}, {std::numeric_limits<std::int64_t>::min()}, {0}, {-1}});
  EXPECT_EQ(Order("A"), "1 3 2 0");
  EXPECT_EQ(Order("A DESC"), "0 2 3 1");
}

TEST_F(Sorting, RandomRowsAgreeWithAStableSort) {
  std::mt19937 random(5);
  std::vector<test::Row> rows;
  for (int i = 0; i < 70000; ++i) {
    const auto number = static_cast<std::int64_t>(random() % 3000) - 1500;
    rows.push_back({number,
                    Decimal::FromUnits(Int128{number} * static_cast<int>(random() % 5) * 1'234'567'891),
                    std::string(1, static_cast<char>('a' + random() % 26)) + std::to_string(random() % 30)});
  }
  Open({{"A", ColumnType::Integer}, {"D", ColumnType::Decimal}, {"T", ColumnType::Text}}, rows);
  query.SetSort("T DESC, D, A DESC");
  std::vector<std::uint32_t> expected(rows.size());
  std::iota(expected.begin(), expected.end(), 0U);
  std::stable_sort(expected.begin(), expected.end(), [&rows](std::uint32_t a, std::uint32_t b) {
    const int texts = rows[a][2].AsText().compare(rows[b][2].AsText());
    if (texts != 0) return texts > 0;
    if (rows[a][1].AsDecimal() != rows[b][1].AsDecimal())
      return rows[a][1].AsDecimal() < rows[b][1].AsDecimal();
    return rows[a][0].AsInteger() > rows[b][0].AsInteger();
  });
  const auto shown = query.VisibleRows();
  EXPECT_TRUE(std::equal(shown.begin(), shown.end(), expected.begin(), expected.end()));
}

TEST_F(Sorting, TextsFollowThePersianAlphabet) {
  const std::vector<std::string> alphabet = {"ا", "ب", "پ", "ت", "ث", "ج", "چ", "ح", "خ", "د", "ذ",
                                             "ر", "ز", "ژ", "س", "ش", "ص", "ض", "ط", "ظ", "ع", "غ",
                                             "ف", "ق", "ک", "گ", "ل", "م", "ن", "و", "ه", "ی"};
  std::vector<test::Row> rows;
  for (auto letter = alphabet.rbegin(); letter != alphabet.rend(); ++letter) rows.push_back({*letter});
  Open({{"T", ColumnType::Text}}, rows);
  query.SetSort("T");
  for (std::size_t i = 0; i < alphabet.size(); ++i) EXPECT_EQ(query.Cell(i, 0), Value(alphabet[i]));
}

TEST_F(Sorting, BlanksDigitsAndLatinStandBeforePersian) {
  Open({{"T", ColumnType::Text}},
       {{"انبار"}, {"Zebra"}, {"apple"}, {"۲"}, {"1"}, {" x"}, {"انبار مرکزی"}, {"انبارها"}});
  EXPECT_EQ(Order("T"), "5 4 3 2 1 0 6 7");
}

TEST_F(Sorting, SpellingsThatReadTheSameKeepTheOrderRead) {
  Open({{"T", ColumnType::Text}},
       {{"كتاب"}, {"کتاب"}, {"علي"}, {"على"}, {"علی"}, {"کـتاب"}, {"می‌شود"}, {"میشود"}});
  EXPECT_EQ(Order("T"), "2 3 4 0 1 5 6 7");
}

TEST_F(Sorting, AlefWithMaddaStandsWithAlef) {
  Open({{"T", ColumnType::Text}}, {{"اب"}, {"آجر"}, {"ابر"}, {"آب"}, {"بادام"}, {"آبی"}, {"ات"}});
  EXPECT_EQ(Order("T"), "3 0 2 5 6 1 4");
}

TEST_F(Sorting, ASortIsKeptWhenTheFilterChanges) {
  Open({{"A", ColumnType::Integer}}, {{3}, {1}, {2}, {5}, {4}});
  EXPECT_EQ(Order("A DESC"), "3 4 0 2 1");
  query.SetFilter("A <> 3");
  const auto shown = query.VisibleRows();
  EXPECT_EQ(std::vector<std::uint32_t>(shown.begin(), shown.end()), (std::vector<std::uint32_t>{3, 4, 2, 1}));
  query.SetFilter("");
  EXPECT_EQ(query.Cell(0, 0), Value(5));
}

TEST_F(Sorting, ComputedColumnsCanBeSorted) {
  Open({{"A", ColumnType::Integer}}, {{3}, {1}, {2}});
  query.AddComputed({"Minus", ColumnType::Integer}, [](std::size_t row, const RowStore& rows) {
    return Value(-rows.Cell(row, 0).AsInteger());
  });
  EXPECT_EQ(Order("Minus"), "0 2 1");
}

TEST_F(Sorting, ABadTextIsRefusedAndChangesNothing) {
  Open({{"A", ColumnType::Integer}}, {{3}, {1}, {2}});
  query.SetSort("A");
  for (const char* bad : {"B", "A B", "A,", ",A", "A DESC ASC", "A;A", "1", "A ASC,B", "[A", "A ' x"}) {
    EXPECT_THROW(query.SetSort(bad), FilterError) << bad;
    EXPECT_EQ(query.Sort(), "A");
    EXPECT_EQ(query.Cell(0, 0), Value(1));
  }
}

TEST(PersianFolding, MakesSpellingsOfOneTextEqual) {
  EXPECT_EQ(FoldPersian("علي"), FoldPersian("علی"));
  EXPECT_EQ(FoldPersian("على"), FoldPersian("علی"));
  EXPECT_EQ(FoldPersian("كالا"), "کالا");
  EXPECT_EQ(FoldPersian("می‌شود"), "میشود");
  EXPECT_EQ(FoldPersian("کــــالا"), "کالا");
  EXPECT_EQ(FoldPersian("مُحَمَّد"), "محمد");
  EXPECT_EQ(FoldPersian("خانۀ"), "خانه");
  EXPECT_EQ(FoldPersian("ABC-۱۲۳ ٤٥"), "abc-123 45");
}

TEST(PersianFolding, KeepsOtherLettersApart) {
  EXPECT_NE(FoldPersian("آب"), FoldPersian("اب"));
  EXPECT_NE(FoldPersian("مسئول"), FoldPersian("مسول"));
  EXPECT_EQ(FoldPersian("Straße 東京 🙂"), "straße 東京 🙂");
}

TEST(PersianFolding, LetsBrokenBytesPass) {
  EXPECT_EQ(FoldPersian("a\xD9"), "a\xD9");
  EXPECT_EQ(FoldPersian("\xE2\x80"), "\xE2\x80");
  EXPECT_EQ(FoldPersian("\xFF\xD8z"), "\xFF\xD8z");
  EXPECT_EQ(FoldPersian(""), "");
}

}  // namespace
}  // namespace goods
