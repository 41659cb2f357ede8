// Hearing of a statement's progress, and stopping it.
#include <optional>
#include <utility>

#include "company_fixture.h"

namespace goods {
namespace {

class Listener : public IStatementProgress {
 public:
  explicit Listener(std::size_t stopAt = SIZE_MAX) : stopAt_(stopAt) {}
  bool Progress(std::size_t rows) override {
    EXPECT_GE(rows, last);
    largestStep = std::max(largestStep, rows - last);
    last = rows;
    ++calls;
    if (throws) throw std::runtime_error("listener");
    return rows < stopAt_;
  }
  std::size_t last = 0;
  std::size_t largestStep = 0;
  int calls = 0;
  bool throws = false;

 private:
  std::size_t stopAt_;
};

class ProgressTest : public ::testing::Test {
 protected:
  std::unique_ptr<IConnection> connection_ = OpenCompany(SmallDemoPath())->OpenConnection();
};

TEST_F(ProgressTest, RowsAreToldAtLeastEveryFourThousand) {
  Listener listener;
  RowStore rows;
  connection_->Open("Select * from Kardex", rows, &listener);
  EXPECT_EQ(rows.Count(), 4000U);
  EXPECT_GE(listener.calls, 3);
  EXPECT_LE(listener.largestStep, 4096U);
}

TEST_F(ProgressTest, AStatementIsStoppedBetweenRows) {
  Listener listener(2000);
  RowStore rows;
  EXPECT_THROW(connection_->Open("Select * from Kardex", rows, &listener), StatementCancelled);
  EXPECT_LT(listener.last, 3100U);
}

TEST_F(ProgressTest, AStatementIsStoppedBeforeItsFirstRow) {
  Listener listener(0);
  RowStore rows;
  EXPECT_THROW(connection_->Open("Select sum(Tedad) as s from Kardex", rows, &listener), StatementCancelled);
  EXPECT_EQ(listener.calls, 1);
  EXPECT_EQ(rows.Count(), 0U);
}

TEST_F(ProgressTest, TheConnectionIsUsableAfterAStop) {
  Listener listener(0);
  RowStore rows;
  EXPECT_THROW(connection_->Open("Exec Kardex_Proc 12", rows, &listener), StatementCancelled);
  EXPECT_GT(AskRows(*connection_, "Exec Kardex_Proc 12").Count(), 1000U);
}

// Of statements and of procedures.
TEST_F(ProgressTest, TheFirstRowsComeBeforeTheOthersHaveBeenRead) {
  class Wanting : public Listener {
   public:
    std::size_t FirstRowsWanted(std::size_t rows) override { return rows >= 150 && !first ? 150 : 0; }
    void FirstRows(RowStore rows) override { first = std::move(rows); }
    std::optional<RowStore> first;
  };
  for (const char* statement : {"Select * from Kardex", "Exec Kardex_Proc 12", "Exec srKardex"}) {
    Wanting listener;
    RowStore rows;
    connection_->Open(statement, rows, &listener);
    ASSERT_TRUE(listener.first) << statement;
    ASSERT_EQ(listener.first->Count(), 150U) << statement;
    ASSERT_GT(rows.Count(), 1000U) << statement;
    ASSERT_EQ(listener.first->Columns().size(), rows.Columns().size());
    for (std::size_t row = 0; row < 150; ++row)
      for (std::size_t column = 0; column < rows.Columns().size(); ++column)
        ASSERT_EQ(listener.first->Cell(row, column), rows.Cell(row, column)) << statement << row << column;
  }
}

TEST_F(ProgressTest, WhatTheListenerThrowsComesOut) {
  Listener listener;
  listener.throws = true;
  RowStore rows;
  EXPECT_THROW(connection_->Open("Select sum(Tedad) as s from Kardex", rows, &listener), std::runtime_error);
  EXPECT_GT(AskRows(*connection_, "Exec Kardex_Proc 12").Count(), 1000U);
}

}  // namespace
}  // namespace goods
