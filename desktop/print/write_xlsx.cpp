#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <utility>

#include "desktop/print/unit_rows.h"
#include "desktop/print/writers.h"
#include "desktop/print/xlsx_parts.h"
#include "desktop/print/xlsx_styles.h"
#include "desktop/print/zip_writer.h"
#include "host/core/jalali.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr double kPixelsPerCharacter = 7;
constexpr double kPixelsBesideText = 5;
constexpr double kPixelsOfFilterButton = 18;
constexpr std::size_t kLongestText = 32767;  // of a cell, in UTF-16 units
constexpr std::size_t kLeastSheetRows = 64;
// Keeps a sheet of common cells well below the 4 GB of an archive's entry.
constexpr std::size_t kSheetCells = 30'000'000;
constexpr std::size_t kSheetPiece = 1 << 16;
constexpr std::int64_t kDayOf1970 = 25569;  // days of a spreadsheet's calendar before it
constexpr std::string_view kCut = "…";

std::size_t Utf16Length(std::string_view text) {
  std::size_t length = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) != 0x80) length += byte >= 0xF0 ? 2 : 1;
  }
  return length;
}

// As much of the text as a cell holds beside the mark.
std::string CutText(std::string_view text) {
  std::size_t units = 0;
  std::size_t bytes = 0;
  while (bytes < text.size()) {
    const std::size_t width = FirstChars(text.substr(bytes), 1).size();
    units += width == 4 ? 2 : 1;
    if (units > kLongestText - 1) break;
    bytes += width;
  }
  return std::string(text.substr(0, bytes)) + std::string(kCut);
}

template <typename Number>
void AppendDigits(std::string& out, Number number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  out.append(digits.data(), end);
}

// Blanks at the ends, and lines, are a part of the text.
bool KeepsSpace(std::string_view text) {
  return !text.empty() && (static_cast<unsigned char>(text.front()) <= ' ' ||
                           static_cast<unsigned char>(text.back()) <= ' ' || text.find('\n') != text.npos);
}

class XlsxWriter {
 public:
  XlsxWriter(const PrintJob& job, ByteSink& sink, const WritingOptions& options)
      : job_(job),
        unfolded_(DetailsOf(job.table) == nullptr ? nullptr : DetailsOf(job.table)->Unfolded()),
        table_(unfolded_ == nullptr ? *job.table : *unfolded_),
        details_(DetailsOf(&table_)),
        options_(options),
        zip_(sink),
        styles_(table_),
        units_(UnitRowsOf(table_)) {
    for (const std::string& title : FileTitles(table_)) {
      letters_.push_back(ColumnLetters(titles_.size()));
      titles_.push_back(SplitCaption(ValidText(title)));
    }
    if (letters_.empty()) letters_.push_back(ColumnLetters(0));  // the title needs one
    groups_ = std::any_of(titles_.begin(), titles_.end(), [](const auto& t) { return !t.group.empty(); });
    for (const std::string& text : job.lines) {
      for (const std::string& line : Split(text, '\n')) {
        if (!Trim(line).empty()) criteria_.push_back(line);
      }
    }
    firstLine_ = 1 + criteria_.size() + 1 + (groups_ ? 2 : 1);
  }

  ExportOutcome Write() {
    const std::size_t count = table_.RowCount();
    const std::size_t room = RowsOfASheet();
    zip_.Add("[Content_Types].xml", ContentTypesXml(count == 0 ? 1 : (count + room - 1) / room));
    std::size_t row = 0;
    do {
      BeginSheet();
      const std::size_t end = row + std::min(room, count - row);
      for (; row < end; ++row) {
        TellProgress(options_, row);
        WriteRow(row);
      }
      EndSheet(row == count);
    } while (row < count);
    for (const XlsxPart& part : XlsxPartsOf(ValidText(job_.title), sheets_)) {
      zip_.Add(part.name, part.content);
    }
    zip_.Add("xl/styles.xml", styles_.Xml());
    zip_.Finish();
    outcome_.sheets = sheets_.size();
    return outcome_;
  }

 private:
  // Its totals have their room.
  std::size_t RowsOfASheet() const {
    const std::size_t lines =
        std::max(options_.sheetRows, kLeastSheetRows + units_.size()) - firstLine_ - 1 - units_.size();
    return std::max<std::size_t>(1, std::min(lines, kSheetCells / std::max<std::size_t>(1, titles_.size())));
  }

  // "A7"; lines from 0.
  std::string CellName(std::size_t line, std::size_t column) const {
    return letters_[column] + std::to_string(line + 1);
  }

