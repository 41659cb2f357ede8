// Whether a company holds together.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "company/writer/work_progress.h"

namespace goods {

struct CheckOptions {
  // Hears each difference, a line of Persian text, as it is found.
  std::function<void(const std::string&)> difference;
  WorkWatcher watcher;
};

// Looks at the structure of the file, at what its rows refer to, and at what was worked out: costs, averages
// and second quantities row by row, each from the average stored before it, and the stored figures of goods
// and stores from all their rows. Returns the number of differences. The company is only read. Throws
// CompanyError when the file is none.
std::int64_t CheckCompany(const std::string& path, const CheckOptions& options);

}  // namespace goods
