#include "desktop/print/writers.h"
#include "host/core/text.h"

namespace goods {
namespace {

// What a spreadsheet reads as the beginning of a formula or of a command.
bool LooksLikeFormula(std::string_view text) {
  if (text.empty()) return false;
  const char first = text.front();
  if (first == '=' || first == '+' || first == '-' || first == '@' || first == '\t' || first == '\r') {
    return !Decimal::Parse(text);
  }
  return false;
}

// A search for one of several characters that does not begin anew at each.
bool NeedsQuotes(std::string_view text) {
  bool needs = false;
  for (const char c : text) needs |= c == ',' || c == '"' || c == '\r' || c == '\n';
  return needs;
}

void AppendQuoted(std::string& out, std::string_view text) {
  if (!NeedsQuotes(text)) {
    out += text;
    return;
  }
  out += '"';
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

void AppendText(std::string& out, std::string_view text) {
  if (!LooksLikeFormula(text)) return AppendQuoted(out, text);
  AppendQuoted(out, "'" + std::string(text));
}

class CsvRows {
 public:
  CsvRows(const IReportTable& table, const WritingOptions& options) : table_(table), options_(options) {}

  void Append(std::string& out, std::size_t row) const {
    const auto& columns = table_.Columns();
    for (std::size_t c = 0; c < columns.size(); ++c) {
      if (c > 0) out += ',';
      if (columns[c].kind == CellKind::Swatch) {
        if (const auto color = table_.CellColor(row, c)) out += ColorText(*color);
      } else {
        AppendCell(out, row, c, columns[c].kind);
      }
    }
    out += "\r\n";
  }

 private:
  void AppendCell(std::string& out, std::size_t row, std::size_t column, CellKind kind) const {
    const Value value = table_.Cell(row, column);
    if (value.IsNull()) return;
    if (value.IsNumber()) {
      if (options_.csvShown) return AppendQuoted(out, table_.CellText(row, column));
      out += value.AsText();
    } else if (kind == CellKind::Date && options_.isoDates) {
      AppendText(out, IsoDate(value.AsText()));
    } else {
      AppendText(out, value.Text());
    }
  }

  const IReportTable& table_;
  const WritingOptions& options_;
};

}  // namespace

void WriteCsvTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options) {
  const IReportTable& table = *job.table;
  SinkBuffer buffer(sink);
  if (options.csvMark) buffer.Text() += "\xEF\xBB\xBF";
  bool first = true;
  for (const std::string& title : FileTitles(table)) {
    if (!first) buffer.Text() += ',';
    first = false;
    AppendText(buffer.Text(), ReplaceAll(title, "|", " / "));
  }
  buffer.Text() += "\r\n";
  const CsvRows rows(table, options);
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    TellProgress(options, row);
    rows.Append(buffer.Text(), row);
    buffer.Pass();
  }
  buffer.Finish();
}

}  // namespace goods
