// The period of a run as the host is told it, and the criteria of the same run for another one.
#pragma once

#include "host/base/period_report.h"
#include "module/framework/general_search.h"

namespace goods {

// Open ends, and both of a period that is not in use, are empty.
ReportPeriod PeriodOfRun(const PeriodCriteria& run);
// What the run asked of stock before its period is asked of the stock before the other one.
PeriodCriteria ForOtherPeriod(const PeriodCriteria& run, const ReportPeriod& other);

}  // namespace goods
