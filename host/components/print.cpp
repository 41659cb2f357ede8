#include "host/components/print.h"

namespace goods {

void TPrintDBGridEh::Preview(IPrinting& printing) const {
  if (Grid == nullptr) return;
  PrintJob job;
  job.title = Title;
  job.options = Options;
  job.parameters = Parameters;
  job.table = &Grid->Table();
  if (OnBeforePrint) OnBeforePrint(job.lines);
  printing.Preview(job);
}

}  // namespace goods
