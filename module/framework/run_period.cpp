#include "module/framework/run_period.h"

#include <optional>

namespace goods {
namespace {

std::optional<std::string> GivenEnd(const std::string& date) {
  return date.empty() ? std::nullopt : std::optional(date);
}

}  // namespace

ReportPeriod PeriodOfRun(const PeriodCriteria& run) {
  if (!run.inUse) return {};
  return {run.from.value_or(""), run.to.value_or("")};
}

PeriodCriteria ForOtherPeriod(const PeriodCriteria& run, const ReportPeriod& other) {
  return {.inUse = true,
          .from = GivenEnd(other.from),
          .to = GivenEnd(other.to),
          .countsBefore = run.countsBefore};
}

}  // namespace goods
