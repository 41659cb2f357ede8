// A CSV file with a header: its columns are found by name.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "company/interchange/import_company.h"

namespace goods {

// Collects what is wrong; only the first ones are kept.
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

// names: the spellings of the column's title, joined with "|"; letter case, blanks, "_" and "-" do not count.
struct CsvColumn {
  const char* names;
  bool required;
};

// One record, its fields in the order of the columns that were asked for.
class CsvRow {
 public:
  CsvRow(std::string file, ImportProblems& problems) : file_(std::move(file)), problems_(problems) {}
  // Without blanks at its ends; empty for an optional column that is not there.
  std::string_view Field(std::size_t column) const;
  // Notes that the row is refused.
  void Refuse(const std::string& reason);
  bool Refused() const { return refused_; }

 private:
  friend void ReadTable(const std::string&, const std::string&, const std::vector<CsvColumn>&,
                        ImportProblems&, const std::function<void(CsvRow&)>&);
  std::string file_;
  ImportProblems& problems_;
  std::vector<std::string> fields_;
  std::vector<std::size_t> places_;
  std::size_t line_ = 0;
  bool refused_ = false;
};

// Calls row for each record of folder/file. A missing file or column, and a record that is no CSV or has
// another number of fields than the header, are noted as problems.
void ReadTable(const std::string& folder, const std::string& file, const std::vector<CsvColumn>& columns,
               ImportProblems& problems, const std::function<void(CsvRow&)>& row);

}  // namespace goods
