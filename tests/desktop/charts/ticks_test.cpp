// Where axes are marked, and what is written there.
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "desktop/charts/chart_ticks.h"
#include "host/core/jalali.h"

namespace goods {
namespace {

double DayOfText(const char* text) { return static_cast<double>(DaysFromJalali(ParseJalali(text).value())); }

std::vector<std::string> TextsOf(const std::vector<DayTick>& ticks) {
  std::vector<std::string> texts;
  for (const DayTick& tick : ticks) texts.push_back(tick.text);
  return texts;
}

using Texts = std::vector<std::string>;

TEST(NumberAxis, HoldsItsFiguresInFewEvenStepsWhateverTheyAre) {
  std::mt19937 random(11);
  for (int i = 0; i < 2000; ++i) {
    const double size = std::pow(10, static_cast<int>(random() % 20) - 6);
    const double a = (static_cast<double>(random()) / random.max() - 0.5) * size;
    const double b = (static_cast<double>(random()) / random.max() - 0.5) * size;
    const int most = 2 + static_cast<int>(random() % 10);
    const NumberAxis axis = AxisFor(a, b, most);
    EXPECT_LE(axis.low, std::min(a, b));
    EXPECT_GE(axis.high, std::max(a, b));
    EXPECT_LE(TicksOf(axis).size(), static_cast<std::size_t>(most) + 1);
    EXPECT_GE(TicksOf(axis).size(), 2U);
    const double first = axis.step / std::pow(10, std::floor(std::log10(axis.step * 1.0001)));
    EXPECT_TRUE(std::abs(first - 1) < 1e-3 || std::abs(first - 2) < 1e-3 || std::abs(first - 5) < 1e-3)
        << axis.step;
  }
}

TEST(NumberAxis, GivesOneFigureRoomAndTakesWhatIsNoNumberForZero) {
  EXPECT_LT(AxisFor(7, 7, 5).low, 7);
  EXPECT_GT(AxisFor(7, 7, 5).high, 7);
  EXPECT_EQ(AxisFor(0, 0, 5).low, 0);
  EXPECT_EQ(AxisFor(0, 0, 5).high, 1);
  EXPECT_EQ(AxisFor(INFINITY, -INFINITY, 5).low, 0);
  EXPECT_EQ(AxisFor(std::nan(""), 10, 5).high, 10);
}

Texts TickTexts(double low, double high) {
  const NumberAxis axis = AxisFor(low, high, 5);
  Texts texts;
  for (const double tick : TicksOf(axis)) texts.push_back(TickText(tick, axis));
  return texts;
}

TEST(NumberAxis, WritesItsTicksShortly) {
  EXPECT_EQ(TickTexts(0, 10), (Texts{"0", "2", "4", "6", "8", "10"}));
  EXPECT_EQ(TickTexts(-1000, 2000), (Texts{"1,000-", "0", "1,000", "2,000"}));
  EXPECT_EQ(TickTexts(0, 0.5), (Texts{"0", "0.1", "0.2", "0.3", "0.4", "0.5"}));
  EXPECT_EQ(TickTexts(0, 5e6), (Texts{"0", "1 میلیون", "2 میلیون", "3 میلیون", "4 میلیون", "5 میلیون"}));
  EXPECT_EQ(TickTexts(0, 2.5e9),
            (Texts{"0", "0.5 میلیارد", "1 میلیارد", "1.5 میلیارد", "2 میلیارد", "2.5 میلیارد"}));
  EXPECT_EQ(TickTexts(0, 1e13).back(), "10 هزار میلیارد");
}

TEST(DayTicks, AreYearsMonthsOrDaysAsThereIsRoom) {
  EXPECT_EQ(TextsOf(DayTicks(DayOfText("1400/05/10"), DayOfText("1404/02/01"), 5)),
            (Texts{"1401", "1402", "1403", "1404"}));
  EXPECT_EQ(TextsOf(DayTicks(DayOfText("1402/11/15"), DayOfText("1403/08/20"), 6)),
            (Texts{"1403/01", "1403/03", "1403/05", "1403/07"}));
  EXPECT_EQ(TextsOf(DayTicks(DayOfText("1402/12/10"), DayOfText("1403/03/05"), 6)),
            (Texts{"1403/01", "1403/02", "1403/03"}));
  EXPECT_EQ(TextsOf(DayTicks(DayOfText("1402/12/27"), DayOfText("1403/01/03"), 10)),
            (Texts{"1402/12/27", "1402/12/28", "1402/12/29", "1403/01/01", "1403/01/02", "1403/01/03"}));
  EXPECT_EQ(TextsOf(DayTicks(DayOfText("1403/01/05"), DayOfText("1403/02/25"), 6)),
            (Texts{"1403/01/11", "1403/01/21", "1403/02/01", "1403/02/11", "1403/02/21"}));
  EXPECT_EQ(TextsOf(DayTicks(DayOfText("1403/01/05"), DayOfText("1403/01/05"), 4)), (Texts{"1403/01/05"}));
}

TEST(DayTicks, AreNeverMoreThanThereIsRoomFor) {
  std::mt19937 random(5);
  for (int i = 0; i < 500; ++i) {
    const double from = DayOfText("1200/01/01") + static_cast<double>(random() % 60'000) + 0.25;
    const double to = from + std::pow(10, random() % 5) * static_cast<double>(1 + random() % 10) / 2;
    const std::size_t most = 1 + random() % 12;
    const std::vector<DayTick> ticks = DayTicks(from, to, most);
    EXPECT_LE(ticks.size(), most);
    for (const DayTick& tick : ticks) {
      EXPECT_GE(tick.day, from);
      EXPECT_LE(tick.day, to);
    }
  }
}

}  // namespace
}  // namespace goods
