#include "host/base/period_report.h"

namespace goods {

IPeriodReport::~IPeriodReport() = default;

}  // namespace goods
