#include "desktop/print/xlsx_formats.h"

#include <algorithm>
#include <string>

#include "desktop/print/writers.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr lxw_color_t kHeadFill = 0xE9EEF4;
constexpr double kSheetTitleSize = 14;

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

}  // namespace

std::string SheetFormat(const std::string& displayFormat, bool whole) {
  std::string out;
  for (const std::string& section : Split(displayFormat, ';')) {
    if (!out.empty()) out += ';';
    out += SheetSection(section, whole);
  }
  return out;
}

XlsxFormats::XlsxFormats(lxw_workbook* book, const IReportTable& table) : book_(book), table_(table) {
  for (const ReportColumn& column : table.Columns()) {
    ColumnFormats formats;
    formats.decimals = DecimalsOf(column.format);
    columns_.push_back(formats);
  }
}

lxw_format* XlsxFormats::Add() {
  lxw_format* format = workbook_add_format(book_);
  if (format == nullptr) throw UnfinishedFile();
  return format;
}

lxw_format* XlsxFormats::Plain(lxw_format*& kept, void (*setUp)(lxw_format*)) {
  if (kept == nullptr) {
    kept = Add();
    setUp(kept);
  }
  return kept;
}

lxw_format* XlsxFormats::Title() {
  return Plain(title_, [](lxw_format* format) {
    format_set_bold(format);
    format_set_font_size(format, kSheetTitleSize);
  });
}

lxw_format* XlsxFormats::Criteria() {
  return Plain(criteria_, [](lxw_format* format) { format_set_font_color(format, 0x5C6878); });
}

lxw_format* XlsxFormats::Head() {
  return Plain(head_, [](lxw_format* format) {
    format_set_bold(format);
    format_set_align(format, LXW_ALIGN_CENTER);
    format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
    format_set_text_wrap(format);
    format_set_bg_color(format, kHeadFill);
    format_set_border(format, LXW_BORDER_THIN);
  });
}

lxw_format* XlsxFormats::Date() {
  return Plain(date_, [](lxw_format* format) { format_set_num_format(format, "yyyy-mm-dd"); });
}

lxw_format* XlsxFormats::Of(std::size_t column, Decimal number, bool total) {
  const std::string& text = table_.Columns()[column].format;
  if (text.empty() && !total) return nullptr;
  ColumnFormats& formats = columns_[column];
  const Decimal shown = number.Rounded(formats.decimals);
  const bool whole = (shown.Units() % Decimal::kOne) == 0;
  lxw_format*& kept = (total ? formats.totals : formats.numbers)[whole ? 0 : 1];
  if (kept != nullptr) return kept;
  kept = Add();
  if (!text.empty()) format_set_num_format(kept, SheetFormat(text, whole).c_str());
  if (total) {
    format_set_bold(kept);
    format_set_top(kept, LXW_BORDER_THIN);
    format_set_bg_color(kept, kHeadFill);
  }
  return kept;
}

lxw_format* XlsxFormats::Number(std::size_t column, Decimal number) { return Of(column, number, false); }
lxw_format* XlsxFormats::Total(std::size_t column, Decimal number) { return Of(column, number, true); }

lxw_format* XlsxFormats::Swatch(Color color) {
  lxw_format*& kept = swatches_[color];
  if (kept == nullptr) {
    kept = Add();
    format_set_bg_color(kept, color == 0 ? static_cast<lxw_color_t>(LXW_COLOR_BLACK) : color);
  }
  return kept;
}

}  // namespace goods
