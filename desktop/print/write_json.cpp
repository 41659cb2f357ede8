#include <array>

#include "desktop/print/unit_rows.h"
#include "desktop/print/writers.h"
#include "host/core/text.h"

namespace goods {
namespace {

void AppendString(std::string& out, std::string_view text) {
  constexpr std::string_view kHex = "0123456789abcdef";
  out += '"';
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (c == '\n') {
      out += "\\n";
    } else if (byte < 0x20) {
      out += "\\u00";
      out += kHex[byte >> 4];
      out += kHex[byte & 15];
    } else {
      out += c;
    }
  }
  out += '"';
}

std::string_view KindName(CellKind kind) {
  constexpr std::array<std::string_view, 4> kNames{"text", "number", "date", "color"};
  return kNames[static_cast<std::size_t>(kind)];
}

void AppendMember(std::string& out, std::string_view name, std::string_view text) {
  AppendString(out, name);
  out += ": ";
  AppendString(out, text);
}

void AppendColumns(std::string& out, const IReportTable& table) {
  const std::vector<std::string> titles = FileTitles(table);
  out += "  \"columns\": [";
  for (std::size_t c = 0; c < titles.size(); ++c) {
    const SplitTitle split = SplitCaption(titles[c]);
    out += c == 0 ? "\n    {" : ",\n    {";
    AppendMember(out, "name", ValidText(table.Columns()[c].name));
    out += ", ";
    AppendMember(out, "caption", ValidText(split.title));
    out += ", ";
    AppendMember(out, "group", ValidText(split.group));
    out += ", ";
    AppendMember(out, "kind", KindName(table.Columns()[c].kind));
    out += '}';
  }
  out += "\n  ],\n";
}

void AppendValue(std::string& out, const Value& value, bool isoDate) {
  if (value.IsNull()) {
    out += "null";
  } else if (value.IsNumber()) {
    out += value.AsText();
  } else {
    AppendString(out, ValidText(isoDate ? IsoDate(value.AsText()) : value.AsText()));
  }
}

void AppendRow(std::string& out, const IReportTable& table, std::size_t row, bool isoDates) {
  const auto& columns = table.Columns();
  out += '[';
  for (std::size_t c = 0; c < columns.size(); ++c) {
    if (c > 0) out += ',';
    if (columns[c].kind == CellKind::Swatch) {
      const auto color = table.CellColor(row, c);
      AppendValue(out, color ? Value(ColorText(*color)) : Value(), false);
    } else {
      AppendValue(out, table.Cell(row, c), isoDates && columns[c].kind == CellKind::Date);
    }
  }
  out += ']';
}

// What each of the rows is, where heads and totals of groups stand among them, and how many groups around it.
void AppendLines(SinkBuffer& buffer, const IReportTable& table) {
  if (!table.HasGroups()) return;
  std::string& out = buffer.Text();
  out += "  \"lines\": [";
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    const RowRole role = table.Role(row);
    out += row == 0 ? "\"" : ", \"";
    out += role == RowRole::Row ? "row" : role == RowRole::GroupHead ? "group" : "unit";
    out += '"';
    buffer.Pass();
  }
  out += "],\n  \"levels\": [";
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    if (row > 0) out += ", ";
    out += std::to_string(LevelOf(table, row));
    buffer.Pass();
  }
  out += "],\n";
}

// The totals by unit of measure, where there are any.
void AppendUnits(std::string& out, const IReportTable& table) {
  const std::vector<UnitRow> rows = UnitRowsOf(table);
  if (rows.empty()) return;
  out += ",\n  \"units\": [";
  for (std::size_t i = 0; i < rows.size(); ++i) {
    out += i == 0 ? "\n    {" : ",\n    {";
    AppendMember(out, "unit", ValidText(rows[i].unit));
    out += ", \"totals\": [";
    for (std::size_t c = 0; c < rows[i].sums.size(); ++c) {
      if (c > 0) out += ',';
      AppendValue(out, rows[i].sums[c], false);
    }
    out += "]}";
  }
  out += "\n  ]";
}

}  // namespace

void WriteJsonTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options) {
  const IReportTable& table = *job.table;
  SinkBuffer buffer(sink);
  std::string& out = buffer.Text();
  out += "{\n  ";
  AppendMember(out, "title", ValidText(job.title));
  out += ",\n  \"criteria\": [";
  for (std::size_t i = 0; i < job.lines.size(); ++i) {
    if (i > 0) out += ", ";
    AppendString(out, ValidText(job.lines[i]));
  }
  out += "],\n";
  AppendColumns(out, table);
  out += "  \"rows\": [";
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    TellProgress(options, row);
    out += row == 0 ? "\n    " : ",\n    ";
    AppendRow(out, table, row, options.isoDates);
    buffer.Pass();
  }
  out += "\n  ],\n";
  AppendLines(buffer, table);
  out += "  \"totals\": ";
  if (table.HasFooter()) {
    out += '[';
    for (std::size_t c = 0; c < table.Columns().size(); ++c) {
      if (c > 0) out += ',';
      AppendValue(out, table.Footer(c), false);
    }
    out += ']';
  } else {
    out += "null";
  }
  AppendUnits(out, table);
  out += "\n}\n";
  buffer.Finish();
}

}  // namespace goods
