// What is wrong with files that are to be imported.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "company/company.h"

namespace goods {

struct ImportProblem {
  std::string file;
  std::size_t line = 0;  // from 1; 0: the file as a whole
  std::string reason;
};

// The data was refused. what() lists the first problems and tells how many more there are.
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

// Collects problems; only the first ones are kept.
class ImportProblems {
 public:
  void Add(const std::string& file, std::size_t line, const std::string& reason);
  std::size_t Total() const { return total_; }
  // Throws ImportRefused when there are any.
  void ThrowIfAny() const;

 private:
  std::vector<ImportProblem> listed_;
  std::size_t total_ = 0;
};

// Writes what a refusal lists as CSV with the columns file, line and reason; a last row without a file tells
// how many more there are. Throws FileError.
void WriteProblems(const std::string& path, const ImportRefused& refused);

}  // namespace goods
