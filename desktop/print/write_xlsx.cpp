#include <algorithm>
#include <cstring>
#include <filesystem>
#include <utility>

#include <xlsxwriter.h>

#include "desktop/print/writers.h"
#include "desktop/print/xlsx_formats.h"
#include "host/core/jalali.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr double kPixelsPerCharacter = 7;
constexpr std::size_t kLongestText = 32767;  // of a cell, in UTF-16 units
constexpr std::size_t kLongestName = 31;     // of a sheet, in characters
constexpr std::size_t kLeastSheetRows = 64;
constexpr std::string_view kCut = "…";

void Check(lxw_error error) {
  if (error != LXW_NO_ERROR) throw UnfinishedFile();
}

// Without what a sheet's name may not hold, and short enough to take a number behind it.
std::string SheetName(const std::string& title, std::size_t sheet) {
  std::string name;
  for (const char c : title) name += std::strchr("[]:*?/\\", c) != nullptr || (c >= 0 && c < ' ') ? ' ' : c;
  name = Trim(name);
  while (!name.empty() && (name.front() == '\'' || name.back() == '\'')) {
    name = name.front() == '\'' ? name.substr(1) : name.substr(0, name.size() - 1);
  }
  if (name.empty()) name = "گزارش";
  const std::string number = sheet == 0 ? "" : " (" + std::to_string(sheet + 1) + ")";
  std::string_view first = FirstChars(name, kLongestName - CharCount(number));
  // What is left over ends with a whole word, unless that would be little, and without an open bracket.
  if (first.size() < name.size() && name[first.size()] != ' ') {
    if (const auto blank = first.rfind(' '); blank != std::string_view::npos && blank > first.size() / 2) {
      first = first.substr(0, blank);
    }
  }
  while (!first.empty() && (first.back() == ' ' || first.back() == '(')) first.remove_suffix(1);
  return std::string(first) + number;
}

std::size_t Utf16Length(std::string_view text) {
  std::size_t length = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) != 0x80) length += byte >= 0xF0 ? 2 : 1;
  }
  return length;
}

// The workbook, closed or given up in any case. Rows are written out as they come, so that a long table needs
// no memory.
class Workbook {
 public:
  explicit Workbook(const std::string& path) : folder_(std::filesystem::temp_directory_path().string()) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder_.data();
    book_ = workbook_new_opt(path.c_str(), &options);
    if (book_ == nullptr) throw UnfinishedFile();
  }
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;
  ~Workbook() {
    if (book_ != nullptr) lxw_workbook_free(book_);
  }
  lxw_workbook* Get() const { return book_; }
  void Close() { Check(workbook_close(std::exchange(book_, nullptr))); }

 private:
  std::string folder_;
  lxw_workbook* book_ = nullptr;
};

class Sheets {
 public:
  Sheets(const PrintJob& job, const std::string& path, const WritingOptions& options)
      : job_(job), table_(*job.table), options_(options), book_(path), formats_(book_.Get(), table_) {
    for (const std::string& title : FileTitles(table_)) titles_.push_back(SplitCaption(ValidText(title)));
    groups_ = std::any_of(titles_.begin(), titles_.end(), [](const auto& t) { return !t.group.empty(); });
    std::string title = job.title;
    lxw_doc_properties properties{};
    properties.title = title.data();
    Check(workbook_set_properties(book_.Get(), &properties));
  }

  ExportOutcome Write() {
    const std::size_t count = table_.RowCount();
    std::size_t row = 0;
    do {
      BeginSheet();
      const std::size_t room =
          std::max(options_.sheetRows, kLeastSheetRows) - line_ - 1;  // one for the totals
      const std::size_t end = row + std::min(room, count - row);
      for (; row < end; ++row) {
        TellProgress(options_, row);
        WriteRow(row);
      }
      ranges_.push_back({name_, firstLine_, line_});
      EndSheet(row == count);
      rowsOfSheets_.push_back(rowsOut_);
    } while (row < count);
    book_.Close();
    outcome_.sheets = ranges_.size();
    return outcome_;
  }
  std::vector<std::size_t> RowsOfSheets() const { return rowsOfSheets_; }

