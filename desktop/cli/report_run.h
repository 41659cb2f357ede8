// One report of one company, without a screen: opened through the module, printed into files.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

namespace goods {

struct ReportRun {
  std::string company;  // the file
  std::string report = "kardex";
  std::int64_t good = 0;   // 0: the one with the most movements
  std::int64_t store = 0;  // 0: every store
  std::string from;        // Jalali dates; an empty from is no date range
  std::string to;
  std::string pdf;   // where it is written; empty for not at all
  std::string text;  // likewise
  std::string module;
  std::string statementLog;
};

// Needs a QGuiApplication. What reports and company have to say goes to messages. Throws std::exception with
// a message for the user when the run cannot be made; false when the report told of a failure, or printed
// nothing.
bool RunReport(const ReportRun& run, const std::string& programFolder, std::ostream& messages);

}  // namespace goods
