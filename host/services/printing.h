// Printing: a report hands the host a table and some lines; the host lays out pages, previews, prints,
// exports.
#pragma once

#include <string>
#include <vector>

#include "host/services/report_table.h"

namespace goods {

struct PrintJob {
  std::string title;
  std::vector<std::string> lines;  // above the table: the criteria of the run
  std::vector<std::string>
      parameters;  // for a host with report templates, in the order that the report defines
  int options = 0;
  const IReportTable* table = nullptr;  // lives as long as the call
};

class IPrinting {
 public:
  virtual ~IPrinting();
  // Shows the preview and returns when it is closed.
  virtual void Preview(const PrintJob& job) = 0;
};

}  // namespace goods
