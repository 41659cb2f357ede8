#include "desktop/print/export.h"

#include <QFile>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <algorithm>

#include "desktop/print/page_painter.h"
#include "desktop/views/shown_text.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr int kPdfDpi = 600;
constexpr double kPointsPerInch = 72;
constexpr std::size_t kWidestText = 40;

[[noreturn]] void Fail(const std::string& path) {
  throw ExportError("پرونده «" + path + "» نوشته نشد. جای آن و اجازه نوشتن را بررسی کنید.");
}

void WriteWhole(const std::string& path, const std::string& contents) {
  QSaveFile file(ToQt(path));
  if (!file.open(QIODevice::WriteOnly)) Fail(path);
  file.write(contents.data(), static_cast<qint64>(contents.size()));
  if (!file.commit()) Fail(path);
}

std::string CsvCell(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  return "\"" + ReplaceAll(text, "\"", "\"\"") + "\"";
}

std::string PlainTitle(const std::string& caption) { return ReplaceAll(PlainCaption(caption), "|", " / "); }

// Cells, then footers, padded to the widest of their column.
class TextTable {
 public:
  explicit TextTable(const IReportTable& table) : table_(table), columns_(table.Columns()) {
    for (std::size_t c = 0; c < columns_.size(); ++c) {
      std::size_t width = std::max(CharCount(PlainTitle(columns_[c].caption)), CharCount(Footer(c)));
      for (std::size_t r = 0; r < table_.RowCount(); ++r)
        width = std::max(width, CharCount(table_.CellText(r, c)));
      widths_.push_back(std::min(width, kWidestText));
    }
  }
  std::string Text() const {
    std::string out = Line([&](std::size_t c) { return PlainTitle(columns_[c].caption); }) + Rule();
    for (std::size_t r = 0; r < table_.RowCount(); ++r)
      out += Line([&](std::size_t c) { return table_.CellText(r, c); });
    if (table_.HasFooter()) out += Rule() + Line([&](std::size_t c) { return Footer(c); });
    return out;
  }

 private:
  std::string Footer(std::size_t column) const { return table_.HasFooter() ? table_.FooterText(column) : ""; }
  template <typename CellOf>
  std::string Line(CellOf cellOf) const {
    std::string line;
    for (std::size_t c = 0; c < columns_.size(); ++c) {
      const std::string text(FirstChars(cellOf(c), widths_[c]));
      const std::string padding(widths_[c] - CharCount(text), ' ');
      if (c > 0) line += " | ";
      line += columns_[c].isNumber ? padding + text : text + padding;
    }
    return line + "\n";
  }
  std::string Rule() const {
    std::string line;
    for (std::size_t c = 0; c < widths_.size(); ++c)
      line += (c > 0 ? "-+-" : "") + std::string(widths_[c], '-');
    return line + "\n";
  }

  const IReportTable& table_;
  std::vector<ReportColumn> columns_;
  std::vector<std::size_t> widths_;
};

}  // namespace

void WritePdf(const PrintJob& job, const std::string& path, const std::string& today) {
  const PageLayout layout(job, today);
  QSaveFile file(ToQt(path));
  if (!file.open(QIODevice::WriteOnly)) Fail(path);
  {
    QPdfWriter writer(&file);
    writer.setTitle(ToQt(job.title));
    writer.setResolution(kPdfDpi);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(layout.Landscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer)) Fail(path);
    painter.scale(kPdfDpi / kPointsPerInch, kPdfDpi / kPointsPerInch);
    for (std::size_t page = 0; page < layout.Pages().size(); ++page) {
      if (page > 0) writer.newPage();
      PaintPage(painter, layout, page);
    }
  }
  if (!file.commit()) Fail(path);
}

void WriteText(const PrintJob& job, const std::string& path) {
  std::string out = job.title + "\n";
  for (const std::string& line : job.lines) out += line + "\n";
  out += "\n";
  if (job.table != nullptr) out += TextTable(*job.table).Text();
  WriteWhole(path, out);
}

void WriteCsv(const IReportTable& table, const std::string& path) {
  const std::vector<ReportColumn> columns = table.Columns();
  std::string out = "\xEF\xBB\xBF";
  const auto line = [&](auto cellOf) {
    for (std::size_t c = 0; c < columns.size(); ++c) out += (c > 0 ? "," : "") + CsvCell(cellOf(c));
    out += "\r\n";
  };
  line([&](std::size_t c) { return PlainTitle(columns[c].caption); });
  for (std::size_t r = 0; r < table.RowCount(); ++r)
    line([&](std::size_t c) { return table.CellText(r, c); });
  WriteWhole(path, out);
}

}  // namespace goods
