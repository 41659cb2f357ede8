// The first rows of a statement that is still running.
#include "host/data/first_rows.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "decimal_of.h"
#include "fake_connection.h"
#include "host/data/blocking_work.h"
#include "host/data/column_chunk.h"
#include "host/data/query.h"

namespace goods {
namespace {

using test::Of;

const std::vector<ColumnInfo> kColumns = {
    {"Radif", ColumnType::Integer}, {"Name", ColumnType::Text}, {"Tedad", ColumnType::Decimal}};

test::Row RowAt(std::size_t row) {
  const auto number = static_cast<std::int64_t>(row);
  if (row % 5 == 3) return {number, Value(), Value()};
  return {number, row % 2 == 0 ? "خرید" : "فروش", row % 7 == 0 ? Of("123456789012345.5") : Decimal(number)};
}

void AddRows(RowStore& rows, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const test::Row row = RowAt(rows.Count());
    for (std::size_t column = 0; column < row.size(); ++column)
      test::Append(rows.ColumnAt(column), row[column]);
    rows.EndRow();
  }
}

void ExpectFirstRows(const RowStore& rows, std::size_t count) {
  ASSERT_EQ(rows.Count(), count);
  ASSERT_EQ(rows.Columns().size(), kColumns.size());
  for (std::size_t row = 0; row < count; ++row) {
    const test::Row expected = RowAt(row);
    for (std::size_t column = 0; column < expected.size(); ++column)
      ASSERT_EQ(rows.Cell(row, column), expected[column]) << row << " " << column;
  }
}

TEST(FirstRows, TheHeadOfAStoreThatIsBeingWrittenHoldsItsRowsAsTheyWillBe) {
  for (const std::size_t written : std::initializer_list<std::size_t>{0, 1, 300}) {
    RowStore rows;
    rows.Define(kColumns);
    AddRows(rows, written);
    ExpectFirstRows(rows.Head(100), std::min<std::size_t>(written, 100));
    AddRows(rows, 5);  // the store goes on as if nobody had looked
    rows.Finish();
    ExpectFirstRows(rows, written + 5);
    ExpectFirstRows(rows.Head(SIZE_MAX), written + 5);
  }
}

TEST(FirstRows, AHeadReachesOverTheBordersOfChunks) {
  RowStore rows;
  rows.Define({{"Radif", ColumnType::Integer}, {"Tedad", ColumnType::Decimal}});
  for (std::size_t row = 0; row < kChunkCells + 40; ++row) {
    rows.ColumnAt(0).AppendInteger(static_cast<std::int64_t>(row));
    rows.ColumnAt(1).AppendDecimal(Decimal(static_cast<std::int64_t>(row) * 2));
    rows.EndRow();
  }
  const RowStore head = rows.Head(kChunkCells + 20);
  ASSERT_EQ(head.Count(), kChunkCells + 20);
  for (std::size_t row = kChunkCells - 20; row < head.Count(); ++row) {
    EXPECT_EQ(head.Cell(row, 0), Value(static_cast<std::int64_t>(row)));
    EXPECT_EQ(head.Cell(row, 1), Value(Decimal(static_cast<std::int64_t>(row) * 2)));
  }
}

TEST(FirstRows, ARowThatHasNotEndedIsNotThereYet) {
  RowStore rows;
  rows.Define(kColumns);
  AddRows(rows, 4);
  rows.ColumnAt(0).AppendInteger(77);
  ExpectFirstRows(rows.Head(100), 4);
}

// Tells its listener the first rows after each of the counts, and then what the test does.
class TellingConnection : public IConnection {
 public:
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override {
    listened = progress != nullptr;
    into.Define(kColumns);
    for (const std::size_t count : counts) {
      AddRows(into, count - into.Count());
      if (progress == nullptr) continue;
      TellFirstRows(*progress, into);
      if (told) told();
    }
    if (cancelled) throw StatementCancelled("stopped", std::string(statement));
    into.Finish();
  }
  void Execute(std::string_view /*statement*/, IStatementProgress* /*progress*/) override {}

