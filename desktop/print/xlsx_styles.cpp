#include "desktop/print/xlsx_styles.h"

#include <algorithm>
#include <string>
#include <vector>

#include "desktop/print/writers.h"
#include "desktop/print/xlsx_parts.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr const char* kHeadFill = "E9EEF4";
constexpr const char* kInnerFill = "F6F8FB";  // of heads within others, and of totals by unit
constexpr int kFirstOwnNumberFormat = 164;    // those before are the spreadsheet's own

bool IsDigitMark(char c) { return c == '0' || c == '#' || c == ',' || c == '.'; }

std::string Quoted(std::string_view text) {
  return text.empty() ? std::string() : "\"" + ReplaceAll(text, "\"", "") + "\"";
}

// One section of a display format.
std::string SheetSection(std::string_view section, bool whole) {
  const std::size_t begin = section.find_first_of("0#");
  if (begin == std::string_view::npos) return Quoted(section);
  std::size_t end = begin;
  while (end < section.size() && IsDigitMark(section[end])) ++end;
  const std::string_view digits = section.substr(begin, end - begin);
  const std::string_view before = digits.substr(0, digits.find('.'));
  const auto point = digits.find('.');
  const std::string_view decimals =
      point == std::string_view::npos ? std::string_view() : digits.substr(point + 1);
  std::string out = before.find(',') != std::string_view::npos ? "#,##0" : "0";
  if (decimals.find('0') != std::string_view::npos || !whole) {
    if (!decimals.empty()) out += "." + std::string(1, '0') + std::string(decimals.substr(1));
  }
  return Quoted(section.substr(0, begin)) + out + Quoted(section.substr(end));
}

int DecimalsOf(const std::string& displayFormat) {
  const std::string section = Split(displayFormat, ';').front();
  const auto point = section.find('.');
  if (point == std::string::npos) return 0;
  std::size_t end = point + 1;
  while (end < section.size() && (section[end] == '0' || section[end] == '#')) ++end;
  return static_cast<int>(std::min<std::size_t>(end - point - 1, Decimal::kDecimals));
}

std::string FontXml(bool bold, bool large, bool grey) {
  return std::string("<font>") + (bold ? "<b/>" : "") + "<sz val=\"" + (large ? "14" : "11") + "\"/><color " +
         (grey ? "rgb=\"FF5C6878\"" : "theme=\"1\"") + "/><name val=\"Calibri\"/><family val=\"2\"/></font>";
}

std::string FillXml(const std::string& color) {
  return "<fill><patternFill patternType=\"solid\"><fgColor rgb=\"FF" + color +
         "\"/><bgColor indexed=\"64\"/></patternFill></fill>";
}

std::string BorderXml(bool sides, bool top) {
  const auto edge = [](const char* name, bool drawn) {
    const std::string tag = name;
    return drawn ? "<" + tag + " style=\"thin\"><color auto=\"1\"/></" + tag + ">" : "<" + tag + "/>";
  };
  return "<border>" + edge("left", sides) + edge("right", sides) + edge("top", top) + edge("bottom", sides) +
         "<diagonal/></border>";
}

// A list of parts of the styles, each once, numbered in the order in which they were first asked for.
class PartList {
 public:
  explicit PartList(int first = 0) : first_(first) {}
  int Add(const std::string& part) {
    const auto [at, added] = numbers_.try_emplace(part, first_ + static_cast<int>(parts_.size()));
    if (added) parts_.push_back(part);
    return at->second;
  }
  const std::vector<std::string>& Parts() const { return parts_; }
  std::string Xml(const std::string& tag) const {
    std::string xml = "<" + tag + " count=\"" + std::to_string(parts_.size()) + "\">";
    for (const std::string& part : parts_) xml += part;
    return xml + "</" + tag + ">";
  }

 private:
  int first_;
  std::vector<std::string> parts_;
  std::map<std::string, int> numbers_;
};

}  // namespace

std::string SheetFormat(const std::string& displayFormat, bool whole) {
  std::string out;
  for (const std::string& section : Split(displayFormat, ';')) {
    if (!out.empty()) out += ';';
    out += SheetSection(section, whole);
  }
  return out;
}

XlsxStyles::XlsxStyles(const IReportTable& table) : table_(table), known_{{Style{}, 0}} {
  for (const ReportColumn& column : table.Columns()) {
    ColumnFormats formats;
    formats.decimals = DecimalsOf(column.format);
    columns_.push_back(formats);
  }
}

int XlsxStyles::Of(const Style& style) {
  const auto [at, added] = known_.try_emplace(style, static_cast<int>(styles_.size()));
  if (added) styles_.push_back(style);
  return at->second;
}

