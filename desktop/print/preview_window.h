// PreviewWindow: the pages of a report on the screen, with zoom, paper and PDF.
#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "desktop/print/printed_document.h"

class QLabel;
class QLayout;
class QPrinter;
class QPushButton;

namespace goods {

class PageView;

// Esc closes, Ctrl+P prints, Ctrl+S saves as PDF, Ctrl+E sets the page up, PageUp and PageDown turn, Ctrl and
// plus or minus zoom.
class PreviewWindow : public QDialog {
 public:
  // document must outlive the window, which lays it out anew as the user chooses. forbidden: files that the
  // PDF may not be written over.
  PreviewWindow(PrintedDocument& document, QWidget* parent, std::vector<std::string> forbidden = {});

  const PrintedDocument& Document() const { return document_; }
  int CurrentPage() const;
  void GoToPage(int page);  // from 1
  // What the user is offered as the name of a PDF.
  std::string ProposedName() const;
  // Tells the user why where it could not be written.
  bool SaveAsPdf(const QString& path);
  // The user has set the page up in another way.
  std::function<void(const PageOptions& options)> OnOptions;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PaintOn(QPrinter& printer) const;
  void Print();
  void AskAndSave();
  void SetUpPage();
  void Apply(PageOptions options);
  void UpdatePageNumber();
  QPushButton* AddButton(QLayout& bar, const QString& text, const char* name,
                         void (PreviewWindow::*action)());
  void Next() { GoToPage(CurrentPage() + 1); }
  void Previous() { GoToPage(CurrentPage() - 1); }
  void ZoomIn();
  void ZoomOut();
  void FitWidth();
  void FitPage();
  void Leave() { reject(); }

  PrintedDocument& document_;
  std::vector<std::string> forbidden_;
  PageView* preview_;
  QLabel* page_;
};

}  // namespace goods
