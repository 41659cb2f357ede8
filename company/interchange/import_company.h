// A company from a user's own CSV files; docs/import.md tells their form.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "company/company.h"

namespace goods {

struct ImportOptions {
  std::string title;     // empty: the folder's name
  bool replace = false;  // an existing file
};

struct ImportProblem {
  std::string file;
  std::size_t line = 0;  // from 1; 0: the file as a whole
  std::string reason;
};

// The folder was refused. what() lists the first problems and tells how many more there are.
class ImportRefused : public CompanyError {
 public:
  static constexpr std::size_t kListed = 100;
  ImportRefused(std::vector<ImportProblem> problems, std::size_t total);
  ~ImportRefused() override;
  const std::vector<ImportProblem>& Problems() const { return problems_; }  // at most kListed
  std::size_t Total() const { return total_; }

 private:
  std::vector<ImportProblem> problems_;
  std::size_t total_;
};

struct ImportCounts {
  std::size_t goods = 0;
  std::size_t stores = 0;
  std::size_t persons = 0;
  std::size_t movements = 0;
};

// All or nothing: throws CompanyError (ImportRefused for bad rows) and then leaves no file behind. The
// company gets one user, admin, with every right and the login as password.
ImportCounts ImportCompany(const std::string& path, const std::string& folder,
                           const ImportOptions& options = {});

}  // namespace goods
