// A table with a header: its columns are found by name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "company/interchange/data_folder.h"
#include "company/interchange/problems.h"
#include "company/writer/work_progress.h"

namespace goods {

// What an import reads from and reports to.
struct ImportSource {
  const DataFolder& folder;
  const NameMap& names;
  ImportProblems& problems;
  const WorkWatcher& watcher;
};

// names: the spellings of the column's title, joined with "|", the first one that of docs/import.md. instead:
// the title of another column with which a required one may be missing.
struct ColumnTitle {
  const char* names;
  bool required = false;
  const char* instead = nullptr;
};

// Where the header has a column with one of these titles; what the map calls it comes before, and of a column
// that the map says is not there nothing is found. header: names folded; names: as in ColumnTitle.
std::optional<std::size_t> FindColumn(const NameMap& map, std::string_view table,
                                      const std::vector<std::string>& header, std::string_view names);

// Reads record by record. What is wrong with a record is noted as a problem, and reading goes on.
class TableReader {
 public:
  // source must outlive it.
  TableReader(const ImportSource& source, std::string_view table, std::vector<ColumnTitle> columns);

  // Finds the file and its columns. False when the file is not there, which is a problem where it is
  // required, or when its columns are refused.
  bool Open(bool required);
  bool Has(std::size_t column) const { return places_[column] != kNowhere; }
  // The next record that has as many fields as the header.
  bool Next();
  // Empty for a column that is not there.
  std::string_view Field(std::size_t column) const;
  // Notes that the row is refused.
  void Refuse(const std::string& reason);
  // For what is found out about a row later.
  void RefuseLine(std::size_t line, const std::string& reason) const;
  bool Refused() const { return refused_; }
  std::size_t Line() const { return rows_->Line(); }
  bool IsSheet() const { return rows_->IsSheet(); }
  const std::string& Name() const { return name_; }

 private:
  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

  bool ReadHeader();
  bool FitsHeader();

  const ImportSource& source_;
  std::string table_;
  std::vector<ColumnTitle> columns_;
  std::unique_ptr<RowSource> rows_;
  std::string name_;
  std::string stage_;
  std::optional<WorkMeter> meter_;
  std::vector<std::size_t> places_;
  std::size_t width_ = 0;
  std::vector<std::string_view> fields_;
  bool refused_ = false;
  std::size_t records_ = 0;
};

}  // namespace goods
