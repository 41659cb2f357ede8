// What an import would read: the files that are there, how their columns are matched, and their first rows.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "company/interchange/name_map.h"
#include "company/interchange/problems.h"
#include "company/writer/work_progress.h"

namespace goods {

// A column that a file may have. name is that of docs/import.md, title the Persian one.
struct ColumnPreview {
  std::string name;
  std::string title;
  bool required = false;
  std::string instead;  // of a required one: the column with which it may be missing; empty for none
  std::optional<std::size_t> place;  // in the header
};

struct TablePreview {
  static constexpr std::size_t kRows = 10;
  std::string name;   // goods, movements, ...
  std::string title;  // in Persian
  bool required = false;
  std::string file;  // as problems name it; empty when there is none
  std::vector<std::string> header;
  std::vector<std::vector<std::string>> rows;  // the first ones, each as wide as it is
  std::string problem;                         // why there is no more of it; empty when all is well
  std::vector<ColumnPreview> columns;
};

struct ImportPreview {
  std::string title;               // of the company
  std::vector<std::string> files;  // the folder's tables and spreadsheets, or the workbook's sheets
  std::vector<TablePreview> tables;
  // What movements call their types and no name is known for, in the order in which they appear.
  std::vector<std::string> unknownTypes;
  bool moreUnknownTypes = false;  // than are listed
  // No quantity has a sign, though there are types that take out: the type tells the direction.
  bool unsignedQuantities = false;

  TablePreview* Find(std::string_view name);
  const TablePreview* Find(std::string_view name) const;
};

// from: a folder or a workbook. Reads the movements to their end. Throws CompanyError, WorkStopped.
ImportPreview PreviewImport(const std::string& from, const NameMap& names, const WorkWatcher& watcher = {});

// What has to be matched before the data can be imported, a Persian sentence each.
std::vector<std::string> MissingForImport(const ImportPreview& preview);

// The rows that problems speak of, their fields joined with " | "; empty where a problem speaks of a whole
// file or of a row that cannot be read. Throws CompanyError, WorkStopped.
std::vector<std::string> ReadProblemRows(const std::string& from, const NameMap& names,
                                         const std::vector<ImportProblem>& problems,
                                         const WorkWatcher& watcher = {});

// The movement types, by code, as a user is shown them.
const std::vector<std::string>& MovementTypeTitles();

}  // namespace goods
