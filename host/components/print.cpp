#include "host/components/print.h"

#include <utility>

#include "host/components/grid_filter.h"
#include "host/components/grid_groups.h"

namespace goods {

void TPrintDBGridEh::Preview(IPrinting& printing) const {
  if (Grid == nullptr) return;
  const std::unique_ptr<IReportTable> table = Grid->Table();
  PrintJob job;
  job.title = Title;
  job.options = Options;
  job.parameters = Parameters;
  job.table = table.get();
  if (OnBeforePrint) OnBeforePrint(job.lines);
  if (std::string narrowing = NarrowingLine(*Grid); !narrowing.empty())
    job.lines.push_back(std::move(narrowing));
  if (std::string grouping = Grid->Groups().Caption(); !grouping.empty())
    job.lines.push_back(std::move(grouping));
  printing.Preview(job);
}

}  // namespace goods
