#include <QFile>
#include <QTemporaryFile>
#include <memory>

#include <xlsxwriter.h>

#include "desktop/print/export.h"
#include "desktop/views/shown_text.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr double kPixelsPerCharacter = 7;
constexpr std::size_t kMostRows = 1048575;  // of a sheet, less the header

// The component's format in the spreadsheet's words; they agree but for the minus behind.
std::string SheetFormat(const TGridColumn& column) {
  return ReplaceAll(column.DisplayFormatText(), "-;", "\"-\";");
}

class Sheet {
 public:
  Sheet(const TSmartDBGrid_QRT& grid, const std::string& path)
      : grid_(grid),
        columns_(grid.VisibleColumns()),
        book_(Open(path)),
        sheet_(workbook_add_worksheet(book_, nullptr)) {}

  void Write(const std::string& title) {
    lxw_doc_properties properties{};
    std::string copy = title;
    properties.title = copy.data();
    workbook_set_properties(book_, &properties);
    worksheet_right_to_left(sheet_);
    worksheet_freeze_panes(sheet_, 1, 0);
    WriteHeader();
    const std::size_t rows = grid_.Table().RowCount();
    for (std::size_t column = 0; column < columns_.size(); ++column)
      formats_.push_back(FormatOf(*columns_[column]));
    for (std::size_t row = 0; row < rows; ++row) {
      for (std::size_t column = 0; column < columns_.size(); ++column) WriteCell(row, column);
    }
  }
  bool Close() { return workbook_close(book_) == LXW_NO_ERROR; }

 private:
  static lxw_workbook* Open(const std::string& path) {
    // Rows are written out as they come, so that a long table needs no memory.
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    return workbook_new_opt(path.c_str(), &options);
  }
  lxw_format* FormatOf(const TGridColumn& column) {
    lxw_format* format = workbook_add_format(book_);
    if (column.IsNumber()) format_set_num_format(format, SheetFormat(column).c_str());
    return format;
  }
  void WriteHeader() {
    lxw_format* bold = workbook_add_format(book_);
    format_set_bold(bold);
    format_set_align(bold, LXW_ALIGN_CENTER);
    format_set_bg_color(bold, 0xE9EEF4);
    for (std::size_t c = 0; c < columns_.size(); ++c) {
      const auto at = static_cast<lxw_col_t>(c);
      worksheet_set_column(sheet_, at, at, columns_[c]->Width() / kPixelsPerCharacter, nullptr);
      const std::string caption = ReplaceAll(PlainCaption(columns_[c]->Caption()), "|", " / ");
      worksheet_write_string(sheet_, 0, at, caption.c_str(), bold);
    }
  }
  void WriteCell(std::size_t row, std::size_t column) {
    const auto line = static_cast<lxw_row_t>(row + 1);
    const auto at = static_cast<lxw_col_t>(column);
    const TADOQuery& query = *grid_.DataSet();
    const auto field = query.FindField(columns_[column]->FieldName());
    const Value value = field ? query.Cell(row, *field) : Value();
    if (value.IsNumber()) {
      worksheet_write_number(sheet_, line, at, value.AsDecimal().ToDouble(), formats_[column]);
    } else if (!value.IsNull()) {
      worksheet_write_string(sheet_, line, at, value.AsText().c_str(), formats_[column]);
    }
  }

  const TSmartDBGrid_QRT& grid_;
  std::vector<TGridColumn*> columns_;
  lxw_workbook* book_;
  lxw_worksheet* sheet_;
  std::vector<lxw_format*> formats_;
};

}  // namespace

void WriteXlsx(const TSmartDBGrid_QRT& grid, const std::string& path, const std::string& title) {
  if (grid.Table().RowCount() > kMostRows) {
    throw ExportError("تعداد ردیف ها بیشتر از گنجایش یک صفحه گسترده (" + std::to_string(kMostRows) +
                      " ردیف) است. شرایط گزارش را محدودتر کنید یا خروجی CSV بگیرید.");
  }
  // Written aside and moved into place, so that a failure leaves no half of a file.
  const std::string aside = path + ".part";
  Sheet sheet(grid, aside);
  sheet.Write(title);
  bool done = sheet.Close();
  if (done) {
    QFile::remove(ToQt(path));
    done = QFile::rename(ToQt(aside), ToQt(path));
  }
  if (!done) {
    QFile::remove(ToQt(aside));
    throw ExportError("پرونده «" + path + "» نوشته نشد. جای آن و اجازه نوشتن را بررسی کنید.");
  }
}

}  // namespace goods
