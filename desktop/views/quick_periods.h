// The periods that a range of dates can be set to at once: today, this week, the month before, ...
#pragma once

#include <array>

#include "host/core/jalali.h"

namespace goods {

struct QuickPeriod {
  const char* caption;
  JalaliDate from;
  JalaliDate to;  // belongs to the period
};

// In the order in which they are offered: each period that holds today, and the one before it. Weeks run from
// Saturday to Friday, seasons from the first, fourth, seventh and tenth month, the fiscal year is the Jalali
// one.
std::array<QuickPeriod, 10> QuickPeriods(const JalaliDate& today);

}  // namespace goods
