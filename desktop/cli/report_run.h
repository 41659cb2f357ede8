// ReportRunner: reports of one company without a screen, as one signed-in user: opened through the module,
// their windows set like a user sets them, their lists written to files.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "company/company.h"
#include "desktop/requests/report_request.h"

namespace goods {

struct SessionOptions {
  std::string company;  // as OpenCompany takes it
  std::string module;   // the report library; empty for the one beside the program
  std::string programFolder;
  std::string statementLog;
  std::string
      settings;  // the desktop's settings folder, whose units and decimals count; empty for the defaults
  bool progress = false;  // told on the stream of messages, for a terminal
  bool quiet = false;     // says nothing of what was written
};

struct RunOutcome {
  std::size_t rows = 0;
  std::vector<std::string> files;  // as written
};

// One connection and one loaded module for as long as it lives. Needs a QGuiApplication.
class ReportRunner {
 public:
  // Messages of reports and company go to messages, a line each. Throws std::exception with a Persian
  // message.
  ReportRunner(ICompany& company, const UserRecord& user, const SessionOptions& options,
               std::ostream& messages);
  ~ReportRunner();

  // A checked request. Throws UsageError, RefusedByRights, or std::exception with a Persian message; files
  // that were written before stand.
  RunOutcome Run(const ReportRequest& request);
  std::string Today() const;

  struct Impl;

 private:
  std::unique_ptr<Impl> impl_;
};

// What can be asked of a report: its criteria, and its columns as far as no company is needed to know them.
void DescribeReport(const ReportSpec& report, const SessionOptions& options, std::ostream& out);

}  // namespace goods
