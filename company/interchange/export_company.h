// A company as a folder of CSV files; docs/import.md tells their form.
#pragma once

#include <cstdint>
#include <string>

#include "company/writer/work_progress.h"

namespace goods {

struct ExportOptions {
  bool replace = false;         // files that are there
  bool passwordHashes = false;  // with the users
  WorkWatcher watcher;
};

struct ExportCounts {
  std::int64_t goods = 0;
  std::int64_t movements = 0;
  // Detail rows that belong to no movement; they are left out.
  std::int64_t unattachedDetails = 0;
};

// Writes every file of the interchange folder, those of empty tables too; all of them or none. The folder is
// made where it is missing. What follows from the rest (averages, costs, stored figures, document headers) is
// not written. The company is only read, in one state of it. Throws CompanyError (WorkStopped) or FileError.
ExportCounts ExportCompany(const std::string& path, const std::string& folder,
                           const ExportOptions& options = {});

}  // namespace goods
