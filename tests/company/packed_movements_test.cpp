// Packed movements: what goes in comes out, what is no cell is not read, and reports say the same with and
// without them.
#include "company/embedded/packed_movements.h"

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "company/company.h"
#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

struct PackedRow {
  std::string date;
  std::int64_t store = 0;
  std::int64_t type = 0;
  std::int64_t quantity = 0;
  std::int64_t cost = 0;
  std::int64_t average = 0;
};

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();

// Rows in the order of their dates. size tells how large numbers get: 0 always the same, 1 whole and small, 2
// with decimals, 3 anything.
std::vector<PackedRow> SomeRows(std::mt19937_64& random, std::size_t count, int size) {
  const auto number = [&]() -> std::int64_t {
    switch (size) {
      case 0:
        return -7'000'000'000;
      case 1:
        return (static_cast<std::int64_t>(random() % 400) - 200) * 1'000'000'000;
      case 2:
        return static_cast<std::int64_t>(random() % 4'000'000'000'000) - 2'000'000'000'000;
      default:
        return random() % 9 == 0 ? kLeast : random() % 9 == 0 ? kMost : static_cast<std::int64_t>(random());
    }
  };
  std::vector<PackedRow> rows;
  std::int64_t day = 13'990'101;
  std::int64_t average = 0;
  for (std::size_t i = 0; i < count; ++i) {
    day += static_cast<std::int64_t>(random() % 3);
    PackedRow row{DateOfPacked(day),
                  size == 3 ? number() : static_cast<std::int64_t>(random() % 7),
                  static_cast<std::int64_t>(random() % 26),
                  number(),
                  0,
                  0};
    row.cost = random() % 2 == 0 ? average : number();
    if (random() % 2 == 0) average = number();
    row.average = average;
    rows.push_back(row);
  }
  return rows;
}

std::vector<std::string> Packed(const std::vector<PackedRow>& rows) {
  MovementPacker packer;
  for (const PackedRow& row : rows) {
    packer.Add(row.date, row.store, row.type, Decimal::FromUnits(row.quantity), Decimal::FromUnits(row.cost),
               Decimal::FromUnits(row.average));
  }
  return packer.TakeCells();
}

void ExpectSame(const std::vector<PackedRow>& rows, std::size_t first, const std::string& bytes) {
  PackedMovements cell;
  ASSERT_TRUE(cell.Open(bytes.data(), bytes.size()));
  const PackedRows all{cell.Rows() / 3, cell.Rows()};
  std::size_t next = all.first;
  cell.ForEach<true>(all, [&](std::size_t at, const CountedMovement& movement) {
    const PackedRow& row = rows[first + at];
    EXPECT_EQ(at, next++);
    EXPECT_EQ(movement.store, row.store);
    EXPECT_EQ(movement.type, row.type);
    EXPECT_EQ(movement.quantity, row.quantity);
    EXPECT_TRUE(movement.cost == row.cost);
    EXPECT_EQ(cell.AverageAfter(at), row.average);
    EXPECT_EQ(DateOfPacked(cell.DateAt(at)), row.date);
  });
  EXPECT_EQ(next, cell.Rows());
  for (const std::size_t at : {std::size_t{0}, cell.Rows() / 2, cell.Rows() - 1}) {
    const std::int64_t day = cell.DateAt(at);
    std::size_t before = 0;
    std::size_t upTo = 0;
    for (std::size_t i = 0; i < cell.Rows(); ++i) {
      before += rows[first + i].date < DateOfPacked(day) ? 1 : 0;
      upTo += rows[first + i].date <= DateOfPacked(day) ? 1 : 0;
    }
    EXPECT_EQ(cell.Before(day), before);
    EXPECT_EQ(cell.UpTo(day), upTo);
  }
}

TEST(PackedMovementsTest, WhatGoesInComesOut) {
  std::mt19937_64 random(1);
  for (const std::size_t count : std::initializer_list<std::size_t>{1, 2, 7, 8, 9, 63, 64, 65, 400}) {
    for (int size = 0; size <= 3; ++size) {
      const std::vector<PackedRow> rows = SomeRows(random, count, size);
      const std::vector<std::string> cells = Packed(rows);
      ASSERT_EQ(cells.size(), 1U);
      ExpectSame(rows, 0, cells[0]);
      // Small numbers lie in few bytes.
      if (size == 0 && count == 400) {
        EXPECT_LT(cells[0].size(), count * 6);
      }
    }
  }
}

TEST(PackedMovementsTest, AGoodWithManyHasSeveralCells) {
  std::mt19937_64 random(2);
  std::vector<PackedRow> rows = SomeRows(random, MovementPacker::kMostRows + 100, 1);
  const std::vector<std::string> cells = Packed(rows);
  ASSERT_EQ(cells.size(), 2U);
  PackedMovements cell;
  ASSERT_TRUE(cell.Open(cells[0].data(), cells[0].size()));
  EXPECT_EQ(cell.Rows(), MovementPacker::kMostRows);
  ExpectSame(rows, MovementPacker::kMostRows, cells[1]);
}

