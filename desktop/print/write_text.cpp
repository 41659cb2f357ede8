#include <algorithm>

#include "desktop/print/unit_rows.h"
#include "desktop/print/writers.h"
#include "host/components/control.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::size_t kWidestText = 40;
constexpr std::size_t kLevelBlanks = 2;

std::string PlainTitle(const std::string& caption) { return ReplaceAll(PlainCaption(caption), "|", " / "); }

// Cells, then footers, padded to the widest of their column.
class TextTable {
 public:
  TextTable(const IReportTable& table, const WritingOptions& options)
      : table_(table),
        options_(options),
        columns_(table.Columns()),
        units_(UnitRowsOf(table)),
        unitTitle_(UnitTitleColumn(units_)) {
    for (std::size_t c = 0; c < columns_.size(); ++c) {
      std::size_t width = std::max(CharCount(PlainTitle(columns_[c].caption)), CharCount(Footer(c)));
      for (std::size_t r = 0; r < table_.RowCount() && width < kWidestText; ++r)
        width = std::max(width, CharCount(Cell(r, c)));
      for (const UnitRow& row : units_) width = std::max(width, CharCount(UnitCell(row, c)));
      widths_.push_back(std::min(width, kWidestText));
    }
  }
  void Write(SinkBuffer& buffer) const {
    Line(buffer.Text(), [&](std::size_t c) { return PlainTitle(columns_[c].caption); });
    Rule(buffer.Text());
    for (std::size_t r = 0; r < table_.RowCount(); ++r) {
      TellProgress(options_, r);
      Line(buffer.Text(), [&](std::size_t c) { return Cell(r, c); });
      buffer.Pass();
    }
    if (!table_.HasFooter()) return;
    Rule(buffer.Text());
    Line(buffer.Text(), [&](std::size_t c) { return Footer(c); });
    for (const UnitRow& row : units_) Line(buffer.Text(), [&](std::size_t c) { return UnitCell(row, c); });
  }

 private:
  // Groups within others stand in.
  std::string Cell(std::size_t row, std::size_t column) const {
    std::string text = table_.CellText(row, column);
    if (column == table_.TextColumn() && table_.Role(row) != RowRole::Row)
      text.insert(0, std::string(kLevelBlanks * LevelOf(table_, row), ' '));
    return text;
  }
  std::string UnitCell(const UnitRow& row, std::size_t column) const {
    return column == unitTitle_ ? row.title : row.texts[column];
  }
  std::string Footer(std::size_t column) const { return table_.HasFooter() ? table_.FooterText(column) : ""; }
  template <typename CellOf>
  void Line(std::string& out, CellOf cellOf) const {
    for (std::size_t c = 0; c < columns_.size(); ++c) {
      const std::string cell = cellOf(c);
      const std::string_view text = FirstChars(cell, widths_[c]);
      const std::size_t padding = widths_[c] - CharCount(text);
      if (c > 0) out += " | ";
      if (columns_[c].isNumber) out.append(padding, ' ');
      out += text;
      if (!columns_[c].isNumber) out.append(padding, ' ');
    }
    out += '\n';
  }
  void Rule(std::string& out) const {
    for (std::size_t c = 0; c < widths_.size(); ++c) {
      if (c > 0) out += "-+-";
      out.append(widths_[c], '-');
    }
    out += '\n';
  }

  const IReportTable& table_;
  const WritingOptions& options_;
  const std::vector<ReportColumn>& columns_;
  std::vector<UnitRow> units_;
  std::size_t unitTitle_;
  std::vector<std::size_t> widths_;
};

}  // namespace

void WriteTextTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options) {
  SinkBuffer buffer(sink);
  buffer.Text() += job.title + "\n";
  for (const std::string& line : job.lines) buffer.Text() += line + "\n";
  buffer.Text() += "\n";
  TextTable(*job.table, options).Write(buffer);
  buffer.Finish();
}

}  // namespace goods
