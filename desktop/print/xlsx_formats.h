// XlsxFormats: the cell formats of a workbook, made when they are first needed.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include <xlsxwriter.h>

#include "host/services/report_table.h"

namespace goods {

class XlsxFormats {
 public:
  // Both must outlive it; formats belong to the workbook.
  XlsxFormats(lxw_workbook* book, const IReportTable& table);

  lxw_format* Title();
  lxw_format* Criteria();
  lxw_format* Head();
  lxw_format* Date();
  // A spreadsheet shows the point of "0.##" even behind a whole number, so whole numbers have a format of
  // their own. Null, which is the spreadsheet's general format, for a column without a display format.
  lxw_format* Number(std::size_t column, Decimal number);
  lxw_format* Total(std::size_t column, Decimal number);
  lxw_format* Swatch(Color color);

 private:
  lxw_format* Add();
  lxw_format* Plain(lxw_format*& kept, void (*setUp)(lxw_format*));

  lxw_workbook* book_;
  const IReportTable& table_;
  struct ColumnFormats {
    int decimals = 0;                             // at most shown
    lxw_format* numbers[2] = {nullptr, nullptr};  // whole, fraction
    lxw_format* totals[2] = {nullptr, nullptr};
  };
  lxw_format* Of(std::size_t column, Decimal number, bool total);
  std::vector<ColumnFormats> columns_;
  std::map<Color, lxw_format*> swatches_;
  lxw_format* title_ = nullptr;
  lxw_format* criteria_ = nullptr;
  lxw_format* head_ = nullptr;
  lxw_format* date_ = nullptr;
};

// The display format's text as a spreadsheet writes it, for whole numbers or for others: "#,0.##;#,0.##-;0"
// is
// "#,##0;#,##0\"-\";0" and "#,##0.0#;#,##0.0#\"-\";0".
std::string SheetFormat(const std::string& displayFormat, bool whole);

}  // namespace goods
