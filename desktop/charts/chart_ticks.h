// Where the axes of a chart are marked, and what is written there.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace goods {

// An axis of figures: it runs from a multiple of its step to another.
struct NumberAxis {
  double low = 0;
  double high = 1;
  double step = 1;
};
// The axis that holds low and high, with at most so many steps (2 at least) of 1, 2 or 5 times a power of
// ten. One figure alone gets room on both sides; what is not finite is taken for 0.
NumberAxis AxisFor(double low, double high, int mostSteps);
std::vector<double> TicksOf(const NumberAxis& axis);
// "1,200", "2.5 میلیون": a tick of that axis in the largest unit that leaves it short.
std::string TickText(double tick, const NumberAxis& axis);

struct DayTick {
  double day;        // since 1970-01-01
  std::string text;  // "1403" where all ticks begin a year, "1403/04", "1403/04/11"
};
// The first days of years, of months, or days, at most so many (1 at least) within [from, to], evenly chosen.
std::vector<DayTick> DayTicks(double from, double to, std::size_t most);

}  // namespace goods