  std::vector<std::size_t> counts = {100};
  std::function<void()> told;
  bool cancelled = false;
  bool listened = false;
};

class FirstRowsOfAQuery : public ::testing::Test {
 protected:
  FirstRowsOfAQuery() {
    query_.SetSQL("Exec srKardex");
    came_ = query_.FirstRowsCame.Connect([this] {
      const TADOQuery::FirstRowsScope scope(&query_);
      ASSERT_TRUE(scope.Shown());
      seen_.clear();
      EXPECT_FALSE(query_.RecNo().has_value());
      for (std::size_t position = 0; position < query_.RecordCount(); ++position)
        seen_.push_back(query_.Cell(position, *query_.FindField("Radif")).AsInteger());
      ++times_;
    });
  }

  TellingConnection connection_;
  TADOQuery query_{nullptr, "KardexSearch_QRY", connection_};
  std::vector<std::int64_t> seen_;
  int times_ = 0;
  Subscription came_;
};

TEST_F(FirstRowsOfAQuery, AreSeenInTheScopeAloneAndTheQueryIsClosedBesideIt) {
  int looks = 0;
  int changes = 0;
  const Subscription changed = query_.Changed.Connect([&] { ++changes; });
  query_.DisableControls();
  connection_.told = [&] {
    EXPECT_TRUE(query_.Opening());
    EXPECT_FALSE(query_.Active());
    EXPECT_TRUE(query_.IsEmpty());
    EXPECT_EQ(query_.TotalCount(), 0U);
    EXPECT_TRUE(query_.FieldByName("Radif").IsNull());
    EXPECT_EQ(query_.Sum("Tedad"), Decimal());
    ++looks;
  };
  query_.Open();
  EXPECT_EQ(looks, 1);
  EXPECT_EQ(times_, 1);
  EXPECT_EQ(seen_.size(), 100U);
  EXPECT_EQ(changes, 0);
  query_.EnableControls();
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(query_.Opening());
  EXPECT_EQ(query_.RecordCount(), 100U);
  EXPECT_FALSE(TADOQuery::FirstRowsScope(&query_).Shown());  // open: the rows themselves
}

TEST_F(FirstRowsOfAQuery, AreNarrowedOrderedAndWorkedOutAsTheWholeWillBe) {
  query_.AddComputed({"Twice", ColumnType::Integer}, [](std::size_t row, const RowStore& rows) {
    return Value(rows.Cell(row, 0).AsInteger() * 2);
  });
  query_.SetFilter("(Name = 'خرید')");
  query_.SetSort("Twice DESC");
  connection_.counts = {20};
  query_.Open();
  EXPECT_EQ(seen_, (std::vector<std::int64_t>{16, 14, 12, 10, 6, 4, 2, 0}));
  EXPECT_EQ(query_.Filter(), "(Name = 'خرید')");
}

TEST_F(FirstRowsOfAQuery, AFilterOrSortOfOtherFieldsIsForTheWholeToDrop) {
  query_.SetFilter("(Foreign = 1)");
  query_.SetSort("Foreign");
  connection_.told = [&] {
    EXPECT_EQ(query_.Filter(), "(Foreign = 1)");
    EXPECT_EQ(query_.Sort(), "Foreign");
  };
  query_.Open();
  EXPECT_EQ(seen_.size(), 100U);
  EXPECT_EQ(query_.Filter(), "");
}

TEST_F(FirstRowsOfAQuery, MoreAreWantedUntilTheyFillAScreen) {
  connection_.counts = {10, 10, 11, 300, 2000};
  query_.Open();
  EXPECT_EQ(times_, 3);
  EXPECT_EQ(seen_.size(), 128U);
}

TEST_F(FirstRowsOfAQuery, RowsThatAFilterHidesAreAskedForAtEveryDoubling) {
  query_.SetFilter("(Radif >= 1000)");
  connection_.counts = {200, 210, 300, 600, 1100, 1300, 1301, 5000, 10000};
  std::vector<std::size_t> seen;
  connection_.told = [&] { seen.push_back(seen_.size()); };
  query_.Open();
  EXPECT_EQ(seen, (std::vector<std::size_t>{0, 0, 0, 0, 0, 300, 300, 300, 300}));
  EXPECT_EQ(times_, 4);  // at 200 for a screen, at 300, 600 and 1300
}

TEST_F(FirstRowsOfAQuery, AreGoneWithACancelledStatement) {
  connection_.cancelled = true;
  EXPECT_THROW(query_.Open(), StatementCancelled);
  EXPECT_EQ(times_, 1);
  EXPECT_FALSE(query_.Opening());
  EXPECT_TRUE(query_.Stopped());
  EXPECT_FALSE(TADOQuery::FirstRowsScope(&query_).Shown());
}

TEST_F(FirstRowsOfAQuery, AreNotKeptWhereNobodyListens) {
  came_.Disconnect();
  query_.Open();
  EXPECT_FALSE(connection_.listened);
}

// Wants a number of rows and keeps what it is given.
class Wanting : public IStatementProgress {
 public:
  explicit Wanting(std::size_t wanted) : wanted_(wanted) {}
  bool Progress(std::size_t /*rows*/) override { return true; }
  std::size_t FirstRowsWanted(std::size_t rows) override {
    asked = rows;
    return wanted_;
  }
  void FirstRows(RowStore rows) override { given.emplace_back(std::move(rows)); }
  std::size_t asked = 0;
  std::vector<RowStore> given;

