// Spreadsheets (XLSX, ODS) as rows of texts.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "company/interchange/row_source.h"

namespace goods {

struct SheetCells;

// A workbook, read whole. Numbers become texts as a cell shows them with its full precision (15 digits, at
// most nine decimals), dates "yyyy-mm-dd", truth values 1 and 0; a formula counts with its stored result.
class Workbook {
 public:
  // Throws CompanyError when the file cannot be read as a workbook.
  explicit Workbook(const std::string& path);
  ~Workbook();
  const std::vector<std::string>& Sheets() const { return names_; }
  // The rows of a sheet, by its place; rows without a filled cell are skipped. Valid also after the workbook.
  std::unique_ptr<RowSource> Open(std::size_t sheet) const;

  // By the ending of its name.
  static bool IsWorkbookName(const std::string& path);

 private:
  std::vector<std::string> names_;
  std::vector<std::shared_ptr<SheetCells>> sheets_;
};

}  // namespace goods