 private:
  struct Range {
    std::string sheet;
    std::size_t first;  // line of the first row, from 0
    std::size_t end;    // behind the last
  };

  lxw_row_t Line() const { return static_cast<lxw_row_t>(line_); }
  // A row of the file is one that has a cell.
  void Wrote(lxw_error error, std::size_t line) {
    Check(error);
    if (rowsOut_ > 0 && line == lastLine_) return;
    lastLine_ = line;
    ++rowsOut_;
  }

  void BeginSheet() {
    name_ = SheetName(ValidText(job_.title), ranges_.size());
    sheet_ = workbook_add_worksheet(book_.Get(), name_.c_str());
    if (sheet_ == nullptr) throw UnfinishedFile();
    worksheet_right_to_left(sheet_);
    line_ = rowsOut_ = 0;
    for (std::size_t c = 0; c < titles_.size(); ++c) {
      const auto at = static_cast<lxw_col_t>(c);
      Check(worksheet_set_column(sheet_, at, at, table_.Columns()[c].width / kPixelsPerCharacter, nullptr));
    }
    WriteText(line_++, 0, job_.title, formats_.Title());
    for (const std::string& text : job_.lines) {
      for (const std::string& each : Split(text, '\n')) {
        if (!Trim(each).empty()) WriteText(line_++, 0, each, formats_.Criteria());
      }
    }
    ++line_;
    WriteHead();
    firstLine_ = line_;
    worksheet_freeze_panes(sheet_, Line(), static_cast<lxw_col_t>(table_.KeyColumns()));
  }

  void WriteHead() {
    if (groups_) {
      for (std::size_t c = 0; c < titles_.size(); ++c) {
        WriteText(line_, c, titles_[c].group.empty() ? titles_[c].title : titles_[c].group, formats_.Head());
      }
      MergeGroups();
      ++line_;
    }
    for (std::size_t c = 0; c < titles_.size(); ++c) {
      WriteText(line_, c, groups_ && titles_[c].group.empty() ? "" : titles_[c].title, formats_.Head());
    }
    ++line_;
  }

  // The library merges ranges that begin in the row it is at; the cells under them come with the next row.
  void MergeGroups() {
    for (std::size_t from = 0; from < titles_.size();) {
      std::size_t to = from + 1;
      while (!titles_[from].group.empty() && to < titles_.size() && titles_[to].group == titles_[from].group)
        ++to;
      const bool alone = titles_[from].group.empty();
      if (alone || to > from + 1) {
        Check(worksheet_merge_range(sheet_, Line(), static_cast<lxw_col_t>(from), Line() + (alone ? 1 : 0),
                                    static_cast<lxw_col_t>(to - 1), "", nullptr));
      }
      from = to;
    }
  }

  void WriteRow(std::size_t row) {
    for (std::size_t c = 0; c < titles_.size(); ++c) WriteCell(row, c);
    ++line_;
  }

  void WriteCell(std::size_t row, std::size_t column) {
    const auto at = static_cast<lxw_col_t>(column);
    const CellKind kind = table_.Columns()[column].kind;
    if (kind == CellKind::Swatch) {
      const auto color = table_.CellColor(row, column);
      if (color) Wrote(worksheet_write_blank(sheet_, Line(), at, formats_.Swatch(*color)), line_);
      return;
    }
    const Value value = table_.Cell(row, column);
    if (value.IsNull()) return;
    if (value.IsNumber()) {
      const Decimal number = value.AsDecimal();
      Wrote(worksheet_write_number(sheet_, Line(), at, number.ToDouble(), formats_.Number(column, number)),
            line_);
    } else if (const std::string text = value.AsText();
               kind != CellKind::Date || !options_.isoDates || !WriteDate(text, at)) {
      WriteText(line_, column, text, nullptr);
    }
  }

  bool WriteDate(const std::string& text, lxw_col_t at) {
    const auto date = ParseJalali(text);
    if (!date) return false;
    const std::string iso = IsoDate(text);
    lxw_datetime day{};
    day.year = std::stoi(iso.substr(0, 4));
    day.month = std::stoi(iso.substr(5, 2));
    day.day = std::stoi(iso.substr(8, 2));
    Wrote(worksheet_write_datetime(sheet_, Line(), at, &day, formats_.Date()), line_);
    return true;
  }