int XlsxStyles::Title() { return Of({.bold = true, .large = true}); }
int XlsxStyles::Criteria() { return Of({.grey = true}); }
int XlsxStyles::Head() {
  return Of({.bold = true, .fill = kHeadFill, .border = Style::Border::Thin, .centered = true});
}
int XlsxStyles::Date() { return Of({.numberFormat = "yyyy-mm-dd"}); }

int XlsxStyles::OfColumn(std::size_t column, Decimal number, bool total) {
  const std::string& text = table_.Columns()[column].format;
  if (text.empty() && !total) return 0;
  ColumnFormats& formats = columns_[column];
  const Decimal shown = number.Rounded(formats.decimals);
  const bool whole = (shown.Units() % Decimal::kOne) == 0;
  int& kept = (total ? formats.totals : formats.numbers)[whole ? 0 : 1];
  if (kept < 0) {
    Style style;
    if (!text.empty()) style.numberFormat = SheetFormat(text, whole);
    if (total) {
      style.bold = true;
      style.fill = kHeadFill;
      style.border = Style::Border::Top;
    }
    kept = Of(style);
  }
  return kept;
}

int XlsxStyles::Number(std::size_t column, Decimal number) { return OfColumn(column, number, false); }
int XlsxStyles::Total(std::size_t column, Decimal number) { return OfColumn(column, number, true); }
XlsxStyles::Style XlsxStyles::GroupStyle(bool head, std::size_t level) {
  Style style;
  style.bold = head;
  style.grey = !head;
  style.fill = head && level == 0 ? kHeadFill : kInnerFill;
  return style;
}
int XlsxStyles::GroupText(bool head, std::size_t level) { return Of(GroupStyle(head, level)); }
int XlsxStyles::GroupTotal(std::size_t column, Decimal number, bool head, std::size_t level) {
  Style style = GroupStyle(head, level);
  style.grey = false;
  const std::string& text = table_.Columns()[column].format;
  const bool whole = number.Rounded(columns_[column].decimals).Units() % Decimal::kOne == 0;
  if (!text.empty()) style.numberFormat = SheetFormat(text, whole);
  return Of(style);
}
int XlsxStyles::TotalText() { return Of({.bold = true, .fill = kHeadFill, .border = Style::Border::Top}); }
int XlsxStyles::Swatch(Color color) { return Of({.fill = ColorText(color).substr(1)}); }

std::string XlsxStyles::Xml() const {
  PartList numberFormats(kFirstOwnNumberFormat);
  PartList fonts;
  fonts.Add(FontXml(false, false, false));
  PartList fills;
  for (const char* pattern : {"none", "gray125"}) {
    fills.Add(std::string("<fill><patternFill patternType=\"") + pattern + "\"/></fill>");
  }
  PartList borders;
  std::string formats;
  for (const Style& style : styles_) {
    const int numberFormat = style.numberFormat.empty() ? 0 : numberFormats.Add(style.numberFormat);
    const int font = fonts.Add(FontXml(style.bold, style.large, style.grey));
    const int fill = style.fill.empty() ? 0 : fills.Add(FillXml(style.fill));
    const int border =
        borders.Add(BorderXml(style.border == Style::Border::Thin, style.border != Style::Border::None));
    const auto attribute = [&formats](const char* name, const char* applied, int number) {
      formats += std::string(" ") + name + "Id=\"" + std::to_string(number) + "\"";
      if (number != 0) formats += std::string(" ") + applied + "=\"1\"";
    };
    formats += "<xf";
    attribute("numFmt", "applyNumberFormat", numberFormat);
    attribute("font", "applyFont", font);
    attribute("fill", "applyFill", fill);
    attribute("border", "applyBorder", border);
    formats += " xfId=\"0\"";
    formats += style.centered ? " applyAlignment=\"1\"><alignment horizontal=\"center\" vertical=\"center\" "
                                "wrapText=\"1\"/></xf>"
                              : "/>";
  }
  std::string xml(kXmlHead);
  xml += "<styleSheet xmlns=\"" + std::string(kSheetSpace) + "\">";
  if (!numberFormats.Parts().empty()) {
    xml += "<numFmts count=\"" + std::to_string(numberFormats.Parts().size()) + "\">";
    int number = kFirstOwnNumberFormat;
    for (const std::string& format : numberFormats.Parts()) {
      xml += "<numFmt numFmtId=\"" + std::to_string(number++) + "\" formatCode=\"";
      AppendXml(xml, format);
      xml += "\"/>";
    }
    xml += "</numFmts>";
  }
  xml += fonts.Xml("fonts") + fills.Xml("fills") + borders.Xml("borders");
  xml +=
      "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" "
      "borderId=\"0\"/></cellStyleXfs>";
  xml += "<cellXfs count=\"" + std::to_string(styles_.size()) + "\">" + formats + "</cellXfs>";
  xml += "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles>";
  return xml + "</styleSheet>";
}

}  // namespace goods
