#include "host/components/print.h"

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
  printing.Preview(job);
}

}  // namespace goods
