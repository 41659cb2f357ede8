#include "host/data/row_store.h"

#include <map>
#include <numeric>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

#include "decimal_of.h"
#include "fake_connection.h"
#include "host/data/column_chunk.h"

namespace goods {
namespace {

using test::Of;

RowStore OneColumn(ColumnType type, const std::vector<Value>& cells) {
  std::vector<test::Row> rows;
  for (const Value& cell : cells) rows.push_back({cell});
  RowStore store;
  test::Fill(store, {{"C", type}}, rows);
  return store;
}

void ExpectCells(const RowStore& store, const std::vector<Value>& cells) {
  ASSERT_EQ(store.Count(), cells.size());
  for (std::size_t i = 0; i < cells.size(); ++i) ASSERT_EQ(store.Cell(i, 0), cells[i]) << "row " << i;
}

TEST(RowStores, IntegersNullsIncludedSurviveChunkBorders) {
  std::vector<Value> cells;
  for (std::size_t i = 0; i < 2 * kChunkCells + 5; ++i) {
    cells.push_back(i % 1000 == 7 ? Value() : Value(static_cast<std::int64_t>(i * 3) - 100000));
  }
  ExpectCells(OneColumn(ColumnType::Integer, cells), cells);
}

TEST(RowStores, DecimalsNullsIncludedSurviveChunkBorders) {
  std::vector<Value> cells;
  for (std::size_t i = 0; i < 2 * kChunkCells + 5; ++i) {
    cells.push_back(i % 999 == 3 ? Value()
                                 : Value(Decimal::FromUnits(static_cast<Int128>(i) * 12'500'000 - 77)));
  }
  ExpectCells(OneColumn(ColumnType::Decimal, cells), cells);
}

TEST(RowStores, TextsNullsIncludedSurviveChunkBorders) {
  std::vector<Value> cells;
  for (std::size_t i = 0; i < 2 * kChunkCells + 5; ++i) {
    cells.push_back(i % 501 == 0 ? Value() : Value("کالا " + std::to_string(i % 1234)));
  }
  ExpectCells(OneColumn(ColumnType::Text, cells), cells);
}

TEST(RowStores, AChunkOfExactlyFullSizeIsWhole) {
  for (const std::size_t count : {kChunkCells - 1, kChunkCells, kChunkCells + 1}) {
    std::vector<Value> cells(count, Value(5));
    cells.back() = Value();
    ExpectCells(OneColumn(ColumnType::Integer, cells), cells);
  }
}

TEST(RowStores, ANullReadsAsZeroAndTheEmptyTextAndDiffersFromThem) {
  const RowStore store = OneColumn(ColumnType::Text, {Value(), Value("")});
  EXPECT_TRUE(store.ColumnAt(0).IsNull(0));
  EXPECT_EQ(store.ColumnAt(0).Text(0), "");
  EXPECT_FALSE(store.ColumnAt(0).IsNull(1));
  const RowStore numbers = OneColumn(ColumnType::Integer, {Value(), Value(0)});
  EXPECT_EQ(numbers.ColumnAt(0).Integer(0), 0);
  EXPECT_TRUE(numbers.Cell(0, 0).IsNull());
  EXPECT_FALSE(numbers.Cell(1, 0).IsNull());
}

TEST(RowStores, DecimalsTakeEightBytesACellAtTheirSmallestExactScale) {
  const RowStore store =
      OneColumn(ColumnType::Decimal, {Of("1.5"), Of("-2.25"), Of("1000000000000000"), Of("0")});
  const ColumnChunk& chunk = store.ColumnAt(0).Chunks().front();
  EXPECT_EQ(chunk.scale, 2);
  EXPECT_FALSE(chunk.wide);
  EXPECT_EQ(store.ColumnAt(0).Number(1), Of("-2.25"));
  EXPECT_EQ(store.ColumnAt(0).Number(2), Of("1000000000000000"));
}

TEST(RowStores, DecimalsThatDoNotFitStayWide) {
  const std::vector<Value> cells = {Of("170141183460469231731687303715.884105727"), Of("0.000000001"),
                                    Of("-170141183460469231731687303715.884105728")};
  const RowStore store = OneColumn(ColumnType::Decimal, cells);
  EXPECT_EQ(store.ColumnAt(0).Chunks().front().wide.BytesPerCell(), 16U);
  ExpectCells(store, cells);
}

TEST(RowStores, TheSmallestNumberIsKeptWhereverItComes) {
  const Value least = Of("-170141183460469231731687303715.884105728");
  for (const std::vector<Value>& cells :
       {std::vector<Value>{least}, {least, Of("1")}, {Of("1000"), least}, {Of("0.5"), Value(), least}}) {
    ExpectCells(OneColumn(ColumnType::Decimal, cells), cells);
  }
}

// Billionths of so many bits, and what the next larger kind takes.
struct WidthOfCells {
  unsigned bits;
  std::size_t bytes;
  std::size_t next;
};
class WideCellsOf : public ::testing::TestWithParam<WidthOfCells> {};

TEST_P(WideCellsOf, LargeDecimalsTakeAsFewBytesAsHoldThemAll) {
  const auto [bits, bytes, next] = GetParam();
  const Decimal most = Decimal::FromUnits((Int128{1} << (bits - 1)) - 1);
  const Decimal least = Decimal::FromUnits(-(Int128{1} << (bits - 1)));
  const Decimal one = Decimal::FromUnits(1);
  const std::vector<Value> cells = {most, least, Of("-0.000000001"), Value(), Of("2000000000000.5")};
  const RowStore store = OneColumn(ColumnType::Decimal, cells);
  EXPECT_EQ(store.ColumnAt(0).Chunks().front().wide.BytesPerCell(), bytes);
  ExpectCells(store, cells);
  EXPECT_EQ(store.ColumnAt(0).SumAll(), most + least + Of("1999999999999.5") + Decimal(1) - one);
  for (const Decimal beyond : {most + one, least - one}) {
    const std::vector<Value> wider = {most, beyond};
    const RowStore wide = OneColumn(ColumnType::Decimal, wider);
    EXPECT_EQ(wide.ColumnAt(0).Chunks().front().wide.BytesPerCell(), next);
    ExpectCells(wide, wider);
  }
}
INSTANTIATE_TEST_SUITE_P(RowStores, WideCellsOf,
                         ::testing::Values(WidthOfCells{72, 9, 10}, WidthOfCells{80, 10, 16}));

TEST(RowStores, EveryScaleAndSizeOfDecimalsComesBackExactly) {
  std::mt19937_64 random(7);
  for (int round = 0; round < 400; ++round) {
    std::vector<Value> cells;
    const int decimals = static_cast<int>(random() % 10);
    const int bits = static_cast<int>(random() % 90) + 1;
    Int128 step = 1;
    for (int i = decimals; i < 9; ++i) step *= 10;
    for (int i = 0; i < 20; ++i) {
      const Int128 wide = (static_cast<Int128>(random()) << 32) ^ static_cast<Int128>(random());
      cells.push_back(Decimal::FromUnits((wide >> (100 - bits)) * (random() % 2 == 0 ? step : -step)));
    }
    ExpectCells(OneColumn(ColumnType::Decimal, cells), cells);
  }
}

TEST(RowStores, EachChunkHasAScaleOfItsOwn) {
  std::vector<Value> cells(kChunkCells, Value(Decimal(7)));
  cells.push_back(Of("0.125"));
  const RowStore store = OneColumn(ColumnType::Decimal, cells);
  EXPECT_EQ(store.ColumnAt(0).Chunks()[0].scale, 0);
  EXPECT_EQ(store.ColumnAt(0).Chunks()[1].scale, 3);
  EXPECT_EQ(store.ColumnAt(0).SumAll(), Decimal(7 * static_cast<int>(kChunkCells)) + Of("0.125"));
}

TEST(RowStores, TextsThatRepeatAreStoredOnceUnderOneId) {
  const RowStore store = OneColumn(ColumnType::Text, {"انبار", "فروش", "انبار", "", "فروش", Value()});
  const Column& column = store.ColumnAt(0);
  EXPECT_EQ(column.DistinctTexts(), 3U);
  EXPECT_EQ(column.TextId(0), column.TextId(2));
  EXPECT_EQ(column.TextId(1), column.TextId(4));
  EXPECT_NE(column.TextId(0), column.TextId(1));
  EXPECT_EQ(column.TextOfId(column.TextId(1)), "فروش");
}

TEST(RowStores, ManyDistinctTextsOfEveryLengthAreFoundAgain) {
  std::vector<Value> cells;
  for (int round = 0; round < 3; ++round) {
    for (std::size_t i = 0; i < 20000; ++i) {
      cells.push_back(std::string(i % 23, static_cast<char>('a' + i % 26)) + std::to_string(i / 7));
    }
  }
  std::map<std::string, int> distinct;
  for (const Value& cell : cells) ++distinct[cell.AsText()];
  const RowStore store = OneColumn(ColumnType::Text, cells);
  ExpectCells(store, cells);
  EXPECT_LE(distinct.size(), store.ColumnAt(0).DistinctTexts());
}

TEST(RowStores, TextsThatHardlyRepeatAreStoredAsTheyComeWithoutIds) {
  std::vector<Value> cells;
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < 4 * kChunkCells; ++i) {
    cells.push_back(std::to_string(1000000 + i));
    bytes += 7;
  }
  const RowStore store = OneColumn(ColumnType::Text, cells);
  ExpectCells(store, cells);
  EXPECT_LE(store.MemoryBytes(), 2 * bytes);
}

TEST(RowStores, MemoryIsAtMostTwiceTheBytesOfTheValues) {
  RowStore store;
  store.Define({{"Code", ColumnType::Integer},
                {"Price", ColumnType::Decimal},
                {"Wide", ColumnType::Decimal},
                {"Date", ColumnType::Text},
                {"Note", ColumnType::Text}});
  std::size_t bytes = 0;
  for (std::int64_t i = 0; i < 150000; ++i) {
    store.ColumnAt(0).AppendInteger(i);
    store.ColumnAt(1).AppendDecimal(Decimal::FromUnits(Int128{i} * 1'250'000'000));
    store.ColumnAt(2).AppendDecimal(Decimal::FromUnits(Int128{i} * Int128{i} * 1'000'000'000'000'001));
    const std::string date = "1401/" + std::to_string(10 + i % 3) + "/" + std::to_string(10 + i % 19);
    store.ColumnAt(3).AppendText(date);
    const std::string note = "سند شماره " + std::to_string(i);
    store.ColumnAt(4).AppendText(note);
    store.EndRow();
    bytes += 3 * sizeof(std::int64_t) + date.size() + note.size();
  }
  store.Finish();
  EXPECT_LE(store.MemoryBytes(), 2 * bytes);
}

TEST(RowStores, SumsAreExactOverAllMaskedAndListedRows) {
  std::mt19937_64 random(11);
  std::vector<Value> cells;
  for (std::size_t i = 0; i < kChunkCells + 1000; ++i) {
    cells.push_back(random() % 10 == 0 ? Value()
                                       : Value(Decimal::FromUnits(static_cast<std::int64_t>(random()))));
  }
  cells[70] = Of("100000000000000000000000.5");
  const RowStore store = OneColumn(ColumnType::Decimal, cells);
  std::vector<std::uint64_t> mask((cells.size() + 63) / 64);
  std::vector<std::uint32_t> rows;
  Decimal all;
  Decimal some;
  for (std::uint32_t i = 0; i < cells.size(); ++i) {
    all += cells[i].AsDecimal();
    if (random() % 3 != 0) continue;
    mask[i / 64] |= std::uint64_t{1} << (i % 64);
    rows.push_back(i);
    some += cells[i].AsDecimal();
  }
  const Column& column = store.ColumnAt(0);
  EXPECT_EQ(column.SumAll(), all);
  EXPECT_EQ(column.SumMasked(mask.data()), some);
  EXPECT_EQ(column.Sum(rows.data(), rows.size()), some);
}

TEST(RowStores, IntegersSumBeyondSixtyFourBits) {
  const Value most(std::numeric_limits<std::int64_t>::max());
  const RowStore store = OneColumn(ColumnType::Integer, {most, most, most});
  EXPECT_EQ(store.ColumnAt(0).SumAll().ToString(), "27670116110564327421");
}

TEST(RowStores, OnlyASumThatIsItselfOutOfRangeOverflows) {
  const Decimal most = Of("170141183460469231731687303715.884105727");
  const RowStore store = OneColumn(ColumnType::Decimal, {most, most, -most, Of("-1")});
  const Column& column = store.ColumnAt(0);
  EXPECT_EQ(column.SumAll(), most - Decimal(1));
  const std::vector<std::uint32_t> beyond = {0, 1};
  EXPECT_THROW((void)column.Sum(beyond.data(), beyond.size()), std::overflow_error);
}

TEST(RowStores, TextsSumToZero) {
  const RowStore store = OneColumn(ColumnType::Text, {"5", "7"});
  EXPECT_EQ(store.ColumnAt(0).SumAll(), Decimal());
}

TEST(RowStores, ColumnsAreFoundInAnyLetterCase) {
  RowStore store;
  store.Define({{"KalaCode", ColumnType::Integer}, {"Bagh", ColumnType::Decimal}});
  EXPECT_EQ(store.FindColumn("kalacode"), 0U);
  EXPECT_EQ(store.FindColumn("BAGH"), 1U);
  EXPECT_FALSE(store.FindColumn("Kala").has_value());
}

TEST(RowStores, WrongWritingIsRefused) {
  RowStore store;
  store.Define({{"A", ColumnType::Integer}, {"B", ColumnType::Text}});
  EXPECT_THROW(store.ColumnAt(0).AppendText("x"), std::logic_error);
  EXPECT_THROW(store.ColumnAt(1).AppendInteger(1), std::logic_error);
  EXPECT_THROW(store.ColumnAt(0).AppendDecimal(Decimal(1)), std::logic_error);
  store.ColumnAt(0).AppendInteger(1);
  store.EndRow();
  EXPECT_THROW(store.Finish(), std::logic_error);
}

TEST(RowStores, AFinishedStoreTakesNoMoreCells) {
  RowStore store = OneColumn(ColumnType::Integer, {1});
  EXPECT_THROW(store.ColumnAt(0).AppendInteger(2), std::logic_error);
  RowStore texts = OneColumn(ColumnType::Text, {"a"});
  EXPECT_THROW(texts.ColumnAt(0).AppendText("b"), std::logic_error);
  EXPECT_NO_THROW(store.Finish());
}

TEST(RowStores, ReadingBeyondTheRowsIsRefused) {
  const RowStore store = OneColumn(ColumnType::Integer, {1});
  EXPECT_THROW((void)store.ColumnAt(0).Integer(1), std::out_of_range);
  EXPECT_THROW((void)store.Cell(0, 1), std::out_of_range);
}

// Nulls, texts that repeat and texts that hardly do, wide decimals; several chunks.
TEST(RowStores, RowsOfOtherStoresArePutBehind) {
  const auto write = [](RowStore& store, std::size_t from, std::size_t to) {
    store.Define({{"A", ColumnType::Integer},
                  {"B", ColumnType::Text},
                  {"C", ColumnType::Text},
                  {"D", ColumnType::Decimal}});
    for (std::size_t i = from; i < to; ++i) {
      if (i % 11 == 3) {
        for (std::size_t column = 0; column < 4; ++column) store.ColumnAt(column).AppendNull();
      } else {
        store.ColumnAt(0).AppendInteger(static_cast<std::int64_t>(i));
        store.ColumnAt(1).AppendText("نام " + std::to_string(i % 40));
        store.ColumnAt(2).AppendText("شرح " + std::to_string(i));
        store.ColumnAt(3).AppendDecimal(i % 70'000 == 5 ? Of("123456789012345678901.5")
                                                        : Decimal(static_cast<std::int64_t>(i)));
      }
      store.EndRow();
    }
    store.Finish();
  };
  constexpr std::size_t kRows = 150'000;
  RowStore whole;
  write(whole, 0, kRows);
  RowStore joined;
  joined.Define(whole.Columns());
  const std::size_t ends[] = {0, 1, 5'000, 5'000, 70'000, 136'000, kRows};
  for (std::size_t i = 0; i + 1 < std::size(ends); ++i) {
    RowStore part;
    write(part, ends[i], ends[i + 1]);
    joined.Append(part);
  }
  joined.Finish();
  ASSERT_EQ(joined.Count(), kRows);
  for (std::size_t row = 0; row < kRows; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      ASSERT_EQ(joined.Cell(row, column), whole.Cell(row, column)) << row << " " << column;
    }
  }
  EXPECT_EQ(joined.ColumnAt(1).DistinctTexts(), whole.ColumnAt(1).DistinctTexts());
  EXPECT_LT(joined.MemoryBytes(), whole.MemoryBytes() * 11 / 10);
}

TEST(RowStores, RowsOfOtherColumnsAreRefused) {
  RowStore store;
  store.Define({{"A", ColumnType::Integer}});
  EXPECT_THROW(store.Append(OneColumn(ColumnType::Text, {"a"})), std::logic_error);
  EXPECT_THROW(store.Append(RowStore()), std::logic_error);
}

TEST(RowStores, ASmallResultTakesLittleMemory) {
  const RowStore store = OneColumn(ColumnType::Text, {"a", "b"});
  EXPECT_LT(store.MemoryBytes(), 4096U);
}

}  // namespace
}  // namespace goods
