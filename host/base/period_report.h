// IPeriodReport: a report whose rows can be read for another period, beside those at hand.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/components/grid.h"

namespace goods {

// Both ends belong to it; an end that is left open is empty. Jalali texts.
struct ReportPeriod {
  std::string from;
  std::string to;
  bool operator==(const ReportPeriod&) const = default;
};

// A window of that kind answers for each of its grids of rows.
class IPeriodReport {
 public:
  virtual ~IPeriodReport();
  // That of the run which the rows at hand came from; none while there are no such rows.
  virtual std::optional<ReportPeriod> PeriodOfRows() const = 0;
  // The field whose value says which rows of two periods are of the same thing.
  virtual std::string_view KeyField(const TSmartDBGrid_QRT& grid) const = 0;
  // Opens into with the statement that the rows of the grid came from, but for its period. The rows at hand
  // and their run stay as they are. To be asked only while there are rows of a run.
  virtual void ReadPeriod(const TSmartDBGrid_QRT& grid, const ReportPeriod& period, TADOQuery& into) = 0;
};

}  // namespace goods
