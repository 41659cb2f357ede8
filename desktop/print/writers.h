// The writers behind WriteReport, one a format. What a cell is they take from the table's types; none of them
// parses a shown text.
#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/print/export.h"

namespace goods {

// A library could not write its part. Its own words say nothing to a user: WriteReport tells it.
class UnfinishedFile : public std::exception {
 public:
  ~UnfinishedFile() override;
};

// Text in columns of characters: title, criteria, the table with its totals.
void WriteTextTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options);

// A line of captions ("group / title"), then the rows; no totals, so that every line is a row. Numbers are
// plain: a point, a minus in front, no separators. A text that a spreadsheet would take for a formula gets an
// apostrophe in front, as one is typed there.
void WriteCsvTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options);

// {"title", "criteria", "columns": [{"name", "caption", "group", "kind"}], "rows": [[...]], "totals": [...]}.
// Numbers are JSON numbers with all their digits; an empty cell is null; a colour is "#RRGGBB".
void WriteJsonTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options);

void WritePdfTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options);
void WriteDocumentTo(const PrintedDocument& document, ByteSink& sink, const WritingOptions& options);

// A workbook: title and criteria, captions with their groups, the rows, totals as formulas. Numbers have all
// their digits. Rows go out as they come, so that a long table needs no memory; sheets end at
// options.sheetRows.
ExportOutcome WriteXlsxTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options);

// Asks the options' progress every few thousand rows; throws ExportStopped.
void TellProgress(const WritingOptions& options, std::size_t row);

// A column's title for a file, where none may be empty: its caption without accelerator marks, "برچسب" with a
// number for a colour column without one, else the field's name.
std::vector<std::string> FileTitles(const IReportTable& table);
// The two halves of a "group|title"; the group is empty where there is none.
struct SplitTitle {
  std::string group;
  std::string title;
};
SplitTitle SplitCaption(const std::string& title);

// A Jalali date text as "yyyy-mm-dd" of the Gregorian calendar; any other text as it stands.
std::string IsoDate(const std::string& jalali);
// The text with every byte that is not part of a UTF-8 character replaced by U+FFFD.
std::string ValidText(std::string text);
// "#RRGGBB"
std::string ColorText(Color color);

}  // namespace goods
