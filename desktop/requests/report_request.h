// ReportRequest: one report as the command line or a job asks for it, checked, before anything is opened.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/print/export.h"
#include "desktop/requests/report_specs.h"
#include "desktop/requests/table_view.h"

namespace goods {

// What is asked for cannot be asked for: a wrong option or value. The message is Persian.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~UsageError() override;
};

// The user may not do that. The message is Persian, and the user was not told yet.
class RefusedByRights : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~RefusedByRights() override;
};

// The exit codes of goods-report.
inline constexpr int kExitWritten = 0;
inline constexpr int kExitError = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitRowsFound = 3;
inline constexpr int kExitRefused = 4;

// In the place of a file's name.
inline constexpr std::string_view kStandardOutput = "-";

struct OutputFile {
  FileFormat format = FileFormat::Text;
  std::string path;  // may hold placeholders: see file_names.h; or kStandardOutput

  bool ToStandardOutput() const { return path == kStandardOutput; }
};

struct ReportRequest {
  std::string name = "stock-card";  // of the report
  // By the criterion's option; "from" and "to" of a period; several values of "detail" alone.
  std::map<std::string, std::vector<std::string>> criteria;
  std::set<std::string> exclude;     // options of criteria that are turned round
  std::string period;                // a relative one, instead of from and to
  std::vector<std::string> columns;  // fields, in order; empty for those of the window
  std::vector<std::string> sort;     // fields, "-" in front for descending
  // How a saved view arranges the table; columns and sort above count before it.
  std::optional<TableView> table;
  std::string viewFile;  // of a saved view that the request stands on, until it is read
  std::vector<OutputFile> outputs;
  std::string each;                 // "good", "store", "group": one run for each
  std::vector<std::int64_t> among;  // the codes that each goes through; empty for all
  bool skipEmpty = false;           // write nothing where there are no rows
  bool failIfRows = false;
  bool csvShown = false;
  bool csvMark = true;
  bool isoDates = false;
};

// Puts a relative period in its place, and throws UsageError at what no report could make sense of: an
// unknown report or criterion, a value of another kind, a date that does not exist, criteria that share one
// component. today is Jalali text.
void CheckRequest(ReportRequest& request, const std::string& today);
// The criteria alone, of that report; criteria that it cannot do without may be missing.
void CheckAsked(const ReportSpec& report, const ReportRequest& request);

// The first and the last day of "today", "yesterday", "this-week", "last-week", "this-month", "last-month",
// "this-season", "last-season", "this-year", "last-year"; throws UsageError for another word.
struct DayRange {
  std::string from;
  std::string to;
};
DayRange RelativePeriod(const std::string& name, const std::string& today);

// "5..10", "5..", "..10", "5": both ends, an empty one open.
DayRange RangeEnds(const std::string& text);

}  // namespace goods
