// Printing: a report hands the host a table and some lines; the host lays out pages, previews, prints,
// exports.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace goods {

enum class TextAlign { Start, End, Center };  // in the reading direction: Start is the right side

struct ReportColumn {
  std::string caption;  // "group|title" where a group title stands over it
  int width = 64;       // pixels at 96 dpi; the printed page keeps the proportions
  TextAlign align = TextAlign::Start;
  bool isNumber = false;
};

// The visible table: what grid, print, copy and export all read. Valid while its grid lives and its rows
// stay.
class IReportTable {
 public:
  virtual ~IReportTable();
  virtual std::vector<ReportColumn> Columns() const = 0;
  virtual std::size_t RowCount() const = 0;
  // row below RowCount(), column an index into Columns(); formatted as the grid shows it.
  virtual std::string CellText(std::size_t row, std::size_t column) const = 0;
  virtual bool HasFooter() const = 0;
  virtual std::string FooterText(std::size_t column) const = 0;
  virtual bool HasRowNumbers() const = 0;
};

struct PrintJob {
  std::string title;
  std::vector<std::string> lines;  // above the table, such as the filter caption
  std::vector<std::string>
      parameters;  // for a host with report templates, in the order that the report defines
  int options = 0;
  const IReportTable* table = nullptr;  // lives as long as the call
};

class IPrinting {
 public:
  virtual ~IPrinting();
  // Shows the preview and returns when it is closed.
  virtual void Preview(const PrintJob& job) = 0;
};

}  // namespace goods
