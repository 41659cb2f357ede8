// A table as a file: text, CSV, spreadsheet, JSON, PDF. Digits are plain in all but the PDF.
#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/print/byte_sink.h"
#include "host/services/printing.h"

namespace goods {

class FileLayer;
class PrintedDocument;

enum class FileFormat { Text, Csv, Xlsx, Json, Pdf };

// A file that could not be written; the message is Persian and names it.
class ExportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~ExportError() override;
};

// The user stopped the writing; the file at the path is as it was.
class ExportStopped : public ExportError {
 public:
  using ExportError::ExportError;
  ~ExportStopped() override;
};

inline constexpr std::size_t kSheetRows = 1048576;

struct WritingOptions {
  std::string today;      // Jalali text, printed on the pages of a PDF
  bool csvShown = false;  // CSV cells as the grid shows them
  bool csvMark = true;    // a byte order mark in front of CSV, so that spreadsheets know it for UTF-8
  bool isoDates = false;  // dates of CSV, XLSX and JSON as days of the Gregorian calendar
  std::size_t sheetRows = kSheetRows;  // rows that a sheet of an XLSX holds, at least 64
  // Files that must never be written, such as the company that is open.
  std::vector<std::string> forbidden = {};
  FileLayer* layer = nullptr;  // the calls of the system; null: the system's own
  // Asked with the number of rows written so far, now and then; false stops the writing.
  std::function<bool(std::size_t rows)> progress;
};

struct ExportOutcome {
  std::size_t cutTexts = 0;  // texts longer than a cell of a spreadsheet holds, cut there behind "…"
  std::size_t sheets = 1;
};

// Writes the file whole or not at all: when anything fails, ExportError is thrown and a file that stood at
// path is untouched. job.table must not be null. PDF needs a QGuiApplication.
ExportOutcome WriteReport(const PrintJob& job, FileFormat format, const std::string& path,
                          const WritingOptions& options = {});

// The document as a PDF, whole or not at all as above. Of the options today is the document's own.
void WriteDocument(const PrintedDocument& document, const std::string& path,
                   const WritingOptions& options = {});

// The same bytes as they come, for a pipe, where nothing is taken back. Throws what the sink throws, or
// ExportError.
ExportOutcome StreamReport(const PrintJob& job, FileFormat format, ByteSink& sink,
                           const WritingOptions& options = {});

// The formats by the names of their files' endings: "txt", "csv", "xlsx", "json", "pdf".
std::string_view EndingOf(FileFormat format);

// What the user is told of an outcome beside that the file was written; empty for nothing.
std::string NoteOf(const ExportOutcome& outcome);

}  // namespace goods
