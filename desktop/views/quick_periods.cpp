#include "desktop/views/quick_periods.h"

namespace goods {
namespace {

constexpr int kMonthsOfYear = 12;
constexpr int kSeasonMonths = 3;

JalaliDate DaysLater(const JalaliDate& date, int days) { return JalaliFromDays(DaysFromJalali(date) + days); }

// The first day of that month, counted over the ends of years.
JalaliDate FirstOf(int year, int month) {
  while (month < 1) {
    month += kMonthsOfYear;
    --year;
  }
  return {year, month, 1};
}

// So many whole months from a first day on.
QuickPeriod Months(const char* caption, const JalaliDate& from, int count) {
  const int last = from.month + count - 1;
  return {caption, from, {from.year, last, JalaliMonthLength(from.year, last)}};
}

}  // namespace

std::array<QuickPeriod, 10> QuickPeriods(const JalaliDate& today) {
  const JalaliDate yesterday = DaysLater(today, -1);
  const JalaliDate saturday = DaysLater(today, -JalaliWeekday(today));
  const int season = (today.month - 1) / kSeasonMonths * kSeasonMonths + 1;
  return {{
      {"امروز", today, today},
      {"دیروز", yesterday, yesterday},
      {"این هفته", saturday, DaysLater(saturday, 6)},
      {"هفته پیش", DaysLater(saturday, -7), DaysLater(saturday, -1)},
      Months("این ماه", FirstOf(today.year, today.month), 1),
      Months("ماه پیش", FirstOf(today.year, today.month - 1), 1),
      Months("این فصل", FirstOf(today.year, season), kSeasonMonths),
      Months("فصل پیش", FirstOf(today.year, season - kSeasonMonths), kSeasonMonths),
      Months("سال مالی جاری", FirstOf(today.year, 1), kMonthsOfYear),
      Months("سال مالی پیش", FirstOf(today.year - 1, 1), kMonthsOfYear),
  }};
}

}  // namespace goods
