// A table as a file: PDF, text, CSV, spreadsheet. Digits are plain in all but the PDF.
#pragma once

#include <string>

#include "host/components/grid.h"
#include "host/services/printing.h"

namespace goods {

// A file that could not be written; the message is Persian and names it.
class ExportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// today as Jalali text. Each writes the whole file or throws ExportError. PDF needs a QGuiApplication.
void WritePdf(const PrintJob& job, const std::string& path, const std::string& today);
// A table in columns of characters, in UTF-8.
void WriteText(const PrintJob& job, const std::string& path);
// UTF-8 with a byte order mark, so that spreadsheets know it; cells quoted where they need to be.
void WriteCsv(const IReportTable& table, const std::string& path);
// Numbers as numbers with the grid's formats, texts as texts; the header frozen, the sheet right to left.
// More rows than a sheet holds (1,048,575) are refused.
void WriteXlsx(const TSmartDBGrid_QRT& grid, const std::string& path, const std::string& title);

}  // namespace goods
