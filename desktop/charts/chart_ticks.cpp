#include "desktop/charts/chart_ticks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/core/jalali.h"
#include "host/data/decimal.h"
#include "host/data/display_format.h"

namespace goods {
namespace {

constexpr int kMonths = 12;
constexpr int kShortestMonth = 29;  // days
// Steps of months, then of years.
constexpr std::array<int, 15> kMonthSteps{1,   2,   3,    6,    12,   24,    60,   120,
                                          240, 600, 1200, 2400, 6000, 12000, 24000};
constexpr std::array<int, 4> kDaySteps{1, 2, 5, 10};

struct Unit {
  double size;
  const char* name;
};
constexpr std::array<Unit, 4> kUnits{{{1e12, " هزار میلیارد"}, {1e9, " میلیارد"}, {1e6, " میلیون"}, {1, ""}}};

// Months since the year 0.
int MonthOf(double day) {
  const JalaliDate date = JalaliFromDays(static_cast<std::int64_t>(std::floor(day)));
  return date.year * kMonths + date.month - 1;
}
JalaliDate FirstDayOf(int month) { return {month / kMonths, month % kMonths + 1, 1}; }
double DayOf(const JalaliDate& date) { return static_cast<double>(DaysFromJalali(date)); }

std::vector<DayTick> MonthTicks(double from, double to, int step) {
  std::vector<DayTick> ticks;
  int month = MonthOf(from);
  month -= month % step;
  for (; DayOf(FirstDayOf(month)) <= to; month += step) {
    const JalaliDate date = FirstDayOf(month);
    if (DayOf(date) < from) continue;
    const std::string text = FormatJalali(date);
    ticks.push_back({DayOf(date), text.substr(0, step % kMonths == 0 ? 4 : 7)});
  }
  return ticks;
}

// Days of each month so far apart from its first; the last step of a month is not cut short.
std::vector<DayTick> SingleDayTicks(double from, double to, int step) {
  std::vector<DayTick> ticks;
  for (auto day = static_cast<std::int64_t>(std::ceil(from)); static_cast<double>(day) <= to; ++day) {
    const JalaliDate date = JalaliFromDays(day);
    if ((date.day - 1) % step != 0) continue;
    if (step > 1 && JalaliMonthLength(date.year, date.month) - date.day + 1 < step - 1) continue;
    ticks.push_back({static_cast<double>(day), FormatJalali(date)});
  }
  return ticks;
}

}  // namespace

NumberAxis AxisFor(double low, double high, int mostSteps) {
  if (!std::isfinite(low)) low = 0;
  if (!std::isfinite(high)) high = 0;
  if (low > high) std::swap(low, high);
  if (low == high) {
    const double room = low == 0 ? 1 : std::abs(low) / 2;
    if (low != 0) low -= room;
    high += room;
  }
  const double rough = (high - low) / std::max(2, mostSteps);
  double step = std::pow(10, std::floor(std::log10(rough)));
  const auto steps = [&](double each) { return std::ceil(high / each) - std::floor(low / each); };
  for (int i = 0; steps(step) > std::max(2, mostSteps); ++i) step *= i % 3 == 1 ? 2.5 : 2;
  return {std::floor(low / step) * step, std::ceil(high / step) * step, step};
}

std::vector<double> TicksOf(const NumberAxis& axis) {
  std::vector<double> ticks;
  const auto count = static_cast<int>(std::lround((axis.high - axis.low) / axis.step));
  for (int i = 0; i <= count; ++i) ticks.push_back(axis.low + i * axis.step);
  return ticks;
}

std::string TickText(double tick, const NumberAxis& axis) {
  const double largest = std::max(std::abs(axis.low), std::abs(axis.high));
  const Unit* unit =
      std::find_if(kUnits.begin(), kUnits.end() - 1, [&](const Unit& each) { return largest >= each.size; });
  if (std::abs(tick) < axis.step / 2) return "0";
  const double shown = tick / unit->size;
  constexpr double kMostShown = 1e15;
  if (std::abs(shown) > kMostShown) return std::to_string(shown);
  const auto decimals = static_cast<int>(std::clamp(-std::floor(std::log10(axis.step / unit->size)), 0., 9.));
  constexpr double kBillionths = 1e9;
  const Decimal exact = Decimal::FromUnits(static_cast<Int128>(std::round(shown * kBillionths)));
  static const DisplayFormat kFormat("#,0.#########;#,0.#########-;0");
  return kFormat.Format(exact.Rounded(decimals)) + unit->name;
}

std::vector<DayTick> DayTicks(double from, double to, std::size_t most) {
  most = std::max<std::size_t>(1, most);
  // Days are gone through only where they are few.
  if ((to - from) / kDaySteps.back() <= static_cast<double>(most)) {
    for (const int step : kDaySteps) {
      std::vector<DayTick> ticks = SingleDayTicks(from, to, step);
      if (ticks.size() <= most) return ticks;
    }
  }
  for (const int step : kMonthSteps) {
    if ((to - from) / kShortestMonth / step > static_cast<double>(4 * most)) continue;
    std::vector<DayTick> ticks = MonthTicks(from, to, step);
    if (ticks.size() <= most) return ticks;
  }
  return {};
}

}  // namespace goods
