// Work divided over threads: one answer whatever their number, one state of the file, the failure that a
// single thread would have met, and a stop at once.
#include "company/embedded/divided_reading.h"

#include <algorithm>
#include <filesystem>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/embedded/embedded_connection.h"
#include "company/embedded/procedures.h"
#include "company_fixture.h"

namespace goods {
namespace {

using std::chrono::milliseconds;

// Divided however small the company is, and at once.
Division AtOnce(unsigned threads) {
  return {.threads = threads, .fewestGoods = 2, .patience = milliseconds(0)};
}

struct ReadDivided : ::testing::Test {
  TestFile file{"divided.goods"};

  void SetUp() override { MakeDemoCompany(file.Path(), {.goods = 90, .stores = 3, .movements = 3'000}); }
  Database Open() const { return OpenCompanyDatabase(file.Path(), SQLITE_OPEN_READONLY, Access::Read); }
};

// The codes of the goods, each with the thread that read it.
class CodesRead {
 public:
  void operator()(Database& db, const GoodRange& goods, RowStore& into, ProgressWatch& watch) {
    {
      const std::lock_guard lock(mutex_);
      threads_.insert(std::this_thread::get_id());
      ++ranges_;
    }
    Statement codes = db.Prepare("SELECT Code FROM GoodInf WHERE Code BETWEEN ?1 AND ?2 ORDER BY Code");
    codes.Bind(1, goods.first);
    codes.Bind(2, goods.last);
    if (into.Columns().empty()) into.Define({{"Code", ColumnType::Integer}});
    if (slow) std::this_thread::sleep_for(milliseconds(5));
    while (codes.Step()) {
      if (fails.contains(codes.Integer(0))) throw std::overflow_error(std::to_string(codes.Integer(0)));
      into.ColumnAt(0).AppendInteger(codes.Integer(0));
      into.EndRow();
      watch.Row();
    }
  }
  std::size_t Threads() const { return threads_.size(); }
  int Ranges() const { return ranges_; }

  std::set<std::int64_t> fails;
  bool slow = false;

 private:
  std::mutex mutex_;
  std::set<std::thread::id> threads_;
  int ranges_ = 0;
};

void ExpectCodes(const RowStore& rows, std::int64_t goods) {
  ASSERT_EQ(rows.Count(), static_cast<std::size_t>(goods));
  for (std::size_t i = 0; i < rows.Count(); ++i) {
    ASSERT_EQ(rows.ColumnAt(0).Integer(i), static_cast<std::int64_t>(i) + 1);
  }
}

RowStore ReadCodes(Database& db, DividedReading& reading, CodesRead& codes,
                   IStatementProgress* progress = nullptr) {
  RowStore rows;
  ProgressWatch watch(db.Handle(), progress);
  const auto work = [&](Database& handle) -> DividedReading::RangeReader {
    return
        [&](const GoodRange& goods, RowStore& into, ProgressWatch& own) { codes(handle, goods, into, own); };
  };
  reading.Read(work, rows, watch);
  return rows;
}

TEST_F(ReadDivided, EveryGoodIsReadOnceAndInOrder) {
  for (const unsigned threads : {1U, 2U, 3U, 8U}) {
    Database db = Open();
    DividedReading reading(db, file.Path(), AtOnce(threads));
    CodesRead codes;
    codes.slow = true;
    ExpectCodes(ReadCodes(db, reading, codes), 90);
    EXPECT_EQ(codes.Threads() > 1, threads > 1) << threads;
    EXPECT_EQ(codes.Ranges(), threads == 1 ? 1 : static_cast<int>(threads) * 8);
  }
}

TEST_F(ReadDivided, WhatIsSmallOrQuickIsReadByOneThread) {
  Database db = Open();
  DividedReading fewGoods(db, file.Path(), {.threads = 2, .fewestGoods = 91, .patience = milliseconds(0)});
  CodesRead codes;
  ExpectCodes(ReadCodes(db, fewGoods, codes), 90);
  EXPECT_EQ(codes.Ranges(), 1);
  DividedReading patient(db, file.Path(),
                         {.threads = 2, .fewestGoods = 2, .patience = std::chrono::minutes(1)});
  CodesRead quick;
  ExpectCodes(ReadCodes(db, patient, quick), 90);
  EXPECT_EQ(quick.Threads(), 1U);
}

TEST_F(ReadDivided, FewGoodsAreDividedInALargeFile) {
  Database db = Open();
  const auto size = static_cast<std::int64_t>(std::filesystem::file_size(file.Path()));
  for (const std::int64_t large : {size, size + 1}) {
    DividedReading reading(
        db, file.Path(), {.threads = 2, .fewestGoods = 91, .largeFile = large, .patience = milliseconds(0)});
    CodesRead codes;
    ExpectCodes(ReadCodes(db, reading, codes), 90);
    EXPECT_EQ(codes.Ranges() > 1, large == size);
  }
}

TEST_F(ReadDivided, TheFirstFailureInTheOrderOfGoodsIsTold) {
  for (int i = 0; i < 20; ++i) {
    Database db = Open();
    DividedReading reading(db, file.Path(), AtOnce(3));
    CodesRead codes;
    codes.fails = {30, 31, 50, 89};
    try {
      ReadCodes(db, reading, codes);
      FAIL() << "nothing was thrown";
    } catch (const std::overflow_error& error) {
      EXPECT_STREQ(error.what(), "30");
    }
    codes.fails.clear();
    ExpectCodes(ReadCodes(db, reading, codes), 90);
  }
}

TEST_F(ReadDivided, AListenerThatSaysStopIsObeyedWhileTheOthersRead) {
  class Stopping : public IStatementProgress {
   public:
    bool Progress(std::size_t) override { return false; }
  };
  Database db = Open();
  DividedReading reading(db, file.Path(), AtOnce(4));
  const std::thread::id own = std::this_thread::get_id();
  // The others go on for as long as they are let.
  const auto endless = [&](Database& handle, RowStore& into, ProgressWatch& watch) {
    if (into.Columns().empty()) into.Define({{"n", ColumnType::Integer}});
    Statement count =
        handle.Prepare("WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT n FROM c");
    if (std::this_thread::get_id() != own) {
      while (count.Step()) watch.Row();
    }
    std::this_thread::sleep_for(milliseconds(2));
  };
  Stopping listener;
  RowStore rows;
  ProgressWatch watch(db.Handle(), &listener);
  const auto work = [&](Database& handle) -> DividedReading::RangeReader {
    return [&](const GoodRange&, RowStore& into, ProgressWatch& of) { endless(handle, into, of); };
  };
  EXPECT_THROW(reading.Read(work, rows, watch), Cancelled);
}

TEST_F(ReadDivided, NobodyWritesWhileTheThreadsRead) {
  Database db = Open();
  DividedReading reading(db, file.Path(), AtOnce(2));
  Database writer = OpenCompanyDatabase(file.Path(), SQLITE_OPEN_READWRITE, Access::Write);
  sqlite3_busy_timeout(writer.Handle(), 0);
  int refused = 0;
  RowStore rows;
  ProgressWatch watch(db.Handle(), nullptr);
  std::mutex once;
  const auto write = [&](const GoodRange&, RowStore&, ProgressWatch&) {
    const std::lock_guard lock(once);
    try {
      writer.Run("UPDATE GoodInf SET Name = Name || '!'");
    } catch (const SqliteError& error) {
      if (error.Code() == SQLITE_BUSY) ++refused;
    }
  };
  reading.Read([&](Database&) -> DividedReading::RangeReader { return write; }, rows, watch);
  EXPECT_EQ(refused, 16);
  EXPECT_NO_THROW(writer.Run("UPDATE GoodInf SET Name = Name || '!'"));
}

TEST_F(ReadDivided, AFileWithALogOfItsWritesIsReadByOneThread) {
  {
    Database plain(file.Path(), SQLITE_OPEN_READWRITE);
    ASSERT_EQ(plain.AskText("PRAGMA journal_mode = WAL"), "wal");
  }
  Database db(file.Path(), SQLITE_OPEN_READWRITE);
  DividedReading reading(db, file.Path(), AtOnce(2));
  CodesRead codes;
  ExpectCodes(ReadCodes(db, reading, codes), 90);
  EXPECT_EQ(codes.Ranges(), 1);
}

TEST_F(ReadDivided, GoodsThatCameSinceAreReadToo) {
  Database db = Open();
  DividedReading reading(db, file.Path(), AtOnce(2));
  CodesRead codes;
  ExpectCodes(ReadCodes(db, reading, codes), 90);
  Database writer = OpenCompanyDatabase(file.Path(), SQLITE_OPEN_READWRITE, Access::Write);
  writer.Run("UPDATE GoodInf SET Code = 91000 WHERE Code = 90");
  EXPECT_EQ(ReadCodes(db, reading, codes).ColumnAt(0).Integer(89), 91'000);
}

// Calls of every divided procedure, as reports send them.
const std::vector<std::string> kDivided = {
    "exec GoodInf_sp ",
    "exec GoodInf_sp @EffectiveDate1 = '1401/01/01', @EffectiveDate2 = '1402/12/29'",
    "exec GoodInf_sp @StoreCode = 2, @GoodExistType = 1",
    "exec GoodInf_sp @Code = 12",
    "Exec srKardex",
    "Exec srKardex @FromDate='1402/01/01',@ToDate='1402/06/31'",
    "Exec srKardex @FromCode=11,@ToCode=40,@PerName='ا'",
    "Exec GoodKardex_Overall_Tedad @CalcBeforeDatePeriod=1,@FromDate='1402/01/01'",
    "Exec GoodKardex_Overall_Money @anbarcode=2",
    "Exec GoodKardex_Overall_Money @KalaCode='12',@Reverst=1",
    "exec GoodsAsset_Store_SP @StoreCodes='-1,0,1,2,'",
    "exec GoodsAsset_Store_SP @CalcBefore =1,@ToDate='1403/12/30',@FromDate='1402/01/01'",
    "EXEC AllGoodDetailTransaction ",
    "EXEC AllGoodDetailTransaction @FromDate='1402/01/01',@TitleID=2,@Title='ا'",
    "EXEC GoodDetailTransaction @StoreSeparation=1",
    "EXEC GoodDetailTransaction @HaveAmount=0",
};

TEST_F(ReadDivided, TheAnswerIsTheSameWithAnyNumberOfThreads) {
  EmbeddedConnection alone(file.Path(), false, {.threads = 1});
  std::vector<RowStore> expected;
  for (const std::string& statement : kDivided) expected.push_back(AskRows(alone, statement));
  for (const unsigned threads : {2U, 3U, 8U}) {
    EmbeddedConnection divided(file.Path(), false, AtOnce(threads));
    for (std::size_t i = 0; i < kDivided.size(); ++i) {
      const RowStore rows = AskRows(divided, kDivided[i]);
      const RowStore& same = expected[i];
      ASSERT_EQ(rows.Count(), same.Count()) << kDivided[i];
      ASSERT_GT(rows.Count(), 0U) << kDivided[i];
      ASSERT_EQ(rows.Columns().size(), same.Columns().size()) << kDivided[i];
      for (std::size_t column = 0; column < rows.Columns().size(); ++column) {
        EXPECT_EQ(rows.Columns()[column].name, same.Columns()[column].name);
        for (std::size_t row = 0; row < rows.Count(); ++row) {
          ASSERT_EQ(rows.Cell(row, column), same.Cell(row, column))
              << kDivided[i] << " " << row << " " << rows.Columns()[column].name << " " << threads;
        }
      }
    }
  }
}

TEST_F(ReadDivided, AStoreThatHoldsAnotherAnswerIsWrittenAnew) {
  EmbeddedConnection connection(file.Path(), false, AtOnce(2));
  RowStore rows;
  for (const char* statement :
       {"Exec srKardex", "exec GoodInf_sp ", "Select Code from Stores", "Exec srKardex"}) {
    connection.Open(statement, rows);
    EXPECT_EQ(rows.Count(), AskRows(connection, statement).Count()) << statement;
  }
}

TEST(DividedProcedures, EachIsAmongTheStatementsTried) {
  int divided = 0;
  for (const Procedure& procedure : Procedures()) {
    if (procedure.goodColumn.empty()) continue;
    ++divided;
    EXPECT_TRUE(std::ranges::any_of(kDivided, [&](const std::string& call) {
      return call.find(procedure.name) != std::string::npos;
    })) << procedure.name;
  }
  EXPECT_EQ(divided, 7);
}

TEST(DividedProcedures, WhatRunsFromRowToRowIsNotDivided) {
  EXPECT_THROW(ReadProcedure("p",
                             "-- divided by k.Kala\n-- column n decimal running\n"
                             "SELECT Tedad FROM Kardex k WHERE 1\n  AND {goods}\n"),
               std::logic_error);
  EXPECT_THROW(ReadProcedure("p", "-- divided by k.Kala\n-- column n integer\nSELECT Radif FROM Kardex k\n"),
               std::logic_error);
  EXPECT_THROW(ReadProcedure("p", "-- divided k.Kala\nSELECT 1\n  AND {goods}\n"), std::logic_error);
}

}  // namespace
}  // namespace goods