TEST(PackedMovementsTest, WhatDoesNotFitIsNotPacked) {
  std::mt19937_64 random(3);
  const std::vector<PackedRow> rows = SomeRows(random, 5, 2);
  EXPECT_TRUE(Packed({}).empty());
  for (const char* date : {"", "1402/1/01", "1402/01/011", "1402-01-01", "140a/01/01", "۱۴۰۲/۰۱/۰۱"}) {
    std::vector<PackedRow> spoiled = rows;
    spoiled[2].date = date;
    EXPECT_TRUE(Packed(spoiled).empty()) << date;
  }
  const Decimal wide = Decimal::FromUnits(Int128{kMost} + 1);
  for (int which = 0; which < 3; ++which) {
    MovementPacker packer;
    packer.Add("1402/01/01", 1, 1, Decimal(1), Decimal(1), Decimal(1));
    packer.Add("1402/01/01", 1, 1, which == 0 ? wide : Decimal(1), which == 1 ? wide : Decimal(1),
               which == 2 ? wide : Decimal(1));
    packer.Add("1402/01/01", 1, 1, Decimal(1), Decimal(1), Decimal(1));
    EXPECT_TRUE(packer.TakeCells().empty()) << which;
  }
  EXPECT_FALSE(PlaceOfPacked(kMost));
  EXPECT_FALSE(PlaceOfPacked(kLeast));
  EXPECT_EQ(PlaceOfPacked(-3), -192);
}

// Whatever is read, it is read inside the bytes: the sanitizers would tell.
TEST(PackedMovementsTest, BytesThatAreNoCellAreRefusedOrReadWithin) {
  std::mt19937_64 random(4);
  const std::string good = Packed(SomeRows(random, 90, 2))[0];
  PackedMovements cell;
  for (std::size_t size = 0; size < good.size(); ++size) {
    const std::vector<char> part(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_FALSE(cell.Open(part.data(), part.size())) << size;
  }
  int read = 0;
  for (int i = 0; i < 20'000; ++i) {
    std::vector<char> bytes(good.begin(), good.end());
    const std::size_t within = i % 2 == 0 ? bytes.size() : 73;
    for (int change = 0; change < 1 + i % 3; ++change) bytes[random() % within] = static_cast<char>(random());
    if (!cell.Open(bytes.data(), bytes.size())) continue;
    ++read;
    std::uint64_t sum = 0;
    cell.ForEach<true>({0, cell.Rows()}, [&](std::size_t row, const CountedMovement& movement) {
      sum += static_cast<std::uint64_t>(movement.cost) + static_cast<std::uint64_t>(cell.AverageAfter(row));
    });
    EXPECT_LE(cell.UpTo(static_cast<std::int64_t>(sum % 100'000'000)), cell.Rows());
  }
  EXPECT_GT(read, 1000);
}

TEST(PackedMovementsTest, ReportsSayTheSameWithoutThem) {
  const TestFile file("packed.company");
  const TestFile bare("card.company");
  for (const TestFile* copy : {&file, &bare}) std::filesystem::copy_file(SmallDemoPath(), copy->Path());
  Database(bare.Path(), SQLITE_OPEN_READWRITE).Run("DELETE FROM PackedMovements");
  ASSERT_GT(Database(file.Path(), SQLITE_OPEN_READONLY).AskInteger("SELECT count(*) FROM PackedMovements"),
            50);
  const auto packed = OpenCompany(file.Path())->OpenConnection();
  const auto cards = OpenCompany(bare.Path())->OpenConnection();
  const char* const dates[] = {"", "0000/00/00", "1401/06/31", "1402/03/05", "1402/1", "zz", "9999/99/99"};
  for (const std::string from : dates) {
    for (const std::string to : dates) {
      const std::string ends = "'" + from + "', @ToDate='" + to + "'";
      for (const std::string& statement :
           {"exec GoodInf_sp @EffectiveDate1='" + from + "', @EffectiveDate2='" + to + "'",
            "exec GoodInf_sp @StoreCode=2, @EffectiveDate1='" + from + "', @EffectiveDate2='" + to + "'",
            "exec GoodInf_sp @StoreCode=2, @NotStoreCode=1, @EffectiveDate1='" + from +
                "', @EffectiveDate2='" + to + "'",
            "exec GoodsAsset_Store_SP @CalcBefore=1, @FromDate=" + ends,
            "Exec GoodKardex_Overall_Tedad @CalcBeforeDatePeriod=1, @FromDate=" + ends,
            "Exec GoodKardex_Overall_Money @CalcBeforeDatePeriod=1, @anbarcode=3, @FromDate=" + ends}) {
        EXPECT_EQ(Ask(*packed, statement), Ask(*cards, statement)) << statement;
      }
    }
  }
}

TEST(PackedMovementsTest, ADamagedCellEndsTheStatementAndNotTheProgram) {
  const TestFile file("damaged.company");
  std::filesystem::copy_file(SmallDemoPath(), file.Path());
  Database(file.Path(), SQLITE_OPEN_READWRITE)
      .Run("UPDATE PackedMovements SET Data = zeroblob(200) WHERE Place = 3 * 64");
  const auto connection = OpenCompany(file.Path())->OpenConnection();
  EXPECT_FALSE(Refusal(*connection, "Exec GoodKardex_Overall_Tedad @FromDate='1401/01/01'").empty());
  EXPECT_FALSE(Refusal(*connection, "exec GoodInf_sp @EffectiveDate1='1401/01/01'").empty());
  EXPECT_TRUE(Refusal(*connection, "exec GoodInf_sp").empty());
}

TEST(PackedMovementsTest, AnOlderCompanyIsPackedWhenItIsOpened) {
  const TestFile file("older.company");
  std::filesystem::copy_file(SmallDemoPath(), file.Path());
  constexpr char kAll[] = "SELECT group_concat(Place || hex(Data)) FROM PackedMovements";
  const std::string written = Database(file.Path(), SQLITE_OPEN_READONLY).AskText(kAll);
  Database(file.Path(), SQLITE_OPEN_READWRITE).Run(kMakeOlder);
  OpenCompany(file.Path());
  EXPECT_TRUE(Database(file.Path(), SQLITE_OPEN_READONLY).AskText(kAll) == written);
}

}  // namespace
}  // namespace goods