  void Pass() {
    if (xml_.size() < kSheetPiece) return;
    zip_.Write(xml_);
    xml_.clear();
  }

  void BeginSheet() {
    const std::string name = SheetName(ValidText(job_.title), sheets_.size());
    const std::size_t headLines = groups_ ? 2 : 1;
    sheets_.push_back(
        {name, "$" + std::to_string(firstLine_ - headLines + 1) + ":$" + std::to_string(firstLine_), {}});
    zip_.Begin(SheetPartName(sheets_.size() - 1));
    line_ = 0;
    merged_.clear();
    xml_ = kXmlHead;
    xml_ += "<worksheet xmlns=\"" + std::string(kSheetSpace) + "\"><sheetPr>" +
            (table_.HasGroups() ? "<outlinePr summaryBelow=\"0\"/>" : "") +
            "<pageSetUpPr fitToPage=\"1\"/></sheetPr><sheetViews>" + ViewXml() + "</sheetViews>" +
            "<sheetFormatPr defaultRowHeight=\"15\"" + OutlineXml() + "/>";
    if (!titles_.empty()) xml_ += "<cols>" + ColumnsXml() + "</cols>";
    xml_ += "<sheetData>";
    WriteLine(job_.title, styles_.Title());
    for (const std::string& text : criteria_) WriteLine(text, styles_.Criteria());
    ++line_;
    WriteHead();
  }

  std::string OutlineXml() const {
    return table_.HasGroups() ? " outlineLevelRow=\"" + std::to_string(details_->GroupLevels()) + "\""
                              : std::string();
  }

  // The first sheet is the one that is seen; the head and the columns that say what a row is about stay.
  std::string ViewXml() const {
    const std::size_t columns = std::min(table_.KeyColumns(), titles_.size());
    const char* pane = columns > 0 ? "bottomRight" : "bottomLeft";
    return std::string("<sheetView rightToLeft=\"1\"") + (sheets_.size() == 1 ? " tabSelected=\"1\"" : "") +
           " workbookViewId=\"0\"><pane " +
           (columns > 0 ? "xSplit=\"" + std::to_string(columns) + "\" " : std::string()) + "ySplit=\"" +
           std::to_string(firstLine_) + "\" topLeftCell=\"" + ColumnLetters(columns) +
           std::to_string(firstLine_ + 1) + "\" activePane=\"" + pane +
           "\" state=\"frozen\"/><selection pane=\"" + pane + "\"/></sheetView>";
  }

  // That of the table; a column of marks, which has no title there, has room for the one that it gets here.
  double WidthInPixels(std::size_t column) const {
    const ReportColumn& given = table_.Columns()[column];
    if (given.kind != CellKind::Swatch) return given.width;
    const auto letters = static_cast<double>(CharCount(titles_[column].title));
    return std::max<double>(given.width, letters * kPixelsPerCharacter + kPixelsOfFilterButton);
  }

  std::string ColumnsXml() const {
    std::string xml;
    for (std::size_t c = 0; c < titles_.size(); ++c) {
      const std::string number = std::to_string(c + 1);
      xml += "<col min=\"" + number + "\" max=\"" + number + "\" width=\"";
      AppendDigits(xml, (WidthInPixels(c) + kPixelsBesideText) / kPixelsPerCharacter);
      xml += "\" customWidth=\"1\"/>";
    }
    return xml;
  }

  void BeginRow(bool tall = false) {
    xml_ += "<row r=\"";
    AppendDigits(xml_, line_ + 1);
    xml_ += tall ? "\" ht=\"32\" customHeight=\"1\">" : "\">";
  }
  void EndRow() {
    xml_ += "</row>";
    ++line_;
    Pass();
  }

  void WriteLine(const std::string& text, int style) {
    BeginRow();
    WriteText(0, text, style);
    EndRow();
  }

  void WriteHead() {
    const int style = styles_.Head();
    if (groups_) {
      BeginRow();
      for (std::size_t c = 0; c < titles_.size(); ++c) {
        WriteText(c, titles_[c].group.empty() ? titles_[c].title : titles_[c].group, style);
      }
      MergeGroups();
      EndRow();
    }
    BeginRow(HasLongTitle());
    for (std::size_t c = 0; c < titles_.size(); ++c) {
      WriteText(c, groups_ && titles_[c].group.empty() ? "" : titles_[c].title, style);
    }
    EndRow();
  }

  // One that takes two lines in its column, by a rough width of bold letters.
  bool HasLongTitle() const {
    for (std::size_t c = 0; c < titles_.size(); ++c) {
      const bool overTwo = groups_ && titles_[c].group.empty();
      if (!overTwo &&
          static_cast<double>(CharCount(titles_[c].title)) * kPixelsPerCharacter > WidthInPixels(c)) {
        return true;
      }
    }
    return false;
  }