 private:
  std::size_t wanted_;
};

TEST(FirstRows, ListenersWantNoneUnlessTheySay) {
  class Plain : public IStatementProgress {
   public:
    bool Progress(std::size_t /*rows*/) override { return true; }
    void FirstRows(RowStore /*rows*/) override { FAIL() << "nobody wanted any"; }
  } plain;
  RowStore rows;
  rows.Define(kColumns);
  AddRows(rows, 10);
  TellFirstRows(plain, rows);
}

TEST(FirstRows, ARelayHasThemReadyThoughTheDriverBlocksFromThenOn) {
  FirstRowsRelay relay;
  Wanting listener(200);
  RowStore rows;
  rows.Define(kColumns);
  relay.Pass(listener, 0);
  EXPECT_TRUE(listener.given.empty());
  AddRows(rows, 60);
  relay.Offer(rows);
  relay.Pass(listener, 60);
  ASSERT_EQ(listener.given.size(), 1U);
  ExpectFirstRows(listener.given[0], 60);
  EXPECT_EQ(listener.asked, 60U);
  relay.Pass(listener, 60);  // wants more: of the next block
  EXPECT_EQ(listener.given.size(), 1U);
  AddRows(rows, 500);
  relay.Offer(rows);
  relay.Pass(listener, 560);
  ASSERT_EQ(listener.given.size(), 2U);
  ExpectFirstRows(listener.given[1], 200);
}

TEST(FirstRows, ARelayBringsThemFromTheThreadThatReads) {
  struct Job {
    RowStore rows;
    FirstRowsRelay relay;
    BlockingWork::Rows count = std::make_shared<std::atomic<std::size_t>>(0);
    std::atomic<bool> seen{false};
  };
  const auto job = std::make_shared<Job>();
  class Passing : public Wanting {
   public:
    explicit Passing(Job& job) : Wanting(150), job_(job) {}
    bool Progress(std::size_t rows) override {
      job_.relay.Pass(*this, rows);
      if (!given.empty() && given.back().Count() == 150) job_.seen = true;
      return true;
    }

   private:
    Job& job_;
  } listener(*job);
  BlockingWork::Run(
      &listener, job->count,
      [job] {
        job->rows.Define(kColumns);
        while (!job->seen) {
          AddRows(job->rows, 64);
          job->relay.Offer(job->rows);
          job->count->store(job->rows.Count());
          std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        job->rows.Finish();
      },
      [] {});
  ASSERT_TRUE(job->seen);
  ExpectFirstRows(listener.given.back(), 150);
  ExpectFirstRows(job->rows, job->rows.Count());
}

}  // namespace
}  // namespace goods
