// The periods beside a range of dates.
#include "desktop/views/quick_periods.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

namespace goods {
namespace {

std::map<std::string, std::string> PeriodsOf(const JalaliDate& today) {
  std::map<std::string, std::string> periods;
  for (const QuickPeriod& period : QuickPeriods(today))
    periods[period.caption] = FormatJalali(period.from) + "-" + FormatJalali(period.to);
  return periods;
}

TEST(QuickPeriods, EachHoldsTodayAndTheOneBeforeItEndsTheDayBefore) {
  auto periods = PeriodsOf({1403, 5, 17});  // a Wednesday
  EXPECT_EQ(periods["امروز"], "1403/05/17-1403/05/17");
  EXPECT_EQ(periods["دیروز"], "1403/05/16-1403/05/16");
  EXPECT_EQ(periods["این هفته"], "1403/05/13-1403/05/19");
  EXPECT_EQ(periods["هفته پیش"], "1403/05/06-1403/05/12");
  EXPECT_EQ(periods["این ماه"], "1403/05/01-1403/05/31");
  EXPECT_EQ(periods["ماه پیش"], "1403/04/01-1403/04/31");
  EXPECT_EQ(periods["این فصل"], "1403/04/01-1403/06/31");
  EXPECT_EQ(periods["فصل پیش"], "1403/01/01-1403/03/31");
  EXPECT_EQ(periods["سال مالی جاری"], "1403/01/01-1403/12/30");
  EXPECT_EQ(periods["سال مالی پیش"], "1402/01/01-1402/12/29");
}

TEST(QuickPeriods, AtTheTurnOfAYearTheOnesBeforeAreOfTheOldYear) {
  auto periods = PeriodsOf({1404, 1, 1});  // the year before is a leap year
  EXPECT_EQ(periods["دیروز"], "1403/12/30-1403/12/30");
  EXPECT_EQ(periods["ماه پیش"], "1403/12/01-1403/12/30");
  EXPECT_EQ(periods["فصل پیش"], "1403/10/01-1403/12/30");
  EXPECT_EQ(periods["سال مالی پیش"], "1403/01/01-1403/12/30");
}

TEST(QuickPeriods, OfEveryDayOfFiveYearsThePairsTouchAndHoldIt) {
  const std::int64_t first = DaysFromJalali({1400, 1, 1});
  for (std::int64_t day = first; day < first + 5 * 366; ++day) {
    const JalaliDate today = JalaliFromDays(day);
    const auto periods = QuickPeriods(today);
    for (std::size_t i = 0; i < periods.size(); i += 2) {
      const QuickPeriod& now = periods[i];
      const QuickPeriod& before = periods[i + 1];
      EXPECT_LE(now.from, today) << now.caption << FormatJalali(today);
      EXPECT_GE(now.to, today) << now.caption << FormatJalali(today);
      EXPECT_LE(before.from, before.to);
      EXPECT_EQ(DaysFromJalali(before.to) + 1, DaysFromJalali(now.from))
          << now.caption << FormatJalali(today);
    }
    EXPECT_EQ(JalaliWeekday(periods[2].from), 0);
  }
}

}  // namespace
}  // namespace goods
