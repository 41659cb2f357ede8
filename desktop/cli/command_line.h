// The command line of goods-report: what it is called with, as a command that can be carried out.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "desktop/cli/report_run.h"
#include "desktop/requests/report_request.h"

namespace CLI {
class App;
}

namespace goods {

enum class ReportCommand { Write, List, Describe, Run };

struct CommandLine {
  ReportCommand command = ReportCommand::Write;
  ReportRequest request;
  SessionOptions session;
  std::string user;
  std::string passwordFile;
  std::string described;  // the report of Describe
  std::string jobs;       // the file of Run
};

// One job of a jobs file.
struct ReportJob {
  std::string name;
  ReportRequest request;
  std::string problem;  // why its section cannot be read; empty when it can
};

// A jobs file, read: what its top says of the session, and its jobs in order.
struct JobsFile {
  CommandLine session;  // only what stands above the first section
  std::vector<ReportJob> jobs;
};

// Declares every option on app, bound to line; both must outlive the parsing.
void DeclareOptions(CLI::App& app, CommandLine& line);

// The exit code behind an error of the parsing, whose text or help is printed: 0 for help, else kExitUsage.
// Returns none when the arguments were taken.
struct ParseResult {
  bool ok = false;
  int exitCode = 0;
};
ParseResult ParseCommandLine(int argc, char** argv, CommandLine& line);

// Reads the file at path: TOML as CLI11 takes it, the long options' names as keys. The top holds the
// session's, each section is a job. Throws UsageError when the file or its top cannot be read; a section that
// cannot be is a job with a problem. The file of a saved view is one job, which is written as given says.
JobsFile ReadJobs(const std::string& path, const ReportRequest& given = {});

// Reads the saved view that the request stands on, if there is one; what the view has and this version does
// not know is told. Throws UsageError.
void TakeViewFile(ReportRequest& request, std::ostream& messages);

// The password from the file, the environment variable GOODS_PASSWORD or, on a terminal, a prompt without
// echo. Throws UsageError where none can be had.
std::string AskPassword(const CommandLine& line);

}  // namespace goods
