// The typed table: what grid, print, copy and every file format read.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/core/color.h"
#include "host/data/value.h"

namespace goods {

enum class TextAlign { Start, End, Center };  // in the reading direction: Start is the right side

// What a column's cells are. A number may still be missing in a cell, and a date be a text that is none.
enum class CellKind { Text, Number, Date, Swatch };

enum class TotalKind { None, Sum, Count };

// What a row of a table is: one of the data, the head of a group of rows, or what the rows of a group come to
// in one unit of measure.
enum class RowRole { Row, GroupHead, UnitTotal };

struct ReportColumn {
  std::string name;     // of the field; what a program calls the column
  std::string caption;  // "group|title" where a group title stands over it
  int width = 64;       // pixels at 96 dpi; the printed page keeps the proportions
  TextAlign align = TextAlign::Start;
  bool isNumber = false;  // shown by a display format
  CellKind kind = CellKind::Text;
  std::string format;  // the display format's text (host/data/display_format.h), empty for none
  TotalKind total = TotalKind::None;
};

// A table as it stood when it was made: its columns are worked out once, then cells cost no search. It must
// not outlive the grid that it was made from, and is good until the grid's columns or rows change.
class IReportTable {
 public:
  virtual ~IReportTable();
  virtual const std::vector<ReportColumn>& Columns() const = 0;
  virtual std::size_t RowCount() const = 0;
  // row below RowCount(), column an index into Columns(). The value behind the cell, null for an empty one.
  virtual Value Cell(std::size_t row, std::size_t column) const = 0;
  // The same as the grid shows it.
  virtual std::string CellText(std::size_t row, std::size_t column) const = 0;
  // The colour that a cell of a column of swatches stands for; none where it has none, or in another column.
  virtual std::optional<Color> CellColor(std::size_t row, std::size_t column) const = 0;
  // Heads and unit totals have their text in the column TextColumn(), and the exact totals of the group in
  // those that have one; their other cells are null.
  virtual RowRole Role(std::size_t /*row*/) const { return RowRole::Row; }
  virtual std::size_t TextColumn() const { return 0; }
  // Counted from 1 over the rows of the data; none for others.
  virtual std::optional<std::size_t> RowNumber(std::size_t row) const { return row + 1; }
  // Some rows may have another role than Row.
  virtual bool HasGroups() const { return false; }
  virtual bool HasFooter() const = 0;
  // The exact total; null for a column without one.
  virtual Value Footer(std::size_t column) const = 0;
  virtual std::string FooterText(std::size_t column) const = 0;
  virtual bool HasRowNumbers() const = 0;
  // So many columns, from the first, say what a row is about: files keep them in sight.
  virtual std::size_t KeyColumns() const = 0;
};

}  // namespace goods
