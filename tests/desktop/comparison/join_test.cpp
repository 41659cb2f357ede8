// The rows of two periods side by side.
#include <random>

#include <gtest/gtest.h>

#include "desktop/comparison/compared_period.h"
#include "desktop/comparison/compared_rows.h"

namespace goods {
namespace {

struct Good {
  int code;
  const char* name;
  std::optional<int> stock;
};

RowStore RowsOf(const std::vector<Good>& goods) {
  RowStore rows;
  rows.Define({{"Code", ColumnType::Integer}, {"Name", ColumnType::Text}, {"Stock", ColumnType::Decimal}});
  for (const Good& good : goods) {
    rows.ColumnAt(0).AppendInteger(good.code);
    rows.ColumnAt(1).AppendText(good.name);
    if (good.stock) {
      rows.ColumnAt(2).AppendDecimal(Decimal(*good.stock));
    } else {
      rows.ColumnAt(2).AppendNull();
    }
    rows.EndRow();
  }
  rows.Finish();
  return rows;
}

// "12 پیچ|30|20|10|50": the label fields, then the four of the stock; "-" for null.
std::vector<std::string> Joined(const std::vector<Good>& own, const std::vector<Good>& other) {
  JoinedRows ownRows(RowsOf(own));
  JoinedRows otherRows(RowsOf(other));
  TADOQuery first(nullptr, "own", ownRows);
  TADOQuery second(nullptr, "other", otherRows);
  first.Open();
  second.Open();
  const RowStore joined =
      JoinPeriods(first, second, {.key = "Code", .labels = {"Code", "Name"}, .figures = {"Stock"}});
  std::vector<std::string> lines;
  for (std::size_t row = 0; row < joined.Count(); ++row) {
    std::string line = joined.Cell(row, 0).AsText() + " " + joined.Cell(row, 1).AsText();
    for (std::size_t column = 2; column < 6; ++column) {
      const Value value = joined.Cell(row, column);
      line += "|" + (value.IsNull() ? "-" : value.AsText());
    }
    lines.push_back(line);
  }
  return lines;
}

using Lines = std::vector<std::string>;

TEST(ComparedRows, StandBesideEachOtherByTheirKeyWithDifferenceAndPerCent) {
  EXPECT_EQ(Joined({{1, "پیچ", 30}, {2, "مهره", 5}}, {{2, "مهره", 20}, {1, "پیچ", 20}}),
            (Lines{"1 پیچ|30|20|10|50", "2 مهره|5|20|-15|-75"}));
}

TEST(ComparedRows, OfOnePeriodAloneAreThereAndCountAgainstZero) {
  EXPECT_EQ(Joined({{1, "پیچ", 30}}, {{7, "میخ", 8}}), (Lines{"1 پیچ|30|-|30|-", "7 میخ|-|8|-8|-100"}));
  EXPECT_EQ(Joined({}, {{7, "میخ", 8}}), (Lines{"7 میخ|-|8|-8|-100"}));
  EXPECT_EQ(Joined({}, {}), Lines{});
}

TEST(ComparedRows, HaveNoPerCentOfZeroAndThatOfANegativeFigureByItsSize) {
  EXPECT_EQ(Joined({{1, "پیچ", 30}, {2, "مهره", 5}, {3, "میخ", 0}},
                   {{1, "پیچ", 0}, {2, "مهره", -10}, {3, "میخ", std::nullopt}}),
            (Lines{"1 پیچ|30|0|30|-", "2 مهره|5|-10|15|150", "3 میخ|0|-|0|-"}));
  EXPECT_EQ(Joined({{1, "پیچ", 1}}, {{1, "پیچ", 3}}), (Lines{"1 پیچ|1|3|-2|-66.67"}));
}

TEST(ComparedRows, OfOneKeySeveralTimesBelongTogetherInTheirOrder) {
  EXPECT_EQ(Joined({{1, "الف", 1}, {1, "ب", 2}, {1, "پ", 3}}, {{1, "الف", 10}, {1, "ب", 20}}),
            (Lines{"1 الف|1|10|-9|-90", "1 ب|2|20|-18|-90", "1 پ|3|-|3|-"}));
}

// Whatever the rows are, no figure is lost: the sums of both periods stay.
TEST(ComparedRows, KeepTheSumsOfBothPeriods) {
  std::mt19937 random(9);
  for (int round = 0; round < 200; ++round) {
    std::vector<Good> own;
    std::vector<Good> other;
    int ownSum = 0;
    int otherSum = 0;
    for (std::size_t i = 0; i < random() % 30; ++i) {
      own.push_back({static_cast<int>(random() % 20), "", static_cast<int>(random() % 100) - 50});
      ownSum += *own.back().stock;
    }
    for (std::size_t i = 0; i < random() % 30; ++i) {
      other.push_back({static_cast<int>(random() % 20), "", static_cast<int>(random() % 100) - 50});
      otherSum += *other.back().stock;
    }
    JoinedRows ownRows(RowsOf(own));
    JoinedRows otherRows(RowsOf(other));
    TADOQuery first(nullptr, "own", ownRows);
    TADOQuery second(nullptr, "other", otherRows);
    first.Open();
    second.Open();
    JoinedRows joined(JoinPeriods(first, second, {.key = "Code", .labels = {"Code"}, .figures = {"Stock"}}));
    TADOQuery query(nullptr, "joined", joined);
    query.Open();
    const ComparedFields fields("Stock");
    EXPECT_EQ(query.Sum(fields.own), Decimal(ownSum));
    EXPECT_EQ(query.Sum(fields.other), Decimal(otherSum));
    EXPECT_EQ(query.Sum(fields.difference), Decimal(ownSum - otherSum));
    EXPECT_GE(query.RecordCount(), std::max(own.size(), other.size()));
  }
}

TEST(ComparedPeriod, IsAtFirstTheSameDaysOfTheYearBefore) {
  EXPECT_EQ(YearBefore({"1404/01/01", "1404/12/29"}), (ReportPeriod{"1403/01/01", "1403/12/29"}));
  EXPECT_EQ(YearBefore({"1404/03/31", ""}), (ReportPeriod{"1403/03/31", ""}));
  EXPECT_EQ(YearBefore({"", "1403/12/30"}), (ReportPeriod{"", "1402/12/29"}));  // that year has no 30th
  EXPECT_EQ(PeriodText({"1404/01/01", "1404/12/29"}), "1404/01/01 تا 1404/12/29");
  EXPECT_EQ(PeriodText({"", ""}), "همه تاریخ‌ها");
  EXPECT_EQ(PeriodText({"1404/01/01", ""}), "از 1404/01/01");
  EXPECT_EQ(PeriodText({"", "1404/01/01"}), "تا 1404/01/01");
}

}  // namespace
}  // namespace goods
