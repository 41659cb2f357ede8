// A company in one file.
#pragma once

#include <memory>
#include <string>

#include "company/company.h"

namespace goods {

// Opens the company file at path (UTF-8). An older file is brought up to date first; a file marked read-only
// is opened for reading, and its derived figures then cannot be refreshed. Throws CompanyError when the file
// is missing, is no company, is damaged, cut short or newer than this program, or is locked by another one;
// the file is then as it was. progress may be null.
std::unique_ptr<ICompany> OpenEmbeddedCompany(const std::string& path, IStatementProgress* progress);

}  // namespace goods
