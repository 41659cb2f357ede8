// PreviewWindow: the pages of a report on the screen, with zoom, paper and PDF.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "desktop/print/page_layout.h"

class QLabel;
class QLayout;
class QPrinter;
class QPushButton;

namespace goods {

class PageView;

// Esc closes, Ctrl+P prints, Ctrl+S saves as PDF, PageUp and PageDown turn, Ctrl and plus or minus zoom.
class PreviewWindow : public QDialog {
 public:
  // layout must outlive the window. forbidden: files that the PDF may not be written over.
  PreviewWindow(const PageLayout& layout, QWidget* parent, std::vector<std::string> forbidden = {});

  int CurrentPage() const;
  void GoToPage(int page);  // from 1
  // What the user is offered as the name of a PDF.
  std::string ProposedName() const;
  void SaveAsPdf(const QString& path);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PaintOn(QPrinter& printer) const;
  void Print();
  void AskAndSave();
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

  const PageLayout& layout_;
  std::vector<std::string> forbidden_;
  PageView* preview_;
  QLabel* page_;
};

}  // namespace goods
