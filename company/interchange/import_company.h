// A company from a user's own files, and files into a company; docs/import.md tells their form.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "company/interchange/name_map.h"
#include "company/interchange/problems.h"
#include "company/writer/work_progress.h"

namespace goods {

struct ImportOptions {
  std::string title;     // empty: that of the files, else the folder's name
  bool replace = false;  // an existing file
  NameMap names;
  bool unsignedQuantities = false;  // the movement type tells what goes out
  // Of the users that come without a password hash the first one with every right gets this password,
  // see IUsers for what it may be; empty: a random one. Without such a user there is one with the login
  // admin.
  std::string firstPassword;
  WorkWatcher watcher;
};

struct ImportCounts {
  std::size_t goods = 0;
  std::size_t stores = 0;
  std::size_t persons = 0;
  std::size_t movements = 0;
  std::string firstLogin;     // whose password was set; empty when every user came with one
  std::string firstPassword;  // the random one; empty when it was given
  // Users that cannot sign in until a password is set.
  std::vector<std::string> withoutPassword;
};

// All or nothing: throws CompanyError (ImportRefused for bad rows, WorkStopped) or FileError and then leaves
// no file behind. from: a folder or a workbook.
ImportCounts ImportCompany(const std::string& path, const std::string& from,
                           const ImportOptions& options = {});

struct AddOptions {
  NameMap names;
  bool unsignedQuantities = false;
  WorkWatcher watcher;
};

// New movements and changed master data into the company, in one transaction; users and rights are not read.
// The same movements are refused the second time. Throws as ImportCompany; the company is then as it was.
ImportCounts AddToCompany(const std::string& path, const std::string& from, const AddOptions& options = {});

}  // namespace goods
