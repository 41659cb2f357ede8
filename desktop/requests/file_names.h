// Names of files with placeholders, for jobs that run each day and for one file a good.
#pragma once

#include <cstdint>
#include <string>

namespace goods {

// {date} is 1403-05-12; {year}, {month}, {day} its parts; {report} the report's name; {code} and {name} the
// good, store or group of --each. A name's "/" and what else a file's name may not hold becomes "_".
struct FileNameValues {
  std::string today;  // Jalali text
  std::string report;
  std::int64_t code = 0;
  std::string name;
};

std::string FileNameFor(const std::string& pattern, const FileNameValues& values);
// Throws UsageError at a placeholder that there is not.
void CheckPlaceholders(const std::string& pattern);

}  // namespace goods
