// DocumentWindow: a document of the company, shown for reading.
#pragma once

#include <QDialog>

#include "company/company.h"

class QTableView;

namespace goods {

// Shows copies of the view's texts: header fields, rows, totals. Esc closes; Ctrl+C copies the selected rows,
// all of them where none is selected, as text with tabs between the cells.
class DocumentWindow : public QDialog {
 public:
  DocumentWindow(const DocumentView& view, std::int64_t code, QWidget* parent);

  // What Ctrl+C puts on the clipboard: the captions, then the rows.
  QString CopiedText() const;

 private:
  void Copy() const;
  QWidget* MakeHeader(const DocumentView& view);
  QWidget* MakeTotals(const DocumentView& view);
  void MakeTable(const DocumentView& view);

  QTableView* table_;
};

}  // namespace goods
