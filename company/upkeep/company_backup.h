// A copy of a company that others may be working with.
#pragma once

#include <string>

#include "company/writer/work_progress.h"

namespace goods {

struct BackupOptions {
  bool replace = false;  // an existing file
  WorkWatcher watcher;
};

// Copies one state of the company, checks the copy, and puts it in place whole; only its owner may read it.
// Throws CompanyError (WorkStopped) or FileError and then leaves nothing behind.
void BackUpCompany(const std::string& path, const std::string& to, const BackupOptions& options = {});

}  // namespace goods