  void WriteText(std::size_t line, std::size_t column, const std::string& given, lxw_format* format) {
    std::string text = ValidText(given);
    if (text.size() > kLongestText && Utf16Length(text) > kLongestText) {
      // Characters of two units count twice, so that what is left fits in any case.
      std::size_t units = 0;
      std::size_t bytes = 0;
      while (bytes < text.size()) {
        const std::size_t width = FirstChars(std::string_view(text).substr(bytes), 1).size();
        units += width == 4 ? 2 : 1;
        if (units > kLongestText - 1) break;
        bytes += width;
      }
      text.resize(bytes);
      text += kCut;
      ++outcome_.cutTexts;
    }
    // The library writes nothing for an empty text without a format.
    if (text.empty() && format == nullptr) return;
    Wrote(worksheet_write_string(sheet_, static_cast<lxw_row_t>(line), static_cast<lxw_col_t>(column),
                                 text.c_str(), format),
          line);
  }

  void EndSheet(bool last) {
    if (line_ > firstLine_ && !titles_.empty()) {
      Check(worksheet_autofilter(sheet_, static_cast<lxw_row_t>(firstLine_ - 1), 0,
                                 static_cast<lxw_row_t>(line_ - 1),
                                 static_cast<lxw_col_t>(titles_.size() - 1)));
    }
    if (last && table_.HasFooter() && table_.RowCount() > 0) WriteTotals();
  }

  void WriteTotals() {
    for (std::size_t c = 0; c < titles_.size(); ++c) {
      const TotalKind total = table_.Columns()[c].total;
      const Value value = table_.Footer(c);
      if (total == TotalKind::None || value.IsNull()) continue;
      const Decimal number = value.AsDecimal();
      Wrote(worksheet_write_formula_num(sheet_, Line(), static_cast<lxw_col_t>(c), Formula(c, total).c_str(),
                                        formats_.Total(c, number), number.ToDouble()),
            line_);
    }
    ++line_;
  }

  // Rows that the filter hides are left out of the total, as on the screen.
  std::string Formula(std::size_t column, TotalKind total) const {
    std::string formula;
    for (const Range& range : ranges_) {
      char from[LXW_MAX_CELL_NAME_LENGTH];
      char to[LXW_MAX_CELL_NAME_LENGTH];
      lxw_rowcol_to_cell(from, static_cast<lxw_row_t>(range.first), static_cast<lxw_col_t>(column));
      lxw_rowcol_to_cell(to, static_cast<lxw_row_t>(range.end - 1), static_cast<lxw_col_t>(column));
      formula += formula.empty() ? "=" : "+";
      formula += total == TotalKind::Count ? "SUBTOTAL(3," : "SUBTOTAL(9,";
      if (ranges_.size() > 1) formula += "'" + ReplaceAll(range.sheet, "'", "''") + "'!";
      formula += std::string(from) + ":" + to + ")";
    }
    return formula;
  }

  const PrintJob& job_;
  const IReportTable& table_;
  const WritingOptions& options_;
  Workbook book_;
  XlsxFormats formats_;
  std::vector<SplitTitle> titles_;
  bool groups_ = false;
  lxw_worksheet* sheet_ = nullptr;
  std::string name_;
  std::size_t line_ = 0;
  std::size_t firstLine_ = 0;
  std::size_t rowsOut_ = 0;  // of the sheet
  std::size_t lastLine_ = 0;
  std::vector<Range> ranges_;
  std::vector<std::size_t> rowsOfSheets_;
  ExportOutcome outcome_;
};

}  // namespace

ExportOutcome WriteXlsxAt(const PrintJob& job, const std::string& path, const WritingOptions& options) {
  Sheets sheets(job, path, options);
  const ExportOutcome outcome = sheets.Write();
  CheckXlsx(path, sheets.RowsOfSheets());
  return outcome;
}

}  // namespace goods