  // Columns of one group share its title; one without a group has its title over both lines.
  void MergeGroups() {
    for (std::size_t from = 0; from < titles_.size();) {
      std::size_t to = from + 1;
      const bool alone = titles_[from].group.empty();
      while (!alone && to < titles_.size() && titles_[to].group == titles_[from].group) ++to;
      if (alone || to > from + 1) {
        merged_.push_back(CellName(line_, from) + ":" + CellName(line_ + (alone ? 1 : 0), to - 1));
      }
      from = to;
    }
  }

  void WriteRow(std::size_t row) {
    if (table_.HasGroups()) {
      BeginLine(row);
    } else {
      BeginRow();
    }
    const bool isRow = table_.Role(row) == RowRole::Row;
    for (std::size_t c = 0; c < titles_.size(); ++c) isRow ? WriteCell(row, c) : WriteGroupCell(row, c);
    EndRow();
  }

  // A line of a table with groups: how far in it stands, and whether it is folded away. What folds the lines
  // of a group is marked on the line above them.
  void BeginLine(std::size_t row) {
    xml_ += "<row r=\"";
    AppendDigits(xml_, line_ + 1);
    xml_ += '"';
    const std::size_t level = details_->Level(row);
    if (level > 0) xml_ += " outlineLevel=\"" + std::to_string(level) + "\"";
    if (details_->Hidden(row)) xml_ += " hidden=\"1\"";
    const bool above =
        table_.Role(row) != RowRole::Row && row + 1 < table_.RowCount() && details_->Level(row + 1) > level;
    if (above && details_->Folded(row)) xml_ += " collapsed=\"1\"";
    xml_ += '>';
  }

  // Plain figures: a formula over the lines below would add totals of other groups and of units, too.
  void WriteGroupCell(std::size_t row, std::size_t column) {
    const bool head = table_.Role(row) == RowRole::GroupHead;
    const std::size_t level = details_->Level(row);
    const Value value = table_.Cell(row, column);
    if (value.IsNumber() && column != table_.TextColumn()) {
      BeginCell(column, styles_.GroupTotal(column, value.AsDecimal(), head, level));
      xml_ += "><v>";
      xml_ += value.AsText();
      xml_ += "</v></c>";
    } else {
      WriteText(column, value.AsText(), styles_.GroupText(head, level));
    }
  }

  // "<c r="A7" s="3"", to be gone on with.
  void BeginCell(std::size_t column, int style) {
    xml_ += "<c r=\"";
    xml_ += letters_[column];
    AppendDigits(xml_, line_ + 1);
    xml_ += '"';
    if (style == 0) return;
    xml_ += " s=\"";
    AppendDigits(xml_, style);
    xml_ += '"';
  }

  void WriteCell(std::size_t row, std::size_t column) {
    const CellKind kind = table_.Columns()[column].kind;
    if (kind == CellKind::Swatch) {
      const auto color = table_.CellColor(row, column);
      if (!color) return;
      BeginCell(column, styles_.Swatch(*color));
      xml_ += "/>";
      return;
    }
    const Value value = table_.Cell(row, column);
    if (value.IsNull()) return;
    if (value.IsNumber()) {
      BeginCell(column, styles_.Number(column, value.AsDecimal()));
      xml_ += "><v>";
      xml_ += value.AsText();
      xml_ += "</v></c>";
    } else if (const std::string text = value.AsText();
               kind != CellKind::Date || !options_.isoDates || !WriteDate(column, text)) {
      WriteText(column, text, 0);
    }
  }

  bool WriteDate(std::size_t column, const std::string& text) {
    const auto date = ParseJalali(text);
    if (!date) return false;
    BeginCell(column, styles_.Date());
    xml_ += "><v>";
    AppendDigits(xml_, DaysFromJalali(*date) + kDayOf1970);
    xml_ += "</v></c>";
    return true;
  }

  // An empty text is a cell only where a format shows.
  void WriteText(std::size_t column, const std::string& given, int style) {
    if (given.empty()) {
      if (style == 0) return;
      BeginCell(column, style);
      xml_ += "/>";
      return;
    }
    std::string text = ValidText(given);
    if (text.size() > kLongestText && Utf16Length(text) > kLongestText) {
      text = CutText(text);
      ++outcome_.cutTexts;
    }
    BeginCell(column, style);
    xml_ += KeepsSpace(text) ? " t=\"inlineStr\"><is><t xml:space=\"preserve\">" : " t=\"inlineStr\"><is><t>";
    AppendXml(xml_, text);
    xml_ += "</t></is></c>";
  }

