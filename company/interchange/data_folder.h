// Where the tables of an import come from: a folder of CSV files and spreadsheets, or one workbook.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "company/interchange/name_map.h"
#include "company/interchange/row_source.h"
#include "company/interchange/workbook.h"

namespace goods {

struct OpenedTable {
  std::unique_ptr<RowSource> rows;
  std::string name;  // for messages: "goods.csv", "book.xlsx [goods]"
};

// A table is found by its name, in English or Persian, or by what the map calls it: as NAME.csv, NAME.txt,
// NAME.tsv, NAME.xlsx or NAME.ods (its first sheet), or as the sheet of that name. Where a folder has
// several, the first of these endings counts.
class DataFolder {
 public:
  // path: a folder, or a file .xlsx or .ods. Throws CompanyError.
  DataFolder(const std::string& path, const NameMap& names);

  // names: the table's names, joined with "|". None when there is no such table; throws CompanyError when it
  // is there and cannot be read.
  std::optional<OpenedTable> Open(std::string_view names) const;
  // What the missing file would be called.
  std::string ExpectedName(std::string_view names) const;
  // The files that could hold a table, or the workbook's sheets, in the order of their names.
  std::vector<std::string> Names() const;
  // What the folder or workbook is called.
  std::string Title() const;

 private:
  bool IsCalled(std::string_view name, std::string_view names) const;

  std::string path_;
  const NameMap& names_;
  std::vector<std::string> files_;
  std::optional<Workbook> workbook_;
};

}  // namespace goods
