// XlsxStyles: the cell formats of a workbook, made when they are first needed.
#pragma once

#include <compare>
#include <map>
#include <string>
#include <vector>

#include "host/services/report_table.h"

namespace goods {

class XlsxStyles {
 public:
  // The table must outlive it.
  explicit XlsxStyles(const IReportTable& table);

  // Numbers of formats, as cells name them; 0 is the spreadsheet's general format.
  int Title();
  int Criteria();
  int Head();
  int Date();
  // A spreadsheet shows the point of "0.##" even behind a whole number, so whole numbers have a format of
  // their own. 0 for a column without a display format.
  int Number(std::size_t column, Decimal number);
  int Total(std::size_t column, Decimal number);
  // The line of a group's head, bold, or of its total by unit; level is that of the group.
  int GroupText(bool head, std::size_t level);
  int GroupTotal(std::size_t column, Decimal number, bool head, std::size_t level);
  // A text beside totals.
  int TotalText();
  int Swatch(Color color);

  // xl/styles.xml, with every format that was asked for.
  std::string Xml() const;

 private:
  struct Style {
    std::string numberFormat{};  // empty: general
    bool bold = false;
    bool large = false;
    bool grey = false;
    std::string fill{};  // "RRGGBB"; empty: none
    enum class Border { None, Thin, Top } border = Border::None;
    bool centered = false;  // both ways, in lines
    std::strong_ordering operator<=>(const Style&) const = default;
  };
  struct ColumnFormats {
    int decimals = 0;           // at most shown
    int numbers[2] = {-1, -1};  // whole, fraction; -1: not asked for yet
    int totals[2] = {-1, -1};
  };
  int Of(const Style& style);
  static Style GroupStyle(bool head, std::size_t level);
  int OfColumn(std::size_t column, Decimal number, bool total);

  const IReportTable& table_;
  std::vector<ColumnFormats> columns_;
  std::vector<Style> styles_{Style{}};
  std::map<Style, int> known_;
};

// The display format's text as a spreadsheet writes it, for whole numbers or for others: "#,0.##;#,0.##-;0"
// is
// "#,##0;#,##0\"-\";0" and "#,##0.0#;#,##0.0#\"-\";0".
std::string SheetFormat(const std::string& displayFormat, bool whole);

}  // namespace goods