  void EndSheet(bool last) {
    ends_.push_back(line_);
    std::string filter;
    // A filter would take the heads away from their rows.
    if (line_ > firstLine_ && !titles_.empty() && !table_.HasGroups()) {
      const std::size_t end = titles_.size() - 1;
      filter = "<autoFilter ref=\"" + CellName(firstLine_ - 1, 0) + ":" + CellName(line_ - 1, end) + "\"/>";
      sheets_.back().filtered =
          "$A$" + std::to_string(firstLine_) + ":$" + letters_[end] + "$" + std::to_string(line_);
    }
    if (last && table_.HasFooter() && table_.RowCount() > 0) WriteTotals();
    xml_ += "</sheetData>" + filter;
    if (!merged_.empty()) {
      xml_ += "<mergeCells count=\"" + std::to_string(merged_.size()) + "\">";
      for (const std::string& range : merged_) xml_ += "<mergeCell ref=\"" + range + "\"/>";
      xml_ += "</mergeCells>";
    }
    // On paper as wide as a page, and as long as it takes.
    xml_ += "<pageSetup paperSize=\"9\" orientation=\"landscape\" fitToHeight=\"0\"/></worksheet>";
    zip_.Write(std::exchange(xml_, {}));
    zip_.End();
  }

  void WriteTotals() {
    BeginRow();
    for (std::size_t c = 0; c < titles_.size(); ++c) {
      const TotalKind total = table_.Columns()[c].total;
      const Value value = table_.Footer(c);
      if (total == TotalKind::None || value.IsNull()) continue;
      BeginCell(c, styles_.Total(c, value.AsDecimal()));
      xml_ += '>';
      if (!table_.HasGroups()) {
        xml_ += "<f>";
        AppendXml(xml_, Formula(c, total));
        xml_ += "</f>";
      }
      xml_ += "<v>" + value.AsText() + "</v></c>";
    }
    EndRow();
    for (const UnitRow& row : units_) WriteUnitTotals(row);
  }

  // Plain figures: which rows have which unit, the sheet does not say everywhere.
  void WriteUnitTotals(const UnitRow& row) {
    const std::size_t title = UnitTitleColumn(units_);
    BeginRow();
    for (std::size_t c = 0; c < titles_.size(); ++c) {
      if (c == title) {
        WriteText(c, row.title, styles_.TotalText());
      } else if (!row.sums[c].IsNull()) {
        BeginCell(c, styles_.Total(c, row.sums[c].AsDecimal()));
        xml_ += "><v>" + row.sums[c].AsText() + "</v></c>";
      } else if (!row.texts[c].empty()) {
        WriteText(c, row.texts[c], styles_.TotalText());
      }
    }
    EndRow();
  }

  // Rows that the filter hides are left out of the total, as on the screen.
  std::string Formula(std::size_t column, TotalKind total) const {
    std::string formula;
    for (std::size_t i = 0; i < sheets_.size(); ++i) {
      if (i > 0) formula += '+';
      formula += total == TotalKind::Count ? "SUBTOTAL(3," : "SUBTOTAL(9,";
      if (sheets_.size() > 1) formula += "'" + ReplaceAll(sheets_[i].name, "'", "''") + "'!";
      formula += CellName(firstLine_, column) + ":" + CellName(ends_[i] - 1, column) + ")";
    }
    return formula;
  }

  const PrintJob& job_;
  // Folded groups keep their rows in the sheet, folded there, too.
  std::unique_ptr<IDetailedTable> unfolded_;
  const IReportTable& table_;
  const IDetailedTable* details_;  // never null where the table has groups
  const WritingOptions& options_;
  ZipWriter zip_;
  XlsxStyles styles_;
  std::vector<SplitTitle> titles_;
  std::vector<std::string> letters_;   // of the columns
  std::vector<std::string> criteria_;  // a line each
  bool groups_ = false;
  std::size_t firstLine_ = 0;  // of the rows, in every sheet; lines count from 0
  std::string xml_;            // of the sheet, what has not been handed on
  std::size_t line_ = 0;
  std::vector<std::string> merged_;  // of the sheet
  std::vector<XlsxSheet> sheets_;
  std::vector<UnitRow> units_;
  std::vector<std::size_t> ends_;  // of each sheet: the line behind its last row
  ExportOutcome outcome_;
};

}  // namespace

ExportOutcome WriteXlsxTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options) {
  return XlsxWriter(job, sink, options).Write();
}

}  // namespace goods
